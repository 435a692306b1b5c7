#include "masters/frmacc.h"

#include "frame/full_disk.h"
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

TEST_F(AccountTest, NameGroupAndBalanceAreEnough) {
  host.press("cmdAdd");
  host.type("shree balaji");
  host.keys({KeyCode::Enter, KeyCode::Enter});
  host.type("-250.5");
  host.answers = {true};
  host.enter();
  EXPECT_EQ(host.lastQuestion(), "Save Entry = Yes ::  Enter Other Details = No");
  EXPECT_EQ(stored("A00008"), "SHREE BALAJI|85|-250.5|-250.5|0||||0");
  EXPECT_EQ(row("SELECT ANOTHER_CD, GSTREGTYP, USER_CD, ENT_DT, ENT_TIME, MOBNOCO, DATANM, DATASENT FROM "
                "ACCOUNT WHERE "
                "ACC_CD = 'A00008'"),
            "S001|.||2026-06-15|10:30|9090909090|M00124|N");
  EXPECT_EQ(session().mlastacc, "A00008");
  EXPECT_EQ(host.screen().mode, "ADD");
  EXPECT_EQ(host.text("txtFields(0)"), "A00009");
  EXPECT_EQ(host.text("txtFields(1)"), "");
  EXPECT_EQ(host.focus(), "txtFields(1)");
}

TEST_F(AccountTest, FieldsRefuseWithTheirWords) {
  host.press("cmdAdd");
  host.enter();
  EXPECT_EQ(host.lastMessage(), "YOU MUST HAVE TO ENTER PARTY NAME");
  host.key(KeyCode::Tab);
  EXPECT_EQ(host.lastMessage(), "Please Fill Complete Data or Press Enter for Help");
  host.fillEnter("txtFields(1)", "ambica cement");
  EXPECT_EQ(host.lastMessage(),
            "Duplicate Party Name Not Allowed\r\nMake Spelling Difference with '.' or something Else");
  EXPECT_EQ(host.messages.back().title, "Mirav Message");
  EXPECT_EQ(host.focus(), "txtFields(1)");
  EXPECT_TRUE(host.at("txtFields(1)").refused);
  host.fillEnter("txtFields(1)", "AMBICA CEMENT.");
  host.fillEnter("txtFields(2)", "12");
  EXPECT_EQ(host.lastMessage(), "group not found");
  EXPECT_EQ(host.focus(), "txtFields(2)");
  host.insideModal.push_back([&] {
    for (size_t i = 0; i < host.at("grdDataGrid").grid.count(); ++i)
      EXPECT_GT(std::stoi(host.cell("grdDataGrid", i, 0)), 6);
    host.key(KeyCode::Right);
    host.type("fixed");
    host.enter();
  });
  host.fillEnter("txtFields(2)", "");
  EXPECT_EQ(host.text("txtFields(2)"), "75");
  EXPECT_EQ(host.focus(), "txtFields(3)");

  host.fillEnter("txtFields(44)", "24ABC");
  EXPECT_EQ(host.lastMessage(),
            "INVALID GSTIN NO \r\nRE-CHECK GSTIN NO \r\nSOFTWARE WILL PROCEED WITHOUT GSTIN NO ");
  EXPECT_EQ(host.text("txtFields(44)"), ".");
  EXPECT_EQ(host.focus(), "txtFields(45)");
  host.enter();
  EXPECT_EQ(host.lastMessage(), "Please Fill Proper State Code\r\nFor Gujarat it is 24");
  host.key(Key::Shift(KeyCode::Tab));
  EXPECT_EQ(host.focus(), "txtFields(45)");
  host.fill("txtFields(45)", "24");
  host.fillEnter("txtFields(44)", "24AAPFU0939F1ZV");
  EXPECT_NE(host.screen().reason, "") << "a number that cannot be right is hinted at";
}

