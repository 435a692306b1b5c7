#include "vouchers/gstsapu.h"

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "frame/links.h"
#include "frame/session.h"
#include "vouchers/items.h"
#include "vouchers/numbering.h"

namespace {

constexpr const char* kCheck = "Mirav Check";
constexpr const char* kNoMoreLines = "00";
constexpr double kEWayLimit = 50000;

// Fields of the header, of the line, and of what is only shown.
constexpr int kHeadFields[] = {0,  4,  32, 47, 43, 62, 16, 29, 55, 42, 27,
                               41, 40, 45, 18, 1,  3,  20, 26, 38, 28, 2};
constexpr int kLineFields[] = {5, 6, 46, 7, 8, 9, 11, 12, 13, 10, 15, 19, 31, 14};

std::vector<WorkLines::Shown> shownColumns(const Book& book) {
  return {
      {book.serial},
      {"ITEM_CD"  },
      {"ITEM_NAME"},
      {"ITEM_DESC"},
      {"SIZE_CD"  },
      {"QUANTITY",  "0.000"},
      {"RATE"          },
      {"SALE_DISC"},
      {"CGSTRT"          },
      {"CGSTAMT"},
      {"SGSTRT"          },
      {"SGSTAMT"},
      {"IGSTRT"          },
      {"IGSTAMT"},
      {"NET_AMOUNT"          },
  };
}

}  // namespace

GSTSAPU::GSTSAPU(Host& theHost) : VoucherScreen(theHost, table(), saleBook(), shownColumns(saleBook())) {
  wire(*this, {
                  {"Text1(0)",      KeyCode::Enter,  &GSTSAPU::voucherNumber   },
                  {"MaskEdBox1(0)", KeyCode::Enter,  &GSTSAPU::voucherDate     },
                  {"Text1(4)",      KeyCode::Enter,  &GSTSAPU::party           },
                  {"Text1(32)",     KeyCode::Enter,  &GSTSAPU::shipTo          },
                  {"Text1(47)",     KeyCode::Enter,  &GSTSAPU::billType        },
                  {"Text1(43)",     KeyCode::Enter,  &GSTSAPU::billNumber      },
                  {"Text1(5)",      KeyCode::Enter,  &GSTSAPU::item            },
                  {"Text1(5)",      KeyCode::Insert, &GSTSAPU::newItem         },
                  {"Text1(5)",      KeyCode::Down,   &GSTSAPU::lineDown        },
                  {"Text1(5)",      KeyCode::Up,     &GSTSAPU::lineUp          },
                  {"Text1(5)",      KeyCode::PgDn,   &GSTSAPU::endLines        },
                  {"Text1(5)",      KeyCode::F10,    &GSTSAPU::deleteLine      },
                  {"Text1(6)",      KeyCode::Enter,  &GSTSAPU::itemName        },
                  {"Text1(6)",      On::Leave,       &GSTSAPU::keepFreeName    },
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
                  {"Text1(42)",     KeyCode::Enter,  &GSTSAPU::transport       },
                  {"Text1(41)",     KeyCode::Enter,  &GSTSAPU::destination     },
                  {"Text1(45)",     KeyCode::Enter,  &GSTSAPU::parcels         },
                  {"CMDSAVE",       On::Click,       &GSTSAPU::save            },
                  {"",              KeyCode::F6,     &GSTSAPU::partyRatesKey   },
                  {"",              KeyCode::F7,     &GSTSAPU::purchaseRatesKey},
  });
  wireLookups(lookups());
}

std::string GSTSAPU::tutorial() const { return links().saleVideo; }

// Header fields

void GSTSAPU::startNew() {
  const double next = lastVoucher(data(), book_).number + 1;
  put(0, next);
  put(62, next);
  put(2, book_.code);
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
  takeState(*account);
  at("Label1", 54).text = partyLines(*account);
  if (mode != "ADD") return true;
  put(41, cut(account->area, text1(41).limit));
  put(47, "TAX");
  if (account->creditDays) put(27, *account->creditDays);
  if (const auto id = findTransporter(data(), trimmed(42))) put(55, *id);
  return true;
}

