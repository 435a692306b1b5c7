#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/database.h"
#include "store/row_writer.h"

// A cursor over the rows of one table, for the few places that need one: the lines of a voucher
// being entered, the rows of a small master.
//
//   Rowset lines(db, {.table = "T_SLITM", .order = "VOUCH_NO, SR_NO"});
//   if (lines.bof() || lines.eof()) lines.addNew(fields); else lines.update(fields);
//
// It stands on a row, before the first or past the last. Which rows there are and their order are
// those of the last requery(); their contents are read afresh after each change made through it,
// and after refresh() when a statement changed them. An added row stands last until the next
// requery. A row that a statement deleted reads as empty.

struct RowsetSource {
  std::string table;
  std::string where{};  // with "?" for the values
  std::string order{};
  std::vector<Value> values{};
};

class Rowset {
 public:
  // Opens on the first row.
  Rowset(Database& db, RowsetSource source);

  // Reads the rows anew and goes to the first.
  void requery();
  // Forgets the contents, keeps the rows and the position.
  void refresh() { read_.clear(); }

  int count() const { return static_cast<int>(rowids_.size()); }
  // Both at once when there are no rows.
  bool bof() const { return position_ < 0 || rowids_.empty(); }
  bool eof() const { return position_ >= count(); }
  // 1 for the first row, 0 before it, count() + 1 past the last.
  int absolutePosition() const { return position_ + 1; }
  void moveTo(int absolutePosition);
  void moveFirst() { moveTo(1); }
  void moveNext() { moveTo(position_ + 2); }
  void movePrevious() { moveTo(position_); }

  // From the first row; past the last when no row has the value.
  bool find(std::string_view column, const Value& value);
  // Rows whose column contains the typed text, letter by letter, without regard to case; an
  // empty text shows all. Goes to the first.
  void filter(std::string_view column, std::string_view typed);

  // The row it stands on; before the first and past the last an empty one of the same columns.
  const Row& row() { return rowAt(position_); }
  // From 0, for grids.
  const Row& rowAt(int index);
  std::string text(std::string_view column) { return row().text(column); }
  double number(std::string_view column) { return row().number(column); }

  // Adds a row behind the last and stands on it.
  void addNew(const Fields& fields);
  void update(const Fields& fields);
  // Deletes the row and stands on the one behind it.
  void remove();

 private:
  Database& db_;
  RowsetSource source_;
  std::string filterColumn_;
  std::string filterText_;
  std::vector<std::int64_t> rowids_;
  std::unordered_map<std::int64_t, Row> read_;
  Row empty_;
  int position_ = -1;
};

// A typed text as a literal part for LIKE ? ESCAPE '\': "%50\% off%".
std::string literalPattern(std::string_view typed);
