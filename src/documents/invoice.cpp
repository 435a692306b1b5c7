#include "documents/invoice.h"

#include <stdexcept>

#include "base/number.h"
#include "documents/company_cells.h"
#include "documents/invoice_sheet.h"
#include "documents/paper.h"
#include "frame/session.h"

void RenderGstInvoice(Host& host, double number, const std::string& kind) {
  Session& s = session();
  if (s.mprnsheet.empty()) s.mprnsheet = "BILL";
  s.mpdfpath.clear();
  tellFailures(host, [&] {
    const Row company = companyDetails(data());
    const FilledSheet sheet = invoiceSheet(data(), s.mcompname, company, number, kind);
    if (sheet.lines == 0) throw std::runtime_error("Wrong Selection");
    makePaper(host,
              {
                  .design = formatsFolder() / ("INVGST" + numText(s.mbillformat) + ".xlsx"),
                  .copy = formatsFolder() / "INVGST.xlsx",
                  .pdf = billsFolder() / ("MIRAV_INV_" + numText(number) + ".pdf"),
                  .sheet = "BILL",
                  .family = "GST INVOICE",
                  .number = s.mbillformat,
                  .kept = SlotsKept::LinesOfLargePages,
              },
              sheet);
  });
}