Go GSTSAPU::shipTo() {
  if (trimmed(32).empty()) return helpHere();
  return acceptShipTo() ? Go::On : Go::Stay;
}

bool GSTSAPU::acceptShipTo() {
  if (findAccount(32, "Text3")) return true;
  put(32, "");
  set(at("Text3"), "");
  return false;
}

Go GSTSAPU::billType() {
  if (trimmed(47).empty()) return helpHere();
  if (mode == "ADD") put(43, nextBillNumber(data(), book_, trimmed(47)));
  return Go::On;
}

Go GSTSAPU::billNumber() {
  if (trimmed(43).empty()) {
    host.message("Blank Bill Number Not Allowed");
    return Go::Stay;
  }
  if (!isDuplicateBill(data(), book_, trimmed(47), trimmed(43), value(0))) return Go::On;
  host.message("Duplicate Bill No Not Allowed");
  return Go::Stay;
}

// The line

bool GSTSAPU::isMisc() const { return sameText(trimmed(5), kMiscItem); }

Go GSTSAPU::item() {
  const std::string code = trimmed(5);
  if (code.empty()) return helpHere();
  if (code == kNoMoreLines) {
    put(5, "");
    endLines();
    return Go::Stay;
  }
  text1(6).enabled = isMisc();
  const auto found = readSaleItem(data(), code);
  if (!found) {
    host.message("Check Item Code");
    put(5, "");
    text1(6).enabled = false;
    return Go::Stay;
  }
  if (!isMisc()) put(6, found->name);
  fillRates(found->rateOfTax);
  put(7, found->unit);
  if (!fillFromUnit()) host.message("Check Unit For This Item in Item Master");
  focus(text1(46));
  return Go::Stay;
}

void GSTSAPU::fillRates(const std::optional<double>& rateOfTax) {
  const auto texts = splitTax(Val(session().mstatecd), partyState_, rateOfTax);
  if (!texts) {
    host.message("SPECIFY RATE OF TAX IN ITEM");
    return;
  }
  put(12, texts->cgst);
  put(10, texts->sgst);
  put(19, texts->igst);
}

// Rate and discount of the unit, where none has been typed; false when the item lacks the unit.
bool GSTSAPU::fillFromUnit() {
  if (isMisc()) return true;
  const auto rates = readUnit(data(), trimmed(5), trimmed(7));
  if (!rates) return false;
  if (rates->rate > 0 && value(9) == 0) put(9, rates->rate);
  if (rates->discount > 0 && value(11) == 0) put(11, rates->discount);
  return true;
}

Go GSTSAPU::itemName() { return trimmed(6).empty() ? helpHere() : Go::On; }

// A stored line has no column for a free name: it is kept, and printed, as the line's detail.
void GSTSAPU::keepFreeName() {
  if (isMisc() && trimmed(46).empty()) put(46, cut(trimmed(6), text1(46).limit));
}

Go GSTSAPU::unit() {
  if (trimmed(7).empty()) return helpHere();
  if (fillFromUnit()) return Go::On;
  host.message("Check unit for this item");
  return Go::Stay;
}

void GSTSAPU::quantity() { put(8, quantityText(typed(8))); }

void GSTSAPU::rate() {
  put(9, value(9));
  valueLine();
}

Go GSTSAPU::discount() {
  put(11, value(11));
  if (discountRefused(value(11))) {
    host.message("Discount can not be greater than 100%");
    put(11, "");
    return Go::Stay;
  }
  valueLine();
  line_.tax({value(12), value(10), value(19)});
  put(13, line_.amounts.cgst);
  put(15, line_.amounts.sgst);
  put(31, line_.amounts.igst);
  showNet();
  focus(text1(14));
  return Go::Stay;
}

// A rate typed by hand gives its amount, on the value last worked out.
Go GSTSAPU::taxRate() {
  struct Pair {
    int rate, amount;
    double Taxes::*tax;
  };
  for (const Pair p : {
           Pair{12, 13, &Taxes::cgst},
           {10, 15, &Taxes::sgst},
           {19, 31, &Taxes::igst}
  }) {
    if (here().index != p.rate) continue;
    line_.rates.*p.tax = value(p.rate);
    line_.amounts.*p.tax = line_.taxAt(value(p.rate));
    put(p.amount, line_.amounts.*p.tax);
    focus(text1(p.amount));
  }
  return Go::Stay;
}

