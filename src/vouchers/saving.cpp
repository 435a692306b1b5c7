#include "vouchers/saving.h"

#include "base/text.h"
#include "store/row_writer.h"
#include "vouchers/items.h"
#include "vouchers/ledger_rows.h"
#include "vouchers/numbering.h"

namespace {

// Columns that a bill carries for other kinds of trade.
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

Fields headerRow(Database& db, const VoucherKind& kind, const BillHeader& b, const SaveStamp& stamp) {
  const Clock time{stamp.now.hour, stamp.now.minute};
  const Date today = stamp.now.date;
  // clang-format off
  Fields row = {
      {"VOUCH_NO",      b.number},
      {"VOUCH_DT",      b.date},
      {"VOUCH_TIME",    time},
      {"ENT_TIME",      time},
      {"BL_TIME",       time},
      {"TIME_GOODS",    time},
      {"BILL_NO",       trim(b.billNumber)},
      {"BL_TYPE",       trim(b.billType)},
      {"BOOK_CD",       kind.code},
      {"PARTY_CD",      trim(b.party)},
      {"ORDER_NO",      trim(b.orderNumber)},
      {"SALE_CD",       kind.ledger.goods},
      {"DESPATCH_FROM", kind.ledger.goods},
      {"ORDER_DT",      formatDate(b.date, "dd/MMM/yyyy")},
      {"CHLN_DT",       b.date},
      {"DT_GOODS",      b.date},
      {"ACK_DT",        b.date},
      {"PRV_BDT",       b.partyDate.value_or(today)},
      {"ENT_DT",        today},
      {"ITEM_AMT",      b.items},
      {"NO_OF_ITEM",    b.quantity},
      {"CR_DAYS",       b.creditDays},
      {"NET_AMT",       b.amount},
      {"ROUND_OFF",     b.roundOff},
      {"TCGSTRT",       b.cgst},
      {"TSGSTRT",       b.sgst},
      {"TIGSTRT",       b.igst},
      {"NARRATION",     trim(b.narration)},
      {"CASH_CD",       trim(b.shipTo)},
      {"DESTI",         trim(b.destination)},
      {"GR_NO",         trim(b.lrNumber)},
      {"TRANSPORT",     trim(b.transport)},
      {"PARCLE",        trim(b.parcels)},
      {"GR_DATE",       b.lrDate.value_or(b.date)},
      {"CHLN_NO",       b.challanNumber},
      {"TRANS_CD",      b.transportId},
      {"GSTPOST",       1},
      {"GWDN",          1},
      {"SMAN_CD",       "S001"},
      {"USER_CD",       stamp.user},
      {"MOBNOCO",       stamp.mobile},
      {"DATANM",        stamp.dataName},
      {"DATASENT",      "N"},
  };
  // clang-format on
  for (const char* column : kDots) row.push_back({column, "."});
  for (const char* column : kNil) row.push_back({column, 0});
  const std::string govId = transporterGovId(db, trim(b.transport));
  if (!govId.empty()) row.push_back({"TRANS_GOV_ID", govId});
  return row;
}

}  // namespace

bool saveBill(Database& db, const VoucherKind& kind, const BillHeader& bill, const SaveStamp& stamp,
              Saving how) {
  Transaction all(db);
  if (how == Saving::Fresh && isStored(db, kind, bill.number)) return false;
  deleteBill(db, kind, bill.number);
  insertRow(db, "SALE", headerRow(db, kind, bill, stamp));
  db.exec("UPDATE T_SLITM SET VOUCH_DT = ?, VOUCH_NO = ?", bill.date, bill.number);
  // A line of no quantity stays behind, though its amounts are in the totals.
  const std::string columns = kLineColumns;
  db.exec("INSERT INTO SALEITM (" + columns + ") SELECT " + columns +
              " FROM T_SLITM WHERE VOUCH_NO = ? AND (QUANTITY <> 0 OR ITEM_CD = ?)"
              " ORDER BY VOUCH_NO, BOOK_CD",
          bill.number, kMiscItem);
  postVoucher(db, {bill.number, bill.date, kind.code},
              billRows({.party = trim(bill.party),
                        .amount = bill.amount,
                        .items = bill.items,
                        .cgst = bill.cgst,
                        .sgst = bill.sgst,
                        .igst = bill.igst,
                        .roundOff = bill.roundOff,
                        .billNumber = bill.billNumber,
                        .narration = bill.narration,
                        .lrNumber = bill.lrNumber,
                        .creditDays = bill.creditDays},
                       kind));
  all.commit();
  return true;
}

void deleteBill(Database& db, const VoucherKind& kind, double number) {
  Transaction both(db);
  db.exec("DELETE FROM SALE WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code);
  db.exec("DELETE FROM SALEITM WHERE VOUCH_NO = ? AND BOOK_CD = ?", number, kind.code);
  both.commit();
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
              " FROM SALEITM WHERE BOOK_CD = ? AND VOUCH_NO = ? ORDER BY SR_NO, VOUCH_NO, BOOK_CD",
          kind.code, number);
}
