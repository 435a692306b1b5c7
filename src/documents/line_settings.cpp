#include "documents/line_settings.h"

#include <algorithm>
#include <cmath>

namespace {

// Kept in 16 bits; what does not fit stays at its limit.
int small(double count) { return static_cast<int>(std::clamp(std::nearbyint(count), -32768.0, 32767.0)); }

}  // namespace

PageModel LoadLineSettings(Database& db, const std::string& key, int design) {
  const auto row = db.first("SELECT * FROM HIDELINESET WHERE PRNNAME = ? AND SRNO = ?", key, design);
  if (!row) return {};
  return {.head = row->number("HDLINES"),
          .foot = row->number("FTLINES"),
          .slots = small(row->number("INVLINES")),
          .slot = row->number("ITMLINES"),
          .pages = row->number("BLPGS"),
          .copies = small(row->number("PRNCPY"))};
}
