#include "documents/mymsgfrm.h"

#include "base/text.h"
#include "base/words.h"
#include "frame/routines.h"

namespace {

constexpr double kWidth = 480, kHeight = 394, kReminder = 86, kTyping = 36;
constexpr int kFacts = 3, kHints = 2;

// clang-format off
ScreenSpec tableOf(bool pair) {
  const std::vector<Length> buttons =
      pair ? std::vector{part(1), px(150), px(150), part(1)} : std::vector{part(1), px(150), part(1)};
  return {
      .name = "mymsgfrm",
      .caption = "Mirav Interaction",
      .window = Window::Dialog,
      .layout = {
          .bands = {
              {fit(),   {{.name = "head",    .frame = Frame::Plain, .pitch = 34}}},
              {fit(),   {{.name = "facts",   .frame = Frame::Plain, .columns = {px(126), part(1)}, .pitch = 28}}},
              {part(1), {{.name = "middle",  .frame = Frame::Plain, .columns = {part(1), px(116)}, .pitch = 28}}},
              {fit(),   {{.name = "hints",   .frame = Frame::Plain, .pitch = 20}}},
              {px(38),  {{.name = "buttons", .frame = Frame::Plain, .columns = buttons, .pitch = 36}}},
          },
          .width = kWidth, .height = kHeight, .margin = 22, .gap = 10},
      .controls = {
          {.name = "Label1",       .kind = Kind::Label,  .visible = false},
          {.name = "lblhead",      .kind = Kind::Label,  .at = {.group = "head"}, .align = Align::Centre, .style = Style::Head},
          {.name = "lblname",      .index = 0, .kind = Kind::Label, .at = {.group = "facts", .row = 0, .col = 0}, .align = Align::Right, .style = Style::Quiet},
          {.name = "lblvalue",     .index = 0, .kind = Kind::Label, .at = {.group = "facts", .row = 0, .col = 1}, .style = Style::Primary},
          {.name = "lblname",      .index = 1, .kind = Kind::Label, .at = {.group = "facts", .row = 1, .col = 0}, .align = Align::Right, .style = Style::Quiet},
          {.name = "lblvalue",     .index = 1, .kind = Kind::Label, .at = {.group = "facts", .row = 1, .col = 1}, .style = Style::Primary},
          {.name = "lblname",      .index = 2, .kind = Kind::Label, .at = {.group = "facts", .row = 2, .col = 0}, .align = Align::Right, .style = Style::Quiet},
          {.name = "lblvalue",     .index = 2, .kind = Kind::Label, .at = {.group = "facts", .row = 2, .col = 1}, .style = Style::Figure},
          {.name = "lblreminder",  .kind = Kind::Label,  .at = {.group = "middle", .span = 2, .rows = 3}, .visible = false, .align = Align::Centre, .style = Style::Warn},
          {.name = "lblhint",      .index = 0, .kind = Kind::Label, .at = {.group = "hints", .row = 0}, .style = Style::Quiet},
          {.name = "lblhint",      .index = 1, .kind = Kind::Label, .at = {.group = "hints", .row = 1}, .style = Style::Quiet},
          {.name = "Text1",        .at = {.group = "middle"}, .tab = 1, .visible = false},
          {.name = "OKButton",     .kind = Kind::Button, .label = "&OK",        .at = {.group = "buttons", .col = 1}, .tab = 2, .style = Style::Primary},
          {.name = "CancelButton", .kind = Kind::Button, .label = "&Cancel",    .at = {.group = "buttons", .col = 2}, .tab = 3},
          {.name = "cmdwapp",      .kind = Kind::Button, .label = "&W-app Msg", .at = {.group = "middle", .col = 1}, .tab = 4, .visible = false},
      },
  };
}
// clang-format on

// A button that stands alone stands in the middle.
const ScreenSpec& windowTable(const Interaction& what) {
  static const ScreenSpec pair = tableOf(true), alone = tableOf(false);
  return what.cancel.empty() ? alone : pair;
}

}  // namespace

mymsgfrm::mymsgfrm(Host& theHost, const Opening& opening)
    : Screen(theHost, windowTable(std::any_cast<const Interaction&>(opening.more))) {
  wire(*this, {
                  {"OKButton",     On::Click,      &mymsgfrm::ok      },
                  {"CancelButton", On::Click,      &mymsgfrm::cancel  },
                  {"cmdwapp",      On::Click,      &mymsgfrm::whatsApp},
                  {"Text1",        KeyCode::Enter, &mymsgfrm::okKey   },
                  {"",             KeyCode::Esc,   &mymsgfrm::cancel  },
  });
}

void mymsgfrm::opened(const Opening& opening) {
  const auto& what = std::any_cast<const Interaction&>(opening.more);
  const SavedMessage saved = inWords(what.saved ? *what.saved : SavedMessage{.head = what.text});
  at("Label1").text = what.saved ? textOf(saved) : saved.head;
  phone_ = what.phone;
  at("OKButton").text = what.ok;
  at("OKButton").back = what.okColour;
  at("CancelButton").text = what.cancel;
  at("CancelButton").visible = !what.cancel.empty();
  at("CancelButton").back = what.cancelColour;
  // Two coloured buttons are drawn as a pair.
  at("CancelButton").style = what.cancelColour == kWhite ? Style::Normal : Style::Secondary;
  at("cmdwapp").visible = what.whatsApp;
  at("Text1").visible = what.asks;
  set(at("Text1"), what.typed);
  showMessage(saved);
  focus(what.asks ? at("Text1") : at("OKButton"));
}

void mymsgfrm::showLine(const char* name, int index, const std::string& text) {
  Control& label = at(name, index);
  label.text = text;
  label.visible = !text.empty();
}

void mymsgfrm::showMessage(const SavedMessage& message) {
  at("lblhead").text = message.head;
  for (int i = 0; i < kFacts; ++i) {
    const auto n = static_cast<size_t>(i);
    showLine("lblname", i, n < message.facts.size() ? message.facts[n].name + " :" : "");
    showLine("lblvalue", i, n < message.facts.size() ? message.facts[n].value : "");
  }
  std::vector<std::string> reminder;
  for (const char* line : kEWayReminder) reminder.push_back(words(line));
  showLine("lblreminder", -1, message.eWayReminder ? join(reminder, "\n") : "");
  for (int i = 0; i < kHints; ++i) {
    const auto n = static_cast<size_t>(i);
    showLine("lblhint", i, n < message.hints.size() ? message.hints[n] : "");
  }
  const double middle = message.eWayReminder                           ? kReminder
                        : at("Text1").visible || at("cmdwapp").visible ? kTyping
                                                                       : 0;
  height = kHeight - kReminder + middle;
}

void mymsgfrm::focusMoved(Control& control) {
  if (control.kind != Kind::Button) return;
  const bool pair = at("CancelButton").visible;
  ShowHint(host, pair ? english("Enter = Chosen Button :: Left / Right = Other Button")
                      : english("Enter = Chosen Button"));
}

void mymsgfrm::ok() {
  result = at("Text1").text;
  host.close(*this);
}

void mymsgfrm::cancel() { host.close(*this); }

void mymsgfrm::whatsApp() {
  const std::string typed = at("Text1").text;
  sendWhatsApp(host, phone_, typed.empty() ? at("Label1").text : typed);
}
