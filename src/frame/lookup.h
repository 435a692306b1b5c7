#pragma once

#include <functional>
#include <string>

#include "frame/select.h"
#include "platform/host.h"

// What a lookup offers, as a value with which FRMHLP is opened. The first column is chosen; a typed
// text is searched in the first or the second.
struct Lookup {
  Select rows = {};
  bool values = false;      // distinct ones of one column, read from value to value where that is quicker
  bool secondOnly = false;  // the search field over the first column is hidden
  bool below = false;       // stands at the lower edge, so that the lines of a voucher stay in view
  bool inCatalogue = false;
  bool free = false;      // its field takes any text: what was typed and found nowhere is the choice
  bool optional = false;  // its field may stay empty: Enter once more, when the list was closed, goes on
  std::string keys = {};  // of its field, told where the list holds nothing
  // What the chosen row knows beside its first column: an expression that is not shown, and who is told.
  std::string along = {};
  std::function<void(const std::string&)> tell = {};
  // Where several are chosen one after the other: Space chooses one and says so here, for the list to be
  // opened again on the row after it.
  struct Several {
    bool more = false;
    size_t row = 0;
  };
  Several* several = nullptr;
};

// The same for a field that may stay empty.
Lookup mayStayEmpty(Lookup lookup);

// The distinct filled values of a column.
Lookup valuesOf(const std::string& table, const std::string& column, int width = 0);

// A column of the account that the row names in `by` ("SALE.PARTY_CD"): a typed text is searched
// among the accounts, once, and not for each row that is joined to one.
SelectColumn ofAccount(const std::string& column, const std::string& by, int width = 0);
// An amount as a text that is searched as it shows.
SelectColumn amountText(const std::string& amount, const std::string& name);
// The balance of an account, as the ledger has it when the list is opened.
SelectColumn balanceColumn(int width = 0);
// Accounts by name, all of them or those for which the condition holds.
Lookup accounts(SelectColumns columns, const std::string& where = {});

// The chosen first column replaces the field's text as it is, and the field's Enter logic runs once
// after the handler; after Escape or an empty choice, and while the field is left, nothing happens but
// that the hint tells how to go on. Returns what a handler of Enter ends with: Go::Stay, and Go::On when a
// field that may stay empty has declined its list before.
Go lookUp(Host& host, Screen& caller, Control& field, const Lookup& lookup);

// The hint in an empty field whose list was closed without a choice.
const char* hintAfterList(bool optional);

// The chosen value alone, empty after Escape.
std::string lookUpValue(Host& host, const Lookup& lookup);
