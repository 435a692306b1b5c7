#include "base/text.h"
#include "frame/session.h"
#include "frame/settling.h"
#include "masters/accounts.h"
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

void VoucherScreen::save() {
  if (!entering()) {
    cancel();
    return;
  }
  const Numbers shown = numbers();
  if (!readyToSave()) return;
  // The number was changed after its voucher was shown: that one is shown before anything is written.
  if (mode == "EDIT" && value(kNumber) != loaded_)
    focus(at(number() == Go::On ? kDate : kNumber));
  else if (!meansNothing() && mayStandSmaller())
    store(shown);
}

bool VoucherScreen::readyToSave() {
  if (!workFields(Part::Head) || !storeTypedLine()) return false;
  sumAgain();
  if (tooLarge(Part::Head)) return false;
  focus(at("CMDSAVE"));
  if (!complete()) {
    host.message("Invalid Entry", kCheck);
    return false;
  }
  if (checkPaperNumber() == Go::On) return mayBeSaved();
  focus(at(paperNumber()));
  return false;
}

bool VoucherScreen::paperNumberGiven() const {
  const Control& paper = at(paperNumber());
  return mode == "ADD" && paper.given && !trim(paper.text).empty();
}

bool VoucherScreen::paperNumberFree() {
  if (!paperNumberTaken()) return true;
  if (!paperNumberGiven()) return false;
  renumber();
  return !paperNumberTaken();
}

Go VoucherScreen::refuseTaken(const std::string& message) {
  host.message(message);
  stepOverTaken();
  return Go::Stay;
}

// A series that goes on from its last voucher can run into numbers that stand further down in it, where
// several write at once or one was typed.
bool VoucherScreen::stepOverTaken() {
  constexpr int kMost = 1000;
  if (!paperNumberGiven()) return false;
  for (int n = 0; n < kMost && paperNumberTaken(); ++n)
    put(paperNumber(), paperNumberAfter(trimmed(paperNumber())));
  return !paperNumberTaken();
}

bool VoucherScreen::complete() const {
  return value(kNumber) != 0 && date(kDate) && (!needsParty() || hasParty());
}

bool VoucherScreen::hasParty() const {
  return !trimmed(kParty).empty() && accountExists(data(), trimmed(kParty));
}

// In the order of the walk; the first that refuses its text takes the focus. Of a line whose figures are
// worked out, or typed, for what it holds none is worked out anew.
bool VoucherScreen::workFields(Part part) {
  const bool figured = part == Part::Line && lineFigured();
  const auto stands = [&](const Control& c) {
    return c.spec->field == kAmount ||
           (figured && c.spec->holds == Holds::Figure && c.spec->field != kQuantity);
  };
  for (const auto& c : controls) {
    if (c->ofLine() != (part == Part::Line) || stands(*c) || work(*c)) continue;
    focus(*c);
    return false;
  }
  return true;
}

bool VoucherScreen::lineStands() const { return trimmed(lineKey()).empty() || lineTexts() == shownLine_; }

// A line that stands in the entry row otherwise than in the list would be lost.
bool VoucherScreen::storeTypedLine() {
  if (lineStands()) return true;
  if (!workFields(Part::Line) || !lineComplete()) return false;
  return closeLine() == Go::Stay && lineTexts() == shownLine_;
}

bool VoucherScreen::lineComplete() {
  const bool lacksUnit = needsUnit() && trimmed(kUnit).empty();
  if (!lacksUnit && (!needsQuantity() || value(kQuantity) != 0)) return true;
  host.message("The Line Being Typed Is Not Complete\nComplete It, Or Empty Its Item", kCheck);
  focus(at(lacksUnit ? kUnit : kQuantity));
  return false;
}

bool VoucherScreen::meansNothing() {
  const bool noParty = !needsParty() && !hasParty(), noLine = lines_->count() == 0;
  if (!noParty && !noLine && value(kNetAmount) != 0) return false;
  if (host.ask({.text = noParty  ? english("This Voucher Has No Party\nSave It All The Same ?")
                        : noLine ? english("This Voucher Has No Line\nSave It All The Same ?")
                                 : english("The Amount Of This Voucher Is 0\nSave It All The Same ?"),
                .title = kConfirm,
                .yes = english("&Yes, Save It"),
                .no = english("&No, Back To The Voucher"),
                .loses = true}))
    return false;
  if (noParty) focus(at(kParty));
  return true;
}

// Money that settles it would be left over.
bool VoucherScreen::mayStandSmaller() {
  if (mode != "EDIT" || !find(kNetAmount.text))
    return true;  // journals and contras name their parties line by line
  const auto question =
      settledQuestion(data(), {kind_.code, value(kNumber)}, trimmed(kParty), value(kNetAmount));
  return !question || host.ask(*question);
}

VoucherScreen::Numbers VoucherScreen::numbers() const { return {text(kNumber), text(paperNumber())}; }

// Of a new voucher, inside of its save: for what another program has taken since it was shown. False where a
// number on the paper that was typed is taken.
bool VoucherScreen::takeFreeNumbers() {
  if (isStored(data(), kind_, value(kNumber))) {
    put(kNumber, lastVoucher(data(), kind_).number + 1);
    renumber();
  }
  return paperNumberFree() || stepOverTaken();
}

void VoucherScreen::tellNumbers(const Numbers& shown) {
  const Numbers now = numbers();
  std::vector<std::string> told;
  if (now.voucher != shown.voucher)
    told.push_back(takenWords(words("Voucher No"), shown.voucher, now.voucher));
  if (!shown.paper.empty() && now.paper != shown.paper)
    told.push_back(takenWords(words(at(paperNumber()).label), shown.paper, now.paper));
  if (!told.empty()) host.message(join(told, "\n"));
}

// What is not stored keeps the numbers that the person has seen; one that the save itself has given stays.
void VoucherScreen::showAgain(const Numbers& shown) {
  if (text(kNumber) != shown.voucher) put(kNumber, shown.voucher);
  if (!shown.paper.empty() && text(paperNumber()) != shown.paper) put(paperNumber(), shown.paper);
}

void VoucherScreen::store(const Numbers& shown) {
  const Session& s = session();
  const SaveStamp stamp{host.now(), s.musername, s.mmobile, s.mdataname};
  const bool fresh = mode == "ADD";
  const Saving changed = Saving::over(asLoaded_).unless([this] { return paperNumberTaken(); });
  bool written = false;
  try {
    written = whole(data(), [&] {
      return fresh ? takeFreeNumbers() && write(stamp, Saving::Fresh) : write(stamp, changed);
    });
  } catch (...) {
    showAgain(shown);
    throw;
  }
  if (written) {
    if (fresh) tellNumbers(shown);
    return saved();
  }
  showAgain(shown);
  if (!fresh && !paperNumberTaken()) return changedMeanwhile();
  if (checkPaperNumber() == Go::Stay) focus(at(paperNumber()));
}

// What was changed is shown as it stands, what was deleted comes back, each when that is meant alone.
void VoucherScreen::changedMeanwhile() {
  const double n = value(kNumber);
  if (isStored(data(), kind_, n)) {
    if (!host.ask(changedQuestion(data(), kind_, n, unsaved()))) return;
    takeVoucherAsShown();
    focus(at(number() == Go::On ? kDate : kNumber));
  } else if (host.ask(deletedQuestion(n))) {
    setMode("ADD", kind_.words.adding);
    store(numbers());
  }
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
