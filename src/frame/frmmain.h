#pragma once

#include "frame/glance.h"
#include "platform/host.h"
#include "store/engine.h"

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
  void focusMoved(Control& control) override;

 private:
  void run(const char* key);
  void ledger() { run("LEDGERS"); }
  void accounts() { run("account"); }
  void items() { run("item"); }
  void sales() { run("SALE"); }
  void purchases() { run("PURCHASE"); }
  void period();

  void readCompany();
  void seed();
  void showGlance();
  void showDue(int deleted, const std::optional<Other>& waits);
  void fill(const char* grid, std::shared_ptr<CellRows> rows);
  void restore();

  std::string hintFor(const Control& grid) const;
  void rowMoved();
  void doWhatIsDue();
  void openBill();
  void openLedger();

  std::vector<LastBill> bills_;  // behind the rows shown
  std::vector<Debtor> debtors_;
  bool othersWait_ = false;  // for these books, as shown
  Date shownDay_{};
  bool standing_ = false;  // has been active before
};
