#include "frame/note_reasons.h"

#include <array>

#include "base/words.h"

namespace {

constexpr std::array<const char*, kNoteReasons> kReasons = {
    english("GOODS RETURNED"),          english("RATE"),   english("QUANTITY"),
    english("DISCOUNT AFTER THE SALE"), english("OTHERS"),
};

}  // namespace

std::string noteReason(int reason) {
  return reason < 1 || reason > kNoteReasons ? "" : words(kReasons[static_cast<size_t>(reason - 1)]);
}

bool reasonMovesGoods(int reason) { return reason == 1 || reason == 3; }
