#include "platform/shown.h"

#include "base/text.h"
#include "base/words.h"
#include "platform/utf8.h"

namespace {

std::string dots(const std::string& text) {
  return utf8::encode(std::u32string(utf8::length(text), U'\u25CF'));
}

}  // namespace

std::string shownText(const Control& control) {
  switch (control.kind) {
    case Kind::Button:
    case Kind::Check:
      return words(control.text);
    case Kind::Label:
      return control.spec && control.text == control.spec->label ? words(control.text) : control.text;
    default:
      return control.secret() ? dots(control.text) : control.text;
  }
}

bool isLetterOf(const Control& button, char32_t letter) {
  const std::string caption = shownText(button);
  const size_t mark = caption.find('&');
  if (mark == std::string::npos) return false;
  const std::u32string rest = utf8::decode(upper(caption.substr(mark + 1)));
  return !rest.empty() && rest.front() == letter;
}
