#pragma once

#include "platform/host.h"

// The shell: the window of a working session, with menus, tool bar and status bar. All
// other screens open as children inside it; while none is open its picture shows the day
// at a glance.
class frmmain : public Screen {
 public:
  explicit frmmain(Host& host);
  void opened(const Opening& opening) override;
  void activated() override;
  bool mayClose() override;
  void closed() override;
  void tick() override;
  void chosen(const MenuEntry& entry) override;
  void toolChosen(const ToolEntry& entry) override;

 private:
  void run(const char* key);
  void ledger() { run("LEDGERS"); }
  void accounts() { run("account"); }
  void items() { run("item"); }
  void sales() { run("SALE"); }
  void purchases() { run("PURCHASE"); }
  void stock();
  void period();

  void readCompany();
  void seed();
  void buildDateHelp();
  void showGlance();
  void restore();
};
