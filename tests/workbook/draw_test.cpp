#include <gtest/gtest.h>

#include <algorithm>

#include "platform/workbook/draw.h"
#include "workbook/books.h"
#include "workbook/recorder.h"

namespace {

using workbook::Workbook;

// One page of the sheet, its left and top margins 36 points; columns are 48 points wide.
books::Page drawn(const std::function<void(lxw_workbook*, lxw_worksheet*)>& fill) {
  Workbook book = Workbook::fromBytes(books::written([&](lxw_workbook* made) {
    lxw_worksheet* sheet = workbook_add_worksheet(made, "Bill");
    worksheet_set_paper(sheet, 9);
    worksheet_set_margins(sheet, 0.5, 0.5, 0.5, 0.5);
    fill(made, sheet);
  }));
  book.recalculate();
  books::Recorder recorder;
  EXPECT_EQ(workbook::draw(book, "Bill", recorder, books::HalfMetrics()), 1);
  return recorder.pages.at(0);
}

// A character of the default font is 5.5 points wide here, so a column holds 8 of them.
TEST(Draw, LongTextsFlowIntoEmptyNeighbours) {
  const auto page = drawn([](lxw_workbook* made, lxw_worksheet* sheet) {
    lxw_format* right = workbook_add_format(made);
    format_set_align(right, LXW_ALIGN_RIGHT);
    lxw_format* centre = workbook_add_format(made);
    format_set_align(centre, LXW_ALIGN_CENTER);
    worksheet_write_string(sheet, 0, 0, "twelve chars", nullptr);
    worksheet_write_string(sheet, 1, 0, "stopped here", nullptr);
    worksheet_write_formula(sheet, 1, 1, "=\"\"", nullptr);
    worksheet_write_string(sheet, 2, 2, "to the left!", right);
    worksheet_write_string(sheet, 3, 2, "both sides..", centre);
    worksheet_write_string(sheet, 4, 0, "short", nullptr);
    worksheet_write_string(sheet, 5, 4, "end", nullptr);
  });
  struct Case {
    const char* text;
    double from, to;
  };
  for (const Case& c : {
           Case{"twelve chars", 0,  96 },
           Case{"stopped here", 0,  48 },
           Case{"to the left!", 48, 144},
           Case{"both sides..", 48, 192},
           Case{"short",        0,  48 }
  }) {
    const auto* text = page.find(c.text);
    ASSERT_NE(text, nullptr) << c.text;
    EXPECT_NEAR(text->clip.x, 36 + c.from, 1e-6) << c.text;
    EXPECT_NEAR(text->clip.x + text->clip.w, 36 + c.to, 1e-6) << c.text;
  }
  // Vowel signs above and below the line are not cut.
  EXPECT_NEAR(page.find("short")->clip.h, 15 + 6, 1e-6);
}

TEST(Draw, NumbersTooWideShowSigns) {
  const auto page = drawn([](lxw_workbook* made, lxw_worksheet* sheet) {
    lxw_format* money = workbook_add_format(made);
    format_set_num_format(money, "#,##0.00");
    lxw_format* shrunk = workbook_add_format(made);
    format_set_num_format(shrunk, "#,##0.00");
    format_set_shrink(shrunk);
    lxw_format* red = workbook_add_format(made);
    format_set_num_format(red, "0;[Red]-0");
    worksheet_write_number(sheet, 0, 0, 1234567, money);
    worksheet_write_number(sheet, 1, 0, 1.0 / 3, nullptr);
    worksheet_write_number(sheet, 2, 0, 123.5, money);
    worksheet_write_number(sheet, 3, 0, 1234567, shrunk);
    worksheet_write_number(sheet, 4, 0, -5, red);
    worksheet_write_boolean(sheet, 5, 0, 1, nullptr);
  });
  const auto& texts = page.texts;
  ASSERT_EQ(texts.size(), 6u);
  EXPECT_EQ(texts[0].text, "########");
  EXPECT_EQ(texts[1].text, "0.333333");
  EXPECT_EQ(texts[2].text, "123.50");
  EXPECT_EQ(texts[2].halign, paint::HAlign::Right);
  EXPECT_EQ(texts[3].text, "1,234,567.00");
  EXPECT_NEAR(texts[3].font.size, 11 * 43.5 / 66.0, 1e-6);
  EXPECT_EQ(texts[4].colour, (paint::Colour{255, 0, 0}));
  EXPECT_EQ(texts[5].text, "TRUE");
  EXPECT_EQ(texts[5].halign, paint::HAlign::Centre);
}

TEST(Draw, AlignmentWrapAndIndent) {
  const auto page = drawn([](lxw_workbook* made, lxw_worksheet* sheet) {
    lxw_format* wrapped = workbook_add_format(made);
    format_set_text_wrap(wrapped);
    lxw_format* middle = workbook_add_format(made);
    format_set_align(middle, LXW_ALIGN_VERTICAL_CENTER);
    format_set_text_wrap(middle);
    lxw_format* indented = workbook_add_format(made);
    format_set_indent(indented, 2);
    worksheet_set_row(sheet, 0, 20, nullptr);
    worksheet_write_string(sheet, 0, 0, "wraps into three lines", wrapped);
    worksheet_write_string(sheet, 1, 0, "middle", middle);
    worksheet_write_string(sheet, 2, 0, "in", indented);
    worksheet_write_string(sheet, 3, 0, "two\nlines", nullptr);
  });
  // What does not fit keeps its beginning.
  EXPECT_TRUE(page.find("wraps into three lines")->wrap);
  EXPECT_EQ(page.find("wraps into three lines")->valign, paint::VAlign::Top);
  EXPECT_EQ(page.find("middle")->valign, paint::VAlign::Middle);
  EXPECT_NEAR(page.find("in")->box.x, 36 + 2.25 + 13.5, 1e-6);
  EXPECT_NE(page.find("two lines"), nullptr);
}

TEST(Draw, MergesFillsAndBordersAreOnePiece) {
  const auto page = drawn([](lxw_workbook* made, lxw_worksheet* sheet) {
    lxw_format* boxed = workbook_add_format(made);
    format_set_border(boxed, LXW_BORDER_THIN);
    format_set_bg_color(boxed, 0xFFEECC);
    format_set_align(boxed, LXW_ALIGN_CENTER);
    worksheet_merge_range(sheet, 0, 0, 1, 3, "merged title that is long", boxed);
    lxw_format* thick = workbook_add_format(made);
    format_set_top(thick, LXW_BORDER_THICK);
    for (lxw_col_t c = 0; c < 4; ++c) worksheet_write_blank(sheet, 2, c, thick);
  });
  const auto* title = page.find("merged title that is long");
  ASSERT_NE(title, nullptr);
  EXPECT_NEAR(title->clip.x, 36, 1e-6);
  EXPECT_NEAR(title->clip.w, 192, 1e-6);
  EXPECT_NEAR(title->box.h, 30, 1e-6);
  EXPECT_EQ(
      std::count_if(page.texts.begin(), page.texts.end(), [](const auto& t) { return !t.text.empty(); }), 1);
  ASSERT_EQ(page.fills.size(), 2u);  // one a row
  EXPECT_EQ(page.fills[0].colour, (paint::Colour{0xFF, 0xEE, 0xCC}));
  EXPECT_NEAR(page.fills[0].rect.w, 192, 1e-6);
  // Top, left, right of the box; the thick line wins below it. None inside.
  ASSERT_EQ(page.lines.size(), 4u);
  std::vector<double> widths;
  for (const auto& line : page.lines) widths.push_back(line.width);
  std::sort(widths.begin(), widths.end());
  EXPECT_EQ(widths, (std::vector<double>{0.5, 0.5, 0.5, 2}));
}

// The head's picture goes with its rows; a picture that moves and sizes follows the cells.
TEST(Draw, Pictures) {
  static const unsigned char kPng[] = {
      0x89, 'P', 'N', 'G', 13, 10, 26, 10, 0, 0, 0, 13, 'I', 'H', 'D', 'R', 0,   0,   0, 100, 0, 0, 0,
      50,   8,   2,   0,   0,  0,  0,  0,  0, 0, 0, 0,  0,   0,   'I', 'E', 'N', 'D', 0, 0,   0, 0};
  Workbook book = Workbook::fromBytes(books::written([](lxw_workbook* made) {
    lxw_worksheet* sheet = workbook_add_worksheet(made, "Bill");
    worksheet_set_paper(sheet, 9);
    worksheet_set_margins(sheet, 0.5, 0.5, 0.5, 0.5);
    worksheet_write_string(sheet, 30, 0, "end", nullptr);
    lxw_image_options options{};
    options.x_offset = 8;
    options.object_position = LXW_OBJECT_MOVE_AND_SIZE;
    worksheet_insert_image_buffer_opt(sheet, 2, 1, kPng, sizeof kPng, &options);
    options.object_position = LXW_OBJECT_MOVE_DONT_SIZE;
    worksheet_insert_image_buffer_opt(sheet, 20, 1, kPng, sizeof kPng, &options);
  }));
  const auto pictures = [&] {
    books::Recorder recorder;
    workbook::draw(book, "Bill", recorder, books::HalfMetrics());
    return recorder.pages.at(0).pictures;
  };
  auto seen = pictures();
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_NEAR(seen[0].x, 36 + 48 + 6, 0.1);
  EXPECT_NEAR(seen[0].y, 36 + 30, 0.1);
  EXPECT_NEAR(seen[0].w, 75, 0.1);
  EXPECT_NEAR(seen[0].h, 37.5, 0.1);
  EXPECT_NEAR(seen[1].h, 37.5, 0.1);
  book.sheet("Bill").hideRows(4, 4);
  seen = pictures();
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_NEAR(seen[0].h, 22.5, 0.1);
  book.sheet("Bill").hideRows(21, 21);
  EXPECT_EQ(pictures().size(), 1u);
}

// A workbook with a styles part whose cells have the styles 0, 1, ... in this order.
Workbook styled(const std::string& cells, const std::string& xfs, const std::string& borders = "<border/>",
                const std::string& fonts = "<font><sz val=\"11\"/><name val=\"Calibri\"/></font>") {
  auto parts = books::withSheet(books::sheet(cells));
  parts["xl/styles.xml"] =
      "<styleSheet xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><fonts>" + fonts +
      "</fonts><borders>" + borders + "</borders><cellXfs>" + xfs + "</cellXfs></styleSheet>";
  auto& relations = parts["xl/_rels/workbook.xml.rels"];
  relations.insert(relations.find("</Relationships>"),
                   "<Relationship Id=\"rId9\" Type=\"http://x/styles\" Target=\"/xl/styles.xml\"/>");
  return Workbook::fromBytes(books::zipped(parts));
}

books::Page pageOf(Workbook& book) {
  books::Recorder recorder;
  workbook::draw(book, "S", recorder, books::HalfMetrics());
  return recorder.pages.at(0);
}

TEST(Draw, StylesFromThemePaletteAndRows) {
  Workbook book = styled(
      "<row r=\"1\"><c r=\"A1\" s=\"1\" t=\"str\"><v>white on grey</v></c></row>"
      "<row r=\"2\" s=\"2\" customFormat=\"1\"><c r=\"A2\" s=\"99\"><v>1</v></c><c r=\"C2\" "
      "s=\"2\"><v>2</v></c></row>",
      "<xf/><xf fontId=\"1\" fillId=\"1\"/><xf fillId=\"2\"/>",
      "<border/></borders><fills><fill><patternFill patternType=\"none\"/></fill><fill><patternFill "
      "patternType=\"solid\"><fgColor theme=\"1\" tint=\"0.5\"/></patternFill></fill><fill><patternFill "
      "patternType=\"solid\"><fgColor indexed=\"13\"/></patternFill></fill></fills><borders>",
      "\n<font><sz val=\"11\"/><name val=\"Calibri\"/></font>\n"
      "<font><b/><i val=\"0\"/><sz val=\"14\"/><color theme=\"0\"/><name val=\"Arial\"/></font>");
  const auto page = pageOf(book);
  const auto* text = page.find("white on grey");
  ASSERT_NE(text, nullptr);
  EXPECT_TRUE(text->font.bold);
  EXPECT_FALSE(text->font.italic);
  EXPECT_EQ(text->font.family, "Arial");
  EXPECT_EQ(text->colour, (paint::Colour{255, 255, 255}));  // number 0 is the light one
  ASSERT_EQ(page.fills.size(), 2u);
  EXPECT_EQ(page.fills[0].colour, (paint::Colour{128, 128, 128}));
  EXPECT_EQ(page.fills[1].colour, (paint::Colour{255, 255, 0}));
  EXPECT_NEAR(page.fills[1].rect.w, 96, 1e-6);  // the row's style between its cells
}

TEST(Draw, TurnedStackedAndCrossedOut) {
  const auto turned = [](int degrees) {
    return "<xf><alignment textRotation=\"" + std::to_string(degrees) + "\"/></xf>";
  };
  Workbook book = styled(
      "<row r=\"1\" ht=\"60\"><c t=\"str\"><v>up</v></c><c s=\"1\" t=\"str\"><v>down</v></c><c s=\"2\" "
      "t=\"str\"><v>ab</v></c><c s=\"3\"/><c s=\"1\"><v>1234567890</v></c></row>",
      turned(90) + turned(180) + turned(255) + "<xf borderId=\"1\"/>",
      "<border/><border diagonalUp=\"1\" diagonalDown=\"1\"><diagonal style=\"thin\"/></border>");
  const auto page = pageOf(book);
  EXPECT_EQ(page.find("up")->turn, 90);
  EXPECT_EQ(page.find("down")->turn, -90);
  EXPECT_EQ(page.find("a\nb")->halign, paint::HAlign::Centre);
  EXPECT_NE(page.find("1234567890"), nullptr);  // as long as the row is high
  ASSERT_EQ(page.lines.size(), 2u);
  EXPECT_NEAR(std::abs(page.lines[0].y2 - page.lines[0].y1), 60, 1e-6);
}

TEST(Draw, PiecesOfRichTextKeepTheirLook) {
  Workbook book = styled(
      "<row><c t=\"inlineStr\"><is><r><t>To </t></r><r><rPr><b/><sz val=\"20\"/><color rgb=\"FFFF0000\"/>"
      "<rFont val=\"Arial\"/></rPr><t>RAJESH</t></r></is></c><c "
      "t=\"inlineStr\"><is><r><t>plain</t></r></is></c></row>",
      "<xf/>");
  const auto page = pageOf(book);
  const auto* text = page.find("To RAJESH");
  ASSERT_NE(text, nullptr);
  ASSERT_EQ(text->runs.size(), 2u);
  EXPECT_EQ(text->runs[0].size, 3u);
  EXPECT_EQ(text->runs[0].font.size, 11);
  EXPECT_EQ(text->runs[1].font.size, 20);
  EXPECT_TRUE(text->runs[1].font.bold);
  EXPECT_EQ(text->runs[1].colour, (paint::Colour{255, 0, 0}));
  EXPECT_TRUE(page.find("plain")->runs.empty());
  book.sheet("S").set(1, 1, "other");
  EXPECT_TRUE(pageOf(book).find("other")->runs.empty());
}

// Columns are counted in digits of the workbook's own font: 7 pixels of Calibri 11, 8 of Arial 11.
TEST(Draw, WidthsFollowTheOwnFont) {
  const char* const cells = "<row><c t=\"str\"><v>a</v></c><c t=\"str\"><v>b</v></c></row>";
  const auto second = [&](const std::string& font) {
    Workbook book =
        styled(cells, "<xf/>", "<border/>", "<font><sz val=\"11\"/><name val=\"" + font + "\"/></font>");
    const auto page = pageOf(book);
    return page.find("b")->box.x - page.find("a")->box.x;
  };
  EXPECT_NEAR(second("Calibri"), 64 * 0.75, 1e-6);
  EXPECT_NEAR(second("Arial"), 73 * 0.75, 1e-6);
}

TEST(Draw, CroppedPicturesShowWhatIsLeft) {
  auto parts = books::withSheet(books::sheet("<row><c><v>1</v></c></row>", "<drawing r:id=\"d\"/>"));
  auto& sheet = parts["xl/worksheets/sheet1.xml"];
  sheet.insert(sheet.find("<worksheet") + 10, " xmlns:r=\"urn:r\"");
  parts["xl/worksheets/_rels/sheet1.xml.rels"] =
      "<Relationships><Relationship Id=\"d\" Type=\"http://x/drawing\" Target=\"../d.xml\"/></Relationships>";
  parts["xl/d.xml"] =
      "<w xmlns:r=\"urn:r\"><oneCellAnchor><from><col>0</col><row>0</row></from><ext cx=\"127000\" "
      "cy=\"127000\"/>"
      "<pic><blipFill><blip r:embed=\"p\"/><srcRect l=\"25000\" "
      "b=\"50000\"/></blipFill></pic></oneCellAnchor><oneCellAnchor>"
      "<sp/><clientData/></oneCellAnchor></w>";
  parts["xl/_rels/d.xml.rels"] =
      "<Relationships><Relationship Id=\"p\" Type=\"http://x/image\" Target=\"p.gif\"/></Relationships>";
  parts["xl/p.gif"] = "GIF89a";
  Workbook book = Workbook::fromBytes(books::zipped(parts));
  books::Recorder recorder;
  workbook::draw(book, "S", recorder, books::HalfMetrics());
  EXPECT_EQ(book.warnings(), std::vector<std::string>{"Sheet S: drawn shapes and charts are left out."});
  ASSERT_EQ(recorder.shownParts.size(), 1u);
  const paint::Rect shown = recorder.shownParts[0];
  EXPECT_EQ(shown.x, 0.25);
  EXPECT_EQ(shown.w, 0.75);
  EXPECT_EQ(shown.y, 0);
  EXPECT_EQ(shown.h, 0.5);

  std::string& drawing = parts["xl/d.xml"];
  drawing.replace(drawing.find("<col>0"), 6, "<col>nan");
  Workbook odd = Workbook::fromBytes(books::zipped(parts));
  books::Recorder same;
  workbook::draw(odd, "S", same, books::HalfMetrics());
  EXPECT_EQ(same.pages.at(0).pictures.at(0).x, recorder.pages.at(0).pictures.at(0).x)
      << "a place that is no number is the first column";
}

}  // namespace
