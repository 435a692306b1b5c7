// Papers as the running program makes them: from the button of the print dialog to the file.

#include <sys/resource.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "bench_desk.h"
#include "documents/renderers.h"
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
  d.choose("SALE");
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

// A morning's papers, one bill after the other. The first fill the caches of fonts and statements;
// after them nothing may grow.
void many(State& state) {
  constexpr int kPapers = 500;
  const auto bills =
      data().all("SELECT VOUCH_NO FROM SALE WHERE BOOK_CD = 'SA' ORDER BY VOUCH_NO LIMIT ?", kPapers);
  BenchDesk& d = toPrint(bills.front().text(0));
  for (int i = 0; i < 20; ++i) makePdf(d);
  const double before = residentKb();
  for (auto _ : state)
    for (const Row& bill : bills) {
      d.fillEnter("Text4", bill.text(0));
      makePdf(d);
    }
  state.counters["a_second"] = benchmark::Counter(kPapers, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["grown_kB"] = residentKb() - before;
}

struct Took {
  double clock = 0, cpu = 0;  // seconds
};

Took took(const std::string& command) {
  const auto cpu = [] {
    rusage used{};
    getrusage(RUSAGE_CHILDREN, &used);
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
           static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec) / 1e6;
  };
  const double before = cpu();
  const auto start = std::chrono::steady_clock::now();
  require(std::system((command + " > /dev/null 2>&1").c_str()) == 0, command + " failed");
  return {std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count(), cpu() - before};
}

// A small company-year whose first bill has as many lines.
void makeSample(const std::filesystem::path& into, const std::filesystem::path& sample, int lines) {
  std::filesystem::remove_all(into);
  std::filesystem::copy(sample, into, std::filesystem::copy_options::recursive);
  Database year;
  year.open(into / "M00126.mdb");
  year.exec("CREATE TEMP TABLE LINE AS SELECT * FROM SALEITM WHERE VOUCH_NO = 1 AND SR_NO = 1");
  year.exec("DELETE FROM SALEITM WHERE VOUCH_NO = 1");
  for (int i = 1; i <= lines; ++i) {
    year.exec("UPDATE LINE SET SR_NO = ?", i);
    year.exec("INSERT INTO SALEITM SELECT * FROM LINE");
  }
}

// The whole program, from its start to a bill's paper of two pages, beside a spreadsheet program
// that makes the paper of such a filled workbook, where one is installed.
void process(State& state) {
  BenchDesk& d = toPrint(billOf(kLinesOfTwoPages));
  session().mprnmode.clear();
  const Renderer* const invoice = rendererOf("GST INVOICE");
  invoice->make(d, d.text("Text4"), invoice->kind);
  const auto build = std::filesystem::canonical("/proc/self/exe").parent_path().parent_path();
  const auto work = folder() / "process";
  makeSample(work, build / "sample", kLinesOfTwoPages);
  std::ofstream(work / "one.keys") << "focus lst\nkey Enter\ntick 4\nmenu SALE\npress cmdprint\n"
                                   << "fill Text4 \"1\"\nkey Enter\npress cmdpdf\n";
  const std::string ours =
      (build / "tools/play/mirav-play").string() + " " + work.string() + " " + (work / "one.keys").string();
  const std::string theirs = "cd " + work.string() + " && soffice -env:UserInstallation=file://" +
                             work.string() + "/profile --headless --convert-to pdf " + d.viewed.back();
  took(ours);
  require(pagesOf((work / "BILLS/MIRAV_INV_1.pdf").string()) == 2, "the paper has not two pages");
  Took own;
  for (auto _ : state) {
    const Took round = took(ours);
    own.clock += round.clock;
    own.cpu += round.cpu;
  }
  const auto rounds = static_cast<double>(state.iterations());
  state.counters["cpu_ms"] = 1000 * own.cpu / rounds;
  if (std::system("command -v soffice > /dev/null") == 0) {
    took(theirs);  // makes its profile
    const Took other = took(theirs);
    state.counters["spreadsheet_ms"] = 1000 * other.clock;
    state.counters["times_faster"] = other.clock / own.clock * rounds;
    state.counters["times_cpu"] = other.cpu / own.cpu * rounds;
  }
  std::filesystem::remove_all(work);
}

}  // namespace

void addMeasurements() {
  measure(
      "Invoice PDF/one page", [](State& s) { invoice(s, 3, 1); }, true);
  measure(
      "Invoice PDF/two pages", [](State& s) { invoice(s, kLinesOfTwoPages, 2); }, true);
  measure("500 invoices", many, true, 1);
  measure("Invoice PDF/whole process", process, true, 10);
}
