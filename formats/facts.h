#pragma once

#include <functional>
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

  // A label, as a formula, with its value.
  struct Named {
    std::string label, value;
  };
  // The same facts in so many rows, without gaps where a value is empty.
  std::vector<Named> closed(const std::vector<Named>& facts, int rows);
  Sheet& sheet() { return sheet_; }

 private:
  Sheet& sheet_;
  int row_ = 1, closedRow_ = 1;
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
  std::string name, address, phones, mail, contact, gstin, pan, state, city;
  std::string bankName, branch, ifsc, accountNumber;
  std::string bank, account;  // two of them each in a line
};
// Where the data sheet tells of the company; what it does not tell is empty.
struct CompanyCells {
  std::string name, address, phone1, phone2, mail, gstin, stateCode, state, bank, branch, ifsc, account, city;
};
CompanyCells companyOfBill();
Company companyFacts(Facts& facts, const CompanyCells& cells);

// Name and address in four lines without gaps; long ones are shared out among them.
struct Party {
  std::string name, line1, line2, line3, address, state, gstin, contact;
  std::string registration;  // GSTIN with its label
  std::string wholeName;     // for cells of several lines
};

// Gives the formula of a field by its table and name: "ACCOUNT.CITY"; "ACCOUNT_1.CITY" of the consignee.
using FieldOf = std::function<std::string(std::string_view)>;
// The party of a paper, or whoever the goods go to: the party itself when nobody else is named.
Party partyFacts(Facts& facts, const FieldOf& at, bool consignee);

// A bill, or another paper with lines: references to its facts, and the lines that its slots show: the
// ordinary lines in their order, those of the category MISC behind them.
struct Bill {
  std::string lines, pages, unprinted;
  Party buyer, consignee;
  std::string number, date, type, challan, order, transport, lrNumber, lrDate, destination, parcels;
  std::string transporterId, transporterPlace, transporterPhone, freight;
  std::string dueDate, placeOfSupply, narration, irn;
  std::string deliveredTo;  // name and address of a consignee that is not the buyer
  std::string quantity, taxable, cgst, sgst, igst, tax, beforeRounding, roundOff, net;
  // What the taxable value is made of beside the goods; empty where a paper has none.
  std::string goods, discount, packing, freightCharge, otherCharges;
  std::string netWords, taxWords;
  std::string netLabel = "\"Bill Amount\"";
  // What the paper is called and what its places hold, as formulas: on a note the order's tells the bill that
  // it stands against, the challan's the reason.
  std::string title = "\"TAX INVOICE\"", numberLabel = "\"Invoice No\"", orderLabel = "\"Order No\"",
              challanLabel = "\"Challan No\"", declaration, reverse = "\"No\"";
  std::string endorsement;  // what the law asks to be said, in place of the declaration
  // "Total", or what else the closing row must say of lines that have no slot.
  std::string totalLabel;

  // Formulas of the slot, from 1; "" in a slot without a line.
  static std::string slotRow(int slot);
  static std::string slotDescription(int slot);
  static std::string slot(int slot, std::string_view field);
  // A number of the slot's line; to be asked for only where there is a line.
  static std::string figure(int slot, std::string_view field);
};

// What the slots read of a line, as in fieldColumn of sheet3.
struct LineFields {
  std::string_view serial = "SALEITM.SR_NO", item = "ITEM.ITEM_NAME", detail = "SALEITM.ITEM_DESC";
  std::string_view category = "DEPTMENT.DEPT_NAME";  // a line of "MISC" is told by its detail alone
};

// How a design shows the lines of a paper.
struct Slots {
  int pages = 1, ofPage = 1;
  int letters = 25;  // in a line of the description; what does not fit ends in "…"
  bool twoLines = true;
};
// The slots and how many pages they fill; `ordinary` lines from row 8 on, `misc` from row 508 on.
void slotFacts(Facts& facts, Bill& bill, const Slots& slots, const LineFields& fields,
               const std::string& ordinary, const std::string& misc);
Bill billFacts(Facts& facts, const Slots& slots);

}  // namespace formats
