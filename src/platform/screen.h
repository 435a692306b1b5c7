#pragma once

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "base/date.h"
#include "platform/chart.h"
#include "platform/grid.h"
#include "platform/keys.h"
#include "platform/layout.h"

class Host;

enum class Kind { Text, Date, Button, Label, Grid, Check, Progress, Picture, Chart };

// How a label or an off field reads; a host gives each its type and colour.
enum class Style {
  Normal,
  Quiet,
  Section,
  Title,
  Company,
  Figure,
  Head,
  Amount,
  Key,
  Warn,
  Primary,
  Secondary
};

// What a field is called, the same on every screen that has it: handlers and scripts find its
// control by this name (frame/field_names.h has them all). Empty for a control without one.
struct FieldName {
  std::string_view text;
  bool operator==(const FieldName&) const = default;
};

// In which form a field's value goes to its column.
enum class Holds {
  Text,    // without blanks around it
  Typed,   // the text as it was typed
  Figure,  // a number, 0 for none
  Date,    // none for an empty box
};

// The group in which the line of a list is typed: a field in it belongs to the line, any other to
// the head.
inline constexpr std::string_view kEntryGroup = "entry";

// One row of a screen's table: what the control is, what it holds and where it stands.
struct ControlSpec {
  std::string name;
  int index = -1;  // -1: the name stands alone
  FieldName field = {};
  FieldName also = {};           // another name by which scripts find it
  std::string_view column = {};  // of the row that it shows and is stored in
  Holds holds = Holds::Text;
  Kind kind = Kind::Text;
  std::string label = {};  // beside a field; the caption of a button or a label's text
  Place at = {};
  int tab = 0;    // place in the walk of Enter and Tab; 0 keeps it out
  int limit = 0;  // characters; 0 is no limit
  KeyClass keys = KeyClass::Any;
  bool enabled = true, visible = true, locked = false;
  Align align = Align::Auto;
  bool money = false;      // shown with grouped figures where it cannot be entered
  bool selectAll = false;  // all of the text is selected on getting the focus
  bool secret = false;     // shown as dots, and not copied
  Style style = Style::Normal;
  std::string hint = {};  // hint line while it has the focus
  std::vector<GridColumn> columns = {};
  // A grid that lies over another: its own column `overOwn` stands under column `overIts`.
  std::string over = {};
  int overOwn = 0, overIts = 0;
  double overWidth = 0;
};

// A control as it stands now. Handlers read and write these; hosts draw them.
struct Control {
  std::string family;
  int index = -1;
  Kind kind = Kind::Text;
  std::string label;
  std::string text;
  bool enabled = true, visible = true, locked = false;
  int limit = 0;
  KeyClass keys = KeyClass::Any;
  int tab = 0;
  Align align = Align::Auto;
  bool money = false, selectAll = false;
  Style style = Style::Normal;
  std::string hint;
  Bgr back = kWhite;
  bool refused = false;               // its last check refused: drawn with the error frame
  bool given = false;                 // the program put the text, and nobody has typed since
  bool declined = false;              // the list of the empty field was closed without a choice
  std::optional<std::string> worked;  // the text for which Enter's work was done last
  size_t caret = 0, anchor = 0;       // code points; equal when nothing is selected
  double value = 0, maximum = 0;      // progress; a check box is on when value is not 0
  std::string picture;                // path of a picture file
  Grid grid;
  Chart chart;  // for the eye; whoever sets it puts its words into `text`
  const ControlSpec* spec = nullptr;

  bool editable() const { return kind == Kind::Text || kind == Kind::Date; }
  bool secret() const { return spec && spec->secret; }
  bool focusable() const {
    return enabled && visible && kind != Kind::Label && kind != Kind::Progress && kind != Kind::Picture &&
           kind != Kind::Chart;
  }
  bool ofLine() const { return spec->at.group == kEntryGroup; }
  // Takes a number and nothing else; a number class that stores a text (a code) takes that too.
  bool ofFigures() const {
    return spec && (spec->holds == Holds::Figure || (keys == KeyClass::Number && spec->column.empty()));
  }
  std::string fullName() const { return index < 0 ? family : family + "(" + std::to_string(index) + ")"; }
};

// An empty date box reads like this.
inline constexpr std::string_view kEmptyDate = "__/__/____";

