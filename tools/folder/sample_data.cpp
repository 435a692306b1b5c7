#include "sample_data.h"

#include <algorithm>
#include <string>

#include "base/number.h"
#include "base/text.h"
#include "frame/voucher_kinds.h"
#include "masters/gstin.h"
#include "sample_rows.h"
#include "store/balances.h"
#include "store/dictionary.h"
#include "store/row_writer.h"
#include "store/seeds.h"
#include "store/templates.h"
#include "vouchers/calculation.h"
#include "vouchers/numbering.h"
#include "vouchers/receipts.h"
#include "vouchers/saving.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kCode = "M001";
constexpr const char* kBillType = "TAX";
constexpr const char* kMobile = "9090909090";

struct Year {
  int from = 0;
  Date first{}, last{};
  std::string stem;
};

Year yearOf(Date day) {
  using namespace std::chrono;
  const bool early = static_cast<unsigned>(day.month()) < 4;
  const int from = static_cast<int>(day.year()) - (early ? 1 : 0);
  return {from, year{from} / April / 1, year{from + 1} / March / 31, kCode + right(std::to_string(from), 2)};
}

std::string gstin(const char* fourteen) {
  return fourteen ? fourteen + std::string(1, gstinCheckDigit(fourteen)) : ".";
}

// Writes one company-year.
class Books {
 public:
  Books(Database& db, const Year& year, const Moment& now) : db_(db), year_(year), now_(now) {}

  void fill() {
    period();
    company();
    items();
    parties();
    transporters();
    for (const SampleBill& bill : kBills) enter(bill);
    for (const SampleReceipt& receipt : kReceipts) enter(receipt);
    db_.exec("DELETE FROM T_SLITM");
    RebuildAllBalances(db_);
  }

 private:
  // Master rows carry who wrote them and the marks of the data exchange.
  Fields stamped(Fields row) const {
    row.push_back({"USER_CD", ""});
    row.push_back({"ENT_DT", now_.date});
    row.push_back({
        "ENT_TIME", Clock{now_.hour, now_.minute}
    });
    return marked(std::move(row));
  }
  Fields marked(Fields row) const {
    row.push_back({"MOBNOCO", kMobile});
    row.push_back({"DATANM", year_.stem});
    row.push_back({"DATASENT", "N"});
    return row;
  }
  Date daysAgo(int days) const { return std::max(year_.first, addDays(now_.date, -days)); }

  void period() {
    StorePeriod(db_, year_.first, year_.last);
    db_.exec("UPDATE SPSFILE SET VOUCH_QTY = 1 WHERE VOUCH_NO = 234");  // a backup at each exit
  }

  void company() {
    const SampleCompany& c = kCompany;
    // clang-format off
    insertRow(db_, "COMP_DET", marked({
        {"COMPNM",      c.name},
        {"ADDRS",       c.address},
        {"CITY",        c.place},
        {"CPIN",        c.pin},
        {"STATE",       c.state},
        {"STATECD",     c.stateCode},
        {"PH1",         c.phone1},
        {"PH2",         c.phone2},
        {"C_EMAIL",     c.email},
        {"GSTINNO",     gstin(c.gstin14)},
        {"PLA_NO",      c.pan},
        {"C_BANK_NAME", c.bank},
        {"C_BRNCH",     c.branch},
        {"C_IFSC",      c.ifsc},
        {"C_AC_NO",     c.accountNumber},
        {"AD1",         "."},
        {"AD2",         "."},
        {"AREA",        "."},
        {"C_PASS",      "."},
        {"C_SMTP",      "."},
        {"C_PORT",      0},
        {"TERMS",       0},
    }));
    // clang-format on
  }

  void items() {
    for (const SampleCategory& c : kCategories)
      // clang-format off
      insertRow(db_, "DEPTMENT", marked({
          {"DEPT_CD",     c.code},
          {"DEPT_NAME",   c.name},
          {"GROUPING",    "."},
          {"NOCOUNT_STK", "N"},
          {"HSNCODE",     c.hsn},
          {"ITEMDESC",    "."},
          {"RATEOFTAX",   c.tax},
          {"RATEOFCESS",  0},
      }));
    for (const SampleItem& i : kItems) {
      insertRow(db_, "ITEM", stamped({
          {"ITEM_CD",    i.code},
          {"ITEM_NAME",  i.name},
          {"ITEM_SNAME", "."},
          {"ITEM_LNAME", "."},
          {"DEPT_CD",    i.category},
          {"TAX_CD",     1},
          {"UOM",        i.unit},
          {"HSNCODE",    i.hsn},
          {"RATEOFTAX",  i.tax},
          {"RATEOFCESS", 0},
      }));
      // clang-format on
      detail(i.code, i.unit, i.purchase, i.sale, i.mrp, i.discount);
    }
    for (const SampleUnit& u : kUnits) detail(u.item, u.unit, u.purchase, u.sale, u.mrp, 0);
  }

