#include <gtest/gtest.h>
#include <zip.h>

#include <random>

#include "platform/workbook/draw.h"
#include "workbook/books.h"
#include "workbook/recorder.h"

namespace {

using workbook::Workbook;
using workbook::WorkbookError;

std::string refusal(const std::function<void()>& load) {
  try {
    load();
  } catch (const WorkbookError& error) {
    return error.what();
  }
  return "loaded";
}

std::string refusal(const std::string& bytes) {
  return refusal([&] { Workbook::fromBytes(bytes); });
}

std::string simple() {
  return books::written([](lxw_workbook* made) {
    lxw_worksheet* sheet = workbook_add_worksheet(made, "Bill");
    for (lxw_row_t row = 0; row < 200; ++row)
      worksheet_write_string(sheet, row, 0, ("text " + std::to_string(row * 7919)).c_str(), nullptr);
  });
}

TEST(Load, WhatIsWrongIsSaid) {
  const books::Folder folder;
  EXPECT_EQ(refusal([&] { Workbook::load(folder / "none.xlsx"); }),
            "The file " + (folder / "none.xlsx") + " is missing.");
  EXPECT_EQ(refusal([&] { Workbook::load(folder / ""); }),
            "The file " + (folder / "") + " is not a workbook.");
  books::writeBytes(folder / "text.xlsx", "no zip at all");
  EXPECT_EQ(refusal([&] { Workbook::load(folder / "text.xlsx"); }), "The file text.xlsx is not a workbook.");
  books::writeBytes(folder / "empty.xlsx", "");
  EXPECT_EQ(refusal([&] { Workbook::load(folder / "empty.xlsx"); }),
            "The file empty.xlsx is not a workbook.");
  EXPECT_NE(refusal("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1").find("older .xls kind"), std::string::npos);
  EXPECT_EQ(refusal(books::zipped({
                {"a.txt", "x"}
  })),
            "The file is not a workbook.");
  EXPECT_EQ(refusal(books::zipped({
                {"[Content_Types].xml", "<Types/>"}
  })),
            "The file is not a workbook.");
  EXPECT_EQ(refusal(simple()), "loaded");
}

// Every length of a file that was cut short is refused, none crashes.
TEST(Load, CutShort) {
  const std::string whole = simple();
  for (size_t size = 4; size < whole.size(); size += 97)
    EXPECT_EQ(refusal(whole.substr(0, size)), "The file is damaged or cut short.") << size;
}

// One wrong byte anywhere: refused, or it stood where nothing is read; a checksum guards what is.
TEST(Load, WrongBytes) {
  const std::string whole = simple();
  int refused = 0;
  for (size_t at = 0; at < whole.size(); at += 41) {
    std::string bytes = whole;
    bytes[at] = static_cast<char>(bytes[at] ^ 0x55);
    const std::string said = refusal(bytes);
    refused += said != "loaded";
    if (said == "loaded") {
      EXPECT_EQ(books::said(Workbook::fromBytes(bytes).sheet("Bill").value(3, 1)), "text 15838") << at;
    }
  }
  EXPECT_GT(refused, 20);
}

TEST(Load, ZipBombsAreRefusedUnread) {
  auto parts = books::withSheet(books::sheet(""));
  parts["xl/worksheets/sheet1.xml"] = std::string(200u << 20, ' ');
  EXPECT_EQ(refusal(books::zipped(parts)), "The file is too large.");
  // A size that lies is found out while reading.
  std::string bytes = books::zipped(books::withSheet(books::sheet(std::string(100000, ' '))));
  size_t entry = bytes.rfind("xl/worksheets/sheet1.xml");
  ASSERT_NE(entry, std::string::npos);
  for (size_t i = 0; i < 4; ++i) bytes[entry - 46 + 24 + i] = i == 0 ? 100 : 0;
  EXPECT_EQ(refusal(bytes), "The file is damaged or cut short.");
}

TEST(Load, BrokenParts) {
  const auto with = [](const std::string& sheet) { return refusal(books::zipped(books::withSheet(sheet))); };
  const std::string damaged = "The file is damaged or cut short.";
  EXPECT_EQ(with("<worksheet><sheetData>"), damaged);
  EXPECT_EQ(with(""), damaged);
  EXPECT_EQ(with(books::sheet("<row r=\"0\"/>")), damaged);
  EXPECT_EQ(with(books::sheet("<row r=\"1048577\"/>")), damaged);
  EXPECT_EQ(with(books::sheet("<row r=\"1\"><c r=\"XFE1\"/></row>")), damaged);
  EXPECT_EQ(with(books::sheet("<row r=\"1\"><c r=\"A1\" t=\"s\"><v>7</v></c></row>")), damaged);
  std::string deep;
  for (int i = 0; i < 200000; ++i) deep += "<a>";
  EXPECT_EQ(with(deep), damaged);
  auto parts = books::withSheet(books::sheet(""));
  parts.erase("xl/worksheets/sheet1.xml");
  EXPECT_EQ(refusal(books::zipped(parts)), damaged);
}

// What is calculated, drawn and saved of a workbook: its pages, or what is said against it.
std::string used(const std::string& bytes) {
  const books::Folder folder;
  try {
    Workbook book = Workbook::fromBytes(bytes);
    book.recalculate();
    books::Recorder recorder;
    int pages = 0;
    for (const std::string& name : book.sheetNames())
      pages += workbook::draw(book, name, recorder, books::HalfMetrics());
    book.sheet(book.sheetNames().front()).set(2, 2, 5);
    book.save(folder / "out.xlsx");
    Workbook::load(folder / "out.xlsx");
    return std::to_string(pages) + " pages";
  } catch (const WorkbookError& error) {
    return error.what();
  }
}

// Parts that were cut, overwritten or repeated at random, each well packed again.
TEST(Load, MutilatedPartsAreRefusedOrUsed) {
  const auto whole = books::unzipped(books::written([](lxw_workbook* made) {
    lxw_worksheet* sheet = workbook_add_worksheet(made, "Bill");
    lxw_format* format = workbook_add_format(made);
    format_set_num_format(format, "[>=100000]##\\,##\\,##0.00;[Red]dd/mm/yyyy");
    format_set_border(format, LXW_BORDER_THIN);
    worksheet_merge_range(sheet, 0, 0, 1, 3, "title", format);
    for (lxw_row_t row = 2; row < 12; ++row)
      worksheet_write_formula(sheet, row, 1, "=IF(A1=\"\",SUM(C1:C9)*2,VLOOKUP(1,A1:C9,2,FALSE))", format);
    worksheet_print_area(sheet, 0, 0, 20, 5);
    worksheet_repeat_rows(sheet, 0, 1);
    worksheet_set_header(sheet, "&L&P of &N&R&D");
  }));
  const char* const kTexts[] = {"0",     "-1",   "99999999999", "&#0;", "<", "\"", "A1:XFD1048576",
                                "1e308", "SUM(", "\xFF",        ""};
  std::mt19937 random(7);
  const auto any = [&](size_t below) { return random() % below; };
  int kept = 0;
  for (int round = 0; round < 150; ++round) {
    auto parts = whole;
    std::string& part = std::next(parts.begin(), static_cast<std::ptrdiff_t>(any(parts.size())))->second;
    const size_t at = any(part.size()), from = part.find_first_of("\">", at),
                 to = part.find_first_of("\"<", from + 1);
    if (round % 3 == 0)
      part.insert(any(part.size()), part.substr(at, any(300)));
    else if (round % 3 == 1)
      part.erase(at, any(40));
    else if (to != std::string::npos)
      part.replace(from + 1, to - from - 1, kTexts[any(std::size(kTexts))]);
    kept += used(books::zipped(parts)).ends_with("pages");
  }
  EXPECT_GT(kept, 10);
  EXPECT_LT(kept, 140);
}

// Small files that ask for a lot end soon, with a word.
TEST(Load, HostileSizesAreRefused) {
  const auto times = [](int n, const std::string& text) {
    std::string all;
    for (int i = 0; i < n; ++i) all += text;
    return all;
  };
  const auto named = [](const std::string& name) {
    return "<workbook xmlns:r=\"u\"><sheets><sheet name=\"S\" sheetId=\"1\" "
           "r:id=\"rId1\"/></sheets><definedNames>" +
           name + "</definedNames></workbook>";
  };
  const std::string one = "<row><c t=\"str\"><v>1</v></c></row>", tooLarge = "The file is too large.";
  const std::string pages = "The sheet S would need more than 2,000 pages.",
                    much = "The sheet S has too much on one page.";
  const std::string area = "<definedName name=\"_xlnm.Print_Area\" localSheetId=\"0\">";
  struct Case {
    std::string sheet, workbook, said;
  };
  const Case cases[] = {
      {books::sheet(times(40000, "<a>") + times(40000,                "</a>")),                                        "",                                                                                                                                "0 pages"},
      {"<w><cols>" + times(20000,                        "<col min=\"1\" max=\"9\"/>") + "</cols></w>",                                   "",              tooLarge                                                                                                          },
      {books::sheet(one + "<row r=\"900\"><c><v>1</v></c></row>",
       "<mergeCells>" + times(9000,   "<mergeCell ref=\"A1:Z900\"/>") + "</mergeCells>"),
       "",                                                                                                                                                                 much},
      {books::sheet(one),                    named(area + "S!$A$1:$XFC$1048575</definedName>"),                                                       pages                                                                                     },
      {books::sheet(one),                        named(area + times(3000,                                           "S!$A$1:$XFC$99999,") + "S!A1</definedName>"),pages},
      {books::sheet(one),                        named(times(10001,                                           "<definedName name=\"a\">1</definedName>")),                                                  tooLarge},
      {books::sheet(times(3000,                        "<row><c><f>FOO(1)</f></c></row>")),                                     "",                          "63 pages"                                                                                                           },
      {books::sheet("<row><c t=\"str\"><v>" + std::string(1u << 20,                        'x') + "</v></c></row>"), "", "1 pages"                                                                                                                    },
  };
  for (const Case& c : cases) EXPECT_EQ(used(books::zipped(books::withSheet(c.sheet, c.workbook))), c.said);
}

TEST(Load, CellsOfEveryKind) {
  auto parts = books::withSheet(books::sheet(
      "<row><c><v>1.5</v></c><c t=\"s\"><v>0</v></c><c t=\"s\"><v>1</v></c>"
      "<c t=\"inlineStr\"><is><r><t>in</t></r><r><t xml:space=\"preserve\">line </t></r></is></c>"
      "<c t=\"str\"><f>\"x\"</f><v>x</v></c><c t=\"b\"><v>1</v></c><c t=\"e\"><v>#N/A</v></c>"
      "<c t=\"d\"><v>2026-06-15</v></c></row><row r=\"9\"><c r=\"C9\"><v>1E2</v></c><c><v>7</v></c></row>"));
  parts["xl/sharedStrings.xml"] =
      "<sst xmlns=\"http://schemas.openxmlformats.org/spreadsheetml/2006/main\"><si><t "
      "xml:space=\"preserve\">  </t></si>"
      "<si><r><rPr><b/></rPr><t>rich</t></r><r><t> text_x000D_&amp;</t></r><rPh sb=\"0\" "
      "eb=\"1\"><t>no</t></rPh></si>"
      "</sst>";
  // An absolute target, and a name that differs in case.
  auto& relations = parts["xl/_rels/workbook.xml.rels"];
  relations.insert(
      relations.find("</Relationships>"),
      "<Relationship Id=\"rId8\" Type=\"http://x/sharedStrings\" Target=\"/xl/SharedStrings.xml\"/>");
  Workbook book = Workbook::fromBytes(books::zipped(parts));
  auto& sheet = book.sheet("S");
  const char* expected[] = {"1.5", "  ", "rich text\r&", "inline ", "x", "TRUE", "#N/A", "46188"};
  for (int column = 1; column <= 8; ++column)
    EXPECT_EQ(books::said(sheet.value(1, column)), expected[column - 1]);
  EXPECT_EQ(books::said(sheet.value(9, 3)) + books::said(sheet.value(9, 4)), "1007");
  EXPECT_TRUE(sheet.value(5, 5).empty());
}

TEST(Load, PrefixedElementsAndSheetsByName) {
  const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
  Workbook book = Workbook::fromBytes(books::zipped(
      books::withSheet("<x:worksheet xmlns:x=\"" + main +
                           "\"><x:sheetData><x:row r=\"2\"><x:c r=\"B2\"><x:v>5</x:v></x:c></x:row>"
                           "</x:sheetData></x:worksheet>",
                       "<x:workbook xmlns:x=\"" + main +
                           "\" xmlns:rel=\"http://schemas.openxmlformats.org/officeDocument/2006/"
                           "relationships\"><x:sheets><x:sheet name=\"Bill &amp; Co\" sheetId=\"3\" "
                           "rel:id=\"rId1\"/></x:sheets></x:workbook>")));
  EXPECT_EQ(book.sheetNames(), std::vector<std::string>{"Bill & Co"});
  EXPECT_TRUE(book.hasSheet("BILL & CO"));
  EXPECT_EQ(books::said(book.sheet("bill & co").value(2, 2)), "5");
  EXPECT_EQ(refusal([&] { book.sheet("D_C"); }), "The file has no sheet D_C.");
}

TEST(Load, ShownValuesFollowTheirFormat) {
  Workbook book = Workbook::fromBytes(books::written([](lxw_workbook* made) {
    lxw_worksheet* sheet = workbook_add_worksheet(made, "Bill");
    const char* codes[] = {"dd/mm/yyyy", "[>=100000]##\\,##\\,##0.00;##,##0.00", "0.00%"};
    const double values[] = {46188, 1234567.5, 0.18};
    for (int i = 0; i < 3; ++i) {
      lxw_format* format = workbook_add_format(made);
      format_set_num_format(format, codes[i]);
      worksheet_write_number(sheet, 0, static_cast<lxw_col_t>(i), values[i], format);
    }
    lxw_format* builtin = workbook_add_format(made);
    format_set_num_format_index(builtin, 14);
    worksheet_write_formula(sheet, 0, 3, "=A1", builtin);
  }));
  book.recalculate();
  const char* expected[] = {"15/06/2026", "12,34,567.50", "18.00%", "15/06/2026"};
  for (int column = 1; column <= 4; ++column)
    EXPECT_EQ(book.sheet("bill").shown(1, column), expected[column - 1]);
  // A value put into a cell takes the cell's style.
  book.sheet("bill").set(1, 1, workbook::Value::date(std::chrono::year(2027) / 1 / 2));
  EXPECT_EQ(book.sheet("bill").shown(1, 4), "02/01/2027");
}

}  // namespace
