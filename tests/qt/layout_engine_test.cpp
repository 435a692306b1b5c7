#include "platform/qt/layout_engine.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/test_host.h"

namespace {

using layout::Rect;

// Letters are 8 pixels wide, so that widths can be reckoned by hand.
layout::Measure measured(double scale = 1) {
  return {.scale = scale, .width = [scale](const std::string& text, Style) {
            return static_cast<int>(static_cast<double>(text.size()) * 8 * scale);
          }};
}

// clang-format off
std::vector<GridColumn> lineColumns() {
  return {
      {.title = "Sr",          .width = px(34)},
      {.title = "Item",        .width = px(92)},
      {.title = "Description", .width = part(1)},
      {.title = "Qty",         .width = px(86)},
      {.title = "Rate",        .width = px(92)},
      {.title = "Hidden",      .width = px(0)},
      {.title = "Amount",      .width = px(112)},
  };
}

// The skeleton of a bill.
ScreenSpec billTable() {
  ScreenSpec s;
  s.name = "bill";
  s.layout.bands = {
      {px(116), {{.name = "A", .width = part(1), .columns = {px(56), px(92), fit(), part(1)}},
                 {.name = "B", .width = px(356), .columns = {px(58), px(92), fit(), part(1)}}}},
      {px(25), {{.name = "heads", .frame = Frame::Heads, .columnsOf = "Lines"}}},
      {px(34), {{.name = "entry", .frame = Frame::Entry, .columnsOf = "Lines"}}},
      {px(24), {{.name = "keys", .frame = Frame::Keys, .columnsOf = "Lines"}}},
      {part(1), {{.name = "lines", .frame = Frame::Plain}}},
      {px(34), {{.name = "buttons", .frame = Frame::Buttons}}},
  };
  const std::vector<GridColumn> rates = {{.title = "Date", .width = px(108)},
                                         {.title = "Qty", .width = px(86)},
                                         {.title = "Rate", .width = px(92)},
                                         {.title = "Amount", .width = part(1)}};
  s.controls = {
      {.name = "No", .label = "V. No", .at = {.group = "A", .row = 0, .col = 1, .width = 80}},
      {.name = "Party", .label = "Party", .at = {.group = "A", .row = 1, .col = 1}},
      {.name = "Name", .at = {.group = "A", .row = 1, .col = 2, .span = 2}},
      {.name = "Type", .label = "B.Type", .at = {.group = "B", .row = 0, .col = 1}},
      {.name = "BillNo", .label = "B.No", .at = {.group = "B", .row = 0, .col = 3}},
      {.name = "Item", .label = "Item", .at = {.group = "entry", .col = 1}},
      {.name = "Rate", .label = "Rate", .at = {.group = "entry", .col = 4}},
      {.name = "Lines", .kind = Kind::Grid, .at = {.group = "lines"}, .tab = 1, .columns = lineColumns()},
      {.name = "Rates", .kind = Kind::Grid, .columns = rates, .over = "Lines", .overOwn = 1, .overIts = 3, .overWidth = 420},
      {.name = "Save", .kind = Kind::Button, .label = "&Save", .at = {.group = "buttons"}},
      {.name = "Cancel", .kind = Kind::Button, .label = "&Cancel", .at = {.group = "buttons"}},
      {.name = "Wide", .kind = Kind::Button, .label = "Create &New Company", .at = {.group = "buttons"}},
      {.name = "Video", .kind = Kind::Button, .label = "&Video", .at = {.group = "buttons", .right = true}},
  };
  return s;
}

// clang-format on

ScreenSpec tableOf(std::vector<Band> bands, std::vector<ControlSpec> controls) {
  ScreenSpec s;
  s.layout.bands = std::move(bands);
  s.controls = std::move(controls);
  return s;
}

class LayoutEngine : public testing::Test {
 protected:
  void draw(const ScreenSpec& table, int width, int height, double scale = 1) {
    spec_ = table;
    screen_ = std::make_unique<Screen>(host_, spec_);
    arrange(width, height, scale);
  }
  void arrange(int width, int height, double scale = 1) {
    plan_ = layout::arrange(*screen_, width, height, measured(scale));
  }
  const layout::Spot& spot(const std::string& name) const {
    for (size_t i = 0; i < screen_->controls.size(); ++i)
      if (screen_->controls[i]->family == name) return plan_.spots[i];
    throw std::out_of_range(name);
  }
  Rect box(const std::string& name) const { return spot(name).box; }
  Rect group(const std::string& name) const {
    for (const layout::GroupSpot& g : plan_.groups)
      if (g.group->name == name) return g.box;
    throw std::out_of_range(name);
  }

