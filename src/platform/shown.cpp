#include "platform/shown.h"

#include "base/words.h"

std::string shownText(const Control& control) {
  switch (control.kind) {
    case Kind::Button:
    case Kind::Check:
      return words(control.text);
    case Kind::Label:
      return control.spec && control.text == control.spec->label ? words(control.text) : control.text;
    default:
      return control.text;
  }
}
