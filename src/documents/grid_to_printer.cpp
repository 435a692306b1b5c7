#include <algorithm>
#include <utility>

#include "base/words.h"
#include "documents/grid_walk.h"
#include "documents/paper.h"
#include "frame/session.h"
#include "platform/paint.h"

namespace {

constexpr const char* kFamily = "Calibri";
constexpr double kSize = 10, kSmallSize = 8, kHeadingSize = 12;
constexpr double kDescent = 0.25;  // of the size
constexpr double kLower = 1.5;     // the larger letters stand in the middle between their rules
constexpr double kRule = 0.3;
constexpr paint::Rect kA4{0, 0, 595.276, 841.89};

class PrintedGrid : public GridPaper {
 public:
  PrintedGrid(paint::Canvas& canvas, const paint::Metrics& metrics, const GridOutput& out,
              const GridLayout& layout)
      : canvas_(canvas), metrics_(metrics), out_(out), layout_(layout) {}

  GridPaperKind kind() const override { return GridPaperKind::Printer; }

  double startPage(int number) override {
    if (layout_.landscape)
      canvas_.page(kA4.h, kA4.w);
    else
      canvas_.page(kA4.w, kA4.h);
    const double titles = GridPageHeading(number);
    layTitles(out_, layout_, *this, titles);
    return titles;
  }

  void endPage() override {}

  void text(const GridText& t) override {
    const paint::Font font{.family = kFamily, .size = t.narrow ? kSmallSize : kSize, .bold = t.bold};
    draw(t.text, font, t.right ? t.x - t.room : t.x, t.y - kLower, t.room,
         t.right ? paint::HAlign::Right : paint::HAlign::Left);
  }

  void rule(double x1, double y1, double x2, double y2) override {
    canvas_.line(x1, layout_.pageHeight - y1, x2, layout_.pageHeight - y2, kRule, {});
  }

 private:
  // The lines above the table. Returns the line of the titles.
  double GridPageHeading(int number) {
    constexpr double kStep = 16, kEdges = 50;
    const paint::Font font{.family = kFamily, .size = kHeadingSize, .bold = true};
    const double room = layout_.pageWidth - kEdges;
    double y = layout_.top;
    for (const std::string* line : {&std::as_const(session().mcompname), &out_.caption, &out_.period}) {
      draw(*line, font, layout_.middle - room / 2, y, room, paint::HAlign::Centre);
      y -= kStep;
    }
    draw(words("Page No.: {page}", "page", std::to_string(number)), {.family = kFamily, .size = kSize},
         layout_.right - room, y, room, paint::HAlign::Right);
    return y - kStep;
  }

  // A text wider than its room is drawn smaller.
  void draw(const std::string& text, paint::Font font, double x, double y, double room, paint::HAlign align) {
    constexpr double kSmallest = 3;
    if (const double width = metrics_.width(text, font); width > room)
      font.size = std::max(font.size * room / width, kSmallest);
    const double height = metrics_.lineHeight(font);
    const double bottom = layout_.pageHeight - y + kDescent * font.size;
    const paint::Rect box{x, bottom - height, room, height};
    canvas_.text({.text = text, .box = box, .clip = box, .font = font, .halign = align});
  }

  paint::Canvas& canvas_;
  const paint::Metrics& metrics_;
  const GridOutput& out_;
  const GridLayout& layout_;
};

}  // namespace

void GridToPrinter(Host& host, const GridOutput& out, PrintTo to) {
  const auto layout = gridLayout(out, GridPaperKind::Printer);
  if (!layout) return host.message(tooWideWords(GridPaperKind::Printer), kMessageTitle);
  tellFailures(host, [&] {
    const std::string preview = (billsFolder() / "PREVIEW.pdf").string();
    paint::Painter& painter = host.painter();
    if (to == PrintTo::Preview) std::filesystem::create_directories(billsFolder());
    const auto canvas = to == PrintTo::Preview ? painter.pdf(preview) : painter.printer();
    PrintedGrid paper(*canvas, painter.metrics(), out, *layout);
    layGrid(out, *layout, paper);
    canvas->finish();
    if (to == PrintTo::Preview) host.view(preview);
  });
}
