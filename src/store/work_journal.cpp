#include "store/work_journal.h"

#include <algorithm>

#include "base/text.h"

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

void WorkJournal::shorten() {
  for (size_t end = entries_.size(); end-- > 0;) {
    if (!empties(entries_[end].sql)) continue;
    const std::string table = target(entries_[end].sql);
    const auto first = entries_.begin(), behind = first + static_cast<std::ptrdiff_t>(end) + 1;
    const auto writesIt = [&](const Entry& entry) { return target(entry.sql) == table; };
    const auto readsIt = [&](const Entry& entry) {
      return !writesIt(entry) && upper(entry.sql).find(table) != std::string::npos;
    };
    if (std::any_of(first, behind, readsIt)) continue;
    const auto kept = std::remove_if(first, behind, writesIt);
    end = static_cast<size_t>(kept - first);
    entries_.erase(kept, behind);
  }
}

std::vector<WorkJournal::Entry> WorkJournal::since(size_t mark) const {
  return {entries_.begin() + static_cast<std::ptrdiff_t>(std::min(mark, entries_.size())), entries_.end()};
}

void WorkJournal::backTo(size_t mark) {
  if (mark < entries_.size()) entries_.resize(mark);
}
