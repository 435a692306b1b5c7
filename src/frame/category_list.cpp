#include "frame/category_list.h"

#include <system_error>

#include "frame/routines.h"
#include "frame/session.h"
#include "platform/workbook/create.h"

namespace fs = std::filesystem;

fs::path writeCategoryList(Database& db, const fs::path& program) {
  workbook::List list{.titles = {"Category Listing"}};
  auto rows = db.query("select dept_cd as CODE, dept_name as NAME from deptment");
  for (int i = 0; i < rows.count(); ++i) list.columns.push_back({.heading = rows.names().at(i)});
  list.next = [&](std::vector<workbook::Value>& row) {
    if (!rows.next()) return false;
    row = {rows.text(0), rows.text(1)};
    return true;
  };

  fs::path file = program / "FORMATS" / "list.xlsx";
  std::error_code ignored;  // told when the workbook cannot be written into it
  fs::create_directory(file.parent_path(), ignored);
  workbook::createList(file.string(), list);
  return file;
}

void showCategoryList(Host& host) {
  if (session().mexcelkill) EndProcess(host, "excel.exe");
  fs::path list;
  const std::string failure = failureOf(host, [&] { list = writeCategoryList(data(), session().mapppath); });
  if (!failure.empty()) return host.message(failure, kMessageTitle);
  host.view(list.string());
}
