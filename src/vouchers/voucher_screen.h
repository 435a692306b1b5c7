#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/words.h"
#include "documents/messaging.h"
#include "frame/child_screen.h"
#include "frame/lookup.h"
#include "frame/together.h"
#include "frame/voucher_kinds.h"
#include "vouchers/accounts.h"
#include "vouchers/items.h"
#include "vouchers/rate_history.h"
#include "vouchers/saving.h"
#include "vouchers/sources.h"
#include "vouchers/work_lines.h"

// Titles of a voucher's boxes.
inline constexpr const char* kCheck = english("Mirav Check");
inline constexpr const char* kConfirm = english("Mirav Confirmation Message");

// What all voucher screens share: the modes with their captions and button row, the lines in
// the work table and the walk through them, the date keys, the masters behind Insert, and the
// message window after a save. It knows its book; arithmetic and columns are the screen's own.
//
// It relies on the fields number, date and line_no, and on the grids and buttons of `voucher_table`. Where
// the table has them, the fields party, party_name, item, item_name, unit, quantity, rate, amount and the
// grid of earlier rates are its own too; a screen of other lines says what its lines go by.
class VoucherScreen : public ChildScreen {
 public:
  void opened(const Opening& opening) override;
  void activated() override;
  void focusMoved(Control& control) override;
  bool mayClose() override;  // asks over an open voucher, as Escape does
  bool worksOnLeaving(const Control& target) const override;

  // One lookup that a key opens in a field; with Enter only while the field is empty.
  struct KeyLookup {
    FieldName field;
    Key key;
    Lookup lookup;
    enum class From { Book, Item };
    std::vector<From> binds = {};  // values of the lookup's "?" in order
    bool onlyEmpty = false;
  };

 protected:
  VoucherScreen(Host& host, const ScreenSpec& spec, const VoucherKind& kind,
                std::vector<WorkLines::Shown> shown);

  // The screen's own part of each step.
  virtual void startNew() = 0;           // Add: numbers and defaults; sets the focus
  virtual bool load(double number) = 0;  // shows a stored voucher; false after its message
  virtual void sumLines() = 0;           // totals over the work table
  virtual void sumAgain() = 0;           // the same at Save, also where no line is left
  // What a line's figures are worked out from, and that work; false after a refusal's message.
  virtual std::vector<FieldName> lineInputs() const = 0;
  virtual bool figureLine() = 0;
  virtual FieldName lineKey() const { return fields::kItem; }  // what a line is of; empty: there is none
  virtual FieldName lineName() const { return fields::kItemName; }
  virtual FieldName lineStart() const { return lineKey(); }  // where a line is begun, or gone on with
  virtual bool lineComplete();                         // says so of a typed line that cannot be stored yet
  virtual Go closeLine() { return amount(); }          // stores the typed line
  virtual bool needsUnit() const { return true; }      // a line without a unit is none
  virtual bool needsQuantity() const { return true; }  // one of no quantity is not complete
  // Asked last before anything is written, and before a voucher is deleted; false after its message.
  virtual bool mayBeSaved();
  virtual bool mayBeDeleted(double number);
  // Of a screen whose voucher is made from others: the party that came with one, a line that is to be
  // figured, false where its item has no rate of tax, and that others stand in sources_ now.
  virtual bool partyTaken() { return true; }
  virtual bool putSourceLine(const SourceLine&) { return true; }
  // Its discount and charges in one sum are taken in, or out again; false where there is no room for them.
  virtual bool bringCharges(const SourceHead&, [[maybe_unused]] bool out) { return false; }
  virtual void sourcesShown() {}
  // Inside the transaction of the save: keeps what the voucher is made from. Raises std::runtime_error where
  // one is not any more what it was when its lines were taken.
  void keepTaken();
  virtual bool needsParty() const { return false; }  // Save refuses it without one, else it asks
  // A voucher that says nothing is saved when it is meant so; true when it is not to be.
  virtual bool meansNothing();
  // Takes a stored one away; false when it is another than is expected.
  virtual bool erase(double number, const Saving& as);
  virtual bool staysInLedger(double number) const;  // its rows are there until posting, though it goes
  // Writes the voucher; false where something else stands under its number than is expected.
  virtual bool write(const SaveStamp& stamp, const Saving& how) = 0;
  // The number on the paper, whether another voucher has it, and what its Enter and Save look at.
  virtual FieldName paperNumber() const = 0;
  virtual bool paperNumberTaken() const = 0;
  virtual Go checkPaperNumber() = 0;
  // No other has it; one that the program gave is given anew where another one took it.
  bool paperNumberFree();
  // Says so of one that another has, which stays to be changed; where the program gave it the next free
  // one stands there then.
  Go refuseTaken(const std::string& message);
  virtual std::string paperNumberAfter(const std::string& number) const = 0;  // in its series
  // Another number after this one was taken: the numbers of the paper that were derived with it.
  virtual void renumber() = 0;
  virtual FieldName afterLines() const { return fields::kNarration; }  // where line entry ends to
  virtual std::string tutorial() const = 0;
  virtual bool hasPaper() const { return !kind_.paper.key.empty(); }
  virtual void askForPaper() { hideForPrint(""); }  // which voucher's is to be printed

