#include "documents/vsetfrm.h"

#include <fstream>

#include "documents/screens.h"
#include "invoice_fixture.h"

namespace {

class DesignScreen : public InvoiceTest {
 protected:
  DesignScreen() {
    addDocumentScreens(screens);
    session().mbillformat = 3;
    session().mquotformat = 7;
    session().mchlnformat = 8;
    host.open("VSETFRM");
  }
  std::string field(int index) const { return host.text("txtFields(" + std::to_string(index) + ")"); }
  double setting(int number) const {
    return data().number("SELECT VOUCH_QTY FROM SPSFILE WHERE VOUCH_NO = ?", number);
  }

  Screens screens;
  TestHost host{screens};
};

TEST_F(DesignScreen, ShowsTheDesignsInUseAndChecksEachNumberAsItIsTyped) {
  EXPECT_EQ(field(9) + field(10) + field(11), "378");
  const char* const bills = "Please select Design Number 1 to 6 only";
  const std::tuple<int, const char*, const char*, const char*> cases[] = {
      {9,  "6",  "6", ""                                       },
      {9,  "0",  "1", bills                                    },
      {9,  "7",  "1", bills                                    },
      {9,  "62", "1", bills                                    },
      {10, "8",  "1", "Please select Design Number 7 only"     },
      {10, "7",  "7", ""                                       },
      {11, "7",  "1", "Please select Design Number 8 or 9 only"},
      {11, "9",  "9", ""                                       },
      {11, "",   "",  ""                                       },
  };
  for (const auto& [index, typed, stands, message] : cases) {
    host.messages.clear();
    host.fill("txtFields(" + std::to_string(index) + ")", typed);
    EXPECT_EQ(field(index), stands) << index << " " << typed;
    EXPECT_EQ(host.lastMessage(), message) << index << " " << typed;
    EXPECT_LE(host.messages.size(), 1u);
  }
}

TEST_F(DesignScreen, KeepsTheDesignsWhenAllPass) {
  host.fill("txtFields(9)", "5");
  host.fill("txtFields(11)", "9");
  host.press("cmdsetvset");
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(session().mbillformat, 5);
  EXPECT_EQ(session().mchlnformat, 9);
  EXPECT_EQ(setting(371), 5);
  EXPECT_EQ(setting(372), 7);
  EXPECT_EQ(setting(373), 9);

  // The first that fails stops; what a refusal left standing is refused again.
  host.fill("txtFields(9)", "2");
  host.fill("txtFields(10)", "8");
  host.fill("txtFields(11)", "");
  host.messages.clear();
  host.press("cmdsetvset");
  ASSERT_EQ(host.messages.size(), 1u);
  EXPECT_EQ(host.lastMessage(), "Please select Design Number 7 only");
  EXPECT_EQ(host.focus(), "txtFields(10)");
  EXPECT_EQ(field(10), "1");
  EXPECT_EQ(session().mbillformat, 5);
  EXPECT_EQ(setting(371), 5);

  host.fill("txtFields(10)", "7");
  host.press("cmdsetvset");
  EXPECT_EQ(host.lastMessage(), "Please select Design Number 8 or 9 only");
  EXPECT_EQ(field(11), "1");
}

TEST_F(DesignScreen, ShowsADesignWithItsPicture) {
  std::filesystem::create_directories(folder / "pics");
  std::ofstream(folder / "pics" / "QUOTITM7.JPG") << "picture";
  data().exec("UPDATE HIDELINESET SET QUERYNM = '' WHERE SRNO = 7");
  host.press("VIEWDSGN(4)");
  EXPECT_EQ(host.at("Image1").picture, "");
  EXPECT_EQ(host.text("lblnone"), "No Picture Of This Design");
  EXPECT_EQ(host.hint(), "Press Enter To View Design");

  host.press("VIEWDSGN(7)");
  EXPECT_EQ(host.at("Image1").picture, (folder / "pics" / "QUOTITM7.JPG").string());
  EXPECT_EQ(host.text("lblnone"), "");
  std::vector<std::string> shown;
  for (const int index : {0, 1, 2, 18, 3, 21, 5, 6, 7, 8, 4, 20}) shown.push_back(field(index));
  // The query is empty in the row: what stood there stays.
  EXPECT_EQ(shown, (std::vector<std::string>{"7", "QUOTATION", "QUOTITM", "QUOT", "GSTBLPRN", "15", "14",
                                             "22", "1", "7", "1", "QUOTATION"}));

  data().exec("DELETE FROM HIDELINESET WHERE SRNO = 2");
  host.press("VIEWDSGN(2)");
  EXPECT_EQ(host.lastMessage(), "ENTRY NOT FOUND");
  data().exec("DELETE FROM HIDELINESET");
  host.press("VIEWDSGN(1)");
  EXPECT_EQ(host.lastMessage(), "No Record To Display");
}

TEST_F(DesignScreen, ClosesByButtonOrAfterAQuestion) {
  host.answers = {false, true};
  host.escape();
  EXPECT_EQ(host.lastQuestion(), "Do you want to exit");
  EXPECT_EQ(host.onTop(), "VSETFRM");
  host.escape();
  EXPECT_EQ(host.onTop(), "");
  host.open("VSETFRM");
  host.press("Command1");
  EXPECT_EQ(host.onTop(), "");
}

}  // namespace
