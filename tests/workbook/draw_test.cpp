#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "platform/workbook/draw.h"
#include "workbook/books.h"
#include "workbook/recorder.h"

namespace {

using workbook::Workbook;

books::Page pageOf(Workbook& book) {
  books::Recorder recorder;
  EXPECT_EQ(workbook::draw(book, book.sheetNames().front(), recorder, books::HalfMetrics()), 1);
  return recorder.pages.at(0);
}

// One page of the sheet, its left and top margins 36 points; columns are 48 points wide.
class Sheet {
 public:
  explicit Sheet(lxw_workbook* made) : book(made), sheet(workbook_add_worksheet(made, "Bill")) {
    worksheet_set_paper(sheet, 9);
    worksheet_set_margins(sheet, 0.5, 0.5, 0.5, 0.5);
  }
  // A format with these properties.
  lxw_format* format(const std::function<void(lxw_format*)>& set) const {
    lxw_format* made = workbook_add_format(book);
    set(made);
    return made;
  }
  void text(lxw_row_t row, lxw_col_t column, const char* words, lxw_format* format = nullptr) const {
    worksheet_write_string(sheet, row, column, words, format);
  }
  void number(lxw_row_t row, double value, const char* code, lxw_format* format = nullptr) const {
    if (!format) format = workbook_add_format(book);
    format_set_num_format(format, code);
    worksheet_write_number(sheet, row, 0, value, format);
  }
  lxw_workbook* book;
  lxw_worksheet* sheet;
};

books::Page drawn(const std::function<void(const Sheet&)>& fill) {
  Workbook book = Workbook::fromBytes(books::written([&](lxw_workbook* made) { fill(Sheet(made)); }));
  book.recalculate();
  return pageOf(book);
}

// A character of the default font is 5.5 points wide here, so a column holds 8 of them.
TEST(Draw, LongTextsFlowIntoEmptyNeighbours) {
  const auto page = drawn([](const Sheet& sheet) {
    sheet.text(0, 0, "twelve chars");
    sheet.text(1, 0, "stopped here");
    worksheet_write_formula(sheet.sheet, 1, 1, "=\"\"", nullptr);
    sheet.text(2, 2, "to the left!", sheet.format([](auto* f) { format_set_align(f, LXW_ALIGN_RIGHT); }));
    sheet.text(3, 2, "both sides..", sheet.format([](auto* f) { format_set_align(f, LXW_ALIGN_CENTER); }));
    sheet.text(4, 0, "short");
    sheet.text(5, 4, "end");
  });
  const std::tuple<const char*, double, double> cases[] = {
      {"twelve chars", 0,  96 },
      {"stopped here", 0,  48 },
      {"to the left!", 48, 144},
      {"both sides..", 48, 192},
      {"short",        0,  48 },
  };
  for (const auto& [words, from, to] : cases) {
    const auto* text = page.find(words);
    ASSERT_NE(text, nullptr) << words;
    EXPECT_NEAR(text->clip.x, 36 + from, 1e-6) << words;
    EXPECT_NEAR(text->clip.x + text->clip.w, 36 + to, 1e-6) << words;
  }
  // Vowel signs above and below the line are not cut.
  EXPECT_NEAR(page.find("short")->clip.h, 15 + 6, 1e-6);
}

TEST(Draw, NumbersTooWideShowSigns) {
  const auto page = drawn([](const Sheet& sheet) {
    sheet.number(0, 1234567, "#,##0.00");
    sheet.number(1, 1.0 / 3, "General");
    sheet.number(2, 123.5, "#,##0.00");
    sheet.number(3, 1234567, "#,##0.00", sheet.format(format_set_shrink));
    sheet.number(4, -5, "0;[Red]-0");
    worksheet_write_boolean(sheet.sheet, 5, 0, 1, nullptr);
  });
  const auto& texts = page.texts;
  ASSERT_EQ(texts.size(), 6u);
  const char* const shown[] = {"########", "0.333333", "123.50", "1,234,567.00", "-5", "TRUE"};
  for (size_t i = 0; i < texts.size(); ++i) EXPECT_EQ(texts[i].text, shown[i]);
  EXPECT_EQ(texts[2].halign, paint::HAlign::Right);
  EXPECT_NEAR(texts[3].font.size, 11 * 43.5 / 66.0, 1e-6);
  EXPECT_EQ(texts[4].colour, (paint::Colour{255, 0, 0}));
  EXPECT_EQ(texts[5].halign, paint::HAlign::Centre);
}

TEST(Draw, AlignmentWrapAndIndent) {
  const auto page = drawn([](const Sheet& sheet) {
    worksheet_set_row(sheet.sheet, 0, 20, nullptr);
    sheet.text(0, 0, "wraps into three lines", sheet.format(format_set_text_wrap));
    sheet.text(1, 0, "middle", sheet.format([](auto* f) {
      format_set_align(f, LXW_ALIGN_VERTICAL_CENTER);
      format_set_text_wrap(f);
    }));
    sheet.text(2, 0, "in", sheet.format([](auto* f) { format_set_indent(f, 2); }));
    sheet.text(3, 0, "two\nlines");
  });
  // What does not fit keeps its beginning.
  EXPECT_TRUE(page.find("wraps into three lines")->wrap);
  EXPECT_EQ(page.find("wraps into three lines")->valign, paint::VAlign::Top);
  EXPECT_EQ(page.find("middle")->valign, paint::VAlign::Middle);
  EXPECT_NEAR(page.find("in")->box.x, 36 + 2.25 + 13.5, 1e-6);
  EXPECT_NE(page.find("two lines"), nullptr);
}

TEST(Draw, MergesFillsAndBordersAreOnePiece) {
  const auto page = drawn([](const Sheet& sheet) {
    worksheet_merge_range(sheet.sheet, 0, 0, 1, 3, "merged title that is long", sheet.format([](auto* f) {
      format_set_border(f, LXW_BORDER_THIN);
      format_set_bg_color(f, 0xFFEECC);
      format_set_align(f, LXW_ALIGN_CENTER);
    }));
    lxw_format* thick = sheet.format([](auto* f) { format_set_top(f, LXW_BORDER_THICK); });
    for (lxw_col_t c = 0; c < 4; ++c) worksheet_write_blank(sheet.sheet, 2, c, thick);
  });
  EXPECT_EQ(std::ranges::count_if(page.texts, [](const auto& t) { return !t.text.empty(); }), 1);
  const auto* title = page.find("merged title that is long");
  ASSERT_NE(title, nullptr);
  EXPECT_NEAR(title->clip.x, 36, 1e-6);
  EXPECT_NEAR(title->clip.w, 192, 1e-6);
  EXPECT_NEAR(title->box.h, 30, 1e-6);
  ASSERT_EQ(page.fills.size(), 2u);  // one a row
  EXPECT_EQ(page.fills[0].colour, (paint::Colour{0xFF, 0xEE, 0xCC}));
  EXPECT_NEAR(page.fills[0].rect.w, 192, 1e-6);
  // Top, left, right of the box; the thick line wins below it. None inside.
  std::multiset<double> widths;
  for (const auto& line : page.lines) widths.insert(line.width);
  EXPECT_EQ(widths, (std::multiset<double>{0.5, 0.5, 0.5, 2}));
}

// The head's picture goes with its rows; a picture that moves and sizes follows the cells.
TEST(Draw, Pictures) {
  static const unsigned char kPng[] = {
      0x89, 'P', 'N', 'G', 13, 10, 26, 10, 0, 0, 0, 13, 'I', 'H', 'D', 'R', 0,   0,   0, 100, 0, 0, 0,
      50,   8,   2,   0,   0,  0,  0,  0,  0, 0, 0, 0,  0,   0,   'I', 'E', 'N', 'D', 0, 0,   0, 0};
  Workbook book = Workbook::fromBytes(books::written([](lxw_workbook* made) {
    const Sheet sheet(made);
    sheet.text(30, 0, "end");
    lxw_image_options options{};
    options.x_offset = 8;
    options.object_position = LXW_OBJECT_MOVE_AND_SIZE;
    worksheet_insert_image_buffer_opt(sheet.sheet, 2, 1, kPng, sizeof kPng, &options);
    options.object_position = LXW_OBJECT_MOVE_DONT_SIZE;
    worksheet_insert_image_buffer_opt(sheet.sheet, 20, 1, kPng, sizeof kPng, &options);
  }));
  auto seen = pageOf(book).pictures;
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_NEAR(seen[0].x, 36 + 48 + 6, 0.1);
  EXPECT_NEAR(seen[0].y, 36 + 30, 0.1);
  EXPECT_NEAR(seen[0].w, 75, 0.1);
  EXPECT_NEAR(seen[0].h, 37.5, 0.1);
  EXPECT_NEAR(seen[1].h, 37.5, 0.1);
  book.sheet("Bill").hideRows(4, 4);
  seen = pageOf(book).pictures;
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_NEAR(seen[0].h, 22.5, 0.1);
  book.sheet("Bill").hideRows(21, 21);
  EXPECT_EQ(pageOf(book).pictures.size(), 1u);
}

}  // namespace
