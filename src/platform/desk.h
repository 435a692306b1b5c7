#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/host.h"

// The open screens and the rules of their events, the same for every machine. A host
// derives from it, tells it what the person does and draws what `changed` says; it adds
// the boxes and whatever else only the machine can do.
//
// A handler sets the focus by name; it takes effect when the handler has returned: the
// old control may refuse (Validate), or refuse what its Enter has still to do where the
// screen wants that done; it is left (Leave), then the new one gets Focus if it still can,
// and a text that the program put there is selected. Boxes and modal screens nest; all other screens open
// after the handler, so a day's work stacks nothing. A handler that ends in an exception
// ends in a message box with its words; the screen stays as it is, and one that could not
// be made is not opened.
class Desk : public Host {
 public:
  explicit Desk(const Screens& screens) : known_(screens) {}
  ~Desk() override;

  // What the person does, always on the screen on top; a control of another screen takes nothing.
  void key(const Key& key);
  void type(std::string_view text);   // each character through the field's filter
  void paste(std::string_view text);  // as edit::paste takes it
  bool click(Control& control);       // a button; false when it is off or hidden
  bool focusOn(Control& control);     // false when it cannot have the focus or the old one refused
  void rowTo(Control& grid, size_t row);
  void doubleClick(Control& grid);
  void tick();
  bool menu(const MenuEntry& entry);  // false when it is off
  bool tool(const ToolEntry& entry);
  void closeTop();  // the window's close button
  // Caret and selection set with the mouse, in code points.
  void select(Control& control, size_t anchor, size_t caret);

  Screen* top() const;    // the screen that has the keys, or null
  Screen* shell() const;  // the window that holds the child screens, or null
  const std::vector<std::unique_ptr<Screen>>& open() const { return open_; }
  bool quitting() const { return quitting_; }
  bool isOpen(const Screen& screen) const;

  // Starts the program's first screen.
  void start(const std::string& name) { open(name, {}); }

  // Host
  using Host::ask;
  bool ask(const Question& question) override;
  void message(const std::string& text, const std::string& title = kTitle) override;
  std::optional<std::string> openModal(const std::string& name, const Opening& opening = {}) override;
  void open(const std::string& name, const Opening& opening = {}) override;
  void close(Screen& screen) override;
  void quit() override { quitting_ = true; }
  Screen* find(const std::string& name) override;
  void hint(const std::string& text) override;
  std::string hint() const override { return hint_; }

 protected:
  // Show a message box or a question, in the words of the language, and return when it has been answered.
  virtual void box(const std::string& text, const std::string& title) = 0;
  virtual bool answerTo(const Question& question) = 0;
  // Runs events until the screen has closed.
  virtual void nest(Screen& screen) = 0;
  // Draw what is different now: after each event and before anything nests.
  virtual void changed() = 0;
  // A screen is about to go away for good: let go of what stands for it.
  virtual void gone(Screen&) {}

 private:
  struct Request {
    std::string name;
    Opening opening;
    Screen* closing = nullptr;
  };

  Screen* ofTop(const Control& control) const;
  bool run(Screen& screen, const std::function<void()>& handler);
  Go fire(Screen& screen, Control* control, const Trigger& trigger, Go otherwise);
  void settle(Screen& screen);
  bool settleFocus(Screen& screen);
  bool moveFocus(Screen& screen, Control& target, bool validate);
  bool mayLeave(Screen& screen, Control& target);
  void enterKey(Screen& screen, Control* control);
  void plainKey(Screen& screen, Control* control, const Key& key);
  bool mnemonic(Screen& screen, char32_t letter);
  bool gridKey(Screen& screen, Control& control, const Key& key);
  bool buttonKey(Screen& screen, Control& control, const Key& key);
  bool editKey(Screen& screen, Control& control, const Key& key);
  void edited(Screen& screen, Control& control);
  void step(Screen& screen, int direction, bool validate);
  std::unique_ptr<Screen> make(const std::string& name, const Opening& opening);
  void show(std::unique_ptr<Screen> screen);
  void raise(Screen& standing, const Request& wanted);
  void remove(Screen& screen);
  void dismiss(Screen& screen);
  void activateTop();
  void take(std::vector<Request>& requests);
  void request(Request request);

  const Screens& known_;
  std::vector<std::unique_ptr<Screen>> open_;
  std::vector<std::unique_ptr<Screen>> leaving_;  // closed while a handler of theirs may still run
  std::vector<std::vector<Request>> pending_;     // one list for each handler under way
  bool enterChecked_ = false;  // the focus moves because Enter has just checked the control
  bool checking_ = false;      // a handler that may refuse is running
  bool quitting_ = false;
  std::string hint_;
};
