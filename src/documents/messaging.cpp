#include "documents/messaging.h"

#include <algorithm>

#include "base/text.h"
#include "frame/session.h"

namespace {

constexpr const char* kSupportProgram = "WhatsappSupport.exe";
constexpr int kPhoneLength = 10;

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

bool interact(Host& host, Interaction& what) {
  const auto typed = host.openModal("mymsgfrm", {.more = what});
  if (typed) what.typed = *typed;
  return typed.has_value();
}

SavedMessage inWords(SavedMessage message) {
  message.head = words(message.head);
  for (auto& fact : message.facts) fact.name = words(fact.name);
  for (std::string& hint : message.hints) hint = words(hint);
  return message;
}

std::string textOf(const SavedMessage& message) {
  const std::string blanks(static_cast<size_t>(message.indent), ' ');
  int longest = 0;
  for (const auto& fact : message.facts) longest = std::max(longest, message.aligned ? length(fact.name) : 0);
  std::string text = blanks + message.head + "\n";
  for (const auto& [name, value] : message.facts)
    text += "   " + name + std::string(static_cast<size_t>(std::max(0, longest - length(name))), ' ') +
            " : " + value + "\n";
  if (message.eWayReminder)
    text += "\n" + blanks + words(kEWayReminder[0]) + "\n   " + words(kEWayReminder[1]) + " \n   " +
            words(kEWayReminder[2]);
  text += std::string(static_cast<size_t>(message.gap), '\n') + "   " + join(message.hints, "\n   ");
  return text;
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
