#include "frame/select.h"

#include "base/text.h"

namespace {

std::string headText(const Select& select) {
  std::vector<std::string> columns;
  for (const SelectColumn& c : select.columns)
    columns.push_back(c.name.empty() ? c.expression : c.expression + " AS [" + c.name + "]");
  return std::string("SELECT ") + (select.distinct ? "DISTINCT " : "") + join(columns, ", ");
}

std::string bodyText(const Select& select) {
  return " FROM " + select.from + (select.where.empty() ? "" : " WHERE " + select.where);
}

// No two rows are equal in it, or those of one voucher, which stand in its order: a number or an item's unit
// ends it.
bool isWhole(const std::vector<OrderTerm>& order) {
  const std::string last = upper(order.back().expression);
  return last.ends_with("VOUCH_NO") || last.ends_with("SIZE_CD");
}

// Equal rows stand as they were entered, which an index gives for nothing: an engine may else give them
// otherwise on each page.
std::string orderText(const Select& select) {
  std::vector<OrderTerm> order = select.order;
  if (order.empty() && select.distinct)
    for (size_t i = 1; i <= select.columns.size(); ++i) order.emplace_back(std::to_string(i));
  else if (!order.empty() && !select.distinct && !isWhole(order) && !firstTable(select).empty())
    order.emplace_back(firstTable(select) + ".rowid", order.back().descending);
  std::vector<std::string> terms;
  for (const OrderTerm& t : order) terms.push_back(t.expression + (t.descending ? " DESC" : ""));
  return terms.empty() ? "" : " ORDER BY " + join(terms, ", ");
}

}  // namespace

std::string firstTable(const Select& select) {
  const size_t begin = select.from.find_first_not_of('('), end = select.from.find_first_of(" ,)", begin);
  const std::string word = select.from.substr(begin, end == std::string::npos ? end : end - begin);
  return word == "WITH" || word == "SELECT" ? "" : word;
}

OrderTerm down(const char* by) {
  OrderTerm term(by);
  term.descending = true;
  return term;
}

SelectColumns joined(SelectColumns columns, const SelectColumns& more) {
  columns.insert(columns.end(), more.begin(), more.end());
  return columns;
}

std::string nameOf(const SelectColumn& column) {
  return column.name.empty() ? column.expression.substr(column.expression.rfind('.') + 1) : column.name;
}

std::string selectText(const Select& select) {
  return headText(select) + bodyText(select) + orderText(select);
}

std::string tableText(const Select& select) { return bodyText(select) + orderText(select); }

std::string countText(const Select& select) {
  if (select.distinct)
    return "SELECT COUNT(*) FROM (" + headText(select) + bodyText(select) + ") AS ALL_ROWS";
  return "SELECT COUNT(*)" + bodyText(select);
}

std::string countUpToText(const Select& select) {
  return "SELECT COUNT(*) FROM (" + (select.distinct ? headText(select) : "SELECT 1") + bodyText(select) +
         " LIMIT ?) AS FIRST_ROWS";
}

std::string pageText(const Select& select) { return selectText(select) + " LIMIT ? OFFSET ?"; }

std::string firstColumnText(const Select& select) {
  if (select.distinct) return selectText(select);
  Select one = select;
  one.columns.resize(1);
  return selectText(one);
}

const OrderTerm* firstOrder(const Select& select) {
  return select.order.empty() ? nullptr : &select.order.front();
}

Select filtered(Select select, const std::string& condition, const std::vector<Value>& values) {
  select.where = select.where.empty() ? condition : "(" + select.where + ") AND (" + condition + ")";
  select.values.insert(select.values.end(), values.begin(), values.end());
  return select;
}

std::string likeText(const std::string& expression) { return expression + " LIKE ? ESCAPE '\\'"; }

std::string anywhere(std::string_view typed) {
  std::string escaped;
  for (const char c : typed) {
    if (c == '%' || c == '_' || c == '\\') escaped += '\\';
    escaped += c;
  }
  return "%" + escaped + "%";
}

std::string numberText(const std::string& number) {
  const std::string whole = "CAST(" + number + " AS INTEGER)";
  return "CASE WHEN " + number + " = " + whole + " THEN " + whole + " ELSE NUMTEXT(" + number + ") END";
}
