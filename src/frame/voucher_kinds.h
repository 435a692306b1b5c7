#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/links.h"

// What tells one kind of voucher from another, in one table. Screens, rules, papers, registers and
// the menu take a row of it as a value, so that none of them names a book of its own: a purchase is
// a sale with another code, other words and accounts, and its sides turned round. What a kind has no
// part in stays empty: an offer has no ledger, a receipt neither lines nor paper.
struct VoucherKind {
  std::string entryType;  // how the menu and the screens ask for it
  std::string code;       // what the key column of its rows holds: "SA", "CH", "QUOTATION"
  std::string shortCode;  // its book in registers, where that is another
  std::string screen;     // that enters it; empty: older books hold such vouchers, nothing makes them
  std::string Links::*video = nullptr;
  bool dispatched = false;  // goods go out to the party's area, large bills with an e-way bill

  struct Words {
    std::string title;                                  // caption at rest
    std::string name;                                   // of one voucher, where it stands among others
    std::string adding, modifying, deleting, printing;  // captions of the modes, patterns of the title
    std::string escapeAsks;                             // question of Escape in ADD and EDIT
    std::string saveOpens;                              // why Save is off
    std::string savedHead;                              // first line of the message after a save
    std::vector<std::string> savedHints;                // its last lines
    std::string rateHint;                               // keys of the rate field
    std::string billDate;  // label of the date that the party gave its bill; empty: the bill is ours
  } words;

  struct Tables {
    std::string heads, lines;           // of the stored vouchers
    std::string key;                    // the column of both that tells the kinds apart
    std::string work;                   // lines being typed
    std::string serial;                 // the column of the work table that orders them
    std::vector<std::string> beside{};  // of our own, by VOUCH_NO and BOOK_CD: what more is kept of a voucher
  } tables;

  struct Numbering {
    bool runsOn = true;          // else the numbers are the party's and typed
    std::string number, series;  // columns of the number on the paper, and of the type that is a series
  } numbering;

  // The other side, and what stands for it until the operator says otherwise.
  struct Party {
    std::string offered;         // condition of the accounts that are offered
    std::string rate, discount;  // columns of ITEMDTL and PRTYRATE, or expressions over them
    bool hasBills = false;       // that money settles
  } party;

  // Where it stands in the ledger: the party on its side, everything else on the other.
  struct Ledger {
    std::string partySide;                        // "D" or "C"; empty: it does not post
    std::string goods, cgst, sgst, igst, rounds;  // accounts against the party
    std::string formerCode;                       // a book whose rows of the same number go at a save
    std::string otherSide() const { return partySide == "D" ? "C" : "D"; }
  } ledger;

  struct Paper {
    std::string key;             // report key of its document; empty: none is offered
    std::string kind;            // what the renderer is told
    std::string dialog;          // caption of the print dialog
    std::string behind;          // caption of the screen that comes back after it; empty: as it was
    std::string title;           // on the sheet
    std::string design, family;  // file of the design before its number; its rows in the line settings
    std::string sheet;           // of the design, printed
    std::string lineSheet;       // mprnsheet, whose rows in the line settings hold
    std::string stem;            // name of the PDF before the number
    std::string taxesByRate;     // view of its taxes
    bool hsn = false;            // has a summary by HSN codes
  } paper;

  // A note against bills, which stand in the same tables under a code of their own.
  struct Adjusts {
    std::string code;      // of those bills; empty: it is no note
    std::string quantity;  // head of the column that is typed
    std::string moves;     // what goods do that move with it
    int reason = 1;        // offered first
  } adjusts;
  bool isNote() const { return !adjusts.code.empty(); }

  struct Returns {
    int sign = 0;  // in GSTR-1: 1 adds to it, -1 takes off, 0 is not in it
  } returns;

  const std::string& book() const { return shortCode.empty() ? code : shortCode; }
};

// Every kind that the program knows.
std::span<const VoucherKind* const> voucherKinds();
// Null for what no kind is known by. Books are told without regard to case.
const VoucherKind* kindByEntryType(std::string_view entryType);
const VoucherKind* kindByBook(std::string_view book);
// Those whose vouchers stand in the table and have a place in the ledger, in the order of posting.
std::vector<const VoucherKind*> kindsPostedFrom(std::string_view heads);

const VoucherKind& saleKind();
// What suppliers bill: heads and lines stand beside the sale's, under a code of their own.
const VoucherKind& purchaseKind();
// What changes such bills afterwards: goods that a customer brings back or an allowance, what a customer owes
// beside a bill, goods that go back to a supplier.
const VoucherKind& creditNoteKind();
const VoucherKind& debitNoteKind();
const VoucherKind& purchaseReturnKind();
const VoucherKind& challanKind();
// The kind "QUOTATION", or any other as a proforma invoice. The value lives as long as the program.
const VoucherKind& quotationKind(const std::string& entryType = "QUOTATION");
const VoucherKind& receiptKind();
// The kind "JOURNAL", and for all else "CONTRA", which takes cash and bank accounts alone.
const VoucherKind& journalKind(std::string_view entryType);

// The kinds that one screen enters; the sale, the receipt and the credit note for an entry type that is none
// of theirs.
const VoucherKind& billKind(std::string_view entryType);
const VoucherKind& moneyKind(std::string_view entryType);
const VoucherKind& noteKind(std::string_view entryType);
// The note whose paper is of this kind; null for all others.
const VoucherKind* noteOfPaper(std::string_view paperKind);

// Cash, over which money comes in and goes out until a bank is chosen.
inline constexpr const char* kCashAccount = "X90005";
