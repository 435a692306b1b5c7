#pragma once

#include <span>
#include <string>
#include <vector>

#include "frame/links.h"
#include "platform/host.h"

// The shell's menu tree and tool bar: what each entry opens.
struct Command {
  const char* menu = "";  // control of the top menu it stands in
  const char* caption = "";
  const char* control = "";
  int index = -1;
  const char* key = "";        // its own, told apart from all others
  const char* reportKey = "";  // with which the screen is opened, as is the next
  const char* masterKey = "";
  void (*first)(Host&) = nullptr;  // done before the screen is opened
  const char* screen = "";         // empty: opens none, or a voucher's, which its kind names
  std::string Links::*link = nullptr;
  const char* tool = "";        // button of the tool bar that repeats it
  bool (*offered)() = nullptr;  // to whom it is shown; null: to everybody
};

std::span<const Command> commands();
const Command* commandOf(const MenuEntry& entry);
const Command* commandOf(const ToolEntry& tool);
const Command* commandByKey(const std::string& key);

// What the entry opens; empty: nothing.
std::string screenOf(const Command& command);

// False of a link whose page has not been set and of what is not for who works here: neither menu nor tool
// bar shows it.
bool leadsSomewhere(const Command& command);

std::vector<MenuEntry> menuTree();
std::vector<ToolEntry> toolBar();

// Opens the screen of the entry or its link.
void carryOut(Host& host, const Command& command);
