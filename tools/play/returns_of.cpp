#include "returns_of.h"

#include <iostream>
#include <stdexcept>

#include "base/number.h"
#include "base/pattern.h"
#include "frame/companies.h"
#include "gst/filed.h"
#include "gst/gstr1_checks.h"
#include "gst/gstr1_json.h"
#include "gst/gstr1_workbook.h"
#include "gst/gstr3b.h"
#include "reports/gst.h"

namespace {

std::filesystem::path booksOf(const std::filesystem::path& folder, const std::string& stem) {
  if (!stem.empty()) return folder / (stem + ".mdb");
  Database catalogue;
  openCatalogue(catalogue, folder);
  const auto years = companyYears(catalogue);
  if (years.empty()) throw std::runtime_error("The catalogue holds no company-year");
  return dataFile(folder, years.front());
}

void tell(const std::string& what, const TaxAmounts& sums, const std::string& more = "") {
  std::cout << what;
  for (const Paise amount : {sums.taxable, sums.igst, sums.cgst, sums.sgst, sums.cess})
    std::cout << "|" << Format(rupees(amount), "0.00");
  std::cout << more << "\n";
}

// What the register of the name comes to.
void tellStatement(Database& db, const ReturnPeriod& period, Dealers dealers, std::string_view name) {
  TaxAmounts sums;
  for (GstStatement rows(db, {.dealers = dealers, .from = period.first(), .to = period.last()});
       rows.next();) {
    const GstSums& its = rows.row().sums;
    sums += {paise(its.taxable.value_or(0)), paise(its.igst.value_or(0)), paise(its.cgst.value_or(0)),
             paise(its.sgst.value_or(0)), 0};
  }
  tell(std::string(name), sums);
}

void tellFault(const GstFault& fault) {
  std::cout << (fault.weight == GstFault::Weight::Refused ? "refused" : "doubtful") << "|"
            << (fault.kind ? fault.kind->code : "") << "|" << (fault.kind ? numText(fault.voucher) : "")
            << "|" << fault.number << "|" << fault.party << fault.item << "|" << fault.field << "|"
            << fault.cure << "\n";
}

}  // namespace

void tellReturns(const std::filesystem::path& folder, const std::string& books, const std::string& period,
                 const std::string& filedOn) {
  const ReturnPeriod asked = returnPeriod(period);
  if (asked.month == 0) throw std::runtime_error(period + " is no period of a return");
  Database db;
  db.open(booksOf(folder, books));
  GstTables tables(folder);
  for (const std::string& fault : tables.faults()) std::cout << "tables|" << fault << "\n";
  const Gstr1 gstr1 = readGstr1(db, readTaxShop(db, std::move(tables)), asked);
  std::filesystem::create_directories(folder / "BILLS");
  for (const auto& file : writeGstr1(gstr1, folder / "BILLS"))
    std::cout << "written|" << file.filename().string() << "\n";
  std::cout << "written|" << writeGstr1Workbook(gstr1, folder / "BILLS").filename().string() << "\n";
  for (const SectionSum& sum : gstr1Summary(gstr1))
    tell(sum.key + "|" + std::to_string(sum.count), sum.sums, "|" + Format(rupees(sum.value), "0.00"));
  for (const GstFault& fault : checkGstr1(db, gstr1)) tellFault(fault);
  tellStatement(db, asked, Dealers::Registered, kGstr1Rd);
  tellStatement(db, asked, Dealers::Unregistered, kGstr1Urd);
  for (const FiledDocument& changed : changedSince(db, gstr1))
    std::cout << "changed|" << changed.book << "|" << numText(changed.voucher) << "\n";
  if (const auto day = parseDate(filedOn)) markFiled(db, gstr1, *day);
  if (asked.filing == ReturnPeriod::Filing::Iff) return;
  const Gstr3b gstr3b = readGstr3b(db, gstr1);
  std::cout << "written|" << writeGstr3b(gstr3b, folder / "BILLS").filename().string() << "\n";
  // What a drill-down shows must come to its cell; amendments count by their difference alone.
  for (size_t i = 0; i < gstr3b.rows.size() && gstr1.amended.empty() && gstr1.amendedSums.empty(); ++i) {
    TaxAmounts sum;
    const auto row = static_cast<Gstr3bRow>(i);
    for (const TaxDocument& d : documentsBehind(db, gstr1, row)) sum += amountIn(d, row);
    if (!(sum == gstr3b[row])) tell("behind|" + std::to_string(i), sum);
  }
  const SetOff paid = setOff(gstr3b.owed(), gstr3b.netCredit(), gstr3b[Gstr3bRow::Reverse]);
  tell("cash", paid.cash);
  tell("credit carried on", paid.left);
}
