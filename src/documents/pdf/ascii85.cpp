#include "documents/pdf/ascii85.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace pdf {

std::string ascii85(std::string_view bytes) {
  constexpr size_t kGroup = 4, kDigits = 5;
  constexpr uint32_t kBase = 85;
  std::string out;
  out.reserve(bytes.size() / kGroup * kDigits + kDigits + 2);
  for (size_t at = 0; at < bytes.size(); at += kGroup) {
    const size_t taken = std::min(kGroup, bytes.size() - at);
    uint32_t value = 0;
    for (size_t i = 0; i < kGroup; ++i)
      value = value << 8 | (i < taken ? static_cast<unsigned char>(bytes[at + i]) : 0u);
    if (value == 0 && taken == kGroup) {
      out += 'z';
      continue;
    }
    std::array<char, kDigits> digits{};
    for (size_t i = kDigits; i-- > 0; value /= kBase) digits[i] = static_cast<char>('!' + value % kBase);
    out.append(digits.data(), taken + 1);
  }
  return out + "~>";
}

}  // namespace pdf
