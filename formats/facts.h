#pragma once

#include <string>
#include <string_view>

#include "formats/book.h"

// What a paper shows, worked out once from the data sheet on a hidden sheet of the design
// (CALC: a name beside each formula), so that the printed sheet only points there.
namespace formats {

class Facts {
 public:
  explicit Facts(Book& book);
  // Puts a formula under a name and gives the reference to it.
  std::string add(std::string_view name, const std::string& formula);
  // Name of the state of a GST state code, "Gujarat (24)"; empty for none.
  std::string state(std::string_view name, const std::string& code);
  Sheet& sheet() { return sheet_; }

 private:
  Sheet& sheet_;
  int row_ = 1;
};

// A text with "." and "0" taken as empty.
std::string shown(const std::string& reference);
// Two texts with a separator between them when both stand.
std::string joined(const std::string& a, const std::string& separator, const std::string& b);
// A label before a text; empty when the text is.
std::string labelled(const std::string& label, const std::string& text);
// An amount that shows nothing when it is zero.
std::string amount(const std::string& reference);
std::string quoted(std::string_view text);

struct Company {
  std::string name, address, contact, gstin, pan, state, city, bank, account;
};
Company companyFacts(Facts& facts);

struct Party {
  std::string name, line1, line2, line3, state, gstin, contact;  // lines of the address, without gaps
};

// A bill: references to its facts, and the lines that its slots show: the ordinary lines
// in their order, those of the category MISC behind them.
struct Bill {
  std::string lines, pages, unprinted;
  Party buyer, consignee;
  std::string number, date, type, challan, order, transport, lrNumber, lrDate, destination, parcels;
  std::string creditDays, dueDate, placeOfSupply, narration, irn;
  std::string quantity, taxable, cgst, sgst, igst, beforeRounding, roundOff, net;
  std::string netWords, taxWords;

  // Formulas of the slot, from 1; "" in a slot without a line.
  static std::string slotRow(int slot);
  static std::string slotDescription(int slot);
  static std::string slot(int slot, std::string_view field);
};
Bill billFacts(Facts& facts, int slots, int slotsOfPage);

}  // namespace formats
