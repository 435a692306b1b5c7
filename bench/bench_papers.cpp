// Papers as the running program makes them: from the button of the print dialog to the file.

#include <fstream>
#include <sstream>
#include <string>

#include "bench_desk.h"
#include "frame/session.h"

namespace {

using State = benchmark::State;

constexpr int kLinesOfTwoPages = 30;

// A bill of so many lines, typed and saved, unless the year ends on one.
std::string billOf(int lines) {
  const auto last = [] {
    return data().first(
        "SELECT VOUCH_NO, COUNT(*) FROM SALEITM WHERE BOOK_CD = 'SA' AND VOUCH_NO ="
        " (SELECT MAX(VOUCH_NO) FROM SALE WHERE BOOK_CD = 'SA') GROUP BY VOUCH_NO");
  };
  BenchDesk& d = desk();
  if (last()->number(1) != lines) {
    const auto items = data().all("SELECT ITEM_CD FROM ITEM WHERE ITEM_CD LIKE 'I%' LIMIT ?", lines);
    d.startBill(sampleBill().party);
    for (const Row& item : items) d.typeLine(item.text(0), "3");
    d.toSave();
    d.saveBill();
  }
  require(last()->number(1) == lines, "the bill is not saved");
  return last()->text(0);
}

// The print dialog with the bill's number typed.
BenchDesk& toPrint(const std::string& number) {
  BenchDesk& d = desk();
  d.choose("GST Sales Entry");
  d.press("cmdprint");
  d.fillEnter("Text4", number);
  require(d.onTop() == "dlg1" && d.focus() == "cmdpdf", "the print dialog does not take the number");
  return d;
}

int pagesOf(const std::string& file) {
  std::stringstream bytes;
  bytes << std::ifstream(file, std::ios::binary).rdbuf();
  const std::string text = bytes.str(), mark = "/Type /Page\n";
  int pages = 0;
  for (size_t at = 0; (at = text.find(mark, at)) != std::string::npos; at += mark.size()) ++pages;
  return pages;
}

void makePdf(BenchDesk& d) {
  d.viewed.clear();
  d.press("cmdpdf");
  require(d.viewed.size() == 1, "no file is shown");
}

void invoice(State& state, int lines, int pages) {
  BenchDesk& d = toPrint(billOf(lines));
  makePdf(d);  // the first paper of a run loads fonts and design
  for (auto _ : state) makePdf(d);
  require(pagesOf(d.viewed.front()) == pages,
          "the paper has " + std::to_string(pagesOf(d.viewed.front())) + " pages");
}

double residentKb() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmRSS:")) return std::stod(line.substr(6));
  return 0;
}

// The first papers fill the caches of fonts and statements; after them nothing may grow.
void memory(State& state) {
  BenchDesk& d = toPrint(billOf(kLinesOfTwoPages));
  for (int i = 0; i < 20; ++i) makePdf(d);
  const double before = residentKb();
  for (auto _ : state)
    for (int i = 0; i < 100; ++i) makePdf(d);
  state.counters["before_kB"] = before;
  state.counters["grown_kB"] = residentKb() - before;
}

}  // namespace

void addMeasurements() {
  measure(
      "Invoice PDF/one page", [](State& s) { invoice(s, 3, 1); }, true);
  measure(
      "Invoice PDF/two pages", [](State& s) { invoice(s, kLinesOfTwoPages, 2); }, true);
  measure("100 invoices", memory, true, 1);
}
