#include "reports/gst.h"

#include "store/company_fixture.h"

namespace {

TEST(MonthRule, EndsTheMonthOfTheFromDate) {
  const std::pair<const char*, const char*> dates[] = {
      {"01/01/2027", "31/01/2027"},
      {"15/02/2027", "28/02/2027"},
      {"01/02/2028", "28/02/2028"},
      {"30/04/2026", "30/04/2026"},
      {"09/06/2026", "30/06/2026"},
      {"01/09/2026", "30/09/2026"},
      {"01/11/2026", "30/11/2026"},
      {"01/08/2026", "31/08/2026"},
      {"31/12/2026", "31/12/2026"},
  };
  for (const auto& [from, to] : dates) EXPECT_EQ(monthEnd(from), to) << from;
}

TEST(MonthRule, IsForReturnsOnly) {
  for (const char* key : {"GSTR1-RD", "GSTR1-URD", "GSTR3B", "BTOCSTGENPU", "HSNPR", "GSTR2-SMRY"})
    EXPECT_TRUE(toDateRule(key)) << key;
  for (const char* key : {"ONACRCV", "SALEBILLSUMMARY", "gstr1-rd", ""}) EXPECT_FALSE(toDateRule(key)) << key;
}

class Gst : public CompanyTest {
 protected:
  void bill(int number, const char* date, const char* billNumber, double net = 100) {
    db.exec(
        "INSERT INTO SALE (VOUCH_NO, BOOK_CD, VOUCH_DT, BILL_NO, PARTY_CD, GSTPOST, NET_AMT, ROUND_OFF)"
        " VALUES (?, 'SA', ?, ?, 'A00001', 1, ?, 0)",
        number, date, billNumber, net);
  }
  void line(int number, int serial, double rate, double amount) {
    db.exec("INSERT INTO SALEITM (VOUCH_NO, BOOK_CD, SR_NO, CGSTRT, AMOUNT) VALUES (?, 'SA', ?, ?, ?)",
            number, serial, rate, amount);
  }
  std::string rows(const char* from, const char* to) {
    std::string all;
    for (GstStatement s(db, {.from = *parseDate(from), .to = *parseDate(to)}); s.next();) {
      const GstRow& r = s.row();
      all += r.bill + " " + std::to_string(static_cast<int>(r.rates.cgst.value_or(-1))) + " " +
             std::to_string(static_cast<int>(r.sums.taxable.value_or(-1))) + " of " +
             std::to_string(static_cast<int>(r.voucher)) + "\n";
    }
    return all;
  }
};

TEST_F(Gst, EmptyYearAndYearOfOneBill) {
  EXPECT_EQ(rows("2026-04-01", "2027-03-31"), "");
  db.exec("INSERT INTO ACCOUNT (ACC_CD, GSTINNO) VALUES ('A00001', '24ABCDE1234F1Z5')");
  bill(1, "2026-05-01", "0001");
  EXPECT_EQ(rows("2026-04-01", "2027-03-31"), "0001 -1 -1 of 1\n");
  EXPECT_EQ(rows("2027-03-31", "2026-04-01"), "");
  EXPECT_EQ(rows("2026-05-01", "2026-05-01"), "0001 -1 -1 of 1\n");
}

TEST_F(Gst, OneRowForABillAtOneRate) {
  db.exec("INSERT INTO ACCOUNT (ACC_CD, GSTINNO) VALUES ('A00001', '24ABCDE1234F1Z5')");
  bill(2, "2026-05-01", "0002");
  bill(1, "2026-05-02", "0001");
  for (const auto& [serial, rate] : {
           std::pair{1, 9.0},
           {2, 2.5},
           {3, 9.0}
  })
    line(2, serial, rate, 100 * serial);
  line(1, 1, 6, 50);
  EXPECT_EQ(rows("2026-04-01", "2027-03-31"), "0002 2 200 of 2\n0002 9 400 of 2\n0001 6 50 of 1\n");
  bill(8, "2026-05-02", "0001");       // agrees with bill 1 in all that groups
  bill(9, "2026-05-02", "0001", 200);  // in all but the amount
  line(8, 1, 6, 7);
  line(9, 1, 6, 3);
  EXPECT_EQ(rows("2026-05-02", "2027-03-31"), "0001 6 57 of 1\n0001 6 3 of 9\n");
}

}  // namespace
