#pragma once

#include <memory>
#include <optional>
#include <string>

#include "frame/lookup.h"
#include "masters/page_rows.h"
#include "platform/host.h"

// What a lookup's value comes to, worked out before the screen stands: its rows, and a screen table
// whose columns, width and place depend on it.
struct LookupPlan {
  explicit LookupPlan(const Lookup& lookup);
  // The rows of a search in one of the first columns; all of them for an empty text.
  std::shared_ptr<PageRows> found(size_t column, const std::string& typed) const;

  const Lookup lookup;
  Database& database;
  std::optional<Select> steps;  // the same rows where values can be read in steps
  std::shared_ptr<PageRows> rows;
  ScreenSpec table;

 private:
  bool few_;  // all rows have been counted on opening
};

// The lookup: a list of the rows of a Lookup, which it is opened with, with a search field over each
// of its first two columns. Its result is the text of the first column of the row under the cursor,
// nothing after Escape.
class FRMHLP : private LookupPlan, public Screen {
 public:
  FRMHLP(Host& host, const Opening& opening);

  void opened(const Opening& opening) override;
  char32_t filter(const Control& control, char32_t key) override;
  void typed(Control& control, char32_t key) override;
  // The rest of the rows is counted once the list has been looked at for a moment.
  void tick() override;

 private:
  void searchFirst() { search(0); }
  void searchSecond() { search(1); }
  void search(size_t column);
  void show(std::shared_ptr<PageRows> list);
  void sayWhatCanBeDone();
  std::string typedForSearch();

  void down() { move(+1); }
  void up() { move(-1); }
  void pageDown() { move(+kPage); }
  void pageUp() { move(-kPage); }
  void move(int by);
  void toSecond();
  void toFirst();
  void backToSearch();
  Control& searchField();
  Go choose();
  Go chooseOne();
  void escape();

  static constexpr int kPage = 5;
};
