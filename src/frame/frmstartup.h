#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/host.h"

// What is run on the opened company-year before its balances are refreshed: the postings of
// receipts and payments, of sales and of challans, in that order. The routines stand in a
// higher layer, so the program hands them in before it starts.
std::vector<std::function<void()>>& openingRoutines();
// Runs them and rebuilds the balances, unless the books stand so since they were last settled; a routine
// that fails does not keep the next from running.
void runOpeningRoutines(Host& host);
// The same at a clean end, so that the next opening has nothing to do. A failure is left to that.
void settleAtEnd(Host& host);

// The splash between the choice of a company-year and the shell; opened with the name of a company that
// was just created.
class frmStartup : public Screen {
 public:
  explicit frmStartup(Host& host);
  void opened(const Opening& opening) override;
  void tick() override;

 private:
  void open();

  std::string newCompany_;  // whose details follow
};
