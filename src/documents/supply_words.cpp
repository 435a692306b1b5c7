#include "documents/supply_words.h"

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "documents/words.h"
#include "frame/settings.h"
#include "frame/supply_kinds.h"
#include "frame/voucher_kinds.h"
#include "store/dictionary.h"

namespace {

bool isReverse(Database& db, double number) {
  return CheckTable(db, "SUPPLY") &&
         db.first("SELECT 1 FROM SUPPLY WHERE VOUCH_NO = ? AND BOOK_CD = ? AND REVERSE = 1", number,
                  saleKind().code);
}

std::string meantFor(SupplyKind kind) {
  using enum SupplyKind;
  switch (kind) {
    case ExportTaxed:
      return words("SUPPLY MEANT FOR EXPORT ON PAYMENT OF INTEGRATED TAX");
    case Export:
      return words(
          "SUPPLY MEANT FOR EXPORT UNDER BOND OR LETTER OF UNDERTAKING WITHOUT PAYMENT OF INTEGRATED TAX");
    case SezTaxed:
      return words(
          "SUPPLY TO SEZ UNIT OR SEZ DEVELOPER FOR AUTHORISED OPERATIONS ON PAYMENT OF INTEGRATED TAX");
    case Sez:
      return words(
          "SUPPLY TO SEZ UNIT OR SEZ DEVELOPER FOR AUTHORISED OPERATIONS UNDER BOND OR LETTER OF UNDERTAKING"
          " WITHOUT PAYMENT OF INTEGRATED TAX");
    case Deemed:
      return words("DEEMED EXPORT");
    default:
      return {};
  }
}

}  // namespace

ExportWords exportWords(Database& db, const Row& line, const std::string& book, double number) {
  ExportWords said;
  if (line.number("CUR_RT") > 0 && line.text("CUR_NM").size() > 1)
    said.currency = words("{currency} {amount} At {rate} : {words}", "currency", line.text("CUR_NM"),
                          "amount", Format(line.number("CUR_TOTAMT"), "0.00"), "rate",
                          numText(line.number("CUR_RT")), "words", AmountInWords(line.number("CUR_TOTAMT")));
  const auto marks = CheckTable(db, "SUPPLY")
                         ? db.first("SELECT * FROM SUPPLY WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, book)
                         : std::nullopt;
  if (!marks || !marks->has("KIND")) return said;
  said.place = marks->number("POS");
  const auto day = marks->date("SHIP_DT");
  std::vector<std::string> facts = {meantFor(supplyKind(marks->number("KIND")))};
  if (const std::string bill = marks->text("SHIP_NO"); !bill.empty())
    facts.push_back(words("Shipping Bill {number}", "number", bill));
  if (day) facts.push_back(formatDate(*day, "dd/MM/yyyy"));
  for (const char* column : {"PORT", "COUNTRY"}) facts.push_back(marks->text(column));
  std::erase(facts, "");
  said.endorsement = join(facts, ", ");
  return said;
}

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
