#include "documents/messaging.h"

#include "vouchers/bill_fixture.h"

namespace {

class Messaging : public BillTest {};

}  // namespace

TEST(SavedMessage, IsTakenApartForTheWindow) {
  const SavedMessage m = savedMessage(
      "          Sale Entry Saved\r\n   Entry No : 148\r\n   Party Name : A : B & CO\r\n   Invoice AMOUNT : "
      "53472\r\n"
      "\r\n      ___E_Way_Reminder___\r\n   Value Of Bill Exceeds Rs. 50000/- \r\n   E-Way Bill To Be "
      "Generated\r\n\r\n"
      "   Press Print Btn\r\n   Press New Entry Btn");
  EXPECT_EQ(m.head, "Sale Entry Saved");
  ASSERT_EQ(m.facts.size(), 3U);
  EXPECT_EQ(m.facts[1].name, "Party Name :");
  EXPECT_EQ(m.facts[1].value, "A : B & CO");
  EXPECT_EQ(m.reminder.size(), 3U);
  EXPECT_EQ(m.hints, (std::vector<std::string>{"Press Print Btn", "Press New Entry Btn"}));
  EXPECT_TRUE(savedMessage("  Saved\n   Entry No   : 1\n\n\n   Press Print").reminder.empty());
}

TEST(HandOff, NothingBreaksOutOfTheThirdArgument) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"Hello",                 "9800000023 Hello"                },
      {"a\" & del *\r\nb",      "9800000023 a' & del * b"         },
      {"ends in a backslash\\", "9800000023 ends in a backslash\\"},
      {"બિલ નં. 5",   "9800000023 બિલ નં. 5"  },
  };
  for (const auto& [text, third] : cases)
    EXPECT_EQ(whatsAppHandOff("/opt/mirav", "9800000023", text).arguments,
              (std::vector<std::string>{"TEXT", "1", third}));
}

TEST_F(Messaging, TheWindowAnswersAndOffersTheHandOff) {
  Interaction what{
      .text = "Send The Bill", .asks = true, .typed = "", .whatsApp = true, .phone = "980000002"};
  host.insideModal = {[&] {
    EXPECT_EQ(host.focus(), "Text1");
    host.press("cmdwapp");
    EXPECT_EQ(host.lastMessage(), "Invalid Phone Number");
    sendWhatsApp(host, "98000000234", "eleven");
    EXPECT_EQ(host.messages.size(), 2U);
    host.go("Text1");
    host.type("Dear Sir");
    host.enter();
  }};
  EXPECT_TRUE(interact(host, what));
  EXPECT_EQ(what.typed, "Dear Sir");
  EXPECT_TRUE(host.launched.empty());

  what.phone = "9800000023";
  host.processes = {"WhatsappSupport.exe"};
  host.insideModal = {[&] {
    host.press("cmdwapp");
    EXPECT_EQ(host.lastMessage(), "Pending Messages in Que \nPlease Wait for Previous Messages to Finish");
    EXPECT_EQ(host.messages.back().title, "Mirav Confirmation Message");
    host.processes.clear();
    host.press("cmdwapp");
    host.escape();
  }};
  EXPECT_FALSE(interact(host, what));
  EXPECT_FALSE(session().mmsgok);
  ASSERT_EQ(host.launched.size(), 1U);
  EXPECT_EQ(host.launched[0], folder.path().string() + "/WhatsappSupport.exe TEXT 1 9800000023 Dear Sir");
}
