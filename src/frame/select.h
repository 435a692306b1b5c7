#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

// A select statement as a value, from which the texts are made that count its rows, cut a page out
// of them or search in them.

struct SelectColumn {
  std::string expression;   // "SHOWN(cl_bal,'0.00')"
  int width = 0;            // twips of a screen of 800 pixels; 0: what its content asks for
  std::string name = {};    // "CLBAL"; empty: the column's own
  std::string search = {};  // condition with one "?" for a typed text; empty: in what the column shows
  bool balance = false;     // of the row's account, in the ledger's figure at the time when it is read
};

struct OrderTerm {
  std::string expression;
  bool descending = false;
  OrderTerm(const char* by) : expression(by) {}             // NOLINT
  OrderTerm(std::string by) : expression(std::move(by)) {}  // NOLINT
  OrderTerm(std::string by, bool down) : expression(std::move(by)), descending(down) {}
};
OrderTerm down(const char* by);

struct Select {
  std::vector<SelectColumn> columns = {};
  std::string from = {}, where = {};
  std::vector<OrderTerm> order = {};  // and at last as the rows of the first table were entered
  std::vector<Value> values = {};     // bound to the "?" of from and where in order
  bool distinct = false;              // then its order is that of its columns, where it names none
};

using SelectColumns = std::vector<SelectColumn>;
SelectColumns joined(SelectColumns columns, const SelectColumns& more);

// What a column is called in the result, without its table.
std::string nameOf(const SelectColumn& column);

// "SALE" of "(SALE LEFT JOIN ACCOUNT ON ..."; empty where a select stands there.
std::string firstTable(const Select& select);

std::string selectText(const Select& select);
// Its part from the tables on.
std::string tableText(const Select& select);
std::string countText(const Select& select);
// Counts no more rows than the number bound after the select's own values.
std::string countUpToText(const Select& select);
// With "LIMIT ? OFFSET ?" behind; they are bound after the select's own values.
std::string pageText(const Select& select);
// The first column in the rows' order, alone where that can be.
std::string firstColumnText(const Select& select);

// By what the rows stand in order first of all; null without any order.
const OrderTerm* firstOrder(const Select& select);

// The rows for which the condition holds besides.
Select filtered(Select select, const std::string& condition, const std::vector<Value>& values);

// Both sides of "expression LIKE ? ESCAPE '\'" for a typed text that stands anywhere: the text's
// own % and _ are only themselves.
std::string likeText(const std::string& expression);
std::string anywhere(std::string_view typed);
// A number as it shows; whole ones without a call of our own for each row.
std::string numberText(const std::string& number);
