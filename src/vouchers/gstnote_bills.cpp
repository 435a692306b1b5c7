#include <algorithm>
#include <utility>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "vouchers/gstnote.h"
#include "vouchers/numbering.h"

// The bills that a note is made against: how they are found, what keeps one from it, how they are shown.

using namespace fields;

Lookup GSTNOTE::billsFor(const VoucherKind& note, const std::string& number, const std::string& party) {
  Lookup lookup{
      .rows = {.columns = {{"BILL_NO", 1000},
                           {"SHOWN(VOUCH_DT,'dd/mm/yyyy')", 1100, "VDT"},
                           ofAccount("ACC_NAME", "SALE.PARTY_CD", 2800),
                           {"ACCOUNT.AREA", 1200},
                           {"NET_AMT", 1100},
                           {"BL_TYPE", 700},
                           {"NARRATION", 2200}},
               .from = "SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD",
               .where = "book_cd = ? AND GSTPOST = 1",
               .order = {down("VOUCH_DT"), down("bill_no"), down("vouch_no")},
               .values = {note.adjusts.code}},
      .optional = number.empty(),
      .along = "VOUCH_NO"
  };
  for (const auto& [column, value] : {
           std::pair{"BILL_NO",  number},
           {"PARTY_CD", party }
  })
    if (!value.empty()) {
      lookup.rows.where += std::string(" AND ") + column + " = ?";
      lookup.rows.values.emplace_back(value);
    }
  return lookup;
}

bool GSTNOTE::isTaken(const std::string& number) const {
  return std::ranges::any_of(facts_.bills, [&](const Original& b) { return sameText(b.number, number); });
}

Go GSTNOTE::originalBill() {
  const std::string typed = trimmed(kOriginalBill), chosen = std::exchange(chosen_, {});
  if (typed.empty()) return noBill();
  const bool stands = chosen.empty() && isTaken(typed);
  if (stands || !datesStand()) {
    showBills();
    return stands ? Go::On : Go::Stay;
  }
  if (!chosen.empty())
    if (const auto bill = billOfVoucher(data(), kind_, Val(chosen))) return take(*bill);
  const std::string party = trimmed(kParty);
  // "7" is what people say of 0007.
  const bool digits = typed.find_first_not_of("0123456789") == std::string::npos;
  const auto of = [&](const std::string& whose) {
    auto bills = billsOfNumber(data(), kind_, typed, whose);
    if (bills.empty() && digits)
      bills = billsOfNumber(data(), kind_, billNumberAfter(numText(Val(typed) - 1)), whose);
    return bills;
  };
  const auto found = of(party);
  if (found.size() == 1) return take(found.front());
  if (found.size() > 1 && !leaving()) return chooseBill(typed);
  if (found.size() > 1) {
    host.message(words("Several Bills Have The Number {bill}\nPress Enter To Choose One", "bill", typed));
    return Go::Stay;
  }
  // Numbers begin anew each year.
  const bool others = !party.empty() && !of("").empty();
  return takeUnknown(typed, others ? words("Bill {bill} Of These Books Is Of Another Party\n"
                                           "Name One Of An Earlier Year On The Note ?",
                                           "bill", typed)
                                   : words("Bill {bill} Is Not In These Books\n"
                                           "Name It On The Note All The Same ?",
                                           "bill", typed));
}

Go GSTNOTE::chooseBill(const std::string& number) {
  Lookup lookup = billsFor(kind_, number, trimmed(kParty));
  lookup.tell = [this](const std::string& voucher) { chosen_ = voucher; };
  lookup.keys = here().hint;
  return lookUp(host, *this, here(), lookup);
}

// An emptied field takes the last bill out again; a note may be made without one.
Go GSTNOTE::noBill() {
  if (facts_.bills.empty()) return leaving() ? Go::On : chooseBill("");
  const std::string last = facts_.bills.back().number;
  if (mayLeaveLine() &&
      host.ask({.text = words("Take Bill {bill} And Its Lines Out Of This Note ?", "bill", last),
                .title = kConfirm,
                .yes = english("&Take It Out"),
                .no = english("&Keep It"),
                .loses = true}))
    takeOut();
  showBills();
  return Go::Stay;
}

