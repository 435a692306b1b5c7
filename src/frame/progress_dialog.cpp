#include "frame/progress_dialog.h"

#include "base/words.h"

Layout progressLayout(double width, double height) {
  // clang-format off
  return {.bands = {
              {fit(),   {{.name = "what", .frame = Frame::Plain, .pitch = 24}}},
              {part(1), {{.name = "progress"}}},
              {px(34),  {{.name = "buttons", .frame = Frame::Buttons}}},
          },
          .width = width, .height = height};
  // clang-format on
}

namespace {

constexpr const char* kEscCloses = english("Esc = Close");

}  // namespace

ProgressDialog::ProgressDialog(Host& theHost, const ScreenSpec& table, const Words& words)
    : ChildScreen(theHost, table), words_(words) {
  escMeans = kEscCloses;
}

void ProgressDialog::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  focus(at(words_.start));
}

void ProgressDialog::tell(std::string_view progress) {
  set(at("Label1"), progress);
  host.refresh();
}

void ProgressDialog::enableButtons(bool on) { at(words_.start).enabled = at(words_.cancel).enabled = on; }

void ProgressDialog::run(const std::function<void()>& work) {
  enableButtons(false);
  escMeans = english("Esc = Stop");
  try {
    const Busy busy(host);
    work();
    escMeans = kEscCloses;
  } catch (...) {
    enableButtons(true);
    escMeans = kEscCloses;
    tell(at("Label1").text + "\n" + ::words(words_.undone));
    throw;
  }
}
