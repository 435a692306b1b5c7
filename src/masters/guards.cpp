#include "masters/guards.h"

#include "base/words.h"

std::optional<Refusal> refusal(Database& db, std::span<const Guard> guards, const Value& code) {
  for (const Guard& guard : guards) {
    std::optional<Row> found;
    db.passOver(kOtherTrades, [&] { found = db.first(guard.statement, code); });
    if (found)
      return Refusal{words(std::string(guard.words), "where", found->text(0)), std::string(guard.title)};
  }
  return {};
}
