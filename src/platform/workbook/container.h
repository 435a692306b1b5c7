#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/workbook/workbook.h"

struct zip;

// The zip file around a workbook: named parts of bytes and the relations between them. Part
// names have no leading slash ("xl/workbook.xml") and are found without regard to case.
// Checksums and sizes are verified when a part is read; WorkbookError tells what is wrong.
namespace workbook {

struct Relation {
  std::string id;
  std::string type;    // the last word of the type's address: "worksheet", "image"
  std::string target;  // a part name, empty when outside the file
};

// What differs from the file that was loaded when it is saved.
struct PartChanges {
  std::map<std::string, std::string> replaced;
  std::set<std::string> removed;
};

class Container {
 public:
  static Container open(const std::string& path);
  static Container fromBytes(std::string bytes);

  bool has(std::string_view part) const;
  std::string read(std::string_view part) const;
  std::vector<Relation> relations(std::string_view part) const;
  // Writes beside the target first and renames, so that the target is whole or as it was.
  void save(const std::string& path, const PartChanges& changes) const;

  const std::string& name() const { return name_; }  // empty for bytes
  // Raises WorkbookError: "The file bill.xlsx is not a workbook."
  [[noreturn]] void refuse(std::string_view what) const;
  [[noreturn]] void damaged() const { refuse("is damaged or cut short."); }

 private:
  struct Closer {
    void operator()(struct zip* archive) const;
  };

  Container(std::string bytes, std::string name);
  std::string written(const PartChanges& changes) const;

  std::unique_ptr<std::string> bytes_;  // stays in place, the archive reads from it
  std::string name_;
  std::unique_ptr<struct zip, Closer> archive_;
  std::map<std::string, uint64_t, std::less<>> parts_;  // lower-case name to index
  mutable std::set<uint64_t> read_;                     // parts that were read at least once
  mutable uint64_t readBytes_ = 0;
};

// "xl/worksheets/sheet1.xml" to "xl/worksheets/_rels/sheet1.xml.rels"
std::string relationsPart(std::string_view part);

}  // namespace workbook
