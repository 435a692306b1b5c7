#include "documents/challan.h"

#include <stdexcept>

#include "base/words.h"
#include "documents/company_cells.h"
#include "documents/paper.h"
#include "frame/session.h"

FilledSheet challanSheet(Database& db, const std::string& name, double number, const std::string& kind) {
  constexpr const char* kLines =
      "SELECT CHLNPRN.* FROM CHLNPRN WHERE VOUCH_NO = ? AND BOOK_CD = ? ORDER BY VOUCH_NO, SR_NO";
  FilledSheet sheet;
  const auto head = db.first(kLines, number, kind);
  if (!head) return sheet;
  auto& cells = sheet.cells;
  cells.set(1, 3, name);
  cells.set(2, 1, words(challanKind().paper.title));
  cells.block(db.query("SELECT * FROM COMP_DET LIMIT 1"), 3, 4);
  cells.words(1, 10, *head, "NET_AMT");
  sheet.lines = cells.block(db.query(kLines, number, kind), 6, 8);
  return sheet;
}

void RenderChallan(Host& host, double number, const std::string& kind) {
  Session& s = session();
  s.mpdfpath.clear();
  tellFailures(host, [&] {
    companyDetails(data());
    const FilledSheet sheet = challanSheet(data(), s.mcompname, number, kind);
    if (sheet.lines == 0) throw std::runtime_error("Wrong Selection");
    makePaper(host, voucherPaper(challanKind(), number, s.mchlnformat), sheet);
  });
}
