#pragma once

#include <string>

#include "documents/messaging.h"
#include "platform/host.h"

// "Mirav Interaction": see documents/messaging.h. Opened modally with an
// Interaction; its result is what was typed, and nothing without OK.
class mymsgfrm : public Screen {
 public:
  mymsgfrm(Host& host, const Opening& opening);

  void opened(const Opening& opening) override;
  void focusMoved(Control& control) override;

 private:
  void ok();
  void cancel();
  void whatsApp();
  Go okKey() { return ok(), Go::Stay; }
  void showMessage(const SavedMessage& message);
  void showLine(const char* name, int index, const std::string& text);

  std::string phone_;
};