struct MenuEntry {
  std::string caption;  // with & before its letter
  std::string control;
  int index = -1;
  bool enabled = true;
  std::vector<MenuEntry> entries = {};
  std::string key = {};  // tells entries of one control apart where there is no index
};

struct ToolEntry {
  std::string key;
  std::string caption;
  std::string icon;
  bool enabled = true;
};

enum class Window {
  Main,    // a window of its own: company selection, splash, shell
  Child,   // stands inside the shell, under its menus
  Dialog,  // floats above the screen it came from
};

struct ScreenSpec {
  std::string name;
  std::string caption;
  Window window = Window::Child;
  Bgr focusColour = 0xC0FFFF;
  Layout layout;
  std::vector<ControlSpec> controls;
};

// What a handler says of the key it was given. On Enter: On moves to the next control
// as Tab does, Stay says that it refused or set the focus itself. On any other key: On
// lets the usual action follow, Stay ends it. On Validate: Stay refuses to leave.
enum class Go { On, Stay };

// Events beside keys. Validate may refuse and is passed over when Enter has just
// checked the same control; Leave always runs; Change comes from typing only.
enum class On { Focus, Validate, Leave, Change, Click, DoubleClick, Row };

struct Trigger {
  std::optional<On> on;
  Key key;
  Trigger(On event) : on(event) {}      // NOLINT
  Trigger(Key k) : key(k) {}            // NOLINT
  Trigger(KeyCode code) : key(code) {}  // NOLINT
};

// With what a screen is opened.
struct Opening {
  std::string caller = {};     // the screen that asks for it
  std::string entryType = {};  // kind of voucher ("SALE", "QUOTATION"), or of another screen ("USERFORM")
  std::string reportKey = {};  // the report or document asked for ("LEDGERS", "GST INVOICE")
  std::string masterKey = {};  // the small master asked for ("catg", "TRANS")
  std::string value = {};      // what is shown first: a voucher number, a code
  std::any more = {};          // a record of the screen's own, whose type both sides know
};

class Screen {
 public:
  Screen(Host& host, const ScreenSpec& spec);
  virtual ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  const ScreenSpec& spec;
  std::string caption;
  std::string mode;      // "", "ADD", "EDIT", "DEL", "PRINT", "VIEW"
  std::string escMeans;  // right end of the mode strip
  std::string reason;    // beside the buttons: why one of them is off
  bool visible = true;
  // Of a dialog whose size or place differs from its layout's; 0 keeps the layout's.
  double width = 0, height = 0;
  std::optional<Anchor> anchor;
  int timerMs = 0;  // a tick each so many milliseconds while not 0
  std::vector<std::unique_ptr<Control>> controls;
  std::vector<MenuEntry> menus;
  std::vector<ToolEntry> tools;
  std::vector<std::string> panels;    // status bar; the second is the hint line
  std::optional<std::string> result;  // answer of a modal screen

  // Without regard to case; raises std::out_of_range for a control that the table lacks.
  Control& at(std::string_view family, int index = -1);
  const Control& at(std::string_view family, int index = -1) const;
  Control& at(FieldName field);
  const Control& at(FieldName field) const;
  Control* find(std::string_view name);  // "Text1(4)", or the name of a field

  Control* focused() const { return focused_; }
  // Takes effect after the handler: Leave of the old control, Focus of the new one.
  void focus(Control& control) {
    pendingFocus_ = &control;
    unchecked_ = false;
  }
  // The same where the old control no longer counts (the form was emptied): it may not refuse.
  void focusUnchecked(Control& control) {
    pendingFocus_ = &control;
    unchecked_ = true;
  }
  // Runs the control's Enter logic once after the handler (a lookup has just filled it).
  void enterAgain(Control& control) { pendingEnter_ = &control; }
  // Whether a field is left with a text for which its Enter's work has not been done.
  bool unworked(const Control& control) const;
  // Does that work where it is due, without a lookup and without moving the focus; false when it
  // refuses the text. Its handler sees `leaving`.
  bool work(Control& control);
  bool leaving() const { return leaving_; }
  // Writes a text without a Change; the caret goes behind it.
  static void set(Control& control, std::string_view text);

