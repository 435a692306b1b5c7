#include "frame/category_list.h"

#include <system_error>

#include "base/words.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "platform/workbook/create.h"

namespace fs = std::filesystem;

fs::path writeCategoryList(Database& db, const fs::path& program) {
  workbook::List list{.titles = {words("Category Listing")}};
  auto rows = db.query("select dept_cd as CODE, dept_name as NAME from deptment");
  for (const char* heading : {english("CODE"), english("NAME")})
    list.columns.push_back({.heading = words(heading)});
  list.next = [&](std::vector<workbook::ListCell>& row) {
    if (!rows.next()) return false;
    row = {{rows.text(0)}, {rows.text(1)}};
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
