#include "store/work_journal.h"

#include <algorithm>

#include "base/text.h"

namespace {

bool writes(const WorkJournal::Entry& entry, const std::string& table) {
  return WorkJournal::target(entry.sql) == table;
}

}  // namespace

std::string WorkJournal::target(std::string_view sql) {
  const std::string text = ltrim(sql);
  for (const char* verb : {"INSERT INTO ", "UPDATE ", "DELETE FROM "}) {
    if (!startsWithNoCase(text, verb)) continue;
    const auto from = std::string_view(verb).size();
    return upper(
        replaceAll(replaceAll(text.substr(from, text.find_first_of(" (", from) - from), "[", ""), "]", ""));
  }
  return {};
}

bool WorkJournal::empties(std::string_view sql) {
  const std::string text = trim(sql);
  return startsWithNoCase(text, "DELETE FROM ") && text.find(' ', 12) == std::string::npos;
}

void WorkJournal::add(std::string sql, std::vector<Value> values) {
  entries_.push_back({std::move(sql), std::move(values)});
}

void WorkJournal::emptied(const std::string& table) {
  const bool readByOthers = std::ranges::any_of(entries_, [&](const Entry& entry) {
    return !writes(entry, table) && upper(entry.sql).find(table) != std::string::npos;
  });
  if (!readByOthers) std::erase_if(entries_, [&](const Entry& entry) { return writes(entry, table); });
}

std::vector<WorkJournal::Entry> WorkJournal::since(size_t mark) const {
  return {entries_.begin() + static_cast<std::ptrdiff_t>(std::min(mark, entries_.size())), entries_.end()};
}

void WorkJournal::backTo(size_t mark) {
  if (mark < entries_.size()) entries_.resize(mark);
}
