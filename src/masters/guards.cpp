#include "masters/guards.h"

#include <algorithm>

#include "base/words.h"

std::optional<Refusal> refusal(Database& db, std::span<const Guard> guards, const Value& code) {
  for (const Guard& guard : guards) {
    const auto marks = static_cast<size_t>(std::ranges::count(guard.statement, '?'));
    const std::vector<Value> values(marks, code);
    std::optional<Row> found;
    db.passOver(kOtherTrades, [&] { found = db.first(guard.statement, values); });
    if (found)
      return Refusal{words(std::string(guard.words), "where", found->text(0)), std::string(guard.title)};
  }
  return {};
}
