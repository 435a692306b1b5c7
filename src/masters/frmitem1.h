#pragma once

#include <optional>
#include <vector>

#include "masters/entry_screen.h"
#include "masters/items.h"

// Item master: the head of an item and its detail rows, one for each batch or unit. A detail row
// is typed in the entry row over the list; Enter in its last field takes it into the list, Enter
// on a row of the list brings it back into the entry row.
class FRMITEM1 : public EntryScreen {
 public:
  explicit FRMITEM1(Host& host);
  void opened(const Opening& opening) override;
  void closed() override;

 protected:
  std::string nextCode() override;
  std::optional<Row> storedRow(const std::string& code) override;
  void shown(const std::string& code) override;
  std::string standing(const std::string& code) override;
  Lookup codeLookup() const override;
  std::string missingCodeWords() const override { return english("NO RECORD FOUND"); }
  std::string existingCodeWords() const override { return english("ITEM ALLREADY EXIST"); }
  Control* missingField() override;
  bool maySave() override;
  bool store() override;
  std::optional<Refusal> refusal(const std::string& code) override;
  void erase(const std::string& code) override;
  void saved(const std::string& code) override;
  void emptied() override;
  bool unsaved() const override;

 private:
  Go rateSearch();
  Go shortNameSearch();
  Go searchInto(const Lookup& lookup);
  Go nameEntered();
  Go nameIsFree();
  Go categoryEntered();
  Go categoryIsKnown();
  Go unitEntered();
  Go hsnEntered();

  void sizeFocused();
  Go sizeEntered();
  Go detailEnded();
  void endDetails();
  void toRows();
  Go pickRow();
  void removeRow();
  ItemDetail typedDetail() const;
  std::optional<ItemKey> rowUnderCursor() const;
  void keepDetail(const ItemDetail& detail);
  void clearDetail();
  void showRows();
  void showCategory();

  std::optional<ItemKey> picked_;  // the row of the list that stands in the entry row
  std::vector<Renaming> renamings_;
  bool rowsChanged_ = false;  // since they were shown
};
