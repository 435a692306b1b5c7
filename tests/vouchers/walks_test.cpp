#include "base/figure.h"
#include "vouchers/bill_fixture.h"
#include "vouchers/numbering.h"

namespace {

// The same voucher typed by one who goes on with Enter, by one who uses Tab, and with the mouse.
class Walks : public BillTest {
 protected:
  enum class By { Enter, Tab, Mouse };
  struct Voucher {
    std::string screen, kind;
    std::vector<std::pair<std::string, std::string>> typed;
  };

  // Fields whose empty Enter opens a list are passed by Tab by everybody.
  void walkTo(const std::string& field, By by) {
    static const std::string lists = " ship_to transport destination ";
    for (int i = 0; i < 40 && host.focus() != field; ++i) {
      const bool empty = host.text(host.focus()).empty();
      const bool opens = empty && lists.find(" " + host.focus() + " ") != std::string::npos;
      const bool ends = empty && host.focus() == "item";
      host.key(by == By::Tab || opens ? KeyCode::Tab : ends ? KeyCode::PgDn : KeyCode::Enter);
    }
    EXPECT_EQ(host.focus(), field);
  }
  void pointTo(const std::string& field) {
    if (field == "item" && !host.text("item").empty()) {
      host.go("amount");
      host.key(KeyCode::Tab);
    }
    host.go(field);
  }
  void typeAll(const Voucher& v, By by) {
    for (const auto& [field, text] : v.typed) {
      by == By::Mouse ? pointTo(field) : walkTo(field, by);
      host.type(text);
    }
  }
  // The rows that the walk stores.
  std::string walked(const Voucher& v, By by) {
    const std::vector<std::string> tables = {"SALE", "SALEITM", "QUOT",   "QUOTITM",
                                             "CHLN", "CHLNITM", "RPTPAY", "ALEDGER"};
    for (const std::string& table : tables) db().exec("DELETE FROM " + table);
    host.open(v.screen, {.entryType = v.kind});
    host.press("cmdadd");
    typeAll(v, by);
    if (by == By::Mouse) host.go("date");
    const bool money = v.screen == "bwrcpy";
    host.insideModal.push_back([this] { host.escape(); });
    by == By::Mouse ? host.press(money ? "cmdUpdate" : "CMDSAVE")
                    : host.keys({by == By::Tab ? KeyCode::Tab : KeyCode::Enter, KeyCode::Enter});
    host.closeTop();
    std::string rows;
    for (const std::string& table : tables)
      for (const Row& row : db().all("SELECT * FROM " + table)) {
        rows += "\n" + table;
        for (int i = 0; i < row.count(); ++i)
          if (row.text(i) != "0") rows += " " + row.name(i) + "=" + row.text(i);
      }
    return rows;
  }
  std::vector<Voucher> vouchers() {
    db().exec(
        "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, GROUP_CD, STATECD) VALUES ('A00011', 'VIDYUT', 135, 27)");
    using Typed = std::vector<std::pair<std::string, std::string>>;
    const Typed line = {
        {"item",     "I0000001"},
        {"quantity", "3"       },
        {"rate",     "33.33"   }
    };
    const auto with = [&](Typed head, const std::string& last) {
      head.insert(head.end(), line.begin(), line.end());
      head.insert(head.end(), {
                                  {"item",     "I0000002"},
                                  {"quantity", "5"       },
                                  {"rate",     "100"     },
                                  {last,       "7"       }
      });
      return head;
    };
    return {
        {"GSTSAPU",                                           "SALE",         with({{"party", "A00001"}},                                                                                               "parcels")},
        {"GSTSAPU",                                                   "PURCHASE",                                                         with({{"party", "A00011"}, {"bill_no", "P/9"}},                                                                                                                     "parcels")},
        {"FRMCHLN",                                         "CH",                                                       with({{"party", "A00001"}, {"challan_type", "DC"}},                                                   "destination")},
        {"FRMQUOT", "QUOTATION",with({{"party", "A00002"}, {"subject", "FANS"}},                 "subject_to")},
        {"bwrcpy",                                        "RECEIPT",                                                             {{"party", "A00001"}, {"amount", "250"}, {"narration", "ON ACCOUNT"}}                                                                                                                                                       },
        {"bwrcpy",                                            "PAYMENT",          {{"party", "A00011"}, {"amount", "75.5"}, {"narration", "ADVANCE"}}},
    };
  }
};

}  // namespace

TEST_F(Walks, AVoucherIsTheSameByEnterByTabAndByMouse) {
  for (const Voucher& v : vouchers()) {
    const std::string byEnter = walked(v, By::Enter);
    EXPECT_NE(byEnter, "") << v.kind;
    EXPECT_EQ(walked(v, By::Tab), byEnter) << v.kind << " by Tab";
    EXPECT_EQ(walked(v, By::Mouse), byEnter) << v.kind << " by mouse";
  }
  EXPECT_TRUE(host.messages.empty() && host.questions.empty()) << host.lastMessage();
}

