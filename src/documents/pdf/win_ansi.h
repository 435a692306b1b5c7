#pragma once

#include <string>
#include <string_view>

namespace pdf {

struct AnsiText {
  std::string bytes;
  size_t lost = 0;  // letters that nothing could be put for: each is a "?"
};

// UTF-8 as the bytes of the WinAnsi encoding. What it lacks is written with what it has (Rs for
// the rupee sign, letters without their accents, plain quotes and dashes); signs that cannot be
// seen are left out, a control character is a blank.
AnsiText winAnsi(std::string_view utf8);

}  // namespace pdf
