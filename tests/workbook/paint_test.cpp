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

TEST(Paint, WhatCannotBeWrittenIsSaid) {
  const TempFolder folder;
  try {
    painter()->pdf(folder / "none/x.pdf");
    FAIL();
  } catch (const paint::PaintError& error) {
    EXPECT_NE(std::string(error.what()).find("none/x.pdf cannot be written: "), std::string::npos)
        << error.what();
  }
  EXPECT_THROW(twoPages(*painter()->image(folder / "none/x.png", 72)), paint::PaintError);
  EXPECT_THROW(painter()->image(folder / "x.png", 1e6)->page(595, 842), paint::PaintError);
  try {
    painter()->printer();
  } catch (const paint::PaintError& error) {
    EXPECT_STREQ(error.what(), "No Printer Found");
  }
}

TEST(Paint, PicturesOfEachPageStandInPapers) {
  const TempFolder folder;
  twoPages(*painter()->image(folder / "page.png", 36));
  const auto side = [](const std::string& png, size_t at) {
    return static_cast<unsigned char>(png.at(at)) * 256 + static_cast<unsigned char>(png.at(at + 1));
  };
  const std::string png = bytesOf(folder / "page.png"), second = bytesOf(folder / "page-2.png");
  EXPECT_EQ(side(png, 18), 298);
  EXPECT_EQ(side(png, 22), 421);
  EXPECT_EQ(side(second, 18), 421);
  EXPECT_EQ(side(second, 22), 298);
  const auto paper = painter()->pdf(folder / "paper.pdf");
  for (int page = 0; page < 3; ++page) {
    paper->page(595, 842);
    paper->picture({72, 72, 100, 50}, png);
    paper->picture({72, 200, 100, 50}, "no picture at all");
  }
  paper->finish();
  const std::string images = outputOf("pdfimages -list " + (folder / "paper.pdf").string());
  EXPECT_NE(images.find("298   421"), std::string::npos) << images;
  // Once in the file, however many pages show it.
  EXPECT_LT(bytesOf(folder / "paper.pdf").size(), 2 * png.size() + 6000);
}

TEST(Paint, MeasuresAddUp) {
  const auto made = painter();
  const auto& metrics = made->metrics();
  const paint::Font font{.family = "Calibri", .size = 11};
  paint::Font bold = font, twice = font;
  bold.bold = true;
  twice.size = 22;
  // A digit of the design's font is 7 pixels wide at 96 dots per inch, less rounding.
  EXPECT_NEAR(metrics.width("0000000000", font), 55.8, 1.0);
  EXPECT_NEAR(metrics.width("Total", twice), 2 * metrics.width("Total", font), 0.1);
  EXPECT_GT(metrics.width("Total", bold), metrics.width("Total", font));
  EXPECT_NEAR(metrics.lineHeight(font), 13.4, 0.5);
  const double one = metrics.lineHeight(font);
  EXPECT_NEAR(metrics.wrappedHeight("a", font, 100), one, 0.01);
  EXPECT_NEAR(metrics.wrappedHeight("a\nb\nc", font, 100), 3 * one, 0.01);
  EXPECT_NEAR(metrics.wrappedHeight("aaaa aaaa", font, metrics.width("aaaa ", font)), 2 * one, 0.01);
}

}  // namespace
