#include "documents/invoice.h"

#include <stdexcept>

#include "base/number.h"
#include "documents/invoice_sheet.h"
#include "documents/line_settings.h"
#include "documents/paper.h"
#include "frame/session.h"

namespace {

void fillInvoice(workbook::Workbook& book, const InvoiceSheet& sheet) {
  sheet.cells.fill(book.sheet("SHEET3"));
  LoadLineSettings("GST INVOICE", session().mprnsheet, session().mbillformat);
  auto& bill = book.sheet("BILL");
  const RowRange rows = rowsToHide(loadedPageModel(), sheet.lines, SlotsKept::LinesOfLargePages);
  if (rows.any()) bill.hideRows(rows.first, rows.last);
  bill.resetPageBreaks();
}

void makeInvoice(Host& host, double number, const std::string& kind) {
  Session& s = session();
  const auto company = data().first("SELECT COMP_DET.* FROM COMP_DET");
  if (!company) throw std::runtime_error("Company Details Not Filled Pl. Check");
  const InvoiceSheet sheet = invoiceSheet(data(), s.mcompname, *company, number, kind);
  if (sheet.lines == 0) throw std::runtime_error("Wrong Selection");
  const Paper paper{
      .design = formatsFolder() / ("INVGST" + numText(s.mbillformat) + ".xlsx"),
      .copy = formatsFolder() / "INVGST.xlsx",
      .pdf = billsFolder() / ("MIRAV_INV_" + numText(number) + ".pdf"),
      .sheet = "BILL",
      .fill = [&](workbook::Workbook& book) { fillInvoice(book, sheet); },
  };
  s.mpdfpath = paper.pdf.string();
  makePaper(host, paper);
}

}  // namespace

void RenderGstInvoice(Host& host, double number, const std::string& kind) {
  Session& s = session();
  if (s.mprnsheet.empty()) s.mprnsheet = "BILL";
  s.mpdfpath.clear();
  tellFailures(host, [&] { makeInvoice(host, number, kind); });
}
