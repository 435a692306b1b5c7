#include "large_year.h"

#include <cstdio>
#include <string>
#include <vector>

#include "base/number.h"
#include "frame/voucher_kinds.h"
#include "masters/gstin.h"
#include "store/balances.h"
#include "vouchers/calculation.h"
#include "vouchers/ledger_rows.h"
#include "vouchers/numbering.h"
#include "vouchers/receipts.h"

namespace {

constexpr int kLines = 3;
constexpr double kOwnState = 24, kOtherState = 27;
constexpr const char* kMobile = "9090909090";
constexpr Clock kTime{10, 30};

// Words that names are made of; a search for one of them finds one name in as many.
constexpr const char* kPartyWords[] = {"ANAND",  "BHARAT", "CHETAN", "DEEPAK", "GANESH", "HARI",
                                       "JAYANT", "KIRAN",  "LAXMI",  "MOHAN",  "NAVIN",  "PRAKASH",
                                       "RAMESH", "SAGAR",  "TRIDEV", "UMIYA",  "VIJAY"};
constexpr const char* kTrades[] = {"TRADERS", "ELECTRICALS", "STORES", "AGENCY", "BROTHERS"};
constexpr const char* kAreas[] = {"STATION ROAD", "MAIN BAZAR", "GIDC ESTATE", "RING ROAD", "COLLEGE ROAD"};
constexpr const char* kCities[] = {"ANAND", "NADIAD", "VADODARA", "SURAT", "BHARUCH", "RAJKOT", "MUMBAI"};
constexpr const char* kItemWords[] = {"WIRE", "FAN", "LAMP", "SWITCH", "PLUG", "TUBE", "CABLE", "SOCKET"};
constexpr double kTaxes[] = {18, 12, 5, 28};

template <size_t N, class T>
const T& pick(const T (&from)[N], int i) {
  return from[static_cast<size_t>(i) % N];
}

std::string coded(const char* pattern, int number) {
  char text[16];
  std::snprintf(text, sizeof text, pattern, number);
  return text;
}

std::string partyCode(int i) { return coded("A%05d", i); }
std::string itemCode(int i) { return coded("I%07d", i); }
std::string categoryCode(int i) { return coded("E%03d", 2 + i % 10); }
bool isOwnState(int party) { return party % 4 != 0; }
double taxOf(int item) { return pick(kTaxes, item); }
double rateOf(int item) { return Round(10 + item * 7919 % 100'000 / 100.0, 2); }

// Bills and receipts go round the parties and items in steps that meet each of them.
int partyOf(int voucher, int parties) { return 1 + static_cast<int>(voucher * 7919L % parties); }
int itemOf(int bill, int line, int items) {
  return 1 + static_cast<int>(((bill * 3L + line) * 7877 + bill / 7) % items);
}

class Books {
 public:
  Books(Database& db, const LargeYear& size) : db_(db), size_(size) {
    const auto day = [&](int setting) {
      const auto row = db_.first("SELECT VOUCH_DT FROM SPSFILE WHERE VOUCH_NO = ?", setting);
      if (!row || !row->date(0)) throw std::runtime_error("The company-year has no accounting period");
      return *row->date(0);
    };
    first_ = day(211);
    days_ = daysBetween(first_, day(212)) + 1;
    stem_ = db.file().stem().string();
  }

  void fill() {
    clear();
    categories();
    for (int i = 1; i <= size_.items; ++i) item(i);
    for (int i = 1; i <= size_.parties; ++i) party(i);
    for (int i = 1; i <= size_.bills; ++i) bill(i);
    for (int i = 1; i <= size_.receipts; ++i) receipt(i);
    RebuildAllBalances(db_);
  }

 private:
  void clear() {
    for (const char* table : {"SALE", "SALEITM", "RPTPAY", "ALEDGER"})
      db_.exec(std::string("DELETE FROM ") + table);
    db_.exec("DELETE FROM ACCOUNT WHERE ACC_CD LIKE 'A%'");
    for (const char* table : {"ITEM", "ITEMDTL"})
      db_.exec(std::string("DELETE FROM ") + table + " WHERE ITEM_CD LIKE 'I%'");
    db_.exec("DELETE FROM DEPTMENT WHERE DEPT_CD <> 'E001'");
  }

  Date dayOf(int i, int of) const { return addDays(first_, static_cast<int>((i - 1L) * days_ / of)); }

  void categories() {
    for (int i = 0; i < 10; ++i)
      db_.exec(
          "INSERT INTO DEPTMENT (DEPT_CD, DEPT_NAME, GROUPING, NOCOUNT_STK, HSNCODE, ITEMDESC, RATEOFTAX,"
          " RATEOFCESS, MOBNOCO, DATANM, DATASENT) VALUES (?, ?, '.', 'N', ?, '.', 18, 0, ?, ?, 'N')",
          categoryCode(i), "CATEGORY " + std::to_string(i + 1), coded("85%02d", i), kMobile, stem_);
  }

  void item(int i) {
    db_.exec(
        "INSERT INTO ITEM (ITEM_CD, ITEM_NAME, ITEM_SNAME, ITEM_LNAME, DEPT_CD, TAX_CD, UOM, HSNCODE,"
        " RATEOFTAX, RATEOFCESS, USER_CD, ENT_DT, ENT_TIME, MOBNOCO, DATANM, DATASENT)"
        " VALUES (?, ?, '.', '.', ?, 1, 'NOS', ?, ?, 0, '', ?, ?, ?, ?, 'N')",
        itemCode(i), std::string(pick(kItemWords, i)) + " TYPE " + std::to_string(i), categoryCode(i),
        coded("85%02d", i % 60), taxOf(i), first_, kTime, kMobile, stem_);
    db_.exec(
        "INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, PUR_RATE, SALE_RATE1, SALE_RATE2, SALE_DISC, OP_STK, CL_STK,"
        " DESC1, MOBNOCO, DATANM, DATASENT) VALUES (?1, 'NOS', ?2, ?3, ?3, 0, 0, 0, '.', ?4, ?5, 'N')",
        itemCode(i), Round(rateOf(i) * 0.8, 2), rateOf(i), kMobile, stem_);
  }

  void party(int i) {
    const double state = isOwnState(i) ? kOwnState : kOtherState;
    const std::string pan = coded("ABCPT%04dK", i % 10'000);
    const std::string number = numText(state) + pan + "1Z";
    db_.exec(
        "INSERT INTO ACCOUNT (GROUP_CD, ACC_CD, ACC_NAME, PERSON_NM, ADD1, ADD2, AREA, CITY, PINCODE, PHONE1,"
        " OP_BAL, CL_BAL, CREDIT_DAY, ANOTHER_CD, EMAIL, GSTINNO, STATECD, REMARK1, BANK_NAME, GSTREGTYP,"
        " USER_CD, ENT_DT, ENT_TIME, MOBNOCO, DATANM, DATASENT)"
        " VALUES (85, ?1, ?2, '.', ?3, '.', ?4, ?5, ?6, ?7, ?8, ?8, ?9, 'S001', '.', ?10, ?11, '.', ?12, '.',"
        " '', ?13, ?14, ?15, ?16, 'N')",
        partyCode(i), std::string(pick(kPartyWords, i)) + " " + pick(kTrades, i) + " " + std::to_string(i),
        std::to_string(i) + " ARCADE", pick(kAreas, i), pick(kCities, i), coded("38%04d", i % 10'000),
        coded("98%08d", i), i % 7 * 1000, i % 4 * 15, number + gstinCheckDigit(number), state, pan, first_,
        kTime, kMobile, stem_);
  }

  struct Sums {
    double items = 0, quantity = 0;
    Taxes taxes;
  };

  // The second line of a bill has a discount.
  void line(int n, Date day, int serial, bool own, Sums& sums) {
    const int item = itemOf(n, serial, size_.items);
    const double quantity = 1 + (n * 7 + serial * 3) % 20, rate = rateOf(item),
                 discount = serial == 2 ? 5 : 0;
    const TaxTexts split = *splitTax(kOwnState, own ? kOwnState : kOtherState, taxOf(item));
    LineValue value;
    value.value(quantity, rate, discount);
    value.tax({Val(split.cgst), Val(split.sgst), Val(split.igst)});
    const double amount = storedAmount(quantity, rate, discount);
    db_.exec(
        "INSERT INTO SALEITM (VOUCH_NO, VOUCH_DT, CHLN_DT, VOUCH_TIME, SR_NO, ITEM_CD, QUANTITY, RATE,"
        " SALE_DISC, AMOUNT, NET_AMOUNT, CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT, IGSTAMT, MOBNOCO, DATANM,"
        " DATASENT, BOOK_CD, SIZE_CD, DESC1, ITEM_DESC, MFG_DT, EXP_DT, CUR_NM)"
        " VALUES (?1, ?2, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17, ?18,"
        " 'N', 'SA', 'NOS', '0', '', '.', '.', '.')",
        n, day, kTime, serial, itemCode(item), quantity, rate, discount, amount, value.shownNet(),
        value.rates.cgst, value.rates.sgst, value.rates.igst, value.amounts.cgst, value.amounts.sgst,
        value.amounts.igst, kMobile, stem_);
    sums.items += amount;
    sums.quantity += quantity;
    sums.taxes.cgst += value.amounts.cgst;
    sums.taxes.sgst += value.amounts.sgst;
    sums.taxes.igst += value.amounts.igst;
  }

  void bill(int n) {
    const Date day = dayOf(n, size_.bills);
    const int party = partyOf(n, size_.parties);
    Sums sums;
    for (int serial = 1; serial <= kLines; ++serial) line(n, day, serial, isOwnState(party), sums);
    const double items = Round(sums.items, 2);
    const Taxes taxes{Round(sums.taxes.cgst, 2), Round(sums.taxes.sgst, 2), Round(sums.taxes.igst, 2)};
    const BillTotal total = billTotal(items, taxes);
    const double roundOff = total.roundOff, creditDays = party % 4 * 15;
    billNumber_ = billNumberAfter(billNumber_);
    db_.exec(
        "INSERT INTO SALE (VOUCH_NO, CHLN_NO, VOUCH_DT, CHLN_DT, DT_GOODS, ACK_DT, PRV_BDT, ENT_DT, GR_DATE,"
        " VOUCH_TIME, ENT_TIME, BL_TIME, TIME_GOODS, ORDER_DT, BILL_NO, PARTY_CD, CASH_CD, DESTI, CR_DAYS,"
        " ITEM_AMT, NO_OF_ITEM, TCGSTRT, TSGSTRT, TIGSTRT, NET_AMT, ROUND_OFF, MOBNOCO, DATANM, DATASENT,"
        " BOOK_CD, BL_TYPE, SALE_CD, DESPATCH_FROM, ORDER_NO, NARRATION, GR_NO, TRANSPORT, PARCLE, TRANS_CD,"
        " TRANS_GOV_ID, GSTPOST, GWDN, SMAN_CD, USER_CD, CNAME, CMOBNO, CADRS, IRNNO, EINVNO, FORM_ISSUE,"
        " FREIGHT, PAY_MODE, NARRATION1, NARRATION2, AGNT_DOC, C_EX_REGNO, PRV_BNO, DIST_KM, PLA_NO)"
        " VALUES (?1, ?1, ?2, ?2, ?2, ?2, ?2, ?2, ?2, ?3, ?3, ?3, ?3, ?4, ?5, ?6, ?6, ?7, ?8, ?9, ?10, ?11,"
        " ?12, ?13, ?14, ?15, ?16, ?17, 'N', 'SA', 'TAX', 'X90002', 'X90002', '', '', '', 'LOCAL', '1', 1,"
        " '.', 1, '1', 'S001', '', '.', '.', '.', '.', '.', '.', '.', '.', '.', '.', '.', '.', '0', '0', "
        "'0')",
        n, day, kTime, formatDate(day, "dd/MMM/yyyy"), billNumber_, partyCode(party), pick(kAreas, party),
        creditDays, items, sums.quantity, taxes.cgst, taxes.sgst, taxes.igst, total.amount, roundOff, kMobile,
        stem_);
    postVoucher(db_, {static_cast<double>(n), day, saleKind().code},
                billRows({.party = partyCode(party),
                          .amount = total.amount,
                          .items = items,
                          .cgst = taxes.cgst,
                          .sgst = taxes.sgst,
                          .igst = taxes.igst,
                          .roundOff = roundOff,
                          .billNumber = billNumber_,
                          .narration = "",
                          .lrNumber = "",
                          .creditDays = creditDays}));
  }

  void receipt(int n) {
    storeMoneyVoucher(db_, receiptKind(),
                      {
                          {"VOUCH_NO",                                  static_cast<double>(n)     },
                          {"VOUCH_DT",                                  dayOf(n,                     size_.receipts)},
                          {"CSHBNK_CD",                                           kCashAccount                                                           },
                          {"PARTY_CD",                                           partyCode(partyOf(n,  size_.parties))},
                          {"AMOUNT",                            100.0 + static_cast<int>(n * 37L % 50'000)                                                     },
                          {"NARRATION",""}
    });
  }

  Database& db_;
  const LargeYear& size_;
  Date first_{};
  int days_ = 0;
  std::string stem_, billNumber_ = "0000";
};

}  // namespace

void makeLargeYear(Database& db, const LargeYear& size) {
  Transaction all(db);
  Books(db, size).fill();
  all.commit();
}

int unbalancedVouchers(Database& db) {
  return static_cast<int>(
      db.number("SELECT COUNT(*) FROM (SELECT 1 FROM ALEDGER GROUP BY BOOK_CD, VOUCH_NO HAVING"
                " ABS(SUM(CASE VOUCH_TYPE WHEN 'D' THEN VOUCH_AMT ELSE -VOUCH_AMT END)) > 0.004)"));
}
