#pragma once

#include <string>

// What tells one kind of voucher from another. A screen takes its book as a value, so that
// numbering, saving and the screen's captions name no book of their own.
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
  std::string saveOpens;                              // why Save is off
};

// The sale book.
const Book& saleBook();
