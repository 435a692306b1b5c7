#pragma once

#include <optional>
#include <string>

#include "store/database.h"
#include "vouchers/calculation.h"

// Lines of a quotation: what a line is worth and what an item brings to it. Other than on a
// bill nothing is rounded before the tax, every tax follows its rate, and the amount holds the
// taxes: 3 x 33.33 less 10 % is 89.991, with 9 % twice 106.19.

struct QuotedLine {
  double assess = 0;  // to the paisa; the taxes are figured before it is rounded
  Taxes taxes;
  double amount = 0;  // taxes included
};
QuotedLine quotedLine(double quantity, double rate, double discount, const Taxes& rates);

// The whole offer in whole rupees, halves to even; what that rounds off is kept nowhere.
double quotedTotal(double amounts);

struct QuotedItem {
  std::string name, unit;
  double rate = 0;
  std::optional<double> rateOfTax;  // none when it is not filled in
};
// With its first unit; an item without units cannot be offered.
std::optional<QuotedItem> readQuotedItem(Database& db, const std::string& code);
std::optional<QuotedItem> readQuotedItemByName(Database& db, const std::string& name);
