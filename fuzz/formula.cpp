#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "base/text.h"
#include "fuzz/scratch.h"
#include "fuzz/use_book.h"
#include "platform/workbook/workbook.h"

// Formulas, one a line, in the cells F1, F2, ... beside a small table. One that keeps the
// program busy is a fault: a bill's print waits for it.
namespace {

constexpr double kMostSeconds = 8;  // as slow as the sanitizers make it; the work is cut off long before
constexpr size_t kMostFormulas = 40;

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c == '<')
      out += "&lt;";
    else if (c == '&')
      out += "&amp;";
    else if (static_cast<unsigned char>(c) >= ' ')
      out += c;
  }
  return out;
}

std::string table(const std::vector<std::string>& formulas) {
  std::string rows;
  for (int row = 1; row <= static_cast<int>(kMostFormulas); ++row) {
    const std::string r = std::to_string(row);
    rows += "<row r=\"" + r + "\">";
    if (row <= 8) {
      rows += "<c r=\"A" + r + "\"><v>" + std::to_string(row * 12.5 - 30) + "</v></c>";
      rows += "<c r=\"B" + r + "\" t=\"str\"><v>" + (row % 3 ? "ITEM " + r : "12.5%") + "</v></c>";
      rows += "<c r=\"C" + r + "\"><v>" + std::to_string(46000 + row * 31) + "</v></c>";
      if (row == 4) rows += R"(<c r="D4" t="b"><v>1</v></c><c r="E4" t="e"><v>#N/A</v></c>)";
    }
    if (const size_t at = static_cast<size_t>(row) - 1; at < formulas.size() && !formulas[at].empty())
      rows += "<c r=\"F" + r + "\"><f>" + escaped(formulas[at]) + "</f></c>";
    rows += "</row>";
  }
  return books::sheet(rows);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  scratch();
  auto parts = plainBook();
  auto formulas = split(std::string_view(reinterpret_cast<const char*>(data), size), "\n");
  if (formulas.size() > kMostFormulas) formulas.resize(kMostFormulas);
  parts["xl/worksheets/sheet1.xml"] = table(formulas);
  const std::string bytes = books::zipped(parts);

  const std::clock_t begun = std::clock();
  try {
    auto book = workbook::Workbook::fromBytes(bytes);
    book.setNow(46188.4);
    book.recalculate();
    for (int row = 1; row <= static_cast<int>(formulas.size()); ++row) book.sheet("BILL").shown(row, 6);
    book.sheet("BILL").set(1, 1, 7);
    book.recalculate();
  } catch (const workbook::WorkbookError&) {
  }
  const double seconds = static_cast<double>(std::clock() - begun) / CLOCKS_PER_SEC;
  if (seconds > kMostSeconds) {
    std::fprintf(stderr, "the formulas took %.1f seconds\n", seconds);
    std::abort();
  }
  return 0;
}
