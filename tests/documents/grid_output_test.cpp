#include "documents/grid_output.h"

#include "base/text.h"
#include "frame/full_disk.h"
#include "frame/held_open.h"
#include "grid_fixture.h"
#include "platform/workbook/workbook.h"

namespace {

namespace fs = std::filesystem;

// PDF

TEST_F(GridTest, BeginsAPageAfterTheLastRowThatFillsOne) {
  const std::tuple<double, int, int> cases[] = {
      {10000, 0,   1},
      {10000, 53,  1},
      {10000, 54,  2},
      {10000, 108, 3},
      {12000, 35,  1},
      {12000, 36,  2},
  };
  for (const auto& [twips, count, pages] : cases) {
    source->rows.clear();
    column("No.", twips);
    for (int i = 1; i <= count; ++i) row({"row " + std::to_string(i) + "."});
    makePdf();
    expectSound(pdf());
    EXPECT_EQ(pdfInfo(pdf(), "Pages"), std::to_string(pages)) << count;
    expectAll(pdfText(pdf(), pages), {"Pg. " + std::to_string(pages), "From : 01/Apr/2026 To : 31/Mar/2027"});
    const std::string whole = pdfText(pdf());
    for (int i = 1; i <= count; ++i) EXPECT_TRUE(has(whole, "row " + std::to_string(i) + ".")) << i;
  }
  EXPECT_TRUE(host.messages.empty());
  EXPECT_EQ(host.viewed.back(), pdf().string());
}

TEST_F(GridTest, WritesALedgerAsItStands) {
  ledger();
  row({"", "", "", "", "OPENING BALANCE", "1500.00", "", "1500.00", "Dr"});
  row({"1", "15/06/26", "CH-77", "SA", "GST SALES A/C OF THE WHOLE YEAR AND MORE", "1180.00", "", "2680.00",
       "Dr"});
  row({"", "", "", "", "***TOTAL AMOUNT", "2680.00", "2680.00"});
  makePdf();
  EXPECT_EQ(pdfInfo(pdf(), "Title"), "Mirav Reports");
  EXPECT_EQ(pdfInfo(pdf(), "Page size"), "595.2 x 842 pts (A4)");
  std::string lines = "\n" + replaceAll(squeezed(pdfText(pdf())), "\f", "");
  for (const char* blank : {"\n ", "\n\n"})
    while (has(lines, blank)) lines = replaceAll(lines, blank, "\n");
  EXPECT_EQ(lines,
            "\nSHREE GANESH TRADERS\n"
            "ACCOUNT Statement For : RAJESH & SONS\n"
            "From : 01/Apr/2026 To : 31/Mar/2027\n"
            "V.No. Date Ref No. Bk. Particulars Debit Credit Balance Crdr\n"
            "OPENING BALANCE 1,500.00 1,500.00 Dr\n"
            "1 15/06/26 CH-77 SA GST SALES A/C OF THE WHOLE YEAR AND 1,180.00 2,680.00 Dr\n"
            "***TOTAL AMOUNT 2,680.00 2,680.00\n"
            "Pg. 1\n");
}

// Baselines and edges as they are documented for the sheet.
TEST_F(GridTest, DrawsRowsAndRulesAtTheirPlaces) {
  out.columns = {
      {"Name", 1000},
      money("Amt", 1000)
  };
  row({"AB", "5.00"});
  makePdf();
  expectAll(bytesOf(pdf()),
            {
                "/Subtype /Form\r/FormType 1\r/Name /Ftrs\r",
                "BT\r\n/Fnt1 14 Tf\r\n",
                "806 Td\r\n(SHREE GANESH TRADERS) Tj",
                "786 Td\r\n(ACCOUNT Statement For : RAJESH & SONS) Tj",
                "771 Td\r\n(From : 01/Apr/2026 To : 31/Mar/2027) Tj",
                "246.5 766 m\r\n347.5 766 l\r\nS",  // L = (595 - 100) / 2 = 247.5, its rule one before
                "246.5 751 m\r\n347.5 751 l\r\nS",
                "246.5 751 m\r\n246.5 766 l\r\nS",
                "297.5 751 m\r\n297.5 766 l\r\nS",
                "251.5 756 Td\r\n(Name) Tj",
                "251.5 743 Td\r\n(AB) Tj",
                "321.75 743 Td\r\n(5.00) Tj",  // ends at 297.5 + (1000 - 100) / 20 - 5; 3.5 digits of 4.5
                "246.5 738.5 m\r\n347.5 738.5 l\r\nS",
                "246.5 738.5 m\r\n246.5 753.5 l\r\nS",
                "15 Td\r\n(Pg. 1) Tj",
                "/Ftrs Do\r\n0.01 w",
            });
}

TEST_F(GridTest, RefusesWhatIsWiderThanAPage) {
  column("A", 15001);
  const std::string words =
      "Columns are More than Page Width\r\nPress Excel Button To View In Excel\r\n"
      "Then You Can Resize and Print From Excel";
  makePdf();
  EXPECT_EQ(host.lastMessage(), words + "\r\nIf You Continue You Shall Get Page Size Column Data ");
  GridToPrinter(host, out);
  EXPECT_EQ(host.lastMessage(), words);
  EXPECT_EQ(host.messages.back().title, "Mirav Message");
  EXPECT_TRUE(folder.names("BILLS").empty());
  EXPECT_TRUE(host.viewed.empty());
}

TEST_F(GridTest, SaysWhenLettersCouldNotBeWritten) {
  column("Name", 3000);
  row({"RAJESH ₹ Café"});
  makePdf();
  EXPECT_EQ(host.hint(), "");
  row({"શ્રી ગણેશ"});
  makePdf();
  EXPECT_TRUE(has(pdfText(pdf()), "???? ????"));
  EXPECT_EQ(host.hint(), "Letters That The Pdf Has No Font For Stand As ? :: Print Shows Them");
  GridToPrinter(host, out, PrintTo::Preview);
  const fs::path preview = folder / "BILLS" / "PREVIEW.pdf";
  EXPECT_EQ(host.viewed.back(), preview.string());
  EXPECT_TRUE(has(pdfText(preview), "ગણેશ")) << pdfText(preview);
}

TEST_F(GridTest, TellsWhyThereIsNoPdf) {
  ledger();
  rows(3000);
  const std::string held = "File Is Already Open\r\nClose It First";
  {
    const WithoutRight none(folder / "BILLS");
    makePdf();
  }
  EXPECT_EQ(host.lastMessage(), "RPT.pdf cannot be written: Permission denied");
  {
    const FullDisk full;
    makePdf();
  }
  EXPECT_EQ(host.lastMessage(), "RPT.pdf cannot be written: File too large");
  EXPECT_TRUE(folder.names("BILLS").empty());
  EXPECT_TRUE(host.viewed.empty());
  EXPECT_FALSE(host.isBusy);

  makePdf();
  EXPECT_EQ(host.messages.size(), 2u);
  const std::string whole = bytesOf(pdf());
  {
    const WithoutRight none(folder / "BILLS");
    makePdf();
  }
  EXPECT_EQ(host.lastMessage(), held);
  {
    const HeldOpen viewer(pdf());
    makePdf();
  }
  EXPECT_EQ(host.lastMessage(), held);
  EXPECT_EQ(host.messages.size(), 4u);
  EXPECT_EQ(bytesOf(pdf()), whole);

  fs::remove_all(folder / "BILLS");
  makePdf();  // the folder is made again
  expectSound(pdf());
}

// Printer

TEST_F(GridTest, PrintsUnderItsHeading) {
  ledger();
  row({"1", "", "x"});
  rows(59);
  row({"*", "15/Jun/2026", "", "", "TOTAL OF ALL THAT STANDS ABOVE, AND SOME", "1234567.00"});
  out.period = "From : 01/04/2026 To : 31/03/2027";
  GridToPrinter(host, out);
  ASSERT_EQ(host.printed.size(), 2u);
  EXPECT_NEAR(host.printed[0].width, 595.28, 0.01);
  const books::Page& page = host.printed[1];
  using enum paint::HAlign;
  const std::tuple<const char*, double, bool, paint::HAlign> expected[] = {
      {"SHREE GANESH TRADERS",                12,     true,  Centre},
      {"From : 01/04/2026 To : 31/03/2027",   12,     true,  Centre},
      {"Page No.: 2",                         10,     false, Right },
      {"Particulars",                         10,     false, Left  },
      {"55",                                  10,     false, Left  },
      {"15/06/26",                            10,     false, Left  },
      {"TOTAL OF ALL THAT STANDS ABOVE, AND", 7.6857, true,  Left  }, // 35 letters of 4 points in 134.5
      {"12,34,567.00",                        8.0833, true,  Right },
  };
  for (const auto& [text, size, bold, align] : expected) {
    const auto* drawn = page.find(text);
    ASSERT_TRUE(drawn) << text;
    EXPECT_NEAR(drawn->font.size, size, 1e-4) << text;
    EXPECT_EQ(drawn->font.bold, bold) << text;
    EXPECT_EQ(drawn->halign, align) << text;
    EXPECT_EQ(drawn->font.family, "Calibri");
  }
}

// Workbook

class GridWorkbook : public GridTest {
 protected:
  fs::path file() const { return folder / "report.xlsx"; }
  std::string sheetXml() const {
    return outputOf("python3 -c 'import zipfile; print(zipfile.ZipFile(\"" + file().string() +
                    "\").read(\"xl/worksheets/sheet1.xml\").decode())'");
  }
};

TEST_F(GridWorkbook, HasTitlesHeadingsAndValuesOfTheirKind) {
  ledger();
  out.columns[2].twips = 0;
  row({"=1+1", "15/06/26", "unseen", "SA", "@SUM(A1)", "1180.5", "+5", "", "Dr"});
  row({"-7", "no date", "unseen", "15/06/26", "1/2/26", "n.a.", "1e3", "-12.345", "શ્રી"});
  source->others[{1, 3}] = ColumnType::Date;
  GridToExcel(host, out);
  EXPECT_EQ(host.viewed, std::vector<std::string>{file().string()});

  auto book = workbook::Workbook::load(file().string());
  auto& sheet = book.sheet("REPORT");
  EXPECT_EQ(*sheet.value(1, 1).text(), "SHREE GANESH TRADERS");
  EXPECT_EQ(*sheet.value(2, 1).text(), out.caption);
  EXPECT_EQ(*sheet.value(3, 1).text(), out.period);
  const std::vector<std::vector<std::string>> shown = {
      {"V.No.", "Date",     "Bk.",      "Particulars", "Debit",   "Credit",  "Balance", "Crdr"        },
      {"=1+1",  "15/06/26", "SA",       "@SUM(A1)",    "1180.50", "5.00",    "",        "Dr"          },
      {"-7",    "no date",  "15/06/26", "1/2/26",      "n.a.",    "1000.00", "-12.35",  "શ્રી"},
  };
  for (size_t r = 0; r < shown.size(); ++r)
    for (size_t c = 0; c < shown[r].size(); ++c)
      EXPECT_EQ(sheet.shown(static_cast<int>(r) + 4, static_cast<int>(c) + 1), shown[r][c]) << r << c;
  EXPECT_TRUE(sheet.value(5, 1).text());
  EXPECT_EQ(*sheet.value(6, 1).number(), -7);
  EXPECT_EQ(*sheet.value(5, 2).number(), 46188);  // 15 June 2026
  EXPECT_EQ(*sheet.value(5, 5).number(), 1180.5);
  EXPECT_TRUE(sheet.value(6, 4).text()) << "a bill's number is no date";
  EXPECT_TRUE(sheet.value(6, 5).text());

  const std::string xml = sheetXml();
  EXPECT_FALSE(has(xml, "<f>"));
  expectAll(xml, {"topLeftCell=\"A5\" activePane=\"bottomLeft\" state=\"frozen\"", "fitToPage=\"1\"",
                  "paperSize=\"9\"", "fitToHeight=\"0\"", "orientation=\"portrait\"",
                  "&amp;RPage &amp;P of &amp;N", "<col min=\"4\" max=\"4\" width=\"28.7"});
}

TEST_F(GridWorkbook, TellsWhyItIsNotMade) {
  ledger();
  rows(10);
  GridToExcel(host, out);
  {
    const HeldOpen shown(file());
    GridToExcel(host, out);
  }
  EXPECT_EQ(host.lastMessage(), "Excel File is Already Openned By Another User");
  EXPECT_EQ(host.messages.back().title, "Error");
  const std::string before = bytesOf(file());
  rows(5000);
  {
    const FullDisk full;
    GridToExcel(host, out);
  }
  EXPECT_EQ(host.lastMessage(),
            "The workbook report.xlsx cannot be written to " + file().string() + ": File too large.");
  EXPECT_EQ(bytesOf(file()), before);
  EXPECT_EQ(host.viewed.size(), 1u);
}

}  // namespace
