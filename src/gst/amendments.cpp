#include "gst/amendments.h"

#include <algorithm>

#include "base/text.h"

namespace {

void addB2cs(std::map<std::pair<int, double>, B2csRow>& sums, const TaxDocument& d) {
  for (const AtRate& at : d.rates) {
    B2csRow& row = sums[{d.place, at.rate}];
    row.place = d.place;
    row.rate = at.rate;
    row.inter = d.inter;
    row.sums += at.sums * d.sign();
  }
}

}  // namespace

Amending::Amending(Database& db, const ReturnPeriod& period) : period_(period), before_(db, period) {}

std::optional<Date> Amending::since() const {
  if (before_.returns().empty()) return std::nullopt;
  Date first = before_.returns().front().period.first();
  for (const FiledReturn& filed : before_.returns()) first = std::min(first, filed.period.first());
  return first;
}

// An IFF of the quarter is a part of its return and not amended by it.
bool Amending::isWithin(const ReturnPeriod& filed) const { return filed.first() >= period_.first(); }

// The return that has the documents of a day; a whole one also their sums.
const FiledReturn* Amending::returnOf(Date day, bool whole) const {
  for (const FiledReturn& filed : before_.returns())
    if (filed.period.first() <= day && day <= filed.period.last() &&
        !(whole && filed.period.filing == ReturnPeriod::Filing::Iff))
      return &filed;
  return nullptr;
}

std::optional<PlacedDocument> Amending::pass(PlacedDocument placed, bool earlier) {
  const TaxDocument& d = placed.document;
  const FiledDocument* const filed = before_.find(d.kind->code, d.voucher);
  if (filed == nullptr) {
    if (!earlier) return placed;
    if (isListed(placed.section)) {
      // It came late, and stands in the next return.
      if (returnOf(d.date, false) != nullptr) return placed;
    } else if (const FiledReturn* its = returnOf(d.date, true); its && placed.section == Gstr1Section::B2cs) {
      addB2cs(sums_[its], d);
    }
    return std::nullopt;
  }
  met_.emplace(d.kind->code, d.voucher);
  const bool within = isWithin(filed->period);
  if (!isListed(placed.section)) {
    gone_.push_back(*filed);
  } else if (sealOf(placed) != filed->seal) {
    if (filed->section == sectionKey(placed.section))
      amended_.push_back({*filed, placed});
    else
      gone_.push_back(*filed);
  }
  if (!within) return std::nullopt;
  placed.filedBefore = true;
  return placed;
}

void Amending::end(Gstr1& gstr1) {
  for (const auto& [key, filed] : before_.documents())
    if (!met_.contains(key)) gone_.push_back(filed);
  gstr1.amended = std::move(amended_);
  gstr1.gone = std::move(gone_);
  for (const FiledReturn& filed : before_.returns()) {
    if (filed.period.filing == ReturnPeriod::Filing::Iff) continue;
    Sums now = std::move(sums_[&filed]);
    auto was = before_.sumsOf(filed.period);
    for (const auto& [key, sums] : was)
      now.try_emplace(key, B2csRow{key.first, key.second, key.first != gstr1.shop->state, {}});
    for (const auto& [key, row] : now)
      if (!(row.sums == was[key])) gstr1.amendedSums.push_back({filed.period, was[key], row});
  }
}
