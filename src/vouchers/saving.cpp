#include "vouchers/saving.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/text.h"
#include "frame/made_from.h"
#include "frame/posting_due.h"
#include "frame/settling.h"
#include "store/balances.h"
#include "vouchers/charges.h"
#include "vouchers/items.h"
#include "vouchers/ledger_rows.h"
#include "vouchers/numbering.h"
#include "vouchers/originals.h"
#include "vouchers/sources.h"

namespace {

// Columns that a bill carries for other kinds of trade, where it does not hold them.
constexpr const char* kNil[] = {
    "DISC_PERC1", "DISC_PERC2", "DISC_PERC3", "DISC_AMT1", "DISC_AMT2", "DISC_AMT3",   "DISC_CD1",
    "DISC_CD2",   "DISC_CD3",   "TOT_VAT",    "TOT_TAX",   "CHRG_AMT1", "CHRG_AMT2",   "CHRG_AMT3",
    "CHRG_AMT4",  "CHRG_PERC1", "CHRG_PERC2", "TAX_CD1",   "TAX_CD2",   "TAX_AMT1",    "TAX_AMT2",
    "TDSPERC",    "TDSAMT",     "CASH_AMT",   "CESS_AMT",  "PRV_BNO",   "COMMPERC",    "COMMAMT",
    "GWT",        "NWT",        "CUR_TOTAMT", "DIST_KM",   "ITEM_DISC", "TAXABLE",     "NONTAXABLE",
    "SER_AMT",    "PAY_TOPAY",  "PLA_NO",     "ATAX_CD",   "ATAX_AMT",  "EXCISE_PERC", "EXCISE_AMT",
    "CESS_PERC",  "HCESS_PERC", "HCESS_AMT",
};
constexpr const char* kDots[] = {
    "CNAME",   "CMOBNO",   "CADRS",      "IRNNO",      "EINVNO",   "FORM_ISSUE",
    "FREIGHT", "PAY_MODE", "NARRATION1", "NARRATION2", "AGNT_DOC", "C_EX_REGNO",
};

// Columns that a line has in SALEITM and in the work table alike, as both statements list them.
// clang-format off
constexpr const char* kLineColumns =
    "VOUCH_NO, VOUCH_DT, VOUCH_TIME, BOOK_CD, SR_NO, ORDER_NO, CHLN_DT,"
    " ITEM_CD, SIZE_CD, DESC1, ITEM_DESC, MFG_DT, EXP_DT,"
    " QUANTITY, RATE, SALE_DISC, SALE_DISC1, DISC3, DISC4, AMOUNT, NET_AMOUNT,"
    " CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT, IGSTAMT, CESS_PERC1, CESS_AMT1,"
    " TAX_CD, TAX_RT, TAX_AMT, VAT_AMT, BRKRG, CUR_NM, CUR_RT, CUR_ITM_RT, CUR_AMT,"
    " MOBNOCO, DATANM, DATASENT";
// clang-format on

Fields headRow(Database& db, const VoucherKind& kind, const Fields& bill, const SaveStamp& stamp) {
  const Clock time{stamp.now.hour, stamp.now.minute};
  const Value today = stamp.now.date, date = valueOf(bill, "VOUCH_DT");
  const auto given = [&](const char* column, const Value& otherwise) {
    const Value value = valueOf(bill, column);
    return value.isNull() ? otherwise : value;
  };
  Fields row = trimmedTexts(bill);
  setValue(row, "PRV_BDT", given("PRV_BDT", today));
  setValue(row, "GR_DATE", given("GR_DATE", date));
  // clang-format off
  for (Field& f : Fields{
      {"VOUCH_TIME",    time},
      {"BL_TIME",       time},
      {"TIME_GOODS",    time},
      {"BOOK_CD",       kind.code},
      {"SALE_CD",       kind.ledger.goods},
      {"DESPATCH_FROM", kind.ledger.goods},
      {"ORDER_DT",      formatDate(date.date().value(), "dd/MMM/yyyy")},
      {"CHLN_DT",       date},
      {"DT_GOODS",      date},
      {"ACK_DT",        date},
      {"GSTPOST",       1},
      {"GWDN",          1},
      {"SMAN_CD",       "S001"},
  }) row.push_back(std::move(f));
  // clang-format on
  addStamp(row, stamp);
  const auto otherwise = [&](const char* column, const Value& value) {
    if (std::ranges::find(row, column, &Field::column) == row.end()) row.push_back({column, value});
  };
  for (const char* column : kDots) otherwise(column, ".");
  for (const char* column : kNil) otherwise(column, 0);
  const std::string govId = transporterGovId(db, valueOf(row, "TRANSPORT").text());
  if (!govId.empty()) row.push_back({"TRANS_GOV_ID", govId});
  return row;
}

std::vector<BillPosting::Charge> chargesIn(Database& db, const VoucherKind& kind, const Fields& bill) {
  std::vector<BillPosting::Charge> rows;
  const auto amount = [&](const char* column) { return valueOf(bill, column).number(); };
  if (std::ranges::none_of(kChargeColumns, [&](const char* column) { return amount(column) != 0; }))
    return rows;
  for (const ChargePosting& p : chargePostings(db, kind))
    if (amount(p.column) != 0) rows.push_back({p.side, p.account, amount(p.column)});
  return rows;
}

}  // namespace

