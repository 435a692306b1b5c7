#include "vouchers/frmchln.h"

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/links.h"
#include "frame/session.h"
#include "vouchers/challan_amounts.h"
#include "vouchers/numbering.h"

using namespace fields;

namespace {

std::vector<WorkLines::Shown> shownColumns(const VoucherKind& kind) {
  return {{kind.tables.serial}, {"ITEM_CD"},  {"ITEM_NAME"}, {"ITEM_DESC"},
          {"SIZE_CD"},          {"QUANTITY"}, {"RATE"},      {"NET_AMOUNT"}};
}

}  // namespace

FRMCHLN::FRMCHLN(Host& theHost, const VoucherKind& kind)
    : VoucherScreen(theHost, table(), kind, shownColumns(kind)) {
  wire(*this, {
                  {kNumber,          KeyCode::Enter,  &FRMCHLN::voucherNumber   },
                  {kDate,            KeyCode::Enter,  &FRMCHLN::voucherDate     },
                  {kParty,           KeyCode::Enter,  &FRMCHLN::party           },
                  {kChallanType,     KeyCode::Enter,  &FRMCHLN::challanType     },
                  {kChallanNumber,   KeyCode::Enter,  &FRMCHLN::checkPaperNumber},
                  {kItem,            KeyCode::Enter,  &FRMCHLN::item            },
                  {kItem,            KeyCode::Insert, &FRMCHLN::newItem         },
                  {kItem,            KeyCode::Down,   &FRMCHLN::lineDown        },
                  {kItem,            KeyCode::Up,     &FRMCHLN::lineUp          },
                  {kItem,            KeyCode::PgDn,   &FRMCHLN::endLines        },
                  {kItem,            KeyCode::F10,    &FRMCHLN::deleteLine      },
                  {kItemName,        On::Leave,       &FRMCHLN::keepFreeName    },
                  {kUnit,            KeyCode::Enter,  &FRMCHLN::unit            },
                  {kUnit,            KeyCode::Down,   &FRMCHLN::lineDown        },
                  {kUnit,            KeyCode::Up,     &FRMCHLN::lineUp          },
                  {kQuantity,        KeyCode::Enter,  &FRMCHLN::quantity        },
                  {kRate,            KeyCode::Enter,  &FRMCHLN::rate            },
                  {kRate,            On::Focus,       &FRMCHLN::rateHints       },
                  {kDiscountPercent, KeyCode::Enter,  &FRMCHLN::discountPercent },
                  {kDiscountAmount,  KeyCode::Enter,  &FRMCHLN::showTotal       },
                  {kCharges,         KeyCode::Enter,  &FRMCHLN::showTotal       },
                  {kDestination,     KeyCode::Enter,  &FRMCHLN::destination     },
                  {kDestination,     KeyCode::Tab,    &FRMCHLN::lastTab         },
                  {"",               Key::Ctrl('O'),  &FRMCHLN::openSourcesKey  },
  });
  wireLookups(lookups(kind));
}

std::string FRMCHLN::tutorial() const { return links().challanVideo; }

// Header

void FRMCHLN::startNew() {
  put(kNumber, lastVoucher(data(), kind_).number + 1);
  put(kBook, kind_.code);
  put(kDate, host.today());
  focus(at(kDate));
}

// Back from printing a number shows its challan.
Go FRMCHLN::voucherNumber() {
  if (trimmed(kNumber).empty()) return helpHere();
  if (entering() || mode == "DEL") return number();
  return load(value(kNumber)) ? Go::On : Go::Stay;
}

Go FRMCHLN::party() {
  if (trimmed(kParty).empty()) return helpHere();
  const auto account = findAccount(kParty, kPartyName);
  if (!account) return Go::Stay;
  session().mlastacc = trimmed(kParty);
  showParty(*account);
  return Go::On;
}

// No tax, no state: where the party is, what it owes, how to reach it.
void FRMCHLN::showParty(const AccountFacts& p) {
  put(kPartyName, p.name);
  at(kPartyFacts).text =
      words("{address}\nBal : {balance}\n{phone}", "address", p.address1 + " " + p.address2 + " " + p.area,
            "balance", numText(p.balance), "phone", p.phone);
  phone_ = p.phone;
}

Go FRMCHLN::challanType() {
  if (trimmed(kChallanType).empty()) return helpHere();
  // One that was typed meanwhile is not lost because the type is left only now.
  const bool typed = leaving() && !at(kChallanNumber).given && !trimmed(kChallanNumber).empty();
  if (mode == "ADD" && !typed) put(kChallanNumber, nextChallanNumber(data(), kind_, trimmed(kChallanType)));
  return Go::On;
}

void FRMCHLN::renumber() {
  if (at(kChallanNumber).given) put(kChallanNumber, nextChallanNumber(data(), kind_, trimmed(kChallanType)));
}

std::string FRMCHLN::paperNumberAfter(const std::string& number) const { return numText(Val(number) + 1); }

bool FRMCHLN::paperNumberTaken() const {
  const auto changing = mode == "EDIT" ? std::optional(value(kNumber)) : std::nullopt;
  return isDuplicateChallan(data(), kind_, trimmed(kChallanType), trimmed(kChallanNumber), changing);
}

Go FRMCHLN::checkPaperNumber() {
  if (trimmed(kChallanNumber).empty()) {
    host.message("Can Not Accept Blank");
    return Go::Stay;
  }
  return paperNumberFree() ? Go::On : refuseTaken("Duplicate Challan Number Not Allowed");
}

// Totals

void FRMCHLN::discountPercent() {
  put(kDiscountAmount, challanDiscount(value(kItemsAmount), value(kDiscountPercent)));
}

void FRMCHLN::showTotal() {
  put(kNetAmount, challanNet(value(kItemsAmount), value(kCharges), value(kDiscountAmount)));
}

// Discount and charges count, and a discount by per cent follows what the lines come to.
void FRMCHLN::sumAgain() {
  const double before = value(kItemsAmount);
  sumLines();
  if (value(kItemsAmount) != before && value(kDiscountPercent) != 0) discountPercent();
  showTotal();
}

// Saving and loading

bool FRMCHLN::write(const SaveStamp& stamp, const Saving& how) {
  return whole(data(), [&] {
    const bool made = touchesSources(data(), kind_, value(kNumber), sources_);
    if (!saveChallan(data(), kind_, writtenFields(Part::Head), stamp, how)) return false;
    if (made) keepTaken();
    return true;
  });
}

SavedMessage FRMCHLN::closingMessage() const {
  return {
      .head = kind_.words.savedHead,
      .facts = {{english("Entry No"), text(kNumber)},
                {english("Party Name"), text(kPartyName)},
                {english("AMOUNT"), text(kNetAmount)}},
      .hints = {english("Press Print Btn To Print Challan"),
                english("Press New Entry Btn To Enter New Bill Entry")},
      .indent = 50,
  };
}

// A number that no challan has changes nothing.
bool FRMCHLN::load(double number) {
  const auto challan = findChallan(data(), kind_, number);
  if (!challan) {
    ShowHint(host, "No Challan Has This Number :: F1 = By Chln No");
    return false;
  }
  clearAll();
  at(kLines).visible = true;
  loadChallanLines(data(), kind_, number);
  lines_->requery();
  showFields(*challan, Part::Head);
  put(kBook, kind_.code);
  if (const auto account = readAccount(data(), trimmed(kParty))) showParty(*account);
  showCurrentLine();
  return true;
}

void FRMCHLN::clearHead() {
  VoucherScreen::clearHead();
  put(kPartyFacts, "");
}