  void detail(const char* item, const char* unit, double purchase, double sale, double mrp, double discount) {
    // clang-format off
    insertRow(db_, "ITEMDTL", marked({
        {"ITEM_CD",    item},
        {"SIZE_CD",    unit},
        {"PUR_RATE",   purchase},
        {"SALE_RATE1", sale},
        {"SALE_RATE2", mrp},
        {"SALE_DISC",  discount},
        {"OP_STK",     0},
        {"CL_STK",     0},
        {"DESC1",      "."},
    }));
    // clang-format on
  }

  void parties() {
    for (const SampleParty& p : kParties) {
      const std::string number = gstin(p.gstin14);
      // clang-format off
      insertRow(db_, "ACCOUNT", stamped({
          {"GROUP_CD",   p.group},
          {"ACC_CD",     p.code},
          {"ACC_NAME",   p.name},
          {"PERSON_NM",  p.person},
          {"ADD1",       p.address1},
          {"ADD2",       p.address2},
          {"AREA",       p.area},
          {"CITY",       p.city},
          {"PINCODE",    p.pin},
          {"PHONE1",     p.phone},
          {"OP_BAL",     p.opening},
          {"CL_BAL",     p.opening},
          {"CREDIT_DAY", p.creditDays},
          {"ANOTHER_CD", "S001"},
          {"EMAIL",      "."},
          {"GSTINNO",    number},
          {"STATECD",    p.stateCode},
          {"REMARK1",    "."},
          {"BANK_NAME",  p.gstin14 ? gstinParts(number).pan : "."},
          {"GSTREGTYP",  "."},
      }));
      // clang-format on
    }
  }

  void transporters() {
    for (const SampleTransporter& t : kTransporters)
      // clang-format off
      insertRow(db_, "TRANSMAST", {
          {"TRANS_ID",     t.id},
          {"TRANSNAME",    t.name},
          {"TADD1",        "."},
          {"TADD2",        "."},
          {"TAREA",        t.area},
          {"TCITY",        t.city},
          {"TPHONE1",      t.phone},
          {"TPHONE2",      "."},
          {"TRANS_GOV_ID", gstin(t.gstin14)},
      });
    // clang-format on
  }

  // As the bill screen enters it: lines into the work table, then the save.
  void enter(const SampleBill& bill) {
    const VoucherKind& kind = saleKind();
    const Row party = *db_.first("SELECT * FROM ACCOUNT WHERE ACC_CD = ?", bill.party);
    const double number = lastVoucher(db_, kind).number + 1;
    const Date date = daysAgo(bill.daysAgo);

    db_.exec("DELETE FROM T_SLITM");
    int serial = 0;
    for (const SampleLine& line : bill.lines)
      if (line.item) enterLine(number, date, line, ++serial, party.number("STATECD"));

    const Row sums = *db_.first(
        "SELECT SUM(AMOUNT), SUM(QUANTITY), SUM(CGSTAMT), SUM(SGSTAMT), SUM(IGSTAMT) FROM T_SLITM");
    const auto sum = [&](int column) { return Round(sums.number(column), 2); };
    const BillTotal total = billTotal(sum(0), {sum(2), sum(3), sum(4)});
    // clang-format off
    const Fields head = {
        {"VOUCH_NO",   number},
        {"VOUCH_DT",   date},
        {"PARTY_CD",   bill.party},
        {"CASH_CD",    ""},
        {"BL_TYPE",    kBillType},
        {"BILL_NO",    nextBillNumber(db_, kind, kBillType)},
        {"ORDER_NO",   ""},
        {"CHLN_NO",    number},
        {"NARRATION",  bill.narration},
        {"TRANS_CD",   db_.number("SELECT TRANS_ID FROM TRANSMAST WHERE TRANSNAME = ?", bill.transport)},
        {"TRANSPORT",  bill.transport},
        {"DESTI",      party.text("AREA")},
        {"GR_NO",      ""},
        {"PARCLE",     ""},
        {"CR_DAYS",    party.number("CREDIT_DAY")},
        {"ITEM_AMT",   sum(0)},
        {"NO_OF_ITEM", sum(1)},
        {"TCGSTRT",    sum(2)},
        {"TSGSTRT",    sum(3)},
        {"TIGSTRT",    sum(4)},
        {"ROUND_OFF",  total.roundOff},
        {"NET_AMT",    total.amount},
    };
    // clang-format on
    saveBill(db_, kind, head, {now_, "", kMobile, year_.stem}, Saving::Fresh);
  }

