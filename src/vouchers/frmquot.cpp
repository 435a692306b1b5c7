#include "vouchers/frmquot.h"

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/links.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "vouchers/numbering.h"

using namespace fields;

namespace {

constexpr const char* kNobody = ".";  // what accounts without a person keep

std::vector<WorkLines::Shown> shownColumns(const VoucherKind& kind) {
  return {{kind.tables.serial}, {"ITEM_CD"}, {"ITEM_NAME"}, {"ITEM_DESC"}, {"SIZE_CD"},
          {"QUANTITY"},         {"RATE"},    {"DISC"},      {"CGSTRT"},    {"CGSTAMT"},
          {"SGSTRT"},           {"SGSTAMT"}, {"IGSTRT"},    {"IGSTAMT"},   {"AMOUNT"}};
}

}  // namespace

FRMQUOT::FRMQUOT(Host& theHost, const Opening& opening)
    : VoucherScreen(theHost, table(), quotationKind(opening.entryType),
                    shownColumns(quotationKind(opening.entryType))) {
  wire(*this, {
                  {kNumber,     KeyCode::Enter,  &FRMQUOT::voucherNumber   },
                  {kDate,       KeyCode::Enter,  &FRMQUOT::voucherDate     },
                  {kParty,      KeyCode::Enter,  &FRMQUOT::party           },
                  {kReference,  KeyCode::Enter,  &FRMQUOT::checkPaperNumber},
                  {kItem,       KeyCode::Enter,  &FRMQUOT::item            },
                  {kItem,       KeyCode::Insert, &FRMQUOT::newItem         },
                  {kItem,       Key::Ctrl('I'),  &FRMQUOT::newItem         },
                  {kItem,       KeyCode::Down,   &FRMQUOT::lineDown        },
                  {kItem,       KeyCode::Up,     &FRMQUOT::lineUp          },
                  {kItem,       KeyCode::PgDn,   &FRMQUOT::endLines        },
                  {kItem,       KeyCode::F10,    &FRMQUOT::deleteLine      },
                  {kItemName,   KeyCode::Enter,  &FRMQUOT::itemName        },
                  {kUnit,       KeyCode::Enter,  &FRMQUOT::unit            },
                  {kQuantity,   KeyCode::Enter,  &FRMQUOT::quantity        },
                  {kRate,       KeyCode::Enter,  &FRMQUOT::figure          },
                  {kRate,       KeyCode::F4,     &FRMQUOT::earlierSalesKey },
                  {kDiscount,   KeyCode::Enter,  &FRMQUOT::discount        },
                  {kCgstRate,   KeyCode::Enter,  &FRMQUOT::valueLine       },
                  {kCgstAmount, KeyCode::Enter,  &FRMQUOT::valueLine       },
                  {kSgstRate,   KeyCode::Enter,  &FRMQUOT::valueLine       },
                  {kSgstAmount, KeyCode::Enter,  &FRMQUOT::valueLine       },
                  {kIgstRate,   KeyCode::Enter,  &FRMQUOT::valueLine       },
                  {kIgstAmount, KeyCode::Enter,  &FRMQUOT::lastTax         },
                  {kSubjectTo,  KeyCode::Enter,  &FRMQUOT::lastTerm        },
                  {kSubjectTo,  KeyCode::Tab,    &FRMQUOT::lastTab         },
  });
  // Not every company-year keeps narrations.
  const bool narrations = CheckTable("NARRATN");
  wireLookups(lookups(kind_, narrations));
  if (narrations)
    for (const FieldName term : kTerms) at(term).hint = "F1 = Narrations";
}

std::string FRMQUOT::tutorial() const { return links().*kind_.video; }

void FRMQUOT::opened(const Opening& opening) {
  passOver(host, [] { repairQuotations(data()); });
  VoucherScreen::opened(opening);
}

