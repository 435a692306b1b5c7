#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/value.h"

// What a connection has written into its work tables, so that another connection can write it again: a
// server forgets them with the connection, and what was typed must not be lost with it.
class WorkJournal {
 public:
  struct Entry {
    std::string sql;
    std::vector<Value> values;
    std::int64_t row = 0;  // of an INSERT, the number of its first row
  };

  // The table that an INSERT, UPDATE or DELETE writes; empty for other statements.
  static std::string target(std::string_view sql);
  // "DELETE FROM T" without a condition.
  static bool empties(std::string_view sql);

  void add(Entry entry) { entries_.push_back(std::move(entry)); }
  // Forgets what was written into a table before it was emptied, unless another one was filled from it. Once
  // no transaction can take that back.
  void shorten();
  const std::vector<Entry>& entries() const { return entries_; }
  // A transaction that is taken back takes its entries along.
  size_t mark() const { return entries_.size(); }
  void backTo(size_t mark);
  std::vector<Entry> since(size_t mark) const;
  void clear() { entries_.clear(); }

 private:
  std::vector<Entry> entries_;
};
