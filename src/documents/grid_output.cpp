#include "documents/grid_output.h"

#include "base/words.h"
#include "frame/routines.h"

namespace {

std::string fileName(Host& host) { return "RPT" + MakeStamp(host); }

void print(Host& host, const GridOutput& out) { GridToPrinter(host, out); }
void preview(Host& host, const GridOutput& out) { GridToPrinter(host, out, PrintTo::Preview); }
void pdf(Host& host, const GridOutput& out) { GridToPdf(host, fileName(host), out); }
void csv(Host& host, const GridOutput& out) { GridToCsv(host, fileName(host), out); }

}  // namespace

const GridTarget kToPrinter = {.name = english("Print"), .onPaper = true, .send = print};
const GridTarget kToPreview = {.name = english("Preview"), .onPaper = true, .send = preview};
const GridTarget kToPdf = {.name = english("Pdf"), .onPaper = false, .send = pdf};
const GridTarget kToWorkbook = {.name = english("Excel"), .onPaper = false, .send = GridToExcel};
const GridTarget kToCsv = {.name = english("Csv File"), .onPaper = false, .send = csv};
