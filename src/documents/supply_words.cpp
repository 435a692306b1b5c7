#include "documents/supply_words.h"

#include "base/text.h"
#include "base/words.h"
#include "frame/settings.h"
#include "frame/voucher_kinds.h"
#include "store/dictionary.h"

namespace {

bool isReverse(Database& db, double number) {
  return CheckTable(db, "SUPPLY") &&
         db.first("SELECT 1 FROM SUPPLY WHERE VOUCH_NO = ? AND BOOK_CD = ? AND REVERSE = 1", number,
                  saleKind().code);
}

}  // namespace

// What its item does not tax either is nil-rated or exempt; a rate of 0 alone may have other reasons.
SupplyWords supplyWords(Database& db, const Row& company, double number) {
  SupplyWords said{.reverse = isReverse(db, number)};
  const auto bill = db.first(
      "SELECT COUNT(*), SUM(CASE WHEN L.CGSTRT = 0 AND L.SGSTRT = 0 AND L.IGSTRT = 0"
      " AND COALESCE(I.RATEOFTAX, 0) = 0 THEN 1 ELSE 0 END), SUM(L.CGSTRT + L.SGSTRT + L.IGSTRT),"
      " MAX(LEN(A.GSTINNO)) FROM SALE AS H JOIN SALEITM AS L ON L.VOUCH_NO = H.VOUCH_NO"
      " AND L.BOOK_CD = H.BOOK_CD LEFT JOIN ITEM AS I ON I.ITEM_CD = L.ITEM_CD"
      " LEFT JOIN ACCOUNT AS A ON A.ACC_CD = H.PARTY_CD WHERE H.VOUCH_NO = ? AND H.BOOK_CD = ?",
      number, saleKind().code);
  const double lines = bill->number(0), untaxed = bill->number(1);
  if (lines > 0 && bill->number(2) == 0 && settingNumber(db, kComposition) == 1) {
    said.title = words("BILL OF SUPPLY");
    said.sentence = words("Composition taxable person, not eligible to collect tax on supplies");
  } else if (untaxed > 0 && !trim(company.text("GSTINNO")).empty()) {
    const bool registered = bill->number(3) > 1;
    if (untaxed == lines)
      said.title = words("BILL OF SUPPLY");
    else if (!registered)
      said.title = words("INVOICE-CUM-BILL OF SUPPLY");
  }
  return said;
}
