#include "vouchers/receipts.h"

#include "vouchers/bill_fixture.h"

namespace {

constexpr Date kDay{std::chrono::year{2026}, std::chrono::June, std::chrono::day{15}};

class ReceiptsTest : public BillTest {
 protected:
  ReceiptsTest() {
    db().exec("UPDATE ACCOUNT SET OP_BAL = CASE ACC_CD WHEN 'A00001' THEN 1000 ELSE 0 END");
    addAccount("B00001", "NAVRANG BANK", 87);
  }
  void addAccount(const char* code, const char* name, int group) {
    db().exec("INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, GROUP_CD, OP_BAL, CL_BAL) VALUES (?, ?, ?, 0, 0)", code,
              name, group);
  }
  static Fields money(double number, double amount) {
    return {
        {"VOUCH_NO",  number                 },
        {"VOUCH_DT",  kDay                   },
        {"CSHBNK_CD", kCashAccount           },
        {"PARTY_CD",  "A00001"               },
        {"AMOUNT",    amount                 },
        {"NARRATION", " O'NEIL, ભાગ 1 "}
    };
  }
  std::string balance(const std::string& code) {
    return line("SELECT CL_BAL FROM ACCOUNT WHERE ACC_CD = '" + code + "'");
  }
  std::string ledger(const std::string& book) {
    return line(
        "SELECT GROUP_CONCAT(VOUCH_TYPE || ' ' || PARTY_CD || ' ' || PARTY_TCD || ' ' || NUMTEXT(VOUCH_AMT),"
        " ', ') FROM (SELECT * FROM ALEDGER WHERE BOOK_CD = '" +
        book + "' ORDER BY rowid)");
  }

  // On the screen.
  void open() { host.open("bwrcpy", {.entryType = "RECEIPT"}); }
  void startReceipt(const std::string& party, const std::string& amount) {
    host.press("cmdAdd");
    host.enter();
    host.fillEnter("party", party);
    host.fillEnter("amount", amount);
    host.enter();
  }
  std::string stored() {
    return line(
        "SELECT GROUP_CONCAT(BOOK_CD || NUMTEXT(VOUCH_NO) || ' ' || NUMTEXT(AMOUNT), ', ') FROM"
        " (SELECT * FROM RPTPAY ORDER BY rowid)");
  }
};

}  // namespace

TEST_F(ReceiptsTest, AVoucherIsOneRowAndTwoOfTheLedger) {
  db().exec("UPDATE ACCOUNT SET GSTINNO = NULL WHERE ACC_CD = 'A00003'");
  db().exec(
      "INSERT INTO ALEDGER (BOOK_CD, VOUCH_NO, PARTY_CD, VOUCH_TYPE, VOUCH_AMT) VALUES"
      " ('CM', 7, 'A00002', 'D', 1), ('CM', 8, 'A00002', 'D', 2), ('PY', 7, 'A00002', 'D', 3)");
  ASSERT_TRUE(saveMoneyVoucher(db(), receiptKind(), money(7, 1500.5), Saving::Fresh));
  EXPECT_EQ(
      line("SELECT VOUCH_NO, VOUCH_DT, REF_NO, BOOK_CD, CSHBNK_CD, PARTY_CD, AMOUNT, RPTPAY_DTL, NARRATION,"
           " NARRATION1, NARRATION2, CHQ_NO, CHQ_CLG_DT, VOUCH_TYPE FROM RPTPAY"),
      "7|2026-06-15|7|RC|X90005|A00001|1500.5|A|O'NEIL, ભાગ 1|.|.|.|2026-06-15|.");
  const std::string common = "|1500.5|7|O'NEIL, ભાગ 1|0|.|2026-06-15|A|.||7|0|2026-06-15|7|RC";
  const std::string columns =
      "SELECT VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT, PARTY_BL, NARRATION, SUB_DESC, CHQ_NO, CHQ_CLG_DT,"
      " BW_AB, NARR1, REF_NO, SRNO, GSTPOST, VOUCH_DT, VOUCH_NO, BOOK_CD FROM ALEDGER WHERE BOOK_CD = 'RC'";
  EXPECT_EQ(line(columns + " AND VOUCH_TYPE = 'D'"), "D|X90005|A00001" + common);
  EXPECT_EQ(line(columns + " AND VOUCH_TYPE = 'C'"), "C|A00001|X90005" + common);
  // Of the former book only the same number goes, of other kinds nothing.
  EXPECT_EQ(line("SELECT GROUP_CONCAT(BOOK_CD || NUMTEXT(VOUCH_NO)) FROM"
                 " (SELECT * FROM ALEDGER WHERE BOOK_CD <> 'RC' ORDER BY BOOK_CD)"),
            "CM8,PY7");
  EXPECT_EQ(balance("X90005"), "1500.5");
  EXPECT_EQ(balance("A00001"), "-500.5");
  EXPECT_EQ(line("SELECT GSTINNO FROM ACCOUNT WHERE ACC_CD = 'A00003'"), ".");
}

