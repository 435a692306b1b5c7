#pragma once

#include <string_view>

#include "frame/child_screen.h"

// Full posting: the ledger is thrown away and made again from the vouchers.
class FRMPOST : public ChildScreen {
 public:
  explicit FRMPOST(Host& host);
  void opened(const Entry& entry) override;
  void activated() override;

 private:
  void post();
  void close() { host.close(*this); }
  void tell(std::string_view words);
};
