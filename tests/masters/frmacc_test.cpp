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
    Screen::set(host.at("name"), c.name);
    Screen::set(host.at("group"), c.group);
    const size_t before = host.messages.size();
    host.key(Key::Alt('U'));
    ASSERT_EQ(host.messages.size(), before + 1);
    EXPECT_EQ(host.lastMessage(), c.message);
    EXPECT_EQ(host.screen().reason, c.reason);
    EXPECT_EQ(host.focus(), "name");
    // Cancel asks where something was typed; who thinks again goes on where he was.
    const bool typed = *c.name != '\0';
    if (typed) host.answers = {false, true};
    if (typed) host.press("cmdCancel");
    EXPECT_EQ(host.focus() + host.text("name"), std::string("name") + c.name);
    host.press("cmdCancel");
  }
  EXPECT_EQ(row("SELECT COUNT(*) FROM ACCOUNT WHERE ACC_CD LIKE 'A%'"), "2");
}

// The three keys of a save: the state comes from the GSTIN, or is asked for and the save goes on.
TEST_F(AccountTest, APartyIsStoredWithItsState) {
  host.press("cmdAdd");
  host.type("OF NO STATE");
  host.keys({KeyCode::Enter, KeyCode::Enter});
  host.answers = {true};
  host.enter();
  EXPECT_EQ(host.lastMessage() + host.focus(),
            "Please Fill Proper State Code\r\nFor Gujarat it is 24state_code");
  EXPECT_EQ(stored("A00008"), "none");
  host.type("२७");
  host.enter();
  EXPECT_EQ(stored("A00008"), "OF NO STATE|85|0|0|0||||27");
  host.type("WITH GSTIN");
  host.fill("gstin", "24ABCDE1234F1Z5");
  host.press("cmdUpdate");
  EXPECT_EQ(stored("A00009"), "WITH GSTIN|85|0|0|0||ABCDE1234F|24ABCDE1234F1Z5|24");
  host.type("RENT");
  host.fill("group", "33");
  host.press("cmdUpdate");
  EXPECT_EQ(stored("A00010"), "RENT|33|0|0|0||||0") << "no party";
}

// Another program takes the code, or deletes the account, in the meantime.
TEST_F(AccountTest, WhatAnotherProgramDidIsNotWrittenOver) {
  host.press("cmdAdd");
  host.type("NEW PARTY");
  host.fill("state_code", "24");
  account("A00008", "OF ANOTHER PROGRAM");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "PARTY ALREADY EXISTS\nThis One Is A00009 Now");
  EXPECT_EQ(row("SELECT ACC_NAME FROM ACCOUNT WHERE ACC_CD = 'A00009'"), "NEW PARTY");
  host.press("cmdCancel");
  host.press("cmdEdit");
  host.fillEnter("code", "A00007");
  data().exec("DELETE FROM ACCOUNT WHERE ACC_CD = 'A00007'");
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastMessage(), "Entry Not Saved\r\nPARTY DOES NOT EXISTS");
  EXPECT_EQ(host.screen().mode, "EDIT");
  EXPECT_EQ(stored("A00007"), "none");

  host.press("cmdCancel");
  host.press("cmdEdit");
  host.fillEnter("code", "A00003");
  data().exec("UPDATE ACCOUNT SET CL_BAL = 500 WHERE ACC_CD = 'A00003'");  // which is not the screen's
  host.fill("city", "SURAT");
  data().exec("UPDATE ACCOUNT SET PHONE1 = '98250' WHERE ACC_CD = 'A00003'");
  host.answers = {false, true};
  host.press("cmdUpdate");
  EXPECT_EQ(host.text("city"), "SURAT") << "what was typed is kept";
  host.press("cmdUpdate");
  EXPECT_EQ(host.lastQuestion().substr(0, 37), "This Entry Has Been Changed Meanwhile");
  EXPECT_EQ(host.text("phone") + "|" + host.text("city"), "98250|ANAND");
  host.fill("city", "SURAT");
  host.press("cmdUpdate");
  EXPECT_EQ(row("SELECT PHONE1, CITY FROM ACCOUNT WHERE ACC_CD = 'A00003'"), "98250|SURAT");
}