// No entry of the menu opens these yet.
TEST_F(ReceiptsTest, IncomeComesInAndExpenseGoesOut) {
  ASSERT_TRUE(saveMoneyVoucher(db(), moneyKind("INCOME"), money(1, 5), Saving::Fresh));
  ASSERT_TRUE(saveMoneyVoucher(db(), moneyKind("EXPENSE"), money(1, 7), Saving::Fresh));
  EXPECT_EQ(stored(), "IC1 5, EP1 7");
  EXPECT_EQ(ledger("IC"), "D X90005 A00001 5, C A00001 X90005 5");
  EXPECT_EQ(ledger("EP"), "C X90005 A00001 7, D A00001 X90005 7");
}

TEST_F(ReceiptsTest, AModifyReplacesAndADeletionTakesBack) {
  const VoucherKind& kind = receiptKind();
  saveMoneyVoucher(db(), kind, money(1, 400), Saving::Fresh);
  saveMoneyVoucher(db(), kind, money(2, 50), Saving::Fresh);
  EXPECT_FALSE(saveMoneyVoucher(db(), kind, money(2, 99), Saving::Fresh));
  EXPECT_EQ(stored(), "RC1 400, RC2 50");

  Fields changed = money(1, 300);
  setValue(changed, "PARTY_CD", "A00002");
  ASSERT_TRUE(saveMoneyVoucher(db(), kind, changed, Saving::Again));
  EXPECT_EQ(stored(), "RC1 300, RC2 50");
  EXPECT_EQ(balance("X90005"), "350");
  EXPECT_EQ(balance("A00002"), "-300");
  EXPECT_EQ(balance("A00001"), "950") << "the party that it was taken from";

  deleteMoneyVoucher(db(), kind, 1);
  EXPECT_EQ(ledger("RC"), "D X90005 A00001 50, C A00001 X90005 50");
  EXPECT_EQ(balance("A00002"), "0");
  EXPECT_EQ(balance("X90005"), "50");
  deleteMoneyVoucher(db(), kind, 9);
  EXPECT_EQ(stored(), "RC2 50");
}

TEST_F(ReceiptsTest, ASaveThatFailsInTheMiddleLeavesNothing) {
  db().exec(
      "CREATE TRIGGER NO_CREDIT BEFORE INSERT ON ALEDGER WHEN NEW.VOUCH_TYPE = 'C'"
      " BEGIN SELECT RAISE(ABORT, 'no'); END");
  EXPECT_THROW(saveMoneyVoucher(db(), receiptKind(), money(1, 5), Saving::Fresh), DatabaseError);
  EXPECT_EQ(line("SELECT (SELECT COUNT(*) FROM RPTPAY), (SELECT COUNT(*) FROM ALEDGER)"), "0|0");
  EXPECT_EQ(balance("A00001"), "38460");
}

// What the year in the shop does not come to.
TEST_F(ReceiptsTest, NumbersByMode) {
  saveMoneyVoucher(db(), receiptKind(), money(4, 75), Saving::Fresh);
  saveMoneyVoucher(db(), receiptKind(), money(3, 20), Saving::Fresh);
  open();
  startReceipt("A00001", "10.005");
  EXPECT_EQ(host.lastMessage() + " " + host.focus(), "An Amount Has Two Decimals amount");
  host.answers = {true};
  host.press("cmdCancel");
  host.press("cmdAdd");
  EXPECT_EQ(host.text("number"), "5") << "after the highest, not the last";
  host.fillEnter("number", "4");
  EXPECT_EQ(host.lastMessage() + host.text("number"), "VOUCHER ALREADY EXISTS");
  host.fillEnter("number", "9");
  EXPECT_EQ(host.focus(), "date");
  host.answers = {true};
  host.escape();

  // Another number typed over the one that is shown must not be written under.
  host.press("cmdEdit");
  host.fillEnter("number", "4");
  host.fill("number", "6");
  EXPECT_FALSE(host.focusOn(host.at("narration")));
  EXPECT_EQ(host.lastMessage(), "VOUCHER DOES NOT EXISTS");
  EXPECT_EQ(stored(), "RC4 75, RC3 20");
  host.press("cmdCancel");

  host.key(Key::Ctrl('P'));
  host.fillEnter("number", "1");
  EXPECT_EQ(host.lastMessage(), "VOUCHER DOES NOT EXIST");
  host.fillEnter("number", "4");
  EXPECT_EQ(host.screen().mode + host.text("amount"), "VIEW75");
  EXPECT_FALSE(host.at("amount").enabled);
  host.escape();

  host.press("cmdDelete");
  host.fillEnter("number", "1");
  EXPECT_EQ(host.lastMessage(), "PARTY DOES NOT EXIST");
}
