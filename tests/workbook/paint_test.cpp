#include "frame/full_disk.h"
#include "platform/qt/paint_qt.h"
#include "support/pdf_file.h"

namespace {

paint::Text words(std::string_view text, paint::Rect box) {
  return {.text = text, .box = box, .clip = {}, .font = {}, .colour = {}, .valign = paint::VAlign::Top};
}

void twoPages(paint::Canvas& canvas) {
  canvas.page(595.276, 841.89);
  // Ligatures and the rupee sign must come out of the paper as they went in.
  canvas.text(words("Station office, first affluent \u20B9 1,23,456.50", {72, 72, 400, 20}));
  canvas.text(words("\u0AA8\u0AAE\u0AB8\u0ACD\u0AA4\u0AC7", {72, 100, 400, 20}));
  canvas.line(72, 140, 300, 140, 0.5, {}, paint::Dash::Dashed);
  canvas.fill({72, 150, 50, 20}, {200, 230, 255});
  canvas.page(841.89, 595.276);
  paint::Text wrapped = words("one two three four five six seven eight", {72, 72, 60, 100});
  wrapped.wrap = true;
  canvas.text(wrapped);
  canvas.finish();
}

const auto painter = paint::makePainter;

TEST(Paint, PdfHoldsItsTextFontsAndSizes) {
  const TempFolder folder;
  const std::string path = folder / "MIRAV_INV_1.pdf";
  twoPages(*painter()->pdf(path));
  EXPECT_EQ(folder.names(), std::vector<std::string>{"MIRAV_INV_1.pdf"});
  expectSound(path);
  const std::string text = pdfText(path);
  EXPECT_NE(text.find("Station office, first affluent \u20B9 1,23,456.50"), std::string::npos) << text;
  EXPECT_NE(text.find("one two"), std::string::npos) << text;
  EXPECT_EQ(pdfInfo(path, "Title"), "MIRAV_INV_1");
  const std::string info = outputOf("pdfinfo -f 1 -l 2 " + path);
  EXPECT_NE(info.find("Page    1 size:  595"), std::string::npos) << info;
  EXPECT_NE(info.find("Page    2 size:  842"), std::string::npos) << info;
  const std::string fonts = outputOf("pdffonts " + path);
  EXPECT_EQ(fonts.find("Identity-H       no"), std::string::npos) << fonts;  // every font is embedded
  EXPECT_NE(fonts.find("Carlito"), std::string::npos) << fonts;
}

TEST(Paint, APaperStandsOnlyWhenItIsWhole) {
  const TempFolder folder;
  const std::string path = folder / "old.pdf";
  std::ofstream(path) << "old";
  {
    const auto dropped = painter()->pdf(path);
    dropped->page(595, 842);
    dropped->text(words("never finished", {72, 72, 100, 20}));
    EXPECT_EQ(bytesOf(path), "old");
  }
  {
    const FullDisk full;
    EXPECT_THROW(twoPages(*painter()->pdf(path)), paint::PaintError);
  }
  EXPECT_EQ(bytesOf(path), "old");
  EXPECT_EQ(folder.names(), std::vector<std::string>{"old.pdf"});
  twoPages(*painter()->pdf(path));
  EXPECT_EQ(bytesOf(path).substr(0, 5), "%PDF-");
}

}  // namespace
