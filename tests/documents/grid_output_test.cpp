#include "documents/grid_output.h"

#include <sstream>

#include "base/number.h"
#include "documents/grid_layout.h"
#include "frame/full_disk.h"
#include "frame/held_open.h"
#include "grid_fixture.h"

namespace {

namespace fs = std::filesystem;

// Layout

TEST(GridLayouts, TurnTheSheetByTheSumOfTheWidths) {
  struct Case {
    double sum;
    const char* key;
    GridPaperKind kind;
    bool landscape;
    int rows;
  };
  using enum GridPaperKind;
  constexpr Case kCases[] = {
      {0,     "",                   Pdf,     false, 54},
      {10400, "",                   Pdf,     false, 54},
      {10401, "",                   Pdf,     true,  36},
      {15000, "",                   Pdf,     true,  36},
      {10800, "",                   Printer, false, 54},
      {10801, "",                   Printer, true,  34},
      {15000, "",                   Printer, true,  34},
      {9000,  "mcompvldgr",         Pdf,     false, 36},
      {9000,  "mcompvldgr",         Printer, false, 34},
      {9000,  "mcompvldgr_fullpg",  Pdf,     false, 54},
      {9000,  "PRTYSTMNTVERTI_ITM", Pdf,     false, 36},
      {9000,  "PRTYSTMNTVERTI_ITM", Printer, false, 54},
  };
  for (const Case& c : kCases) {
    GridOutput out{.key = c.key};
    out.widths[3] = c.sum;
    const auto layout = gridLayout(out, c.kind);
    ASSERT_TRUE(layout) << c.sum;
    EXPECT_EQ(layout->landscape, c.landscape) << c.sum << c.key;
    EXPECT_EQ(layout->rows, c.rows) << c.sum << c.key;
    EXPECT_EQ(layout->columns.size(), c.sum > 0 ? 1u : 0u);
  }
  GridOutput wide;
  wide.widths = {14999, 1, 0.5};
  EXPECT_FALSE(gridLayout(wide, Pdf));
  EXPECT_FALSE(gridLayout(wide, Printer));
}

TEST(GridLayouts, CentreTheTable) {
  GridOutput out;
  out.widths = {500, 0, 1001};
  out.numeric = {0, 0, -1};
  const auto layout = gridLayout(out, GridPaperKind::Pdf);
  EXPECT_DOUBLE_EQ(layout->left, 259.98);  // (595 - 75.05) / 2, the half to even
  ASSERT_EQ(layout->columns.size(), 2u);
  EXPECT_EQ(layout->columns[1].column, 2u);
  EXPECT_DOUBLE_EQ(layout->columns[1].left, 284.98);
  EXPECT_TRUE(layout->columns[1].numeric);
  EXPECT_DOUBLE_EQ(layout->right, 259.98 + 75.05);
}

TEST(GridLayouts, CutWordsByTheirColumn) {
  using enum GridPaperKind;
  struct Case {
    const char* text;
    double twips;
    GridPaperKind kind;
    const char* shown;
    bool narrow;
  };
  constexpr Case kCases[] = {
      {"1234",                  700,  Pdf,     "1234",                  false},
      {"12345",                 700,  Pdf,     "12345",                 true },
      {"1234567890",            700,  Pdf,     "123456789",             true }, // 8.75, rounded
      {"ABCDEFGHIJKL",          1000, Pdf,     "ABCDEFGHIJKL",          true },
      {"ABCDEFGHIJKLM",         1000, Pdf,     "ABCDEFGHIJKL",          true }, // 12.5, the half to even
      {"ગુજરાતી", 560,  Pdf,     "ગુજરાતી", true }, // seven letters
      {"15/06/2026",            1200, Pdf,     "15/06/2026",            true },
      {"15/Jun/2026",           1200, Printer, "15/06/26",              false},
      {"15/06/26",              1200, Printer, "15/06/26",              false},
      {"31/06/2026",            800,  Printer, "31/06/2026",            true },
      {"A\tB\x01\r\n",          1200, Pdf,     "A B   ",                false},
  };
  for (const Case& c : kCases) {
    const GridWords words = gridWords(c.text, c.twips, c.kind);
    EXPECT_EQ(words.text, c.shown);
    EXPECT_EQ(words.narrow, c.narrow) << c.text;
  }
}

// PDF

TEST_F(GridTest, BeginsAPageAfterTheLastRowThatFillsOne) {
  struct Case {
    double twips;
    int rows, pages;
  };
  for (const auto& [twips, count, pages] : {
           Case{10000, 0,   1},
           Case{10000, 53,  1},
           Case{10000, 54,  2},
           Case{10000, 55,  2},
           Case{10000, 108, 3},
           Case{12000, 35,  1},
           Case{12000, 36,  2},
           Case{12000, 73,  3}
  }) {
    source->rows.clear();
    columns({
        {"No.", twips}
    });
    for (int i = 1; i <= count; ++i) row({"row " + std::to_string(i) + "."});
    makePdf();
    expectSound(pdf());
    EXPECT_EQ(pdfInfo(pdf(), "Pages"), std::to_string(pages)) << count;
    const std::string last = pdfText(pdf(), pages);
    EXPECT_NE(last.find("Pg. " + std::to_string(pages)), std::string::npos) << last;
    EXPECT_NE(last.find("From : 01/Apr/2026 To : 31/Mar/2027"), std::string::npos);
    EXPECT_EQ(session().mpageno, std::to_string(pages));
    const std::string whole = pdfText(pdf());
    for (int i = 1; i <= count; ++i)
      EXPECT_NE(whole.find("row " + std::to_string(i) + "."), std::string::npos) << i;
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
  std::istringstream lines(pdfText(pdf()));
  const char* const expected[] = {
      "SHREE GANESH TRADERS",
      "ACCOUNT Statement For : RAJESH & SONS",
      "From : 01/Apr/2026 To : 31/Mar/2027",
      "V.No. Date Ref No. Bk. Particulars Debit Credit Balance Crdr",
      "OPENING BALANCE 1500.00 1500.00 Dr",
      "1 15/06/26 CH-77 SA GST SALES A/C OF THE WHOLE YEAR AND 1180.00 2680.00 Dr",
      "***TOTAL AMOUNT 2680.00 2680.00",
      "Pg. 1",
  };
  size_t n = 0;
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string joined;
    for (std::string word; words >> word;) joined += (joined.empty() ? "" : " ") + word;
    if (joined.empty() || joined == "\f") continue;
    ASSERT_LT(n, std::size(expected));
    EXPECT_EQ(joined, expected[n++]);
  }
  EXPECT_EQ(n, std::size(expected));
}

// Baselines and edges as they are documented for the sheet.
TEST_F(GridTest, DrawsRowsAndRulesAtTheirPlaces) {
  columns({
      {"Name", 1000},
      { "Amt",  1000, true}
  });
  row({"AB", "5.00"});
  makePdf();
  const std::string bytes = bytesOf(pdf());
  for (const char* part : {
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
       })
    EXPECT_NE(bytes.find(part), std::string::npos) << part;
}

TEST_F(GridTest, HeadsALandscapePageWithTheAddressToo) {
  columns({
      {"Name", 12000}
  });
  makePdf();
  const std::string bytes = bytesOf(pdf());
  for (const char* part :
       {"/Fnt1 20 Tf\r\n", "559 Td\r\n(SHREE GANESH TRADERS)", "539 Td\r\n(12, ASHRAM ROAD)",
        "524 Td\r\n(ACCOUNT", "509 Td\r\n(From", "120 504 m\r\n721 504 l"})
    EXPECT_NE(bytes.find(part), std::string::npos) << part;
  EXPECT_EQ(pdfInfo(pdf(), "Page size"), "842 x 595.2 pts (A4)");
}

TEST_F(GridTest, LeavesHeadingLinesOutForSomeKeys) {
  columns({
      {"Name", 9000}
  });
  row({"x"});
  struct Case {
    const char* key;
    bool name, period, rules;
    const char* caption;
  };
  for (const Case& c : {
           Case{"mcompvldgr",         false, true,  true,  "/Fnt1 12 Tf\r\n"},
           Case{"mcompvldgr_fullpg",  false, true,  true,  "/Fnt1 12 Tf\r\n"},
           Case{"PRTYSTMNTVERTI_ITM", false, false, false, "/Fnt1 9 Tf\r\n" }
  }) {
    out.key = c.key;
    makePdf();
    const std::string bytes = bytesOf(pdf());
    EXPECT_EQ(bytes.find("(SHREE GANESH TRADERS)") != std::string::npos, c.name) << c.key;
    EXPECT_EQ(bytes.find("(From") != std::string::npos, c.period) << c.key;
    const size_t caption = bytes.find("806 Td\r\n(ACCOUNT");
    ASSERT_NE(caption, std::string::npos) << c.key;
    EXPECT_NE(bytes.substr(caption - 30, 30).find(c.caption), std::string::npos) << c.key;
    const std::string page = bytes.substr(bytes.find("/Ftrs Do"));
    EXPECT_EQ(page.find(" l\r\nS") != std::string::npos, c.rules) << c.key;
  }
}

// Every word of the row lies within the edges of its column, however wide its letters are.
TEST_F(GridTest, KeepsColumnsApart) {
  ledger();
  const std::string wide(40, 'W');
  row({"12345678", "WWWWWWWW", wide, "WWWW", wide, "123456789012345.00", "99999999999.99", "1.00", "WWW"});
  makePdf();
  const auto layout = gridLayout(out, GridPaperKind::Pdf);
  std::istringstream lines(
      outputOf("pdftotext -bbox '" + pdf().string() + "' - | grep -E '>(WW|123|999|1.00)'"));
  const auto edge = [](const std::string& line, const std::string& name) {
    return Val(line.substr(line.find(name + "=\"") + name.size() + 2));
  };
  size_t column = 0;
  for (std::string line; std::getline(lines, line); ++column) {
    ASSERT_LT(column, layout->columns.size()) << line;
    EXPECT_GT(edge(line, "xMin"), layout->columns[column].left) << line;
    EXPECT_LT(edge(line, "xMax"), layout->columns[column].right() + 0.1) << line;
  }
  EXPECT_EQ(column, 9u);
}

TEST_F(GridTest, StandsHostileCellsAndWidths) {
  std::string longCell;
  while (longCell.size() < 10'000) longCell += "word ) ( \\ % ";
  struct Case {
    std::vector<Column> columns;
    std::vector<std::string> cells;
  };
  const std::vector<Column> fifteen(15, {"H", 1000});
  const Case cases[] = {
      {{{"A", 0}, {"B", 0}},        {"unseen", "unseen"}                  },
      {{{"A", 15000}},              {longCell}                            },
      {{{"A", 15000, true}},        {longCell}                            },
      {{{"A", 20}, {"B", 1, true}}, {longCell, "1.00"}                    },
      {{{"A", 0}, {"B", 2000}},     {"unseen", "a\x01\x02\r\n\tb\x7F\xFF"}},
      {fifteen,                     std::vector<std::string>(20,            "cell")},
      {{},                           {}                                                               },
  };
  for (const Case& c : cases) {
    source->rows.clear();
    columns(c.columns);
    row(c.cells);
    makePdf();
    expectSound(pdf());
    const std::string text = pdfText(pdf());
    EXPECT_EQ(text.find("unseen"), std::string::npos);
    EXPECT_NE(text.find("Pg. 1"), std::string::npos);
    GridToPrinter(host, grid, out);
    EXPECT_EQ(host.printed.size(), 1u);
    GridToExcel(host, grid, out);
    EXPECT_TRUE(host.messages.empty()) << host.lastMessage();
  }
}

TEST_F(GridTest, RefusesWhatIsWiderThanAPage) {
  columns({
      {"A", 15001}
  });
  const std::string words =
      "Columns are More than Page Width\r\nPress Excel Button To View In Excel\r\n"
      "Then You Can Resize and Print From Excel";
  makePdf();
  EXPECT_EQ(host.lastMessage(), words + "\r\nIf You Continue You Shall Get Page Size Column Data ");
  GridToPrinter(host, grid, out);
  EXPECT_EQ(host.lastMessage(), words);
  EXPECT_EQ(host.messages.back().title, "Mirav Message");
  EXPECT_EQ(filesInBills(), 0u);
  EXPECT_TRUE(host.viewed.empty());
}

TEST_F(GridTest, SaysWhenLettersCouldNotBeWritten) {
  columns({
      {"Name", 3000}
  });
  row({"RAJESH ₹ Café"});
  makePdf();
  EXPECT_EQ(host.hint(), "");
  row({"શ્રી ગણેશ"});
  makePdf();
  EXPECT_NE(pdfText(pdf()).find("???? ????"), std::string::npos);
  EXPECT_EQ(host.hint(), "Letters That The Pdf Has No Font For Stand As ? :: Print Shows Them");
  GridToPrinter(host, grid, out, PrintTo::Preview);
  const fs::path preview = folder / "BILLS" / "PREVIEW.pdf";
  EXPECT_EQ(host.viewed.back(), preview.string());
  EXPECT_NE(pdfText(preview).find("ગણેશ"), std::string::npos) << pdfText(preview);
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
  EXPECT_EQ(filesInBills(), 0u);
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

TEST_F(GridTest, PrintsUnderTheSessionsHeading) {
  ledger();
  row({"1", "", "x"});
  rows(59);
  row({"*", "15/Jun/2026", "", "", "TOTAL OF ALL THAT STANDS ABOVE, AND SOME", "2680.00"});
  Session& s = session();
  s.mpageheader1 = "SHREE GANESH TRADERS";
  s.mpageheader2 = out.caption;
  s.mpageheader3 = "From : 01/04/2026 To : 31/03/2027";
  s.mcolfont[2] = -1;
  GridToPrinter(host, grid, out);
  ASSERT_EQ(host.printed.size(), 2u);
  EXPECT_NEAR(host.printed[0].width, 595.28, 0.01);
  EXPECT_EQ(host.printed[0].find("x")->font.family, "Gujrati Mirav-1");
  const books::Page& page = host.printed[1];
  const struct {
    const char* text;
    double size;
    bool bold;
    paint::HAlign align;
  } expected[] = {
      {"SHREE GANESH TRADERS",                12,     true,  paint::HAlign::Centre},
      {"From : 01/04/2026 To : 31/03/2027",   12,     true,  paint::HAlign::Centre},
      {"Page No.: 2",                         10,     false, paint::HAlign::Right },
      {"Particulars",                         10,     false, paint::HAlign::Left  },
      {"55",                                  10,     false, paint::HAlign::Left  },
      {"15/06/26",                            10,     false, paint::HAlign::Left  },
      {"TOTAL OF ALL THAT STANDS ABOVE, AND", 7.6857, true,
       paint::HAlign::Left                                                        }, // 35 letters of 4 points in 134.5
      {"2680.00",                             10,     true,  paint::HAlign::Right },
  };
  for (const auto& e : expected) {
    const auto* drawn = page.find(e.text);
    ASSERT_TRUE(drawn) << e.text;
    EXPECT_NEAR(drawn->font.size, e.size, 1e-4) << e.text;
    EXPECT_EQ(drawn->font.bold, e.bold) << e.text;
    EXPECT_EQ(drawn->halign, e.align) << e.text;
    EXPECT_TRUE(drawn->font.family == "Calibri");
  }
  EXPECT_EQ(session().mpageno, "2");
  EXPECT_EQ(session().mlinecount, 8);
}

TEST_F(GridTest, PrintsWideReportsOnALandscapePage) {
  columns({
      {"A", 10801}
  });
  rows(34);
  GridToPrinter(host, grid, out);
  ASSERT_EQ(host.printed.size(), 2u);
  EXPECT_GT(host.printed[0].width, host.printed[0].height);
  for (const books::Page& page : host.printed)
    for (const auto& text : page.texts) EXPECT_LT(text.box.y + text.box.h, page.height - 30);
}

TEST_F(GridTest, SaysWhenThereIsNoPrinter) {
  ledger();
  host.hasPrinter = false;
  GridToPrinter(host, grid, out);
  EXPECT_EQ(host.lastMessage(), "No Printer Found");
  EXPECT_EQ(host.messages.back().title, "Mirav Message");
}

}  // namespace
