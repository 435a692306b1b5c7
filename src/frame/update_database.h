#pragma once

#include <string_view>

#include "frame/child_screen.h"

// "Update Database", screen `struct`: the open company-year is brought to the shape of this program
// and its data mended, after a verified backup of it.
class UpdateDatabase : public ChildScreen {
 public:
  explicit UpdateDatabase(Host& host);
  void opened(const Entry& entry) override;

 private:
  void update();
  void work();
  void close() { host.close(*this); }
  void tell(std::string_view words);
};
