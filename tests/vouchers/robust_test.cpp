#include <sys/wait.h>
#include <unistd.h>

#include <map>

#include "base/text.h"
#include "frame/full_disk.h"
#include "frame/killed.h"
#include "platform/utf8.h"
#include "vouchers/bill_fixture.h"
#include "vouchers/journals.h"
#include "vouchers/numbering.h"
#include "vouchers/originals.h"
#include "vouchers/receipts.h"
#include "vouchers/sources.h"

namespace {

class Robust : public BillTest {
 protected:
  std::filesystem::path file() const { return folder / "M00126.mdb"; }

  // The number of bills that another process saves in fifty tries.
  pid_t fiftyElsewhere() {
    const pid_t child = fork();
    if (child != 0) return child;
    Database own;
    own.open(file());
    int saved = 0;
    for (int tries = 0; tries < 50; ++tries) {
      own.exec("DELETE FROM T_SLITM");
      workLine(own, "I0000001", 1, 1);
      saved +=
          saveBill(own, saleKind(), bill(lastVoucher(own, saleKind()).number + 1), stamp(), Saving::Fresh);
    }
    _exit(saved);
  }
  static void journal(Database& own, double amount) {
    own.exec("DELETE FROM T_JOURNITM");
    own.exec(
        "INSERT INTO T_JOURNITM (SR_NO, ACC_CD, DEBIT, CREDIT) VALUES (1, 'A00001', ?, 0),"
        " (2, 'X90002', 0, ?), (3, 'X90005', 0, ?)",
        3 * amount, amount, 2 * amount);
    saveJournal(own, journalKind("JOURNAL"),
                {
                    {"VOUCH_NO", 1               },
                    {"VOUCH_DT", stamp().now.date}
    },
                stamp(), Saving::Again);
  }
  static int answerOf(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
};

}  // namespace

TEST_F(Robust, TwoProgramsNeverShareANumber) {
  const pid_t one = fiftyElsewhere(), other = fiftyElsewhere();
  const int saved = answerOf(one) + answerOf(other);
  EXPECT_GE(saved, 50);
  const std::string all = std::to_string(saved);
  EXPECT_EQ(line("SELECT COUNT(*), MAX(VOUCH_NO), (SELECT COUNT(*) FROM SALEITM) FROM SALE"),
            all + "|" + all + "|" + all);
  EXPECT_EQ(unbalanced(db()), "");
}

TEST_F(Robust, AFullDiskKeepsTheVoucherOnTheScreen) {
  db().exec("CREATE TABLE FILLER AS SELECT randomblob(50000)");  // no page is left free
  const struct {
    std::function<void()> start;
    std::function<void(const std::string&)> type;
    const char* lastField;
    std::string head, lines;  // tables
  } kinds[] = {
      {[this] { startChallan(); }, [this](const std::string& n) { typeGoods("I0000001", n, "100"); },
       "destination", "CHLN", "CHLNITM"},
      {[this] { startOffer(); },   [this](const std::string& n) { typeLine("I0000001", n, "100", "0"); },
       "subject_to",  "QUOT", "QUOTITM"},
      {[this] { startBill(); },    [this](const std::string& n) { typeLine("I0000001", n, "100", "0"); },
       "parcels",     "SALE", "SALEITM"},
  };
  for (const auto& kind : kinds) {
    SCOPED_TRACE(kind.head);
    db().exec("DELETE FROM ALEDGER");
    kind.start();
    for (int n = 1; n <= 150; ++n) kind.type(std::to_string(n));
    host.go(kind.lastField);
    host.enter();
    const std::string stored = "SELECT (SELECT COUNT(*) FROM " + kind.head +
                               "), (SELECT COUNT(*) FROM ALEDGER),"
                               " COUNT(*), SUM(VAL(QUANTITY)) FROM " +
                               kind.lines;
    // The file may not grow, by the system's word and by the engine's.
    const auto refused = [&](const std::string& words) {
      host.press("CMDSAVE");
      EXPECT_NE(host.lastMessage().find(words), std::string::npos) << host.lastMessage();
      EXPECT_EQ(host.messages.back().title, "Mirav Message");
      EXPECT_EQ(host.focus() + host.screen().mode, "CMDSAVEADD");
      EXPECT_EQ(line(stored), "0|0|0|");
    };
    {
      const FullDisk full(std::filesystem::file_size(file()));
      refused("M00126.mdb cannot be read or written: the disk reports an error");
    }
    db().exec("PRAGMA max_page_count = 1");  // takes the size that it has
    refused("The disk is full. Nothing was stored in M00126.mdb");
    db().exec("PRAGMA max_page_count = 1000000");
    saveAfter(kind.lastField);
    EXPECT_EQ(line(stored).substr(0, 2) + line(stored).substr(4), "1|150|11325");
    host.closeTop();
  }
  EXPECT_EQ(unbalanced(db()) + line("PRAGMA integrity_check"), "ok");
}

// Apostrophes, Gujarati and signs, as many as a field takes, come back as they were typed.
TEST_F(Robust, FieldsFilledToTheirLimitComeBack) {
  const struct {
    std::function<void()> start, save;
    std::string ofLine, ofHead;
  } kinds[] = {
      {[this] { startBill(); },    [this] { save(); },      "detail unit",
       "bill_type bill_no order_no narration destination lr_no transport"},
      {[this] { startChallan(); }, [this] { saveGoods(); }, "detail",
       "order_no challan_type narration transport lr_no destination"     },
      {[this] { startOffer(); },   [this] { saveOffer(); }, "item_name detail unit",
       "reference attention subject your_reference validity rate_terms payment_terms tax_terms delivery_terms"
       " packing_terms installation_terms subject_to"                    },
  };
  for (const auto& kind : kinds) {
    std::map<std::string, std::string> typed;
    const auto fill = [&](const std::string& field) {
      std::string text;
      while (utf8::length(text) < 300) text += "O'N \"ગુજરાતી\" %_\\; ";
      host.fill(field, text);
      EXPECT_EQ(host.text(field), cut(text, host.at(field).limit));
      typed[field] = trim(host.text(field));
    };
    kind.start();
    SCOPED_TRACE(host.screen().spec.name);
    host.fillEnter("item", kind.ofLine != "detail" ? "MISC" : "I0000001");
    if (host.focus() == "item_name") host.type("FITTING");
    for (const std::string& field : split(kind.ofLine, " ")) fill(field);
    host.fill("quantity", "999999999.999");
    host.fillEnter("rate", "1");
    host.go("amount");
    host.enter();
    for (const std::string& field : split(kind.ofHead, " ")) fill(field);
    host.enter();
    kind.save();
    host.press("cmdEDIT");
    host.fillEnter("number", "1");
    for (const auto& [field, text] : typed) EXPECT_EQ(trim(host.text(field)), text) << field;
    EXPECT_EQ(host.text("quantity"), "999999999.999");
    host.press("CMDCANCEL");
    host.closeTop();
  }
  EXPECT_EQ(unbalanced(db()), "");
  EXPECT_EQ(line("SELECT COUNT(DISTINCT SUBSTR(NARRATION, 1, 50)), LENGTH(TRANSNAME) FROM ALEDGER, TRANSMAST"
                 " WHERE TRANS_ID = 2"),
            "1|50");
}

// The program dies before every second of the calls that a save makes of the system.
TEST_F(Robust, KilledAtAnyMomentAVoucherIsWholeOrAsItWas) {
  // clang-format off
  const struct {
    std::function<void(Database&, double)> save;  // three lines of the quantity
    const char* stored;
    std::string old, changed;
  } kinds[] = {
      {[](Database& own, double quantity) {
         for (int k = 1; k <= 3; ++k) workLine(own, "I0000001", quantity, k);
         saveBill(own, saleKind(), bill(1, 100 * quantity), stamp(), Saving::Again);
       }, "SELECT NET_AMT, (SELECT COUNT(*) || '*' || SUM(QUANTITY) FROM SALEITM),"
       " (SELECT SUM(VOUCH_AMT) FROM ALEDGER WHERE BOOK_CD = 'SA' AND PARTY_CD = 'A00001') FROM SALE", "700|3*21.0|700",  "800|3*24.0|800" },
      {[](Database& own, double quantity) {
         for (int k = 1; k <= 3; ++k) goods(own, "I0000001", quantity, k);
         saveChallan(own, challanKind(), challan(1, 100 * quantity), stamp(), Saving::Again);
       }, "SELECT NET_AMT, (SELECT COUNT(*) || '*' || SUM(QUANTITY) FROM CHLNITM),"
       " (SELECT SUM(VOUCH_AMT) FROM ALEDGER WHERE BOOK_CD = 'CH') FROM CHLN",                         "700|3*21.0|1400", "800|3*24.0|1600"},
      {[](Database& own, double quantity) {
         for (int k = 1; k <= 3; ++k) offeredLine(own, "I0000001", quantity, k);
         saveQuotation(own, quotationKind(), offer(1, 100 * quantity), stamp(), Saving::Again);
       }, "SELECT NET_AMT, (SELECT COUNT(*) || '*' || SUM(VAL(QUANTITY)) FROM QUOTITM) FROM QUOT",              "700|3*21.0",
       "800|3*24.0"                                                                                                                                                         },
      {journal, "SELECT AMOUNT, (SELECT COUNT(*) || '*' || SUM(DEBIT) FROM JOURNITM),"
       " (SELECT SUM(VOUCH_AMT) FROM ALEDGER WHERE BOOK_CD = 'JV') FROM JOURNAL", "21|3*21.0|42", "24|3*24.0|48"},
      // The challan of above is in the bill, which stands against nobody's tax but the buyer's.
      {[](Database& own, double quantity) {
         for (int k = 1; k <= 3; ++k) workLine(own, "I0000001", quantity, k);
         whole(own, [&] {
           saveBill(own, saleKind(), bill(2, 100 * quantity), stamp(), Saving::Again, Supply{.reverse = true});
           keepSources(own, saleKind(), 2, "A00001", {{"CH", 1}});
         });
       }, "SELECT NET_AMT, (SELECT COUNT(*) FROM BILLEDFROM), (SELECT COUNT(*) FROM SUPPLY), (SELECT COUNT(*) FROM ALEDGER"
       " WHERE BOOK_CD = 'CH') FROM SALE WHERE VOUCH_NO = 2", "700|1|1|0", "800|1|1|0"},
      {[](Database& own, double quantity) {
         for (int k = 1; k <= 3; ++k) workLine(own, "I0000001", quantity / 10, k);
         own.exec("UPDATE T_SLITM SET BOOK_CD = 'SR'");
         whole(own, [&] {
           saveBill(own, noteKind("SALERET"), bill(1, 10 * quantity), stamp(), Saving::Again);
           storeNote(own, noteKind("SALERET"), 1, {.reason = 1, .goods = true, .bills = {{.book = "SA", .voucher = 1}}},
                     {{1, {"SA", 1, 1}}, {2, {"SA", 1, 2}}});
         });
       }, "SELECT NET_AMT, (SELECT BILL_NO FROM ORIGINAL), (SELECT COUNT(*) FROM ORIGITM), (SELECT AMOUNT FROM SETTLES"
       " WHERE BOOK_CD = 'SR') FROM SALE WHERE BOOK_CD = 'SR'", "70|0001|2|70", "80|0001|2|80"},
      {[](Database& own, double quantity) {
         saveMoneyVoucher(own, receiptKind(), {{"VOUCH_NO", 1}, {"VOUCH_DT", kDay}, {"CSHBNK_CD", "X90005"}, {"PARTY_CD", "A00001"},
                                               {"AMOUNT", quantity}, {"NARRATION", ""}}, Saving::Again,
                          {.bills = {{{"OP", 0}, quantity}}, .deductions = {{"D", "X90006", 1}}});
       }, "SELECT AMOUNT, (SELECT COUNT(*) || '*' || SUM(AMOUNT) FROM SETTLES WHERE BOOK_CD = 'RC'),"
       " (SELECT SUM(VOUCH_AMT) FROM ALEDGER WHERE BOOK_CD = 'RC') FROM RPTPAY", "7|2*8.0|16", "8|2*9.0|18"},
  };
  // clang-format on
  for (const auto& kind : kinds) {
    const auto save = [&](double quantity) {
      Database own;
      own.open(file());
      kind.save(own, quantity);
    };
    db().close();
    save(7);
    int kept = 0;
    for (int n = 1;; n += 2) {
      const Killed killed = killedAt(n, [&] { save(8); });
      if (!killed.possible) GTEST_SKIP() << "processes may not be watched here";
      db().open(file());
      const std::string stored = line(kind.stored);
      EXPECT_TRUE(stored == kind.old || stored == kind.changed) << "before call " << n << ": " << stored;
      ASSERT_EQ(line("PRAGMA integrity_check"), "ok");
      kept += stored == kind.old;
      db().close();
      if (killed.ended) {
        EXPECT_EQ(stored, kind.changed);
        break;
      }
      if (stored != kind.old) save(7);
    }
    EXPECT_GT(kept, 10);
    db().open(file());
  }
}
