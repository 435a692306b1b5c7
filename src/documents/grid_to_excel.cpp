#include <filesystem>
#include <utility>

#include "documents/grid_output.h"
#include "documents/paper.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "platform/workbook/create.h"

namespace {

constexpr double kTwipsOfCharacter = 100, kPortraitTwips = 10400;

const char* formatOf(ColumnType type) {
  switch (type) {
    case ColumnType::Text:
      return "@";
    case ColumnType::Date:
      return "dd/mm/yy";
    case ColumnType::Count:
      return "0";
    case ColumnType::Money:
    case ColumnType::Rate:
    case ColumnType::Quantity:
      break;
  }
  return "0.00";
}

workbook::Value valueOf(TypedValue value) {
  if (const Date* date = std::get_if<Date>(&value)) return workbook::Value::date(*date);
  if (const double* number = std::get_if<double>(&value)) return *number;
  std::string& text = std::get<std::string>(value);
  return text.empty() ? workbook::Value() : workbook::Value(std::move(text));
}

void writeWorkbook(const std::string& path, const GridOutput& out) {
  workbook::List list{
      .titles = {session().mcompname, out.caption, out.period},
        .sheet = "REPORT"
  };
  std::vector<size_t> kept;
  double sum = 0;
  for (size_t i = 0; i < out.columns.size(); ++i) {
    const TypedColumn& column = out.columns[i];
    if (column.twips <= 0) continue;
    kept.push_back(i);
    list.columns.push_back({.heading = column.heading,
                            .width = column.twips / kTwipsOfCharacter,
                            .format = formatOf(column.type)});
    sum += column.twips;
  }
  list.landscape = sum > kPortraitTwips;
  size_t next = 0;
  list.next = [&](std::vector<workbook::ListCell>& row) {
    if (next == out.count()) return false;
    row.clear();
    for (const size_t i : kept)
      row.push_back({valueOf(out.rows->value(next, i)), formatOf(out.rows->type(next, i))});
    ++next;
    return true;
  };
  workbook::createList(path, list);
}

}  // namespace

void GridToExcel(Host& host, const GridOutput& out) {
  const std::string path = (std::filesystem::path(session().mapppath) / "report.xlsx").string();
  if (session().mexcelkill) EndProcess(host, "excel.exe");
  bool held = false;
  tellFailures(host, [&] {
    try {
      writeWorkbook(path, out);
    } catch (const workbook::WorkbookHeld&) {
      held = true;
      return;
    }
    host.view(path);
  });
  if (held) host.message("Excel File is Already Openned By Another User", "Error");
}
