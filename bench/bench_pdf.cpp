// The writers of reports beside the libraries that others use for the same: PDF pages of 54 rows by
// nine columns, a workbook of 100,000 rows. The sides take turns; times are of the CPU.

#include <sys/resource.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#ifdef MIRAV_BENCH_HPDF
#  include <hpdf.h>
#endif
#ifdef MIRAV_BENCH_CAIRO
#  include <cairo-pdf.h>
#endif

#include "documents/grid_output.h"
#include "documents/pdf/pdf_creator.h"
#include "frame/session.h"
#include "support/temp_folder.h"
#include "support/test_host.h"

namespace {

constexpr int kRounds = 7, kPages = 200, kManyPages = 10'000, kRows = 54, kSheetRows = 100'000;
constexpr double kPitch = 12.5, kTop = 743.5, kLeft = 38.75, kSize = 9;
constexpr double kWidths[] = {25, 60, 65, 25, 140, 60, 60, 60, 22.5};
constexpr int kColumns = 9;

const std::vector<std::string>& cells() {
  static const std::vector<std::string> texts = [] {
    std::vector<std::string> made;
    for (int i = 0; i < kRows; ++i)
      for (const std::string& text :
           {std::to_string(1000 + i), std::string("15/06/26"), "CH-" + std::to_string(i * 37),
            std::string("SA"), std::string("GST SALES ACCOUNT"), std::to_string(1180 + i) + ".50",
            std::string("250.00"), std::to_string(90000 + i) + ".00", std::string("Dr")})
        made.push_back(text);
    return made;
  }();
  return texts;
}

// Text and rules of a page, however they are drawn.
void drawPage(const std::function<void(double, double, const std::string&)>& text,
              const std::function<void(double, double, double, double)>& rule) {
  double y = kTop;
  for (int row = 0; row < kRows; ++row, y -= kPitch) {
    double x = kLeft;
    rule(kLeft, y - 4.5, kLeft + 517.5, y - 4.5);
    rule(x, y - 4.5, x, y + 10.5);
    for (int column = 0; column < kColumns; ++column) {
      text(x + 4, y, cells()[static_cast<size_t>(row * kColumns + column)]);
      x += kWidths[column];
      rule(x, y - 4.5, x, y + 10.5);
    }
  }
}

void ours(const std::string& file, int pages) {
  clsPDFCreator pdf;
  pdf.PaperSize(0);
  pdf.InitPDFFile(file);
  pdf.LoadFont("Fnt1", "Times New Roman", 0);
  for (int page = 0; page < pages; ++page) {
    pdf.BeginPage();
    pdf.SetLineWidth(0.01);
    drawPage([&](double x, double y, const std::string& text) { pdf.DrawText(x, y, text, "Fnt1", kSize); },
             [&](double x1, double y1, double x2, double y2) {
               pdf.MoveTo(x1, y1);
               pdf.LineTo(x2, y2);
             });
    pdf.EndPage();
  }
  pdf.ClosePDFFile();
}

#ifdef MIRAV_BENCH_HPDF
void libharu(const std::string& file, int pages) {
  HPDF_Doc pdf = HPDF_New(nullptr, nullptr);
  HPDF_SetCompressionMode(pdf, HPDF_COMP_NONE);
  HPDF_Font font = HPDF_GetFont(pdf, "Times-Roman", "WinAnsiEncoding");
  for (int n = 0; n < pages; ++n) {
    HPDF_Page page = HPDF_AddPage(pdf);
    HPDF_Page_SetFontAndSize(page, font, kSize);
    HPDF_Page_SetLineWidth(page, 0.01F);
    drawPage(
        [&](double x, double y, const std::string& text) {
          HPDF_Page_BeginText(page);
          HPDF_Page_MoveTextPos(page, static_cast<float>(x), static_cast<float>(y));
          HPDF_Page_ShowText(page, text.c_str());
          HPDF_Page_EndText(page);
        },
        [&](double x1, double y1, double x2, double y2) {
          HPDF_Page_MoveTo(page, static_cast<float>(x1), static_cast<float>(y1));
          HPDF_Page_LineTo(page, static_cast<float>(x2), static_cast<float>(y2));
          HPDF_Page_Stroke(page);
        });
  }
  HPDF_SaveToFile(pdf, file.c_str());
  HPDF_Free(pdf);
}
#endif

#ifdef MIRAV_BENCH_CAIRO
void cairo(const std::string& file, int pages) {
  cairo_surface_t* surface = cairo_pdf_surface_create(file.c_str(), 595, 842);
  cairo_t* pdf = cairo_create(surface);
  cairo_select_font_face(pdf, "Liberation Serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(pdf, kSize);
  cairo_set_line_width(pdf, 0.01);
  for (int page = 0; page < pages; ++page) {
    drawPage(
        [&](double x, double y, const std::string& text) {
          cairo_move_to(pdf, x, 842 - y);
          cairo_show_text(pdf, text.c_str());
        },
        [&](double x1, double y1, double x2, double y2) {
          cairo_move_to(pdf, x1, 842 - y1);
          cairo_line_to(pdf, x2, 842 - y2);
          cairo_stroke(pdf);
        });
    cairo_show_page(pdf);
  }
  cairo_destroy(pdf);
  cairo_surface_destroy(surface);
}
#endif

// Rows that are made as they are asked for, as a statement's are.
class ManyRows : public TypedRows {
 public:
  explicit ManyRows(size_t count) : count_(count) {}
  size_t count() const override { return count_; }
  Cell cell(size_t row, size_t column) const override {
    return {.text = cells()[row % kRows * kColumns + column]};
  }
  ColumnType type(size_t, size_t column) const override {
    return column == 1 ? ColumnType::Date : column >= 5 && column <= 7 ? ColumnType::Money : ColumnType::Text;
  }

 private:
  size_t count_;
};

GridOutput ledger(size_t rows) {
  constexpr const char* kHeadings[kColumns] = {"V.No.", "Date",   "Ref No.", "Bk.", "Particulars",
                                               "Debit", "Credit", "Balance", "Crdr"};
  GridOutput out{.caption = "ACCOUNT Statement", .period = "From : 01/Apr/2026 To : 31/Mar/2027"};
  out.rows = std::make_shared<ManyRows>(rows);
  for (size_t i = 0; i < kColumns; ++i) {
    const ColumnType type = out.rows->type(0, i);
    out.columns.push_back({kHeadings[i], kWidths[i] * 20, type, type == ColumnType::Money});
  }
  return out;
}

// The same cells with nothing around the library.
void bareWorkbook(const std::string& file) {
  lxw_workbook_options options{.constant_memory = LXW_TRUE, .tmpdir = nullptr, .use_zip64 = LXW_FALSE};
  lxw_workbook* const book = workbook_new_opt(file.c_str(), &options);
  lxw_worksheet* const sheet = workbook_add_worksheet(book, nullptr);
  lxw_format* const text = workbook_add_format(book);
  lxw_format* const money = workbook_add_format(book);
  lxw_format* const date = workbook_add_format(book);
  format_set_num_format(text, "@");
  format_set_num_format(money, "0.00");
  format_set_num_format(date, "dd/mm/yy");
  const std::vector<std::string>& all = cells();
  for (lxw_row_t row = 0; row < kSheetRows; ++row)
    for (lxw_col_t column = 0; column < kColumns; ++column) {
      const std::string& cell = all[row % kRows * kColumns + column];
      if (column == 1)
        worksheet_write_number(sheet, row, column, 46188, date);
      else if (column >= 5 && column <= 7)
        worksheet_write_number(sheet, row, column, std::strtod(cell.c_str(), nullptr), money);
      else
        worksheet_write_string(sheet, row, column, cell.c_str(), text);
    }
  workbook_close(book);
}

// Measuring

double cpuSeconds() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  const auto seconds = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6;
  };
  return seconds(used.ru_utime) + seconds(used.ru_stime);
}