void GSTNOTE::takeOut() {
  const Original bill = facts_.bills.back();
  facts_.bills.pop_back();
  for (auto line = originals_.begin(); line != originals_.end();) {
    const bool its = bill.voucher != 0 && line->second.voucher == bill.voucher;
    if (its) {
      data().exec("DELETE FROM T_SLITM WHERE SR_NO = ?", line->first);
      meant_.erase(line->first);
    }
    line = its ? originals_.erase(line) : std::next(line);
  }
  if (const auto party = readAccount(data(), trimmed(kParty))) put(kPartyFacts, partyLines(*party));
  if (!ofTheseBooks()) {
    markAsUsual();
    readCurrency();
  }
  lines_->requery();
  sumAgain();
  showCurrentLine();
}

bool GSTNOTE::mayAdd(const std::string& number) {
  if (!mayLeaveLine()) return false;
  if (facts_.bills.empty()) return true;
  return host.ask({.text = words("Add Bill {bill} To This Note ?", "bill", number),
                   .title = kConfirm,
                   .yes = english("&Add It"),
                   .no = english("&No")});
}

Go GSTNOTE::take(const FoundBill& found) {
  const auto same = [&](const Original& b) { return b.voucher == found.bill.voucher; };
  if (std::ranges::any_of(facts_.bills, same)) {
    showBills();
    return Go::On;
  }
  const std::string refusal = differs(found);
  if (!refusal.empty()) host.message(refusal);
  if (!refusal.empty() || !mayAdd(found.bill.number)) {
    showBills();
    return Go::Stay;
  }
  const bool first = facts_.bills.empty();
  facts_.bills.push_back(found.bill);
  if (first) {
    put(kParty, found.party);
    acceptParty();
    // An update puts the cash account where a bill has no ship-to.
    if (!found.shipTo.empty() && found.shipTo != kCashAccount) {
      put(kShipTo, found.shipTo);
      acceptShipTo();
    }
  }
  mark(supplyOf(found.bill));
  addBillLines(data(), kind_, value(kNumber), found.bill, originals_);
  billed_[found.bill.voucher] = asBilled(data(), found.bill);
  readCurrency();
  showPanel(false);  // all of it is the bill's
  readBefore(data(), kind_, ownNumber(), originals_);
  lines_->requery();
  at(kLines).visible = true;
  showBills();
  showCurrentLine();
  return Go::On;
}

// One note is one party's, and has its taxes in one way and one currency.
std::string GSTNOTE::differs(const FoundBill& found) const {
  const auto refuse = [&](const char* text) { return words(text, "bill", found.bill.number); };
  if (!facts_.bills.empty() && !sameText(trimmed(kParty), found.party))
    return refuse(english("Bill {bill} Is Of Another Party"));
  if (!ofTheseBooks()) return {};
  const Supply its = supplyOf(found.bill), own = told();
  if (its.reverse != own.reverse || its.ineligible != own.ineligible)
    return refuse(english("Bill {bill} Differs In Reverse Charge Or Input Credit\nMake Another Note For It"));
  if (its.kind != own.kind || its.place != own.place || !sameCurrency(found.bill))
    return refuse(
        english("Bill {bill} Is Another Kind Of Supply, Or In Another Currency\nMake Another Note For It"));
  return {};
}

// Its own papers of shipping are the bill's alone.
Supply GSTNOTE::supplyOf(const Original& bill) const {
  Supply supply = readSupply(data(), *kindByBook(bill.book), bill.voucher);
  supply.shippingBill.clear();
  supply.shippingDate.reset();
  supply.port.clear();
  return supply;
}

bool GSTNOTE::sameCurrency(const Original& bill) const {
  const auto line = data().first(
      "SELECT CUR_NM, CUR_RT FROM SALEITM WHERE VOUCH_NO = ? AND BOOK_CD = ? AND CUR_RT > 0 AND LEN(CUR_NM) "
      "> 1"
      " LIMIT 1",
      bill.voucher, bill.book);
  return sameText(line ? line->text(0) : "", trimmed(kCurrency)) &&
         (line ? line->number(1) : 0) == value(kCurrencyRate);
}

Go GSTNOTE::takeUnknown(const std::string& number, const std::string& question) {
  if (!mayAdd(number) || !host.ask({.text = question,
                                    .title = kConfirm,
                                    .yes = english("&Yes, Name It"),
                                    .no = english("&No, Type Another"),
                                    .loses = true})) {
    if (!facts_.bills.empty()) showBills();
    return Go::Stay;
  }
  facts_.bills.push_back({.book = kind_.adjusts.code, .number = number, .date = {}});
  showBills();
  return Go::On;
}

