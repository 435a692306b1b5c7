#include "vouchers/rate_history.h"

#include <optional>
#include <utility>

#include "base/pattern.h"

namespace {

constexpr size_t kLatest = 6;
constexpr int kFewVouchers = 300;

// A column of the grid and how its values are written.
enum class Form { Plain, Date, Quantity };
struct Shown {
  GridColumn column;
  Form form = Form::Plain;
};

constexpr auto kRight = Align::Right;
// clang-format off
const std::vector<Shown> kLatestSales = {
    {{.title = "V. No",       .width = px(60),  .align = kRight}},
    {{.title = "Date",        .width = px(108)}, Form::Date},
    {{.title = "Bk.",         .width = px(44)}},
    {{.title = "B.No",        .width = px(72)}},
    {{.title = "Qty",         .width = px(86),  .align = kRight}, Form::Quantity},
    {{.title = "Rate",        .width = px(92),  .align = kRight, .money = true}},
    {{.title = "D%",          .width = px(54),  .align = kRight}},
    {{.title = "Amount",      .width = part(1), .align = kRight, .money = true}},
};
const std::vector<Shown> kEarlierSales = {
    {{.title = "V. No",       .width = px(112), .align = kRight}},
    {{.title = "Date",        .width = px(172)}, Form::Date},
    {{.title = "Qty",         .width = px(86),  .align = kRight}, Form::Quantity},
    {{.title = "Rate",        .width = px(92),  .align = kRight, .money = true}},
    {{.title = "D%",          .width = px(54),  .align = kRight}},
    {{.title = "Bill Amount", .width = part(1), .align = kRight, .money = true}},
};
const std::vector<Shown> kChallans = {
    {{.title = "V. No",       .width = px(60),  .align = kRight}},
    {{.title = "Date",        .width = px(108)}, Form::Date},
    {{.title = "Qty",         .width = px(106), .align = kRight}, Form::Quantity},
    {{.title = "Rate",        .width = px(106), .align = kRight, .money = true}},
    {{.title = "D%",          .width = px(46),  .align = kRight}},
    {{.title = "Amount",      .width = part(1), .align = kRight, .money = true}},
};
const std::vector<Shown> kPartyRates = {
    {{.title = "Date",        .width = px(142)}, Form::Date},
    {{.title = "Unit",        .width = px(142)}},
    {{.title = "Rate",        .width = part(1), .align = kRight, .money = true}},
    {{.title = "D%",          .width = px(92),  .align = kRight}},
};
const std::vector<Shown> kPurchaseRates(kPartyRates.begin(), kPartyRates.end() - 1);
// clang-format on

Cell written(const Value& value, Form form) {
  if (form == Form::Quantity) return {.text = Format(value.number(), "0.000")};
  const auto date = form == Form::Date ? value.date() : std::nullopt;
  return {.text = date ? formatDate(*date, "dd/MMM/yyyy") : value.text()};
}

RateList emptyList(const std::vector<Shown>& shown) {
  RateList list{.columns = {}, .rows = std::make_shared<CellRows>()};
  for (const Shown& s : shown) list.columns.push_back(s.column);
  return list;
}

void addRow(RateList& list, const Rows& rows, const std::vector<Shown>& shown) {
  std::vector<Cell> cells;
  for (size_t i = 0; i < shown.size(); ++i)
    cells.push_back(written(rows.value(static_cast<int>(i)), shown[i].form));
  list.rows->rows.push_back(std::move(cells));
}

RateList wholeList(Rows rows, const std::vector<Shown>& shown) {
  RateList list = emptyList(shown);
  while (rows.next()) addRow(list, rows, shown);
  return list;
}

// What a book's lists read. A party with few vouchers is read through them, any other through the
// item's lines: both are keyed and in the order of the day. A plus sign keeps the planner from an
// index: that of the books, in which one book is everything, and the one of the other road.
struct Road {
  std::string from, which, day;
};
Road roadTo(Database& db, const VoucherKind& kind, const std::string& party) {
  const bool few = db.number("SELECT COUNT(*) FROM (SELECT 1 FROM " + kind.tables.heads +
                                 " WHERE PARTY_CD = ? LIMIT ?) AS FEW",
                             party, kFewVouchers) < kFewVouchers;
  return few ? Road{kind.tables.heads + " CROSS JOIN " + kind.tables.lines, "PARTY_CD = ? AND +ITEM_CD = ?",
                    kind.tables.heads}
             : Road{kind.tables.lines + " CROSS JOIN " + kind.tables.heads, "+PARTY_CD = ? AND ITEM_CD = ?",
                    kind.tables.lines};
}

Rows linesTo(Database& db, const VoucherKind& kind, const RateQuery& of, const std::string& columns) {
  const std::string &heads = kind.tables.heads, &lines = kind.tables.lines;
  const Road road = roadTo(db, kind, of.party);
  return db.query("SELECT " + columns + " FROM " + road.from + " WHERE " + road.which +
                      " AND SIZE_CD = ? AND +" + heads + ".BOOK_CD = ? AND " + heads +
                      ".VOUCH_NO = " + lines + ".VOUCH_NO AND " + heads + ".BOOK_CD = " + lines +
                      ".BOOK_CD ORDER BY " + road.day + ".VOUCH_DT DESC, " + road.day + ".rowid DESC, " +
                      lines + "." + kind.tables.serial,
                  of.party, of.item, of.unit, kind.code);
}

}  // namespace

