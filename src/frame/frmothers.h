#pragma once

#include <vector>

#include "frame/child_screen.h"
#include "store/engine.h"

// For whom others have to finish, and whether they may be passed by.
struct OthersAwaited {
  std::string what;
  bool all = false;  // whoever has the books open, not only who has something in hand
};
// Those whom it waits for.
std::vector<Other> awaited(Database& db, const OthersAwaited& wanted);

// "Others At These Books": who has yet to finish, read again every two seconds. Closes by itself, with the
// result "go", when nobody is left.
class frmothers : public ChildScreen {
 public:
  frmothers(Host& host, const Opening& opening);
  void opened(const Opening& opening) override;
  void tick() override;

 private:
  void goOn();
  void leave() { host.close(*this); }
  void show(const std::vector<Other>& others);

  const OthersAwaited wanted_;
};
