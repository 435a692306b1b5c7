#include "documents/grid_output.h"

#include "frame/routines.h"

namespace {

std::string fileName(Host& host) { return "RPT" + MakeStamp(host); }

void print(Host& host, const GridOutput& out) { GridToPrinter(host, out); }
void preview(Host& host, const GridOutput& out) { GridToPrinter(host, out, PrintTo::Preview); }
void pdf(Host& host, const GridOutput& out) { GridToPdf(host, fileName(host), out); }
void csv(Host& host, const GridOutput& out) { GridToCsv(host, fileName(host), out); }

}  // namespace

const GridTarget kToPrinter = {.name = "Print", .onPaper = true, .send = print};
const GridTarget kToPreview = {.name = "Preview", .onPaper = true, .send = preview};
const GridTarget kToPdf = {.name = "Pdf", .onPaper = false, .send = pdf};
const GridTarget kToWorkbook = {.name = "Excel", .onPaper = false, .send = GridToExcel};
const GridTarget kToCsv = {.name = "Csv File", .onPaper = false, .send = csv};
