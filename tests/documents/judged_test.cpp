#include <fstream>
#include <sstream>

#include "documents/invoice.h"
#include "papers_fixture.h"

// A spreadsheet program judges: it must show of the filled workbooks what our papers show, and
// designs that it has saved must make papers as before.
namespace {

namespace fs = std::filesystem;

class Judged : public PapersTest {
 protected:
  void SetUp() override {
    if (outputOf("command -v soffice").empty()) GTEST_SKIP() << "no spreadsheet program is installed";
    // It is told to calculate anew what it loads.
    fs::create_directories(folder / "profile" / "user");
    std::ofstream(folder / "profile" / "user" / "registrymodifications.xcu")
        << R"(<?xml version="1.0"?><oor:items xmlns:oor="http://openoffice.org/2001/registry">)"
        << R"(<item oor:path="/org.openoffice.Office.Calc/Formula/Load"><prop oor:name="OOXMLRecalcMode" oor:op="fuse">)"
        << "<value>0</value></prop></item></oor:items>";
  }

  void convert(const std::string& files, const std::string& format, const std::string& into) {
    outputOf("cd '" + folder.path().string() + "' && soffice -env:UserInstallation=file://" +
             (folder / "profile").string() + " --headless --convert-to " + format + " --outdir " + into +
             " " + files + " > /dev/null 2>&1");
  }

  // The design's bill as paper, and as the filled workbook for the judge.
  void make(int design, const std::string& name) {
    fs::create_directories(folder / "filled");
    session().mbillformat = design;
    for (const std::string mode : {"", "PDF"}) {
      session().mprnmode = mode;
      RenderGstInvoice(host, 1, "SALE");
      ASSERT_EQ(host.lastMessage(), "") << name;
      if (mode.empty()) fs::rename(folder / "FORMATS" / "INVGST.xlsx", folder / "filled" / (name + ".xlsx"));
    }
    fs::rename(pdf("1"), folder / (name + ".pdf"));
  }

  // Words with a digit in them, page by page as they stand.
  static std::string figures(const fs::path& file) {
    std::istringstream text(pdfText(file));
    std::string found;
    for (std::string word; text >> word;)
      if (word.find_first_of("0123456789") != std::string::npos) found += word + '\n';
    return found;
  }
};

TEST_F(Judged, DesignsAsTheyAreAndSavedAgain) {
  std::vector<Line> lines;
  for (int i = 0; i < 30; ++i)
    lines.push_back(i % 7 == 3 ? Line{"MISC", 1, 50, 0, 50, 9, 0, 4.5, 0, "PACKING"}
                    : i % 2    ? Line{"I0000001", 2, 799, 0, 1598, 2.5, 0, 39.95, 0, "BLUE 42"}
                               : Line{"I0000002", 5, 450.5, 2.5, 2196.19, 9, 0, 197.66, 0, "WITH CAP"});
  bill(1, lines);
  constexpr int kDesigns[] = {1, 3, 4};
  for (const int design : kDesigns) make(design, "design" + std::to_string(design));
  convert("FORMATS/INVGST[134].xlsx", "xlsx", "saved");
  for (const int design : kDesigns) {
    const std::string file = "INVGST" + std::to_string(design) + ".xlsx";
    ASSERT_TRUE(fs::exists(folder / "saved" / file)) << file;
    fs::rename(folder / "saved" / file, folder / "FORMATS" / file);
    make(design, "again" + std::to_string(design));
  }

  convert("filled/design*.xlsx", "pdf", "judged");
  for (const int design : kDesigns) {
    const auto file = [&](const char* name) { return name + std::to_string(design) + ".pdf"; };
    const std::string ours = figures(folder / file("design"));
    EXPECT_GT(ours.size(), 1000u);
    EXPECT_EQ(ours, figures(folder / "judged" / file("design"))) << design;
    EXPECT_EQ(ours, figures(folder / file("again"))) << design;
    expectSound(folder / file("again"));
    EXPECT_EQ(outputOf("pdffonts '" + (folder / file("again")).string() +
                       "' | tail -n +3 | awk '$(NF-4) != \"yes\"'"),
              "");
  }
}

TEST_F(Judged, TheOtherPapers) {
  longQuotation(1, 40);
  challan(1, 40, 30, 5.25);
  longBill(7, 20);
  const std::tuple<std::string, const char*, std::function<void()>> papers[] = {
      {"quotation", "QUOTITM.xlsx", [&] { quotationPaper(1); } },
      {"challan9",  "INVGEN.xlsx",  [&] { challanPaper(1, 9); }},
      {"slip",      "INVGEN.xlsx",  [&] { slip(7); }           },
  };
  fs::create_directories(folder / "filled");
  for (const auto& [name, copy, make] : papers) {
    make();
    fs::rename(session().mpdfpath, folder / (name + ".pdf"));
    mode = "";
    make();
    mode = "PDF";
    fs::copy_file(folder / "BILLS" / copy, folder / "filled" / (name + ".xlsx"));
  }
  convert("filled/*.xlsx", "pdf", "judged");
  for (const auto& [name, copy, make] : papers) {
    const fs::path own = folder / (name + ".pdf"), judged = folder / "judged" / (name + ".pdf");
    EXPECT_GT(figures(own).size(), 20u);
    EXPECT_EQ(figures(own), figures(judged)) << name;
    EXPECT_EQ(pdfPages(own), pdfPages(judged)) << name;
    expectSound(own);
  }
}

}  // namespace
