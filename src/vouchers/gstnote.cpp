#include "vouchers/gstnote.h"

#include <memory>
#include <stdexcept>

#include "base/number.h"
#include "base/pattern.h"
#include "frame/note_reasons.h"

using namespace fields;

namespace {

constexpr size_t kBilledColumn = 4, kBeforeColumn = 5, kQuantityColumn = 6;
constexpr Bgr kQuiet = 0x5A5647;

// clang-format off
std::vector<WorkLines::Shown> shownColumns(const VoucherKind& kind) {
  const std::string& serial = kind.tables.serial;
  return {{serial}, {"ITEM_CD"}, {"ITEM_NAME"}, {"SIZE_CD"}, {serial}, {serial},
          {"QUANTITY", "0.000"}, {"RATE"}, {"SALE_DISC"},
          {"CGSTRT"}, {"CGSTAMT"}, {"SGSTRT"}, {"SGSTAMT"}, {"IGSTRT"}, {"IGSTAMT"},
          {"NET_AMOUNT"}};
}
// clang-format on

// What was billed and has gone back before stands beside the lines; a line of which nothing goes back is
// quiet.
class NoteLines : public WorkLines {
 public:
  NoteLines(const VoucherKind& kind, const OriginalLines& originals)
      : WorkLines(data(), kind, shownColumns(kind)), originals_(originals) {}

  Cell cell(size_t row, size_t column) const override {
    Cell cell = WorkLines::cell(row, column);
    if (column == kBilledColumn || column == kBeforeColumn) {
      const auto line = originals_.find(Val(cell.text));
      const double figure = line == originals_.end()  ? 0
                            : column == kBilledColumn ? line->second.billed
                                                      : line->second.before;
      cell.text = figure == 0 ? "" : Format(figure, "0.000");
    }
    const bool nothing = Val(WorkLines::cell(row, kQuantityColumn).text) == 0;
    if (nothing) cell.fore = kQuiet;
    cell.bold = column == kQuantityColumn && !nothing;
    return cell;
  }

 private:
  const OriginalLines& originals_;
};

constexpr double kHair = 1e-6;  // of a quantity of three decimals

}  // namespace

GSTNOTE::GSTNOTE(Host& theHost, const VoucherKind& kind)
    : GSTSAPU(theHost, kind, table(kind), shownColumns(kind),
              {
                  {kOriginalBill, KeyCode::Enter, billsFor(kind, "", "")}
}) {
  lines_ = std::make_shared<NoteLines>(kind, originals_);
  at(kLines).grid.source = lines_;
  wire<GSTNOTE>(*this, {
                           {kOriginalBill, KeyCode::Enter,         &GSTNOTE::originalBill},
                           {kOriginalDate, On::Leave,              &GSTNOTE::keepDate    },
                           {kReason,       KeyCode::Enter,         &GSTNOTE::reason      },
                           {kReason,       On::Change,             &GSTNOTE::reasonTyped },
                           {kGoods,        KeyCode::Enter,         &GSTNOTE::goods       },
                           {kGoods,        On::Change,             &GSTNOTE::goodsTyped  },
                           {kQuantity,     KeyCode::Down,          &GSTNOTE::lineDown    },
                           {kQuantity,     KeyCode::Up,            &GSTNOTE::lineUp      },
                           {kQuantity,     KeyCode::PgDn,          &GSTNOTE::endLines    },
                           {kQuantity,     KeyCode::F6,            &GSTNOTE::wholeLine   },
                           {kQuantity,     Key::Ctrl(KeyCode::F6), &GSTNOTE::allLines    },
                           {kQuantity,     KeyCode::F7,            &GSTNOTE::rateInstead },
                           {kRate,         KeyCode::F7,            &GSTNOTE::rateInstead },
                           {kRate,         KeyCode::PgDn,          &GSTNOTE::endLines    },
  });
}

void GSTNOTE::startNew() {
  GSTSAPU::startNew();
  put(kChallanNumber, "");
  put(kReason, kind_.adjusts.reason);
  reasonTyped();
}

void GSTNOTE::clearHead() {
  GSTSAPU::clearHead();
  facts_ = {};
  originals_.clear();
  meant_.clear();
  billed_.clear();
  unnamed_ = byRate_ = false;
  at(kOriginalDate).enabled = false;
}

