#pragma once

#include "frame/child_screen.h"

// "Company Details": the one row of COMP_DET, with which every printed document heads. For a
// company that was just created it is opened with its name.
class stngs : public ChildScreen {
 public:
  explicit stngs(Host& host);
  void opened(const Opening& opening) override;

 protected:
  std::string hintFor(const Control& control) const override;

 private:
  void load();
  void loadAgain();
  void save();
  void leave();
  void askToLeave();
};
