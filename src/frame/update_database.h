#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/progress_dialog.h"
#include "frame/together.h"

// "Update Database", screen `struct`: the open company-year is brought to the shape of this program
// and its data mended, after a verified backup of it.
class UpdateDatabase : public ProgressDialog {
 public:
  explicit UpdateDatabase(Host& host);

 private:
  void update();
  bool wantsOneUnit();
  std::optional<std::vector<std::string>> updateHolding();
  std::vector<std::string> work(bool oneUnit, HoldBooks& held);
};