Value valueOf(const Fields& row, std::string_view column) {
  const auto found = std::ranges::find(row, column, &Field::column);
  return found == row.end() ? Value() : found->value;
}

void setValue(Fields& row, std::string_view column, Value value) {
  const auto found = std::ranges::find(row, column, &Field::column);
  if (found == row.end())
    row.push_back({column, std::move(value)});
  else
    found->value = std::move(value);
}

Fields trimmedTexts(Fields row) {
  for (Field& f : row)
    if (f.value.isText()) f.value = trim(f.value.text());
  return row;
}

void addStamp(Fields& row, const SaveStamp& stamp) {
  // clang-format off
  for (Field& f : Fields{
      {"USER_CD",  stamp.user},
      {"ENT_DT",   stamp.now.date},
      {"ENT_TIME", Clock{stamp.now.hour, stamp.now.minute}},
      {"MOBNOCO",  stamp.mobile},
      {"DATANM",   stamp.dataName},
      {"DATASENT", "N"},
  }) row.push_back(std::move(f));
  // clang-format on
}

bool saveBill(Database& db, const VoucherKind& kind, const Fields& bill, const SaveStamp& stamp,
              const Saving& how, const Supply& supply) {
  const auto figure = [&](const char* column) { return valueOf(bill, column).number(); };
  const auto text = [&](const char* column) { return valueOf(bill, column).text(); };
  const double number = figure("VOUCH_NO");
  const Date date = valueOf(bill, "VOUCH_DT").date().value();
  return whole(db, [&] {
    if (!how.finds(db, kind, number)) return false;
    // What is asked stands before what is written (Database::later).
    const auto partyBefore = how.isFresh() ? std::nullopt : storedParty(db, kind, number);
    const bool noted = partyBefore && isOriginal(db, kind, number);
    const Fields head = headRow(db, kind, bill, stamp);
    const std::vector<BillPosting::Charge> charges = chargesIn(db, kind, bill);
    if (partyBefore) freeSettled(db, {kind.code, number}, {trim(text("PARTY_CD"))});
    deleteVoucher(db, kind, number);
    insertLater(db, "SALE", head);
    if (supply.any()) storeSupply(db, kind, number, supply);
    db.later("UPDATE T_SLITM SET VOUCH_DT = ?, VOUCH_NO = ?", date, number);
    // A line of no quantity stays behind, though its amounts are in the totals; in a note also one without
    // an item, of which nothing goes back.
    const std::string columns = kLineColumns;
    db.later("INSERT INTO SALEITM (" + columns + ") SELECT " + columns +
                 " FROM T_SLITM WHERE VOUCH_NO = ? AND (QUANTITY <> 0 OR ITEM_CD = ?)"
                 " ORDER BY rowid",
             number, kind.isNote() ? "" : kMiscItem);
    postVoucher(db, {number, date, kind.code},
                billRows({.party = trim(text("PARTY_CD")),
                          .amount = figure("NET_AMT"),
                          .items = figure("ITEM_AMT"),
                          .cgst = figure("TCGSTRT"),
                          .sgst = figure("TSGSTRT"),
                          .igst = figure("TIGSTRT"),
                          .roundOff = figure("ROUND_OFF"),
                          .charges = charges,
                          .billNumber = text("BILL_NO"),
                          .narration = text("NARRATION"),
                          .lrNumber = text("GR_NO"),
                          .creditDays = figure("CR_DAYS")},
                         kind, supply));
    if (!partyBefore) return true;
    if (noted) followBill(db, kind, number, *partyBefore);
    RebuildBalances(db, {*partyBefore, trim(text("PARTY_CD"))});
    return true;
  });
}

