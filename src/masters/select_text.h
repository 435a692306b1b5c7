#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

// A select statement in its clauses, so that a filter can be put into it and a page cut out of
// it. Keywords inside brackets, quotes and parentheses belong to the expression they stand in.

struct SelectColumn {
  std::string expression;  // "FORMAT(cl_bal,'0.00')"
  std::string name;        // "CLBAL": the alias, else the column's own name without its table
};

struct Select {
  bool distinct = false;
  std::vector<SelectColumn> columns;
  std::string from, where, group, order;
  std::vector<Value> values;  // bound to the "?" of from and where in order
};

// What does not begin with SELECT or has no FROM comes back without columns.
Select parseSelect(std::string_view statement, std::vector<Value> values = {});

// A select by hand, in the order of its columns when it is DISTINCT and names no order.
std::string selectText(const Select& select);
std::string countText(const Select& select);
// Counts no more rows than the number bound after the select's own values.
std::string countUpToText(const Select& select);
// With "LIMIT ? OFFSET ?" behind; they are bound after the select's own values.
std::string pageText(const Select& select);
// The first column, alone where that can be, in the rows' order.
std::string firstColumnText(const Select& select);

// By what the rows stand in order first of all; the expression is empty without any order.
struct OrderTerm {
  std::string expression;
  bool descending = false;
};
OrderTerm firstOrder(const Select& select);

// The rows for which the condition holds besides.
Select filtered(Select select, const std::string& condition, const std::vector<Value>& values);

// Both sides of "expression LIKE ? ESCAPE '\'" for a typed text that stands anywhere: the text's
// own % and _ are only themselves.
std::string likeText(const std::string& expression);
std::string anywhere(std::string_view typed);