  Screens none_;
  TestHost host_{none_};
  ScreenSpec spec_;
  std::unique_ptr<Screen> screen_;
  layout::Plan plan_;
};

void expectRect(const Rect& seen, const Rect& expected) {
  EXPECT_EQ(std::vector({seen.x, seen.y, seen.w, seen.h}),
            std::vector({expected.x, expected.y, expected.w, expected.h}));
}

TEST_F(LayoutEngine, ScaleGoesInQuarterStepsFromOneToOneAndAHalf) {
  const std::tuple<int, int, double> cases[] = {
      {1366, 768,  1   },
      {1280, 720,  1   },
      {1600, 900,  1   },
      {1708, 960,  1.25},
      {1920, 1080, 1.25},
      {1920, 900,  1   },
      {2049, 1152, 1.5 },
      {3840, 2160, 1.5 },
  };
  for (const auto& [width, height, scale] : cases)
    EXPECT_EQ(layout::scaleFor(width, height), scale) << width << " x " << height;
}

TEST_F(LayoutEngine, BillStandsOnTheSpacingOfTheLook) {
  draw(billTable(), 1366, 644);
  expectRect(plan_.strip, {0, 0, 1366, 30});
  expectRect(group("A"), {8, 36, 988, 116});
  expectRect(group("B"), {1002, 36, 356, 116});
  // Frame 1, inset 10 and 7; label column 56, gap 8.
  expectRect(box("No"), {83, 44, 80, 30});
  expectRect(box("Party"), {83, 79, 92, 30});
  expectRect(box("Name"), {183, 79, 802, 30});
  EXPECT_EQ(spot("Party").label.right(), 83 - 8 - 2);
  // "B.No" is 4 letters and a margin of 2.
  EXPECT_EQ(box("BillNo").x, 1002 + 11 + 58 + 8 + 92 + 8 + 34 + 8);
  EXPECT_EQ(box("BillNo").right(), group("B").right() - 11);
}

TEST_F(LayoutEngine, EntryFieldsStandOverTheirColumns) {
  draw(billTable(), 1366, 644);
  const layout::Spot& lines = spot("Lines");
  ASSERT_EQ(lines.edges.size(), 8u);
  // Heads, entry row, keys and grid follow without a gap and share one frame.
  EXPECT_EQ(group("entry").y, group("heads").bottom());
  EXPECT_EQ(lines.box.y, group("keys").bottom());
  ASSERT_EQ(plan_.blocks.size(), 1u);
  expectRect(plan_.blocks[0].box, {8, 158, 1350, lines.box.bottom() - 158});
  EXPECT_TRUE(lines.joined);

  EXPECT_EQ(box("Item").x, lines.box.x + lines.edges[1] + 1);
  EXPECT_EQ(box("Item").w, 90);
  EXPECT_EQ(box("Rate").x, lines.box.x + lines.edges[4] + 1);
  EXPECT_EQ(lines.edges[5], lines.edges[6]) << "a hidden column takes no room";
  EXPECT_EQ(lines.edges.back(), 1350 - 1 - 14) << "the lane of the scroll bar is kept";
  EXPECT_TRUE(spot("Item").label.empty()) << "the heading row names it";
}

TEST_F(LayoutEngine, ColumnsShareWhatThereIs) {
  // clang-format off
  const std::tuple<std::vector<Length>, int, std::vector<int>> rows[] = {
      {{px(50), part(1), px(30)}, 200, {0, 50, 170, 200}},
      {{part(1), part(3)}, 200, {0, 50, 200}},
      {{twips(1000), twips(0), twips(3000)}, 400, {0, 100, 100, 400}},
      {{px(100), px(300)}, 800, {0, 200, 800}},           // fixed widths alone fill the grid
      {{px(100), px(300), part(1)}, 200, {0, 50, 200, 200}},  // too narrow: all give way alike
      {{fit(), part(1)}, 200, {0, 46, 200}},              // "Head" and 7 on both sides
  };
  // clang-format on
  for (const auto& [widths, room, edges] : rows) {
    std::vector<GridColumn> columns;
    for (const Length& w : widths) columns.push_back({.title = "Head", .width = w});
    EXPECT_EQ(layout::columnEdges(columns, room, measured()), edges);
  }
}

TEST_F(LayoutEngine, SmallWindowsNarrowColumnsToTheirLeastAndNoFurther) {
  layout::Measure small = measured();
  small.small = true;
  const std::vector<GridColumn> columns{
      {.title = "A", .width = px(100, 60)},
      {.title = "B",            .width = part(1,                50)},
      {.title = "C",         .width = px(100)        },
  };
  const std::pair<int, std::vector<int>> rows[] = {
      {400, {0, 81, 302, 400}}, // the part has its 220, the others what is left
      {300, {0, 60, 204, 300}}, // C gives of its insets
      {100, {0, 60, 110, 206}}, // what is beyond is scrolled to
  };
  for (const auto& [room, edges] : rows) EXPECT_EQ(layout::columnEdges(columns, room, small), edges);
}

TEST_F(LayoutEngine, OfTheTaxesASmallWindowShowsThoseThatALineHas) {
  ScreenSpec table = tableOf(
      {
          {px(34),  {{.name = "entry", .frame = Frame::Entry, .columnsOf = "Lines"}}},
          {part(1), {{.name = "lines"}}                                             }
  },
      {{.name = "Cgst", .at = {.group = "entry", .col = 1}, .tab = 1},
       {.name = "Lines",
        .kind = Kind::Grid,
        .at = {.group = "lines"},
        .columns = {{.title = "Item"}, {.title = "Cgst", .spare = 1}, {.title = "Igst", .spare = 2}}}});
  Screen screen(host_, table);
  Control &typed = screen.at("Cgst"), &lines = screen.at("Lines");
  const auto rows = std::make_shared<CellRows>();
  lines.grid.source = rows;
  EXPECT_EQ(layout::leftOut(screen, lines), 1U << 2) << "of an empty voucher the first ones stay";
  rows->rows = {
      {{.text = "FAN"}, {.text = "0"}, {.text = "18"}}
  };
  EXPECT_EQ(layout::leftOut(screen, lines), 1U << 1);
  Screen::set(typed, "9");
  EXPECT_EQ(layout::leftOut(screen, lines), 0U);
}

TEST_F(LayoutEngine, DialogsFloatWhereTheyAreAnchored) {
  const auto placed = [&](double width, double height, Anchor anchor) {
    ScreenSpec s = tableOf(
        {
            {fit(),  {{.name = "g", .columns = {part(1)}}}         },
            {px(34), {{.name = "buttons", .frame = Frame::Buttons}}}
    },
        {{.name = "A", .at = {.group = "g"}}, {.name = "B", .at = {.group = "g", .row = 1}}});
    s.window = Window::Dialog;
    s.layout.width = width;
    s.layout.height = height;
    s.layout.anchor = anchor;
    return layout::placeDialog(Screen(host_, s), {0, 0, 1366, 738}, {0, 68, 1366, 644}, measured());
  };
  expectRect(placed(480, 396, Anchor::Centre), {443, 171, 480, 396});
  expectRect(placed(480, 2000, Anchor::Centre), {443, 6, 480, 726});
  expectRect(placed(600, 300, Anchor::Top), {383, 104, 600, 300});
  // 120 above the lower edge, as wide as there is.
  expectRect(placed(1350, 193, Anchor::Bottom), {6, 425, 1354, 193});
  // Without a height it takes that of its rows. Frame 2, title 28, margin 6; two rows in a group; gap and
  // buttons.
  const int inside = (8 + 30 + 5 + 30 + 8) + 6 + 34;
  EXPECT_EQ(placed(400, 0, Anchor::Centre).h, 2 * 2 + 28 + 2 * 6 + inside);
}

}  // namespace
