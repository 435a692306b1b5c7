#include <gtest/gtest.h>

#include <random>

#include "platform/workbook/draw.h"
#include "support/temp_folder.h"
#include "workbook/books.h"
#include "workbook/recorder.h"

namespace {

using workbook::Workbook;
using workbook::WorkbookError;

const std::string kDamaged = "The file is damaged or cut short.", kTooLarge = "The file is too large.";

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
  const TempFolder folder;
  std::ofstream(folder / "text.xlsx") << "no zip at all";
  std::ofstream(folder / "empty.xlsx") << "";
  const std::string missing = folder / "none.xlsx", itself = folder / "";
  const std::pair<std::string, std::string> files[] = {
      {missing,               "The file " + missing + " is missing."      },
      {itself,                "The file " + itself + " is not a workbook."},
      {folder / "text.xlsx",  "The file text.xlsx is not a workbook."     },
      {folder / "empty.xlsx", "The file empty.xlsx is not a workbook."    },
  };
  for (const auto& [path, said] : files) EXPECT_EQ(refusal([&, name = path] { Workbook::load(name); }), said);
  EXPECT_EQ(refusal([] { Workbook::fromBytes(simple()).sheet("D_C"); }), "The file has no sheet D_C.");
  EXPECT_NE(refusal("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1").find("older .xls kind"), std::string::npos);
  for (const auto& [part, content] : {std::pair("a.txt", "x"), std::pair("[Content_Types].xml", "<Types/>")})
    EXPECT_EQ(refusal(books::zipped({
                  {part, content}
    })),
              "The file is not a workbook.");
}

TEST(Load, ZipBombsAreRefusedUnread) {
  EXPECT_EQ(refusal(books::zipped(books::withSheet(std::string(200u << 20, ' ')))), kTooLarge);
  // A size that lies is found out while reading.
  std::string bytes = books::zipped(books::withSheet(books::sheet(std::string(100000, ' '))));
  const size_t entry = bytes.rfind("xl/worksheets/sheet1.xml");
  ASSERT_NE(entry, std::string::npos);
  bytes.replace(entry - 46 + 24, 4, std::string("\x64\0\0\0", 4));
  EXPECT_EQ(refusal(bytes), kDamaged);
}

// What is calculated, drawn and saved of a workbook: its pages, or what is said against it.
std::string used(const std::string& bytes) {
  const TempFolder folder;
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

// Small files that ask for a lot end soon, with a word.
TEST(Load, HostileSizesAreRefused) {
  const auto times = [](int n, const std::string& text) {
    std::string all;
    for (int i = 0; i < n; ++i) all += text;
    return all;
  };
  const std::pair<std::string, std::string> sheets[] = {
      {books::sheet(times(40000,                "<a>") + times(40000,                   "</a>")),                        "0 pages"},
      {"<w><cols>" + times(20000,                                       "<col min=\"1\" max=\"9\"/>") + "</cols></w>",                                                     kTooLarge},
      {books::sheet("<row><c><v>1</v></c></row><row r=\"900\"><c><v>1</v></c></row>",
       "<mergeCells>" + times(9000, "<mergeCell ref=\"A1:Z900\"/>") + "</mergeCells>"),
       "The sheet S has too much on one page."},
      {books::sheet(times(3000, "<row><c><f>FOO(1)</f></c></row>")),                                       "63 pages"                                               },
      {books::sheet("<row><c t=\"str\"><v>" + std::string(1u << 20,                             'x') + "</v></c></row>"),                             "1 pages"},
  };
  for (const auto& [sheet, said] : sheets) EXPECT_EQ(used(books::zipped(books::withSheet(sheet))), said);

  const std::string area = "<definedName name=\"_xlnm.Print_Area\" localSheetId=\"0\">S!$A$1:$XFC$";
  const std::string pages = "The sheet S would need more than 2,000 pages.";
  const std::pair<std::string, std::string> names[] = {
      {area + "1048575</definedName>",              pages    },
      { area + "9" + times(3000,   ",S!$A$1:$XFC$99999") + "</definedName>",     pages},
      { times(10001, "<definedName name=\"a\">1</definedName>"), kTooLarge},
  };
  for (const auto& [name, said] : names)
    EXPECT_EQ(
        used(books::zipped(books::withSheet(
            books::sheet("<row><c t=\"str\"><v>1</v></c></row>"),
            R"(<workbook xmlns:r="u"><sheets><sheet name="S" sheetId="1" r:id="rId1"/></sheets><definedNames>)" +
                name + "</definedNames></workbook>"))),
        said);
}

TEST(Load, CellsOfEveryKind) {
  auto parts = books::withSheet(books::sheet(
      R"(<row><c><v>1.5</v></c><c t="s"><v>0</v></c><c t="s"><v>1</v></c>)"
      R"(<c t="inlineStr"><is><r><t>in</t></r><r><t xml:space="preserve">line </t></r></is></c>)"
      R"(<c t="str"><f>"x"</f><v>x</v></c><c t="b"><v>1</v></c><c t="e"><v>#N/A</v></c>)"
      R"(<c t="d"><v>2026-06-15</v></c></row><row r="9"><c r="C9"><v>1E2</v></c><c><v>7</v></c></row>)"));
  parts["xl/sharedStrings.xml"] =
      R"(<sst xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)"
      R"(<si><t xml:space="preserve">  </t></si><si><r><rPr><b/></rPr><t>rich</t></r>)"
      R"(<r><t> text_x000D_&amp;</t></r><rPh sb="0" eb="1"><t>no</t></rPh></si></sst>)";
  // An absolute target, and a name that differs in case.
  auto& relations = parts["xl/_rels/workbook.xml.rels"];
  relations.insert(
      relations.find("</Relationships>"),
      R"(<Relationship Id="rId8" Type="http://x/sharedStrings" Target="/xl/SharedStrings.xml"/>)");
  Workbook book = Workbook::fromBytes(books::zipped(parts));
  auto& sheet = book.sheet("S");
  const char* expected[] = {"1.5", "  ", "rich text\r&", "inline ", "x", "TRUE", "#N/A", "46188"};
  for (int column = 1; column <= 8; ++column)
    EXPECT_EQ(books::said(sheet.value(1, column)), expected[column - 1]);
  EXPECT_EQ(books::said(sheet.value(9, 3)) + books::said(sheet.value(9, 4)), "1007");
  EXPECT_TRUE(sheet.value(5, 5).empty());
}

}  // namespace
