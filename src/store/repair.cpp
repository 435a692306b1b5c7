#include "store/repair.h"

#include <algorithm>
#include <span>
#include <vector>

#include "base/text.h"
#include "store/alter.h"
#include "store/dictionary.h"
#include "store/row_writer.h"

namespace {

struct Invalid {
  const char *table, *condition;
};

// clang-format off
constexpr Invalid kInvalid[] = {
    {"CHLN",      "NOT ISDATE(VOUCH_DT)"}, {"CHLN",    "VOUCH_NO IS NULL"}, {"CHLN",    "LEN(VOUCH_NO) = 0"}, {"CHLN",    "LEN(BOOK_CD) <> 2"},
    {"CHLNITM",   "NOT ISDATE(VOUCH_DT)"}, {"CHLNITM", "VOUCH_NO IS NULL"}, {"CHLNITM", "LEN(VOUCH_NO) = 0"}, {"CHLNITM", "LEN(BOOK_CD) <> 2"},
    {"ITEM",      "ITEM_CD IS NULL OR LEN(ITEM_CD) = 0 OR ITEM_NAME IS NULL OR LEN(ITEM_NAME) = 0"},
    {"ITEMDTL",   "ITEM_CD IS NULL OR LEN(ITEM_CD) = 0 OR SIZE_CD IS NULL OR LEN(SIZE_CD) = 0"},
    {"PRTYRATE",  "NOT ISDATE(RT_DT)"},
    {"PRTYRATE",  "ITEM_CD IS NULL OR LEN(ITEM_CD) = 0 OR ACC_CD IS NULL OR LEN(ACC_CD) = 0"},
    {"QUOT",      "VOUCH_NO IS NULL OR LEN(VOUCH_NO) = 0"},
    {"QUOTITM",   "VOUCH_NO IS NULL OR LEN(VOUCH_NO) = 0 OR ITEM_CD IS NULL OR LEN(ITEM_CD) = 0"},
    {"SALE",      "VOUCH_NO IS NULL OR LEN(VOUCH_NO) = 0 OR LEN(BOOK_CD) <> 2"},
    {"SALEITM",   "VOUCH_NO IS NULL OR LEN(VOUCH_NO) = 0 OR LEN(BOOK_CD) <> 2 OR ITEM_CD IS NULL OR LEN(ITEM_CD) = 0"},
    {"SPSFILE",   "VOUCH_NO = 0 OR VOUCH_NO IS NULL OR LEN(VOUCH_NO) = 0"},
    {"TRANSMAST", "TRANS_ID IS NULL OR LEN(TRANS_ID) = 0"},
};

// Beside plain values: the row's own date, the first day of the period, the time of day.
constexpr const char *kOwnDate = "VOUCH_DT", *kPeriodStart = "PERIOD_START", *kTimeOfDay = "TIME_OF_DAY";

struct Default {
  const char *table, *value, *fields;
};
constexpr Default kDefaults[] = {
    {"ACCOUNT",   "0",    "GROUP_CD PHONE1 OP_BAL CL_BAL CREDIT_DAY"},
    {"ACCOUNT",   ".",    "ACC_CD ACC_NAME PERSON_NM ADD1 ADD2 AREA CITY PINCODE GSTINNO EMAIL GSTREGTYP"},
    {"ACCOUNT",   "S001", "ANOTHER_CD"},
    {"ACCOUNT",   "0",    "STATECD"},

    {"CHLN",      "0",    "CHLN_NO ORDER_NO ITEM_AMT NO_OF_ITEM PAY_TOPAY NET_AMT DISC_PERC DISC_AMT CHRGS TAX_CD1 TAX_AMT1 TAX_CD2 TAX_AMT2"},
    {"CHLN",      ".",    "VEHI_NO NARRATION NARRATION1 GR_NO TRANSPORT FREIGHT DESTI CHLN_TYP"},
    {"CHLN",      "X90005", "PARTY_CD"},
    {"CHLN",      "S001", "SMAN_CD"},
    {"CHLN",      kPeriodStart, "GR_DATE"},
    {"CHLN",      "1",    "GWDN"},

    {"CHLNITM",   ".",    "LOT_NO DESC1 ITEM_DESC"},
    {"CHLNITM",   "0",    "QUANTITY RATE SALE_DISC AMOUNT NET_AMOUNT NOS SR_NO ORDER_NO BOXNO BOXWT TCNO"},
    {"CHLNITM",   "E001", "DEPT_CD"},

    {"COMP_DET",  ".",    "ADDRS PH1 PH2 AD1 AD2 AREA CITY C_BANK_NAME C_BRNCH C_IFSC C_AC_NO C_EMAIL C_PASS C_SMTP GSTINNO STATE STATECD CPIN COMPNM"},
    {"COMP_DET",  "0",    "C_PORT TERMS"},

    {"COMPNY",    "M001", "COMP_ID"},
    {"COMPNY",    ".",    "COMP_NAME FROMYR TOYR"},

    {"DEPTMENT",  ".",    "DEPT_CD DEPT_NAME GROUPING HSNCODE ITEMDESC"},
    {"DEPTMENT",  "N",    "NOCOUNT_STK"},
    {"DEPTMENT",  "0",    "RATEOFTAX RATEOFCESS"},

    {"DISCHTAX",  "0",    "CODE RATE"},
    {"DISCHTAX",  ".",    "NAME"},
    {"DISCHTAX",  "N",    "FORM_PRINT"},
    {"DISCHTAX",  "X90061", "TAX_ACC"},

    {"ITEM",      ".",    "ITEM_SNAME ITEM_LNAME UOM HSNCODE"},
    {"ITEM",      "E001", "DEPT_CD"},
    {"ITEM",      "1",    "TAX_CD"},
    {"ITEM",      "0",    "RATEOFTAX RATEOFCESS"},

    {"ITEMDTL",   "0",    "PUR_RATE SALE_RATE1 SALE_RATE2 SALE_DISC OP_STK CL_STK"},
    {"ITEMDTL",   "1",    "DESC1"},

    {"PRTYRATE",  "0",    "SALE_RATE1 PUR_RATE SALE_DISC SALE_DISC1 PURC_DISC PURC_DISC1 DANIER"},
    {"PRTYRATE",  ".",    "QUALITY"},

    {"QUOT",      "0",    "PI_CH_NO ITEM_AMT TOTQTY DISC_PERC DISC_AMT CHRG_PERC CHRG_AMT TAX_PERC TAX_AMT ATAX_PERC ATAX_AMT NET_AMT TCGST TSGST TIGST TCSTRT TCSTAMT"},
    {"QUOT",      "A00001", "PARTY_CD BL_PARTY_CD"},
    {"QUOT",      ".",    "TO_NAME SUB_DESC YOUR_REF_NO DESC1 DESC2 DESC3 DESC4 DESC5 DESC6 DESC7 DESC8 REF_NO"},

    {"QUOTITM",   "0",    "SRNO QUANTITY RATE AMOUNT T_NO DISC DISC2 TNO DTL1 CGSTRT SGSTRT IGSTRT CGSTAMT SGSTAMT IGSTAMT TCSAMT ASSIVAL"},
    {"QUOTITM",   "E001", "DEPT_CD"},
    {"QUOTITM",   ".",    "ITEM_NAME ITEM_SNAME ITEM_DESC DESC1"},
    {"QUOTITM",   "QUOT", "ENTRY_TYP"},

    {"SALE",      ".",    "BL_TYPE NARRATION NARRATION1 NARRATION2 PARCLE AGNT_DOC GR_NO TRANSPORT FREIGHT DESTI C_EX_REGNO PLA_NO TRANS_GOV_ID CMOBNO CNAME CADRS EINVNO IRNNO"},
    {"SALE",      kTimeOfDay, "VOUCH_TIME BL_TIME TIME_GOODS"},
    {"SALE",      "0",    "BILL_NO ORDER_NO PAY_MODE PRV_BNO"},
    {"SALE",      "0",    "CHLN_NO CASH_AMT ITEM_DISC TAXABLE NONTAXABLE ITEM_AMT TOT_TAX TOT_VAT DISC_CD1 DISC_PERC1 DISC_AMT1 DISC_CD2 DISC_PERC2 DISC_AMT2 DISC_CD3 DISC_PERC3 DISC_AMT3"},
    {"SALE",      "0",    "CHRG_AMT1 CHRG_AMT2 CHRG_AMT3 SER_AMT ROUND_OFF NET_AMT NO_OF_ITEM CR_DAYS PAY_TOPAY TAX_CD1 TAX_AMT1 TAX_CD2 TAX_AMT2 CHRG_PERC1 CHRG_PERC2 CHRG_AMT4 ATAX_CD ATAX_AMT"},
    {"SALE",      "0",    "EXCISE_PERC EXCISE_AMT CESS_PERC CESS_AMT HCESS_PERC HCESS_AMT COMMPERC COMMAMT TRANS_CD DIST_KM TCGSTRT TSGSTRT TIGSTRT GSTPOST TDSPERC TDSAMT CUR_TOTAMT GWT NWT"},
    {"SALE",      "A00001", "PARTY_CD"},
    {"SALE",      "X90002", "SALE_CD DESPATCH_FROM"},
    {"SALE",      "X90005", "CASH_CD"},
    {"SALE",      "S001", "SMAN_CD"},
    {"SALE",      kOwnDate, "GR_DATE DT_GOODS ORDER_DT CHLN_DT PRV_BDT ACK_DT"},
    {"SALE",      "N",    "FORM_ISSUE"},
    {"SALE",      "1",    "GWDN"},

    {"SALEITM",   kTimeOfDay, "VOUCH_TIME"},
    {"SALEITM",   "0",    "SR_NO QUANTITY RATE SALE_DISC AMOUNT TAX_CD TAX_RT TAX_AMT VAT_AMT BRKRG NET_AMOUNT ORDER_NO CGSTRT SGSTRT IGSTRT CGSTAMT SGSTAMT IGSTAMT GSTPOST SALE_DISC1"},
    {"SALEITM",   "0",    "CUR_NM CUR_RT CUR_ITM_RT CUR_AMT DISC3 DISC4 CESS_PERC1 CESS_AMT1"},
    {"SALEITM",   ".",    "DESC1 ITEM_DESC MFG_DT EXP_DT YOUR_REF"},
    {"SALEITM",   kOwnDate, "CHLN_DT"},

    {"SPSFILE",   kPeriodStart, "VOUCH_DT"},
    {"SPSFILE",   ".",    "VOUCH_CD VOUCH_NM"},
    {"SPSFILE",   "0",    "VOUCH_QTY VOUCH_AMT"},

    {"TRANSMAST", ".",    "TRANSNAME TADD1 TADD2 TAREA TCITY TPHONE1 TPHONE2 TRANS_GOV_ID"},
};
// clang-format on

// A field to fill and what it gets: an expression over the row, or a value for its "?".
struct Filling {
  std::string field, expression;
  std::vector<Value> values;
  bool ofText;