// Some fields have words of their own, which the keys follow.
std::string FRMQUOT::hintFor(const Control& control) const {
  struct Own {
    FieldName field;
    const char* text;
    bool whenFilled;
  };
  constexpr Own kOwn[] = {
      {kParty,   english("Press Enter To Select Party"),                            false},
      {kItem,    english("Press Enter To Select Item Or Ctrl + I To Add New Item"), false},
      {kSubject, english("Type Subject For Quotation"),                             true },
      {kDetail,  english("Type Item Description"),                                  true },
  };
  for (const Own& own : kOwn) {
    if (control.spec->field != own.field || (!own.whenFilled && !trim(control.text).empty())) continue;
    return control.hint.empty() ? own.text : words(own.text) + " :: " + words(control.hint);
  }
  return VoucherScreen::hintFor(control);
}

// Header

void FRMQUOT::startNew() {
  put(kNumber, lastVoucher(data(), kind_).number + 1);
  put(kDate, host.today());
  focus(at(kDate));
}

// Printing passes the number on.
Go FRMQUOT::voucherNumber() {
  if (trimmed(kNumber).empty()) return helpHere();
  if (mode != "PRINT") return number();
  if (load(value(kNumber))) hideForPrint(text(kNumber));
  return Go::Stay;
}

// The party brings its person, and in ADD the offer its reference; what has been typed over them
// stays while the party is the same.
Go FRMQUOT::party() {
  if (trimmed(kParty).empty()) return helpHere();
  const auto account = acceptParty();
  if (!account) return Go::Stay;
  const bool another = !sameText(trimmed(kParty), party_);
  party_ = trimmed(kParty);
  const bool named = !account->person.empty() && account->person != kNobody;
  if (named && (another || trimmed(kAttention).empty())) put(kAttention, account->person);
  if (mode == "ADD" && (another || trimmed(kReference).empty()))
    put(kReference, nextReference(data(), kind_));
  return Go::On;
}

std::string FRMQUOT::paperNumberAfter(const std::string& number) const {
  return afterInSeries(data(), kind_, "", number).value_or(referenceAfter(number));
}

// An offer may do without one.
bool FRMQUOT::paperNumberTaken() const {
  const std::string reference = trimmed(kReference);
  return !reference.empty() && isDuplicateReference(data(), kind_, reference, value(kNumber));
}

Go FRMQUOT::checkPaperNumber() {
  return paperNumberFree() ? Go::On : refuseTaken("Duplicate Ref No Not Allowed");
}

void FRMQUOT::renumber() {
  if (at(kReference).given) put(kReference, nextReference(data(), kind_));
}

std::optional<AccountFacts> FRMQUOT::acceptParty() {
  const auto account = findAccount(kParty, kPartyName, kMessageTitle);
  if (!account) return account;
  session().mlastacc = trimmed(kParty);
  phone_ = account->phone;
  takeState(*account);
  return account;
}

void FRMQUOT::clearHead() {
  VoucherScreen::clearHead();
  party_.clear();
}

// Saving and loading

bool FRMQUOT::write(const SaveStamp& stamp, const Saving& how) {
  return saveQuotation(data(), kind_, writtenFields(Part::Head), stamp, how);
}

SavedMessage FRMQUOT::closingMessage() const {
  return {
      .head = kind_.words.savedHead,
      .facts = {{english("Entry No"), text(kNumber)},
                {english("Party Name"), text(kPartyName)},
                {english("AMOUNT"), text(kNetAmount)}},
      .hints = {english("Press Print Btn To Print Quotation"),
                english("Press New Entry Btn To Enter New Quotation Entry")},
  };
}

bool FRMQUOT::load(double number) {
  if (!hasQuotations(data(), kind_)) {
    host.message("No Record To Display");
    cancel();
    return false;
  }
  const auto offer = findQuotation(data(), kind_, number);
  if (!offer) {
    host.message("ENTRY NOT FOUND");
    return false;
  }
  // Of what stood here before nothing may stay: neither a name nor the party's state.
  clearAll();
  at(kLines).visible = true;
  loadQuotationLines(data(), kind_, number);
  lines_->requery();
  showFields(*offer, Part::Head);
  if (!trimmed(kParty).empty()) acceptParty();
  party_ = trimmed(kParty);
  showCurrentLine();
  return true;
}
