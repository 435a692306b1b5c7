#include "base/date.h"
#include "base/number.h"
#include "base/text.h"
#include "documents/grid_output.h"
#include "documents/paper.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "platform/workbook/create.h"

namespace {

constexpr double kTwipsOfCharacter = 100, kPortraitTwips = 10400;
constexpr const char* kMoney = "0.00";
constexpr const char* kText = "@";
constexpr const char* kDate = "dd/mm/yy";

// How a column of the grid stands in the sheet.
struct Kept {
  size_t column;
  enum class Kind { Text, Money, Date } kind;
};

Kept::Kind kindOf(const std::string& title, bool numeric) {
  if (numeric) return Kept::Kind::Money;
  return lower(title).find("date") != std::string::npos ? Kept::Kind::Date : Kept::Kind::Text;
}

const char* formatOf(Kept::Kind kind) {
  return kind == Kept::Kind::Money ? kMoney : kind == Kept::Kind::Date ? kDate : kText;
}

// Figures and dates as such; whatever else stands in their columns is text.
workbook::Value valueOf(std::string text, Kept::Kind kind) {
  if (text.empty()) return {};
  if (kind == Kept::Kind::Money && isNumberText(text)) return Val(text);
  if (const auto date = kind == Kept::Kind::Date ? parseDate(text) : std::nullopt)
    return workbook::Value::date(*date);
  return text;
}

void writeWorkbook(const std::string& path, const Grid& grid, const GridOutput& out) {
  workbook::List list{
      .titles = {session().mcompname, out.caption, out.period},
        .sheet = "REPORT"
  };
  std::vector<Kept> kept;
  double sum = 0;
  for (size_t i = 0; i < std::min(grid.columns.size(), out.widths.size()); ++i) {
    if (out.widths[i] <= 0) continue;
    const Kept::Kind kind = kindOf(grid.columns[i].title, out.numeric[i] != 0);
    kept.push_back({i, kind});
    list.columns.push_back({.heading = grid.columns[i].title,
                            .width = out.widths[i] / kTwipsOfCharacter,
                            .format = formatOf(kind)});
    sum += out.widths[i];
  }
  list.landscape = sum > kPortraitTwips;
  size_t next = 0;
  list.next = [&](std::vector<workbook::Value>& row) {
    if (next == grid.count()) return false;
    row.clear();
    for (const Kept& k : kept) row.push_back(valueOf(grid.cell(next, k.column).text, k.kind));
    ++next;
    return true;
  };
  workbook::createList(path, list);
}

}  // namespace

void GridToExcel(Host& host, const Grid& grid, const GridOutput& out) {
  const std::string path = (std::filesystem::path(session().mapppath) / "report.xlsx").string();
  if (session().mexcelkill) EndProcess(host, "excel.exe");
  bool held = false;
  tellFailures(host, [&] {
    try {
      writeWorkbook(path, grid, out);
    } catch (const workbook::WorkbookHeld&) {
      held = true;
      return;
    }
    host.view(path);
  });
  if (held) host.message("Excel File is Already Openned By Another User", "Error");
}
