#include "gst/gstr1.h"

#include <algorithm>
#include <set>
#include <tuple>

#include "base/number.h"
#include "gst/amendments.h"

namespace {

// As the hsn section tells rows apart.
using HsnKey = std::tuple<std::string, std::string, double>;
using HsnRows = std::map<HsnKey, HsnRow>;

struct Collecting {
  std::map<std::pair<int, double>, B2csRow> b2cs;
  HsnRows hsnRegistered, hsnOthers;
};

// The limit and the value that decide are those of the bill; of a note the larger value counts.
bool isLarge(const TaxDocument& d, const TaxShop& shop) {
  Paise value = d.value;
  Date day = d.date;
  for (const OriginalBill& bill : d.originals) value = std::max(value, bill.value);
  if (!d.originals.empty()) day = d.originals.front().date.value_or(day);
  return d.inter && value > paise(shop.tables.number(kB2clLimit, "", day));
}

void addHsn(HsnRows& rows, const AtItem& line, int sign) {
  HsnRow& row = rows[{line.item->hsn, line.unit, line.rate}];
  if (row.unit.empty()) {
    row.hsn = line.item->hsn;
    row.unit = line.unit;
    row.item = line.item->code;
    row.name = line.item->name;
    row.rate = line.rate;
  }
  row.quantity += sign * line.quantity;
  row.sums += line.sums * sign;
}

void collect(Gstr1& gstr1, Collecting& all, PlacedDocument placed, const std::vector<AtItem>& items) {
  TaxDocument& d = placed.document;
  const int sign = d.sign();
  if (placed.section == Gstr1Section::B2cs)
    for (const AtRate& at : d.rates) {
      B2csRow& row = all.b2cs[{d.place, at.rate}];
      row.place = d.place;
      row.rate = at.rate;
      row.inter = d.inter;
      row.sums += at.sums * sign;
    }
  NilRow& nil = gstr1.nil[(d.registered() ? 0 : 2) + (d.inter ? 0 : 1)];
  for (size_t i = 0; i < d.untaxed.size(); ++i) nil.amounts[i] += sign * d.untaxed[i];
  for (const AtItem& line : items) addHsn(d.registered() ? all.hsnRegistered : all.hsnOthers, line, sign);
  d.rates.shrink_to_fit();
  gstr1.documents.push_back(std::move(placed));
}

std::vector<HsnRow> rowsOf(HsnRows& rows) {
  std::vector<HsnRow> list;
  for (auto& [key, row] : rows) {
    row.quantity = Round(row.quantity, 2);
    list.push_back(std::move(row));
  }
  return list;
}

}  // namespace

std::string_view sectionKey(Gstr1Section section) {
  constexpr std::string_view keys[] = {"b2b", "b2cl", "b2cs", "exp", "cdnr", "cdnur", ""};
  return keys[static_cast<size_t>(section)];
}

Gstr1Section sectionOf(const TaxDocument& d, const TaxShop& shop) {
  if (d.rates.empty()) return Gstr1Section::None;
  if (d.exported()) return d.isNote() ? Gstr1Section::Cdnur : Gstr1Section::Exp;
  if (d.registered()) return d.isNote() ? Gstr1Section::Cdnr : Gstr1Section::B2b;
  if (!isLarge(d, shop)) return Gstr1Section::B2cs;
  return d.isNote() ? Gstr1Section::Cdnur : Gstr1Section::B2cl;
}

bool Gstr1::hasNil() const {
  return std::ranges::any_of(nil, [](const NilRow& row) { return row.amounts != std::array<Paise, 3>{}; });
}

std::vector<HsnRow> Gstr1::hsnWhole() const {
  HsnRows all;
  for (const auto* rows : {&hsnRegistered, &hsnOthers})
    for (const HsnRow& row : *rows) {
      const auto [sum, first] = all.try_emplace({row.hsn, row.unit, row.rate}, row);
      if (first) continue;
      sum->second.quantity += row.quantity;
      sum->second.sums += row.sums;
    }
  return rowsOf(all);
}

std::vector<const PlacedDocument*> Gstr1::of(Gstr1Section section) const {
  std::vector<const PlacedDocument*> found;
  for (const PlacedDocument& placed : documents)
    if (placed.section == section && !placed.filedBefore) found.push_back(&placed);
  return found;
}

