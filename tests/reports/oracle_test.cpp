#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "reports/balances.h"
#include "reports/statement.h"
#include "store/templates.h"
#include "support/temp_folder.h"

// A year at random, compared cell by cell with what oracle.py beside this file works out from
// the raw tables.

namespace {

std::string style(const Cell& cell) {
  std::string marks;
  if (cell.fontSize == 9) marks += '9';
  if (cell.bold) marks += 'B';
  if (cell.align == Align::Left) marks += 'L';
  if (cell.back == 0xFAFAF0) marks += 'm';
  if (cell.back == 0xFFE0E0) marks += 't';
  if (cell.back == kWhite) marks += 'w';
  return marks;
}

std::string behind(const std::optional<VoucherKey>& v) { return v ? v->book + numText(v->number) : ""; }

std::string written(const std::vector<StatementRow>& rows) {
  std::string all;
  for (const StatementRow& row : rows) {
    for (const Cell& cell : row.cells) all += cell.text + "\x1f" + style(cell) + "\t";
    all += behind(row.voucher) + "," + behind(row.creditVoucher) + "\n";
  }
  return all;
}

// Rows as lines, from a column on as money.
std::string written(const std::vector<Row>& rows, int firstFigure) {
  std::vector<std::string> lines;
  for (const Row& row : rows) {
    std::vector<std::string> cells;
    for (int i = 0; i < row.count(); ++i)
      cells.push_back(i < firstFigure ? row.text(i) : Format(row.number(i), "0.00"));
    lines.push_back(join(cells, "\t") + "\n");
  }
  return join(lines, "");
}

class Oracle : public ::testing::Test {
 protected:
  std::string run(const std::string& task, const std::string& more) {
    const auto script = std::filesystem::path(MIRAV_TEST_DATA).parent_path() / "oracle.py";
    const std::string answer = folder / "answer";
    const std::string command =
        "python3 '" + script.string() + "' " + task + " '" + file + "' " + more + " > '" + answer + "'";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("oracle.py fails");
    std::ifstream in(answer);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  std::string saw(const std::vector<std::string>& asked) {
    const std::string& kind = asked[0];
    if (kind == "CL_BAL") return rebuilt();
    const StatementQuery query{.account = asked.size() > 3 ? asked[3] : "",
                               .from = *parseDate(asked[1]),
                               .to = *parseDate(asked[2]),
                               .periodStart = *parseDate("2026-04-01"),
                               .narration = asked.back() == "1"};
    if (kind == "running") return written(runningStatement(db, query));
    if (kind == "tledger") return written(tLedger(db, query));
    if (kind == "summary") return written(BuildFinalTable(db, query.from, query.to, "accmast"), 2);
    EXPECT_TRUE(BuildFinalTable(db, query.from, query.to, kClosingBalanceList).empty());
    const auto filter = [&](size_t i) { return asked[i] == "-" ? std::string() : asked[i]; };
    if (kind == "closing") return written(closingBalances(db, filter(3), filter(4)), 99);
    auto table =
        split(written(db.all("SELECT GROUP_CD, GROUP_NAME, UPPER(ACC_CD), ACC_NAME, OP_BALDR, OP_BALCR,"
                             " OP_BALTDR, OP_BALTCR, TR_BALDR, TR_BALCR FROM T_FINALNEW"),
                      4),
              "\n");
    table.pop_back();
    std::ranges::sort(table);
    return join(table, "\n") + "\n";
  }

  // All balances at once, which must be those of one after the other.
  std::string rebuilt() {
    const char* const all = "SELECT ACC_CD, CL_BAL FROM ACCOUNT ORDER BY ACC_CD";
    RebuildAllBalances(db);
    const std::string atOnce = written(db.all(all), 1);
    db.exec("UPDATE ACCOUNT SET CL_BAL = 7");
    for (const Row& account : db.all(all)) RebuildOneBalance(db, account.text(0));
    EXPECT_EQ(atOnce, written(db.all(all), 1));
    return atOnce;
  }

  TempFolder folder;
  std::string file = folder / "M00126.mdb";
  Database db;
};

TEST_F(Oracle, AgreesOnEveryCellOfEveryStatementAndBalance) {
  makeCompanyDatabase(file);
  run("make", "20260615");
  db.open(file);
  const auto blocks = split(run("expect", ""), "@ ");
  ASSERT_EQ(blocks.size(), 1U + 3 * (50 * 4 + 5) + 1);
  for (size_t i = 1; i < blocks.size(); ++i) {
    const size_t end = blocks[i].find('\n');
    const std::string heading = blocks[i].substr(0, end);
    const auto wanted = split(blocks[i].substr(end + 1), "\n"), found = split(saw(split(heading, " ")), "\n");
    const auto [want, got] = std::ranges::mismatch(wanted, found);
    ASSERT_EQ(want == wanted.end() ? "the end" : *want, got == found.end() ? "the end" : *got)
        << heading << ", line " << want - wanted.begin();
  }
}

}  // namespace
