#include <gtest/gtest.h>

#include "platform/workbook/draw.h"
#include "workbook/books.h"
#include "workbook/recorder.h"

namespace {

using workbook::Workbook;

constexpr double kA4 = 841.89;

std::vector<books::Page> drawn(Workbook& book, const std::string& sheet = "Bill") {
  books::Recorder recorder;
  const int pages = workbook::draw(book, sheet, recorder, books::HalfMetrics());
  EXPECT_EQ(pages, static_cast<int>(recorder.pages.size()));
  return std::move(recorder.pages);
}

// The sheet "Bill" of this making.
Workbook made(const std::function<void(lxw_worksheet*)>& fill) {
  return Workbook::fromBytes(books::written([&](lxw_workbook* book) {
    lxw_worksheet* sheet = workbook_add_worksheet(book, "Bill");
    worksheet_set_paper(sheet, 9);
    fill(sheet);
  }));
}

std::vector<books::Page> drawn(const std::function<void(lxw_worksheet*)>& fill) {
  Workbook book = made(fill);
  return drawn(book);
}

// Rows "row 1", "row 2" ... of one height.
void rows(lxw_worksheet* sheet, int count, double height) {
  for (int row = 0; row < count; ++row) {
    worksheet_set_row(sheet, static_cast<lxw_row_t>(row), height, nullptr);
    worksheet_write_string(sheet, static_cast<lxw_row_t>(row), 0, ("row " + std::to_string(row + 1)).c_str(),
                           nullptr);
  }
}

// Top and bottom margins that leave so many points.
void room(lxw_worksheet* sheet, double points) {
  const double each = (kA4 - points) / 2 / 72;
  worksheet_set_margins(sheet, 0.5, 0.5, each, each);
}

std::vector<size_t> textsPerPage(const std::vector<books::Page>& pages) {
  std::vector<size_t> counts;
  for (const books::Page& page : pages) counts.push_back(page.texts.size());
  return counts;
}

using Counts = std::vector<size_t>;

// A page that is filled exactly ends there: the next one begins with the head. Rounding of
// less than half a point pushes no row on.
TEST(Layout, APageEndsWhereTheNextRowWouldNotFit) {
  const std::tuple<double, double, int, Counts> cases[] =
      {
          {720,   15,    96,  {48, 48}   },
          {720,   15,    97,  {48, 48, 1}},
          {719.6, 15,    48,  {48}       },
          {719.4, 15,    48,  {47, 1}    },
          {720,   14.4,  100, {50, 50}   },
          {720,   409.5, 3,   {1, 1, 1}  },
          {300,   400,   2,   {1, 1}     }, // taller than the page: alone on one
  };
  for (const auto& [space, height, count, pages] : cases)
    EXPECT_EQ(textsPerPage(drawn([&, points = space, each = height, n = count](lxw_worksheet* sheet) {
                room(sheet, points);
                rows(sheet, n, each);
              })),
              pages)
        << space << " points, rows of " << height;
}

// Fit to width is floored to a whole percent, never enlarges, and passes manual breaks over.
TEST(Layout, ScaleAndFitApplyToEverything) {
  const auto pages = drawn([](lxw_worksheet* sheet) {
    room(sheet, 720);
    worksheet_set_print_scale(sheet, 50);
    rows(sheet, 100, 15);
  });
  EXPECT_EQ(textsPerPage(pages), (Counts{96, 4}));
  EXPECT_DOUBLE_EQ(pages[0].texts[0].font.size, 5.5);
  EXPECT_NEAR(pages[0].find("row 3")->box.y, (kA4 - 720) / 2 + 15, 1e-3);
  EXPECT_NEAR(pages[0].texts[0].box.x, 36 + 1.125, 1e-6);

  const std::tuple<int, uint16_t, int, double, Counts> cases[] = {
      {20, 0, 50, 0.54, {69}   }, // columns of 48 points on 523.3: 54.5%
      {2,  0, 50, 1,    {49, 2}},
      {2,  1, 96, 0.5,  {97}   }, // rows of 15 on one page
  };
  for (const auto& [columns, high, count, scale, texts] : cases) {
    const auto fit = drawn([n = count, across = columns, down = high](lxw_worksheet* sheet) {
      room(sheet, 720);
      worksheet_fit_to_pages(sheet, 1, down);
      lxw_row_t breaks[] = {5, 0};
      worksheet_set_h_pagebreaks(sheet, breaks);
      rows(sheet, n, 15);
      for (lxw_col_t i = 1; i < across; ++i) worksheet_write_number(sheet, 0, i, 1, nullptr);
    });
    EXPECT_EQ(textsPerPage(fit), texts);
    EXPECT_DOUBLE_EQ(fit[0].texts[0].font.size, 11 * scale);
  }
}

TEST(Layout, TitlesAreasAndCentring) {
  const auto pages = drawn([](lxw_worksheet* sheet) {
    room(sheet, 720);
    rows(sheet, 120, 15);
    worksheet_repeat_rows(sheet, 0, 1);
    worksheet_print_area(sheet, 0, 0, 99, 1);
    worksheet_center_horizontally(sheet);
    worksheet_write_string(sheet, 3, 5, "outside", nullptr);
  });
  ASSERT_EQ(textsPerPage(pages), (Counts{48, 48, 8}));  // the title twice more
  EXPECT_EQ(pages[1].texts[0].text, "row 1");
  EXPECT_EQ(pages[1].texts[2].text, "row 49");
  EXPECT_NEAR(pages[2].find("row 95")->box.y, pages[2].texts[0].box.y + 30, 1e-6);
  EXPECT_EQ(pages[0].find("outside"), nullptr);
  EXPECT_NEAR(pages[0].texts[0].box.x, (595.276 - 96) / 2 + 2.25, 1e-3);
}

TEST(Layout, HeaderAndFooter) {
  const auto pages = drawn([](lxw_worksheet* sheet) {
    room(sheet, 720);
    rows(sheet, 60, 15);
    worksheet_set_header(sheet, "&LLeft && more&C&\"Arial,Bold\"&14&A&R&D");
    worksheet_set_footer(sheet, "&RPage &P of &N\nsecond");
  });
  ASSERT_EQ(pages.size(), 2u);
  EXPECT_NE(pages[0].find("Left & more"), nullptr);
  const auto* centre = pages[0].find("Bill");
  ASSERT_NE(centre, nullptr);
  EXPECT_TRUE(centre->font.bold);
  EXPECT_EQ(centre->font.family, "Arial");
  EXPECT_DOUBLE_EQ(centre->font.size, 14);
  EXPECT_NEAR(centre->box.x, (595.276 - 28) / 2, 1e-3);
  const auto* page = pages[1].find("Page 2 of 2");
  ASSERT_NE(page, nullptr);
  EXPECT_NEAR(page->box.y, kA4 - 21.6 - 2 * 13.2, 1e-2);
  EXPECT_NE(pages[1].find("second"), nullptr);
}

}  // namespace