bool GSTNOTE::load(double number) {
  if (!GSTSAPU::load(number)) return false;
  facts_ = readNote(data(), kind_, number);
  originals_ = readOriginalLines(data(), kind_, number);
  for (const Original& bill : facts_.bills) {
    if (bill.voucher == 0) continue;
    addBillLines(data(), kind_, number, bill, originals_);
    billed_[bill.voucher] = asBilled(data(), bill);
  }
  readBefore(data(), kind_, number, originals_);
  // What is stored was meant.
  for (const Row& row : data().all("SELECT SR_NO, QUANTITY FROM T_SLITM WHERE QUANTITY <> 0"))
    meant_[row.number("SR_NO")] = row.number("QUANTITY");
  unnamed_ = facts_.bills.empty();
  if (facts_.reason != 0) put(kReason, facts_.reason);
  put(kReasonName, noteReason(facts_.reason));
  put(kGoods, facts_.goods ? 1 : 0);
  goodsTyped();
  byRate_ = facts_.reason == 2 || facts_.reason == 4;
  if (!unnamed_) showPanel(false);
  lines_->requery();
  showBills();
  showCurrentLine();
  return true;
}

// Reason and goods

Go GSTNOTE::reason() {
  if (!noteReason(static_cast<int>(value(kReason))).empty()) return Go::On;
  host.message("The Reason Is A Number From 1 To 5");
  return Go::Stay;
}

void GSTNOTE::reasonTyped() {
  const int chosen = static_cast<int>(value(kReason));
  put(kReasonName, noteReason(chosen));
  put(kGoods, reasonMovesGoods(chosen) ? 1 : 0);
  goodsTyped();
  byRate_ = chosen == 2 || chosen == 4;
  lockLine();
}

Go GSTNOTE::goods() {
  const std::string typed = trimmed(kGoods);
  if (typed == "0" || typed == "1") return Go::On;
  host.message("Type 1 Where Goods Move With This Note, Else 0");
  return Go::Stay;
}

void GSTNOTE::goodsTyped() {
  put(kGoodsName, words(value(kGoods) == 1 ? kind_.adjusts.moves : std::string(english("NO GOODS MOVE"))));
}

// Saving

bool GSTNOTE::mayBeSaved() {
  if (reason() == Go::Stay) {
    focus(at(kReason));
    return false;
  }
  if (goods() == Go::Stay) {
    focus(at(kGoods));
    return false;
  }
  if (!datesStand() || !mayHaveItsDay()) return false;
  if (facts_.bills.empty() && !unnamed_ &&
      !host.ask({.text = english("This Note Names No Bill\nSave It All The Same ?"),
                 .title = kConfirm,
                 .yes = english("&Yes, Save It"),
                 .no = english("&No, Name One"),
                 .loses = true})) {
    focus(at(kOriginalBill));
    return false;
  }
  unnamed_ = facts_.bills.empty();
  ensureNotes(data());
  ensureSupply(data());
  readBefore(data(), kind_, ownNumber(), originals_);
  for (const Row& row :
       data().all("SELECT SR_NO, QUANTITY FROM T_SLITM WHERE QUANTITY <> 0 ORDER BY SR_NO")) {
    const auto line = originals_.find(row.number("SR_NO"));
    if (line == originals_.end() || askTooMuch(line->first, line->second, row.number("QUANTITY"))) continue;
    toLine(line->first);
    return false;
  }
  return true;
}

void GSTNOTE::toLine(double serial) {
  for (size_t row = 0; row < lines_->count(); ++row) {
    lines_->moveTo(row);
    if (lines_->row().number(kind_.tables.serial) == serial) break;
  }
  showCurrentLine();
  focus(at(kQuantity));
}

// A note that is being typed is none of those stored, also where another takes its number meanwhile.
double GSTNOTE::ownNumber() const { return mode == "ADD" ? 0 : value(kNumber); }

bool GSTNOTE::write(const SaveStamp& stamp, const Saving& how) {
  facts_.reason = static_cast<int>(value(kReason));
  facts_.goods = value(kGoods) == 1;
  return whole(data(), [&] {
    for (const Original& bill : facts_.bills)
      if (const std::string now = bill.voucher == 0 ? "" : asBilled(data(), bill);
          !now.empty() && now != billed_[bill.voucher])
        throw std::runtime_error(
            words("Bill {bill} Has Been Changed Meanwhile\nTake It Out Of This Note And In Again To See What "
                  "It Says",
                  "bill", bill.number));
    OriginalLines now = originals_;
    readBefore(data(), kind_, ownNumber(), now);
    for (const auto& [serial, line] : now)
      if (line.before > originals_[serial].before + kHair)
        throw std::runtime_error(
            words("Another Note Took From This Bill Meanwhile\nSave Once More To See What Is Left"));
    if (!GSTSAPU::write(stamp, how)) return false;
    storeNote(data(), kind_, value(kNumber), facts_, originals_);
    return true;
  });
}

SavedMessage GSTNOTE::closingMessage() const {
  SavedMessage message = GSTSAPU::closingMessage();
  message.facts.back().name = english("Note AMOUNT");
  return message;
}