TEST_F(AccountTest, WhatIsNamedDoesNotGo) {
  const auto remove = [&](const std::string& code) {
    host.messages.clear();
    host.answers = {true};
    host.press("cmdDelete");
    host.fillEnter("code", code);
    return host.messages.empty() ? "" : host.lastMessage();
  };
  const struct {
    const char *named, *words;
  } cases[] = {
      {"INSERT INTO SALE (VOUCH_NO, BOOK_CD, PARTY_CD) VALUES (7, 'SA', 'A00007')",
       "There is SALE Entry For This ACCOUNT Pl. Merge ACCOUNT"         },
      {"INSERT INTO CHLN (VOUCH_NO, BOOK_CD, PARTY_CD) VALUES (7, 'CH', 'A00007')",
       "There Is Challan 7 For This Account\r\nCan Not Delete"          },
      {"INSERT INTO ALEDGER (VOUCH_NO, BOOK_CD, PARTY_CD) VALUES (7, 'SA', 'A00007')",
       "There Is Ledger Entry SA 7 For This Account\r\nCan Not Delete :: Posting Removes What Deleted"
       " Vouchers Left"                                                 },
      {"UPDATE ACCOUNT SET OP_BAL = -12.5 WHERE ACC_CD = 'A00007'",
       "The Opening Balance Of This Account Is -12.50\r\nCan Not Delete"},
      {"UPDATE SPSFILE SET VOUCH_CD = 'A00007' WHERE VOUCH_NO = 156",
       "This Account Is Set As SALE CHARGES A/C CODE\r\nCan Not Delete" },
  };
  for (const auto& c : cases) {
    const Transaction forAWhile(data());
    data().exec(c.named);
    EXPECT_EQ(remove("A00007"), c.words);
  }
  EXPECT_EQ(remove("X90066"), "This Account Belongs To The System\r\nCan Not Delete");
  EXPECT_NE(stored("A00007"), "none");
  data().exec(
      "INSERT INTO PRTYRATE (RT_DT, ACC_CD, ITEM_CD, SIZE_CD) VALUES ('2026-01-01', 'A00007', 'I1', 'P')");
  EXPECT_EQ(remove("A00007"), "");
  EXPECT_EQ(stored("A00007") + row("SELECT COUNT(*) FROM PRTYRATE"), "none0");
}

TEST_F(AccountTest, EditReadsTheRowAndChangesIt) {
  data().exec(
      "INSERT INTO ALEDGER (BOOK_CD, VOUCH_NO, PARTY_CD, VOUCH_TYPE, VOUCH_AMT) VALUES ('SA', 1, 'A00007', "
      "'D', 118)");
  host.press("cmdEdit");
  host.fillEnter("code", "A00099");
  EXPECT_EQ(host.lastMessage(), "PARTY DOES NOT EXISTS");
  EXPECT_EQ(host.focus(), "code");
  session().mlastacc = "A00007";
  host.insideModal.push_back([&] { host.enter(); });
  host.fillEnter("code", "");
  EXPECT_EQ(host.text("code"), "A00007");
  EXPECT_EQ(host.text("name"), "AMBICA CEMENT");
  EXPECT_EQ(host.focus(), "name");
  host.fill("name", "PATEL TRADING");  // a name in use, which only ADD tests
  host.enter();
  host.fill("city", "NADIAD");
  host.press("cmdUpdate");
  EXPECT_EQ(stored("A00007"), "PATEL TRADING|85|0|118|0|NADIAD|||24");
  EXPECT_EQ(row("SELECT COUNT(*) FROM ACCOUNT WHERE ACC_NAME = 'PATEL TRADING'"), "2");
  EXPECT_EQ(host.screen().mode, "ADD") << "the next entry follows";

  // Another code typed over a row that is shown is read before anything is written.
  host.press("cmdCancel");
  host.press("cmdEdit");
  host.fillEnter("code", "A00007");
  host.fill("city", "SURAT");
  host.fill("code", "A00003");
  host.answers = {false, true};
  host.key(Key::Alt('U'));
  EXPECT_EQ(host.text("code") + host.text("city"), "A00007SURAT") << "what was typed is not lost unasked";
  host.fill("code", "A00003");
  host.key(Key::Alt('U'));
  EXPECT_EQ(host.text("city"), "ANAND");
  EXPECT_EQ(row("SELECT CITY FROM ACCOUNT WHERE ACC_CD = 'A00003'"), "ANAND");
}

}  // namespace
