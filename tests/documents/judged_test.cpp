#include <fstream>
#include <sstream>

#include "documents/invoice.h"
#include "papers_fixture.h"

// A spreadsheet program judges: it must show of the filled workbooks what our papers show, and
// designs that it has saved or changed must make papers as before.
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

  static void replace(std::string& text, const std::string& what, const std::string& with,
                      size_t atLeast = 1) {
    size_t count = 0;
    for (size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size(), ++count)
      text.replace(at, what.size(), with);
    EXPECT_GE(count, atLeast) << what;
  }

  // A person's changes to design 1: another font, a logo, a wider column, a label with one word
  // in bold, the amount in a formula.
  void change() {
    convert("FORMATS/INVGST1.xlsx", "fods", ".");
    std::string design = bytesOf(folder / "INVGST1.fods");
    replace(design, "Calibri", "Liberation Serif");
    replace(design, "<text:p>Description of goods</text:p>",
            "<text:p>Particulars <text:span text:style-name=\"Strong\">(goods)</text:span></text:p>");
    replace(design, "</office:automatic-styles>",
            "<style:style style:name=\"Strong\" style:family=\"text\"><style:text-properties "
            "fo:font-weight=\"bold\" fo:color=\"#c00000\"/></style:style></office:automatic-styles>");
    replace(design, "&quot;Page 1 of &quot;",
            "TEXT(SUM([$SHEET3.N8:.N9])/2;&quot;#,##0.00&quot;)&amp;&quot; page 1 of &quot;");
    replace(design, "<table:table table:name=\"BILL\"", "<table:table table:name=\"BILL\" logo=\"here\"");
    const size_t at = design.find('>', design.find("logo=\"here\"")) + 1;
    design.insert(at,
                  "<table:shapes><draw:frame svg:x=\"1cm\" svg:y=\"1cm\" svg:width=\"2cm\" "
                  "svg:height=\"1cm\"><draw:image>"
                  "<office:binary-data>iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+"
                  "M9QDwADhgGAWjR9awAAAABJRU5"
                  "ErkJggg==</office:binary-data></draw:image></draw:frame></table:shapes>");
    replace(design, " logo=\"here\"", "");
    replace(design, "style:column-width=\"0.8807in\"", "style:column-width=\"1.3in\"");
    std::ofstream(folder / "INVGST1.fods") << design;
  }

  void expectChanges(const fs::path& paper) {
    const std::string text = pdfText(paper);
    expectAll(text, {"Particulars (goods)", "55,738.00 page 1 of 2"});
    EXPECT_EQ(pdfPages(paper), 2);
    EXPECT_NE(outputOf("pdffonts '" + paper.string() + "'").find("LiberationSerif"), std::string::npos);
    EXPECT_NE(outputOf("pdfimages -list '" + paper.string() + "' | tail -n +3"), "");
  }
};

TEST_F(Judged, DesignsAsTheyAreSavedAgainAndChanged) {
  std::vector<Line> lines;
  for (int i = 0; i < 30; ++i)
    lines.push_back(i % 7 == 3 ? Line{"MISC", 1, 50, 0, 50, 9, 0, 4.5, 0, "PACKING"}
                    : i % 2    ? Line{"I0000001", 2, 799, 0, 1598, 2.5, 0, 39.95, 0, "BLUE 42"}
                               : Line{"I0000002", 5, 450.5, 2.5, 2196.19, 9, 0, 197.66, 0, "WITH CAP"});
  bill(1, lines);
  std::vector<std::string> names;
  for (int design = 1; fs::exists(folder / "FORMATS" / ("INVGST" + std::to_string(design) + ".xlsx"));
       ++design) {
    names.push_back("design" + std::to_string(design));
    make(design, names.back());
  }
  change();
  convert("INVGST1.fods FORMATS/INVGST[2-9].xlsx", "xlsx", "saved");
  for (size_t design = 1; design <= names.size(); ++design) {
    const std::string file = "INVGST" + std::to_string(design) + ".xlsx";
    ASSERT_TRUE(fs::exists(folder / "saved" / file)) << file;
    fs::rename(folder / "saved" / file, folder / "FORMATS" / file);
    make(static_cast<int>(design), "again" + std::to_string(design));
  }
  expectChanges(folder / "again1.pdf");

  convert("filled/*.xlsx", "pdf", "judged");
  for (size_t design = 1; design <= names.size(); ++design) {
    const auto file = [&](const char* name) { return name + std::to_string(design) + ".pdf"; };
    const std::string ours = figures(folder / file("design"));
    EXPECT_GT(ours.size(), 1000u);
    EXPECT_EQ(ours, figures(folder / "judged" / file("design"))) << design;
    if (design > 1) {
      EXPECT_EQ(ours, figures(folder / file("again"))) << design;
    }
    EXPECT_EQ(figures(folder / file("again")), figures(folder / "judged" / file("again"))) << design;
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
      {"challan8",  "INVGEN.xlsx",  [&] { challanPaper(1, 8); }},
      {"challan9",  "INVGEN.xlsx",  [&] { challanPaper(1, 9); }},
      {"slip",      "INVGEN.xlsx",  [&] { slip(7); }           },
      {"card",      "voucher.xlsx", [&] { card("A00001"); }    },
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
