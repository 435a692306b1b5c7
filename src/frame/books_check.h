#pragma once

#include <string>
#include <vector>

#include "platform/host.h"
#include "store/database.h"

// What does not agree in the books, a row a fault: a voucher's head with its lines, its debits with its
// credits, heads, lines and ledger rows that lack one another, and parties that are no accounts. Each kind
// of fault is one statement over all vouchers.

// Under this key the report screen lists them.
inline constexpr const char* kBooksCheck = "BOOKSCHECK";

// WHAT, BOOK, VOUCH_NO, VOUCH_DT, PARTY, HAS and SHOULD (texts "0.00", what stands there and what it
// is measured by; empty where no figure is at fault), DIFFERS and OPENS: the book under which the voucher can
// be opened, empty where none stands behind the row.
struct BooksCheck {
  std::string text;
  std::vector<Value> values;
};
BooksCheck booksCheck();

// Opens the list where something does not agree.
void tellDisagreement(Host& host, Database& db);