RateList latestSales(Database& db, const VoucherKind& kind, const RateQuery& of) {
  RateList list = emptyList(kLatestSales);
  Rows rows = linesTo(db, kind, of,
                      "SALEITM.VOUCH_NO, SALEITM.VOUCH_DT, SALEITM.BOOK_CD, SALE.BILL_NO, QUANTITY, RATE,"
                      " SALE_DISC, SALEITM.NET_AMOUNT");
  std::string day;
  while (rows.next()) {
    if (list.rows->rows.size() >= kLatest && rows.text(1) != day) break;
    day = rows.text(1);
    addRow(list, rows, kLatestSales);
  }
  return list;
}

RateList earlierSales(Database& db, const VoucherKind& kind, const RateQuery& of) {
  return wholeList(
      linesTo(db, kind, of, "SALEITM.VOUCH_NO, SALEITM.VOUCH_DT, QUANTITY, RATE, SALE_DISC, NET_AMT"),
      kEarlierSales);
}

RateList challanRates(Database& db, const VoucherKind& kind, const RateQuery& of) {
  return wholeList(
      linesTo(db, kind, of, "CHLNITM.VOUCH_NO, CHLNITM.VOUCH_DT, QUANTITY, RATE, SALE_DISC, NET_AMOUNT"),
      kChallans);
}

std::vector<GridColumn> challanRateColumns() { return emptyList(kChallans).columns; }

RateList partyRates(Database& db, const VoucherKind& kind, const RateQuery& of) {
  return wholeList(db.query("SELECT RT_DT, SIZE_CD, " + kind.party.rate + ", " + kind.party.discount +
                                " FROM PRTYRATE WHERE TRIM(ITEM_CD) = ? AND SIZE_CD = ? AND ACC_CD = ? ORDER "
                                "BY RT_DT DESC, rowid DESC",
                            of.item, of.unit, of.party),
                   kPartyRates);
}

RateList purchaseRates(Database& db, const RateQuery& of) {
  return wholeList(
      db.query("SELECT DISTINCT RT_DT, SIZE_CD, PUR_RATE FROM PRTYRATE"
               " WHERE ITEM_CD = ? AND SIZE_CD = ? AND PUR_RATE <> 0 ORDER BY RT_DT DESC, PUR_RATE",
               of.item, of.unit),
      kPurchaseRates);
}
