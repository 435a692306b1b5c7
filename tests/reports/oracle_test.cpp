#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "reports/balances.h"
#include "reports/report_rows.h"
#include "reports/reports.h"
#include "reports/statement.h"
#include "store/templates.h"
#include "support/on_server.h"
#include "support/temp_folder.h"

// Years at random, compared cell by cell with what the scripts beside this file work out from the raw
// tables: oracle.py statements and balances, report_oracle.py all other reports.

namespace {

const Date kStart = *parseDate("2026-04-01"), kEnd = *parseDate("2027-03-31");

using Lines = std::vector<std::string>;

class Oracle : public ::testing::Test {
 protected:
  explicit Oracle(const char* script) : script_(script) {}

  // Goes over every block that must come: its heading is what is asked, the rest what must be seen.
  void agree(const char* seed, size_t count) {
    makeCompanyDatabase(file_);
    run("make", seed);
    ontoServer(file_);
    db.open(file_);
    const auto blocks = split(run("expect", ""), "@ ");
    ASSERT_EQ(blocks.size() - 1, count);
    for (size_t i = 1; i < blocks.size(); ++i) {
      Lines wanted = split(blocks[i], "\n");
      wanted.pop_back();
      const std::string heading = wanted.front();
      wanted.erase(wanted.begin());
      const Lines found = seen(split(heading, "\t"));
      const auto [want, got] = std::ranges::mismatch(wanted, found);
      ASSERT_EQ(want == wanted.end() ? "the end" : *want, got == found.end() ? "the end" : *got)
          << heading << ", line " << want - wanted.begin();
    }
  }
  virtual Lines seen(const std::vector<std::string>& asked) = 0;

  Database db;

 private:
  std::string run(const std::string& task, const std::string& more) {
    const auto script = std::filesystem::current_path() / script_;
    const std::string answer = folder_ / "answer";
    const std::string command =
        "python3 -B '" + script.string() + "' " + task + " '" + file_ + "' " + more + " > '" + answer + "'";
    if (std::system(command.c_str()) != 0) throw std::runtime_error(std::string(script_) + " fails");
    std::ifstream in(answer);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  const char* script_;
  TempFolder folder_;
  std::string file_ = folder_ / "M00126.mdb";
};

// Statements and balances

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

Lines written(const std::vector<StatementRow>& rows) {
  Lines lines;
  for (const StatementRow& row : rows) {
    std::string& line = lines.emplace_back();
    for (const Cell& cell : row.cells) line += cell.text + "\x1f" + style(cell) + "\t";
    line += behind(row.voucher) + "," + behind(row.creditVoucher);
  }
  return lines;
}

// Rows as lines, from a column on as money.
Lines written(const std::vector<Row>& rows, int firstFigure) {
  Lines lines;
  for (const Row& row : rows) {
    std::vector<std::string> cells;
    for (int i = 0; i < row.count(); ++i)
      cells.push_back(i < firstFigure ? row.text(i) : Format(row.number(i), "0.00"));
    lines.push_back(join(cells, "\t"));
  }
  return lines;
}

class StatementsAtRandom : public Oracle {
 protected:
  StatementsAtRandom() : Oracle("oracle.py") {}

  Lines seen(const std::vector<std::string>& asked) override {
    const std::string& kind = asked[0];
    if (kind == "CL_BAL") return rebuilt();
    const StatementQuery query{.account = asked.size() > 3 ? asked[3] : "",
                               .from = *parseDate(asked[1]),
                               .to = *parseDate(asked[2]),
                               .periodStart = kStart,
                               .narration = asked.back() == "1"};
    if (kind == "running") return written(runningStatement(db, query));
    if (kind == "tledger") return written(tLedger(db, query));
    if (kind == "summary") return written(BuildFinalTable(db, query.from, query.to, "accmast"), 2);
    EXPECT_TRUE(BuildFinalTable(db, query.from, query.to, kClosingBalanceList).empty());
    if (kind == "closing") return written(closingBalances(db, asked[3], asked[4]), 99);
    Lines table = written(db.all("SELECT GROUP_CD, GROUP_NAME, UPPER(ACC_CD), ACC_NAME, OP_BALDR, OP_BALCR,"
                                 " OP_BALTDR, OP_BALTCR, TR_BALDR, TR_BALCR FROM T_FINALNEW"),
                          4);
    std::ranges::sort(table);
    return table;
  }

  // All balances at once, which must be those of one after the other.
  Lines rebuilt() {
    const char* const all = "SELECT ACC_CD, CL_BAL FROM ACCOUNT ORDER BY ACC_CD";
    RebuildAllBalances(db);
    const Lines atOnce = written(db.all(all), 1);
    db.exec("UPDATE ACCOUNT SET CL_BAL = 7");
    for (const Row& account : db.all(all)) RebuildOneBalance(db, account.text(0));
    EXPECT_EQ(atOnce, written(db.all(all), 1));
    return atOnce;
  }
};

TEST_F(StatementsAtRandom, AgreeOnEveryCell) { agree("20260615", 3 * (50 * 4 + 5) + 1); }

// Lists, registers, returns and outstanding bills

class ReportsAtRandom : public Oracle {
 protected:
  ReportsAtRandom() : Oracle("report_oracle.py") {}

  Lines seen(const std::vector<std::string>& asked) override {
    constexpr Bgr kTotal = 1, kDetail = 2;
    const Report& report = *reportByKey(asked[0]);
    ReportQuery query{.from = *parseDate(asked[1]),
                      .to = *parseDate(asked[2]),
                      .periodStart = kStart,
                      .periodEnd = kEnd,
                      .yes = asked[8] == "Yes"};
    size_t next = 3;
    for (const ReportField field : {kParty, kCity, kState, kItem, kCategory}) {
      const std::string& text = asked[next++];
      if (std::ranges::find(report.fields, field) != report.fields.end()) query.fields[field.text] = text;
    }
    ReportPlan plan = report.plan(db, query);
    if (!plan.refusal.empty()) return {plan.refusal + "|0"};
    if (report.question && report.question->when == ReportQuestion::When::WithRows && !query.yes)
      plan.details.reset();
    ReportRows rows(db, plan, {.total = kTotal, .detail = kDetail});
    while (rows.read(7)) {
    }
    std::vector<std::string> headings;
    for (const ReportColumn& column : rows.columns())
      headings.push_back(column.heading + "|" + numText(column.twips));
    Lines lines{join(headings, "\t")};
    for (size_t row = 0; row < rows.count(); ++row) {
      const Bgr back = rows.cell(row, 0).back;
      std::string& line = lines.emplace_back(back == kTotal ? "t" : back == kDetail ? "d" : "");
      for (size_t column = 0; column < rows.columns().size(); ++column)
        line += "\t" + replaceAll(rows.cell(row, column).text, "\t", "\x1f");
      line += "\t" + behind(rows.voucher(row));
    }
    return lines;
  }
};

TEST_F(ReportsAtRandom, AgreeOnEveryCell) { agree("20260616", 377); }

}  // namespace
