#include "gst/documents.h"

#include <algorithm>

#include "base/number.h"
#include "base/states.h"
#include "base/text.h"
#include "store/dictionary.h"
#include "store/taxable.h"

namespace {

// Of a selected line.
enum Column : int {
  kVoucher,
  kDate,
  kNumber,
  kParty,
  kValue,
  kItem,
  kUnit,
  kQuantity,
  kTaxable,
  kCgstRate,
  kSgstRate,
  kIgstRate,
  kCgst,
  kSgst,
  kIgst,
  kCess
};

// In the order of an index, so that a period costs its own bills alone.
Rows selectLines(Database& db, const VoucherKind& kind, Date from, Date to) {
  return db.query(
      "SELECT SALE.VOUCH_NO, SALE.VOUCH_DT, SALE.BILL_NO, SALE.PARTY_CD, SALE.NET_AMT,"
      " SALEITM.ITEM_CD, SALEITM.SIZE_CD, SALEITM.QUANTITY, " +
          taxableOf("SALEITM.") +
          ", CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT, IGSTAMT, CESS_AMT1"
          " FROM SALE LEFT JOIN SALEITM ON SALE.BOOK_CD = SALEITM.BOOK_CD AND SALE.VOUCH_NO = "
          "SALEITM.VOUCH_NO"
          " WHERE SALE.BOOK_CD = ? AND SALE.GSTPOST = 1 AND SALE.VOUCH_DT >= ? AND SALE.VOUCH_DT <= ?"
          " ORDER BY SALE.VOUCH_DT, SALE.BILL_NO, SALE.VOUCH_NO",
      kind.code, from, to);
}

Untaxed untaxedKind(const TaxShop& shop, const TaxItem& item, Date on) {
  const std::string word = shop.tables.byStart(kZeroRate, item.hsn, on);
  return word == "nongst" ? Untaxed::NonGst : word == "exempt" ? Untaxed::Exempt : Untaxed::Nil;
}

}  // namespace

int TaxDocument::sign() const {
  if (!isNote()) return 1;
  const VoucherKind& billed = isOutward(*kind) ? saleKind() : purchaseKind();
  return kind->ledger.partySide == billed.ledger.partySide ? 1 : -1;
}

TaxAmounts TaxDocument::taxed() const {
  TaxAmounts sum;
  for (const AtRate& at : rates) sum += at.sums;
  return sum;
}

bool isOutward(const VoucherKind& kind) { return kind.ledger.cgst == saleKind().ledger.cgst; }

std::vector<const VoucherKind*> taxedKinds(bool outward) {
  std::vector<const VoucherKind*> kinds;
  for (const VoucherKind* kind : voucherKinds())
    if (kind->tables.heads == saleKind().tables.heads && isOutward(*kind) == outward) kinds.push_back(kind);
  return kinds;
}

TaxDocuments::TaxDocuments(Database& db, std::shared_ptr<const TaxShop> shop, const VoucherKind& kind,
                           Date from, Date to)
    : db_(db),
      shop_(std::move(shop)),
      kind_(kind),
      marks_(readMarks(kind.code)),
      lines_(selectLines(db, kind, from, to)),
      more_(false) {
  if (kind.isNote()) readOriginals(from, to);
  more_ = lines_.next();
}

// Hardly any bill has a row there.
std::map<double, TaxDocuments::Marks> TaxDocuments::readMarks(const std::string& book) {
  std::map<double, Marks> marks;
  if (!CheckTable(db_, "SUPPLY")) return marks;
  for (auto rows = db_.query("SELECT * FROM SUPPLY WHERE BOOK_CD = ?", book); rows.next();) {
    Marks& its = marks[rows.number("VOUCH_NO")];
    its.reverse = rows.number("REVERSE") == 1;
    its.ineligible = rows.number("INELIGIBLE") == 1;
    if (!rows.names().has("KIND")) continue;  // books of before there were kinds of supply
    its.supply = supplyKind(rows.number("KIND"));
    its.place = toInt(rows.number("POS"));
    its.port = filled(rows.text("PORT"));
    its.shippingBill = filled(rows.text("SHIP_NO"));
    its.shippingDate = rows.date("SHIP_DT");
  }
  return marks;
}

