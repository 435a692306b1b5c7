#include "vouchers/gstsapu.h"

#include <iterator>
#include <utility>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "platform/edit.h"
#include "vouchers/items.h"
#include "vouchers/numbering.h"
#include "vouchers/originals.h"

using namespace fields;

namespace {

constexpr double kEWayLimit = 50000;

// clang-format off
std::vector<WorkLines::Shown> shownColumns(const VoucherKind& kind) {
  return {{kind.tables.serial}, {"ITEM_CD"}, {"ITEM_NAME"}, {"ITEM_DESC"}, {"SIZE_CD"},
          {"QUANTITY", "0.000"}, {"RATE"}, {"SALE_DISC"},
          {"CGSTRT"}, {"CGSTAMT"}, {"SGSTRT"}, {"SGSTAMT"}, {"IGSTRT"}, {"IGSTAMT"},
          {"NET_AMOUNT"}};
}
// clang-format on

}  // namespace

GSTSAPU::GSTSAPU(Host& theHost, const VoucherKind& kind)
    : GSTSAPU(theHost, kind, table(kind), shownColumns(kind), {}) {}

GSTSAPU::GSTSAPU(Host& theHost, const VoucherKind& kind, const ScreenSpec& theSpec,
                 std::vector<WorkLines::Shown> shown, std::vector<KeyLookup> more)
    : VoucherScreen(theHost, theSpec, kind, std::move(shown)) {
  wire(*this, {
                  {kNumber,      KeyCode::Enter,  &GSTSAPU::voucherNumber   },
                  {kDate,        KeyCode::Enter,  &GSTSAPU::voucherDate     },
                  {kParty,       KeyCode::Enter,  &GSTSAPU::party           },
                  {kShipTo,      KeyCode::Enter,  &GSTSAPU::shipTo          },
                  {kShipTo,      On::Change,      &GSTSAPU::shipToTyped     },
                  {kBillType,    KeyCode::Enter,  &GSTSAPU::billType        },
                  {kBillNumber,  KeyCode::Enter,  &GSTSAPU::checkPaperNumber},
                  {kPartyDate,   On::Focus,       &GSTSAPU::fillPartyDate   },
                  {kItem,        KeyCode::Enter,  &GSTSAPU::item            },
                  {kItem,        KeyCode::Insert, &GSTSAPU::newItem         },
                  {kItem,        KeyCode::Down,   &GSTSAPU::lineDown        },
                  {kItem,        KeyCode::Up,     &GSTSAPU::lineUp          },
                  {kItem,        KeyCode::PgDn,   &GSTSAPU::endLines        },
                  {kItem,        KeyCode::F10,    &GSTSAPU::deleteLine      },
                  {kItemName,    KeyCode::Enter,  &GSTSAPU::itemName        },
                  {kItemName,    On::Leave,       &GSTSAPU::keepFreeName    },
                  {kUnit,        KeyCode::Enter,  &GSTSAPU::unit            },
                  {kQuantity,    KeyCode::Enter,  &GSTSAPU::quantity        },
                  {kRate,        KeyCode::Enter,  &GSTSAPU::rate            },
                  {kRate,        On::Focus,       &GSTSAPU::rateHints       },
                  {kRate,        KeyCode::F4,     &GSTSAPU::earlierSalesKey },
                  {kDiscount,    KeyCode::Enter,  &GSTSAPU::discount        },
                  {kCgstRate,    KeyCode::Enter,  &GSTSAPU::taxRate         },
                  {kSgstRate,    KeyCode::Enter,  &GSTSAPU::taxRate         },
                  {kIgstRate,    KeyCode::Enter,  &GSTSAPU::taxRate         },
                  {kCgstAmount,  KeyCode::Enter,  &GSTSAPU::taxAmount       },
                  {kSgstAmount,  KeyCode::Enter,  &GSTSAPU::taxAmount       },
                  {kIgstAmount,  KeyCode::Enter,  &GSTSAPU::taxAmount       },
                  {kCgstRate,    On::Leave,       &GSTSAPU::unlock          },
                  {kSgstRate,    On::Leave,       &GSTSAPU::unlock          },
                  {kIgstRate,    On::Leave,       &GSTSAPU::unlock          },
                  {kCgstAmount,  On::Leave,       &GSTSAPU::unlock          },
                  {kSgstAmount,  On::Leave,       &GSTSAPU::unlock          },
                  {kIgstAmount,  On::Leave,       &GSTSAPU::unlock          },
                  {kAmount,      On::Leave,       &GSTSAPU::lock            },
                  {kTransportId, KeyCode::Enter,  &GSTSAPU::transportId     },
                  {kTransport,   KeyCode::Enter,  &GSTSAPU::transport       },
                  {kDestination, KeyCode::Enter,  &GSTSAPU::destination     },
                  {kParcels,     KeyCode::Enter,  &GSTSAPU::parcels         },
                  {kParcels,     KeyCode::Tab,    &GSTSAPU::lastTab         },
                  {"",           KeyCode::F6,     &GSTSAPU::partyRatesKey   },
                  {"",           KeyCode::F7,     &GSTSAPU::purchaseRatesKey},
                  {"",           Key::Ctrl('O'),  &GSTSAPU::openSourcesKey  },
                  {"",           Key::Ctrl('R'),  &GSTSAPU::reverseKey      },
  });
  wireSupply();
  wireCharges();
  if (isBought(kind))
    wire(*this, {
                    {"", Key::Ctrl('N'), &GSTSAPU::ineligibleKey}
    });
  auto all = lookups(kind);
  all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
  wireLookups(std::move(all));
}

