#pragma once

#include "frame/progress_dialog.h"

// Full posting: the ledger is thrown away and made again from the vouchers.
class FRMPOST : public ProgressDialog {
 public:
  explicit FRMPOST(Host& host);
  void activated() override;

 private:
  void post();
  bool postHolding();
};
