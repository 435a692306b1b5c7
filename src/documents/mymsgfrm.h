#pragma once

#include <string>

#include "documents/messaging.h"
#include "platform/host.h"

// "Mirav Interaction": see documents/messaging.h. Opened modally; its result is "OK" or nothing.
class mymsgfrm : public Screen {
 public:
  explicit mymsgfrm(Host& host);

  void opened(const Entry& entry) override;
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
