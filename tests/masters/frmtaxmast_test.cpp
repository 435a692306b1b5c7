#include "masters/small_masters.h"
#include "masters_fixture.h"

namespace {

class SmallMasterTest : public MastersTest {
 protected:
  void open(const std::string& key) {
    session().mmastkey = key;
    host.start("frmtaxmast");
  }
  void remove(const std::string& code, std::deque<bool> answers) {
    host.press("cmdDelete");
    host.answers = std::move(answers);
    host.fillEnter("txtFields(0)", code);
    EXPECT_TRUE(host.answers.empty());
  }
};

TEST_F(SmallMasterTest, CategoriesAreNumberedAndSaved) {
  open("catg");
  EXPECT_EQ(host.screen().caption, "Category Master");
  const std::string before = nextSmallCode(smallMaster("catg", ""), data());
  host.press("cmdAdd");
  EXPECT_EQ(host.screen().caption, "Category Master : ADD MODE");
  EXPECT_EQ(host.text("txtFields(0)"), before);
  EXPECT_EQ(host.focus(), "txtFields(1)");
  host.enter();
  EXPECT_EQ(host.lastMessage(), "Blank Not Allowed");
  host.fillEnter("txtFields(1)", "fans");
  host.fill("txtFields(2)", "xy");
  EXPECT_EQ(host.text("txtFields(2)"), "Y") << "Y or N and nothing else";
  host.fill("txtFields(3)", "8414");
  host.fill("txtFields(5)", "18");
  host.press("cmdUpdate");
  EXPECT_EQ(row("SELECT DEPT_NAME, GROUPING, HSNCODE, ITEMDESC, RATEOFTAX, RATEOFCESS, NOCOUNT_STK, MOBNOCO, "
                "DATASENT "
                "FROM DEPTMENT WHERE DEPT_CD = ?",
                before),
            "FANS|Y|8414||18|0|N|9090909090|N");
  host.fillEnter("txtFields(1)", "FANS");
  EXPECT_EQ(host.lastMessage(), "Duplicate Not Allowed");
  host.press("cmdCancel");
  host.press("cmdEdit");
  EXPECT_EQ(host.screen().caption, "Category Master EDIT MODE");
  host.insideModal.push_back([&] {
    host.key(KeyCode::Right);
    host.type("FANS");
    host.enter();
  });
  host.enter();
  host.fill("txtFields(5)", "12");
  host.press("cmdUpdate");
  EXPECT_EQ(row("SELECT DEPT_NAME, RATEOFTAX FROM DEPTMENT WHERE DEPT_CD = ?", before), "FANS|12");

  data().exec("INSERT INTO ITEM (ITEM_CD, ITEM_NAME, DEPT_CD) VALUES ('I0000001', 'FAN', ?)", before);
  host.press("cmdCancel");
  remove(before, {true});
  EXPECT_EQ(host.lastMessage(), "THERE ARE ITEMS LINKED TO THIS CATEGORY");
  data().exec("DELETE FROM ITEM WHERE ITEM_CD = 'I0000001'");
  remove(before, {true});
  EXPECT_EQ(row("SELECT DEPT_NAME FROM DEPTMENT WHERE DEPT_CD = ?", before), "none");
}

TEST_F(SmallMasterTest, TaxesNeedAnAccount) {
  open("tax");
  host.press("cmdAdd");
  EXPECT_EQ(host.text("txtFields(0)"), "34");
  host.type("CESS");
  host.enter();
  host.fillEnter("txtFields(2)", "2.5");
  host.enter();
  EXPECT_EQ(host.focus(), "txtFields(4)");
  host.fillEnter("txtFields(4)", "A99999");
  EXPECT_EQ(host.lastMessage(), "Please Select Proper ACCOUNT Code");
  host.fillEnter("txtFields(4)", "X90061");
  EXPECT_EQ(host.text("txtFields(5)"), "OUTPUT CGST");
  EXPECT_EQ(host.focus(), "cmdUpdate");
  host.enter();
  EXPECT_EQ(row("SELECT NAME, RATE, FORM_PRINT, TAX_ACC, TAX_ACNM FROM DISCHTAX WHERE CODE = 34"),
            "CESS|2.5|N|X90061|OUTPUT CGST");

  // In use in a sale it stays; the table of purchases does not exist and is no hindrance.
  host.press("cmdCancel");
  data().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, TAX_CD1) VALUES (1, 'SA', 34)");
  remove("34", {true});
  EXPECT_EQ(row("SELECT COUNT(*) FROM DISCHTAX WHERE CODE = 34"), "1");
  data().exec("DELETE FROM SALE");
  remove("34", {true});
  EXPECT_EQ(row("SELECT COUNT(*) FROM DISCHTAX WHERE CODE = 34"), "0");
  host.press("cmdDelete");
  host.fillEnter("txtFields(0)", "34");
  EXPECT_EQ(host.lastMessage(), "Record Not Found");
  host.press("cmdCancel");
  host.press("cmdEdit");
  host.fillEnter("txtFields(0)", "34");
  EXPECT_EQ(host.lastMessage(), "CODE DOES NOT EXIST");
}

