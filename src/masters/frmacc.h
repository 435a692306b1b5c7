#pragma once

#include "masters/entry_screen.h"

// Account master: parties and ledger accounts.
class frmacc : public EntryScreen {
 public:
  explicit frmacc(Host& host);
  bool worksOnLeaving(const Control& target) const override;

 protected:
  std::string nextCode() override;
  void newEntry() override;
  std::optional<Row> storedRow(const std::string& code) override;
  void shown(const std::string&) override { showGroupName(); }
  Lookup codeLookup() const override;
  std::string missingCodeWords() const override;
  std::string existingCodeWords() const override { return english("PARTY ALREADY EXISTS"); }
  Control* missingField() override;
  bool maySave() override;
  bool store() override;
  std::optional<Refusal> refusal(const std::string& code) override;
  void erase(const std::string& code) override;
  void saved(const std::string& code) override;
  void emptied() override;

 private:
  Go nameEntered();
  Go nameLeft();
  Go nameIsFree();
  Go groupEntered();
  Go groupLeft();
  Go groupIsKnown();
  Go openingEntered();
  Go cityEntered();
  Go pinCodeEntered();
  Go areaEntered();
  Go gstinEntered();
  Go stateEntered();
  Go stateLeft();
  bool stateIsKnown();
  void dropWaiting() { saveWaits_ = false; }
  template <size_t N>
  Go search();
  void showGroupName();

  bool saveWaits_ = false;  // for the state that it has asked for
};
