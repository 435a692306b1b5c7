#pragma once

#include <functional>
#include <string>

#include "platform/host.h"

// Small routines that screens share.

// Writes into the hint line. With an empty text the next tip stands there, while the
// shell's picture shows.
void ShowHint(Host& host, const std::string& text);
// All menus and tools on, or all off but the masters and utilities, which follow the second flag.
void SetMenus(Host& host, bool allenabled, bool basicenabled);
// The shell's picture: hidden while a child screen is open.
void showPicture(Host& host, bool on);
void CheckOnline(Host& host);  // sets monline
// Opens the link when there is one and the machine is online: "Video" and the like.
void openTutorial(Host& host, const std::string& link);
// Its button stands only where a page has been set.
void offerTutorial(Screen& screen, const std::string& link);
// The words for a date that is none: today and the period with the keys that bring dates.
std::string dateHelp(const Host& host);
// Runs a step whose failure must not keep the next one from running. What the user has to
// know of (a lock, a full disk, a broken file) is told in a box, the rest is passed over.
// Whether it went through.
bool passOver(Host& host, const std::function<void()>& step);
// In a box, and in the log.
void tellFailure(Host& host, const std::exception& error);
// mirav.log in the system's viewer.
void showLog(Host& host);
// Runs a long piece of work under the busy pointer. The words of its failure; empty when it went through.
std::string failureOf(Host& host, const std::function<void()>& work);
// Whether the open company-year has a table of that name; false while none is open.
bool CheckTable(const std::string& name);
std::string MakeStamp(Host& host);  // "YYMMDD_HHMM" of now, kept in mstamp
// Ends every running process of that name, whatever its letter case.
void EndProcess(Host& host, const std::string& name);

// The next number of a code, by one statement.
double NextAccountCode();
double NextItemCode();
double NextCategoryCode();
// Number and prefix as a code of the documented width: "A00001", "I0000001", "E001".
std::string accountCode(double number);
std::string itemCode(double number);
std::string categoryCode(double number);