TEST_F(SmallMasterTest, TransportersBeginWithLocal) {
  open("TRANS");
  EXPECT_EQ(row("SELECT TRANS_ID, TRANSNAME, TADD1, TRANS_GOV_ID FROM TRANSMAST"), "1|LOCAL|.|.");
  host.press("cmdAdd");
  EXPECT_EQ(host.text("txtFields(0)"), "2");
  host.type("vrl");
  host.press("cmdUpdate");
  for (int n = 1; n <= 3; ++n)
    data().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, TRANS_CD) VALUES (?, 'SA', 2)", n);
  host.press("cmdCancel");
  remove("2", {true, false});
  EXPECT_EQ(host.lastQuestion(),
            "This Transport Id is Used In 3 & Sales Entries\r\nDo You Still Want To DELETE");
  EXPECT_EQ(row("SELECT COUNT(*) FROM TRANSMAST"), "2");
  remove("2", {true, true});
  EXPECT_EQ(row("SELECT TRANSNAME FROM TRANSMAST"), "LOCAL");
}

TEST_F(SmallMasterTest, GroupsStandUnderGroups) {
  open("grpmst");
  host.press("cmdAdd");
  EXPECT_EQ(host.focus(), "txtFields(0)");
  host.type("85");
  host.enter();
  EXPECT_EQ(host.lastMessage(), "Duplicate Not Allowed");
  host.fillEnter("txtFields(0)", "86");
  host.type("OTHER DEBITORS");
  host.enter();
  for (const char* wrong : {"999", "86"}) {
    host.fillEnter("txtFields(2)", wrong);
    EXPECT_EQ(host.lastMessage(), "Wrong Selection");
  }
  host.fillEnter("txtFields(2)", "78");
  EXPECT_EQ(host.text("lblGroup"), "CURRENT ASSETS");
  host.enter();
  EXPECT_EQ(row("SELECT GROUP_NAME, SUB_GROUP FROM GRP WHERE GROUP_CD = 86"), "OTHER DEBITORS|78");
}

TEST_F(SmallMasterTest, ATableThatIsMissingTakesNothing) {
  for (const char* key : {"GWDN", "sman", "narr", "RCTYPENT"}) {
    open(key);
    host.press("cmdAdd");
    for (const auto& c : host.screen().controls)
      if (c->family == "txtFields" && c->spec->limit != 1)
        Screen::set(*c, c->spec->label == "A/c Code" ? "X90005" : "K1");
    host.press("cmdUpdate");
    EXPECT_EQ(host.lastMessage().substr(0, 15), "Entry Not Saved") << key;
    host.press("cmdCancel");
    host.press("cmdClose");
  }
}

TEST_F(SmallMasterTest, NarrationsAreTheirOwnKey) {
  data().exec("CREATE TABLE NARRATN (narr_name TEXT(200) COLLATE NOCASE)");
  open("narr");
  host.press("cmdAdd");
  host.type("BEING GOODS SOLD");
  host.press("cmdUpdate");
  host.type("being goods sold");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "Duplicate Not Allowed");
  host.press("cmdCancel");
  host.press("cmdEdit");
  host.insideModal.push_back([&] { host.enter(); });
  host.enter();
  host.fill("txtFields(0)", "BEING CASH RECEIVED");
  host.press("cmdUpdate");
  EXPECT_EQ(row("SELECT GROUP_CONCAT(narr_name) FROM NARRATN"), "BEING CASH RECEIVED");
  host.press("cmdCancel");
  remove("being cash received", {true});
  EXPECT_EQ(row("SELECT COUNT(*) FROM NARRATN"), "0");
}

TEST_F(SmallMasterTest, UsersStandInTheCatalogue) {
  session().mentrytype = "USERFORM";
  open("");
  EXPECT_EQ(host.screen().caption, "User Master");
  host.press("cmdAdd");
  host.type("RAMESH");
  host.press("cmdUpdate");
  EXPECT_EQ(catalogue().text("SELECT USER_NAME FROM USER1"), "RAMESH");
  host.press("cmdCancel");
  session().musertype = "M";
  host.press("cmdEdit");
  EXPECT_EQ(host.lastMessage(), "Use Master Password to Edit");
  EXPECT_EQ(host.screen().mode, "");
  remove("ramesh", {true});
  EXPECT_EQ(catalogue().number("SELECT COUNT(*) FROM USER1"), 0);
}

}  // namespace