  // As the screen's table says; a screen that keeps more than its fields adds to them.
  virtual void clearHead();
  virtual void clearLine();
  virtual void showLine(const Row& line);
  virtual Fields lineFields();  // the line as it is stored

  // The caller comes back after this voucher, as after one that was asked for by its number.
  void closeAfterwards() { drilledDown_ = true; }

  // Handlers.
  void add();
  void modify();
  void startDelete();
  void print();
  void close();
  void giveUp();  // Cancel, asked first where something was typed
  void cancel();
  void video();
  void escape();
  Go number();  // of a filled number field
  void save();
  Go newParty();
  Go newItem();
  bool isMisc();     // the line's item is the one that stands for anything
  bool endsLines();  // what stands for an item ends the lines
  // The unit that the item brings to the line: the one of the row that was chosen in a list, one that
  // stands where the item is walked over again, else its first. The line's item is this one then.
  std::string unitOf(const std::string& item, const std::string& first);
  // Another item stands in the line than the one that it was filled from.
  bool itemChanged() const;
  // Rate and discount of the item's unit, where none is; the rate also takes the place of one that came
  // from the item before.
  void takeFromUnit(const UnitRates& rates);
  // Says so of a line of no item's own that has no name, and sends there.
  bool lacksName();
  // Where a stored line has no column for its free name: it is kept, and printed, as the line's detail.
  void keepFreeName();
  void openSourcesKey();          // the list of open challans and offers, to take one or leave it again
  Go amount();                    // stores the line
  Go lineTab();                   // Tab where it does what Enter does: to the next line, out of the lines
  Go lastTab();                   // Tab in the last field: to Save
  virtual bool quantityStands();  // one of 0 or below only when it is meant
  // The figures of the line are those of its inputs, worked out or typed for them.
  void lineIsFigured() { figuredFor_ = inputs(); }
  bool lineFigured() const { return figuredFor_ == inputs(); }
  void inputIsFigured(FieldName input);  // this one alone
  bool mayLeaveLine();                   // asks where the line being typed would be lost
  void lineDown();
  void toLineStart();
  void lineUp();
  void endLines();
  void deleteLine();
  void intoRows();
  void rowChosen();
  void leaveRows();
  void textChanged();
  Go helpHere();  // the lookup of the empty field; moves on where there is none
  Go intoRates();
  void leaveRates();

  // The account whose code stands in the field, its name shown; says so when there is none.
  std::optional<AccountFacts> findAccount(FieldName code, FieldName name,
                                          const std::string& title = Host::kTitle);
  // Keeps the party's state code for the tax split; without one the state stays as it was.
  void takeState(const AccountFacts& party);

