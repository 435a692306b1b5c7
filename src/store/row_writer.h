#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/database.h"

// Writing rows as entry screens do: each value is tested against its column first, and a column
// that the value does not fit is left at its default (an update leaves it as it stands), while
// the rest of the row is written. So is a column that the table does not have.
//
//   insertRow(db, "SALE", {{"VOUCH_NO", n}, {"VOUCH_DT", date}, {"BILL_NO", billNo}});

struct Field {
  std::string_view column;
  Value value;
};
using Fields = std::vector<Field>;

// The value as the column keeps it: numbers as number text in a text column, dates in any of
// their forms as ISO text in a date column. None when it does not fit: a text that is too long,
// a text that is no number in a number column, or no date or time of day in a date column.
std::optional<Value> fitting(const Column& column, const Value& value);

// Returns the new row's rowid.
std::int64_t insertRow(Database& db, std::string_view table, const Fields& fields);
// The same where nobody asks for its number (Database::later).
void insertLater(Database& db, std::string_view table, const Fields& fields);
// Many rows by few statements (Database::later): `into` names table and columns, `row` stands behind VALUES
// once a row, and takes the values in turn.
void insertMany(Database& db, const std::string& into, const std::string& row,
                const std::vector<Value>& values);
// Returns the count of rows changed; `where` stands behind WHERE and takes the values. Later: nobody asks.
int updateRows(Database& db, std::string_view table, const Fields& fields, std::string_view where,
               const std::vector<Value>& values = {});
void updateLater(Database& db, std::string_view table, const Fields& fields, std::string_view where,
                 const std::vector<Value>& values = {});
