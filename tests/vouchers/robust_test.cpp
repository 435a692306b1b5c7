#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ctime>
#include <map>
#include <random>
#include <thread>

#include "base/text.h"
#include "platform/utf8.h"
#include "vouchers/bill_fixture.h"
#include "vouchers/numbering.h"

namespace {

class Robust : public BillTest {
 protected:
  // Runs work on a connection of its own in another process; its answer is below 256.
  template <class Work>
  pid_t elsewhere(Work work) {
    const pid_t child = fork();
    if (child != 0) return child;
    Database own;
    own.open(folder / "M00126.mdb");
    _exit(work(own));
  }
  static int answerOf(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  // The disk holds no byte more while it stands.
  class FullDisk {
   public:
    explicit FullDisk(const std::filesystem::path& file) : handler_(signal(SIGXFSZ, SIG_IGN)) {
      getrlimit(RLIMIT_FSIZE, &before_);
      const rlimit now{std::filesystem::file_size(file), before_.rlim_max};
      setrlimit(RLIMIT_FSIZE, &now);
    }
    ~FullDisk() {
      setrlimit(RLIMIT_FSIZE, &before_);
      signal(SIGXFSZ, handler_);
    }

   private:
    rlimit before_{};
    void (*handler_)(int);
  };
};

}  // namespace

TEST_F(Robust, WhatIsDeletedUnderABillIsToldOrKept) {
  startBill();
  typeLine("I0000001", "2", "100", "0");
  db().exec("DELETE FROM ACCOUNT WHERE ACC_CD = 'A00001'");
  db().exec("DELETE FROM ITEM WHERE ITEM_CD = 'I0000001'");
  host.fillEnter("Text1(45)", "1");
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage(), "Invalid Entry");
  EXPECT_EQ(host.text("Text1(28)") + host.screen().mode, "236ADD") << "nothing of the bill is lost";
  host.fill("Text1(4)", "A00002");
  save();
  EXPECT_EQ(line("SELECT PARTY_CD, NET_AMT FROM SALE"), "A00002|236");
  host.press("cmdEDIT");
  host.fillEnter("Text1(0)", "1");
  EXPECT_EQ(host.text("Text1(5)") + "/" + host.text("Text1(6)") + "/" + host.text("Text1(14)"),
            "I0000001//236");
}

TEST_F(Robust, TwoProgramsNeverShareANumber) {
  const auto fifty = [](Database& own) {
    int saved = 0;
    for (int tries = 0; tries < 50; ++tries) {
      own.exec("DELETE FROM T_SLITM");
      workLine(own, "I0000001", 1, 1);
      saved +=
          saveBill(own, saleBook(), bill(lastVoucher(own, saleBook()).number + 1), stamp(), Saving::Fresh);
    }
    return saved;
  };
  const pid_t one = elsewhere(fifty), other = elsewhere(fifty);
  const int saved = answerOf(one) + answerOf(other);
  EXPECT_GE(saved, 50);
  const std::string all = std::to_string(saved);
  EXPECT_EQ(line("SELECT COUNT(*), MAX(VOUCH_NO), (SELECT COUNT(*) FROM SALEITM) FROM SALE"),
            all + "|" + all + "|" + all);
  EXPECT_EQ(unbalanced(db()), "");
}

TEST_F(Robust, AFullDiskKeepsTheBillOnTheScreen) {
  db().exec("CREATE TABLE FILLER AS SELECT randomblob(50000)");  // no page is left free
  startBill();
  for (int n = 1; n <= 150; ++n) typeLine("I0000001", std::to_string(n), "100", "0");
  host.fillEnter("Text1(45)", "1");
  // The file may not grow, by the system's word and by the engine's.
  const auto refused = [&](const std::string& words) {
    host.press("CMDSAVE");
    EXPECT_NE(host.lastMessage().find(words), std::string::npos) << host.lastMessage();
    EXPECT_EQ(host.messages.back().title, "Mirav Message");
    EXPECT_EQ(host.focus() + host.screen().mode, "CMDSAVEADD");
    EXPECT_EQ(line("SELECT COUNT(*), SUM(VOUCH_NO) FROM T_SLITM"), "150|150");
    EXPECT_EQ(
        line("SELECT COUNT(*), (SELECT COUNT(*) FROM SALEITM), (SELECT COUNT(*) FROM ALEDGER) FROM SALE"),
        "0|0|0");
  };
  {
    const FullDisk full(db().file());
    refused("M00126.mdb cannot be read or written: the disk reports an error");
  }
  db().exec("PRAGMA max_page_count = 1");  // takes the size that it has
  refused("The disk is full. Nothing was stored in M00126.mdb");
  db().exec("PRAGMA max_page_count = 1000000");
  save();
  EXPECT_EQ(line("SELECT COUNT(*) FROM SALEITM") + unbalanced(db()), "150");
  EXPECT_EQ(line("PRAGMA integrity_check"), "ok");
}

