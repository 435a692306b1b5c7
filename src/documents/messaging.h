#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/words.h"
#include "platform/host.h"

// The small message window `mymsgfrm`: a confirm box, and the closing message after a save.

// What was saved and how to go on.
struct SavedMessage {
  struct Fact {
    std::string name, value;  // "Entry No", "148"
  };
  std::string head;
  std::vector<Fact> facts;
  bool eWayReminder = false;
  std::vector<std::string> hints;

  // Of its text: blanks before the head, names filled up to one length, lines before the hints.
  int indent = 60;
  bool aligned = true;
  int gap = 2;
};
// Its words looked up: all but the values.
SavedMessage inWords(SavedMessage message);
// As the one text that Label1 has.
std::string textOf(const SavedMessage& message);

// The e-way reminder, line by line.
inline constexpr const char* kEWayReminder[] = {
    english("___E_Way_Reminder___"), english("Value Of Bill Exceeds Rs. 50000/-"),
    english("E-Way Bill To Be Generated For Dispatch Of This Bill")};

struct Interaction {
  std::string text = {};                                         // of a confirm box
  std::optional<SavedMessage> saved = {};                        // in its place
  std::string ok = english("&OK"), cancel = english("&Cancel");  // a button without a caption is not there
  Bgr okColour = kWhite, cancelColour = kWhite;
  bool asks = false;       // shows the box to type in
  std::string typed = {};  // what stands in it; after OK what was typed
  bool whatsApp = false;   // offers the hand-off to the phone
  std::string phone = {};
};

// Shows the window and waits. True for OK.
bool interact(Host& host, Interaction& what);

// The hand-off to the program that sends WhatsApp messages: its whole interface is the command
// line. The text is made one line without quotes, so that it stays one argument.
struct HandOff {
  std::string program;
  std::vector<std::string> arguments;
};
HandOff whatsAppHandOff(const std::string& folder, const std::string& phone, const std::string& text);

// Tests the phone, waits for no one: says why when it does not start.
void sendWhatsApp(Host& host, const std::string& phone, const std::string& text);
