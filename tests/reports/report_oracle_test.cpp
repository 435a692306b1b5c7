#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "base/number.h"
#include "base/text.h"
#include "reports/report_rows.h"
#include "reports/reports.h"
#include "store/templates.h"
#include "support/temp_folder.h"

// A year at random, every list and register compared cell by cell with what report_oracle.py beside
// this file works out from the raw tables.

namespace {

constexpr Bgr kTotal = 1, kDetail = 2;

std::string columnsOf(const ReportRows& rows) {
  std::vector<std::string> columns;
  for (const ReportColumn& column : rows.columns())
    columns.push_back(column.heading + "|" + numText(column.twips));
  return join(columns, "\t");
}

std::string rowOf(const ReportRows& rows, size_t row) {
  const Bgr back = rows.cell(row, 0).back;
  std::string line = back == kTotal ? "t" : back == kDetail ? "d" : "";
  for (size_t column = 0; column < rows.columns().size(); ++column)
    line += "\t" + replaceAll(rows.cell(row, column).text, "\t", "\x1f");
  const auto voucher = rows.voucher(row);
  return line + "\t" + (voucher ? voucher->book + numText(voucher->number) : "");
}

class ReportOracle : public ::testing::Test {
 protected:
  std::string run(const std::string& task) {
    const auto script = std::filesystem::path(MIRAV_TEST_DATA).parent_path() / "report_oracle.py";
    const std::string answer = folder / "answer";
    const std::string command = "python3 '" + script.string() + "' " + task + " > '" + answer + "'";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("report_oracle.py fails");
    std::ifstream in(answer);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  // The heading of a block as the report shows it: the columns, then the rows.
  std::vector<std::string> shown(const std::vector<std::string>& asked) {
    const Report* const report = reportByKey(asked[0]);
    if (!report) return {"no report " + asked[0]};
    ReportQuery query{.from = *parseDate(asked[1]), .to = *parseDate(asked[2]), .yes = asked[8] == "Yes"};
    for (const ReportField field : report->fields)
      if (field != kSalesman) query.fields[field] = asked[3 + field];
    ReportRows rows(db, report->plan(db, query), {.total = kTotal, .detail = kDetail});
    while (rows.read(7)) {
    }
    std::vector<std::string> lines{columnsOf(rows)};
    for (size_t row = 0; row < rows.count(); ++row) lines.push_back(rowOf(rows, row));
    return lines;
  }

  TempFolder folder;
  std::string file = folder / "M00126.mdb";
  Database db;
};

TEST_F(ReportOracle, AgreesOnEveryCellOfEveryListAndRegister) {
  makeCompanyDatabase(file);
  run("make '" + file + "' 20260616");
  db.open(file);
  const auto blocks = split(run("expect '" + file + "'"), "@ ");
  ASSERT_GT(blocks.size(), 80U);
  for (size_t i = 1; i < blocks.size(); ++i) {
    auto wanted = split(blocks[i], "\n");
    wanted.pop_back();
    const std::string heading = wanted.front();
    wanted.erase(wanted.begin());
    const auto found = shown(split(heading, "\t"));
    const auto [want, got] = std::ranges::mismatch(wanted, found);
    ASSERT_EQ(want == wanted.end() ? "the end" : *want, got == found.end() ? "the end" : *got)
        << heading << ", line " << want - wanted.begin();
  }
}

}  // namespace
