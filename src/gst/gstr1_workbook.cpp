#include "gst/gstr1_workbook.h"

#include <functional>

#include "base/states.h"
#include "base/text.h"
#include "platform/workbook/create.h"

namespace {

using Cells = std::vector<workbook::Value>;

struct Sheet {
  const char *name, *title;
  std::vector<const char*> headings;  // those of figures end in a blank, which is not written
  std::vector<Cells> rows = {};
  std::function<Cells()> next = {};  // in place of them; an empty row ends it
};

struct UnitName {
  std::string_view code, name;
};
// clang-format off
constexpr UnitName kUnits[] = {
    {"BAG", "BAGS"},          {"BAL", "BALE"},          {"BDL", "BUNDLES"},        {"BKL", "BUCKLES"},
    {"BOU", "BILLION OF UNITS"}, {"BOX", "BOX"},        {"BTL", "BOTTLES"},        {"BUN", "BUNCHES"},
    {"CAN", "CANS"},          {"CBM", "CUBIC METERS"},  {"CCM", "CUBIC CENTIMETERS"}, {"CMS", "CENTIMETERS"},
    {"CTN", "CARTONS"},       {"DOZ", "DOZENS"},        {"DRM", "DRUMS"},          {"GGK", "GREAT GROSS"},
    {"GMS", "GRAMMES"},       {"GRS", "GROSS"},         {"GYD", "GROSS YARDS"},    {"KGS", "KILOGRAMS"},
    {"KLR", "KILOLITRE"},     {"KME", "KILOMETRE"},     {"LTR", "LITRES"},         {"MLT", "MILILITRE"},
    {"MTR", "METERS"},        {"MTS", "METRIC TON"},    {"NOS", "NUMBERS"},        {"OTH", "OTHERS"},
    {"PAC", "PACKS"},         {"PCS", "PIECES"},        {"PRS", "PAIRS"},          {"QTL", "QUINTAL"},
    {"ROL", "ROLLS"},         {"SET", "SETS"},          {"SQF", "SQUARE FEET"},    {"SQM", "SQUARE METERS"},
    {"SQY", "SQUARE YARDS"},  {"TBS", "TABLETS"},       {"TGM", "TEN GROSS"},      {"THD", "THOUSANDS"},
    {"TON", "TONNES"},        {"TUB", "TUBES"},         {"UGS", "US GALLONS"},     {"UNT", "UNITS"},
    {"YDS", "YARDS"},
};
// clang-format on

std::string unitText(const std::string& code) {
  for (const UnitName& unit : kUnits)
    if (unit.code == code) return code + "-" + std::string(unit.name);
  return code;
}

std::string dayText(Date day) { return formatDate(day, "dd-MMM-yyyy"); }

std::string placeText(int place) {
  return padLeft(std::to_string(place), 2, '0') + "-" + std::string(stateName(place));
}

const char* supplyText(const TaxDocument& d) {
  switch (d.supply) {
    case SupplyKind::SezTaxed:
      return "SEZ supplies with payment";
    case SupplyKind::Sez:
      return "SEZ supplies without payment";
    case SupplyKind::Deemed:
      return "Deemed Exp";
    default:
      return "Regular B2B";
  }
}

const char* yesNo(bool yes) { return yes ? "Y" : "N"; }

// A row for each rate of each document of a section: what stands before the rate's figures. Made as they are
// written, since a year of bills has many.
void listDocuments(Sheet& sheet, const Gstr1& gstr1, Gstr1Section section,
                   std::function<Cells(const TaxDocument&)> head) {
  sheet.next = [list = gstr1.of(section), head = std::move(head), at = size_t{0},
                rate = size_t{0}]() mutable {
    if (at == list.size()) return Cells{};
    const TaxDocument& d = list[at]->document;
    Cells row = head(d);
    const AtRate& its = d.rates[rate];
    row.insert(row.end(), {its.rate, rupees(its.sums.taxable), rupees(its.sums.cess)});
    if (++rate == d.rates.size()) rate = 0, ++at;
    return row;
  };
}

Sheet registered(const Gstr1& gstr1) {
  Sheet sheet{
      "b2b,sez,de",
      "Summary For B2B, SEZ, DE (4A, 4B, 6B, 6C)",
      {"GSTIN/UIN of Recipient", "Receiver Name", "Invoice Number", "Invoice date", "Invoice Value ",
        "Place Of Supply", "Reverse Charge", "Applicable % of Tax Rate", "Invoice Type", "E-Commerce GSTIN",
        "Rate ", "Taxable Value ", "Cess Amount "}
  };
  listDocuments(sheet, gstr1, Gstr1Section::B2b, [](const TaxDocument& d) -> Cells {
    return {d.party->gstin,     d.party->name,    d.number, dayText(d.date), rupees(d.value),
            placeText(d.place), yesNo(d.reverse), {},       supplyText(d),   {}};
  });
  return sheet;
}

Sheet large(const Gstr1& gstr1) {
  Sheet sheet{
      "b2cl",
      "Summary For B2CL (5)",
      {"Invoice Number", "Invoice date", "Invoice Value ", "Place Of Supply", "Applicable % of Tax Rate",
        "Rate ", "Taxable Value ", "Cess Amount ", "E-Commerce GSTIN"}
  };
  listDocuments(sheet, gstr1, Gstr1Section::B2cl, [](const TaxDocument& d) -> Cells {
    return {d.number, dayText(d.date), rupees(d.value), placeText(d.place), {}};
  });
  return sheet;
}

Sheet small(const Gstr1& gstr1) {
  Sheet sheet{
      "b2cs",
      "Summary For B2CS (7)",
      {"Type", "Place Of Supply", "Applicable % of Tax Rate", "Rate ", "Taxable Value ", "Cess Amount ",
        "E-Commerce GSTIN"}
  };
  for (const B2csRow& row : gstr1.b2cs)
    sheet.rows.push_back(
        {"OE", placeText(row.place), {}, row.rate, rupees(row.sums.taxable), rupees(row.sums.cess)});
  return sheet;
}

Sheet exports(const Gstr1& gstr1) {
  Sheet sheet{
      "exp",
      "Summary For EXP (6)",
      {"Export Type", "Invoice Number", "Invoice date", "Invoice Value ", "Port Code", "Shipping Bill Number",
        "Shipping Bill Date", "Rate ", "Taxable Value ", "Cess Amount "}
  };
  listDocuments(sheet, gstr1, Gstr1Section::Exp, [](const TaxDocument& d) -> Cells {
    return {d.underBond() ? "WOPAY" : "WPAY",
            d.number,
            dayText(d.date),
            rupees(d.value),
            d.port,
            d.shippingBill,
            d.shippingDate ? workbook::Value(dayText(*d.shippingDate)) : workbook::Value()};
  });
  return sheet;
}

Sheet registeredNotes(const Gstr1& gstr1) {
  Sheet sheet{
      "cdnr",
      "Summary For CDNR (9B)",
      {"GSTIN/UIN of Recipient", "Receiver Name", "Note Number", "Note Date", "Note Type", "Place Of Supply",
        "Reverse Charge", "Note Supply Type", "Note Value ", "Applicable % of Tax Rate", "Rate ",
        "Taxable Value ", "Cess Amount "}
  };
  listDocuments(sheet, gstr1, Gstr1Section::Cdnr, [](const TaxDocument& d) -> Cells {
    return {d.party->gstin,     d.party->name,    d.number,      dayText(d.date), d.sign() < 0 ? "C" : "D",
            placeText(d.place), yesNo(d.reverse), supplyText(d), rupees(d.value), {}};
  });
  return sheet;
}

Sheet otherNotes(const Gstr1& gstr1) {
  Sheet sheet{
      "cdnur",
      "Summary For CDNUR (9B)",
      {"UR Type", "Note Number", "Note Date", "Note Type", "Place Of Supply", "Note Value ",
        "Applicable % of Tax Rate", "Rate ", "Taxable Value ", "Cess Amount "}
  };
  listDocuments(sheet, gstr1, Gstr1Section::Cdnur, [](const TaxDocument& d) -> Cells {
    return {!d.exported()   ? "B2CL"
            : d.underBond() ? "EXPWOP"
                            : "EXPWP",
            d.number,
            dayText(d.date),
            d.sign() < 0 ? "C" : "D",
            d.exported() ? workbook::Value() : workbook::Value(placeText(d.place)),
            rupees(d.value),
            {}};
  });
  return sheet;
}

Sheet untaxed(const Gstr1& gstr1) {
  Sheet sheet{
      "exemp",
      "Summary For Nil rated, exempted and non GST outward supplies (8)",
      {"Description", "Nil Rated Supplies ", "Exempted(other than nil rated/non GST supply) ",
        "Non-GST Supplies "}
  };
  for (const NilRow& row : gstr1.nil)
    sheet.rows.push_back({std::string(row.inter ? "Inter" : "Intra") + "-State supplies to " +
                              (row.registered ? "registered persons" : "unregistered persons"),
                          rupees(row.amounts[0]), rupees(row.amounts[1]), rupees(row.amounts[2])});
  return sheet;
}

Sheet codes(const char* name, const std::vector<HsnRow>& rows) {
  Sheet sheet{
      name,
      "Summary For HSN (12)",
      {"HSN", "Description", "UQC", "Total Quantity ", "Total Value ", "Rate ", "Taxable Value ",
        "Integrated Tax Amount ", "Central Tax Amount ", "State/UT Tax Amount ", "Cess Amount "}
  };
  for (const HsnRow& row : rows)
    sheet.rows.push_back({row.hsn, row.name, unitText(row.unit), row.quantity,
                          rupees(row.sums.taxable + row.sums.tax()), row.rate, rupees(row.sums.taxable),
                          rupees(row.sums.igst), rupees(row.sums.cgst), rupees(row.sums.sgst),
                          rupees(row.sums.cess)});
  return sheet;
}

Sheet numbers(const Gstr1& gstr1) {
  Sheet sheet{
      "docs",
      "Summary of documents issued during the tax period (13)",
      {"Nature of Document", "Sr. No. From", "Sr. No. To", "Total Number ", "Cancelled "}
  };
  for (const IssuedSeries& series : gstr1.series)
    sheet.rows.push_back(
        {issuedWords(issuedNature(*series.kind)), series.from, series.to, series.total, series.cancelled});
  return sheet;
}

workbook::List listOf(const Sheet& sheet) {
  workbook::List list{
      .titles = {sheet.title, "", ""},
        .sheet = sheet.name
  };
  for (const std::string heading : sheet.headings) {
    const bool figure = heading.ends_with(' ');
    const bool whole = heading == "Total Number " || heading == "Cancelled ";
    list.columns.push_back({.heading = trim(heading), .format = figure ? whole ? "0" : "0.00" : "@"});
  }
  list.next = [&sheet, at = size_t{0}](std::vector<workbook::ListCell>& row) mutable {
    if (!sheet.next && at == sheet.rows.size()) return false;
    const Cells cells = sheet.next ? sheet.next() : sheet.rows[at++];
    row.clear();
    for (const workbook::Value& value : cells) row.push_back({value});
    return !row.empty();
  };
  return list;
}

}  // namespace

std::filesystem::path writeGstr1Workbook(const Gstr1& gstr1, const std::filesystem::path& folder) {
  const Sheet sheets[] = {registered(gstr1),
                          large(gstr1),
                          small(gstr1),
                          exports(gstr1),
                          untaxed(gstr1),
                          registeredNotes(gstr1),
                          otherNotes(gstr1),
                          codes("hsn(b2b)", gstr1.hsnRegistered),
                          codes("hsn(b2c)", gstr1.hsnOthers),
                          numbers(gstr1)};
  std::vector<workbook::List> lists;
  for (const Sheet& sheet : sheets) lists.push_back(listOf(sheet));
  const auto file = folder / ("GSTR1_" + gstr1.shop->gstin + "_" + gstr1.period.text() + ".xlsx");
  workbook::createLists(file.string(), lists);
  return file;
}
