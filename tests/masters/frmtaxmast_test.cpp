#include "masters/small_masters.h"
#include "masters_fixture.h"

namespace {

class SmallMasterTest : public MastersTest {
 protected:
  static Opening opening(const std::string& key) {
    return key == "USERFORM" ? Opening{.entryType = key} : Opening{.masterKey = key};
  }
  void open(const std::string& key) { host.open("frmtaxmast", opening(key)); }
  void remove(const std::string& code, std::deque<bool> answers) {
    host.press("cmdDelete");
    host.answers = std::move(answers);
    host.fillEnter("txtFields(0)", code);
    EXPECT_TRUE(host.answers.empty());
  }
};

struct Master {
  const char *key, *caption, *table, *code;
  std::vector<std::string> fields;
  const char* stored;   // the row of the code
  const char* inUse;    // a statement that makes it stand in use, none where nothing guards
  const char* refusal;  // the message or question that follows, with its title
  const char* missing;  // a table that only older databases have
};

// clang-format off
const Master kMasters[] = {
    {"catg",     "Category Master",     "DEPTMENT",  "E002",   {"", "FANS", "y", "8414", "", "18", "1"},
     "E002|FANS|Y|N|8414||18|1|9090909090|M00124|N",
     "INSERT INTO ITEM (ITEM_CD, ITEM_NAME, DEPT_CD) VALUES ('I0000001', 'FAN', 'E002')",
     "THERE ARE ITEMS LINKED TO THIS CATEGORY|Mirav Message", ""},
    {"tax",      "Tax Master",          "DISCHTAX",  "34",     {"", "CESS", "2.5", "", "X90061"},
     "34|CESS|2.5|N|X90061|OUTPUT CGST|9090909090|M00124|N",
     "INSERT INTO SALE (VOUCH_NO, BOOK_CD, TAX_CD1) VALUES (1, 'SA', 34)",
     "There is Sale Entry For This Tax Code\r\nCan Not Delete|Mirav Message", ""},
    {"TRANS",    "Transport Master",    "TRANSMAST", "2",      {"", "VRL", "GIDC"},
     "2|VRL|GIDC||||||",
     "INSERT INTO SALE (VOUCH_NO, BOOK_CD, TRANS_CD) VALUES (1, 'SA', 2), (2, 'SA', 2)",
     "This Transport Id is Used In 2 & Sales Entries\r\nDo You Still Want To DELETE|Mirav Confirmation Message", ""},
    {"GWDN",     "Godown Master",       "GWDN",      "G1",     {"g1", "MAIN"},
     "G1|MAIN",
     "INSERT INTO SLEDGER VALUES ('G1')",
     "There Is a Stock Entry For This Godown in Stock Ledger\r\nCan Not Delete|Mirav Message",
     "CREATE TABLE GWDN (GWDN_CD TEXT(6) COLLATE NOCASE, GWDN_NAME TEXT(50))"},
    {"sman",     "Salesman Master",     "sman",      "S002",   {"s002", "RAMESH", "GIDC"},
     "S002|RAMESH|GIDC|",
     "UPDATE ACCOUNT SET ANOTHER_CD = 'S002'",
     "This Salesman is used in some Account Master Entries \r\nCan not Delete|Mirav Information",
     "CREATE TABLE sman (sman_cd TEXT(6), sman_name TEXT(50), Sarea TEXT(50), Scity TEXT(50))"},
    {"narr",     "Narration Master",    "NARRATN",   "BEING GOODS SOLD", {"being goods sold"},
     "BEING GOODS SOLD", "", "", "CREATE TABLE NARRATN (narr_name TEXT(200))"},
    {"RCTYPENT", "Receipt Type Master", "RCTYP",     "CARD",   {"card", "X90005", "y"},
     "CARD|X90005|Y", "", "", "CREATE TABLE RCTYP (RTYP TEXT(50), RTYPACC TEXT(6), CHRGYN TEXT(1))"},
    {"grpmst",   "Group Master",        "GRP",       "89",     {"89", "ADVANCES", "78"},
     "89|ADVANCES|78|9090909090|M00124|N",
     "UPDATE ACCOUNT SET GROUP_CD = 89",
     "THERE ARE ACCOUNTS LINKED TO THIS GROUP|Mirav Message", ""},
    {"USERFORM", "User Master",         "USER1",     "RAMESH", {"ramesh"}, "RAMESH|", "", "", ""},
};
// clang-format on

TEST_F(SmallMasterTest, EachKeepsItsRowsAndItsGuard) {
  data().exec("CREATE TABLE SLEDGER (GWDN_CD TEXT(6))");
  for (const Master& m : kMasters) {
    SCOPED_TRACE(m.key);
    Database& db = std::string(m.key) == "USERFORM" ? catalogue() : data();
    const auto field = [](size_t n) { return "txtFields(" + std::to_string(n) + ")"; };
    if (*m.missing) {
      // Without its table a master is empty and takes nothing.
      open(m.key);
      host.press("cmdAdd");
      for (size_t i = 0; i < m.fields.size(); ++i)
        if (m.fields[i].size() > 1) host.fill(field(i), m.fields[i]);
      host.press("cmdUpdate");
      EXPECT_EQ(host.lastMessage().substr(0, 15), "Entry Not Saved");
      host.answers = {true};
      host.press("cmdCancel");
      host.press("cmdClose");
      db.exec(m.missing);
    }
    open(m.key);
    EXPECT_EQ(host.screen().caption, m.caption);
    host.press("cmdAdd");
    EXPECT_EQ(host.screen().caption, std::string(m.caption) + " : ADD MODE");
    for (size_t i = 0; i < m.fields.size(); ++i)
      if (!m.fields[i].empty()) host.fillEnter(field(i), m.fields[i]);
    host.press("cmdUpdate");
    const SmallMaster& master = smallMaster(opening(m.key));
    const auto stored = [&] {
      const auto found = findSmallRow(master, db, m.code);
      std::string text = found ? found->text(0) : "none";
      for (int i = 1; found && i < found->count(); ++i) text += "|" + found->text(i);
      return text;
    };
    EXPECT_EQ(stored(), m.stored);

    // The same name again, then the row itself.
    if (master.code == SmallCode::Typed) host.fill("txtFields(0)", "9");
    const auto name = static_cast<size_t>(master.name);
    host.fillEnter(field(name), m.fields[name]);
    EXPECT_EQ(host.lastMessage(),
              std::string(m.key) == "GWDN" ? "Duplicate Godown Can Not Be Added" : "Duplicate Not Allowed");
    host.answers = {true};
    host.press("cmdCancel");
    host.press("cmdEdit");
    EXPECT_EQ(host.screen().caption, std::string(m.caption) + " EDIT MODE");
    host.fillEnter("txtFields(0)", "777");
    EXPECT_EQ(host.lastMessage(), "CODE DOES NOT EXIST");
    host.fillEnter("txtFields(0)", m.code);
    host.press("cmdUpdate");
    EXPECT_EQ(stored(), m.stored);
    host.press("cmdCancel");

    if (*m.inUse) {
      Transaction forAWhile(db);
      db.exec(m.inUse);
      const bool asks = std::string(m.key) == "TRANS";
      remove(m.code, asks ? std::deque<bool>{true, false} : std::deque<bool>{true});
      const TestHost::Said said =
          asks ? TestHost::Said{host.lastQuestion(), host.questions.back().title} : host.messages.back();
      EXPECT_EQ(said.text + "|" + said.title, m.refusal);
      EXPECT_EQ(stored(), m.stored);
      if (asks) {
        remove(m.code, {true, true});
        EXPECT_EQ(stored(), "none") << "this one can be overruled";
      }
    }
    remove(m.code, {true});
    EXPECT_EQ(stored(), "none");
    host.press("cmdDelete");
    host.fillEnter("txtFields(0)", m.code);
    EXPECT_EQ(host.lastMessage(), "Record Not Found");
    host.escape();
    EXPECT_EQ(host.onTop(), "");
  }
}

TEST_F(SmallMasterTest, AGroupThatOpeningsDeleteIsNotTaken) {
  open("grpmst");
  host.press("cmdAdd");
  for (const auto& [field, typed] : {std::pair("txtFields(0)", "31"), std::pair("txtFields(1)", "ADVANCES"),
                                     std::pair("txtFields(2)", "78")})
    host.fillEnter(field, typed);
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "Group 31 Does Not Stay :: Openings Delete It\r\nPl. Give Another Code");
  EXPECT_EQ(row("SELECT COUNT(*) FROM GRP WHERE GROUP_CD = 31"), "0");
}

TEST_F(SmallMasterTest, TextsThatAreTheirOwnKeyAreRenamed) {
  data().exec("CREATE TABLE NARRATN (narr_name TEXT(200) COLLATE NOCASE)");
  data().exec("INSERT INTO NARRATN VALUES (' BEING GOODS SOLD '), ('BEING CASH PAID')");
  open("narr");
  host.press("cmdEdit");
  host.insideModal.push_back([&] { host.keys({KeyCode::Down, KeyCode::Enter}); });
  host.enter();
  host.fill("txtFields(0)", "being goods sold");
  host.press("cmdUpdate");
  host.fill("txtFields(0)", "BEING CASH RECEIVED");
  host.press("cmdUpdate");
  EXPECT_EQ(row("SELECT GROUP_CONCAT(narr_name) FROM NARRATN"), " BEING GOODS SOLD ,BEING CASH RECEIVED");
  host.press("cmdCancel");
  remove("being goods sold", {true});
  EXPECT_EQ(row("SELECT COUNT(*) FROM NARRATN"), "1");
}

}  // namespace
