#pragma once

#include <string>

#include "store/engine.h"

// What is told of others at the same books of a server. Times are of this machine's clock.

// "ram On COUNTER2 Has SALES ENTRY 7 In Hand Since 10:31", or that a hold keeps it from being begun.
std::string inHandWords(const Other& other, const std::string& what);
// "ram On COUNTER2 Waits For Full Posting Since 10:32", or "... Is At ...", with what the others are to do.
std::string holdWords(const Other& other);
// "Waits For Full Posting Since 10:32"
std::string holdFact(const Other& other);
// The time of day so many seconds ago.
std::string since(int seconds);
