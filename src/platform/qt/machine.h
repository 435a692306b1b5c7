#pragma once

#include <string>

#include "base/date.h"

// What the host asks of the operating system itself.
namespace machine {

Moment now();
// There is a way out of this computer: a default route.
bool online();
// A program of this name runs; case and a trailing ".exe" do not count.
bool running(const std::string& process);
// Asks all programs of this name to end. Those of other people stay.
void endProcess(const std::string& process);

}  // namespace machine