Gstr1 readGstr1(Database& db, std::shared_ptr<const TaxShop> shop, const ReturnPeriod& period) {
  Gstr1 gstr1{.period = period, .shop = std::move(shop)};
  for (size_t i = 0; i < gstr1.nil.size(); ++i) gstr1.nil[i] = {.inter = i % 2 == 0, .registered = i < 2};
  const bool listedAlone = period.filing == ReturnPeriod::Filing::Iff;
  Amending amending(db, period);
  Collecting all;
  const auto read = [&](const VoucherKind& kind, Date from, Date to, bool earlier) {
    for (TaxDocuments documents(db, gstr1.shop, kind, from, to); documents.next();) {
      PlacedDocument placed{std::move(documents.document())};
      placed.section = sectionOf(placed.document, *gstr1.shop);
      const bool registered = placed.section == Gstr1Section::B2b || placed.section == Gstr1Section::Cdnr;
      if (listedAlone && !registered) continue;
      if (auto own = amending.pass(std::move(placed), earlier))
        collect(gstr1, all, std::move(*own), documents.items());
    }
  };
  for (const VoucherKind* kind : taxedKinds(true)) {
    if (const auto since = amending.since(); since && *since < period.first())
      read(*kind, *since, addDays(period.first(), -1), true);
    read(*kind, period.first(), period.last(), false);
  }
  amending.end(gstr1);
  if (listedAlone) {
    gstr1.nil = {};
    return gstr1;
  }
  for (const auto& [key, row] : all.b2cs) gstr1.b2cs.push_back(row);
  gstr1.hsnRegistered = rowsOf(all.hsnRegistered);
  gstr1.hsnOthers = rowsOf(all.hsnOthers);
  gstr1.series = issuedSeries(db, period.first(), period.last());
  return gstr1;
}

std::vector<TaxDocument> documentsBehind(const Gstr1& gstr1, const B2csRow& row) {
  std::vector<TaxDocument> found;
  for (const PlacedDocument* placed : gstr1.of(Gstr1Section::B2cs)) {
    const TaxDocument& d = placed->document;
    if (d.place == row.place && std::ranges::count(d.rates, row.rate, &AtRate::rate) > 0) found.push_back(d);
  }
  return found;
}

std::vector<TaxDocument> documentsBehind(Database& db, const Gstr1& gstr1, const HsnRow& row,
                                         bool registered) {
  std::vector<TaxDocument> found;
  Date from = gstr1.period.first();
  for (const PlacedDocument& placed : gstr1.documents) from = std::min(from, placed.document.date);
  std::set<std::pair<const VoucherKind*, double>> own;
  for (const PlacedDocument& placed : gstr1.documents)
    if (placed.document.registered() == registered)
      own.emplace(placed.document.kind, placed.document.voucher);
  for (const VoucherKind* kind : taxedKinds(true))
    for (TaxDocuments documents(db, gstr1.shop, *kind, from, gstr1.period.last()); documents.next();)
      if (own.contains({kind, documents.document().voucher}) &&
          std::ranges::any_of(documents.items(), [&](const AtItem& line) {
            return line.item->hsn == row.hsn && line.unit == row.unit && line.rate == row.rate;
          }))
        found.push_back(documents.document());
  return found;
}

std::vector<SectionSum> gstr1Summary(const Gstr1& gstr1) {
  std::vector<SectionSum> sums;
  for (const Gstr1Section section : {Gstr1Section::B2b, Gstr1Section::B2cl, Gstr1Section::B2cs,
                                     Gstr1Section::Exp, Gstr1Section::Cdnr, Gstr1Section::Cdnur}) {
    SectionSum sum{.key = std::string(sectionKey(section))};
    for (const PlacedDocument* placed : gstr1.of(section)) {
      ++sum.count;
      sum.sums += placed->document.taxed() * placed->document.sign();
      sum.value += placed->document.sign() * placed->document.value;
    }
    sums.push_back(sum);
    SectionSum amended{.key = sum.key + "a"};
    for (const Amendment& amendment : gstr1.amended) {
      if (amendment.now.section != section) continue;
      const TaxDocument& d = amendment.now.document;
      ++amended.count;
      amended.sums += d.taxed() * d.sign();
      amended.value += d.sign() * d.value;
    }
    if (section == Gstr1Section::B2cs)
      for (const AmendedSum& row : gstr1.amendedSums) {
        ++amended.count;
        amended.sums += row.now.sums;
      }
    if (amended.count > 0) sums.push_back(amended);
  }
  SectionSum nil{.key = "nil"};
  for (const NilRow& row : gstr1.nil)
    for (const Paise amount : row.amounts) nil.sums.taxable += amount;
  for (const PlacedDocument& placed : gstr1.documents) nil.count += placed.document.untaxedValue() != 0;
  sums.push_back(nil);
  for (const auto* rows : {&gstr1.hsnRegistered, &gstr1.hsnOthers}) {
    SectionSum sum{.key = rows == &gstr1.hsnRegistered ? "hsn_b2b" : "hsn_b2c",
                   .count = static_cast<int>(rows->size())};
    for (const HsnRow& row : *rows) sum.sums += row.sums;
    sums.push_back(sum);
  }
  SectionSum issued{.key = "doc_issue"};
  for (const IssuedSeries& series : gstr1.series) issued.count += series.issued();
  sums.push_back(issued);
  return sums;
}
