#include "base/text.h"
#include "frame/session.h"
#include "vouchers/numbering.h"
#include "vouchers/voucher_screen.h"

// From the last field to the closing message.

using namespace fields;

namespace {

constexpr Bgr kPrintColour = 0xFFD0D0, kNewEntryColour = 0xFFF0F0;

}  // namespace

Go VoucherScreen::toSave() {
  if (entering()) {
    allowSave(true);
    focus(at("CMDSAVE"));
  } else {
    focus(at("cmdadd"));
  }
  return Go::Stay;
}

bool VoucherScreen::readyToSave() {
  if (!entering()) return true;
  if (numberTaken()) return false;
  if (!workFields(Part::Head) || !storeTypedLine()) return false;
  sumAgain();
  if (tooLarge(Part::Head)) return false;
  focus(at("CMDSAVE"));
  return true;
}

// In the order of the walk; the first that refuses its text takes the focus.
bool VoucherScreen::workFields(Part part) {
  for (const auto& c : controls) {
    if (c->ofLine() != (part == Part::Line) || c->spec->field == kAmount || work(*c)) continue;
    focus(*c);
    return false;
  }
  return true;
}

// A line that stands in the entry row otherwise than in the list would be lost.
bool VoucherScreen::storeTypedLine() {
  if (trimmed(kItem).empty() || lineTexts() == shownLine_) return true;
  if (!workFields(Part::Line)) return false;
  const bool lacksUnit = needsUnit() && trimmed(kUnit).empty();
  if (lacksUnit || value(kQuantity) == 0) {
    host.message("The Line Being Typed Is Not Complete\nComplete It, Or Empty Its Item", kCheck);
    focus(at(lacksUnit ? kUnit : kQuantity));
    return false;
  }
  return amount() == Go::Stay && lineTexts() == shownLine_;
}

// A voucher that says nothing is saved when it is meant so.
bool VoucherScreen::meansNothing() {
  if (lines_->count() == 0) return !host.ask("This Voucher Has No Line\nSave It All The Same ?", kConfirm);
  return value(kNetAmount) == 0 &&
         !host.ask("The Amount Of This Voucher Is 0\nSave It All The Same ?", kConfirm);
}

// Another program may have taken the number of a new voucher since it was set.
bool VoucherScreen::numberTaken() {
  if (mode != "ADD" || !isStored(data(), kind_, value(kNumber))) return false;
  takeNextNumber();
  return true;
}

void VoucherScreen::takeNextNumber() {
  const std::string taken = text(kNumber);
  put(kNumber, lastVoucher(data(), kind_).number + 1);
  renumber();
  host.message(takenWords(taken, text(kNumber)));
  focus(at("CMDSAVE"));
}

void VoucherScreen::store(const std::function<bool(const SaveStamp&, Saving)>& write) {
  if (!entering()) {
    cancel();
    return;
  }
  // The number was changed after its voucher was shown: that one is shown before anything is written.
  if (mode == "EDIT" && value(kNumber) != loaded_) {
    focus(at(number() == Go::On ? kDate : kNumber));
    return;
  }
  if (meansNothing()) return;
  const Session& s = session();
  const SaveStamp stamp{host.now(), s.musername, s.mmobile, s.mdataname};
  if (write(stamp, mode == "ADD" ? Saving::Fresh : Saving::Again))
    saved();
  else
    takeNextNumber();
}

void VoucherScreen::saved() {
  const std::string number = text(kNumber);
  at(kLines).visible = false;
  showButtons(true);
  focus(at("cmdadd"));
  if (drilledDown_) {
    host.close(*this);
    return;
  }
  // A voucher without a paper has nothing but the next one to go on with.
  const bool onPaper = !kind_.paper.key.empty();
  Interaction closing{.saved = closingMessage(),
                      .ok = onPaper ? english("Print") : english("New Entry"),
                      .cancel = onPaper ? english("New Entry") : "",
                      .okColour = onPaper ? kPrintColour : kNewEntryColour,
                      .cancelColour = kNewEntryColour,
                      .phone = phone_};
  const bool prints = interact(host, closing) && onPaper;
  clearAll();
  if (!prints) return;
  setMode("PRINT", kind_.words.printing);
  hideForPrint(number);
}
