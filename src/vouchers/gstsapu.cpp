#include "vouchers/gstsapu.h"

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "frame/session.h"
#include "platform/edit.h"
#include "vouchers/items.h"
#include "vouchers/numbering.h"

namespace {

constexpr const char* kCheck = "Mirav Check";
constexpr double kEWayLimit = 50000;

// Fields of the header and of what is only shown.
constexpr int kHeadFields[] = {0,  4,  32, 47, 43, 62, 16, 29, 55, 42, 27,
                               41, 40, 45, 18, 1,  3,  20, 26, 38, 28, 2};

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
    : VoucherScreen(theHost, table(kind), kind, shownColumns(kind)) {
  wire(*this, {
                  {"Text1(0)",      KeyCode::Enter,  &GSTSAPU::voucherNumber   },
                  {"MaskEdBox1(0)", KeyCode::Enter,  &GSTSAPU::voucherDate     },
                  {"Text1(4)",      KeyCode::Enter,  &GSTSAPU::party           },
                  {"Text1(32)",     KeyCode::Enter,  &GSTSAPU::shipTo          },
                  {"Text1(47)",     KeyCode::Enter,  &GSTSAPU::billType        },
                  {"Text1(43)",     KeyCode::Enter,  &GSTSAPU::billNumber      },
                  {"MaskEdBox1(2)", On::Focus,       &GSTSAPU::fillPartyDate   },
                  {"Text1(5)",      KeyCode::Enter,  &GSTSAPU::item            },
                  {"Text1(5)",      KeyCode::Insert, &GSTSAPU::newItem         },
                  {"Text1(5)",      KeyCode::Down,   &GSTSAPU::lineDown        },
                  {"Text1(5)",      KeyCode::Up,     &GSTSAPU::lineUp          },
                  {"Text1(5)",      KeyCode::PgDn,   &GSTSAPU::endLines        },
                  {"Text1(5)",      KeyCode::F10,    &GSTSAPU::deleteLine      },
                  {"Text1(6)",      KeyCode::Enter,  &GSTSAPU::itemName        },
                  {"Text1(6)",      On::Leave,       &GSTSAPU::nameLeft        },
                  {"Text1(7)",      KeyCode::Enter,  &GSTSAPU::unit            },
                  {"Text1(8)",      KeyCode::Enter,  &GSTSAPU::quantity        },
                  {"Text1(9)",      KeyCode::Enter,  &GSTSAPU::rate            },
                  {"Text1(9)",      On::Focus,       &GSTSAPU::rateHints       },
                  {"Text1(9)",      KeyCode::F4,     &GSTSAPU::earlierSalesKey },
                  {"Text1(11)",     KeyCode::Enter,  &GSTSAPU::discount        },
                  {"Text1(12)",     KeyCode::Enter,  &GSTSAPU::taxRate         },
                  {"Text1(10)",     KeyCode::Enter,  &GSTSAPU::taxRate         },
                  {"Text1(19)",     KeyCode::Enter,  &GSTSAPU::taxRate         },
                  {"Text1(13)",     KeyCode::Enter,  &GSTSAPU::taxAmount       },
                  {"Text1(15)",     KeyCode::Enter,  &GSTSAPU::taxAmount       },
                  {"Text1(31)",     KeyCode::Enter,  &GSTSAPU::taxAmount       },
                  {"Text1(12)",     On::Leave,       &GSTSAPU::unlock          },
                  {"Text1(10)",     On::Leave,       &GSTSAPU::unlock          },
                  {"Text1(19)",     On::Leave,       &GSTSAPU::unlock          },
                  {"Text1(13)",     On::Leave,       &GSTSAPU::unlock          },
                  {"Text1(15)",     On::Leave,       &GSTSAPU::unlock          },
                  {"Text1(31)",     On::Leave,       &GSTSAPU::unlock          },
                  {"Text1(14)",     KeyCode::Enter,  &GSTSAPU::amount          },
                  {"Text1(14)",     On::Leave,       &GSTSAPU::lock            },
                  {"Text1(55)",     KeyCode::Enter,  &GSTSAPU::transportId     },
                  {"Text1(42)",     KeyCode::Enter,  &GSTSAPU::transport       },
                  {"Text1(41)",     KeyCode::Enter,  &GSTSAPU::destination     },
                  {"Text1(45)",     KeyCode::Enter,  &GSTSAPU::parcels         },
                  {"CMDSAVE",       On::Click,       &GSTSAPU::save            },
                  {"",              KeyCode::F6,     &GSTSAPU::partyRatesKey   },
                  {"",              KeyCode::F7,     &GSTSAPU::purchaseRatesKey},
  });
  wireLookups(lookups(kind));
}

// Header fields

void GSTSAPU::startNew() {
  const double next = lastVoucher(data(), kind_).number + 1;
  put(0, next);
  if (kind_.numbering.runsOn) put(62, next);
  put(2, kind_.code);
  putDate(0, host.today());
  putDate(1, host.today());
  for (const int n : {13, 15, 31}) text1(n).locked = true;
  focus(at("MaskEdBox1", 0));
}

Go GSTSAPU::voucherNumber() { return trimmed(0).empty() ? helpHere() : number(); }

// A text that is no date goes nowhere.
Go GSTSAPU::voucherDate() {
  const auto typedDate = date(0);
  if (!typedDate) return Go::Stay;
  const std::string refusal = periodRefusal(*typedDate);
  if (refusal.empty()) return Go::On;
  host.message(refusal);
  return Go::Stay;
}

Go GSTSAPU::party() {
  if (trimmed(4).empty()) return helpHere();
  return acceptParty() ? Go::On : Go::Stay;
}

bool GSTSAPU::acceptParty() {
  const auto account = findAccount(4, "Text2");
  if (!account) return false;
  session().mlastacc = trimmed(4);
  phone_ = account->phone;
  takeState(*account);
  at("Label1", 54).text = partyLines(*account);
  if (mode != "ADD") return true;
  if (kind_.dispatched) put(41, cut(account->area, text1(41).limit));
  put(47, "TAX");
  if (account->creditDays) put(27, *account->creditDays);
  if (const auto id = findTransporter(data(), trimmed(42))) put(55, *id);
  return true;
}

Go GSTSAPU::shipTo() {
  if (trimmed(32).empty()) return helpHere();
  if (acceptShipTo()) return Go::On;
  textChanged();
  return Go::Stay;
}

bool GSTSAPU::acceptShipTo() {
  if (findAccount(32, "Text3")) return true;
  put(32, "");
  set(at("Text3"), "");
  return false;
}

Go GSTSAPU::billType() {
  if (trimmed(47).empty()) return helpHere();
  if (mode == "ADD" && kind_.numbering.runsOn) put(43, nextBillNumber(data(), kind_, trimmed(47)));
  return Go::On;
}

Go GSTSAPU::billNumber() {
  if (trimmed(43).empty()) {
    host.message("Blank Bill Number Not Allowed");
    return Go::Stay;
  }
  if (!isDuplicateBill(data(), kind_, {trimmed(4), trimmed(47), trimmed(43), value(0)})) return Go::On;
  host.message("Duplicate Bill No Not Allowed");
  return Go::Stay;
}

// The party's own date starts from that of the voucher.
void GSTSAPU::fillPartyDate() {
  if (date(2)) return;
  putDate(2, date(0));
  edit::selectAll(here());
}

// Foot

Go GSTSAPU::transport() {
  const std::string name = trimmed(42);
  if (name.empty()) return helpHere();
  const auto id = findTransporter(data(), name);
  put(55, id ? *id : addTransporter(data(), name));
  return Go::On;
}

Go GSTSAPU::transportId() {
  const auto name = transporterName(data(), value(55));
  if (name) put(42, *name);
  if (!name) host.message("Trnasport Name Not ADDed In Transport Master");
  return name ? Go::On : Go::Stay;
}

Go GSTSAPU::destination() { return trimmed(41).empty() ? helpHere() : Go::On; }

// Saving and loading

void GSTSAPU::save() {
  const bool complete = value(0) != 0 && !trimmed(2).empty() && !trimmed(4).empty() && date(0);
  if (!complete || !readAccount(data(), trimmed(4))) {
    host.message("Invalid Entry", kCheck);
    return;
  }
  store([this](const SaveStamp& stamp, Saving how) { return saveBill(data(), kind_, header(), stamp, how); });
}

std::optional<Date> GSTSAPU::partyDate() const {
  if (kind_.words.billDate.empty()) return std::nullopt;
  return date(2) ? date(2) : date(0);
}

BillHeader GSTSAPU::header() const {
  return {.number = value(0),
          .date = *date(0),
          .party = textOf(4),
          .shipTo = textOf(32),
          .billType = textOf(47),
          .billNumber = textOf(43),
          .orderNumber = textOf(16),
          .challanNumber = value(62),
          .narration = textOf(29),
          .transportId = value(55),
          .transport = textOf(42),
          .destination = textOf(41),
          .lrNumber = textOf(40),
          .parcels = textOf(45),
          .creditDays = value(27),
          .lrDate = date(1),
          .partyDate = partyDate(),
          .items = value(18),
          .quantity = value(26),
          .cgst = value(1),
          .sgst = value(3),
          .igst = value(20),
          .roundOff = value(38),
          .amount = value(28)};
}

SavedMessage GSTSAPU::closingMessage() const {
  return {
      .head = kind_.words.savedHead,
      .facts = {{"Entry No", textOf(0)}, {"Party Name", at("Text2").text}, {"Invoice AMOUNT", textOf(28)}},
      .eWayReminder = kind_.dispatched && value(28) > kEWayLimit,
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
  lineGrid().visible = true;
  loadLines(data(), kind_, number);
  lines_->requery();
  showHeader(*bill);
  acceptParty();
  if (!trimmed(32).empty()) acceptShipTo();
  showCurrentLine();
  return true;
}

void GSTSAPU::showHeader(const Row& bill) {
  struct Shown {
    int field;
    const char* column;
  };
  // The challan number is not among these: a modify stores it as 0.
  constexpr Shown kTexts[] = {
      {43, "BILL_NO"  },
      {47, "BL_TYPE"  },
      {2,  "BOOK_CD"  },
      {4,  "PARTY_CD" },
      {32, "CASH_CD"  },
      {16, "ORDER_NO" },
      {29, "NARRATION"},
      {40, "GR_NO"    },
      {41, "DESTI"    },
      {42, "TRANSPORT"},
      {45, "PARCLE"   }
  };
  constexpr Shown kFigures[] = {
      {0,  "VOUCH_NO"  },
      {18, "ITEM_AMT"  },
      {26, "NO_OF_ITEM"},
      {27, "CR_DAYS"   },
      {28, "NET_AMT"   },
      {38, "ROUND_OFF" },
      {1,  "TCGSTRT"   },
      {3,  "TSGSTRT"   },
      {20, "TIGSTRT"   },
      {55, "TRANS_CD"  }
  };
  for (const auto& [field, column] : kTexts) put(field, bill.text(column));
  for (const auto& [field, column] : kFigures) put(field, bill.number(column));
  putDate(0, bill.date("VOUCH_DT"));
  putDate(1, bill.date("GR_DATE"));
  putDate(2, bill.date("PRV_BDT"));
}

void GSTSAPU::clearHead() {
  for (const int n : kHeadFields) put(n, "");
  set(at("Text2"), "");
  set(at("Text3"), "");
  at("Label1", 54).text.clear();
  phone_.clear();
  for (const int n : {0, 1, 2}) putDate(n, std::nullopt);
  partyState_ = 0;
}