  void enterLine(double number, Date date, const SampleLine& line, int serial, double partyState) {
    const Row item = *db_.first("SELECT ITEM_NAME, RATEOFTAX FROM ITEM WHERE ITEM_CD = ?", line.item);
    const TaxTexts split = *splitTax(Val(kCompany.stateCode), partyState, item.number("RATEOFTAX"));
    LineValue value;
    value.value(line.quantity, line.rate, line.discount);
    value.tax({Val(split.cgst), Val(split.sgst), Val(split.igst)});
    // clang-format off
    Fields row = marked({
        {"VOUCH_NO",   number},
        {"VOUCH_DT",   date},
        {"VOUCH_TIME", Clock{now_.hour, now_.minute}},
        {"BOOK_CD",    saleKind().code},
        {"SR_NO",      serial},
        {"ITEM_CD",    line.item},
        {"ITEM_NAME",  item.text("ITEM_NAME")},
        {"SIZE_CD",    line.unit},
        {"QUANTITY",   line.quantity},
        {"RATE",       line.rate},
        {"SALE_DISC",  line.discount},
        {"AMOUNT",     storedAmount(line.quantity, line.rate, line.discount)},
        {"NET_AMOUNT", value.shownNet()},
        {"ORDER_NO",   0},
        {"ITEM_DESC",  ""},
        {"CHLN_DT",    date},
        {"BLTYPE",     kBillType},
        {"CGSTRT",     value.rates.cgst},
        {"SGSTRT",     value.rates.sgst},
        {"IGSTRT",     value.rates.igst},
        {"CGSTAMT",    value.amounts.cgst},
        {"SGSTAMT",    value.amounts.sgst},
        {"IGSTAMT",    value.amounts.igst},
        {"GSTPOST",    1},
        {"DEPT_CD",    "E001"},
    });
    // clang-format on
    for (const char* column : {"ITEM_SNAME", "MFG_DT", "EXP_DT", "YOUR_REF", "CUR_NM"})
      row.push_back({column, "."});
    for (const char* column :
         {"SALE_DISC1", "TAX_CD", "TAX_RT", "TAX_AMT", "VAT_AMT", "BRKRG", "DESC1", "CESS_PERC1", "CESS_AMT1",
          "CUR_RT", "CUR_ITM_RT", "CUR_AMT", "DISC3", "DISC4"})
      row.push_back({column, 0});
    insertRow(db_, "T_SLITM", row);
  }

  void enter(const SampleReceipt& receipt) {
    const VoucherKind& kind = receiptKind();
    storeMoneyVoucher(db_, kind,
                      {
                          {"VOUCH_NO", lastVoucher(db_, kind).number + 1},
                          {"VOUCH_DT",          daysAgo(receipt.daysAgo)               },
                          {"CSHBNK_CD",          kCashAccount},
                          {"PARTY_CD",          receipt.party                },
                          {"AMOUNT",          receipt.amount },
                          {"NARRATION",          receipt.narration             }
    });
  }

  Database& db_;
  const Year& year_;
  const Moment& now_;
};

void makeBooks(const fs::path& folder, const Year& year, const Moment& now) {
  const fs::path file = folder / (year.stem + ".mdb");
  if (fs::exists(file)) return;
  copyDatabase(folder / "SMPL.MDB", file);
  Database db;
  db.open(file);
  RemakeWorkTables(db);
  Transaction all(db);
  Books(db, year, now).fill();
  all.commit();
}

void enterInCatalogue(Database& catalogue, const Year& year) {
  insertRow(catalogue, "compny",
            {
                {"COMP_ID",   kCode                        },
                {"COMP_NAME", kCompany.name                },
                {"FROMYR",    std::to_string(year.from)    },
                {"TOYR",      std::to_string(year.from + 1)},
                {"MOBNOCO",   kMobile                      },
                {"DATANM",    year.stem                    },
                {"DATASENT",  "N"                          },
  });
}

}  // namespace

void makeSampleFolder(const fs::path& folder, const Moment& now) {
  fs::create_directories(folder);
  for (const char* name : {"SMPL.MDB", "BLNK.MDB"})
    if (!fs::exists(folder / name)) makeCompanyDatabase(folder / name);
  if (fs::exists(folder / "comp.mdb")) return;

  const Year year = yearOf(now.date);
  makeBooks(folder, year, now);
  makeCatalogue(folder / "comp.mdb");
  Database catalogue;
  catalogue.open(folder / "comp.mdb");
  enterInCatalogue(catalogue, year);
}