// The date of a bill that these books do not hold is typed.
void GSTNOTE::keepDate() {
  if (!facts_.bills.empty() && facts_.bills.back().voucher == 0)
    facts_.bills.back().date = date(kOriginalDate);
}

bool GSTNOTE::ofTheseBooks() const {
  return std::ranges::any_of(facts_.bills, [](const Original& b) { return b.voucher != 0; });
}

// Of all but the last it stood when the next one was named.
bool GSTNOTE::datesStand() {
  if (facts_.bills.empty() || facts_.bills.back().date) return true;
  host.message(words("Type The Date Of Bill {bill}", "bill", facts_.bills.back().number), kCheck);
  focus(at(kOriginalDate));
  return false;
}

// The last bill stands in the fields, all of them beside the party.
void GSTNOTE::showBills() {
  const bool any = !facts_.bills.empty();
  const Original last = any ? facts_.bills.back() : Original{};
  put(kOriginalBill, last.number);
  put(kOriginalDate, last.date);
  at(kOriginalDate).enabled = at(kOriginalBill).enabled && any && last.voucher == 0;
  // What a bill of these books tells is not typed.
  for (const FieldName ofBill : {kParty, kShipTo})
    at(ofBill).enabled = at(kOriginalBill).enabled && !ofTheseBooks();
  showAgainst();
}

// " (Open 4,300)", where the note would settle it.
std::string GSTNOTE::openOf(const Original& bill) const {
  const auto open = ::takesBack(kind_) ? openWithout(data(), kind_, ownNumber(), bill.voucher) : std::nullopt;
  return open ? " (" + words("Open {amount}", "amount", indianGroups(numText(Round(*open, 2)))) + ")" : "";
}

// In place of the party's phone.
void GSTNOTE::showAgainst() {
  constexpr size_t kPhone = 3;
  std::vector<std::string> named;
  for (const Original& bill : facts_.bills) {
    const auto found = bill.voucher == 0 ? std::nullopt : billOfVoucher(data(), kind_, bill.voucher);
    named.push_back(bill.number + (bill.date ? " " + formatDate(*bill.date, "dd/MM/yyyy") : "") +
                    (found ? " = " + indianGroups(numText(found->amount)) : "") +
                    (found ? openOf(bill) : ""));
  }
  if (named.empty()) return;
  std::vector<std::string> lines = split(at(kPartyFacts).text, "\n");
  lines.resize(kPhone);
  lines.push_back(words("Against {bills}", "bills", join(named, ", ")));
  put(kPartyFacts, join(lines, "\n"));
}

bool GSTNOTE::acceptParty() {
  if (!GSTSAPU::acceptParty()) return false;
  if (takesBack()) put(kCreditDays, 0);
  showAgainst();
  return true;
}

// After the 30th of November that follows the tax year of the bill its tax is not given back any more.
std::string GSTNOTE::doubtOfDay(const Original& bill) const {
  if (!bill.date) return {};
  const Date day = *date(kDate);
  const auto facts = [&](const char* text, Date when) {
    return words(text, "bill", bill.number, "date", formatDate(when, "dd/MM/yyyy"));
  };
  if (day < *bill.date)
    return facts(english("Bill {bill} Is Of {date}, After The Day Of This Note"), *bill.date);
  const auto year = bill.date->year() + std::chrono::years(bill.date->month() < std::chrono::April ? 0 : 1);
  const Date last = year / std::chrono::November / 30;
  const bool taxed = value(kCgstTotal) != 0 || value(kSgstTotal) != 0 || value(kIgstTotal) != 0;
  const bool givesTaxBack = takesBack() && !isBought(kind_) && taxed;
  return givesTaxBack && day > last
             ? facts(english("The Tax Of Bill {bill} Could Be Given Back Until {date}"), last)
             : "";
}

bool GSTNOTE::mayHaveItsDay() {
  std::vector<std::string> doubts;
  for (const Original& bill : facts_.bills)
    if (std::string doubt = doubtOfDay(bill); !doubt.empty()) doubts.push_back(std::move(doubt));
  if (doubts.empty() || host.ask({.text = join(doubts, "\n") + "\n" + words("Save It All The Same ?"),
                                  .title = kConfirm,
                                  .yes = english("&Yes, Save It"),
                                  .no = english("&No, Back To The Note"),
                                  .loses = true}))
    return true;
  focus(at(kDate));
  return false;
}