// An amount typed by hand stands.
Go GSTSAPU::taxAmount() {
  valueLine();
  line_.take(typedTaxes());
  showNet();
  focus(text1(here().index == 13 ? 10 : here().index == 15 ? 19 : 14));
  return Go::Stay;
}

void GSTSAPU::valueLine() {
  line_.value(value(8), value(9), value(11));
  at("Label1", 31).text = Format(line_.assess, "0.00");
  showNet();
  const BillTotal preview = billPreview(value(18), {value(1), value(3), value(20)});
  put(38, preview.roundOff);
  put(28, preview.amount);
}

void GSTSAPU::showNet() { put(14, line_.shownNet()); }

Go GSTSAPU::amount() {
  if (trimmed(5).empty() || trimmed(7).empty()) {
    focus(text1(5));
    return Go::Stay;
  }
  session().mlastitem = trimmed(5);
  storeLine();
  return Go::Stay;
}

Fields GSTSAPU::lineFields() {
  const Session& s = session();
  const Moment now = host.now();
  Fields line = {
      {"VOUCH_NO",   value(0)                   },
      {"VOUCH_DT",   date(0)                    },
      {"VOUCH_TIME", Clock{now.hour, now.minute}},
      {"BOOK_CD",    book_.code                 },
      {"SR_NO",      lines_->serial()           },
      {"ITEM_CD",    trimmed(5)                 },
      {"ITEM_NAME",  trimmed(6)                 },
      {"SIZE_CD",    typed(7)                   },
      {"QUANTITY",   value(8)                   },
      {"RATE",       value(9)                   },
      {"SALE_DISC",  value(11)                  },
      {"AMOUNT",     storedAmount(value(8),       value(9), value(11))},
      {"NET_AMOUNT",  value(14)                            },
      {"ORDER_NO",  value(16)},
      {"ITEM_DESC",  trimmed(46)                            },
      {"CHLN_DT",date(0)},
      {"BLTYPE",      "TAX"                                  },
      {"CGSTRT",  value(12)},
      {"SGSTRT",  value(10)                                  },
      {"IGSTRT",  value(19)},
      {"CGSTAMT",  value(13)                                  },
      {"SGSTAMT",  value(15)},
      {"IGSTAMT",  value(31)                                  },
      {"GSTPOST",  1},
      {"DEPT_CD",          "E001"                                          },
      {"MOBNOCO",s.mmobile},
      {"DATANM",       s.mdataname                                                    },
      {"DATASENT","N"},
  };
  for (const char* column : {"ITEM_SNAME", "MFG_DT", "EXP_DT", "YOUR_REF", "CUR_NM"})
    line.push_back({column, "."});
  for (const char* column : {"SALE_DISC1", "TAX_CD", "TAX_RT", "TAX_AMT", "VAT_AMT", "BRKRG", "DESC1",
                             "CESS_PERC1", "CESS_AMT1", "CUR_RT", "CUR_ITM_RT", "CUR_AMT", "DISC3", "DISC4"})
    line.push_back({column, 0});
  return line;
}

void GSTSAPU::showLine(const Row& line) {
  put(5, line.text("ITEM_CD"));
  put(6, line.text("ITEM_NAME"));
  text1(6).enabled = isMisc();
  put(46, line.text("ITEM_DESC"));
  put(7, line.text("SIZE_CD"));
  put(8, quantityText(line.text("QUANTITY")));
  put(9, line.number("RATE"));
  put(11, line.number("SALE_DISC"));
  put(12, line.number("CGSTRT"));
  put(13, line.number("CGSTAMT"));
  put(10, line.number("SGSTRT"));
  put(15, line.number("SGSTAMT"));
  put(19, line.number("IGSTRT"));
  put(31, line.number("IGSTAMT"));
  put(14, line.number("NET_AMOUNT"));
}

void GSTSAPU::clearLine() {
  for (const int n : kLineFields) put(n, "");
  text1(6).enabled = false;
  line_ = {};
  at("Label1", 31).text = "0.00";
}

