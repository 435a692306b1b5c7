#include "documents/quotation.h"

#include <stdexcept>

#include "base/words.h"
#include "documents/company_cells.h"
#include "documents/paper.h"
#include "documents/words.h"
#include "frame/session.h"

FilledSheet quotationSheet(Database& db, const std::string& name, const Row& company, double number,
                           const std::string& kind) {
  constexpr const char* kLines =
      "SELECT QUOTPRN.* FROM QUOTPRN WHERE [QUOT.VOUCH_NO] = ? AND ENTRY_TYP = ?"
      " ORDER BY [QUOT.VOUCH_NO], SRNO";
  FilledSheet sheet;
  const auto head = db.first(kLines, number, kind);
  if (!head) return sheet;
  auto& cells = sheet.cells;
  cells.set(1, 3, name);
  cells.set(2, 1, words(quotationKind().paper.title));
  cells.set(2, 6, AmountInWords(head->number("NET_AMT")));
  companyAddress(cells, company);
  companyRegistrations(cells, company);
  companyPairs(cells, company);
  sheet.lines = cells.block(db.query(kLines, number, kind), 6, 8);
  cells.block(db.query("SELECT QUOTGSTTOT.* FROM QUOTGSTTOT WHERE VOUCH_NO = ? AND ENTRY_TYP = ?"
                       " ORDER BY CGSTRT, SGSTRT, IGSTRT",
                       number, kind),
              1000, 1002);
  return sheet;
}

void RenderQuotation(Host& host, double number, const std::string& kind) {
  Session& s = session();
  s.mprnsheet = quotationKind().paper.lineSheet;
  s.mpdfpath.clear();
  tellFailures(host, [&] {
    const Row company = companyDetails(data());
    const FilledSheet sheet = quotationSheet(data(), s.mcompname, company, number, kind);
    if (sheet.lines == 0) throw std::runtime_error("Wrong Selection");
    makePaper(host, voucherPaper(quotationKind(), number, s.mquotformat), sheet);
    if (s.mprnmode == "PDF") s.mprnmode.clear();
  });
}
