#include <cmath>
#include <system_error>

#include "base/words.h"
#include "documents/grid_walk.h"
#include "documents/paper.h"
#include "documents/pdf/pdf_creator.h"
#include "frame/routines.h"
#include "frame/session.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kFont = "Fnt1";
constexpr const char* kRepeated = "Ftrs";
constexpr double kSize = 9, kRule = 0.01;
constexpr double kFull = 100, kNarrow = 70;  // of the letters' width
constexpr const char* kHeld = english("File Is Already Open\r\nClose It First");

struct HeadingLine {
  std::string text;
  double size, drop;  // to the next line
};

std::vector<HeadingLine> headingLines(const GridOutput& out, bool landscape) {
  const Session& s = session();
  if (landscape)
    return {
        {s.mcompname, 20,    20},
        {s.mcad1,     kSize, 15},
        {out.caption, kSize, 15},
        {out.period,  kSize, 15},
    };
  if (out.key == "PRTYSTMNTVERTI_ITM")
    return {
        {out.caption, kSize, 15}
    };
  if (out.key == "mcompvldgr" || out.key == "mcompvldgr_fullpg")
    return {
        {out.caption, 12,    15},
        {out.period,  kSize, 15},
    };
  return {
      {s.mcompname, 14,    20},
      {out.caption, kSize, 15},
      {out.period,  kSize, 15},
  };
}

class PdfGrid : public GridPaper {
 public:
  PdfGrid(clsPDFCreator& pdf, const GridLayout& layout, const GridOutput& out) : pdf_(pdf), layout_(layout) {
    pdf_.StartObject(kRepeated);
    pdf_.SetTextHorizontalScaling(kFull);
    titles_ = layout.top;
    for (const HeadingLine& line : headingLines(out, layout.landscape)) {
      centred(line);
      titles_ -= line.drop;
    }
    pdf_.SetLineWidth(kRule);
    layTitles(out, layout, *this, titles_);
    pdf_.EndObject();
  }

  GridPaperKind kind() const override { return GridPaperKind::Pdf; }

  double startPage(int number) override {
    constexpr double kNumberLine = 15;
    pdf_.BeginPage();
    pdf_.DrawText(layout_.landscape ? 820 : 575, kNumberLine,
                  words("Pg. {page}", "page", std::to_string(number)), kFont, kSize, clsPDFCreator::kRight);
    pdf_.DrawObject(kRepeated);
    pdf_.SetLineWidth(kRule);
    return titles_;
  }

  void endPage() override { pdf_.EndPage(); }

  void text(const GridText& t) override {
    const double length = pdf_.Length(t.text, kFont, kSize);
    const double scale = scaleOf(t.narrow ? kNarrow : kFull, length, t.room);
    const double x = t.right ? t.x - length * scale / kFull : t.x;
    if (scale != kFull) pdf_.SetTextHorizontalScaling(scale);
    pdf_.DrawText(x, t.y, t.text, kFont, kSize);
    if (scale != kFull) pdf_.SetTextHorizontalScaling(kFull);
  }

  void rule(double x1, double y1, double x2, double y2) override {
    pdf_.MoveTo(x1, y1);
    pdf_.LineTo(x2, y2);
  }

 private:
  // What is wider than its room is drawn narrower still.
  static double scaleOf(double wanted, double length, double room) {
    return length * wanted <= room * kFull ? wanted : std::max(std::floor(room * kFull / length), 1.0);
  }

  void centred(const HeadingLine& line) {
    constexpr double kEdges = 50;
    const double length = pdf_.Length(line.text, kFont, line.size);
    const double scale = scaleOf(kFull, length, layout_.pageWidth - kEdges);
    if (scale != kFull) pdf_.SetTextHorizontalScaling(scale);
    pdf_.DrawText(layout_.middle - length * scale / kFull / 2, titles_, line.text, kFont, line.size);
    if (scale != kFull) pdf_.SetTextHorizontalScaling(kFull);
  }

  clsPDFCreator& pdf_;
  const GridLayout& layout_;
  double titles_ = 0;
};

// Returns how many letters the fonts lacked.
size_t writePdf(const fs::path& file, const GridLayout& layout, const GridOutput& out) {
  constexpr int kPoints = 0, kUpright = 0, kWide = 4;
  clsPDFCreator pdf(session().mapppath);
  pdf.Title("Mirav Reports");
  pdf.ScaleMODE(kPoints);
  pdf.Margin(0);
  pdf.Orientation(0);
  pdf.PaperSize(layout.landscape ? kWide : kUpright);
  pdf.InitPDFFile(file.string());
  pdf.LoadFont(kFont, "Times New Roman", 0);
  PdfGrid paper(pdf, layout, out);
  layGrid(out, layout, paper);
  pdf.ClosePDFFile();
  return pdf.lostLetters();
}

bool refused(const std::error_code& code) {
  return code == std::errc::permission_denied || code == std::errc::operation_not_permitted ||
         code == std::errc::text_file_busy || code == std::errc::read_only_file_system;
}

// An old file that may not be replaced counts as held.
size_t replacePdf(const fs::path& file, const GridLayout& layout, const GridOutput& out) {
  if (lockedElsewhere(file.string())) throw std::runtime_error(kHeld);
  try {
    fs::create_directories(file.parent_path());
    return writePdf(file, layout, out);
  } catch (const std::system_error& error) {
    std::error_code ignored;
    throw std::runtime_error(refused(error.code()) && fs::exists(file, ignored) ? kHeld : error.what());
  }
}

}  // namespace

void GridToPdf(Host& host, const std::string& name, const GridOutput& out) {
  const auto layout = gridLayout(out, GridPaperKind::Pdf);
  if (!layout) return host.message(tooWideWords(GridPaperKind::Pdf), kMessageTitle);
  tellFailures(host, [&] {
    const fs::path file = billsFolder() / (name + ".pdf");
    const size_t lost = replacePdf(file, *layout, out);
    host.view(file.string());
    if (lost > 0) ShowHint(host, "Letters That The Pdf Has No Font For Stand As ? :: Print Shows Them");
  });
}
