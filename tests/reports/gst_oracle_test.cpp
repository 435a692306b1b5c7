#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "reports/gst.h"
#include "reports/outstanding.h"
#include "reports/report_rows.h"
#include "reports/reports.h"
#include "store/templates.h"
#include "support/temp_folder.h"

// A year of sales at random. What the reports show of it is compared cell by cell with what
// gst_oracle.py beside this file works out from the raw tables, and row by row with the
// statements in their plain form: everything grouped before it is filtered, an account at a time.

namespace {

const Date kStart = *parseDate("2026-04-01"), kEnd = *parseDate("2027-03-31");

std::string written(const std::vector<Row>& rows) {
  std::string all;
  for (const Row& row : rows)
    for (int i = 0; i < row.count(); ++i)
      all += (row.isNull(i) ? "NULL" : row.text(i)) + (i + 1 < row.count() ? "|" : "\n");
  return all;
}

class RandomSales : public ::testing::Test {
 protected:
  RandomSales() {
    makeCompanyDatabase(file);
    oracle("make", "20260615");
    db.open(file);
  }

  std::string oracle(const std::string& task, const std::string& more) {
    const auto script = std::filesystem::path(MIRAV_TEST_DATA).parent_path() / "gst_oracle.py";
    const std::string answer = folder / "answer";
    const std::string command =
        "python3 '" + script.string() + "' " + task + " '" + file + "' " + more + " > '" + answer + "'";
    if (std::system(command.c_str()) != 0) throw std::runtime_error("gst_oracle.py fails");
    std::ifstream in(answer);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  // "GSTR1-RD 2026-04-01 2027-03-31 A00001 - - - 0": the report's rows as the grid has them.
  std::string shown(const std::string& heading) {
    const auto asked = split(heading, " ");
    const auto field = [&](size_t i) { return asked[i] == "-" ? "" : replaceAll(asked[i], "_", " "); };
    const ReportQuery query{
        .fields = {field(3), field(4), field(5), "", field(6)},
        .from = *parseDate(asked[1]),
        .to = *parseDate(asked[2]),
        .periodStart = kStart,
        .periodEnd = kEnd,
    };
    ReportPlan plan = reportByKey(asked[0])->plan(db, query);
    if (!plan.refusal.empty()) return plan.refusal;
    if (asked[7] == "0") plan.details.reset();
    ReportRows rows(db, plan, {});
    while (rows.read(1000)) {
    }
    std::vector<std::string> lines;
    for (size_t row = 0; row < rows.count(); ++row) {
      std::vector<std::string> cells;
      for (size_t i = 0; i < rows.columns().size(); ++i) cells.push_back(rows.cell(row, i).text);
      lines.push_back(join(cells, "\t"));
    }
    return join(lines, "\n");
  }

  std::string literalGst(const GstQuery& q);
  std::string quickGst(const GstQuery& q);
  std::string literalMatching(Date to);
  void matchLiterally(const std::string& code, const std::string& to);

  TempFolder folder;
  std::string file = folder / "M00126.mdb";
  Database db;
};

TEST_F(RandomSales, ShowWhatTheOracleFigures) {
  const auto blocks = split(oracle("expect", ""), "@ ");
  ASSERT_EQ(blocks.size(), 1U + 5 * 2 * 12 + 3 * 2 * 47);
  for (size_t i = 1; i < blocks.size(); ++i) {
    const size_t end = blocks[i].find('\n');
    const std::string heading = blocks[i].substr(0, end);
    const auto wanted = split(blocks[i].substr(end + 1), "\n"), found = split(shown(heading) + "\n", "\n");
    const auto [want, got] = std::ranges::mismatch(wanted, found);
    ASSERT_EQ(want == wanted.end() ? "the end" : *want, got == found.end() ? "the end" : *got)
        << heading << ", line " << want - wanted.begin();
  }
}

// The whole file is grouped; dates and party filter what came of it.
std::string RandomSales::literalGst(const GstQuery& q) {
  const std::string keys =
      "ACCOUNT.GSTINNO, SALE.BILL_NO, SALE.VOUCH_DT, SALEITM.IGSTRT, SALEITM.CGSTRT, SALEITM.SGSTRT,"
      " SALE.BOOK_CD, ACCOUNT.ACC_NAME, ROUND_OFF, SALE.NET_AMT, ACCOUNT.CITY, ACCOUNT.STATECD, "
      "SALE.PARTY_CD";
  auto rows = db.query(
      "SELECT SALE.BILL_NO, SALE.VOUCH_DT, ACCOUNT.ACC_NAME, ACCOUNT.GSTINNO,"
      " IIF(ACCOUNT.STATECD < 10, ('0' || TRIM(STR(ACCOUNT.STATECD)) || '-' || ACCOUNT.CITY),"
      " (TRIM(STR(ACCOUNT.STATECD)) || '-' || ACCOUNT.CITY)) AS STAT,"
      " FORMAT(SUM(SALEITM.AMOUNT), '0.00') AS SumOfAMOUNT, SALEITM.IGSTRT, FORMAT(SUM(SALEITM.IGSTAMT), "
      "'0.00'),"
      " SALEITM.CGSTRT, FORMAT(SUM(SALEITM.CGSTAMT), '0.00'), SALEITM.SGSTRT, FORMAT(SUM(SALEITM.SGSTAMT), "
      "'0.00'),"
      " FORMAT(SUM(SALEITM.NET_AMOUNT), '0.00') AS NETAMT, SALE.BOOK_CD, SALE.PARTY_CD"
      " FROM (SALE LEFT JOIN SALEITM ON SALE.BOOK_CD = SALEITM.BOOK_CD AND SALE.VOUCH_NO = SALEITM.VOUCH_NO)"
      " LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD WHERE LEN(ACCOUNT.GSTINNO) " +
      std::string(q.dealers == Dealers::Registered ? "> 1" : "<= 1") +
      " AND SALE.BOOK_CD = 'SA' AND SALE.GSTPOST = 1 GROUP BY " + keys +
      " ORDER BY SALE.VOUCH_DT, SALE.BILL_NO, " + keys);
  std::string all;
  while (rows.next()) {
    const auto day = rows.date(1);
    if (!day || *day < q.from || *day > q.to) continue;
    if (!q.party.empty() && !sameText(rows.text("PARTY_CD"), q.party)) continue;
    for (int i = 0; i <= 12; ++i) all += rows.text(i) + "|";
    all += upper(rows.text("PARTY_CD")) + "\n";
  }
  return all;
}

std::string RandomSales::quickGst(const GstQuery& q) {
  const auto money = [](const std::optional<double>& x) { return x ? Format(*x, "0.00") : ""; };
  const auto rate = [](const std::optional<double>& x) { return x ? numText(*x) : ""; };
  std::string all;
  for (GstStatement rows(db, q); rows.next();) {
    const GstRow& r = rows.row();
    all += join({r.bill, r.date, r.party->name, r.party->gstin, r.party->state, money(r.sums.taxable),
                 rate(r.rates.igst), money(r.sums.igst), rate(r.rates.cgst), money(r.sums.cgst),
                 rate(r.rates.sgst), money(r.sums.sgst), money(r.sums.net), r.party->code},
                "|") +
           "\n";
  }
  return all;
}

TEST_F(RandomSales, AreTheSameFilteredBeforeTheyAreGrouped) {
  for (const Dealers dealers : {Dealers::Registered, Dealers::Unregistered})
    for (const char* party : {"", "A00001", "a00012", "A00008", "Z99999"})
      for (const auto& [from, to] : {
               std::pair{kStart,                   kEnd                    },
               std::pair{*parseDate("2026-07-01"), *parseDate("2026-07-31")},
               std::pair{kEnd,                     kStart                  }
      }) {
        const GstQuery query{.dealers = dealers, .from = from, .to = to, .party = party};
        const std::string literal = literalGst(query);
        ASSERT_EQ(quickGst(query), literal) << party << " " << isoDate(from);
        if (*party == '\0' && from < to) {
          EXPECT_GT(split(literal, "\n").size(), 10U);
        }
      }
}

// Statement by statement, one account after the other.
void RandomSales::matchLiterally(const std::string& code, const std::string& to) {
  const auto sum = [&](const char* condition) {
    return db.number(std::string("SELECT SUM(VOUCH_AMT) FROM ALEDGER WHERE PARTY_CD = ? AND ") + condition,
                     code);
  };
  const double opening = db.number("SELECT OP_BAL FROM ACCOUNT WHERE ACC_CD = ?", code);
  double credit = opening < 0 ? -opening : 0, debit = opening < 0 ? 0 : opening;
  credit += sum("VOUCH_TYPE = 'C'");
  debit += db.number(
      "SELECT SUM(VOUCH_AMT) FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_TYPE = 'D' AND VOUCH_DT <= ?", code,
      to);
  if (debit <= credit) return;
  bool firstOpen = true;
  if (opening > 0 && credit < opening) {
    db.exec(
        "INSERT INTO CAL (VOUCH_NO, VOUCH_DT, PARTY_BL, BOOK_CD, PARTY_CD, CR, DR, CL_BAL, DATE_DIF)"
        " VALUES (0, ?1, ' OP', 'OP', ?2, ?3, ?4, ?3 - ?4, DATEDIFF('d', ?1, ?5))",
        kStart, code, opening, credit, to);
    credit = 0;
  } else if (opening > 0) {
    credit -= opening;
  }
  for (const Row& r : db.all("SELECT * FROM ALEDGER WHERE PARTY_CD = ? AND VOUCH_TYPE = 'D' AND VOUCH_DT <= ?"
                             " ORDER BY VOUCH_DT, PARTY_BL, rowid",
                             code, to)) {
    const double amount = r.number("VOUCH_AMT");
    credit -= amount;
    if (credit >= 0) continue;
    const double paid = firstOpen ? amount + credit : 0, left = firstOpen ? -credit : amount;
    std::string narration = r.text("NARRATION"), bill = r.text("PARTY_BL");
    for (const char* sign : {",", "'", "(", ")", "%", "@"}) narration = replaceAll(narration, sign, "");
    db.exec(
        "INSERT INTO CAL (VOUCH_NO, VOUCH_DT, PARTY_BL, BOOK_CD, PARTY_CD, CR, DR, CL_BAL, DATE_DIF, "
        "NARRATION)"
        " VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, DATEDIFF('d', ?2, ?9), ?10)",
        r.number("VOUCH_NO"), r.text("VOUCH_DT"), bill.empty() ? "." : bill.substr(0, 50), r.text("BOOK_CD"),
        code, amount, paid, left, to, narration);
    firstOpen = false;
  }
}

const char* const kCal = "SELECT * FROM CAL ORDER BY rowid";

std::string RandomSales::literalMatching(Date to) {
  db.exec("DELETE FROM CAL");
  for (const Row& account :
       db.all("SELECT ACC_CD FROM ACCOUNT WHERE (GROUP_CD = 85 OR GROUP_CD = 86) AND CL_BAL > 0"
              " ORDER BY ACC_CD"))
    matchLiterally(account.text(0), isoDate(to));
  db.exec("UPDATE CAL SET NARR1 = ?", formatDate(to, "dd/mmm/yyyy"));
  db.exec("UPDATE CAL SET BCK_BAL = DATEDIFF('d', VOUCH_DT, NARR1)");
  return written(db.all(kCal));
}

TEST_F(RandomSales, AreMatchedInOneWalkAsByAccounts) {
  for (const char* to : {"2027-03-31", "2026-08-09", "2026-04-01", "2026-03-01"}) {
    const ReportQuery query{.from = kStart, .to = *parseDate(to), .periodStart = kStart, .periodEnd = kEnd};
    const std::string literal = literalMatching(query.to);
    EXPECT_TRUE(ON_AC_RECEIVABLES(db, "", query));
    EXPECT_EQ(written(db.all(kCal)), literal) << to;
    EXPECT_TRUE(split(literal, "\n").size() > 100 || query.to < kEnd);
  }
}

}  // namespace
