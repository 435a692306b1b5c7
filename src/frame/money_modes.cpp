#include "frame/money_modes.h"

#include <algorithm>

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"

namespace {

constexpr MoneyMode kModes[] = {
    {".",  english("Cash")       },
    {"CQ", english("Cheque")     },
    {"UP", english("UPI")        },
    {"NE", english("NEFT / RTGS")},
    {"CD", english("Card")       },
};

}  // namespace

std::span<const MoneyMode> moneyModes() { return kModes; }

std::string moneyModeName(std::string_view code) {
  const auto* const found =
      std::ranges::find_if(kModes, [&](const MoneyMode& m) { return sameText(m.code, code); });
  return words(found == std::end(kModes) ? kModes[0].name : found->name);
}

const MoneyMode* moneyModeTyped(std::string_view typed) {
  const std::string text = trim(typed);
  if (text.empty()) return nullptr;
  const double place = Val(text);
  if (place >= 1 && place <= static_cast<double>(std::size(kModes)) && numText(place) == text)
    return &kModes[static_cast<size_t>(place) - 1];
  for (const MoneyMode& mode : kModes)
    if (sameText(mode.code, text) || startsWithNoCase(mode.name, text) ||
        startsWithNoCase(words(mode.name), text) || (mode.code == "NE" && sameText(text, "RTGS")))
      return &mode;
  return nullptr;
}