// A column that sums to nothing leaves its field as it is.
void GSTSAPU::sumLines() {
  const auto sums = data().first(
      "SELECT SUM(AMOUNT), SUM(QUANTITY), SUM(CGSTAMT), SUM(SGSTAMT), SUM(IGSTAMT) FROM T_SLITM");
  constexpr int kTotals[] = {18, 26, 1, 3, 20};
  for (int i = 0; i < 5; ++i)
    if (!sums->isNull(i)) put(kTotals[i], Round(sums->number(i), 2));
  const BillTotal total = billTotal(value(18), {value(1), value(3), value(20)});
  put(28, total.amount);
  put(38, total.roundOff);
}

// Foot

Go GSTSAPU::transport() {
  const std::string name = trimmed(42);
  if (name.empty()) return helpHere();
  const auto id = findTransporter(data(), name);
  put(55, id ? *id : addTransporter(data(), name));
  return Go::On;
}

Go GSTSAPU::destination() { return trimmed(41).empty() ? helpHere() : Go::On; }

// Saving and loading

void GSTSAPU::save() {
  const bool complete = value(0) != 0 && !trimmed(2).empty() && !trimmed(4).empty() && date(0);
  if (!complete || !readAccount(data(), trimmed(4))) {
    host.message("Invalid Entry", kCheck);
    return;
  }
  if (!entering()) {
    cancel();
    return;
  }
  const Session& s = session();
  const SaveStamp stamp{host.now(), s.musername, s.mmobile, s.mdataname};
  if (!saveBill(data(), book_, header(), stamp, mode == "ADD" ? Saving::Fresh : Saving::Again)) {
    host.message("ITEM ALLREADY EXIST");
    return;
  }
  saved(closingWords());
}

BillHeader GSTSAPU::header() const {
  return {.number = value(0),
          .date = *date(0),
          .party = typed(4),
          .shipTo = typed(32),
          .billType = typed(47),
          .billNumber = typed(43),
          .orderNumber = typed(16),
          .challanNumber = value(62),
          .narration = typed(29),
          .transportId = value(55),
          .transport = typed(42),
          .destination = typed(41),
          .lrNumber = typed(40),
          .parcels = typed(45),
          .creditDays = value(27),
          .lrDate = date(1),
          .items = value(18),
          .quantity = value(26),
          .cgst = value(1),
          .sgst = value(3),
          .igst = value(20),
          .roundOff = value(38),
          .amount = value(28)};
}

std::string GSTSAPU::closingWords() const {
  return savedText({
      .head = "Sale Entry Saved",
      .facts = {{"Entry No : ", typed(0)},
                {"Party Name : ", at("Text2").text},
                {"Invoice AMOUNT : ", typed(28)}},
      .eWayReminder = value(28) > kEWayLimit,
      .hints = {"Press Print Btn To Print Sales Invoice",                         "Press New Entry Btn To Enter New Bill Entry"}
  });
}

bool GSTSAPU::load(double number) {
  if (!hasBills(data(), book_)) {
    host.message("No Record To Display");
    cancel();
    return false;
  }
  const auto bill = findBill(data(), book_, number);
  if (!bill) {
    host.message("ENTRY NOT FOUND");
    return false;
  }
  lineGrid().visible = true;
  loadLines(data(), book_, number);
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
  put(62, "");
  putDate(0, bill.date("VOUCH_DT"));
  putDate(1, bill.date("GR_DATE"));
}

void GSTSAPU::clearHead() {
  for (const int n : kHeadFields) put(n, "");
  set(at("Text2"), "");
  set(at("Text3"), "");
  at("Label1", 54).text.clear();
  putDate(0, std::nullopt);
  putDate(1, std::nullopt);
  partyState_ = 0;
}

// The rate grid

void GSTSAPU::rateHints() { showRates(latestSales(data(), book_, rateQuery())); }

void GSTSAPU::earlierSalesKey() { showRates(earlierSales(data(), book_, rateQuery())); }

void GSTSAPU::partyRatesKey() { showRates(partyRates(data(), rateQuery())); }

void GSTSAPU::purchaseRatesKey() { showRates(purchaseRates(data(), rateQuery())); }
