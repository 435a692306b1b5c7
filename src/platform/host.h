#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/date.h"
#include "base/words.h"
#include "platform/screen.h"

namespace paint {
class Painter;
}

struct ScreenSize {
  double widthTwips = 20490, heightTwips = 11520;  // 1366 x 768 at 15 twips a pixel
  double twipsPerPixelX = 15, twipsPerPixelY = 15;
};

// The title over what the program tells of itself: failures, and what was done.
inline constexpr const char* kMessageTitle = "Mirav Message";

// A question with two answers. Yes does something; No leaves all as it is, and is what Esc means.
struct Question {
  std::string text;
  std::string title = "Mirav";
  // A verb on each button, with & before the letter that presses it.
  std::string yes = english("&Yes"), no = english("&No");
  std::string facts = {};  // under the text, a line each: whom it is about, what stays
  // Yes throws work away, or is seldom meant: No stands first and has the focus.
  bool loses = false;
};

// Everything that a screen may ask of the machine.
class Host {
 public:
  static constexpr const char* kTitle = "Mirav";

  virtual ~Host() = default;

  // These nest: the call returns with the answer.
  virtual void message(const std::string& text, const std::string& title = kTitle) = 0;
  virtual bool ask(const Question& question) = 0;  // Yes is true
  bool ask(const std::string& text, const std::string& title) { return ask({.text = text, .title = title}); }
  virtual std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                           const std::string& initial = "") = 0;
  // A file that is there, of such names ("*.csv *.txt"), with its whole path. A host without a list of files
  // has its name typed; the prompt says then what a name alone means.
  virtual std::optional<std::string> chooseFile(const std::string& prompt, const std::string& title,
                                                const std::string& /*names*/) {
    return input(prompt, title);
  }
  // A screen that answers: returns its result when it has closed, nothing after Escape.
  virtual std::optional<std::string> openModal(const std::string& name, const Opening& opening = {}) = 0;

  // These take effect after the running handler. Opening a screen that stands already
  // brings it to the top; asked for something else than it shows (another kind, report or master, or
  // a value), it gives way to a new one if it may close. An unknown name says so in the hint line.
  virtual void open(const std::string& name, const Opening& opening = {}) = 0;
  virtual void close(Screen& screen) = 0;
  virtual void quit() = 0;
  virtual Screen* find(const std::string& name) = 0;  // an open screen, or null

  virtual void hint(const std::string& text) = 0;
  virtual std::string hint() const = 0;
  virtual void busy(bool on) = 0;
  // Shows at once what a long-running handler changed.
  virtual void refresh() = 0;

  virtual Moment now() const = 0;
  virtual ScreenSize display() const = 0;
  virtual bool online() const = 0;
  virtual bool running(const std::string& process) const = 0;
  virtual void endProcess(const std::string& process) = 0;
  virtual void launch(const std::string& program, const std::vector<std::string>& arguments) = 0;
  virtual void openLink(const std::string& url) = 0;
  virtual void view(const std::string& file) = 0;  // the system's viewer for the file
  virtual paint::Painter& painter() = 0;
  virtual std::string clipboard() const = 0;
  virtual void setClipboard(const std::string& text) = 0;

  Date today() const { return now().date; }
};

// The busy pointer, as long as this stands.
class Busy {
 public:
  explicit Busy(Host& host) : host_(host) { host_.busy(true); }
  ~Busy() { host_.busy(false); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  Host& host_;
};
