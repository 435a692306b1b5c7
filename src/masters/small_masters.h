#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/field_names.h"
#include "frame/lookup.h"
#include "masters/guards.h"
#include "store/database.h"
#include "store/row_writer.h"

// The small code tables that one screen keeps. What tells them apart stands in one table; the
// screen and the rules below only follow it.

// How a field is entered and tested.
enum class SmallKind {
  Text,
  Number,
  YesNo,        // "Y" or "N"
  Account,      // an account's code, looked up and tested
  AccountName,  // filled from the account before it
  Group,        // a group's code, looked up and tested
};

struct SmallField {
  FieldName field;
  std::string_view column, label;
  int limit = 0;
  SmallKind kind = SmallKind::Text;
  bool required = false;
  std::string_view hint = {};
};

enum class SmallCode { NextNumber, NextCategory, Typed, ItsText };

struct SmallMaster {
  std::string_view key;   // master key; "USERFORM" is an entry type
  std::string_view stem;  // of the captions
  std::string_view table;
  SmallCode code = SmallCode::Typed;
  bool numericCode = false;
  bool inCatalogue = false;
  std::vector<SmallField> fields = {};  // the code first
  int name = 1;                         // the field in which a new row must differ from all others
  std::string_view duplicate = "Duplicate Not Allowed";
  Select list = {};  // rows shown beside, searched by the last column
  Lookup lookup = {};
  std::vector<Guard> guards = {};
};

// The master that is asked for; categories when the key is unknown.
const SmallMaster& smallMaster(const Opening& opening);

// The code as its column compares it: a number where codes are numbers.
Value smallCode(const SmallMaster& master, std::string_view code);
// Empty where the code is typed.
std::string nextSmallCode(const SmallMaster& master, Database& db);
// A table that the database does not have holds no row.
std::optional<Row> findSmallRow(const SmallMaster& master, Database& db, std::string_view code);
bool smallNameInUse(const SmallMaster& master, Database& db, std::string_view name);
std::optional<Refusal> smallRefusal(const SmallMaster& master, Database& db, std::string_view code);
// Bills that a transporter stands in: its deletion is asked about, not refused.
int salesOfTransport(Database& db, std::string_view code);
// False when there is no such row.
bool changeSmallRow(const SmallMaster& master, Database& db, std::string_view code, const Fields& fields);
void deleteSmallRow(const SmallMaster& master, Database& db, std::string_view code);
// An empty transporter table begins with a row LOCAL.
void ensureLocalTransport(Database& db);
