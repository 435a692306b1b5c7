#pragma once

#include <filesystem>

#include "frame/session.h"
#include "platform/host.h"

// The start routine: begins a new session in the program folder, opens the books there and asks the host
// for the company selection, or first for the sign-in where a server wants to know who works. Without a
// catalogue that can be used the user is told and the host asked to quit; then the answer is false.
bool startUp(Host& host, const std::filesystem::path& folder);

// Opens the catalogue comp.mdb, and the company selection. Why it cannot be used, in words; empty when it
// stands open.
std::string openBooks(Host& host);

// Twips per pixel of 15, 12 and 10 are known; any other leaves both factors 0.
void setScreenFactors(Session& session, const ScreenSize& display);