  // Events of the whole screen.
  virtual void opened(const Opening&) {}    // once, before it is first shown
  virtual void activated() {}               // on top again after another screen, and on first show
  virtual bool mayClose() { return true; }  // the window's close button and Host::close
  virtual void closed() {}
  virtual void tick() {}
  virtual void chosen(const MenuEntry&) {}
  virtual void toolChosen(const ToolEntry&) {}
  virtual void focusMoved(Control&) {}       // after each change of focus: hint line
  virtual void typed(Control&, char32_t) {}  // a character on a grid or list
  // Whether Enter's work is done, where it is due, when the focus goes from a field to `target`.
  virtual bool worksOnLeaving(const Control& target) const { return (void)target, false; }
  virtual char32_t filter(const Control& control, char32_t key) { return filtered(control.keys, key); }

  // One rule of the screen's table of handlers, bound to this screen.
  struct Bound {
    std::string control;  // full name, or family alone for all of its controls, or "" for the whole screen
    Trigger trigger;
    std::function<Go()> run;
  };
  // The most fitting rule: full name before family before the whole screen.
  const Bound* rule(const Control* control, const Trigger& trigger) const;

 protected:
  Host& host;
  // The control on which the running event happened.
  Control& here() const { return *here_; }
  bool isHere(FieldName field) const { return here_->spec->field == field; }

  // What stands in a field; a figure is the number at the start of its text.
  const std::string& text(FieldName field) const { return at(field).text; }
  std::string trimmed(FieldName field) const;
  double value(FieldName field) const;
  std::optional<Date> date(FieldName field) const;
  void put(FieldName field, std::string_view text) { set(at(field), text); }
  void put(FieldName field, double figure);
  void put(FieldName field, std::optional<Date> date);

  // Where a rule holds: a field, a control by full name or family, or "" for the whole screen.
  struct Where {
    std::string control;
    FieldName field = {};
    Where(const char* name) : control(name) {}             // NOLINT
    Where(std::string name) : control(std::move(name)) {}  // NOLINT
    Where(FieldName name) : field(name) {}                 // NOLINT
  };
  template <class S>
  struct Rule {
    Where where;
    Trigger trigger;
    std::function<Go(S&)> run;
    Rule(Where place, Trigger when, Go (S::*handler)())
        : where(std::move(place)), trigger(when), run([handler](S& s) { return (s.*handler)(); }) {}
    // A handler without an answer: Enter moves on, other keys end here, nothing is refused.
    Rule(Where place, Trigger when, void (S::*handler)())
        : where(std::move(place)), trigger(when), run([handler, when](S& s) {
            (s.*handler)();
            return when.on || when.key.code == KeyCode::Enter ? Go::On : Go::Stay;
          }) {}
  };
  template <class S>
  void wire(S& self, const std::vector<Rule<S>>& rules) {
    for (const auto& r : rules)
      bound_.push_back({nameOf(r.where), r.trigger, [&self, run = r.run] { return run(self); }});
  }
  std::string nameOf(const Where& where) const {
    return where.field == FieldName{} ? where.control : at(where.field).fullName();
  }

 private:
  friend class Desk;
  std::vector<Bound> bound_;
  Control* focused_ = nullptr;
  Control* pendingFocus_ = nullptr;
  Control* pendingEnter_ = nullptr;
  Control* here_ = nullptr;
  bool closing_ = false, modal_ = false, unchecked_ = false, leaving_ = false;
  Opening opening_;
  std::vector<Control*> walk_;  // focusable kinds in tab order
};

// The screens that a program knows, by name.
class Screens {
 public:
  // A screen whose table depends on its opening takes that beside the host.
  template <class S>
  void add(const std::string& name) {
    makers_[name] = [](Host& host, const Opening& opening) -> std::unique_ptr<Screen> {
      if constexpr (std::is_constructible_v<S, Host&, const Opening&>)
        return std::make_unique<S>(host, opening);
      else
        return std::make_unique<S>(host);
    };
  }
  bool knows(const std::string& name) const { return makers_.contains(name); }
  std::unique_ptr<Screen> make(const std::string& name, Host& host, const Opening& opening) const {
    return makers_.at(name)(host, opening);
  }

 private:
  std::map<std::string, std::function<std::unique_ptr<Screen>(Host&, const Opening&)>> makers_;
};
