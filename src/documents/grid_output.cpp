#include "documents/grid_output.h"

#include "frame/routines.h"

void sendGrid(Host& host, OutputTarget target, const Grid& grid, const GridOutput& out) {
  switch (target) {
    case OutputTarget::Printer:
      return GridToPrinter(host, grid, out);
    case OutputTarget::Preview:
      return GridToPrinter(host, grid, out, PrintTo::Preview);
    case OutputTarget::Excel:
      return GridToExcel(host, grid, out);
    case OutputTarget::Pdf:
      return GridToPdf(host, "RPT" + MakeStamp(host), grid, out);
  }
}
