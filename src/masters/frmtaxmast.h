#pragma once

#include "masters/entry_screen.h"
#include "masters/small_masters.h"

// One screen for all small code tables; the master key (for users the entry type) says which one
// it is when it opens. While no mode is on, function keys change to another table.
class frmtaxmast : public EntryScreen {
 public:
  frmtaxmast(Host& host, const Opening& opening);
  void opened(const Opening& opening) override;
  char32_t filter(const Control& control, char32_t key) override;

 protected:
  Database& database() const override;
  std::string nextCode() override { return nextSmallCode(master_, database()); }
  void newEntry() override;
  std::optional<Row> storedRow(const std::string& code) override;
  void shown(const std::string&) override { showGroupName(); }
  Lookup codeLookup() const override { return master_.lookup; }
  std::string missingCodeWords() const override;
  std::string existingCodeWords() const override { return std::string(master_.duplicate); }
  std::string blankCodeWords() const override { return english("Blank Not Allowed"); }
  Control* missingField() override;
  bool maySave() override;
  bool store() override;
  bool mayDelete(const std::string& code) override;
  std::optional<Refusal> refusal(const std::string& code) override;
  void erase(const std::string& code) override;
  bool keyMayChange() const override { return master_.code == SmallCode::ItsText; }
  bool mayEdit() override;
  void emptied() override;

 private:
  frmtaxmast(Host& host, const SmallMaster& master);

  template <size_t N>
  Go change();
  Go fieldEntered();
  Go accountEntered(int index);
  Go groupEntered(int index);
  bool mayStandUnder(const std::string& group) const;
  void showGroupName();
  int count() const { return static_cast<int>(master_.fields.size()); }
  Control& field(int index) { return at(fieldOf(index).field); }
  const SmallField& fieldOf(int index) const { return master_.fields[static_cast<size_t>(index)]; }

  const SmallMaster& master_;
};
