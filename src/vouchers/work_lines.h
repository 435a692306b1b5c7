#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/voucher_kinds.h"
#include "platform/grid.h"
#include "store/rowset.h"

// The lines of the voucher on screen: a cursor over the work table in the order of voucher
// number and serial, and what the line grid shows of them. It stands on a row, or past the last
// one, where the next stored line is added.
class WorkLines : public RowSource {
 public:
  // A column of the grid; with a pattern its figures are written by it.
  struct Shown {
    std::string column;
    std::string pattern = {};
    bool zero = true;  // else a figure of 0 leaves its cell empty
  };
  WorkLines(Database& db, const VoucherKind& kind, std::vector<Shown> shown);

  size_t count() const override { return static_cast<size_t>(rows_.count()); }
  Cell cell(size_t row, size_t column) const override;

  void clear();                        // empties the work table
  void requery() { rows_.requery(); }  // reads it again and stands on its first row
  void refresh() { rows_.refresh(); }  // figures that a statement has changed, where it stands
  bool onRow() const { return !rows_.bof() && !rows_.eof(); }
  const Row& row() { return rows_.row(); }
  size_t position() const {
    return onRow() ? static_cast<size_t>(rows_.absolutePosition() - 1) : Grid::kNone;
  }
  void moveTo(size_t row) { rows_.moveTo(static_cast<int>(row) + 1); }
  void next() { rows_.moveNext(); }
  void previous();  // stays on the first

  // The serial that the line being typed will have: its own when it stands on a row, else the
  // highest + 1, so that no serial is given twice.
  double serial();
  // The columns over all lines; nothing where no line has a figure.
  std::vector<std::optional<double>> sums(const std::vector<std::string>& columns);
  // Overwrites the row it stands on, else adds one; stands on it then.
  void store(const Fields& line);

 private:
  Database& db_;
  const VoucherKind& kind_;
  std::vector<Shown> shown_;
  mutable Rowset rows_;
};