  void wireLookups(std::vector<KeyLookup> table);
  // Shows earlier rates over the lines, as long as the field has the focus; nothing when empty.
  void showRates(const RateList& list);
  // Whether the focus has just come back from the rates, which are to stay away then.
  bool backFromRates() { return std::exchange(backFromRates_, false); }

  void storeLine();
  bool lineStands() const;  // as the list has it
  void showCurrentLine();
  void showSerial();
  void clearAll();
  bool unsaved() const override;
  virtual void takeVoucherAsShown();  // what stands there is no work to be lost
  std::string atStake() const override;
  bool entering() const { return mode == "ADD" || mode == "EDIT"; }  // also after its save
  bool typing() const { return entering() && !atRest_; }
  void allowSave(bool on);
  // After the last field: Save opens in ADD and EDIT, else the button row takes the focus.
  Go toSave();
  virtual SavedMessage closingMessage() const = 0;  // after a save
  void hideForPrint(const std::string& number);

  std::string hintFor(const Control& control) const override;

  const VoucherKind& kind_;
  std::shared_ptr<WorkLines> lines_;
  std::string phone_;              // the party's
  double partyState_ = 0;          // 0 until a party with a state code has been taken
  std::vector<MadeFrom> sources_;  // that the voucher is made from

 private:
  struct Numbers {
    std::string voucher, paper;
  };
  Go openLookup(const KeyLookup& by);
  bool hasSources() const;
  void take(const MadeFrom& from);
  void takeOut(const MadeFrom& from);
  void showSources();
  void tellStanding();
  void tellReason();
  const KeyLookup* enterLookup(const Control& field) const;
  std::string allLines() const;
  void tellEscape();
  bool ratesShown() const;
  void setMode(const std::string& next, const std::string& pattern);
  void showButtons(bool atRest);
  void enableFields();
  bool show(double number);
  // Marks it as in hand for a change; where somebody else has it, it may be looked at.
  bool takeInHand(double number);
  Go askToDelete(double number);
  bool remove(double number);
  // Before anything is written: the number is free, nothing that was typed waits for its work, the line
  // being typed is stored, the totals are those of the lines, the party is known and the number on the
  // paper its own. False when it cannot go on.
  bool readyToSave();
  bool complete() const;
  bool hasParty() const;
  void store(const Numbers& shown);
  // Another program was quicker.
  void changedMeanwhile();
  // Back to rest, then the message window: its print button opens the document.
  void saved();
  void awaitMaster(Control& field, const std::string& master, std::string& last);
  std::vector<double> inputs() const;
  std::string lineTexts() const;
  bool workFields(Part part);
  bool storeTypedLine();
  bool figureAmount();
  bool tooLarge(Part part);
  bool mayStandSmaller();  // than is settled of it
  Numbers numbers() const;
  bool paperNumberGiven() const;
  bool takeFreeNumbers();
  bool stepOverTaken();
  void tellNumbers(const Numbers& shown);  // which are others than they were
  void showAgain(const Numbers& shown);

  std::vector<KeyLookup> lookups_;
  const Control* ratesFor_ = nullptr;  // the field whose focus keeps the rate grid up
  bool backFromRates_ = false;
  double loaded_ = 0;     // number of the voucher that is shown for a change
  std::string asLoaded_;  // and how it stood then
  InHand hand_;
  std::vector<double> figuredFor_;
  std::string shownLine_;   // the texts of the line as it was shown last
  std::string shownLines_;  // all lines, as the voucher was shown
  std::string lineItem_;    // the item that the line was filled from, and the rate of its unit
  double fromUnit_ = 0;
  bool rateTyped_ = false;  // by hand, since the line was shown
  std::string chosenUnit_;  // of the row chosen in a list of items
  struct Taken {
    std::vector<double> serials;  // of its lines
    std::string asStored;
  };
  std::map<std::string, Taken> taken_;
  std::string standing_;
  bool drilledDown_ = false;
  bool atRest_ = true;
  // A master was opened for this field; its new code stands in the session member when it differs.
  Control* awaiting_ = nullptr;
  const std::string* newCode_ = nullptr;
  std::string codeBefore_;
};
