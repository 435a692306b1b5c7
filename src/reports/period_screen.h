#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "frame/child_screen.h"

// A screen over a period: its first and last date stand in the fields from and to.
class PeriodScreen : public ChildScreen {
 protected:
  using ChildScreen::ChildScreen;

  struct Period {
    Date from, to;
  };
  // Nothing for a box without a date, which is told of and takes the focus.
  std::optional<Date> checkedDate(FieldName box);
  std::optional<Period> checkedPeriod();

  // Outputs carry the heading of the code, filters and dates under which the rows were shown: they go off
  // as soon as one of these stands otherwise, until it is shown again.
  void outputs(bool on);
  bool standsAsShown();  // else the outputs are off
  void changed() { standsAsShown(); }
  void focusMoved(Control& control) override;
  virtual std::vector<std::string> outputButtons() const = 0;

 private:
  std::string asked() const;
  std::optional<std::string> shownFor_;
};