// Header fields

void GSTSAPU::startNew() {
  const double next = lastVoucher(data(), kind_).number + 1;
  put(kNumber, next);
  if (kind_.numbering.runsOn) put(kChallanNumber, next);
  put(kBook, kind_.code);
  put(kDate, host.today());
  put(kLrDate, host.today());
  for (const FieldName amount : {kCgstAmount, kSgstAmount, kIgstAmount}) at(amount).locked = true;
  readComposition();
  markAsUsual();
  focus(at(kDate));
}

Go GSTSAPU::voucherNumber() { return trimmed(kNumber).empty() ? helpHere() : number(); }

Go GSTSAPU::voucherDate() {
  const auto typedDate = date(kDate);
  if (!typedDate) return dateStands();
  const std::string refusal = period_.refusal(*typedDate);
  if (refusal.empty()) return Go::On;
  host.message(refusal);
  return Go::Stay;
}

Go GSTSAPU::party() {
  if (trimmed(kParty).empty()) return helpHere();
  return acceptParty() ? Go::On : Go::Stay;
}

bool GSTSAPU::acceptParty() {
  const auto account = findAccount(kParty, kPartyName);
  if (!account) return false;
  session().mlastacc = trimmed(kParty);
  phone_ = account->phone;
  takeState(*account);
  showPlace();
  at(kPartyFacts).text = partyLines(*account);
  if (mode != "ADD") return true;
  figured_ = terms();
  proposeSupply(*account);
  if (kind_.dispatched) put(kDestination, cut(account->area, at(kDestination).limit));
  put(kBillType, "TAX");
  if (account->creditDays) put(kCreditDays, *account->creditDays);
  if (const auto id = findTransporter(data(), trimmed(kTransport))) put(kTransportId, *id);
  return true;
}

// The name goes with the code that it belongs to.
void GSTSAPU::shipToTyped() {
  put(kShipToName, "");
  textChanged();
}

Go GSTSAPU::shipTo() {
  if (trimmed(kShipTo).empty()) return helpHere();
  if (acceptShipTo()) return Go::On;
  textChanged();
  return Go::Stay;
}

bool GSTSAPU::acceptShipTo() {
  if (findAccount(kShipTo, kShipToName)) return true;
  put(kShipTo, "");
  put(kShipToName, "");
  return false;
}