// Apostrophes, Gujarati and signs, as many as a field takes, come back as they were typed.
TEST_F(Robust, FieldsFilledToTheirLimitComeBack) {
  startBill();
  host.fillEnter("Text1(5)", "MISC");
  const auto fill = [&](int field) {
    const std::string name = "Text1(" + std::to_string(field) + ")";
    host.fill(name, "");
    std::string text;
    while (utf8::length(text) < 300) text += "O'N \"ગુજરાતી\" %_\\; ";
    host.type(text);
    const std::string kept = host.text(name);
    EXPECT_EQ(utf8::length(kept), static_cast<size_t>(host.at(name).limit)) << name;
    EXPECT_EQ(kept, cut(text, host.at(name).limit));
    return kept;
  };
  std::map<int, std::string> typed;
  for (const int field : {46, 7, 47, 43, 16, 29, 41, 40}) typed[field] = trim(fill(field));
  host.fill("Text1(8)", "999999999.999");
  host.go("Text1(14)");
  host.enter();
  typed[42] = trim(fill(42));
  host.enter();
  host.fill("Text1(27)", std::string(20, '9'));
  save();
  EXPECT_EQ(unbalanced(db()), "");
  EXPECT_EQ(line("SELECT COUNT(DISTINCT SUBSTR(NARRATION, 1, 150)), LENGTH(TRANSNAME) FROM ALEDGER, TRANSMAST"
                 " WHERE TRANS_ID = 2"),
            "1|50");
  host.press("cmdEDIT");
  host.fillEnter("Text1(0)", "1");
  for (const auto& [field, text] : typed)
    EXPECT_EQ(trim(host.text("Text1(" + std::to_string(field) + ")")), text);
  EXPECT_EQ(host.text("Text1(8)"), "999999999.999");
  EXPECT_EQ(host.text("Text1(55)"), "2");
}

TEST_F(Robust, AHundredCroreComesOutToThePaisa) {
  startBill();
  typeLine("I0000002", "1", "847457627.12", "0");
  EXPECT_EQ(host.text("Text1(28)") + "/" + host.text("Text1(38)"), "1000000000/0");
  typeLine("I0000002", "1", "0.37", "0");
  save();
  EXPECT_NE(closingWords.find("   Invoice AMOUNT : 1000000000\n"), std::string::npos);
  EXPECT_EQ(
      line("SELECT NUMTEXT(ITEM_AMT), NUMTEXT(TCGSTRT), NUMTEXT(NET_AMT), NUMTEXT(ROUND_OFF) FROM SALE"),
      "847457627.49|76271186.47|1000000000|-0.43");
  EXPECT_EQ(unbalanced(db()), "");
}

TEST_F(Robust, TheFiveHundredthLineIsAsQuickAsTheFirst) {
  startBill();
  double seconds = 0;
  for (int n = 1; n <= 500; ++n) {
    host.fillEnter("Text1(5)", "I0000001");
    host.fill("Text1(8)", "1");
    host.go("Text1(11)");
    host.enter();
    const clock_t start = std::clock();
    host.enter();
    if (n > 450) seconds += static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  }
  EXPECT_EQ(host.text("Label1(0)") + "/" + host.text("Text1(26)"), "501/500");
  EXPECT_LT(seconds / 50, 0.016);
  save();
  EXPECT_EQ(line("SELECT COUNT(*), COUNT(DISTINCT SR_NO) FROM SALEITM"), "500|500");
}

// A program that dies in the middle of a hundred saves leaves each bill whole or not there.
TEST_F(Robust, KilledAtAnyMomentABillIsWholeOrNothing) {
  std::minstd_rand random(7);
  for (int round = 0; round < 12; ++round) {
    const pid_t child = elsewhere([](Database& own) {
      for (int n = 1; n <= 100; ++n) {
        own.exec("DELETE FROM T_SLITM");
        for (int k = 1; k <= 4; ++k) workLine(own, "I0000001", k + n, k);
        saveBill(own, saleBook(), bill(1 + n % 5, 118 + n), stamp(), Saving::Again);
      }
      return 0;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(10 + random() % 150));
    kill(child, SIGKILL);
    answerOf(child);
    Database after;
    after.open(folder / "M00126.mdb");
    EXPECT_EQ(
        after.text("SELECT GROUP_CONCAT(VOUCH_NO) FROM SALE WHERE (SELECT COUNT(*) * 1000 + MIN(QUANTITY)"
                   " FROM SALEITM AS L WHERE L.VOUCH_NO = SALE.VOUCH_NO) <> 4000 + NET_AMT - 117"),
        "");
    EXPECT_EQ(unbalanced(after), "");
    EXPECT_EQ(after.number("SELECT COUNT(*) FROM ALEDGER WHERE VOUCH_NO NOT IN (SELECT VOUCH_NO FROM SALE)"),
              0);
    EXPECT_EQ(after.text("PRAGMA integrity_check"), "ok");
  }
  EXPECT_NE(line("SELECT COUNT(*) FROM SALE"), "0") << "some bill had the time to be saved";
}
