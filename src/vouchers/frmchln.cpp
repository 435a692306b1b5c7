#include "vouchers/frmchln.h"

#include "base/number.h"
#include "base/text.h"
#include "frame/links.h"
#include "frame/session.h"
#include "vouchers/challan_amounts.h"
#include "vouchers/numbering.h"

namespace {

constexpr const char* kCheck = "Mirav Check";
constexpr int kHeadFields[] = {0, 4, 15, 23, 24, 29, 19, 20, 21, 1, 3, 11, 18, 26, 28, 2};

std::vector<WorkLines::Shown> shownColumns(const VoucherKind& kind) {
  return {{kind.tables.serial}, {"ITEM_CD"},  {"ITEM_NAME"}, {"ITEM_DESC"},
          {"SIZE_CD"},          {"QUANTITY"}, {"RATE"},      {"NET_AMOUNT"}};
}

}  // namespace

FRMCHLN::FRMCHLN(Host& theHost, const VoucherKind& kind)
    : VoucherScreen(theHost, table(), kind, shownColumns(kind)) {
  wire(*this, {
                  {"Text1(0)",      KeyCode::Enter,  &FRMCHLN::voucherNumber  },
                  {"MaskEdBox1(0)", KeyCode::Enter,  &FRMCHLN::voucherDate    },
                  {"Text1(4)",      KeyCode::Enter,  &FRMCHLN::party          },
                  {"Text1(23)",     KeyCode::Enter,  &FRMCHLN::challanType    },
                  {"Text1(24)",     KeyCode::Enter,  &FRMCHLN::challanNumber  },
                  {"Text1(5)",      KeyCode::Enter,  &FRMCHLN::item           },
                  {"Text1(5)",      KeyCode::Insert, &FRMCHLN::newItem        },
                  {"Text1(5)",      KeyCode::Down,   &FRMCHLN::lineDown       },
                  {"Text1(5)",      KeyCode::Up,     &FRMCHLN::lineUp         },
                  {"Text1(5)",      KeyCode::PgDn,   &FRMCHLN::endLines       },
                  {"Text1(5)",      KeyCode::F10,    &FRMCHLN::deleteLine     },
                  {"Text1(6)",      On::Leave,       &FRMCHLN::nameLeft       },
                  {"Text1(7)",      KeyCode::Enter,  &FRMCHLN::unit           },
                  {"Text1(7)",      KeyCode::Down,   &FRMCHLN::lineDown       },
                  {"Text1(7)",      KeyCode::Up,     &FRMCHLN::lineUp         },
                  {"Text1(8)",      KeyCode::Enter,  &FRMCHLN::quantity       },
                  {"Text1(9)",      KeyCode::Enter,  &FRMCHLN::rate           },
                  {"Text1(9)",      On::Focus,       &FRMCHLN::rateHints      },
                  {"Text1(14)",     KeyCode::Enter,  &FRMCHLN::amount         },
                  {"Text1(19)",     KeyCode::Enter,  &FRMCHLN::discountPercent},
                  {"Text1(20)",     KeyCode::Enter,  &FRMCHLN::showTotal      },
                  {"Text1(21)",     KeyCode::Enter,  &FRMCHLN::showTotal      },
                  {"Text1(11)",     KeyCode::Enter,  &FRMCHLN::destination    },
                  {"CMDSAVE",       On::Click,       &FRMCHLN::save           },
  });
  wireLookups(lookups(kind));
}

std::string FRMCHLN::tutorial() const { return links().challanVideo; }

// Header

void FRMCHLN::startNew() {
  put(0, lastVoucher(data(), kind_).number + 1);
  put(2, kind_.code);
  putDate(0, host.today());
  focus(at("MaskEdBox1", 0));
}

// At rest a number shows its challan.
Go FRMCHLN::voucherNumber() {
  if (trimmed(0).empty()) return helpHere();
  if (entering() || mode == "DEL") return number();
  return load(value(0)) ? Go::On : Go::Stay;
}

Go FRMCHLN::party() {
  if (trimmed(4).empty()) return helpHere();
  const auto account = findAccount(4, "Text2");
  if (!account) return Go::Stay;
  session().mlastacc = trimmed(4);
  showParty(*account);
  return Go::On;
}

