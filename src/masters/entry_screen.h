#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/words.h"
#include "frame/child_screen.h"
#include "frame/lookup.h"
#include "frame/together.h"
#include "masters/guards.h"
#include "store/database.h"
#include "store/row_writer.h"

inline constexpr const char* kIncompleteWords = english("Please Fill Complete Data or Press Enter for Help");

// What an entry screen is made of beside its fields.
struct EntryPattern {
  FieldName key = fields::kCode;    // the field that holds the code
  FieldName first = fields::kName;  // where ADD begins

  std::string what;                        // one of them is called: "Account"
  std::string idle, add, edit, del, view;  // captions by mode
  std::string viewMode = "PRINT";          // how the mode that only shows is called
  std::string idleHint = "Press Add Button For New Entry";
  // Function keys for the mode strip: while no mode is on, and where a code is chosen.
  std::string idleKeys = {}, searches = {};
  std::string deleteQuestion = "ARE YOU SURE";

  // The list of what is in use already, searched by its last column while a name is typed.
  Select names;
  std::string namesGrid;
  FieldName name = fields::kName;

  // Fields whose Enter opens a lookup while they are empty, but which may stay so.
  std::vector<FieldName> optional = {};
  std::string video;  // tutorial link
};

// The way in which all master screens work. `mode` is "", "ADD", "EDIT", "DEL" or the view mode;
// buttons or their letters (and Ctrl+P for the view) change it. In ADD all fields are open, the
// next code stands in the key field and a save is followed by the next ADD; in the other modes a
// code is given first, by hand or through the lookup, and its row is shown. DEL and view leave
// the other fields off. A save is one transaction; when it fails nothing is stored, the reason is
// shown and the screen stays as it is. A row that another program changed since it was shown is not
// written over: it is shown as it stands.
//
// Opened with a caller (Opening::caller) it begins in ADD, and after the save it closes: the new
// code is in mlastacc or mlastitem, and for openModal it is the screen's result.
class EntryScreen : public ChildScreen {
 public:
  EntryScreen(Host& host, const ScreenSpec& spec, EntryPattern pattern);

  void opened(const Opening& opening) override;
  bool mayClose() override;  // asks over an entry, as Escape does

 protected:
  std::string hintFor(const Control& control) const override;

  // What a screen adds.
  virtual Database& database() const;
  virtual std::string nextCode() { return {}; }  // ADD: empty where codes are typed
  virtual void newEntry() {}                     // ADD: defaults into the emptied fields
  virtual std::optional<Row> storedRow(const std::string& code) = 0;
  virtual void shown(const std::string&) {}  // the row stands in the fields: shows what goes with it
  // What of the code's row is stored and shown, as one text: another program may change it meanwhile.
  virtual std::string standing(const std::string& code);
  virtual Lookup codeLookup() const = 0;
  virtual std::string missingCodeWords() const = 0;  // by mode
  virtual std::string existingCodeWords() const = 0;
  virtual std::string blankCodeWords() const { return kIncompleteWords; }
  virtual Control* missingField() = 0;     // the first required field that is empty
  virtual bool mayEdit() { return true; }  // these three say themselves why not
  virtual bool maySave() { return true; }
  // Inside the transaction; false when the row is no longer there.
  virtual bool store() = 0;
  virtual bool mayDelete(const std::string&) { return true; }
  // These two inside the transaction: why the row has to stay, and its going.
  virtual std::optional<Refusal> refusal(const std::string& code) = 0;
  virtual void erase(const std::string& code) = 0;
  virtual void saved(const std::string&) {}            // remembers the code
  virtual void emptied() {}                            // the fields have been emptied
  virtual bool keyMayChange() const { return false; }  // the code itself is what is edited

  // For its handlers.
  bool entering() const { return mode == "ADD" || mode == "EDIT"; }
  std::string code() const;
  // The code whose row is shown in a mode other than ADD; empty before.
  const std::string& loaded() const { return loaded_; }
  void say(const std::string& text) { host.message(text, kMessageTitle); }
  // Shows the words and refuses.
  Go refuse(const std::string& text);
  void showNames(const std::string& typed);
  // Enter in a field that keeps any text: the values that stand in the column already, while it is empty.
  Go valuesInUse(const std::string& table, const std::string& column);
  // Says so of a figure that no book holds, and sends there.
  bool figureTooLarge();
  // Inside the transaction: what names a row that has to stay is told when all is taken back.
  bool stays(std::optional<Refusal> why);

  // Buttons and keys.
  void add();
  void edit();
  void remove() { choose("DEL", pattern_.del); }
  void view() { choose(pattern_.viewMode, pattern_.view); }
  void update();
  void giveUp();  // Cancel, asked first where something was typed
  void cancel();
  std::string atStake() const override;
  Go keyEntered();
  Go keyLeft();

  // USER_CD, ENT_DT, ENT_TIME and the marks that go with every stored row.
  Fields stamps() const;
  static Fields sendMarks();

 private:
  void close() { host.close(*this); }
  void video() { openTutorial(host, pattern_.video); }
  void nameTyped() { showNames(text(pattern_.name)); }
  void viewKey();

  void begin(const std::string& newMode, const std::string& newCaption);
  void choose(const std::string& newMode, const std::string& newCaption);
  void enableFields();
  void clearFields();
  void showButtons();
  bool exists(const std::string& code) { return storedRow(code).has_value(); }
  // Shows the row; false when there is none.
  bool load(const std::string& code);
  // Texts as they are stored, into the fields of the head; a column that the row lacks is passed by.
  void fill(const Row& row);
  bool storeUnchanged();
  void tellWhyNot();
  Go keyIsFree();
  Go keyIsChosen();
  bool takeInHand(const std::string& code);
  void removeShown();
  bool isOptional(const Control& field) const;
  std::string keysOfMode() const;
  bool inTransaction(bool (EntryScreen::*work)());
  bool eraseLoaded();

  const EntryPattern pattern_;
  std::string caller_;
  std::string loaded_, asLoaded_;
  InHand hand_;
  std::optional<Refusal> refused_;  // by what names the row
  bool done_ = false;               // closes without a question
};

// The rows of the button group, for a screen's table: Update and Cancel while a mode is on,
// the others while none is.
std::vector<ControlSpec> entryButtons(const std::string& updateCaption = "&Update");
// A screen's table: its own controls with the buttons behind.
std::vector<ControlSpec> withButtons(std::vector<ControlSpec> controls,
                                     const std::string& updateCaption = "&Update");
// The band of the buttons.
Band entryButtonBand();
