#pragma once

#include <memory>
#include <optional>
#include <string>

#include "masters/page_rows.h"
#include "platform/host.h"

// What the session asks of a lookup, worked out before the screen stands: its rows, and a
// screen table whose columns, width and place depend on the caller.
struct LookupPlan {
  LookupPlan();
  // The rows of a search in one of the first columns; all of them for an empty text.
  std::shared_ptr<PageRows> found(size_t column, const std::string& typed) const;

  Database* database = nullptr;
  Select all, start;            // without and with the filter that keeps out the voucher in hand
  std::optional<Select> steps;  // the same as `start` where values can be read in steps
  std::shared_ptr<PageRows> rows;
  ScreenSpec table;

 private:
  bool few_ = false;  // all rows have been counted on opening
};

// The lookup: a list over the statement that the session's mhlp members describe, with a search
// field over each of its first two columns. Its result is the text of the first column of the
// row under the cursor, nothing after Escape. Opened with the value "second" it has no search
// field over the first column.
class FRMHLP : private LookupPlan, public Screen {
 public:
  explicit FRMHLP(Host& host);

  void opened(const Entry& entry) override;
  void closed() override;
  char32_t filter(const Control& control, char32_t key) override;
  void typed(Control& control, char32_t key) override;
  // The rest of the rows is counted once the list has been looked at for a moment.
  void tick() override;

 private:
  void searchFirst() { search(0); }
  void searchSecond() { search(1); }
  void search(size_t column);
  void show(std::shared_ptr<PageRows> list);

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
  void escape();

  static constexpr int kPage = 5;
};
