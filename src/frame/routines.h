#pragma once

#include <string>

#include "platform/host.h"

// Small routines that screens share.

void ShowHint(Host& host, const std::string& text);  // empty: the next tip while the shell's picture shows
void SetMenus(Host& host, bool allenabled, bool basicenabled);
void CheckOnline(Host& host);  // sets monline
bool CheckTable(const std::string& name);
std::string MakeStamp(Host& host);  // "YYMMDD_HHMM" of now, kept in mstamp
// The next number of a code, by one statement; kept in mnextcode.
double NextAccountCode();
double NextItemCode();
double NextCategoryCode();
// Number and prefix as a code of the documented width: "A00001", "I0000001", "E001".
std::string accountCode(double number);
std::string itemCode(double number);
std::string categoryCode(double number);
