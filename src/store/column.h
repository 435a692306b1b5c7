#pragma once

#include <string>
#include <string_view>
#include <vector>

// A column as a CREATE TABLE statement declares it.
struct Column {
  enum class Kind { text, number, whole, date, other };

  std::string name{};
  // All that stands behind the name: "TEXT(6) COLLATE NOCASE CHECK (LENGTH(ACC_CD) <= 6)".
  std::string definition{};
  Kind kind = Kind::other;
  int size = 0;  // characters of a text column, 0 when not limited
};

// The columns of a CREATE TABLE statement in their order; table constraints are left out.
std::vector<Column> declaredColumns(std::string_view createStatement);

// A name as it stands in a statement: plain where it can, in brackets where it must.
std::string quotedName(std::string_view name);
