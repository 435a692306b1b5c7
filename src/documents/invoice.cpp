#include "documents/invoice.h"

#include <stdexcept>

#include "documents/company_cells.h"
#include "documents/invoice_sheet.h"
#include "documents/paper.h"
#include "frame/session.h"

void RenderGstInvoice(Host& host, double number, const std::string& kind) {
  Session& s = session();
  if (s.mprnsheet.empty()) s.mprnsheet = saleKind().paper.lineSheet;
  s.mpdfpath.clear();
  tellFailures(host, [&] {
    const Row company = companyDetails(data());
    const FilledSheet sheet = invoiceSheet(data(), s.mcompname, company, number, kind);
    if (sheet.lines == 0) throw std::runtime_error("Wrong Selection");
    const VoucherKind* const note = noteOfPaper(kind);
    Paper paper = voucherPaper(note ? *note : saleKind(), number, s.mbillformat);
    paper.copy = formatsFolder() / paper.copy.filename();
    paper.kept = SlotsKept::LinesOfLargePages;
    makePaper(host, paper, sheet);
  });
}
