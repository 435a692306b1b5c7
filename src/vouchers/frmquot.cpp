#include "vouchers/frmquot.h"

#include "base/number.h"
#include "base/text.h"
#include "frame/links.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "vouchers/numbering.h"

namespace {

constexpr const char* kNobody = ".";  // what accounts without a person keep

// The terms by their columns, DESC1 to DESC8; the last column comes first on the screen.
constexpr int kTerms[] = {7, 29, 33, 18, 26, 28, 6, 1};
constexpr int kHeadFields[] = {0, 4, 35, 2, 3, 11, 21, 45, 42, 43, 44, 27};

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
                  {"Text1(0)",      KeyCode::Enter,  &FRMQUOT::voucherNumber  },
                  {"MaskEdBox1(0)", KeyCode::Enter,  &FRMQUOT::voucherDate    },
                  {"Text1(4)",      KeyCode::Enter,  &FRMQUOT::party          },
                  {"Text1(12)",     KeyCode::Enter,  &FRMQUOT::item           },
                  {"Text1(12)",     KeyCode::Insert, &FRMQUOT::newItem        },
                  {"Text1(12)",     Key::Ctrl('I'),  &FRMQUOT::newItem        },
                  {"Text1(12)",     KeyCode::Down,   &FRMQUOT::lineDown       },
                  {"Text1(12)",     KeyCode::Up,     &FRMQUOT::lineUp         },
                  {"Text1(12)",     KeyCode::PgDn,   &FRMQUOT::endLines       },
                  {"Text1(12)",     KeyCode::F10,    &FRMQUOT::dropLine       },
                  {"Text1(5)",      KeyCode::Enter,  &FRMQUOT::itemName       },
                  {"Text1(10)",     KeyCode::Enter,  &FRMQUOT::unit           },
                  {"Text1(8)",      KeyCode::Enter,  &FRMQUOT::figure         },
                  {"Text1(9)",      KeyCode::Enter,  &FRMQUOT::figure         },
                  {"Text1(9)",      KeyCode::F4,     &FRMQUOT::earlierSalesKey},
                  {"Text1(16)",     KeyCode::Enter,  &FRMQUOT::discount       },
                  {"Text1(36)",     KeyCode::Enter,  &FRMQUOT::valueLine      },
                  {"Text1(37)",     KeyCode::Enter,  &FRMQUOT::valueLine      },
                  {"Text1(38)",     KeyCode::Enter,  &FRMQUOT::valueLine      },
                  {"Text1(39)",     KeyCode::Enter,  &FRMQUOT::valueLine      },
                  {"Text1(40)",     KeyCode::Enter,  &FRMQUOT::valueLine      },
                  {"Text1(41)",     KeyCode::Enter,  &FRMQUOT::lastTax        },
                  {"Text1(14)",     KeyCode::Enter,  &FRMQUOT::amount         },
                  {"Text1(6)",      KeyCode::Enter,  &FRMQUOT::lastTerm       },
                  {"CMDSAVE",       On::Click,       &FRMQUOT::save           },
  });
  // Not every company-year keeps narrations.
  const bool narrations = CheckTable("NARRATN");
  wireLookups(lookups(kind_, narrations));
  if (narrations)
    for (const int n : kTerms) text1(n).hint = "F1 = Narrations";
}

std::string FRMQUOT::tutorial() const { return links().*kind_.video; }

void FRMQUOT::opened(const Opening& opening) {
  passOver(host, [] { repairQuotations(data()); });
  VoucherScreen::opened(opening);
}

// Some fields have words of their own, which the keys follow.
std::string FRMQUOT::hintFor(const Control& control) const {
  struct Words {
    int field;
    const char* text;
    bool whenFilled;
  };
  constexpr Words kWords[] = {
      {4,  "Press Enter To Select Party",                            false},
      {12, "Press Enter To Select Item Or Ctrl + I To Add New Item", false},
      {3,  "Type Subject For Quotation",                             true },
      {15, "Type Item Description",                                  true },
  };
  for (const Words& words : kWords) {
    const bool its = control.family == "Text1" && control.index == words.field;
    if (!its || (!words.whenFilled && !trim(control.text).empty())) continue;
    return control.hint.empty() ? words.text : words.text + (" :: " + control.hint);
  }
  return VoucherScreen::hintFor(control);
}

