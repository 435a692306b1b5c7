#pragma once

#include "platform/host.h"
#include "platform/screen.h"

// Who is working: user and password of the server on which the books stand, asked at the start when
// server.cnf does not name them. They are kept as long as the program runs and nowhere else.
class frmsignin : public Screen {
 public:
  explicit frmsignin(Host& host);
  void opened(const Opening& opening) override;
  void focusMoved(Control& control) override;

 private:
  Go nameEntered();
  Go passwordEntered();
  void signIn();
  void leave();
};