// No tax, no state: where the party is, what it owes, how to reach it.
void FRMCHLN::showParty(const AccountFacts& p) {
  set(at("Text2"), p.name);
  at("Label1", 54).text =
      p.address1 + " " + p.address2 + " " + p.area + "\nBal : " + numText(p.balance) + "\n" + p.phone;
  phone_ = p.phone;
}

Go FRMCHLN::challanType() {
  if (trimmed(23).empty()) return helpHere();
  if (mode == "ADD") put(24, nextChallanNumber(data(), kind_, trimmed(23)));
  return Go::On;
}

Go FRMCHLN::challanNumber() {
  if (trimmed(24).empty()) {
    host.message("Can Not Accept Blank");
    return Go::Stay;
  }
  const auto changing = mode == "EDIT" ? std::optional(value(0)) : std::nullopt;
  if (!isDuplicateChallan(data(), kind_, trimmed(23), trimmed(24), changing)) return Go::On;
  host.message("Duplicate Challan Number Not Allowed");
  return Go::Stay;
}

// Totals

void FRMCHLN::discountPercent() { put(20, challanDiscount(value(18), value(19))); }

void FRMCHLN::showTotal() { put(28, challanNet(value(18), value(21), value(20))); }

// Saving and loading

void FRMCHLN::save() {
  if (value(0) == 0 || !date(0)) {
    host.message("Invalid Entry", kCheck);
    return;
  }
  store([this](const SaveStamp& stamp, Saving how) {
    return saveChallan(data(), kind_, header(), stamp, how);
  });
}

ChallanHeader FRMCHLN::header() const {
  return {.number = value(0),
          .date = *date(0),
          .party = textOf(4),
          .orderNumber = textOf(15),
          .type = textOf(23),
          .challanNumber = textOf(24),
          .narration = textOf(29),
          .discountPercent = value(19),
          .discount = value(20),
          .charges = value(21),
          .transport = textOf(1),
          .lrNumber = textOf(3),
          .destination = textOf(11),
          .items = value(18),
          .quantity = value(26),
          .amount = value(28)};
}

SavedMessage FRMCHLN::closingMessage() const {
  return {
      .head = kind_.words.savedHead,
      .facts = {{"Entry No", textOf(0)}, {"Party Name", at("Text2").text}, {"AMOUNT", textOf(28)}},
      .hints = {"Press Print Btn To Print Challan",                       "Press New Entry Btn To Enter New Bill Entry"                     },
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
  lineGrid().visible = true;
  loadChallanLines(data(), kind_, number);
  lines_->requery();
  showHeader(*challan);
  if (const auto account = readAccount(data(), trimmed(4))) showParty(*account);
  showCurrentLine();
  return true;
}

void FRMCHLN::showHeader(const Row& challan) {
  struct Shown {
    int field;
    const char* column;
  };
  constexpr Shown kTexts[] = {
      {2,  "BOOK_CD"  },
      {15, "ORDER_NO" },
      {23, "CHLN_TYP" },
      {24, "CHLN_NO"  },
      {4,  "PARTY_CD" },
      {1,  "TRANSPORT"},
      {3,  "GR_NO"    },
      {11, "DESTI"    },
      {29, "NARRATION"},
  };
  constexpr Shown kFigures[] = {
      {0,  "VOUCH_NO"  },
      {18, "ITEM_AMT"  },
      {26, "NO_OF_ITEM"},
      {19, "DISC_PERC" },
      {20, "DISC_AMT"  },
      {21, "CHRGS"     },
      {28, "NET_AMT"   },
  };
  for (const auto& [field, column] : kTexts) put(field, challan.text(column));
  for (const auto& [field, column] : kFigures) put(field, challan.number(column));
  putDate(0, challan.date("VOUCH_DT"));
}

void FRMCHLN::clearHead() {
  for (const int n : kHeadFields) put(n, "");
  set(at("Text2"), "");
  at("Label1", 54).text.clear();
  phone_.clear();
  putDate(0, std::nullopt);
}
