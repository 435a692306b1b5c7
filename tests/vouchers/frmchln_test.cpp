#include "vouchers/bill_fixture.h"

namespace {

class Frmchln : public BillTest {};

}  // namespace

TEST_F(Frmchln, RefusalsKeepTheFocusAndTheText) {
  db().exec("INSERT INTO CHLN (VOUCH_NO, BOOK_CD, CHLN_TYP, CHLN_NO) VALUES (7, 'CH', 'DC', '7')");
  startChallan();
  struct Case {
    const char *field, *typed, *message, *focus;
  };
  const std::vector<Case> cases = {
      {"Text1(0)",      "7",        "ITEM ALLREADY EXIST",                         "Text1(0)"     },
      {"MaskEdBox1(0)", "3113",     "",                                            "MaskEdBox1(0)"},
      {"Text1(4)",      "A00077",   "PARTY NOT FOUND PLEASE CHECK THE PARTY CODE", "Text1(4)"     },
      {"Text1(24)",     "",         "Can Not Accept Blank",                        "Text1(24)"    },
      {"Text1(24)",     "7",        "Duplicate Challan Number Not Allowed",        "Text1(24)"    },
      {"Text1(24)",     "9",        "",                                            "Text1(5)"     },
      {"Text1(5)",      "I0000099", "item does not exist",                         "Text1(5)"     },
      {"Text1(5)",      "I0000002", "",                                            "Text1(10)"    },
      {"Text1(7)",      "BOX",      "Unit Not Found",                              "Text1(7)"     },
  };
  for (const Case& c : cases) {
    host.messages.clear();
    host.fillEnter(c.field, c.typed);
    EXPECT_EQ(host.lastMessage() + "/" + host.focus(), c.message + ("/" + std::string(c.focus)));
    if (!host.messages.empty()) {
      EXPECT_EQ(host.text(c.field), c.typed);
    }
  }
  host.fill("Text1(0)", "0");
  host.fill("MaskEdBox1(0)", "15062026");
  host.go("Text1(11)");
  host.enter();
  host.press("CMDSAVE");
  EXPECT_EQ(host.lastMessage() + host.messages.back().title, "Invalid EntryMirav Check");
  host.fill("Text1(0)", "8");
  host.fill("Text1(4)", "A00077");
  saveGoods();
  EXPECT_EQ(line("SELECT PARTY_CD, NET_AMT FROM CHLN WHERE VOUCH_NO = 8"), "A00077|0")
      << "no test of the party";
}

TEST_F(Frmchln, ModifyShowsTheChallanAndRewritesIt) {
  startChallan("A00004");
  typeGoods("I0000001", "2", "100");
  host.fillEnter("Text1(19)", "10");
  host.keys({KeyCode::Enter, KeyCode::Enter});
  saveGoods();
  db().exec("INSERT INTO CHLN (VOUCH_NO, BOOK_CD, CHLN_TYP, CHLN_NO) VALUES (2, 'CH', 'DC', '2')");
  for (const char* table : {"CHLN", "CHLNITM"}) {
    db().exec(std::string("INSERT INTO ") + table + " (VOUCH_NO, BOOK_CD) VALUES (3, 'CH')");
    for (const Column& column : db().columns(table))
      if (column.name != "VOUCH_NO" && column.name != "BOOK_CD")
        db().exec(std::string("UPDATE ") + table + " SET " + column.name + " = NULL WHERE VOUCH_NO = 3");
  }
  host.press("cmdEDIT");
  host.fillEnter("Text1(0)", "9");
  EXPECT_EQ(host.focus() + fields({0, 4}), "Text1(0)9|") << "nothing happens";
  EXPECT_TRUE(host.messages.empty());
  host.fillEnter("Text1(0)", "1");
  EXPECT_EQ(host.focus() + host.text("Text2"), "MaskEdBox1(0)O'NEIL & ભાઈ");
  EXPECT_EQ(fields({15, 23, 24, 4, 18, 26, 11, 19, 20, 28}), "PO/7|DC|1|A00004|200|2|.|10|20|180");
  EXPECT_EQ(fields({5, 6, 7, 8, 9, 14}), "I0000001|CEILING FAN|PCS|2|100|200");
  host.fillEnter("Text1(24)", "2");
  EXPECT_EQ(host.lastMessage(), "Duplicate Challan Number Not Allowed");
  host.messages.clear();
  host.fillEnter("Text1(24)", "1");
  EXPECT_TRUE(host.messages.empty()) << "its own number";
  host.fillEnter("Text1(0)", "3");
  EXPECT_EQ(fields({4, 15, 18, 28, 5, 8}) + host.text("Text2"), "||0|0||0") << "all of it Null";
  host.fillEnter("Text1(0)", "1");
  host.fillEnter("MaskEdBox1(0)", "20062026");
  saveGoods();
  EXPECT_EQ(line("SELECT VOUCH_DT, NET_AMT, (SELECT GROUP_CONCAT(DISTINCT VOUCH_DT) FROM CHLNITM WHERE"
                 " VOUCH_NO = 1), (SELECT GROUP_CONCAT(VOUCH_DT) FROM ALEDGER) FROM CHLN WHERE VOUCH_NO = 1"),
            "2026-06-20|180|2026-06-20|2026-06-20,2026-06-20");
}
