#include "base/text.h"
#include "fuzz/scratch.h"
#include "fuzz/use_book.h"

// The text of some parts of a workbook whose other parts are sound. A line "=== sheet1" begins the
// part of that name; what stands before the first such line is passed over.
namespace {

struct Place {
  const char *name, *part;
};
constexpr Place kPlaces[] = {
    {"workbook",      "xl/workbook.xml"                    },
    {"sheet1",        "xl/worksheets/sheet1.xml"           },
    {"sheet2",        "xl/worksheets/sheet2.xml"           },
    {"styles",        "xl/styles.xml"                      },
    {"texts",         "xl/sharedStrings.xml"               },
    {"theme",         "xl/theme.xml"                       },
    {"drawing",       "xl/drawings/drawing1.xml"           },
    {"relations",     "xl/_rels/workbook.xml.rels"         },
    {"sheetrelation", "xl/worksheets/_rels/sheet1.xml.rels"},
    {"picture",       "xl/media/image1.png"                },
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  scratch();
  auto parts = plainBook();
  const std::string_view all(reinterpret_cast<const char*>(data), size);
  for (const std::string& piece : split(all, "=== ")) {
    const size_t end = piece.find('\n');
    if (end == std::string::npos) continue;
    for (const Place& place : kPlaces)
      if (piece.substr(0, end) == place.name) parts[place.part] = piece.substr(end + 1);
  }
  useBook(books::zipped(parts));
  return 0;
}
