#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "frame/child_screen.h"

// A dialog whose button starts one long piece of work: what it does above, how far it is in
// `Label1`, and the buttons, which are off meanwhile.
class ProgressDialog : public ChildScreen {
 public:
  struct Words {
    const char* start;   // the control whose button starts the work
    const char* cancel;  // the control whose button leaves the dialog, as Escape does
    const char* undone;  // stands in `Label1` after a failure
  };

  void opened(const Opening& opening) override;

 protected:
  ProgressDialog(Host& host, const ScreenSpec& spec, const Words& words);

  // Runs the work under the busy pointer. A failure leaves the dialog as it was and goes on.
  void run(const std::function<void()>& work);
  void tell(std::string_view progress);  // in place of what was told before
  void close() { host.close(*this); }

 private:
  void enableButtons(bool on);

  Words words_;
};

// Its groups "what", "progress" and "buttons".
Layout progressLayout(double width, double height);