// Of two who have a voucher open the second to store it is told, sees what stands, and nothing that was
// deleted comes back unasked.
TEST_F(Walks, WhatAnotherProgramDidMeanwhileStands) {
  Database other;
  other.open(folder / "M00126.mdb");
  for (const Voucher& v : vouchers()) {
    SCOPED_TRACE(v.kind);
    const VoucherKind& kind = *kindByEntryType(v.kind);
    const bool money = kind.tables.lines.empty();
    const std::string field = money ? "amount" : "rate", table = money ? "RPTPAY" : kind.tables.lines;
    const std::string figure = money ? "AMOUNT" : "RATE", save = money ? "cmdUpdate" : "CMDSAVE";
    const std::string heads = kind.tables.heads, gone = "SELECT COUNT(*) FROM " + heads;
    walked(v, By::Enter);
    other.exec("CREATE TEMP TABLE THEIRS AS SELECT * FROM " + heads);
    other.exec("UPDATE THEIRS SET PARTY_CD = 'A00099'");
    const auto change = [&](int to) {
      other.exec("UPDATE " + table + " SET " + figure + " = ? WHERE VOUCH_NO = 1", to);
    };
    const auto stored = [&] {
      return line("SELECT COUNT(*), MIN(VAL(" + figure + ")), (" + gone + ") FROM " + table);
    };
    const std::string lines = money ? "1" : "2", now = lines + "|7|1";
    const auto open = [&](const std::string& button) {
      host.open(v.screen, {.entryType = v.kind});
      host.press(button);
      host.fillEnter("number", "1");
    };
    const auto typeAndSave = [&] {
      host.fill(field, "5");
      host.go(v.typed.back().first);
      host.enter();
      host.press(save);
    };
    open("cmdEDIT");
    change(7);
    host.answers = {false, true};
    typeAndSave();
    EXPECT_EQ(stored(), now) << "what was typed stays to be looked at, and is not stored";
    host.press(save);
    EXPECT_TRUE(host.lastQuestion().starts_with("Voucher No 1 Has Been Changed Meanwhile"))
        << host.lastQuestion();
    EXPECT_EQ(stored() + " " + host.text(field) + host.focus(), now + " 7date");
    // As it is shown now it may be stored, unless it is gone by then.
    for (const std::string& each : {heads, kind.tables.lines})
      if (!each.empty()) other.exec("DELETE FROM " + each);
    host.answers = {false, true};
    typeAndSave();
    EXPECT_EQ(line(gone) + host.lastQuestion(),
              "0Voucher No 1 Has Been Deleted Meanwhile\nSave What Stands Here As A New One ?");
    host.insideModal.push_back([this] { host.escape(); });
    host.press(save);
    EXPECT_EQ(stored(), lines + "|5|1");
    host.closeTop();

    host.answers = {true, false};
    host.whileAsked = [&] { change(7); };
    open("CMDDELETE");
    EXPECT_EQ(stored(), now) << "asked again over what stands";
    EXPECT_TRUE(host.answers.empty());
    host.answers = {true};
    host.fillEnter("number", "1");
    EXPECT_EQ(line(gone), "0");
    EXPECT_EQ(host.screen().reason.ends_with("Posting Is Due"), v.kind != "QUOTATION" && !money);
    host.closeTop();

    // One typed afresh takes the next number, on its paper too.
    host.open(v.screen, {.entryType = v.kind});
    host.press("cmdadd");
    typeAll(v, By::Enter);
    other.exec("INSERT INTO " + heads + " SELECT * FROM THEIRS");
    other.exec("DROP TABLE THEIRS");
    host.enter();
    host.insideModal.push_back([this] { host.escape(); });
    host.press(save);
    const bool own = kind.numbering.runsOn && !kind.numbering.number.empty();
    EXPECT_TRUE(host.lastMessage().starts_with(takenWords("Voucher No", "1", "2"))) << host.lastMessage();
    EXPECT_EQ(host.lastMessage().find("This One Is", 60) != std::string::npos, own)
        << "and that on its paper";
    EXPECT_EQ(line("SELECT MAX(VOUCH_NO), COUNT(DISTINCT " + (own ? kind.numbering.number : "VOUCH_NO") +
                   "), (SELECT COUNT(*) FROM " + table + " WHERE VOUCH_NO = 2) FROM " + heads),
              "2|2|" + lines);
    host.closeTop();
  }
}

