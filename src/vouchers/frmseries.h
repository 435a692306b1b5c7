#pragma once

#include <string>
#include <vector>

#include "frame/child_screen.h"
#include "frame/number_series.h"
#include "frame/voucher_kinds.h"

// "Number Series": how the numbers on our papers are written, one row for each kind of voucher and for each
// of its types, and what the next one will be.
class FRMSERIES : public ChildScreen {
 public:
  explicit FRMSERIES(Host& host);
  void opened(const Opening& opening) override;

 protected:
  std::string hintFor(const Control& control) const override;
  std::string atStake() const override;

 private:
  struct Line {
    const VoucherKind* kind;
    std::string type;  // empty: all types
  };
  const Line& current() const { return lines_[at("lst").grid.current]; }
  const NumberSeries* stored(const Line& line) const;  // null where it is numbered as ever

  void fill(const std::string& code = {}, const std::string& type = {});
  void show();
  void explain();
  NumberSeries typedSeries() const;

  Go change();
  Go lastEntered();
  void save();
  void remove();
  void leave();
  void escape();

  std::vector<Line> lines_;
  std::vector<NumberSeries> all_;
};