  // A number is compared with no text: some engines take '' for 0.
  std::string blank() const {
    return "(" + field + " IS NULL OR " + (ofText ? field : "HEX(" + field + ")") + " = '')";
  }
};

// Nothing when the default does not fit the column.
std::optional<Filling> filling(const Column& column, const std::string& given, const RepairFacts& facts) {
  const std::string field = quotedName(column.name);
  const bool ofText = column.kind != Column::Kind::number && column.kind != Column::Kind::whole;
  if (given == kOwnDate)
    return Filling{
        field, column.kind == Column::Kind::date ? "VOUCH_DT" : "SHOWN(VOUCH_DT, 'dd/mmm/yyyy')", {}, ofText};
  Value value(given);
  if (given == kPeriodStart) value = Value(facts.periodStart);
  if (given == kTimeOfDay) value = Value(facts.timeOfDay);
  const auto kept = fitting(column, value);
  if (!kept) return {};
  return Filling{field, "?", {*kept}, ofText};
}

std::vector<Filling> fillings(Database& db, const std::string& table, const RepairFacts& facts) {
  const auto columns = tableColumns(db, table);
  std::vector<Filling> all;
  for (const Default& row : kDefaults) {
    if (table != row.table) continue;
    for (const std::string& name : split(row.fields, " ")) {
      const auto column =
          std::ranges::find_if(columns, [&](const Column& c) { return sameText(c.name, name); });
      if (column == columns.end()) continue;
      if (auto next = filling(*column, row.value, facts)) all.push_back(std::move(*next));
    }
  }
  return all;
}

// Those of the fields that are blank in some row, found in one pass over the table.
std::vector<Filling> needed(Database& db, const std::string& table, std::vector<Filling> all) {
  if (all.empty()) return all;
  std::string any;
  for (const Filling& next : all) any += (any.empty() ? "MAX" : ", MAX") + next.blank();
  const auto found = db.first("SELECT " + any + " FROM " + table);
  std::vector<Filling> some;
  for (size_t i = 0; i < all.size(); ++i)
    if (found && found->number(static_cast<int>(i)) != 0) some.push_back(std::move(all[i]));
  return some;
}

// All fields in one pass, which none can disturb for another: no default reads a field that is filled.
Outcome fill(Database& db, const std::string& table, std::span<const Filling> fields) {
  std::string sets, where;
  std::vector<Value> values;
  for (const Filling& next : fields) {
    sets += (sets.empty() ? "" : ", ") + next.field + " = CASE WHEN " + next.blank() + " THEN " +
            next.expression + " ELSE " + next.field + " END";
    where += (where.empty() ? "" : " OR ") + next.blank();
    values.insert(values.end(), next.values.begin(), next.values.end());
  }
  const std::string statement = "UPDATE " + table + " SET " + sets + " WHERE " + where;
  constexpr Because why{"fields that cannot be filled together are filled one by one, as far as they can"};
  return db.attempt(why, [&] { return db.exec(statement, values); });
}

void fillBlanks(Database& db, const std::string& table, const RepairFacts& facts) {
  const auto fields = needed(db, table, fillings(db, table, facts));
  if (fields.empty() || fill(db, table, fields)) return;
  for (const Filling& one : fields) (void)fill(db, table, {&one, 1});  // a blank is no harm
}

std::vector<std::string> repairedTables() {
  std::vector<std::string> tables;
  for (const Default& row : kDefaults)
    if (tables.empty() || tables.back() != row.table) tables.emplace_back(row.table);
  return tables;
}

}  // namespace

void repairRows(Database& db, const RepairFacts& facts) {
  for (const std::string& table : repairedTables()) {
    if (!CheckTable(db, table)) continue;
    for (const Invalid& rows : kInvalid)
      if (table == rows.table) db.passOver(kOlderBooks, "DELETE FROM " + table + " WHERE " + rows.condition);
    fillBlanks(db, table, facts);
  }
}

void removeDoubles(Database& db) {
  db.passOver(
      kOlderBooks,
      "DELETE FROM PRTYRATE WHERE (RT_DT, ITEM_CD, SIZE_CD, ACC_CD) IN (SELECT RT_DT, ITEM_CD, SIZE_CD,"
      " ACC_CD FROM PRTYRATE GROUP BY RT_DT, ITEM_CD, SIZE_CD, ACC_CD HAVING COUNT(*) > 1)");
  db.passOver(kOlderBooks,
              "DELETE FROM SPSFILE WHERE VOUCH_NO IN (SELECT VOUCH_NO FROM SPSFILE GROUP BY VOUCH_NO"
              " HAVING COUNT(*) > 1)");
}
