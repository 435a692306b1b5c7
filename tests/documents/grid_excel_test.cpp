#include "frame/full_disk.h"
#include "frame/held_open.h"
#include "grid_fixture.h"
#include "platform/workbook/workbook.h"

namespace {

namespace fs = std::filesystem;

class GridWorkbook : public GridTest {
 protected:
  fs::path file() const { return folder / "report.xlsx"; }
  std::string sheetXml() const {
    return outputOf(
        "python3 -c 'import sys, zipfile; "
        "sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1]).read(\"xl/worksheets/sheet1.xml\"))' " +
        file().string());
  }
};

TEST_F(GridWorkbook, HasTitlesHeadingsAndValuesOfTheirKind) {
  ledger();
  out.widths[2] = 0;
  row({"=1+1", "15/06/26", "unseen", "SA", "@SUM(A1)", "1180.5", "+5", "", "Dr"});
  row({"-7", "no date", "unseen", "", "1/2/26", "n.a.", "1e3", "-12.345", "શ્રી"});
  GridToExcel(host, grid, out);
  EXPECT_EQ(host.viewed, std::vector<std::string>{file().string()});

  auto book = workbook::Workbook::load(file().string());
  auto& sheet = book.sheet("REPORT");
  EXPECT_EQ(*sheet.value(1, 1).text(), "SHREE GANESH TRADERS");
  EXPECT_EQ(*sheet.value(2, 1).text(), out.caption);
  EXPECT_EQ(*sheet.value(3, 1).text(), out.period);
  const std::vector<std::vector<std::string>> shown = {
      {"V.No.", "Date",     "Bk.", "Particulars", "Debit",   "Credit",  "Balance", "Crdr"        },
      {"=1+1",  "15/06/26", "SA",  "@SUM(A1)",    "1180.50", "5.00",    "",        "Dr"          },
      {"-7",    "no date",  "",    "1/2/26",      "n.a.",    "1000.00", "-12.35",  "શ્રી"},
  };
  for (size_t r = 0; r < shown.size(); ++r)
    for (size_t c = 0; c < shown[r].size(); ++c)
      EXPECT_EQ(sheet.shown(static_cast<int>(r) + 4, static_cast<int>(c) + 1), shown[r][c]) << r << c;
  EXPECT_TRUE(sheet.value(5, 1).text());
  EXPECT_EQ(*sheet.value(5, 2).number(), 46188);  // 15 June 2026
  EXPECT_EQ(*sheet.value(5, 5).number(), 1180.5);
  EXPECT_TRUE(sheet.value(6, 4).text()) << "a bill's number is no date";
  EXPECT_TRUE(sheet.value(6, 5).text());

  const std::string xml = sheetXml();
  EXPECT_EQ(xml.find("<f>"), std::string::npos);
  for (const char* part : {"topLeftCell=\"A5\" activePane=\"bottomLeft\" state=\"frozen\"", "fitToPage=\"1\"",
                           "paperSize=\"9\"", "fitToHeight=\"0\"", "orientation=\"portrait\"",
                           "&amp;RPage &amp;P of &amp;N", "<col min=\"4\" max=\"4\" width=\"28.7"})
    EXPECT_NE(xml.find(part), std::string::npos) << part << xml.substr(0, 900);
}

TEST_F(GridWorkbook, HasColumnsThatHoldWhatIsInThem) {
  columns({
      {"Gstin", 500},
      {"N.Amt", 500, true},
      {"Party",       6000   },
      {"Name",       500 }
  });
  row({"24ABCPT0167K1ZL", "-1234567.5", "A", std::string(500, 'x')});
  GridToExcel(host, grid, out);
  const std::string xml = sheetXml();
  // A sheet's widths have five pixels of seven more; 17, 13, 60 (as the grid says), and no more than 60.
  for (const char* part : {"min=\"1\" max=\"1\" width=\"17.7", "min=\"2\" max=\"2\" width=\"13.7",
                           "min=\"3\" max=\"3\" width=\"60.7", "min=\"4\" max=\"4\" width=\"60.7"})
    EXPECT_NE(xml.find(part), std::string::npos) << part << xml.substr(0, 900);
}

TEST_F(GridWorkbook, TurnsTheSheetForWideReports) {
  columns({
      {"A", 10401}
  });
  GridToExcel(host, grid, out);
  EXPECT_NE(sheetXml().find("orientation=\"landscape\""), std::string::npos);
}

TEST_F(GridWorkbook, TellsWhyItIsNotMade) {
  ledger();
  rows(10);
  GridToExcel(host, grid, out);
  {
    const HeldOpen shown(file());
    GridToExcel(host, grid, out);
  }
  EXPECT_EQ(host.lastMessage(), "Excel File is Already Openned By Another User");
  EXPECT_EQ(host.messages.back().title, "Error");
  const std::string before = bytesOf(file());
  rows(5000);
  {
    const FullDisk full;
    GridToExcel(host, grid, out);
  }
  EXPECT_EQ(host.lastMessage(),
            "The workbook report.xlsx cannot be written to " + file().string() + ": File too large.");
  EXPECT_EQ(bytesOf(file()), before);
  EXPECT_EQ(host.viewed.size(), 1u);
}

}  // namespace
