#pragma once

#include "frame/child_screen.h"

// Chooses the print design of invoices, quotations and challans, and shows what each design
// looks like: its row of HIDELINESET and its picture.
class VSETFRM : public ChildScreen {
 public:
  explicit VSETFRM(Host& host);
  void opened(const Opening& opening) override;

 protected:
  std::string hintFor(const Control& control) const override;

 private:
  void checkTyped();
  void view();
  void setDesigns();
  void leave();
  void askToLeave();
  bool refused(FieldName field);
};
