#include "formats/designs.h"

#include <filesystem>

namespace formats {

namespace {

struct Design {
  const char* file;
  void (*write)(const std::string& path);
};

constexpr Design kDesigns[] = {
    {"INVGST1.xlsx",  &invgst1 },
    {"INVGST2.xlsx",  &invgst2 },
    {"INVGST3.xlsx",  &invgst3 },
    {"INVGST4.xlsx",  &invgst4 },
    {"INVGST5.xlsx",  &invgst5 },
    {"INVGST6.xlsx",  &invgst6 },
    {"QUOTITM7.xlsx", &quotitm7},
    {"INVGEN8.xlsx",  &invgen8 },
    {"INVGEN9.xlsx",  &invgen9 },
    {"INVGEN.xlsx",   &invgen  },
    {"voucher.xlsx",  &voucher },
};

}  // namespace

void writeAll(const std::string& folder) {
  const std::filesystem::path into(folder);
  std::filesystem::create_directories(into);
  for (const auto& design : kDesigns) design.write((into / design.file).string());
}

}  // namespace formats
