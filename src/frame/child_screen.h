#pragma once

#include "frame/field_names.h"
#include "frame/routines.h"
#include "platform/host.h"
#include "store/database.h"
#include "store/row_writer.h"

// Title of a question.
inline constexpr const char* kQuestionTitle = english("Mirav Confirmation Message");

// What every screen inside the shell does: it counts itself in mactiveforms, hides the
// shell's picture and locks the menus while it is open, brings them back when it was the
// last, and keeps the hint line to the field that has the focus ("Press Enter For Help"
// when it is empty, "Press Enter To Proceed" when it is filled, or the field's own words).
// A screen that overrides one of the events calls it here too.
class ChildScreen : public Screen {
 public:
  using Screen::Screen;
  void opened(const Opening& opening) override;
  bool mayClose() override { return mayDiscard(); }
  void closed() override;
  void focusMoved(Control& control) override;

 protected:
  // Words of the control's own from its table, else by whether it is filled; nothing for
  // buttons and grids, which leave the line as it is.
  virtual std::string hintFor(const Control& control) const;

  // The screen's fields and the columns that its table gives them; those of the entry row are the
  // line, all others the head.
  enum class Part { Head, Line };
  void showFields(const Row& row, Part part);
  Fields writtenFields(Part part) const;
  void emptyFields(Part part);  // those without a column too
  // What stands in the fields was read from the store: leaving them has nothing to do.
  void takeAsWorked(Part part);

  // Enter in a date box: it holds a date, or is empty and not the voucher's own; else the hint tells the way
  // out.
  Go dateStands();

  // What stands in the fields now is what the screen shows or has stored: `unsaved` counts from here. A
  // key alone, with nothing typed under it, is no work.
  void takeAsShown(FieldName key = {});
  virtual bool unsaved() const;                       // whether something typed since would be lost
  virtual std::string atStake() const { return {}; }  // what would be lost, in a line
  // The question over a screen that is to be left, with what would be lost.
  Question leaveQuestion(const std::string& text) const;
  // Asks before typed work is thrown away; true when there is none, or when it may go.
  bool mayDiscard();
  void closeUnasked();  // with nothing left to lose
  // The question before something is deleted, with what it is.
  static Question deleteQuestion(const std::string& text, const std::string& facts);

  // Date keys of a date box: F1 period start, F2 today, F3 period end, Down/Up a day
  // earlier/later, Page Down/Page Up a month earlier/later.
  Go dateKey(const Key& key);
  Go dateF1() { return dateKey(KeyCode::F1); }
  Go dateF2() { return dateKey(KeyCode::F2); }
  Go dateF3() { return dateKey(KeyCode::F3); }
  Go dateUp() { return dateKey(KeyCode::Up); }
  Go dateDown() { return dateKey(KeyCode::Down); }
  Go datePgUp() { return dateKey(KeyCode::PgUp); }
  Go datePgDn() { return dateKey(KeyCode::PgDn); }

 private:
  std::vector<std::string> shownTexts_;  // of all controls, in their order
  FieldName shownKey_;
};

// The range test of a typed date, by text: the date, the period's first and last date
// are written "dd/MMM/yyyy" and compared as texts, so that the day of the month decides
// first. Returns the message to show, empty when it passes.
std::string periodRefusal(Date date);
