#pragma once

#include <xlsxwriter.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/workbook/workbook.h"

// Workbooks made for the tests: by libxlsxwriter, or part by part where a program would
// never write such a file.
namespace books {

// A folder that goes with the object.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }
  std::vector<std::string> files() const;

 private:
  std::filesystem::path path_;
};

std::string bytesOf(const std::string& path);
void writeBytes(const std::string& path, const std::string& bytes);

// What `fill` writes with libxlsxwriter, as a file's bytes.
std::string written(const std::function<void(lxw_workbook*)>& fill);

using Parts = std::map<std::string, std::string>;
std::string zipped(const Parts& parts);
Parts unzipped(const std::string& bytes);
// The parts of a workbook with one sheet "S" of the given XML; "x:" makes prefixed elements.
Parts withSheet(const std::string& sheetXml, const std::string& workbookXml = "");
std::string sheet(const std::string& rows, const std::string& behind = "");

// A value as a formula bar would say it: 12.5, text, TRUE, #N/A.
std::string said(const workbook::Value& value);

bool hasTool(const std::string& name);
// What the command prints; `status` is its exit status.
std::string run(const std::string& command, int* status = nullptr);

}  // namespace books
