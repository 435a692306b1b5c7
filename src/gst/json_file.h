#pragma once

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "gst/amounts.h"

// Files for the portal, written record by record so that a year of bills costs no memory, and begun anew
// where the next record would make one too large: each part has the head and is whole by itself. Known to the
// sources that write such files alone, since its library is slow to compile.

using Json = nlohmann::ordered_json;

// Rupees as the portal takes them: whole ones without a point.
Json jsonMoney(Paise amount);
// A rate or quantity, likewise.
Json jsonFigure(double value);

class JsonFiles {
 public:
  // <stem>.json, then <stem>_2.json and so on; `most` bytes each.
  JsonFiles(std::filesystem::path folder, std::string stem, Json head, size_t most);

  // A record of the list that the keys lead to: {"b2b"} or {"b2b", "inv"}. With two keys the record stands in
  // the inner list of a group, whose other members are `group`. Records of one list come one after the other.
  void add(const std::string& list, const Json& record);
  void add(const std::string& list, const Json& group, const std::string& inner, const Json& record);
  // A member of the head that is whole.
  void put(const std::string& key, const Json& value);

  // The files, in their order; former parts beyond them are gone. Failures are std::system_error.
  std::vector<std::filesystem::path> finish();

 private:
  void makeRoom(size_t size);
  void closeGroup();
  void closeList();
  void begin();
  void end();

  std::filesystem::path folder_;
  std::string stem_, head_;
  size_t most_;
  std::string text_;
  std::string list_, group_, inner_;  // open ones, the group as it is written
  bool full_ = false;                 // a record stands in the file
  std::vector<std::filesystem::path> written_;
};
