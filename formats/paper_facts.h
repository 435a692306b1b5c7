#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/facts.h"

// The facts of the papers beside the invoice: quotation, delivery challan and delivery slip.
namespace formats {

// References to a field of the first line, which every line repeats.
std::string ofQuotation(std::string_view field);
std::string ofChallan(std::string_view field);

// Texts one under the other, without gaps.
std::string stacked(Facts& facts, const std::string& name, const std::vector<std::string>& lines);

// Figures of a slot's line, numbers that are stored as text too.
std::string lineNumber(int slot, std::string_view field);

// The taxable value is the sum of the lines; what is left to the whole offer is the round-off.
Bill quotationFacts(Facts& facts, const Slots& slots);

// The taxable value is the sum of the lines, the net that less discount and with charges.
CompanyCells companyOfChallan();
Bill challanFacts(Facts& facts, const Slots& slots);

CompanyCells companyOfSlip();
Bill slipFacts(Facts& facts, const Slots& slots);

}  // namespace formats
