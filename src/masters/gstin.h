#pragma once

#include <string>
#include <string_view>

// The parts of a goods and services tax identification number, for example 24ABCDE1234F1Z5: the
// state code, the holder's PAN, the count of registrations, a fixed Z and a check character. An
// entry screen takes what is 15 characters long; a number that cannot be right is only hinted at.

struct GstinParts {
  std::string stateCode;  // "24"
  std::string pan;        // "ABCDE1234F"
};

constexpr int kGstinLength = 15;

bool isGstinLength(std::string_view gstin);
// Of a number of the full length; others have no parts.
GstinParts gstinParts(std::string_view gstin);

enum class GstinFault { None, Pattern, CheckDigit };
GstinFault gstinFault(std::string_view gstin);

// Who bears a number of this form. A mission of another country has a UIN, whoever keeps back tax at source
// or collects it for a marketplace has numbers of their own for that.
enum class GstinKind { None, Regular, Government, Deductor, Collector, Uin, NonResident };
GstinKind gstinKind(std::string_view gstin);

// The check character that the first 14 call for; 0 when one of them is no letter or digit.
char gstinCheckDigit(std::string_view gstin);

// Words for the hint line; empty for a number without fault.
std::string gstinHint(std::string_view gstin);
