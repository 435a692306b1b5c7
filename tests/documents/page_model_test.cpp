#include "documents/page_model.h"

#include <gtest/gtest.h>

namespace {

// Head, foot, slots, rows of a slot, pages.
constexpr PageModel kDesign1{16, 12, 24, 1, 3};
constexpr PageModel kTwoRowSlots{16, 12, 10, 2, 3};
constexpr PageModel kLargePage{20, 10, 30, 1, 1};
constexpr PageModel kSmallPage{20, 10, 25, 1, 1};
constexpr PageModel kUnknown{1, 1, 1, 1, 1};

struct Case {
  const char* what;
  PageModel model;
  int lines;
  SlotsKept kept;
  int first, last;
  bool hidden;
};

TEST(PageModel, HidesWhatAPaperDoesNotNeed) {
  using enum SlotsKept;
  const Case cases[] = {
      {"a full page",                     kDesign1,     24, LinesOfLargePages, 41,  144, true },
      {"one line more",                   kDesign1,     25, LinesOfLargePages, 93,  144, true },
      {"two full pages",                  kDesign1,     48, LinesOfLargePages, 93,  144, true },
      {"all three pages",                 kDesign1,     72, LinesOfLargePages, 145, 144, false},
      {"more lines than slots",           kDesign1,     73, LinesOfLargePages, 197, 144, false},
      {"slots of two rows",               kTwoRowSlots, 11, LinesOfLargePages, 85,  132, true },
      {"a large page keeps its lines",    kLargePage,   4,  LinesOfLargePages, 25,  50,  true },
      {"25 slots are not large",          kSmallPage,   4,  LinesOfLargePages, 46,  45,  false},
      {"a slip keeps its lines",          kSmallPage,   4,  Lines,             25,  45,  true },
      {"a challan keeps all slots",       kLargePage,   4,  All,               51,  50,  false},
      {"one row is never hidden alone",   kLargePage,   29, LinesOfLargePages, 50,  50,  false},
      {"a design without a row, 5 lines", kUnknown,     5,  LinesOfLargePages, 15,  2,   false},
  };
  for (const auto& c : cases) {
    const auto rows = rowsToHide(c.model, c.lines, c.kept);
    EXPECT_EQ(rows.first, c.first) << c.what;
    EXPECT_EQ(rows.last, c.last) << c.what;
    EXPECT_EQ(rows.any(), c.hidden) << c.what;
  }
  EXPECT_FALSE(rowsToHide({16, 12, 0, 1, 3}, 5, LinesOfLargePages).any()) << "no slots";
}

}  // namespace
