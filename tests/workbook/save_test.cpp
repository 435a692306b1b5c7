#include <gtest/gtest.h>

#include <chrono>
#include <limits>

#include "frame/full_disk.h"
#include "support/pdf_file.h"
#include "workbook/books.h"

namespace {

using workbook::Workbook;

// The parts of the workbook as it is saved.
books::Parts saved(Workbook& book) {
  const TempFolder folder;
  book.save(folder / "out.xlsx");
  EXPECT_EQ(folder.names(), std::vector<std::string>{"out.xlsx"});
  return books::unzipped(bytesOf(folder / "out.xlsx"));
}

Workbook reloaded(Workbook& book) {
  const TempFolder folder;
  book.save(folder / "out.xlsx");
  return Workbook::load(folder / "out.xlsx");
}

std::vector<std::string> differing(const books::Parts& a, const books::Parts& b) {
  std::vector<std::string> names;
  for (const auto& [name, bytes] : a)
    if (!b.contains(name) || b.at(name) != bytes) names.push_back(name);
  return names;
}

void expectWellFormed(const books::Parts& parts) {
  const TempFolder folder;
  int count = 0;
  for (const auto& [name, bytes] : parts)
    if (name.ends_with(".xml") || name.ends_with(".rels"))
      std::ofstream(folder / (std::to_string(count++) + ".xml")) << bytes;
  EXPECT_EQ(outputOf("xmllint --noout " + folder.path().string() + "/*.xml 2>&1"), "");
}

Workbook withCells(const std::string& rows, const std::string& behind = "") {
  return Workbook::fromBytes(books::zipped(books::withSheet(books::sheet(rows, behind))));
}

// A design in small: "Bill" shows cells of the data sheet.
std::string design() {
  return books::written([](lxw_workbook* made) {
    lxw_worksheet* bill = workbook_add_worksheet(made, "BILL");
    lxw_worksheet* data = workbook_add_worksheet(made, "SHEET3");
    lxw_worksheet* other = workbook_add_worksheet(made, "Untouched");
    lxw_format* date = workbook_add_format(made);
    format_set_num_format_index(date, 14);  // dd/mm/yyyy
    worksheet_write_formula(bill, 0, 0, "=SHEET3!A2", nullptr);
    worksheet_write_formula(bill, 1, 0, "=SHEET3!B2", date);
    worksheet_write_formula(bill, 2, 0, "=IF(SHEET3!C2>100,\"big\",\"small\")", nullptr);
    worksheet_write_formula(bill, 3, 0, "=SHEET3!C2/SHEET3!D2", nullptr);
    worksheet_write_formula(bill, 4, 0, "=SHEET3!C2>5", nullptr);
    worksheet_write_formula(bill, 5, 0, "=Untouched!A1", nullptr);
    worksheet_write_string(data, 0, 0, "old heading", nullptr);
    worksheet_write_number(data, 1, 2, 7, date);
    worksheet_write_string(other, 0, 0, "left alone", nullptr);
    const lxw_row_t breaks[] = {2, 0};
    worksheet_set_h_pagebreaks(bill, const_cast<lxw_row_t*>(breaks));
  });
}

TEST(Save, FilledAndCalculated) {
  const std::string bytes = design();
  Workbook book = Workbook::fromBytes(bytes);
  auto& data = book.sheet("SHEET3");
  data.clearContents();
  EXPECT_TRUE(data.value(1, 1).empty());
  data.set(2, 1, "A & B <\"Co\">\nsecond  \u0AA8\u0AAE");
  data.set(2, 2, workbook::Value::date(std::chrono::year(2026) / 6 / 15));
  data.set(2, 3, 1234.5);
  data.set(40, 150, true);
  data.set(41, 1, std::string("bell\x07\xED\xA0\x80 and _x0041_"));
  data.set(42, 1, std::string("cut \xE0\xAA short \uFFFF"));
  data.set(43, 1, std::numeric_limits<double>::infinity());
  book.sheet("BILL").hideRows(2, 3);
  book.sheet("BILL").resetPageBreaks();

  const books::Parts before = books::unzipped(bytes), after = saved(book);
  EXPECT_EQ(differing(before, after),
            (std::vector<std::string>{"xl/worksheets/sheet1.xml", "xl/worksheets/sheet2.xml"}));
  expectWellFormed(after);
  const std::string& bill = after.at("xl/worksheets/sheet1.xml");
  EXPECT_EQ(bill.find("<?xml", 1), std::string::npos);
  EXPECT_EQ(bill.find("rowBreaks"), std::string::npos);
  EXPECT_NE(bill.find("<f>SHEET3!B2</f><v>46188</v>"), std::string::npos) << bill;
  EXPECT_NE(bill.find("t=\"e\""), std::string::npos);

  Workbook again = reloaded(book);
  // Stored values, not calculated ones: nothing was set since.
  const char* expected[] = {
      "A & B <\"Co\">\nsecond  \u0AA8\u0AAE", "46188", "big", "#DIV/0!", "TRUE", "left alone"};
  for (int row = 1; row <= 6; ++row)
    EXPECT_EQ(books::said(again.sheet("bill").value(row, 1)), expected[row - 1]);
  EXPECT_EQ(again.sheet("BILL").shown(2, 1), "15/06/2026");
  EXPECT_EQ(books::said(again.sheet("SHEET3").value(40, 150)), "TRUE");
  EXPECT_EQ(books::said(again.sheet("SHEET3").value(41, 1)), "bell and _x0041_");
  EXPECT_EQ(books::said(again.sheet("SHEET3").value(42, 1)), "cut \uFFFD short ");
  EXPECT_EQ(books::said(again.sheet("SHEET3").value(43, 1)), "#NUM!");
  EXPECT_TRUE(again.sheet("SHEET3").value(1, 1).empty());
  EXPECT_EQ(again.sheet("SHEET3").shown(2, 3), "18/05/1903");  // the cell's own format stayed
  again.recalculate();
  for (int row = 1; row <= 6; ++row)
    EXPECT_EQ(books::said(again.sheet("bill").value(row, 1)), expected[row - 1]);
}

TEST(Save, TheSamePathIsReplacedOrLeftAsItWas) {
  const TempFolder folder;
  const std::string bytes = design(), path = folder / "book.xlsx";
  Workbook untouched = Workbook::fromBytes(bytes);
  untouched.save(path);
  EXPECT_EQ(bytesOf(path), bytes);

  Workbook book = Workbook::load(path);
  book.sheet("SHEET3").set(2, 1, "first");
  {
    const FullDisk full;
    EXPECT_THROW(book.save(path), workbook::WorkbookError);
  }
  EXPECT_EQ(bytesOf(path), bytes);
  book.save(path);
  book.sheet("SHEET3").set(2, 1, "second");
  book.save(path);
  EXPECT_EQ(books::said(Workbook::load(path).sheet("BILL").value(1, 1)), "second");
  EXPECT_EQ(folder.names(), std::vector<std::string>{"book.xlsx"});
  EXPECT_THROW(book.save(folder / "none/book.xlsx"), workbook::WorkbookError);
}

// The list of formulas goes with its relation and content type when a formula was lost, and
// only then.
TEST(Save, CalculationChain) {
  const auto parts = books::withSheet(
      books::sheet("<row r=\"1\"><c r=\"A1\"><f>B1*2</f><v>2</v></c><c r=\"B1\"><v>1</v></c></row>"));
  Workbook kept = Workbook::fromBytes(books::zipped(parts));
  kept.sheet("S").set(1, 2, 5);
  EXPECT_TRUE(saved(kept).contains("xl/calcChain.xml"));
  Workbook lost = Workbook::fromBytes(books::zipped(parts));
  lost.sheet("S").clearContents();
  const auto after = saved(lost);
  EXPECT_FALSE(after.contains("xl/calcChain.xml"));
  EXPECT_EQ(after.at("[Content_Types].xml").find("calcChain"), std::string::npos);
  EXPECT_EQ(after.at("xl/_rels/workbook.xml.rels").find("calcChain"), std::string::npos);
  EXPECT_EQ(after.at("xl/worksheets/sheet1.xml").find("<f"), std::string::npos);
  expectWellFormed(after);
}

TEST(Save, WhatIsNotUnderstoodStays) {
  const std::string rich =
      R"(<c r="A2" t="inlineStr"><is><r><rPr><b/></rPr><t>bold</t></r><r><t> plain</t></r></is></c>)";
  Workbook book = withCells(
      R"(<row r="1" ht="22.5" customHeight="1"><c r="A1"><v>1</v></c><c r="D1"><v>4</v></c></row><row r="2">)" +
          rich + R"(</row><row r="9"><c r="A9"><f>A1+1</f><v>0</v></c></row>)",
      R"(<conditionalFormatting sqref="A1"><cfRule type="expression" priority="1"><formula>A1&gt;1</formula>)"
      R"(</cfRule></conditionalFormatting><extLst><ext uri="{x}"><y:z xmlns:y="urn:y">kept</y:z></ext></extLst>)");
  auto& sheet = book.sheet("S");
  sheet.set(1, 1, 41);
  sheet.set(1, 2, "between");
  sheet.set(5, 1, "new row");
  const std::string after = saved(book).at("xl/worksheets/sheet1.xml");
  // In this order.
  size_t at = 0;
  for (const std::string& part :
       {std::string(R"(ht="22.5")"), std::string(R"(<c r="A1"><v>41</v></c><c r="B1" t="inlineStr">)"),
        std::string(R"(<c r="D1"><v>4</v></c>)"), std::string(R"(<row r="2">)") + rich,
        std::string(R"(<row r="5">)"), std::string(R"(<row r="9">)"), std::string("<f>A1+1</f><v>42</v>"),
        std::string(R"(<cfRule type="expression" priority="1"><formula>A1&gt;1</formula>)"),
        std::string(R"(<y:z xmlns:y="urn:y">kept</y:z>)")}) {
    const size_t found = after.find(part, at);
    ASSERT_NE(found, std::string::npos) << part << "\n" << after;
    at = found;
  }
}

}  // namespace
