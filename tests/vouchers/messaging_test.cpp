#include "documents/messaging.h"

#include "vouchers/bill_fixture.h"

namespace {

class Messaging : public BillTest {};

}  // namespace

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

TEST_F(Messaging, TheWindowLaysOutWhatWasSaved) {
  Interaction closing{
      .saved = SavedMessage{.head = "Saved",
                            .facts = {{"Entry No", "148"}, {"Party Name", "A : B\n& CO"}},
                            .hints = {"Press Ok"}}
  };
  host.insideModal = {[&] {
    EXPECT_EQ(host.text("lblhead") + host.text("lblname(1)") + host.text("lblvalue(1)"),
              "SavedParty Name :A : B\n& CO");
    EXPECT_EQ(host.text("lblhint(0)"), "Press Ok");
    EXPECT_FALSE(host.at("lblreminder").visible || host.at("lblvalue(2)").visible);
    host.press("OKButton");
  }};
  EXPECT_TRUE(interact(host, closing));
  closing.saved->eWayReminder = true;
  host.insideModal = {[&] {
    EXPECT_TRUE(host.at("lblreminder").visible);
    host.escape();
  }};
  EXPECT_FALSE(interact(host, closing));
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
  ASSERT_EQ(host.launched.size(), 1U);
  EXPECT_EQ(host.launched[0], folder.path().string() + "/WhatsappSupport.exe TEXT 1 9800000023 Dear Sir");
}
