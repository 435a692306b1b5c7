#include "vouchers/html_rows.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "base/number.h"
#include "base/text.h"

namespace {

// Blanks and line ends between words count as one blank.
std::string plainText(std::string text) {
  for (const auto& [sign, meant] : {
           std::pair{"&nbsp;", " " },
           {"&lt;",   "<" },
           {"&gt;",   ">" },
           {"&quot;", "\""},
           {"&#39;",  "'" },
           {"&amp;",  "&" }
  })
    text = replaceAll(text, sign, meant);
  for (char& c : text)
    if (std::isspace(static_cast<unsigned char>(c)) != 0) c = ' ';
  while (text.find("  ") != std::string::npos) text = replaceAll(text, "  ", " ");
  return trim(text);
}

// "td" of <TD align="right">, "/td" of </td>
std::string nameOf(std::string_view tag) {
  const size_t end = tag.find_first_of(" \t\r\n/", 1);
  return lower(tag.substr(0, end));
}

size_t spanOf(std::string_view tag) {
  const std::string small = lower(tag);
  const size_t said = small.find("colspan=");
  if (said == std::string::npos) return 1;
  const size_t digit = small.find_first_of("0123456789", said);
  return digit == std::string::npos ? 1
                                    : static_cast<size_t>(std::clamp(Val(small.substr(digit)), 1.0, 1000.0));
}

}  // namespace

std::vector<std::vector<std::string>> rowsOfHtml(std::string_view page, size_t mostRows, size_t mostColumns) {
  std::vector<std::vector<std::string>> rows;
  std::string cell;
  size_t span = 0;  // columns of the cell that stands open
  const auto endCell = [&] {
    if (span > 0) rows.back().push_back(plainText(cell));
    for (; span > 1 && rows.back().size() < mostColumns; --span) rows.back().emplace_back();
    span = 0;
    cell.clear();
  };
  for (size_t at = 0; at < page.size(); ++at) {
    if (page[at] != '<') {
      if (span > 0) cell += page[at];
      continue;
    }
    const size_t end = page.find('>', at);
    if (end == std::string_view::npos) break;
    const std::string_view tag = page.substr(at + 1, end - at - 1);
    const std::string name = nameOf(tag);
    at = end;
    if (name == "tr") {
      endCell();
      if (rows.size() == mostRows) break;
      rows.emplace_back();
    } else if (name == "td" || name == "th") {
      endCell();
      if (!rows.empty() && rows.back().size() < mostColumns) span = spanOf(tag);
    } else if (name == "/td" || name == "/th" || name == "/tr" || name == "/table") {
      endCell();
    } else if (name == "style" || name == "script") {
      at = std::min(page.find("</", end), page.size() - 1);
    } else {
      cell += ' ';
    }
  }
  endCell();
  return rows;
}
