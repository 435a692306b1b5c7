#pragma once

#include <string>
#include <string_view>

// UTF-8 and code points. A broken byte decodes as U+FFFD.
namespace utf8 {

std::u32string decode(std::string_view text);
std::string encode(std::u32string_view text);
std::string encode(char32_t ch);
size_t length(std::string_view text);

}  // namespace utf8
