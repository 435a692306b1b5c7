#include <array>

#include "base/number.h"
#include "base/pattern.h"
#include "base/words.h"
#include "reports/gst.h"
#include "reports/reports.h"

// The two GSTR-1 statements: sales to registered and to unregistered dealers.

namespace {

// Columns of a row; those from kOriginalNo on are not shown.
enum Column : int {
  kBill,
  kDate,
  kName,
  kGstin,
  kStateCity,
  kTaxable,
  kIgstRate,
  kIgst,
  kCgstRate,
  kCgst,
  kSgstRate,
  kSgst,
  kNet,
  kBook,
  kPartyCode,
  kVoucher
};

const std::vector<std::string> kNames = {
    "BILL_NO", "VOUCH_DT", "ACC_NAME", "GSTINNO", "STAT",   "SumOfAMOUNT", "IGSTRT",   "IGSTAMT",
    "CGSTRT",  "CGSTAMT",  "SGSTRT",   "SGSTAMT", "NETAMT", "BOOK_CD",     "PARTY_CD", "VOUCH_NO"};

std::string money(const std::optional<double>& sum) { return sum ? Format(*sum, "0.00") : ""; }
std::string rate(const std::optional<double>& rate) { return rate ? numText(*rate) : ""; }

class GstReading : public ReportReading {
 public:
  GstReading(Database& db, const GstQuery& query) : statement_(db, query) {}

  const ColumnNames& names() const override { return names_; }
  bool next() override { return statement_.next(); }

  std::string text(int column) const override {
    const GstRow& row = statement_.row();
    switch (column) {
      case kBill:
        return row.bill;
      case kDate:
        return row.date;
      case kName:
        return row.party->name;
      case kGstin:
        return row.party->gstin;
      case kStateCity:
        return row.place.empty() ? row.party->state : row.place;
      case kTaxable:
        return money(row.sums.taxable);
      case kIgstRate:
        return rate(row.rates.igst);
      case kIgst:
        return money(row.sums.igst);
      case kCgstRate:
        return rate(row.rates.cgst);
      case kCgst:
        return money(row.sums.cgst);
      case kSgstRate:
        return rate(row.rates.sgst);
      case kSgst:
        return money(row.sums.sgst);
      case kNet:
        return money(row.sums.net);
      case kBook:
        return row.kind->code;
      case kPartyCode:
        return row.party->code;
      case kVoucher:
        return numText(row.voucher);
    }
    return {};
  }

 private:
  GstStatement statement_;
  const ColumnNames names_{kNames};
};

ReportPlan planOf(Dealers dealers, const ReportQuery& q) {
  Condition filter;
  filter.add("vouch_dt >= ?", q.from).add("vouch_dt <= ?", q.to).addFilled("party_cd = ?", q[kParty]);
  const GstQuery query{.dealers = dealers, .from = q.from, .to = q.to, .party = q[kParty]};
  ReportPlan plan{.caption = words("GSTR-1 : Company GSTIN No. : {gstin}", "gstin", q.gstin),
                  .filter = filter.shown()};
  plan.reading = [query](Database& db) { return std::make_unique<GstReading>(db, query); };
  // clang-format off
  plan.columns = {
      {.heading = "Inv No.",     .twips = 800},
      {.heading = "Date",        .twips = 1200, .type = ColumnType::Date},
      {.heading = "Party Name",  .twips = 2700},
      {.heading = "GSTIN No",    .twips = 1400, .pixels = 158},
      {.heading = "State",       .twips = 1400},
      {.heading = "Taxable Val", .twips = 1100, .type = ColumnType::Money, .summed = true},
      {.heading = "I-Rt",        .twips = 600,  .type = ColumnType::Rate},
      {.heading = "I-Amt",       .twips = 1000, .type = ColumnType::Money, .summed = true},
      {.heading = "C-Rt",        .twips = 600,  .type = ColumnType::Rate},
      {.heading = "C-Amt",       .twips = 1000, .type = ColumnType::Money, .summed = true},
      {.heading = "S-Rt",        .twips = 600,  .type = ColumnType::Rate},
      {.heading = "S-Amt",       .twips = 1000, .type = ColumnType::Money, .summed = true},
      {.heading = "Inv Val",     .twips = 1200, .type = ColumnType::Money, .summed = true},
      // The bill that was returned: for statements of returns.
      {.heading = "O.B.No",      .twips = 0},
      {.heading = "O.B.Dt",      .twips = 0, .type = ColumnType::Date},
  };
  // clang-format on
  plan.voucher = {.book = "BOOK_CD", .number = "VOUCH_NO"};
  return plan;
}

}  // namespace

const Report& gstr1Registered() {
  static const Report report{
      .key = kGstr1Rd,
      .caption = "GST-1 RD Sales Register : Gstin No : ",
      .captionWithGstin = true,
      .fields = {kParty},
      .toDate = toDateRule(kGstr1Rd),
      .video = &Links::gstr1RdVideo,
      .plan = [](Database&, const ReportQuery& q) { return planOf(Dealers::Registered, q); },
  };
  return report;
}

const Report& gstr1Unregistered() {
  static const Report report{
      .key = kGstr1Urd,
      .caption = "GST-1 URD Sales Register : Gstin No : ",
      .captionWithGstin = true,
      .fields = {kParty},
      .toDate = toDateRule(kGstr1Urd),
      .video = &Links::gstr1UrdVideo,
      .plan = [](Database&, const ReportQuery& q) { return planOf(Dealers::Unregistered, q); },
  };
  return report;
}
