#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"

// The small message window `mymsgfrm`: a confirm box, and the closing message after a save.

struct Interaction {
  std::string text;                            // a saved-message reads as head, facts, reminder and hints
  std::string ok = "&OK", cancel = "&Cancel";  // a button without a caption is not there
  Bgr okColour = kWhite, cancelColour = kWhite;
  bool asks = false;       // shows the box to type in
  std::string typed = {};  // what stands in it; after OK what was typed
  bool whatsApp = false;   // offers the hand-off to the phone
  std::string phone = {};
};

// Shows the window and waits. True for OK; `mmsgok` holds the same afterwards.
bool interact(Host& host, Interaction& what);
// What the window that is opening is to show.
Interaction& comingInteraction();

// A saved-message taken apart: its first line, its "name : value" lines, the reminder and the rest.
struct SavedMessage {
  struct Fact {
    std::string name, value;
  };
  std::string head;
  std::vector<Fact> facts;
  std::vector<std::string> reminder, hints;
};
SavedMessage savedMessage(std::string_view text);

// The hand-off to the program that sends WhatsApp messages: its whole interface is the command
// line. The text is made one line without quotes, so that it stays one argument.
struct HandOff {
  std::string program;
  std::vector<std::string> arguments;
};
HandOff whatsAppHandOff(const std::string& folder, const std::string& phone, const std::string& text);

// Tests the phone, waits for no one: says why when it does not start.
void sendWhatsApp(Host& host, const std::string& phone, const std::string& text);
