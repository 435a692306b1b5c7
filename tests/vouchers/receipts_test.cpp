#include "vouchers/receipts.h"

#include "frame/books_check.h"
#include "vouchers/bill_fixture.h"
#include "vouchers/journals.h"

namespace {

constexpr Date kDay{std::chrono::year{2026}, std::chrono::June, std::chrono::day{15}};

class ReceiptsTest : public BillTest {
 protected:
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
  std::string ledger(const std::string& book) {
    return line(
        "SELECT GROUP_CONCAT(VOUCH_TYPE || ' ' || PARTY_CD || ' ' || PARTY_TCD || ' ' || NUMTEXT(VOUCH_AMT),"
        " ', ') FROM (SELECT * FROM ALEDGER WHERE BOOK_CD = '" +
        book + "' ORDER BY rowid)");
  }

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

TEST_F(ReceiptsTest, IncomeComesInAndExpenseGoesOut) {
  ASSERT_TRUE(saveMoneyVoucher(db(), moneyKind("INCOME"), money(1, 5), Saving::Fresh));
  ASSERT_TRUE(saveMoneyVoucher(db(), moneyKind("EXPENSE"), money(1, 7), Saving::Fresh));
  EXPECT_EQ(stored(), "IC1 5, EP1 7");
  EXPECT_EQ(ledger("IC"), "D X90005 A00001 5, C A00001 X90005 5");
  EXPECT_EQ(ledger("EP"), "C X90005 A00001 7, D A00001 X90005 7");
}

// The former book's rows of the number, a party that has no GSTIN, the party that paid before.
TEST_F(ReceiptsTest, ASaveLeavesNothingBehind) {
  db().exec("UPDATE ACCOUNT SET GSTINNO = NULL WHERE ACC_CD = 'A00003'");
  db().exec(
      "INSERT INTO ALEDGER (BOOK_CD, VOUCH_NO, PARTY_CD, VOUCH_TYPE, VOUCH_AMT) VALUES"
      " ('CM', 7, 'A00002', 'D', 1), ('CM', 8, 'A00002', 'D', 2)");
  ASSERT_TRUE(saveMoneyVoucher(db(), receiptKind(), money(7, 400), Saving::Fresh));
  Fields changed = money(7, 300);
  setValue(changed, "PARTY_CD", "A00002");
  ASSERT_TRUE(saveMoneyVoucher(db(), receiptKind(), changed, Saving::Again));
  EXPECT_EQ(line("SELECT GROUP_CONCAT(NUMTEXT(VOUCH_NO)) FROM ALEDGER WHERE BOOK_CD = 'CM'"), "8");
  EXPECT_EQ(line("SELECT GROUP_CONCAT(NUMTEXT(CL_BAL)) FROM ACCOUNT WHERE ACC_CD IN ('A00001', 'A00002')"),
            "38460,38162");
  EXPECT_EQ(line("SELECT GSTINNO FROM ACCOUNT WHERE ACC_CD = 'A00003'"), ".");
}

TEST_F(ReceiptsTest, ASaveThatFailsInTheMiddleLeavesNothing) {
  db().exec(
      "CREATE TRIGGER NO_CREDIT BEFORE INSERT ON ALEDGER WHEN NEW.VOUCH_TYPE = 'C'"
      " BEGIN SELECT RAISE(ABORT, 'no'); END");
  EXPECT_THROW(saveMoneyVoucher(db(), receiptKind(), money(1, 5), Saving::Fresh), DatabaseError);
  EXPECT_EQ(line("SELECT (SELECT COUNT(*) FROM RPTPAY), (SELECT COUNT(*) FROM ALEDGER)"), "0|0");
  EXPECT_EQ(line("SELECT CL_BAL FROM ACCOUNT WHERE ACC_CD = 'A00001'"), "38460");
}

// The second is told, and so is who shows a receipt whose bill was let go meanwhile.
TEST_F(ReceiptsTest, WhatTwoSettleOfOneBill) {
  db().exec(
      "INSERT INTO ALEDGER (BOOK_CD, VOUCH_NO, PARTY_CD, VOUCH_TYPE, VOUCH_AMT) VALUES ('SA', 90, 'A00001',"
      " 'D', 100), ('SA', 91, 'A00001', 'D', 300)");
  const Settlement first{.bills = {{{"SA", 90}, 100}}}, second{.bills = {{{"SA", 91}, 200}}};
  ASSERT_TRUE(saveMoneyVoucher(db(), receiptKind(), money(1, 100), Saving::Fresh, first));
  const std::string shown = asStored(db(), receiptKind(), 1);
  EXPECT_THROW(saveMoneyVoucher(db(), receiptKind(), money(2, 100), Saving::Fresh, first), SettledElsewhere);
  EXPECT_THROW(saveMoneyVoucher(db(), receiptKind(), money(2, 150), Saving::Fresh, second), SettledElsewhere)
      << "more than its money";
  EXPECT_EQ(stored(), "RC1 100");
  const auto above = [&] {
    const BooksCheck check = booksCheck();
    const auto row = db().first("SELECT BOOK, VOUCH_NO, HAS, SHOULD FROM (" + check.text +
                                    ") AS F WHERE WHAT = 'Settled Above Its Amount'",
                                check.values);
    return row ? row->text(0) + row->text(1) + " " + row->text(2) + " " + row->text(3) : "";
  };
  EXPECT_EQ(above(), "");
  db().exec("UPDATE ALEDGER SET VOUCH_AMT = 60 WHERE BOOK_CD = 'SA' AND VOUCH_NO = 90");
  EXPECT_EQ(above(), "SA90 100.00 60.00");
  freeSettled(db(), {"SA", 90});
  EXPECT_FALSE(saveMoneyVoucher(db(), receiptKind(), money(1, 100), Saving::over(shown), first));
  EXPECT_EQ(line("SELECT RPTPAY_DTL, (SELECT COUNT(*) FROM SETTLES) FROM RPTPAY"), "A|0");
}

// A journal that a receipt settles goes to another party: the money is on account.
TEST_F(ReceiptsTest, WhatAJournalLeavesIsSettledNoMore) {
  const VoucherKind& journal = journalKind("JOURNAL");
  const auto save = [&](const std::string& party, const Saving& how) {
    db().exec("DELETE FROM T_JOURNITM");
    db().exec(
        "INSERT INTO T_JOURNITM (SR_NO, ACC_CD, DEBIT, CREDIT) VALUES (1, ?, 80, 0), (2, 'X90002', 0, 80)",
        party);
    return saveJournal(db(), journal,
                       {
                           {"VOUCH_NO", 1   },
                           {"VOUCH_DT", kDay}
    },
                       stamp(), how);
  };
  ASSERT_TRUE(save("A00001", Saving::Fresh));
  ASSERT_TRUE(
      saveMoneyVoucher(db(), receiptKind(), money(1, 80), Saving::Fresh, {.bills = {{{"JV", 1}, 80}}}));
  ASSERT_TRUE(save("A00001", Saving::Again));
  EXPECT_EQ(line("SELECT COUNT(*) FROM SETTLES"), "1");
  ASSERT_TRUE(save("A00002", Saving::Again));
  EXPECT_EQ(line("SELECT RPTPAY_DTL, (SELECT COUNT(*) FROM SETTLES) FROM RPTPAY"), "A|0");
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