Go GSTSAPU::billType() {
  if (trimmed(kBillType).empty()) return helpHere();
  // One that was typed meanwhile is not lost because the type is left only now.
  const bool typed = leaving() && !at(kBillNumber).given && !trimmed(kBillNumber).empty();
  if (mode == "ADD" && kind_.numbering.runsOn && !typed)
    put(kBillNumber, nextBillNumber(data(), kind_, trimmed(kBillType)));
  return Go::On;
}

void GSTSAPU::renumber() {
  if (!kind_.numbering.runsOn) return;
  if (at(kChallanNumber).given && sources_.empty()) put(kChallanNumber, text(kNumber));
  if (at(kBillNumber).given) put(kBillNumber, nextBillNumber(data(), kind_, trimmed(kBillType)));
}

std::string GSTSAPU::paperNumberAfter(const std::string& number) const {
  return afterInSeries(data(), kind_, trimmed(kBillType), number).value_or(billNumberAfter(number));
}

bool GSTSAPU::paperNumberTaken() const {
  return isDuplicateBill(data(), kind_,
                         {trimmed(kParty), trimmed(kBillType), trimmed(kBillNumber), value(kNumber)});
}

Go GSTSAPU::checkPaperNumber() {
  if (trimmed(kBillNumber).empty()) {
    host.message("Blank Bill Number Not Allowed");
    return Go::Stay;
  }
  if (!paperNumberFree()) return refuseTaken("Duplicate Bill No Not Allowed");
  warnOfNumber();
  return Go::On;
}

// What is typed stays free; it is told once.
void GSTSAPU::warnOfNumber() {
  if (!kind_.numbering.runsOn || warned_ == trimmed(kBillNumber)) return;
  warned_ = trimmed(kBillNumber);
  if (const std::string warning = numberWarning(data(), kind_, trimmed(kBillType), warned_); !warning.empty())
    host.message(warning);
}

// The party's own date starts from that of the voucher.
void GSTSAPU::fillPartyDate() {
  if (date(kPartyDate)) return;
  put(kPartyDate, date(kDate));
  edit::selectAll(here());
}

// Foot

Go GSTSAPU::transport() {
  const std::string name = trimmed(kTransport);
  if (name.empty()) return helpHere();
  const auto id = findTransporter(data(), name);
  put(kTransportId, id ? *id : addTransporter(data(), name));
  return Go::On;
}

Go GSTSAPU::transportId() {
  const auto name = transporterName(data(), value(kTransportId));
  if (name) put(kTransport, *name);
  if (!name) host.message("Trnasport Name Not ADDed In Transport Master");
  return name ? Go::On : Go::Stay;
}

Go GSTSAPU::destination() { return trimmed(kDestination).empty() ? helpHere() : Go::On; }

// Saving and loading

bool GSTSAPU::write(const SaveStamp& stamp, const Saving& how) {
  return whole(data(), [&] {
    const Supply supply = told();
    const bool made = touchesSources(data(), kind_, value(kNumber), sources_);
    if (!saveBill(data(), kind_, head(), stamp, how, supply)) return false;
    if (!supply.customs.empty() && supply.customs != settingOf(data(), ::kCustomsAccount))
      storeSetting(data(), ::kCustomsAccount, supply.customs);  // the next import takes it
    if (made) keepTaken();
    return true;
  });
}

// One challan has its number on the bill; for several there is no room.
void GSTSAPU::sourcesShown() {
  std::vector<std::string> numbers;
  for (const MadeFrom& from : sources_)
    if (from.book == challanKind().book())
      if (const auto head = readSource(data(), from)) numbers.push_back(head->number);
  if (numbers.size() == 1)
    put(kChallanNumber, numbers.front());
  else if (numbers.size() > 1)
    put(kChallanNumber, "");
  else if (mode == "ADD" && kind_.numbering.runsOn && !kind_.isNote())
    put(kChallanNumber, text(kNumber));
}

