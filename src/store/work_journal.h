#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

// What a connection has written into its work tables, so that another connection can write it again: a
// server forgets them with the connection, and what was typed must not be lost with it. Repeated from the
// start, it gives the rows the numbers that they had.
class WorkJournal {
 public:
  struct Entry {
    std::string sql;
    std::vector<Value> values;
  };

  // The table that an INSERT, UPDATE or DELETE writes; empty for other statements.
  static std::string target(std::string_view sql);
  // "DELETE FROM T" without a condition.
  static bool empties(std::string_view sql);

  void add(std::string sql, std::vector<Value> values);
  // Forgets what was written into the table, unless another table was filled from it.
  void emptied(const std::string& table);
  const std::vector<Entry>& entries() const { return entries_; }
  // A transaction that is taken back takes its entries along.
  size_t mark() const { return entries_.size(); }
  void backTo(size_t mark);
  std::vector<Entry> since(size_t mark) const;
  void clear() { entries_.clear(); }

 private:
  std::vector<Entry> entries_;
};
