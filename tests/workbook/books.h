#pragma once

#include <xlsxwriter.h>

#include <functional>
#include <map>
#include <string>

#include "platform/workbook/workbook.h"

// Workbooks made for the tests: by libxlsxwriter, or part by part where a program would
// never write such a file.
namespace books {

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

}  // namespace books