double residentKb() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmRSS:")) return std::stod(line.substr(6));
  return 0;
}

struct Side {
  const char* name;
  std::function<void()> run;

  std::vector<double> times = {};
  double median() {
    std::ranges::sort(times);
    return times[times.size() / 2];
  }
};

void compare(const char* what, const char* unit, double perUnit, std::vector<Side> sides) {
  for (int round = 0; round < kRounds; ++round)
    for (Side& side : sides) {
      const double start = cpuSeconds();
      side.run();
      side.times.push_back(cpuSeconds() - start);
    }
  std::printf("%s\n", what);
  const double first = sides.front().median();
  for (Side& side : sides) {
    const double median = side.median();
    std::printf("  %-34s %9.3f ms, %8.1f us a %s", side.name, median * 1e3, median * 1e6 / perUnit, unit);
    if (&side != &sides.front()) std::printf("   ratio %5.2f", median / first);
    std::printf("\n");
  }
}

void memory(const char* what, const std::function<void(int)>& run, int small, int large) {
  run(small);
  const double before = residentKb();
  run(large);
  std::printf("%s: %.0f kB at %d, %.0f kB more at %d\n", what, before, small, residentKb() - before, large);
}

void writers(const std::string& folder) {
  std::vector<Side> sides = {
      {"Mirav", [&] { ours(folder + "/ours.pdf", kPages); }}
  };
#ifdef MIRAV_BENCH_HPDF
  sides.push_back({"libharu, not packed", [&] { libharu(folder + "/haru.pdf", kPages); }});
#else
  std::printf("libharu (libhpdf-dev) is not installed and is passed over\n");
#endif
#ifdef MIRAV_BENCH_CAIRO
  sides.push_back({"cairo", [&] { cairo(folder + "/cairo.pdf", kPages); }});
#else
  std::printf("cairo (libcairo2-dev) is not installed and is passed over\n");
#endif
  compare("PDF pages of 54 rows by 9 columns, 200 of them", "page", kPages, std::move(sides));
}

}  // namespace

int main() {
  const TempFolder temporary;
  const std::string folder = temporary.path().string();
  session().mapppath = folder;
  session().mcompname = "SHREE GANESH TRADERS";
  const Screens none;
  TestHost host(none);
  const GridOutput pages = ledger(kPages * kRows - 1), sheet = ledger(kSheetRows);

  // Before anything else fills the memory.
  memory(
      "Memory of a PDF file, pages", [&](int count) { ours(folder + "/ours.pdf", count); }, 100, kManyPages);
  memory(
      "Memory of a workbook, rows", [&](int rows) { GridToExcel(host, ledger(static_cast<size_t>(rows))); },
      1000, kSheetRows);

  writers(folder);
  compare("The same as a report, with its heading on every page", "page", kPages,
          {
              {"GridToPdf", [&] { GridToPdf(host, "RPT", pages); }}
  });
  compare("A workbook of 100,000 rows by 9 columns", "row", kSheetRows,
          {
              {"a bare loop of libxlsxwriter", [&] { bareWorkbook(folder + "/bare.xlsx"); }},
              {"GridToExcel",                  [&] { GridToExcel(host, sheet); }           }
  });
  if (!host.messages.empty()) std::printf("ERROR: %s\n", host.lastMessage().c_str());
  return 0;
}
