#pragma once

#include <array>
#include <string>

#include "platform/grid.h"
#include "platform/host.h"

// A report that stands in a grid goes to a PDF file, to the printer or into a workbook. The
// outcome is shown; whatever goes wrong is told in a message and the report stays on the screen.

inline constexpr size_t kReportColumns = 15;

// What goes out beside the grid. Column i of the arrays is column i of the grid.
struct GridOutput {
  std::string caption, period;
  std::array<double, kReportColumns> widths{};  // twips; 0 is no column
  std::array<int, kReportColumns> numeric{};    // -1: figures, right-aligned
  std::string key{};                            // the report's, for those laid out in their own way
};

// Makes BILLS/<name>.pdf in place of an old one and shows it. Its fonts have no letters of the
// Indian scripts: those stand as "?", which the hint line then says.
void GridToPdf(Host& host, const std::string& name, const Grid& grid, const GridOutput& out);

// On the default printer, under the session's heading lines mpageheader1 to mpageheader3. The
// preview is the same paper as a PDF file, BILLS/PREVIEW.pdf, shown.
enum class PrintTo { Printer, Preview };
void GridToPrinter(Host& host, const Grid& grid, const GridOutput& out, PrintTo to = PrintTo::Printer);

// Makes report.xlsx in the program's folder and shows it.
void GridToExcel(Host& host, const Grid& grid, const GridOutput& out);

// Where the buttons of a screen with a report send it; a PDF file is named "RPT" and mstamp.
enum class OutputTarget { Printer, Preview, Excel, Pdf };
constexpr bool onPaper(OutputTarget target) {
  return target == OutputTarget::Printer || target == OutputTarget::Preview;
}
void sendGrid(Host& host, OutputTarget target, const Grid& grid, const GridOutput& out);
