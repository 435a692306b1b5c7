// What the GST statements and the outstanding bills take, beside the plain statements that they stand
// for: all sales grouped before a period is picked, and the ledger read once.

#include "bench_program.h"
#include "gst/gstr1_json.h"
#include "gst/gstr3b.h"
#include "reports/gst.h"
#include "reports/outstanding.h"
#include "reports/report_rows.h"
#include "reports/reports.h"

namespace {

using State = benchmark::State;

Database& books() {
  static Database db;
  if (!db.isOpen())
    for (const auto& file : std::filesystem::directory_iterator(folder()))
      if (file.path().extension() == ".mdb" && file.path().stem() != "comp") db.open(file.path());
  return db;
}

ReportQuery period(const char* from, const char* to) {
  const auto day = [](int setting) {
    return *books().first("SELECT VOUCH_DT FROM SPSFILE WHERE VOUCH_NO = ?", setting)->date(0);
  };
  ReportQuery query{.periodStart = day(211), .periodEnd = day(212)};
  query.from = *from ? *parseDate(from) : query.periodStart;
  query.to = *to ? *parseDate(to) : query.periodEnd;
  return query;
}

constexpr const char* kGrouping =
    "ACCOUNT.GSTINNO, SALE.BILL_NO, SALE.VOUCH_DT, SALEITM.IGSTRT, SALEITM.CGSTRT, SALEITM.SGSTRT,"
    " SALE.BOOK_CD, ACCOUNT.ACC_NAME, ROUND_OFF, SALE.NET_AMT, ACCOUNT.CITY, ACCOUNT.STATECD, SALE.PARTY_CD";

void plainStatement(State& state, const ReportQuery& q) {
  const std::string sql =
      "SELECT SALE.BILL_NO, SALE.VOUCH_DT, ACC_NAME, GSTINNO,"
      " IIF(STATECD < 10, '0' || TRIM(STR(STATECD)) || '-' || CITY, TRIM(STR(STATECD)) || '-' || CITY) AS "
      "STAT,"
      " SHOWN(SUM(AMOUNT), '0.00'), IGSTRT, SHOWN(SUM(IGSTAMT), '0.00'), CGSTRT,"
      " SHOWN(SUM(CGSTAMT), '0.00'), SGSTRT, SHOWN(SUM(SGSTAMT), '0.00'), SHOWN(SUM(NET_AMOUNT), '0.00'),"
      " SALE.BOOK_CD, SALE.PARTY_CD"
      " FROM (SALE LEFT JOIN SALEITM ON SALE.BOOK_CD = SALEITM.BOOK_CD AND SALE.VOUCH_NO = SALEITM.VOUCH_NO)"
      " LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD"
      " WHERE LEN(GSTINNO) > 1 AND SALE.BOOK_CD = 'SA' AND SALE.GSTPOST = 1 GROUP BY " +
      std::string(kGrouping) + " ORDER BY SALE.VOUCH_DT, SALE.BILL_NO";
  for (auto _ : state) {
    std::string all;
    size_t count = 0;
    for (auto rows = books().query(sql); rows.next();) {
      const auto day = rows.date(1);
      if (!day || *day < q.from || *day > q.to) continue;
      for (int i = 0; i <= 12; ++i) all += rows.text(i);
      ++count;
    }
    state.counters["rows"] = static_cast<double>(count);
  }
}

void statement(State& state, const ReportQuery& q) {
  const ReportPlan plan = reportByKey(kGstr1Rd)->plan(books(), q);
  for (auto _ : state) {
    std::string all;
    size_t count = 0;
    for (const auto rows = plan.reading(books()); rows->next(); ++count)
      for (int i = 0; i <= 12; ++i) all += rows->text(i);
    state.counters["rows"] = static_cast<double>(count);
  }
}

// As the report screen shows them, totals and all.
void shown(State& state, std::string_view key, const ReportQuery& q) {
  for (auto _ : state) {
    ReportRows rows(books(), reportByKey(key)->plan(books(), q), {});
    rows.read(static_cast<size_t>(-1));
    state.counters["rows"] = static_cast<double>(rows.count());
  }
}

// Both returns of a month from the vouchers to their files.
void returns(State& state) {
  for (auto _ : state) {
    const Gstr1 gstr1 = readGstr1(books(), readTaxShop(books(), GstTables(folder())), returnPeriod("072026"));
    writeGstr1(gstr1, folder());
    writeGstr3b(readGstr3b(books(), gstr1), folder());
    state.counters["bills"] = static_cast<double>(gstr1.documents.size());
  }
}

void ledgerRead(State& state) {
  for (auto _ : state) {
    size_t size = 0;
    for (auto rows =
             books().query("SELECT PARTY_CD, VOUCH_TYPE, VOUCH_AMT, VOUCH_NO, VOUCH_DT, PARTY_BL, BOOK_CD,"
                           " NARRATION FROM ALEDGER");
         rows.next();)
      for (int i = 0; i < rows.count(); ++i) size += rows.text(i).size();
    benchmark::DoNotOptimize(size);
  }
}

}  // namespace

void addMeasurements() {
  struct Period {
    const char *name, *from, *to;
  };
  for (const Period& p : {
           Period{"year", "",           ""          },
           Period{"July", "2026-07-01", "2026-07-31"}
  }) {
    const ReportQuery query = period(p.from, p.to);
    measure(std::string("GSTR1-RD/plain statement/") + p.name, [=](State& s) { plainStatement(s, query); });
    measure(std::string("GSTR1-RD/") + p.name, [=](State& s) { statement(s, query); });
    measure(std::string("GSTR1-RD/shown/") + p.name, [=](State& s) { shown(s, kGstr1Rd, query); });
  }
  measure("Returns to their files/July", returns);
  measure("Ledger read once", ledgerRead);
  measure("ONACRCV/worked out", [](State& s) {
    for (auto _ : s) ON_AC_RECEIVABLES(books(), "", period("", ""));
  });
  measure("ONACRCV/shown", [](State& s) { shown(s, kOutstanding, period("", "")); });
}

void endProgram() { books().close(); }
