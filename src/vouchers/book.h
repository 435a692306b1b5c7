#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "frame/links.h"

// What tells one kind of voucher from another. A screen takes its book as a value, so that
// numbering, saving, posting and the screen's words name no book of their own: a purchase book
// is the sale book with another code, other words and accounts, and its sides turned round.
struct Book {
  std::string entryType = {};  // mentrytype: how menus and ledgers ask for it
  std::string code;            // what the key column holds: "SA", "CH", "QUOTATION"
  std::string keyColumn;       // "BOOK_CD", "ENTRY_TYP"
  std::string heads;           // tables of the stored vouchers and of the lines being typed
  std::string lines;
  std::string work;
  std::string serial;                                 // the column of the work table that orders the lines
  std::string title;                                  // caption at rest
  std::string adding, modifying, deleting, printing;  // what the caption adds in each mode
  std::string escapeAsks;                             // question of Escape in ADD and EDIT
  std::string printKey;                               // mreportkey of its document; empty: it has none
  std::string documentKey = {};              // mentrytype while the print dialog is up; empty: it stays
  std::string saveOpens;                     // why Save is off
  std::string savedHead;                     // first line of the message after a save
  std::vector<std::string> savedHints = {};  // its last lines
  std::string Links::*video = nullptr;

  // The other side of the bill, and what stands for it until the operator says otherwise.
  std::string parties;         // lookup of the parties
  std::string rate, discount;  // columns of ITEMDTL and PRTYRATE, or expressions over them
  std::string rateHint = {};   // keys of the rate field
  bool numbered = true;        // bill and challan numbers run on; else they are the party's and typed
  bool dispatched = true;      // goods go out to the party's area, large bills with an e-way bill
  std::string billDate = {};   // label of the date that the party gave its bill; empty: the bill is ours

  // Where a bill stands in the ledger: the party on its side, everything else on the other.
  std::string partySide;                        // "D" or "C"
  std::string goods, cgst, sgst, igst, rounds;  // accounts against the party
  std::string otherSide() const { return partySide == "D" ? "C" : "D"; }
};

const Book& saleBook();
// What suppliers bill: heads and lines stand beside the sale's, under a code of their own.
const Book& purchaseBook();

// The books whose vouchers are bills, in the order in which they are posted.
std::array<const Book*, 2> billBooks();
// The sale book for an entry type that is none of theirs.
const Book& billBook(std::string_view entryType);
