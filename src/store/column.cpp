#include "store/column.h"

#include <sqlite3.h>

#include <algorithm>
#include <cctype>

#include "base/number.h"
#include "base/text.h"

namespace {

// The end of a quoted piece that starts at `at`, or `at` when none starts there.
size_t skipQuoted(std::string_view text, size_t at) {
  const char open = text[at];
  if (open != '\'' && open != '"' && open != '`' && open != '[') return at;
  const char close = open == '[' ? ']' : open;
  ++at;
  while (at < text.size()) {
    if (text[at] == close) {
      if (close == ']' || at + 1 >= text.size() || text[at + 1] != close) return at + 1;
      ++at;
    }
    ++at;
  }
  return at;
}

std::vector<std::string> topLevelParts(std::string_view text) {
  std::vector<std::string> parts(1);
  int depth = 0;
  for (size_t at = 0; at < text.size();) {
    if (const auto end = skipQuoted(text, at); end != at) {
      parts.back() += text.substr(at, end - at);
      at = end;
      continue;
    }
    const char c = text[at++];
    if (c == '(') ++depth;
    if (c == ')') --depth;
    if (c == ',' && depth == 0)
      parts.emplace_back();
    else
      parts.back() += std::isspace(static_cast<unsigned char>(c)) ? ' ' : c;
  }
  return parts;
}

bool isTableConstraint(std::string_view part) {
  for (const char* word : {"PRIMARY KEY", "UNIQUE", "CHECK", "FOREIGN KEY", "CONSTRAINT "})
    if (startsWithNoCase(part, word)) return true;
  return false;
}

Column::Kind kindOf(std::string_view type) {
  if (startsWithNoCase(type, "TEXT")) return Column::Kind::text;
  if (startsWithNoCase(type, "DOUBLE") || startsWithNoCase(type, "REAL")) return Column::Kind::number;
  if (startsWithNoCase(type, "INT")) return Column::Kind::whole;
  if (startsWithNoCase(type, "DATE")) return Column::Kind::date;
  return Column::Kind::other;
}

}  // namespace

std::vector<Column> declaredColumns(std::string_view createStatement) {
  const auto open = createStatement.find('(');
  const auto close = createStatement.rfind(')');
  if (open == std::string_view::npos || close == std::string_view::npos || close < open) return {};

  std::vector<Column> columns;
  for (const auto& piece : topLevelParts(createStatement.substr(open + 1, close - open - 1))) {
    const std::string part = trim(piece);
    if (part.empty() || isTableConstraint(part)) continue;
    const auto quotedEnd = skipQuoted(part, 0);
    const auto end = quotedEnd > 0 ? quotedEnd : std::min(part.find(' '), part.size());
    Column column{.name = quotedEnd > 0 ? part.substr(1, end - 2) : part.substr(0, end),
                  .definition = trim(std::string_view(part).substr(end))};
    column.kind = kindOf(column.definition);
    if (column.kind == Column::Kind::text && column.definition.substr(4, 1) == "(")
      column.size = toInt(Val(std::string_view(column.definition).substr(5)));
    columns.push_back(std::move(column));
  }
  return columns;
}

std::string quotedName(std::string_view name) {
  const bool plain = !name.empty() && !std::isdigit(static_cast<unsigned char>(name.front())) &&
                     std::all_of(name.begin(), name.end(),
                                 [](unsigned char c) { return (c < 0x80 && std::isalnum(c)) || c == '_'; }) &&
                     sqlite3_keyword_check(name.data(), static_cast<int>(name.size())) == 0;
  if (plain) return std::string(name);
  if (name.find(']') == std::string_view::npos) return "[" + std::string(name) + "]";
  return "\"" + replaceAll(name, "\"", "\"\"") + "\"";
}