// A bill of the party has the date that was typed for it, else the voucher's own; ours have none.
Fields GSTSAPU::head() const {
  Fields row = writtenFields(Part::Head);
  const auto given = date(kPartyDate) ? date(kPartyDate) : date(kDate);
  setValue(row, "PRV_BDT", kind_.words.billDate.empty() ? Value() : Value(given));
  if (inCurrency()) setValue(row, "CUR_TOTAMT", currencyTotal());
  return row;
}

// What was written against a bill still says what the bill was then.
bool GSTSAPU::mayBeSaved() {
  if (!supplyStands() || !chargesStand()) return false;
  if (told().any()) ensureSupply(data());
  const std::string notes = mode == "EDIT" ? notesAgainst(data(), kind_, value(kNumber)) : "";
  return notes.empty() ||
         host.ask({.text = english("Notes Stand Against This Bill\nChange It All The Same ?"),
                   .title = kConfirm,
                   .yes = english("&Yes, Change It"),
                   .no = english("&No, Leave It"),
                   .facts = notes,
                   .loses = true});
}

bool GSTSAPU::mayBeDeleted(double number) {
  const std::string refusal = notesRefuse(data(), kind_, number);
  if (!refusal.empty()) host.message(refusal, kCheck);
  return refusal.empty();
}

SavedMessage GSTSAPU::closingMessage() const {
  return {
      .head = kind_.words.savedHead,
      .facts = {{english("Entry No"), text(kNumber)},
                {english("Party Name"), text(kPartyName)},
                {english("Invoice AMOUNT"), text(kNetAmount)}},
      .eWayReminder = kind_.dispatched && value(kNetAmount) > kEWayLimit,
      .hints = kind_.words.savedHints,
      .aligned = false,
  };
}

bool GSTSAPU::load(double number) {
  if (!hasBills(data(), kind_)) {
    host.message("No Record To Display");
    cancel();
    return false;
  }
  const auto bill = findBill(data(), kind_, number);
  if (!bill) {
    host.message("ENTRY NOT FOUND");
    return false;
  }
  // Of what stood here before nothing may stay: neither a name nor the party's state.
  clearAll();
  at(kLines).visible = true;
  loadLines(data(), kind_, number);
  lines_->requery();
  showFields(*bill, Part::Head);
  putCharges(typedCharges());
  shared_ = charges_.any();
  showCharges(shared_);
  put(kTaxable, Round(taxable(), 2));
  put(kBook, kind_.code);
  put(kChallanNumber, "");  // a modify stores it as 0
  readComposition();
  mark(readSupply(data(), kind_, number));
  readCurrency();
  acceptParty();
  figured_ = terms();
  if (!trimmed(kShipTo).empty()) acceptShipTo();
  showCurrentLine();
  return true;
}

void GSTSAPU::clearHead() {
  VoucherScreen::clearHead();
  period_ = {};
  proposedTo_.clear();
  charges_ = {};
  shared_ = false;
  showCharges(false);
  put(kPartyFacts, "");
  mark({});
  showPanel(false);
  figured_ = terms();
}

// Marks

// What a composition dealer buys has no input credit.
void GSTSAPU::markAsUsual() { mark({false, composition_ && isBought(kind_)}); }

void GSTSAPU::readComposition() { composition_ = settingNumber(data(), kComposition) == 1; }

void GSTSAPU::reverseKey() {
  if (!typing() || isImport(supply_.kind)) return;  // which says itself who owes the tax
  Supply supply = told();
  supply.reverse = !supply.reverse;
  mark(supply);
  sumAgain();
}

void GSTSAPU::ineligibleKey() {
  if (!typing()) return;
  Supply supply = told();
  supply.ineligible = !supply.ineligible;
  mark(supply);
}

void GSTSAPU::takeVoucherAsShown() {
  VoucherScreen::takeVoucherAsShown();
  shownSupply_ = supply_;
}

bool GSTSAPU::unsaved() const { return VoucherScreen::unsaved() || (typing() && supply_ != shownSupply_); }