// What Enter has done is not done again, and a stored bill is walked over without a trace.
TEST_F(Walks, ALineIsStoredOnFiguresForItsOwnInputs) {
  open();
  startBill();
  host.fillEnter("item", "I0000002");
  host.fillEnter("quantity", "1");
  host.fillEnter("rate", "100");
  host.fillEnter("discount", "0");
  EXPECT_EQ(shown("cgst_amount amount"), "9|118");
  host.fill("quantity", "5");
  host.go("amount");
  EXPECT_EQ(shown("cgst_amount amount"), "9|118") << "a quantity values nothing by itself";
  host.enter();
  EXPECT_EQ(line("SELECT QUANTITY, CGSTAMT, SGSTAMT, NET_AMOUNT FROM T_SLITM"), "5|45|45|590");
  host.key(KeyCode::Up);
  host.go("cgst_amount");
  host.go("item");  // open once it has been left
  host.fillEnter("cgst_amount", "44.5");
  host.go("amount");
  host.enter();
  EXPECT_EQ(line("SELECT CGSTAMT, SGSTAMT, NET_AMOUNT FROM T_SLITM"), "44.5|45|589.5") << "typed for these";
  host.key(KeyCode::Up);
  host.fill("quantity", "9999999");
  host.fillEnter("rate", "9999999");
  host.go("amount");
  host.enter();
  EXPECT_EQ(host.lastMessage() + host.focus(), std::string(kFigureRefused) + "amount");
  EXPECT_EQ(line("SELECT NET_AMOUNT FROM T_SLITM"), "589.5");
  EXPECT_TRUE(figureRefused("1234567890.123456") && figureRefused("-10000000000001") && figureRefused("inf"));
  EXPECT_FALSE(figureRefused("0.00000000000000001") || figureRefused("10000000000000"));
}

// Whatever the mouse or the arrows do meanwhile: a net amount typed by hand, a line that is not stored yet.
TEST_F(Walks, WhatIsTypedInALineIsNotDroppedUnasked) {
  open();
  startBill();
  host.fillEnter("item", "I0000001");  // brings rate and discount
  host.fill("quantity", "1");
  host.fill("amount", "1700");
  host.go("item");
  host.answers = {false};
  host.key(KeyCode::Down);
  EXPECT_EQ(host.lastQuestion() + shown("item cgst_amount amount"),
            "The Line Being Typed Is Not Stored\nGive It Up ?I0000001|135.79|1700");
  saveAfter("parcels");
  EXPECT_EQ(line("SELECT CGSTAMT, NET_AMOUNT FROM SALEITM"), "135.79|1700");
  startBill();
  typeLine("I0000003", "2", "20", "0");
  typeLine("I0000003", "1", "50", "0");
  host.key(KeyCode::Up);
  host.fill("rate", "70");
  host.answers = {false, true};
  host.rowTo(host.at("lines"), 0);
  EXPECT_EQ(shown("line_no rate") + host.focus(), "2|70item");
  host.rowTo(host.at("lines"), 0);
  EXPECT_EQ(shown("rate") + host.focus(), "20lines");
  host.answers = {true};
  host.escape();
}

TEST_F(Walks, SaveLooksOnceMore) {
  open();
  startBill();
  typeLine("I0000003", "2", "20", "0");
  typeLine("I0000003", "1", "50", "0");
  host.keys({KeyCode::Up, KeyCode::F10, KeyCode::Down});
  host.fill("item", "I0000003");
  host.fill("rate", "70");
  host.fillEnter("parcels", "1");
  host.press("CMDSAVE");
  EXPECT_EQ(host.focus(), "quantity") << "the line in the entry row has none";
  host.fill("quantity", "1");
  host.go("parcels");
  db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO) VALUES (1, 'SA', 'TAX', '0001')");
  // The number on the paper was typed: another one's is refused. What the program gave it gives anew.
  db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO) VALUES (9, 'SA', 'TAX', '0002')");
  host.fill("bill_no", "0002");
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage() + host.focus(), "Duplicate Bill No Not Allowedbill_no");
  EXPECT_EQ(shown("number bill_no"), "1|0002");
  host.fill("bill_no", "");
  host.fillEnter("bill_type", "TAX");
  host.go("parcels");
  // A series that runs into a number further down in it: the next free one stands there.
  db().exec("UPDATE SALE SET BILL_NO = '0003' WHERE VOUCH_NO = 9");
  db().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BL_TYPE, BILL_NO) VALUES (8, 'SA', 'TAX', '0004')");
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage() + shown("bill_no"), "Duplicate Bill No Not Allowed0005");
  host.go("parcels");
  saveAfter("parcels");
  EXPECT_EQ(host.lastMessage(), "Voucher No 1 Has Been Taken Meanwhile\nThis One Is 10 Now");
  EXPECT_EQ(line("SELECT BILL_NO, NET_AMT, (SELECT COUNT(*) FROM SALEITM) FROM SALE WHERE VOUCH_NO = 10"),
            "0005|110|2");
  startBill();
  host.fillEnter("parcels", "1");
  host.answers = {false};
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastQuestion() + line("SELECT COUNT(*) FROM SALE"),
            "This Voucher Has No Line\nSave It All The Same ?4");
}
