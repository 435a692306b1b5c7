#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "reports/ledger_columns.h"
#include "reports/period_screen.h"
#include "reports/report_rows.h"

// The report screen: the report of its opening's key, over a period and
// filtered by the fields that it enables. What a report shows is told by its piece in `reports`.
class frmreport : public PeriodScreen {
 public:
  explicit frmreport(Host& host);
  static const ScreenSpec& table();

  void opened(const Opening& opening) override;
  void activated() override;
  void closed() override;

 protected:
  std::string hintFor(const Control& control) const override;
  std::vector<std::string> outputButtons() const override { return {"cmdprint", "cmdPrtToXl", "Cmdpdf"}; }

 private:
  Go lookup();
  Go date();
  void dateF4();

  void show();
  void build();
  void clear();
  void showPhone();
  ReportQuery queryNow(const Period& period) const;
  bool asks(ReportQuestion::When when) const;
  bool answer();
  bool start(size_t rows);
  void chooseFill();
  void fill();

  void rowMoved();
  void openRow();
  void picture();
  void drawPicture();
  std::optional<VoucherKey> currentVoucher() const;

  void print() { handOver(kToPrinter); }
  void preview() { handOver(kToPreview); }
  void pdf() { handOver(kToPdf); }
  void excel() { exportTo(0); }
  void nextFile() { exportTo(1); }
  void exportTo(size_t file);
  void handOver(const GridTarget& target);
  void video() { openTutorial(host, tutorial()); }
  const std::string& tutorial() const;
  void escape();
  void close() { host.close(*this); }
  bool escapes() const;
  std::string openingCaption() const;

  std::string key_;
  const Report* report_ = nullptr;  // null: no such report
  ReportPlan plan_;
  std::shared_ptr<ReportRows> shown_;
  std::optional<bool> answer_;  // to the report's question
  std::optional<ReportRows::Place> drilledInto_;
  bool pictured_ = false;  // the chart is wanted
};