void TaxDocuments::readOriginals(Date from, Date to) {
  if (!CheckTable(db_, "ORIGINAL")) return;
  const auto marks = readMarks(kind_.adjusts.code);
  for (auto rows = db_.query(
           "SELECT O.VOUCH_NO, O.BILL_VOUCH, O.BILL_NO, O.BILL_DT, O.GOODS, B.NET_AMT FROM SALE AS N"
           " JOIN ORIGINAL AS O ON O.VOUCH_NO = N.VOUCH_NO AND O.BOOK_CD = N.BOOK_CD"
           " LEFT JOIN SALE AS B ON B.VOUCH_NO = O.BILL_VOUCH AND B.BOOK_CD = O.BILL_BOOK"
           " WHERE N.BOOK_CD = ? AND N.VOUCH_DT >= ? AND N.VOUCH_DT <= ? ORDER BY O.VOUCH_NO, O.SR_NO",
           kind_.code, from, to);
       rows.next();) {
    Against& its = against_[rows.number(0)];
    its.goods = rows.number(4) == 1;
    const auto marked = marks.find(rows.number(1));
    if (its.bills.empty() && marked != marks.end()) its.marks = marked->second;
    its.bills.push_back({rows.text(2), rows.date(3), paise(rows.number(5))});
  }
}

bool TaxDocuments::next() {
  if (!more_) return false;
  begin();
  do {
    if (!lines_.isNull(kItem)) take();
    more_ = lines_.next();
  } while (more_ && lines_.number(kVoucher) == document_.voucher);
  std::ranges::sort(document_.rates, {}, &AtRate::rate);
  return true;
}

void TaxDocuments::begin() {
  items_.clear();
  document_ = {.kind = &kind_,
               .voucher = lines_.number(kVoucher),
               .number = trim(lines_.text(kNumber)),
               .date = lines_.date(kDate).value_or(Date{}),
               .value = paise(lines_.number(kValue)),
               .party = &shop_->party(lines_.text(kParty))};
  TaxDocument& d = document_;
  Marks marks;
  if (const auto own = marks_.find(d.voucher); own != marks_.end()) marks = own->second;
  if (const auto found = against_.find(d.voucher); found != against_.end()) {
    d.originals = found->second.bills;
    d.goodsMove = found->second.goods;
    // What a note does not say of itself is as its bill says it.
    if (const auto& bill = found->second.marks; bill && marks.supply == SupplyKind::Ordinary) {
      marks.supply = bill->supply;
      if (marks.place == 0) marks.place = bill->place;
    }
  }
  d.supply = marks.supply;
  d.reverse = marks.reverse;
  d.ineligible = marks.ineligible;
  d.port = marks.port;
  d.shippingBill = marks.shippingBill;
  d.shippingDate = marks.shippingDate;
  d.place = d.exported() ? kAbroad : marks.place > 0 ? marks.place : d.party->state;
  // Where nothing is known of a buyer the bill was made as for another state.
  d.inter = isOutward(kind_) ? d.zeroRated() || d.place != shop_->state
                             : d.supply == SupplyKind::ImportGoods ||
                                   d.supply == SupplyKind::ImportServices || d.party->state != shop_->state;
}

void TaxDocuments::take() {
  TaxDocument& d = document_;
  AtItem line{
      .item = &shop_->item(lines_.text(kItem)),
      .rate = Round(lines_.number(kCgstRate) + lines_.number(kSgstRate) + lines_.number(kIgstRate), 3),
      .quantity = d.goodsMove ? lines_.number(kQuantity) : 0,
      .sums = {.taxable = paise(lines_.number(kTaxable)),
               .igst = paise(lines_.number(kIgst)),
               .cgst = paise(lines_.number(kCgst)),
               .sgst = paise(lines_.number(kSgst)),
               .cess = paise(lines_.number(kCess))}
  };
  line.unit = shop_->unitCode(filled(lines_.text(kUnit)), *line.item, d.date);
  // A tax that was typed without a rate is no nil rate.
  if (line.rate == 0 && line.sums.tax() == 0 && !d.zeroRated()) {
    d.untaxed[static_cast<size_t>(untaxedKind(*shop_, *line.item, d.date))] += line.sums.taxable;
  } else {
    auto at = std::ranges::find(d.rates, line.rate, &AtRate::rate);
    if (at == d.rates.end()) at = d.rates.insert(at, {line.rate, {}});
    at->sums += line.sums;
  }
  put(std::move(line));
}

void TaxDocuments::put(AtItem line) {
  if (line.item->service()) line.quantity = 0;
  const auto same = std::ranges::find_if(items_, [&](const AtItem& a) {
    return a.item == line.item && a.unit == line.unit && a.rate == line.rate;
  });
  if (same == items_.end()) {
    items_.push_back(std::move(line));
  } else {
    same->quantity += line.quantity;
    same->sums += line.sums;
  }
}