TEST_F(AccountTest, WhatIsIncompleteIsNotSaved) {
  struct Case {
    const char *name, *group, *message, *reason;
  };
  const Case cases[] = {
      {"",              "85", "Pl. fill Complete data",                                           "Name Is Missing"      },
      {"NEW PARTY",     "",   "Pl. fill Complete data",                                           "Group Code Is Missing"},
      {"NEW PARTY",     "12", "group not found",                                                  ""                     },
      {"AMBICA CEMENT", "85",
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

TEST_F(AccountTest, ASaveThatFailsStoresNothing) {
  data().exec("CREATE TRIGGER full BEFORE INSERT ON ACCOUNT BEGIN SELECT RAISE(ABORT, 'no room'); END");
  host.press("cmdAdd");
  host.type("NEW PARTY");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "Entry Not Saved\r\nno room");
  EXPECT_EQ(host.text("txtFields(1)"), "NEW PARTY");
  EXPECT_EQ(host.screen().mode, "ADD");
  EXPECT_FALSE(data().inTransaction());

  data().exec("DROP TRIGGER full");
  // Past A99999 the code no longer fits its column.
  account("A99999", "LAST");
  host.press("cmdCancel");
  host.press("cmdAdd");
  EXPECT_EQ(host.text("txtFields(0)"), "A100000");
  host.type("ONE MORE");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "Entry Not Saved\r\nA/c Code Takes 6 Characters");
  EXPECT_EQ(row("SELECT COUNT(*) FROM ACCOUNT WHERE ACC_NAME = 'ONE MORE'"), "0");
}

TEST_F(AccountTest, AFullDiskLeavesTheEntryOnTheScreen) {
  host.press("cmdAdd");
  host.type("NEW PARTY");
  {
    const FullDisk full;
    host.press("cmdUpdate");
  }
  EXPECT_NE(host.lastMessage().find("M00124.mdb cannot be read or written"), std::string::npos);
  EXPECT_EQ(host.text("txtFields(1)"), "NEW PARTY");
  EXPECT_FALSE(data().inTransaction());
  EXPECT_EQ(stored("A00008"), "none");
  host.press("cmdUpdate");
  EXPECT_EQ(stored("A00008"), "NEW PARTY|85|0|0|0||||0");
}

TEST_F(AccountTest, AnAccountDeletedInTheMeantimeIsNotSaved) {
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

TEST_F(AccountTest, ACodeTakenInTheMeantimeIsMadeAnew) {
  host.press("cmdAdd");
  host.type("NEW PARTY");
  account("A00008", "OF ANOTHER PROGRAM");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "PARTY ALREADY EXISTS");
  host.press("cmdUpdate");
  EXPECT_EQ(row("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = 'A00009'"), "NEW PARTY");
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

TEST_F(AccountTest, DeletingAsksAndGuards) {
  data().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, PARTY_CD) VALUES (1, 'SA', 'A00007')");
  const auto remove = [&](const char* code, bool yes) {
    host.press("cmdDelete");
    host.answers = {yes};
    host.fillEnter("txtFields(0)", code);
    EXPECT_EQ(host.screen().mode, "");
  };
  remove("A00007", true);
  EXPECT_EQ(host.questions.back().text + "|" + host.questions.back().title,
            "ARE YOU SURE|Mirav Confirmation Message");
  EXPECT_EQ(host.lastMessage(), "There is SALE Entry For This ACCOUNT Pl. Merge ACCOUNT");
  remove("A00003", false);
  EXPECT_EQ(row("SELECT COUNT(*) FROM ACCOUNT WHERE ACC_CD LIKE 'A%'"), "2");
  remove("A00003", true);
  EXPECT_EQ(row("SELECT COUNT(*) FROM ACCOUNT WHERE ACC_CD LIKE 'A%'"), "1");
  host.press("cmdDelete");
  host.fill("txtFields(0)", "A00003");
  host.key(KeyCode::Tab);
  EXPECT_EQ(host.lastMessage(), "PARTY DOES NOT EXIST");
  EXPECT_EQ(host.focus(), "txtFields(0)");
  account("A00003", "PATEL TRADING");
  host.answers = {true};
  host.key(KeyCode::Tab);
  EXPECT_EQ(row("SELECT COUNT(*) FROM ACCOUNT WHERE ACC_CD LIKE 'A%'"), "1");
  EXPECT_EQ(host.focus(), "cmdAdd");
}

TEST_F(AccountTest, FunctionKeysSearchByOtherColumns) {
  data().exec("UPDATE ACCOUNT SET AREA = 'VIDYANAGAR' WHERE ACC_CD = 'A00003'");
  host.press("cmdEdit");
  host.insideModal.push_back([&] {
    host.key(KeyCode::Right);
    host.type("vidya");
    host.enter();
  });
  host.key(KeyCode::F1);
  EXPECT_EQ(host.text("txtFields(1)"), "PATEL TRADING");
  host.insideModal.push_back([&] {
    EXPECT_EQ(host.cell("grdDataGrid", 0, 1), "AMBICA CEMENT") << "by name, for want of a party's type";
    host.escape();
  });
  host.key(KeyCode::F4);
}

TEST_F(AccountTest, EscapeAsksWhileSomethingIsEntered) {
  host.press("cmdAdd");
  host.answers = {false, true};
  host.escape();
  EXPECT_EQ(host.lastQuestion(), "Do you want to Exit");
  EXPECT_EQ(host.onTop(), "frmacc");
  host.escape();
  EXPECT_EQ(host.onTop(), "");
}

TEST_F(AccountTest, EscapeClosesTheOtherModesAtOnce) {
  host.press("cmdDelete");
  host.escape();
  EXPECT_TRUE(host.questions.empty());
  EXPECT_EQ(host.onTop(), "");
  EXPECT_EQ(session().mactiveforms, 0);
}

TEST_F(AccountTest, ACallerGetsTheNewCode) {
  host.press("cmdClose");
  host.start("GSTSAPU");
  host.insideModal.push_back([&] {
    EXPECT_EQ(host.screen().mode, "ADD");
    host.type("WALK IN");
    host.press("cmdUpdate");
  });
  host.key(KeyCode::Insert);
  EXPECT_EQ(host.text("Text1(0)"), "A00008");
  EXPECT_EQ(host.onTop(), "GSTSAPU");
}

}  // namespace
