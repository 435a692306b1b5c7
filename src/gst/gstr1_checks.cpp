#include "gst/gstr1_checks.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "base/number.h"
#include "base/pattern.h"
#include "base/states.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/number_series.h"
#include "gst/filed.h"
#include "masters/gstin.h"

namespace {

using Weight = GstFault::Weight;

constexpr Paise kTolerance = 100;  // between a tax and what its rate makes

bool isDigits(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

std::string placeName(int place) {
  return place == 0 ? words("none") : padLeft(std::to_string(place), 2, '0');
}

class Checks {
 public:
  Checks(Database& db, const Gstr1& gstr1) : db_(db), gstr1_(gstr1), shop_(*gstr1.shop) {}

  std::vector<GstFault> all() {
    company();
    readTwice();
    for (const PlacedDocument& placed : gstr1_.documents) document(placed);
    for (const Amendment& amended : gstr1_.amended) document(amended.now);
    for (const FiledDocument& gone : gstr1_.gone)
      add({.kind = kindByBook(gone.book), .voucher = gone.voucher, .number = gone.number},
          words("Filed in {period}", "period", gone.period.text()),
          words("It is gone or belongs to another section now: bring it back, or make a note against it"));
    codes(gstr1_.hsnRegistered, true);
    codes(gstr1_.hsnOthers, false);
    return std::move(faults_);
  }

 private:
  void add(GstFault fault, std::string field, std::string cure) {
    fault.field = std::move(field);
    fault.cure = std::move(cure);
    faults_.push_back(std::move(fault));
  }
  GstFault of(const TaxDocument& d, Weight weight = Weight::Refused) const {
    return {.weight = weight,
            .kind = d.kind,
            .voucher = d.voucher,
            .number = d.number,
            .party = d.party->code,
            .name = d.party->name};
  }

  void company();
  void readTwice();
  void document(const PlacedDocument& placed);
  void listed(const PlacedDocument& placed);
  void buyer(const TaxDocument& d);
  void exported(const TaxDocument& d);
  void note(const TaxDocument& d);
  void taxed(const TaxDocument& d);
  void rate(const TaxDocument& d, const AtRate& at);
  void codes(const std::vector<HsnRow>& rows, bool registered);

  Database& db_;
  const Gstr1& gstr1_;
  const TaxShop& shop_;
  std::set<std::pair<const VoucherKind*, std::string>> twice_;
  std::vector<GstFault> faults_;
};

void Checks::company() {
  if (gstinKind(shop_.gstin) == GstinKind::None || shop_.gstin.back() != gstinCheckDigit(shop_.gstin))
    add({}, words("GSTIN of the company"), words("Correct it in the company details"));
  else if (toInt(Val(left(shop_.gstin, 2))) != shop_.state)
    add({}, words("State of the company"),
        words("It is not that of the GSTIN: correct it in the company details"));
  if (shop_.composition)
    add({}, words("Composition dealer"), words("Files CMP-08 and GSTR-4, no GSTR-1: look at the settings"));
}

// Numbers that registered buyers have twice in the tax year, or that the return itself lists twice.
void Checks::readTwice() {
  const Date from = yearStart(gstr1_.period.first());
  for (const VoucherKind* kind : taxedKinds(true))
    for (auto rows = db_.query("SELECT S.BILL_NO FROM SALE AS S JOIN ACCOUNT AS A ON A.ACC_CD = S.PARTY_CD"
                               " WHERE S.BOOK_CD = ? AND S.GSTPOST = 1 AND S.VOUCH_DT >= ? AND S.VOUCH_DT < ?"
                               " AND LEN(A.GSTINNO) > 1 GROUP BY S.BILL_NO HAVING COUNT(*) > 1",
                               kind->code, from, addMonths(from, 12));
         rows.next();)
      twice_.emplace(kind, upper(trim(rows.text(0))));
  std::set<std::pair<const VoucherKind*, std::string>> met;
  const auto meet = [&](const PlacedDocument& placed) {
    const std::pair key(placed.document.kind, upper(placed.document.number));
    if (isListed(placed.section) && !placed.filedBefore && !met.insert(key).second) twice_.insert(key);
  };
  for (const PlacedDocument& placed : gstr1_.documents) meet(placed);
  for (const Amendment& amended : gstr1_.amended) meet(amended.now);
}

void Checks::document(const PlacedDocument& placed) {
  const TaxDocument& d = placed.document;
  if (placed.filedBefore) return;
  if (isListed(placed.section)) listed(placed);
  if (!d.rates.empty()) taxed(d);
  // The table of documents names it in any case.
  if (!isLawfulNumber(d.number) || d.number.find_first_not_of('0') == std::string::npos)
    add(of(d), words("Number"), words("Give it 1 to 16 letters, digits, - and /, not zeros alone"));
}

void Checks::listed(const PlacedDocument& placed) {
  const TaxDocument& d = placed.document;
  if (twice_.contains({d.kind, upper(d.number)}))
    add(of(d), words("Number"), words("Another voucher of the year has it: give one of them a new number"));
  if (d.value < 0) add(of(d), words("Amount"), words("It is below 0: make a note in place of the bill"));
  if (d.registered()) buyer(d);
  if (d.exported()) exported(d);
  if (d.isNote()) note(d);
  for (const AtRate& at : d.rates)
    if (at.sums.taxable < 0 || (d.isNote() && at.sums.taxable == 0))
      add(of(d), words("Taxable value at {rate} %", "rate", numText(at.rate)),
          words("It must be above 0: put what is taken off into a note"));
}

void Checks::buyer(const TaxDocument& d) {
  const std::string& gstin = d.party->gstin;
  const GstinKind kind = gstinKind(gstin);
  if (gstin == shop_.gstin)
    add(of(d), words("GSTIN of the party"), words("It is our own: correct the party"));
  else if (kind == GstinKind::None || kind == GstinKind::Collector)
    add(of(d), words("GSTIN of the party"), words("It has an unusual form: correct the party"));
  else if (kind != GstinKind::Uin && kind != GstinKind::NonResident && gstin.back() != gstinCheckDigit(gstin))
    add(of(d), words("GSTIN of the party"), words("Its last character does not match: correct the party"));
  else if (kind == GstinKind::Regular && d.party->state != toInt(Val(left(gstin, 2))))
    add(of(d, Weight::Doubtful), words("State of the party"), words("It is not that of its GSTIN"));
  if (d.supply == SupplyKind::Deemed && d.reverse)
    add(of(d), words("Reverse charge"), words("A deemed export has none: take the mark off"));
}

void Checks::exported(const TaxDocument& d) {
  const bool number = !d.shippingBill.empty();
  if (number != d.shippingDate.has_value())
    add(of(d), words("Shipping bill"), words("Give both its number and its date, or none of them"));
  if (number && (!isDigits(d.shippingBill) || d.shippingBill.size() < 3 || d.shippingBill.size() > 7))
    add(of(d), words("Shipping bill"), words("Its number has 3 to 7 digits"));
  if (d.port.size() > 6) add(of(d), words("Port code"), words("It has 6 signs at most"));
  if (!number && !d.isNote())
    add(of(d, Weight::Doubtful), words("Shipping bill"),
        words("A refund waits for its number, date and port"));
}

void Checks::note(const TaxDocument& d) {
  if (d.sign() > 0 || d.originals.empty() || !d.originals.front().date) return;
  const Date year = yearStart(*d.originals.front().date);
  const Date limit = (year.year() + std::chrono::years{1}) / std::chrono::November / 30;
  if (d.date > limit)
    add(of(d), words("Date"),
        words("After {limit} a credit note takes no tax back: make it without tax", "limit",
              formatDate(limit, "dd/MM/yyyy")));
}

void Checks::taxed(const TaxDocument& d) {
  if (stateName(d.place).empty() || shop_.tables.number(kNoPlace, placeName(d.place), d.date) == 1)
    add(of(d), words("Place of supply"),
        words("{place} is no state: give the party its state", "place", placeName(d.place)));
  if (d.sez() && !d.registered())
    add(of(d), words("GSTIN of the party"), words("A buyer in a SEZ has one: fill it in"));
  for (const AtRate& at : d.rates) rate(d, at);
}

void Checks::rate(const TaxDocument& d, const AtRate& at) {
  const auto field = [&] { return words("Tax at {rate} %", "rate", numText(at.rate)); };
  const TaxAmounts& sums = at.sums;
  if (!shop_.tables.isTaken(at.rate, d.date))
    add(of(d), words("Rate {rate} %", "rate", numText(at.rate)),
        words("The portal does not know it: correct the rates of the lines"));
  if (d.inter && (sums.cgst != 0 || sums.sgst != 0))
    add(of(d), field(), words("A supply beyond the state bears IGST: correct the lines or the state"));
  else if (!d.inter && sums.igst != 0)
    add(of(d), field(),
        words("A supply inside the state bears CGST and SGST: correct the lines or the state"));
  else if (sums.cgst != sums.sgst)
    add(of(d), field(), words("CGST and SGST must be alike: correct the lines"));
  const Paise due = d.underBond() ? 0 : std::llround(static_cast<double>(sums.taxable) * at.rate / 100);
  if (d.underBond() && sums.tax() != 0)
    add(of(d), field(), words("Under bond or undertaking no tax is charged: correct the lines"));
  else if (std::abs(sums.tax() - sums.cess - due) > kTolerance)
    add(of(d, Weight::Doubtful), field(),
        words("It is {tax}, the rate makes {due}", "tax", Format(rupees(sums.tax() - sums.cess), "0.00"),
              "due", Format(rupees(due), "0.00")));
}

void Checks::codes(const std::vector<HsnRow>& rows, bool registered) {
  const Date day = gstr1_.period.last();
  const double turnover = shop_.tables.number(kTurnover, "", day);
  const int least = toInt(shop_.tables.step(kHsnDigits, turnover, day));
  // Small shops need no codes in what they sell to others than registered buyers.
  const Weight weight = registered || least > 4 ? Weight::Refused : Weight::Doubtful;
  for (const HsnRow& row : rows) {
    const GstFault fault{.weight = weight, .item = row.item, .name = row.name};
    if (row.hsn.empty())
      add(fault, words("HSN code"), words("The item has none: its value is missing in the summary"));
    else if (!isDigits(row.hsn) || row.hsn.size() > 8 || static_cast<int>(row.hsn.size()) < least)
      add({.item = row.item, .name = row.name}, words("HSN code"),
          words("{code} must have {least} to 8 digits: correct the item", "code", row.hsn, "least",
                std::to_string(least)));
    if (row.unit == "OTH")
      add({.weight = Weight::Doubtful, .item = row.item, .name = row.name}, words("Unit"),
          words("No unit code is known for it, so it counts as OTH"));
  }
}

}  // namespace

std::vector<GstFault> checkGstr1(Database& db, const Gstr1& gstr1) { return Checks(db, gstr1).all(); }
