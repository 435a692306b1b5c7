#include "masters/frmacc.h"

#include "masters_fixture.h"

namespace {

class AccountTest : public MastersTest {
 protected:
  AccountTest() {
    account("A00007", "AMBICA CEMENT");
    account("A00003", "PATEL TRADING");
    host.start("frmacc");
  }
  std::string stored(const std::string& code) const {
    return row(
        "SELECT ACC_NAME, GROUP_CD, OP_BAL, CL_BAL, CREDIT_DAY, CITY, BANK_NAME, GSTINNO, STATECD FROM "
        "ACCOUNT "
        "WHERE ACC_CD = ?",
        code);
  }
};

TEST_F(AccountTest, FieldsAreNotLeftWithoutTheirDue) {
  host.press("cmdAdd");
  host.key(KeyCode::Tab);
  EXPECT_EQ(host.lastMessage(), "Please Fill Complete Data or Press Enter for Help");
  EXPECT_TRUE(host.at("txtFields(1)").refused);
  host.fill("txtFields(1)", "NEW PARTY");
  host.insideModal.push_back([&] {
    for (size_t i = 0; i < host.at("grdDataGrid").grid.count(); ++i)
      EXPECT_GT(std::stoi(host.cell("grdDataGrid", i, 0)), 6) << "the roots are not offered";
    host.escape();
  });
  host.fillEnter("txtFields(2)", "");
  host.fill("txtFields(2)", "75");
  host.go("txtFields(45)");
  host.key(Key::Shift(KeyCode::Tab));
  EXPECT_EQ(host.lastMessage(), "Please Fill Proper State Code\r\nFor Gujarat it is 24");
  host.fill("txtFields(45)", "24");
  host.fillEnter("txtFields(44)", "24AAPFU0939F1ZV");
  EXPECT_NE(host.screen().reason, "") << "a number that cannot be right is hinted at";
  host.fillEnter("txtFields(44)", "27AAPFU0939F1ZV");
  EXPECT_EQ(host.screen().reason, "");
}

TEST_F(AccountTest, WhatIsIncompleteIsNotSaved) {
  struct Case {
    const char *name, *group, *message, *reason;
  };
  const Case cases[] = {
      {"",                "85", "Pl. fill Complete data",                                         "Name Is Missing"      },
      {"NEW PARTY",       "",   "Pl. fill Complete data",                                         "Group Code Is Missing"},
      {"NEW PARTY",       "12", "group not found",                                                ""                     },
      {" ambica cement ", "85",
       "Duplicate Party Name Not Allowed\r\nMake Spelling Difference with '.' or something Else", ""                     },
  };
  for (const Case& c : cases) {
    host.press("cmdAdd");
    Screen::set(host.at("txtFields(1)"), c.name);
    Screen::set(host.at("txtFields(2)"), c.group);
    const size_t before = host.messages.size();
    host.key(Key::Alt('U'));
    ASSERT_EQ(host.messages.size(), before + 1);
    EXPECT_EQ(host.lastMessage(), c.message);
    EXPECT_EQ(host.screen().reason, c.reason);
    EXPECT_EQ(host.focus(), "txtFields(1)");
    host.press("cmdCancel");
  }
  EXPECT_EQ(row("SELECT COUNT(*) FROM ACCOUNT WHERE ACC_CD LIKE 'A%'"), "2");
}

// Another program takes the code, or deletes the account, in the meantime.
TEST_F(AccountTest, WhatAnotherProgramDidIsNotWrittenOver) {
  host.press("cmdAdd");
  host.type("NEW PARTY");
  account("A00008", "OF ANOTHER PROGRAM");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "PARTY ALREADY EXISTS");
  host.press("cmdUpdate");
  EXPECT_EQ(row("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = 'A00009'"), "NEW PARTY");
  host.press("cmdCancel");
  host.press("cmdEdit");
  host.fillEnter("txtFields(0)", "A00007");
  data().exec("DELETE FROM ACCOUNT WHERE ACC_CD = 'A00007'");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "Entry Not Saved\r\nPARTY DOES NOT EXISTS");
  EXPECT_EQ(host.screen().mode, "EDIT");
  EXPECT_EQ(stored("A00007"), "none");
}

TEST_F(AccountTest, NamesOfAnySignsAreStoredFoundAndTestedAsTheyAre) {
  const std::string longName(98, 'M');
  // Pasted, since the keys of a name turn letters to capitals and leave out some signs.
  const struct {
    std::string pasted, stored, part;
  } cases[] = {
      {"O'Brien & \"SONS\"",                    "O'Brien & \"SONS\"",                    "o'brien & \"S"        },
      {"100%_[A]+{B}^(C)*?\\D",                 "100%_[A]+{B}^(C)*?\\D",                 "%_[A]+{B}"            },
      {"મહેતા સ્ટોર્સ", "મહેતા સ્ટોર્સ", "સ્ટોર્સ"},
      {"  Blanks Around  ",                     "Blanks Around",                         "BLANKS"               },
      {longName + "ક્ષxyz",               longName + "ક્",                     longName               },
  };
  account("A00009", "LAST");
  int number = 10;
  for (const auto& c : cases) {
    const std::string code = "A000" + std::to_string(number++);
    host.press("cmdAdd");
    host.paste(c.pasted);
    EXPECT_EQ(host.at("DataGrid1").grid.count(), 0u) << c.pasted;
    host.press("cmdUpdate");
    ASSERT_EQ(row("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = ?", code), c.stored);
    host.paste(c.part);
    EXPECT_EQ(host.cell("DataGrid1", 0, 0), c.stored);
    host.fill("txtFields(1)", "");
    host.paste(c.stored);
    host.enter();
    EXPECT_EQ(host.lastMessage().substr(0, 32), "Duplicate Party Name Not Allowed") << c.stored;
    host.press("cmdCancel");
  }
}

TEST_F(AccountTest, EditReadsTheRowAndChangesIt) {
  host.press("cmdEdit");
  host.fillEnter("txtFields(0)", "A00099");
  EXPECT_EQ(host.lastMessage(), "PARTY DOES NOT EXISTS");
  EXPECT_EQ(host.focus(), "txtFields(0)");
  session().mlastacc = "A00007";
  host.insideModal.push_back([&] { host.enter(); });
  host.fillEnter("txtFields(0)", "");
  EXPECT_EQ(host.text("txtFields(0)"), "A00007");
  EXPECT_EQ(host.text("txtFields(1)"), "AMBICA CEMENT");
  EXPECT_EQ(host.focus(), "txtFields(1)");
  host.fill("txtFields(1)", "PATEL TRADING");  // a name in use, which only ADD tests
  host.enter();
  host.fill("txtFields(7)", "NADIAD");
  host.press("cmdUpdate");
  EXPECT_EQ(stored("A00007"), "PATEL TRADING|85|0|0|0|NADIAD|||0");
  EXPECT_EQ(row("SELECT COUNT(*) FROM ACCOUNT WHERE ACC_NAME = 'PATEL TRADING'"), "2");
  EXPECT_EQ(host.screen().mode, "ADD") << "the next entry follows";

  // Another code typed over a row that is shown is read before anything is written.
  host.press("cmdCancel");
  host.press("cmdEdit");
  host.fillEnter("txtFields(0)", "A00007");
  host.fill("txtFields(7)", "SURAT");
  host.fill("txtFields(0)", "A00003");
  host.key(Key::Alt('U'));
  EXPECT_EQ(host.text("txtFields(7)"), "ANAND");
  EXPECT_EQ(row("SELECT CITY FROM ACCOUNT WHERE ACC_CD = 'A00003'"), "ANAND");
}

}  // namespace
