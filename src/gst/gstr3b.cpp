#include "gst/gstr3b.h"

#include <algorithm>
#include <map>

namespace {

TaxAmounts valueAlone(Paise value) { return {.taxable = value}; }

void addPlace(std::map<int, TaxAmounts>& places, const TaxDocument& d) {
  places[d.place] += d.taxed() * d.sign();
}

std::vector<PlaceSum> listOf(const std::map<int, TaxAmounts>& places) {
  std::vector<PlaceSum> list;
  for (const auto& [place, sums] : places) list.push_back({place, sums});
  return list;
}

void take(Gstr3b& gstr3b, const TaxDocument& d) {
  for (const Gstr3bRow row : rowsOf(d)) {
    const TaxAmounts amount = amountIn(d, row);
    gstr3b.rows[static_cast<size_t>(row)] += amount;
    if (row == Gstr3bRow::Untaxed)
      (d.inter ? gstr3b.untaxedInter : gstr3b.untaxedIntra) += amount.taxable;
    else if (row == Gstr3bRow::UntaxedNonGst)
      (d.inter ? gstr3b.nonGstInter : gstr3b.nonGstIntra) += amount.taxable;
  }
}

}  // namespace

std::vector<Gstr3bRow> rowsOf(const TaxDocument& d) {
  std::vector<Gstr3bRow> rows;
  const auto untaxed = [&](Gstr3bRow nil, Gstr3bRow nonGst) {
    if (d.untaxed[0] + d.untaxed[1] != 0) rows.push_back(nil);
    if (d.untaxed[2] != 0) rows.push_back(nonGst);
  };
  if (isOutward(*d.kind)) {
    if (!d.rates.empty() && !(d.reverse && d.registered() && !d.zeroRated()))
      rows.push_back(d.zeroRated() ? Gstr3bRow::ZeroRated : Gstr3bRow::Taxed);
    untaxed(Gstr3bRow::NilExempt, Gstr3bRow::NonGst);
    return rows;
  }
  untaxed(Gstr3bRow::Untaxed, Gstr3bRow::UntaxedNonGst);
  if (d.rates.empty()) return rows;
  const bool services = d.supply == SupplyKind::ImportServices;
  if (d.reverse || services) rows.push_back(Gstr3bRow::Reverse);
  rows.push_back(d.supply == SupplyKind::ImportGoods ? Gstr3bRow::ImportGoods
                 : services                          ? Gstr3bRow::ImportServices
                 : d.reverse                         ? Gstr3bRow::ReverseCredit
                                                     : Gstr3bRow::OtherCredit);
  if (d.ineligible) rows.push_back(Gstr3bRow::Ineligible);
  return rows;
}

TaxAmounts amountIn(const TaxDocument& d, Gstr3bRow row) {
  const auto untaxed = [&](Untaxed kind) { return d.untaxed[static_cast<size_t>(kind)]; };
  switch (row) {
    case Gstr3bRow::NilExempt:
    case Gstr3bRow::Untaxed:
      return valueAlone(d.sign() * (untaxed(Untaxed::Nil) + untaxed(Untaxed::Exempt)));
    case Gstr3bRow::NonGst:
    case Gstr3bRow::UntaxedNonGst:
      return valueAlone(d.sign() * untaxed(Untaxed::NonGst));
    default:
      return d.taxed() * d.sign();
  }
}

std::vector<TaxDocument> documentsBehind(Database& db, const Gstr1& gstr1, Gstr3bRow row) {
  std::vector<TaxDocument> found;
  const auto take = [&](const TaxDocument& d) {
    if (std::ranges::count(rowsOf(d), row) > 0) found.push_back(d);
  };
  for (const PlacedDocument& placed : gstr1.documents) take(placed.document);
  for (const VoucherKind* kind : taxedKinds(false))
    for (TaxDocuments documents(db, gstr1.shop, *kind, gstr1.period.first(), gstr1.period.last());
         documents.next();)
      take(documents.document());
  return found;
}

std::vector<PayingLine> payingEntry(const SetOff& paid, const std::string& bank) {
  const VoucherKind::Ledger &ours = saleKind().ledger, &theirs = purchaseKind().ledger;
  const PayingLine all[] = {
      {.account = ours.igst,   .debit = paid.igst.all() + paid.cash.igst                 },
      {.account = ours.cgst,   .debit = paid.cgst.all() + paid.cash.cgst                 },
      {.account = ours.sgst,   .debit = paid.sgst.all() + paid.cash.sgst                 },
      {.account = theirs.igst, .credit = paid.igst.igst + paid.cgst.igst + paid.sgst.igst},
      {.account = theirs.cgst, .credit = paid.igst.cgst + paid.cgst.cgst                 },
      {.account = theirs.sgst, .credit = paid.igst.sgst + paid.sgst.sgst                 },
      {.account = bank,        .credit = paid.cash.igst + paid.cash.cgst + paid.cash.sgst},
  };
  std::vector<PayingLine> lines;
  for (const PayingLine& line : all)
    if (line.debit != 0 || line.credit != 0) lines.push_back(line);
  return lines;
}

TaxAmounts Gstr3b::netCredit() const {
  TaxAmounts net;
  for (const Gstr3bRow row :
       {Gstr3bRow::ImportGoods, Gstr3bRow::ImportServices, Gstr3bRow::ReverseCredit, Gstr3bRow::OtherCredit})
    net += (*this)[row];
  net += -(*this)[Gstr3bRow::Ineligible];
  net.taxable = 0;
  return net;
}

TaxAmounts Gstr3b::owed() const {
  TaxAmounts sum = (*this)[Gstr3bRow::Taxed];
  sum += (*this)[Gstr3bRow::ZeroRated];
  return sum;
}

Gstr3b readGstr3b(Database& db, const Gstr1& gstr1) {
  Gstr3b gstr3b{.period = gstr1.period, .shop = gstr1.shop};
  std::map<int, TaxAmounts> unregistered, composition, uin;
  for (const PlacedDocument& placed : gstr1.documents) {
    const TaxDocument& d = placed.document;
    take(gstr3b, d);
    if (!d.inter || d.zeroRated() || d.reverse || d.rates.empty()) continue;
    if (!d.registered())
      addPlace(unregistered, d);
    else if (d.party->kind == PartyKind::Composition)
      addPlace(composition, d);
    else if (d.party->kind == PartyKind::Uin)
      addPlace(uin, d);
  }
  // What was filed of a changed document is taken back; one of an IFF of this quarter stands in it anew.
  for (const Amendment& amendment : gstr1.amended) {
    if (amendment.was.period.first() >= gstr1.period.first()) continue;
    const TaxDocument& d = amendment.now.document;
    for (const Gstr3bRow row : rowsOf(d))
      if (row == Gstr3bRow::Taxed || row == Gstr3bRow::ZeroRated) {
        TaxAmounts more = d.taxed() * d.sign();
        more += -amendment.was.sums;
        gstr3b.rows[static_cast<size_t>(row)] += more;
      }
  }
  for (const AmendedSum& sum : gstr1.amendedSums) {
    TaxAmounts more = sum.now.sums;
    more += -sum.was;
    gstr3b.rows[static_cast<size_t>(Gstr3bRow::Taxed)] += more;
  }
  gstr3b.unregistered = listOf(unregistered);
  gstr3b.composition = listOf(composition);
  gstr3b.uin = listOf(uin);
  for (const VoucherKind* kind : taxedKinds(false))
    for (TaxDocuments documents(db, gstr1.shop, *kind, gstr1.period.first(), gstr1.period.last());
         documents.next();)
      take(gstr3b, documents.document());
  return gstr3b;
}
