#include <set>
#include <sstream>

#include "base/words.h"
#include "platform/qt/screen_view.h"
#include "platform/shown.h"
#include "program/every_screen.h"

// Every screen in windows from half of a small display to the usual one: what stands there has its size
// and its place, whole, beside the others, in the window or where scrolling brings it.

namespace {

class Surveyor : public Tourist {
 public:
  using Tourist::Tourist;
  std::set<std::string> faults;

  void look(const std::string& where) override {
    settle();
    if (!window() || !top()) return;
    for (const QWidget* child : window()->findChildren<QWidget*>())
      if (const auto* view = dynamic_cast<const ScreenView*>(child))
        if (&view->screen() == top() && view->isVisible()) survey(*view, where);
  }

 private:
  // In a column of taxes that a small window leaves out.
  static bool spared(const Screen& screen, const Control& c) {
    const auto column = static_cast<size_t>(c.spec->at.col);
    for (const auto& grid : screen.controls)
      if (c.ofLine() && grid->kind == Kind::Grid && column < grid->grid.columns.size() &&
          grid->grid.columns[column].spare > 0)
        return true;
    return false;
  }

  void survey(const ScreenView& view, const std::string& where) {
    const Screen& screen = view.screen();
    const layout::Plan& plan = view.plan();
    const layout::Measure& measure = window()->look().measure();
    const layout::Rect least = layout::leastSize(screen, measure);
    const QRect page(0, 0, std::max(view.width(), least.w), std::max(view.height(), least.h));
    const auto fault = [&](const Control& c, const std::string& what) {
      if (seen_.insert(screen.spec.name + c.fullName() + what).second)
        faults.insert(where + ": " + c.fullName() + " " + c.label + " " + what);
    };
    if (window()->width() >= 960 && (page.width() > view.width() || page.height() > view.height()))
      faults.insert(where + ": scrolls");
    for (size_t i = 0; i < screen.controls.size(); ++i) {
      const Control& c = *screen.controls[i];
      const layout::Spot& spot = plan.spots[i];
      const QRect box = draw::rect(spot.box);
      if (!c.visible || c.spec->at.group.empty()) continue;
      if (box.isEmpty()) {
        if (c.focusable() && !spared(screen, c)) fault(c, "has no place");
        continue;
      }
      if (!page.contains(box)) fault(c, "is out of reach");
      if (c.editable() && (box.height() < 24 || box.width() < 30)) fault(c, "is squeezed");
      const std::string words = shownText(c);
      const bool ofWords = c.kind == Kind::Button || c.kind == Kind::Check ||
                           (c.kind == Kind::Label && c.text == c.spec->label && c.spec->at.rows == 1);
      if (ofWords && measure.width(layout::plainCaption(words), c.style) > box.width()) fault(c, "is cut");
      if (c.kind == Kind::Grid && spot.rowHeight > 0 && screen.spec.window != Window::Main) {
        const int heads = c.grid.heading && !spot.joined ? 1 : 0;
        const int rows = (box.height() - 2) / spot.rowHeight - heads;
        // The shell's list of what is due has one row.
        const bool all = !c.grid.heading && c.grid.count() > 0 && static_cast<size_t>(rows) >= c.grid.count();
        if (rows < layout::size::kLeastRows && !all) fault(c, "shows few rows");
      }
      if (&c == screen.focused() && !view.rect().contains(view.widgetOf(&c)->geometry()) &&
          box.width() < view.width() / 2 && box.height() < view.height() / 2)
        fault(c, "has the focus out of sight");
      const QRect label = labelOf(c, spot, measure);
      if (!label.isEmpty() && label.left() < 0) fault(c, "has its label cut");
      for (size_t k = 0; k < screen.controls.size(); ++k) {
        const Control& other = *screen.controls[k];
        const QRect its = draw::rect(plan.spots[k].box);
        if (k == i || !other.visible || plan.spots[k].overlay || spot.overlay) continue;
        if (other.kind == Kind::Picture || c.kind == Kind::Picture) continue;  // it takes the place of words
        if (k > i && its.intersects(box)) fault(c, "lies on " + other.fullName());
        if (!label.isEmpty() && its.intersects(label)) fault(other, "lies on the label of " + c.fullName());
      }
    }
  }

  static QRect labelOf(const Control& c, const layout::Spot& spot, const layout::Measure& measure) {
    if (spot.label.empty()) return {};
    QRect box = draw::rect(spot.label);
    box.setLeft(box.right() + 1 - measure.width(layout::plainCaption(words(c.label)), Style::Quiet));
    return box;
  }

  std::set<std::string> seen_;
};

struct WindowSize {
  int width, height;
};

class SizesOfEveryScreen : public EveryScreen<Surveyor>, public testing::WithParamInterface<WindowSize> {};

TEST_P(SizesOfEveryScreen, LeaveNothingSqueezedCutOrOutOfReach) {
  start(GetParam().width, GetParam().height);
  tour();
  std::ostringstream all;
  for (const std::string& fault : host_->faults) all << fault << "\n";
  EXPECT_TRUE(host_->faults.empty()) << all.str();
}

// What a title bar of 30 leaves of 960 x 540, 1024 x 600 and 1366 x 720; and a quarter of a display.
INSTANTIATE_TEST_SUITE_P(Windows, SizesOfEveryScreen,
                         testing::Values(WindowSize{640, 400}, WindowSize{960, 510}, WindowSize{1024, 570},
                                         WindowSize{1366, 690}),
                         [](const auto& row) {
                           return std::to_string(row.param.width) + "x" + std::to_string(row.param.height);
                         });

}  // namespace
