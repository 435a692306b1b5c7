#pragma once

#include <optional>

#include "frame/child_screen.h"
#include "frame/period.h"

// "Accounting Period": the company-year's first and last day.
class frmperiod : public ChildScreen {
 public:
  explicit frmperiod(Host& host);
  void opened(const Opening& opening) override;

 protected:
  std::string hintFor(const Control& control) const override;

 private:
  std::optional<Date> checked(FieldName box);
  Go dateEntered();
  void save();
  void leave();
};
