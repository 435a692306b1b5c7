#include "masters/select_text.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "base/number.h"
#include "base/text.h"

namespace {

bool isWord(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

// Past the quoted, bracketed or parenthesised piece that starts at `at`; `at` when none does.
size_t pastPiece(std::string_view text, size_t at) {
  const char open = text[at];
  if (open == '(') {
    for (size_t i = at + 1; i < text.size();) {
      if (text[i] == ')') return i + 1;
      const size_t past = pastPiece(text, i);
      i = past == i ? i + 1 : past;
    }
    return text.size();
  }
  if (open != '\'' && open != '"' && open != '[') return at;
  const size_t end = text.find(open == '[' ? ']' : open, at + 1);
  return end == std::string_view::npos ? text.size() : end + 1;
}

// Where the words (one blank between them) stand at the top level from `at` on.
size_t findWords(std::string_view text, std::string_view words, size_t at = 0) {
  while (at < text.size()) {
    if (const size_t past = pastPiece(text, at); past != at) {
      at = past;
      continue;
    }
    const bool starts = at == 0 || !isWord(text[at - 1]);
    if (starts && startsWithNoCase(text.substr(at), words) &&
        (at + words.size() == text.size() || !isWord(text[at + words.size()])))
      return at;
    ++at;
  }
  return std::string_view::npos;
}

std::vector<std::string> topLevelParts(std::string_view text) {
  std::vector<std::string> parts(1);
  for (size_t at = 0; at < text.size();) {
    const size_t past = pastPiece(text, at);
    if (past != at) {
      parts.back() += text.substr(at, past - at);
      at = past;
    } else if (text[at] == ',') {
      parts.emplace_back();
      ++at;
    } else {
      parts.back() += text[at++];
    }
  }
  for (std::string& part : parts) part = trim(part);
  return parts;
}

// "(comp_id)" is comp_id.
std::string withoutParentheses(std::string text) {
  while (text.size() > 1 && text.front() == '(' && pastPiece(text, 0) == text.size())
    text = trim(std::string_view(text).substr(1, text.size() - 2));
  return text;
}

std::string ownName(const std::string& expression) {
  if (expression.size() > 1 && expression.front() == '[' && expression.back() == ']')
    return expression.substr(1, expression.size() - 2);
  for (const char c : expression)
    if (!isWord(c) && c != '.') return expression;
  return expression.substr(expression.rfind('.') + 1);
}

SelectColumn columnOf(const std::string& part) {
  const size_t as = findWords(part, "AS");
  if (as == std::string_view::npos || as == 0) {
    const std::string expression = withoutParentheses(part);
    return {expression, ownName(expression)};
  }
  return {trim(std::string_view(part).substr(0, as)), ownName(trim(std::string_view(part).substr(as + 2)))};
}

std::string headText(const Select& select) {
  std::vector<std::string> columns;
  for (const SelectColumn& c : select.columns)
    columns.push_back(c.name == ownName(c.expression) ? c.expression : c.expression + " AS [" + c.name + "]");
  return std::string("SELECT ") + (select.distinct ? "DISTINCT " : "") + join(columns, ", ");
}

std::string bodyText(const Select& select) {
  std::string text = " FROM " + select.from;
  if (!select.where.empty()) text += " WHERE " + select.where;
  if (!select.group.empty()) text += " GROUP BY " + select.group;
  return text;
}

std::string orderText(const Select& select) {
  if (!select.order.empty()) return " ORDER BY " + select.order;
  if (!select.distinct && select.group.empty()) return {};
  std::vector<std::string> numbers;
  for (size_t i = 1; i <= select.columns.size(); ++i) numbers.push_back(std::to_string(i));
  return " ORDER BY " + join(numbers, ", ");
}

}  // namespace

Select parseSelect(std::string_view statement, std::vector<Value> values) {
  const std::string text = trim(statement);
  const size_t from = findWords(text, "FROM");
  if (!startsWithNoCase(text, "SELECT") || from == std::string_view::npos) return {};

  Select select;
  select.values = std::move(values);
  std::string head = ltrim(std::string_view(text).substr(6, from - 6));
  if (findWords(head, "DISTINCT") == 0) {
    select.distinct = true;
    head = trim(std::string_view(head).substr(8));
  }
  for (const std::string& part : topLevelParts(head))
    if (!part.empty()) select.columns.push_back(columnOf(part));

  struct Clause {
    std::string_view words;
    std::string* text;
  };
  const std::array clauses{
      Clause{"FROM",     &select.from },
      Clause{"WHERE",    &select.where},
      Clause{"GROUP BY", &select.group},
      Clause{"ORDER BY", &select.order}
  };
  size_t at = from;
  for (size_t i = 0; i < clauses.size(); ++i) {
    const size_t start = findWords(text, clauses[i].words, at);
    if (start == std::string_view::npos) continue;
    const size_t body = start + clauses[i].words.size();
    size_t end = text.size();
    for (size_t k = i + 1; k < clauses.size() && end == text.size(); ++k)
      if (const size_t next = findWords(text, clauses[k].words, body); next != std::string_view::npos)
        end = next;
    *clauses[i].text = trim(std::string_view(text).substr(body, end - body));
    at = end;
  }
  return select;
}

std::string selectText(const Select& select) {
  return headText(select) + bodyText(select) + orderText(select);
}

std::string countText(const Select& select) {
  if (select.distinct || !select.group.empty())
    return "SELECT COUNT(*) FROM (" + headText(select) + bodyText(select) + ")";
  return "SELECT COUNT(*)" + bodyText(select);
}

std::string countUpToText(const Select& select) {
  const bool whole = select.distinct || !select.group.empty();
  return "SELECT COUNT(*) FROM (" + (whole ? headText(select) : "SELECT 1") + bodyText(select) + " LIMIT ?)";
}

std::string pageText(const Select& select) { return selectText(select) + " LIMIT ? OFFSET ?"; }

std::string firstColumnText(const Select& select) {
  const bool byNumber = Val(select.order) > 0;
  if (select.distinct || !select.group.empty() || byNumber) return selectText(select);
  // Of other columns an order may use the alias, so these stay.
  Select one = select;
  one.columns = {select.columns.front()};
  for (const SelectColumn& c : select.columns)
    if (c.name != ownName(c.expression) && c.name != one.columns[0].name) one.columns.push_back(c);
  return selectText(one);
}

OrderTerm firstOrder(const Select& select) {
  if (select.columns.empty()) return {};
  if (select.order.empty()) return {select.distinct ? select.columns[0].expression : std::string()};
  std::string term = topLevelParts(select.order).front();
  const size_t down = findWords(term, "DESC"), up = findWords(term, "ASC");
  term = trim(std::string_view(term).substr(0, std::min(down, up)));
  // A column by its number or its alias.
  const int number = toInt(Val(term));
  if (number > 0 && static_cast<size_t>(number) <= select.columns.size())
    term = select.columns[static_cast<size_t>(number) - 1].expression;
  for (const SelectColumn& c : select.columns)
    if (sameText(c.name, term)) term = c.expression;
  return {term, down != std::string_view::npos};
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
