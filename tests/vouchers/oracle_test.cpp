#include <cstdio>

#include "base/text.h"
#include "vouchers/bill_fixture.h"

namespace {

class Oracle : public BillTest {
 protected:
  Oracle() {
    for (const double rate : {0.0, 0.25, 3.0, 5.0, 6.0, 12.0, 18.0, 28.0, 7.5, 1.005})
      addItem(db(), "T" + numText(rate * 1000), "TAXED", rate);
    db().exec(
        "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, GROUP_CD, STATECD) VALUES ('A00009', 'NOWHERE', 85, 0)");
  }

  static std::vector<std::string> steps(const std::string& arguments) {
    const std::string folder = std::filesystem::current_path();
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(
        popen(("python3 '" + folder + "/oracle.py' " + arguments).c_str(), "r"), &pclose);
    std::string all;
    for (int ch; (ch = fgetc(pipe.get())) != EOF;) all += static_cast<char>(ch);
    return split(all, "\n");
  }
  void enter(const std::string& field, const std::string& text) {
    host.fill(field, "");
    host.type(text);
    host.enter();
  }

  // Vouchers of nasty figures by keys, each figure as oracle.py beside this file has it; every so many
  // are saved, the others cancelled. The statements give the figures of the last line and voucher.
  void play(const std::string& kind, int count, int savedEach,
            const std::function<void(const std::string& party)>& start, const std::function<void()>& saveIt,
            const std::string& ofLine, const std::string& ofVoucher) {
    int made = 0;
    for (const std::string& record : steps(kind + " 20260615 " + std::to_string(count))) {
      const std::vector<std::string> part = split(record, "\t");
      SCOPED_TRACE(std::to_string(made) + " " + record);
      host.answers = {true, true};  // figures of 0 and below are meant so
      if (part[0] == "start") {
        start(part[1]);
      } else if (part[0] == "enter") {
        enter(part[1], part[2]);
      } else if (part[0] == "over") {
        host.go(part[1]);
        host.go("Text1(14)");
        enter(part[1], part[2]);
        host.go("Text1(14)");
      } else if (part[0] == "pass") {
        host.go(part[1]);
        host.enter();
      } else if (part[0] == "see") {
        EXPECT_EQ(host.text(part[1]), part[2]);
      } else if (part[0] == "line") {
        EXPECT_EQ(line(ofLine), part[1]);
      } else if (part[0] == "total") {
        if (++made % savedEach != 0) {
          host.press("CMDCANCEL");
          continue;
        }
        saveIt();
        EXPECT_EQ(line(ofVoucher), part[1]);
      }
      if (HasFailure()) return;
    }
    EXPECT_EQ(made, count);
  }
};

}  // namespace

TEST_F(Oracle, BillsKeepToIt) {
  play(
      "bill", 400, 10, [this](const std::string& party) { startBill(party); }, [this] { save(); },
      "SELECT NUMTEXT(AMOUNT), NUMTEXT(NET_AMOUNT), NUMTEXT(QUANTITY), NUMTEXT(RATE), NUMTEXT(SALE_DISC)"
      " FROM T_SLITM ORDER BY SR_NO DESC",
      "SELECT NUMTEXT(ITEM_AMT), NUMTEXT(NO_OF_ITEM), NUMTEXT(TCGSTRT), NUMTEXT(TSGSTRT), NUMTEXT(TIGSTRT),"
      " NUMTEXT(NET_AMT), NUMTEXT(ROUND_OFF) FROM SALE ORDER BY VOUCH_NO DESC");
}

TEST_F(Oracle, ChallansKeepToIt) {
  play(
      "challan", 150, 6, [this](const std::string& party) { startChallan(party); }, [this] { saveGoods(); },
      "SELECT NUMTEXT(QUANTITY), NUMTEXT(RATE), NUMTEXT(NET_AMOUNT) FROM T_CHLNITM ORDER BY SR_NO DESC",
      "SELECT NUMTEXT(ITEM_AMT), NUMTEXT(NO_OF_ITEM), NUMTEXT(DISC_PERC), NUMTEXT(DISC_AMT), NUMTEXT(CHRGS),"
      " NUMTEXT(NET_AMT) FROM CHLN ORDER BY VOUCH_NO DESC");
  EXPECT_EQ(line("SELECT COUNT(*), MAX(VOUCH_NO), MAX(VAL(CHLN_NO)) FROM CHLN WHERE (SELECT SUM(VOUCH_AMT)"
                 " FROM ALEDGER AS A WHERE A.VOUCH_NO = CHLN.VOUCH_NO AND A.BOOK_CD = 'CH') = 2 * NET_AMT"),
            "25|25|25");
}

TEST_F(Oracle, OffersKeepToIt) {
  play(
      "offer", 200, 10, [this](const std::string& party) { startOffer(party); }, [this] { saveOffer(); },
      "SELECT NUMTEXT(AMOUNT), NUMTEXT(ASSIVAL), NUMTEXT(QUANTITY), NUMTEXT(RATE), NUMTEXT(DISC)"
      " FROM T_QUOTITM ORDER BY SRNO DESC",
      "SELECT NUMTEXT(ITEM_AMT), NUMTEXT(TOTQTY), NUMTEXT(TCGST), NUMTEXT(TSGST), NUMTEXT(TIGST),"
      " NUMTEXT(NET_AMT) FROM QUOT ORDER BY VOUCH_NO DESC");
}
