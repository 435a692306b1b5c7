#include "documents/messaging.h"

#include <cctype>

#include "base/text.h"
#include "frame/session.h"

namespace {

constexpr const char* kSupportProgram = "WhatsappSupport.exe";
constexpr int kPhoneLength = 10;
constexpr std::string_view kReminder = "___E_Way_Reminder___";

// One line, and nothing in it that ends a quoted argument.
std::string harmless(const std::string& text) {
  std::string out;
  for (const char c : replaceAll(text, "\r\n", "\n")) {
    if (c == '"')
      out += '\'';
    else
      out += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
  }
  return trim(out);
}

}  // namespace

Interaction& comingInteraction() {
  static Interaction coming;
  return coming;
}

bool interact(Host& host, Interaction& what) {
  comingInteraction() = what;
  session().mmsgok = false;
  host.openModal("mymsgfrm", {.caller = {}, .value = what.text});
  if (session().mmsgok) what.typed = comingInteraction().typed;
  comingInteraction() = {};
  return session().mmsgok;
}

SavedMessage savedMessage(std::string_view text) {
  SavedMessage message;
  bool reminding = false;
  for (const std::string& raw : split(replaceAll(text, "\r\n", "\n"), "\n")) {
    const std::string line = trim(raw);
    const size_t colon = line.find(" :");
    if (line.empty())
      reminding = reminding && message.reminder.size() < 3;
    else if (message.head.empty())
      message.head = line;
    else if (line == kReminder || reminding)
      message.reminder.push_back(line), reminding = true;
    else if (colon != std::string::npos && message.hints.empty())
      message.facts.push_back({trim(line.substr(0, colon)) + " :", trim(line.substr(colon + 2))});
    else
      message.hints.push_back(line);
  }
  return message;
}

HandOff whatsAppHandOff(const std::string& folder, const std::string& phone, const std::string& text) {
  return {
      folder + "/" + kSupportProgram, {"TEXT", "1", harmless(phone + " " + text)}
  };
}

void sendWhatsApp(Host& host, const std::string& phone, const std::string& text) {
  if (length(phone) != kPhoneLength) {
    host.message("Invalid Phone Number");
    return;
  }
  if (host.running(kSupportProgram)) {
    host.message("Pending Messages in Que \nPlease Wait for Previous Messages to Finish",
                 "Mirav Confirmation Message");
    return;
  }
  const HandOff handOff = whatsAppHandOff(session().mapppath, phone, text);
  host.launch(handOff.program, handOff.arguments);
}