std::optional<std::string> storedParty(Database& db, const VoucherKind& kind, double number) {
  const auto head = db.first(
      "SELECT PARTY_CD FROM " + kind.tables.heads + " WHERE VOUCH_NO = ? AND " + kind.tables.key + " = ?",
      number, kind.code);
  return head ? std::optional(head->text(0)) : std::nullopt;
}

bool deleteVoucher(Database& db, const VoucherKind& kind, double number, const Saving& as) {
  return whole(db, [&] {
    if (!as.finds(db, kind, number)) return false;
    for (const std::string& table : {kind.tables.heads, kind.tables.lines})
      db.later("DELETE FROM " + table + " WHERE VOUCH_NO = ? AND " + kind.tables.key + " = ?", number,
               kind.code);
    if (kind.tables.heads == saleKind().tables.heads) storeSupply(db, kind, number, {});
    if (kind.isNote()) dropNote(db, kind, number);
    return true;
  });
}

bool deleteForGood(Database& db, const VoucherKind& kind, double number, const Saving& as) {
  return whole(db, [&] {
    for (const std::string& refusal : {notesRefuse(db, kind, number), sourceRefuses(db, kind, number)})
      if (!refusal.empty()) throw std::runtime_error(refusal);
    if (!deleteVoucher(db, kind, number, as)) return false;
    forgetMadeFrom(db, kind, number);
    rememberDeleted(db, kind, number);
    freeSettled(db, {kind.code, number});
    return true;
  });
}

bool isPosted(Database& db, const VoucherKind& kind, double number) {
  return db.first("SELECT 1 FROM ALEDGER WHERE BOOK_CD = ? AND VOUCH_NO = ? LIMIT 1", kind.code, number)
      .has_value();
}

bool hasBills(Database& db, const VoucherKind& kind) {
  return db.first("SELECT VOUCH_NO FROM SALE WHERE BOOK_CD = ? AND GSTPOST = 1 LIMIT 1", kind.code)
      .has_value();
}

std::optional<Row> findBill(Database& db, const VoucherKind& kind, double number) {
  return db.first("SELECT * FROM SALE WHERE VOUCH_NO = ? AND BOOK_CD = ? AND GSTPOST = 1", number, kind.code);
}

void loadLines(Database& db, const VoucherKind& kind, double number) {
  const std::string columns = kLineColumns;
  db.exec("DELETE FROM T_SLITM");
  db.exec("INSERT INTO T_SLITM (" + columns + ", YOUR_REF, GSTPOST, ITEM_NAME) SELECT " + columns +
              ", YOUR_REF, GSTPOST, (SELECT ITEM_NAME FROM ITEM WHERE ITEM.ITEM_CD = SALEITM.ITEM_CD)"
              " FROM SALEITM WHERE BOOK_CD = ? AND VOUCH_NO = ? ORDER BY SR_NO, rowid",
          kind.code, number);
}
