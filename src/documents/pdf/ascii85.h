#pragma once

#include <string>
#include <string_view>

namespace pdf {

// Any bytes as printable characters: four become five from "!" to "u", four zeros "z"; "~>" ends.
std::string ascii85(std::string_view bytes);

}  // namespace pdf
