#include "gst/tables.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "gst/tables_rows.h"

namespace {

constexpr std::uintmax_t kLargestFile = 1'000'000;

// Names whose values are no figures.
bool isWorded(std::string_view name) {
  return name == kGstr1Version || name == kZeroRate || name == kUnitCode;
}

std::string keyOf(std::string_view text) { return upper(trim(text)); }

std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells{""};
  bool quoted = false;
  for (const char c : line)
    if (c == '"')
      quoted = !quoted;
    else if (c == ',' && !quoted)
      cells.emplace_back();
    else if (c != '\r')
      cells.back() += c;
  for (std::string& cell : cells) cell = trim(cell);
  return cells;
}

}  // namespace

GstTables::GstTables() {
  for (const GstTableRow& row : gstTableRows()) tables_[row.name][row.key][*parseDate(row.from)] = row.value;
}

GstTables::GstTables(const std::filesystem::path& folder) : GstTables() {
  const std::filesystem::path file = folder / kGstTablesFile;
  std::error_code none;
  if (!std::filesystem::exists(file, none)) return;
  std::ifstream in(file, std::ios::binary);
  std::string text;
  if (in && std::filesystem::file_size(file, none) <= kLargestFile)
    text.assign(std::istreambuf_iterator<char>(in), {});
  if (text.empty() || in.bad())
    faults_.push_back(words("{file} cannot be read, or is empty or too large", "file", kGstTablesFile));
  read(text);
}

void GstTables::read(const std::string& text) {
  int number = 0;
  for (std::string line : split(text, "\n")) {
    ++number;
    if (number == 1 && line.starts_with("\xEF\xBB\xBF")) line.erase(0, 3);
    const std::string bare = keyOf(replaceAll(replaceAll(line, "\r", ""), "\"", ""));
    if (bare.empty() || bare.starts_with('#') || (number == 1 && bare.starts_with("NAME,"))) continue;
    const std::string why = take(line);
    if (!why.empty())
      faults_.push_back(words("{file}, line {line}: {why}", "file", kGstTablesFile, "line",
                              std::to_string(number), "why", why));
  }
}

// Why not; empty when it was taken.
std::string GstTables::take(const std::string& line) {
  const std::vector<std::string> cells = cellsOf(line);
  if (cells.size() != 4) return words("A row has name, key, from and value");
  const auto table = tables_.find(lower(cells[0]));
  if (table == tables_.end()) return words("There is no table {name}", "name", cells[0]);
  const auto from = parseDate(cells[2]);
  if (!from) return words("{text} is no date", "text", cells[2]);
  std::string value = cells[3];
  if (table->first == kUnitCode) value = upper(value);
  if (!isWorded(table->first) && (!isNumberText(value) || Val(value) < 0))
    return words("{text} is no figure", "text", value);
  if (table->first == kZeroRate && value != "nil" && value != "exempt" && value != "nongst")
    return words("{text} is none of nil, exempt, nongst", "text", value);
  if (table->first == kUnitCode && text(kUnitCode, value, *from) != value)
    return words("{text} is no unit code", "text", value);
  std::string key = keyOf(cells[1]);
  if (table->first == kNoPlace) key = padLeft(key, 2, '0');
  table->second[key][*from] = value;
  return {};
}

const GstTables::Rows* GstTables::rowsOf(std::string_view name) const {
  const auto table = tables_.find(name);
  return table == tables_.end() ? nullptr : &table->second;
}

std::string GstTables::text(std::string_view name, std::string_view key, Date on) const {
  const Rows* const rows = rowsOf(name);
  if (rows == nullptr) return {};
  const auto row = rows->find(keyOf(key));
  if (row == rows->end()) return {};
  const auto after = row->second.upper_bound(on);
  return after == row->second.begin() ? "" : std::prev(after)->second;
}

double GstTables::number(std::string_view name, std::string_view key, Date on) const {
  return Val(text(name, key, on));
}

double GstTables::step(std::string_view name, double at, Date on) const {
  double best = -1, value = 0;
  if (const Rows* const rows = rowsOf(name))
    for (const auto& [key, days] : *rows) {
      const std::string found = text(name, key, on);
      if (!found.empty() && Val(key) <= at && Val(key) > best) {
        best = Val(key);
        value = Val(found);
      }
    }
  return value;
}

std::string GstTables::byStart(std::string_view name, std::string_view start, Date on) const {
  for (int n = length(start); n >= 0; --n) {
    std::string found = text(name, left(start, n), on);
    if (!found.empty()) return found;
  }
  return {};
}

bool GstTables::isTaken(double rate, Date on) const { return number(kTaxRate, numText(rate), on) == 1; }