// Header

void FRMQUOT::startNew() {
  put(0, lastVoucher(data(), kind_).number + 1);
  putDate(0, host.today());
  focus(at("MaskEdBox1", 0));
}

// Printing passes the number on.
Go FRMQUOT::voucherNumber() {
  if (trimmed(0).empty()) return helpHere();
  if (mode != "PRINT") return number();
  if (load(value(0))) hideForPrint(textOf(0));
  return Go::Stay;
}

// The party brings its person, and in ADD the offer its reference; what has been typed over them
// stays while the party is the same.
Go FRMQUOT::party() {
  if (trimmed(4).empty()) return helpHere();
  const auto account = acceptParty();
  if (!account) return Go::Stay;
  const bool another = !sameText(trimmed(4), party_);
  party_ = trimmed(4);
  const bool named = !account->person.empty() && account->person != kNobody;
  if (named && (another || trimmed(2).empty())) put(2, account->person);
  if (mode == "ADD" && (another || trimmed(35).empty())) put(35, nextReference(data(), kind_));
  return Go::On;
}

std::optional<AccountFacts> FRMQUOT::acceptParty() {
  const auto account = findAccount(4, "Text2", kMessageTitle);
  if (!account) return account;
  session().mlastacc = trimmed(4);
  phone_ = account->phone;
  takeState(*account);
  return account;
}

void FRMQUOT::clearHead() {
  for (const int n : kHeadFields) put(n, "");
  for (const int n : kTerms) put(n, "");
  set(at("Text2"), "");
  putDate(0, std::nullopt);
  partyState_ = 0;
  party_.clear();
  phone_.clear();
}

// Saving and loading

void FRMQUOT::save() {
  store([this](const SaveStamp& stamp, Saving how) {
    return saveQuotation(data(), kind_, header(), stamp, how);
  });
}

QuotationHeader FRMQUOT::header() const {
  QuotationHeader offer{.number = value(0),
                        .date = date(0),
                        .party = textOf(4),
                        .reference = textOf(35),
                        .attention = textOf(2),
                        .subject = textOf(3),
                        .yourReference = textOf(11),
                        .terms = {},
                        .quantity = value(45),
                        .cgst = value(42),
                        .sgst = value(43),
                        .igst = value(44),
                        .items = value(21),
                        .amount = value(27)};
  for (size_t i = 0; i < offer.terms.size(); ++i) offer.terms[i] = textOf(kTerms[i]);
  return offer;
}

SavedMessage FRMQUOT::closingMessage() const {
  return {
      .head = kind_.words.savedHead,
      .facts = {{"Entry No", textOf(0)}, {"Party Name", at("Text2").text}, {"AMOUNT", textOf(27)}},
      .hints = {"Press Print Btn To Print Quotation",                       "Press New Entry Btn To Enter New Quotation Entry"                   },
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
  lineGrid().visible = true;
  loadQuotationLines(data(), kind_, number);
  lines_->requery();
  showHeader(*offer);
  if (!trimmed(4).empty()) acceptParty();
  party_ = trimmed(4);
  showCurrentLine();
  return true;
}

void FRMQUOT::showHeader(const Row& offer) {
  struct Shown {
    int field;
    const char* column;
  };
  constexpr Shown kTexts[] = {
      {4,  "PARTY_CD"   },
      {35, "REF_NO"     },
      {2,  "TO_NAME"    },
      {3,  "SUB_DESC"   },
      {11, "YOUR_REF_NO"},
  };
  constexpr Shown kFigures[] = {
      {0,  "VOUCH_NO"},
      {45, "TOTQTY"  },
      {42, "TCGST"   },
      {43, "TSGST"   },
      {44, "TIGST"   },
      {21, "ITEM_AMT"},
      {27, "NET_AMT" },
  };
  for (const auto& [field, column] : kTexts) put(field, offer.text(column));
  for (const auto& [field, column] : kFigures) put(field, offer.number(column));
  for (size_t i = 0; i < std::size(kTerms); ++i) put(kTerms[i], offer.text("DESC" + std::to_string(i + 1)));
  putDate(0, offer.date("VOUCH_DT"));
}
