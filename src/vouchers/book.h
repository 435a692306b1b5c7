#pragma once

#include <string>

// What tells one kind of voucher from another. A screen takes its book as a value, so that
// numbering, saving, posting and the screen's words name no book of their own: a purchase book
// is the sale book with another code, other words and accounts, and its sides turned round.
struct Book {
  std::string code;       // what the key column holds: "SA", "CH", "QUOTATION"
  std::string keyColumn;  // "BOOK_CD", "ENTRY_TYP"
  std::string heads;      // tables of the stored vouchers and of the lines being typed
  std::string lines;
  std::string work;
  std::string serial;                                 // the column of the work table that orders the lines
  std::string title;                                  // caption at rest
  std::string adding, modifying, deleting, printing;  // what the caption adds in each mode
  std::string escapeAsks;                             // question of Escape in ADD and EDIT
  std::string printKey;                               // mreportkey of its document
  std::string documentKey = {};  // mentrytype while the print dialog is up; empty: it stays
  std::string saveOpens;         // why Save is off
  std::string savedHead;         // first line of the message after a save

  // The other side of the bill, and what stands for it until the operator says otherwise.
  std::string parties;         // lookup of the parties it is made out to
  std::string rate, discount;  // columns of ITEMDTL

  // Where a bill stands in the ledger: the party on its side, everything else on the other.
  std::string partySide;                        // "D" or "C"
  std::string goods, cgst, sgst, igst, rounds;  // accounts against the party
  std::string otherSide() const { return partySide == "D" ? "C" : "D"; }
};

// The sale book.
const Book& saleBook();
