#include "vouchers/quotation_lines.h"

#include "base/number.h"

namespace {

std::optional<QuotedItem> readWhere(Database& db, const std::string& column, const std::string& value) {
  const auto row = db.first(
      "SELECT ITEM_NAME, SALE_RATE1, SIZE_CD, RATEOFTAX FROM ITEM, ITEMDTL"
      " WHERE ITEM.ITEM_CD = ITEMDTL.ITEM_CD AND ITEM." +
          column + " = ? ORDER BY ITEM.ITEM_CD, SIZE_CD LIMIT 1",
      value);
  if (!row) return std::nullopt;
  QuotedItem item{.name = row->text("ITEM_NAME"),
                  .unit = row->text("SIZE_CD"),
                  .rate = row->number("SALE_RATE1"),
                  .rateOfTax = {}};
  if (!row->isNull("RATEOFTAX")) item.rateOfTax = row->number("RATEOFTAX");
  return item;
}

}  // namespace

QuotedLine quotedLine(double quantity, double rate, double discount, const Taxes& rates) {
  const double gross = rate * quantity;
  const double off = gross * discount / 100;
  const double assess = gross - off;
  const Taxes taxes{Round(rates.cgst * assess / 100, 2), Round(assess * rates.sgst / 100, 2),
                    Round(rates.igst * assess / 100, 2)};
  return {.assess = Round(assess, 2),
          .taxes = taxes,
          .amount = Round(assess + taxes.cgst + taxes.sgst + taxes.igst, 2)};
}

double quotedTotal(double amounts) { return Round(amounts, 0); }

std::optional<QuotedItem> readQuotedItem(Database& db, const std::string& code) {
  return readWhere(db, "ITEM_CD", code);
}

std::optional<QuotedItem> readQuotedItemByName(Database& db, const std::string& name) {
  return readWhere(db, "ITEM_NAME", name);
}
