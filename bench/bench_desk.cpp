#include "bench_desk.h"

#include <algorithm>

#include "frame/session.h"
#include "frame/start.h"
#include "platform/qt/paint_qt.h"
#include "program/all_screens.h"

namespace {

constexpr size_t kRowsInView = 14;

std::unique_ptr<BenchDesk> running;

}  // namespace

BenchDesk::BenchDesk() : TestHost(allScreens()) {}
BenchDesk::~BenchDesk() = default;

void BenchDesk::draw(const Screen& screen) {
  for (const auto& control : screen.controls) {
    if (!control->visible || control->kind != Kind::Grid) continue;
    const Grid& grid = control->grid;
    const size_t current = grid.current == Grid::kNone ? 0 : grid.current;
    const size_t first = current < kRowsInView ? 0 : current - kRowsInView + 1;
    for (size_t row = first; row < std::min(grid.count(), first + kRowsInView); ++row)
      for (size_t column = 0; column < grid.columns.size(); ++column)
        drawn_ += grid.cell(row, column).text.size();
  }
}

void BenchDesk::changed() {
  if (top()) draw(*top());
}

void BenchDesk::refresh() {
  changed();
  shownEarly = std::chrono::steady_clock::now();
}

paint::Painter& BenchDesk::painter() {
  if (!painter_) painter_ = paint::makePainter();
  return *painter_;
}

void BenchDesk::openYear() {
  enter();
  ticks(4);
  require(onTop() == "frmmain", "the shell does not open");
}

void BenchDesk::toShell() {
  while (onTop() != "frmmain") {
    answers.assign(1, true);
    escape();
    answers.clear();
  }
}

void BenchDesk::startBill(const std::string& party) {
  toShell();
  choose("SALE");
  press("cmdadd");
  enter();
  fillEnter("party", party);
  go("bill_type");
  keys({KeyCode::Enter, KeyCode::Enter, KeyCode::Enter, KeyCode::Enter});
  require(focus() == "item", "a new bill does not come to its first item");
}

void BenchDesk::typeItem(const std::string& item) {
  fillEnter("item", item);
  keys({KeyCode::Enter, KeyCode::Enter});
  require(focus() == "quantity", "an item does not lead to its quantity");
}

void BenchDesk::typeLine(const std::string& item, const std::string& quantity) {
  typeItem(item);
  type(quantity);
  keys({KeyCode::Enter, KeyCode::Enter, KeyCode::Enter, KeyCode::Enter});
  require(focus() == "item" && text("item").empty(), "a line is not stored");
}

void BenchDesk::toSave() {
  key(KeyCode::PgDn);
  go("parcels");
  enter();
  require(focus() == "CMDSAVE", "the bill does not come to Save");
}

void BenchDesk::saveBill() {
  insideModal.push_back([this] { press("CancelButton"); });
  enter();
}

BenchDesk& freshDesk() {
  const Moment clock = running ? running->clock : Moment{};
  running.reset();
  running = std::make_unique<BenchDesk>();
  if (clock.date.ok()) running->clock = clock;
  require(startUp(*running, folder()), "the program does not start");
  return *running;
}

BenchDesk& desk() {
  if (!running) {
    freshDesk().openYear();
    // On the last day of the year all of its bills lie behind.
    running->clock = {session().menddt, 10, 30};
  }
  if (running->onTop() == "FRMCOMP") running->openYear();
  running->toShell();
  running->messages.clear();
  return *running;
}

const SampleBill& sampleBill() {
  static const SampleBill bill = [] {
    desk();
    const auto row = data().first(
        "SELECT PARTY_CD, ITEM_CD FROM SALE JOIN SALEITM USING (VOUCH_NO, BOOK_CD) ORDER BY VOUCH_NO DESC,"
        " SR_NO LIMIT 1");
    require(row.has_value(), "the folder holds no bills: make it large first");
    return SampleBill{row->text(0), row->text(1)};
  }();
  return bill;
}

void endProgram() { running.reset(); }
