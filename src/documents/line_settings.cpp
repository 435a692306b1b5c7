#include "documents/line_settings.h"

#include <algorithm>
#include <cmath>

#include "frame/session.h"

namespace {

// Kept in 16 bits; what does not fit stays at its limit.
int small(double count) { return static_cast<int>(std::clamp(std::nearbyint(count), -32768.0, 32767.0)); }

}  // namespace

void LoadLineSettings(const std::string& key, const std::string&, int design) {
  Session& s = session();
  s.mhdlines = s.mftlines = s.mitmlines = s.mblpgs = 1;
  s.minvlines = s.mprncopies = 1;
  const auto row = data().first("SELECT * FROM HIDELINESET WHERE PRNNAME = ? AND SRNO = ?", key, design);
  if (!row) return;
  s.mhdlines = row->number("HDLINES");
  s.mftlines = row->number("FTLINES");
  s.minvlines = small(row->number("INVLINES"));
  s.mitmlines = row->number("ITMLINES");
  s.mblpgs = row->number("BLPGS");
  s.mprncopies = small(row->number("PRNCPY"));
}

PageModel loadedPageModel() {
  const Session& s = session();
  return {
      .head = s.mhdlines, .foot = s.mftlines, .slots = s.minvlines, .slot = s.mitmlines, .pages = s.mblpgs};
}
