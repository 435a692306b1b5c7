#include "vouchers/rate_history.h"

#include <optional>

#include "base/pattern.h"

namespace {

constexpr size_t kLatest = 6;
constexpr int kFewBills = 300;

enum class Form { Plain, Date, Quantity };

Cell written(const Value& value, Form form) {
  if (form == Form::Quantity) return {.text = Format(value.number(), "0.000")};
  const auto date = form == Form::Date ? value.date() : std::nullopt;
  return {.text = date ? formatDate(*date, "dd/MMM/yyyy") : value.text()};
}

std::vector<Cell> rowOf(const Rows& rows, const std::vector<Form>& forms) {
  std::vector<Cell> cells;
  for (size_t i = 0; i < forms.size(); ++i)
    cells.push_back(written(rows.value(static_cast<int>(i)), forms[i]));
  return cells;
}

// A party with few bills is read through its bills, any other through the item's lines: both
// are keyed and in the order of the day.
bool hasFewBills(Database& db, const std::string& party) {
  return db.number("SELECT COUNT(*) FROM (SELECT 1 FROM SALE WHERE PARTY_CD = ? LIMIT ?)", party, kFewBills) <
         kFewBills;
}

}  // namespace

RateList latestSales(Database& db, const Book& book, const RateQuery& of) {
  const std::vector<Form> forms = {Form::Plain,    Form::Date,  Form::Plain, Form::Plain,
                                   Form::Quantity, Form::Plain, Form::Plain, Form::Plain};
  RateList list{
      .columns =
          {
                    {.title = "V. No", .width = px(60), .align = Align::Right},
                    {.title = "Date", .width = px(108)},
                    {.title = "Bk.", .width = px(44)},
                    {.title = "B.No", .width = px(72)},
                    {.title = "Qty", .width = px(86), .align = Align::Right},
                    {.title = "Rate", .width = px(92), .align = Align::Right, .money = true},
                    {.title = "D%", .width = px(54), .align = Align::Right},
                    {.title = "Amount", .width = part(1), .align = Align::Right, .money = true},
                    },
      .rows = std::make_shared<CellRows>(),
  };
  const std::string columns =
      "SELECT SALEITM.VOUCH_NO, SALEITM.VOUCH_DT, SALEITM.BOOK_CD, SALE.BILL_NO, QUANTITY, RATE, SALE_DISC,"
      " SALEITM.NET_AMOUNT ";
  const std::string where =
      " WHERE PARTY_CD = ? AND ITEM_CD = ? AND SIZE_CD = ? AND SALE.BOOK_CD = ? AND SALE.VOUCH_NO = "
      "SALEITM.VOUCH_NO"
      " AND SALE.BOOK_CD = SALEITM.BOOK_CD ORDER BY ";
  auto rows = hasFewBills(db, of.party)
                  ? db.query(columns + "FROM SALE CROSS JOIN SALEITM" + where + "SALE.VOUCH_DT DESC",
                             of.party, of.item, of.unit, book.code)
                  : db.query(columns + "FROM SALEITM CROSS JOIN SALE" + where + "SALEITM.VOUCH_DT DESC",
                             of.party, of.item, of.unit, book.code);
  std::string day;
  while (rows.next()) {
    if (list.rows->rows.size() >= kLatest && rows.text(1) != day) break;
    day = rows.text(1);
    list.rows->rows.push_back(rowOf(rows, forms));
  }
  return list;
}

RateList earlierSales(Database& db, const Book& book, const RateQuery& of) {
  RateList list{
      .columns =
          {
                    {.title = "V. No", .width = px(112), .align = Align::Right},
                    {.title = "Date", .width = px(172)},
                    {.title = "Qty", .width = px(86), .align = Align::Right},
                    {.title = "Rate", .width = px(92), .align = Align::Right, .money = true},
                    {.title = "D%", .width = px(54), .align = Align::Right},
                    {.title = "Bill Amount", .width = part(1), .align = Align::Right, .money = true},
                    },
      .rows = std::make_shared<CellRows>(),
  };
  const std::string from = hasFewBills(db, of.party) ? "SALE CROSS JOIN SALEITM" : "SALEITM CROSS JOIN SALE";
  auto rows =
      db.query("SELECT SALEITM.VOUCH_NO, SALEITM.VOUCH_DT, QUANTITY, RATE, SALE_DISC, NET_AMT FROM " + from +
                   " WHERE PARTY_CD = ? AND ITEM_CD = ? AND SIZE_CD = ? AND SALE.VOUCH_NO = SALEITM.VOUCH_NO"
                   " AND SALE.BOOK_CD = SALEITM.BOOK_CD AND SALE.BOOK_CD = ? ORDER BY SALE.VOUCH_DT DESC",
               of.party, of.item, of.unit, book.code);
  while (rows.next())
    list.rows->rows.push_back(
        rowOf(rows, {Form::Plain, Form::Date, Form::Quantity, Form::Plain, Form::Plain, Form::Plain}));
  return list;
}

RateList partyRates(Database& db, const RateQuery& of) {
  RateList list{
      .columns =
          {
                    {.title = "Date", .width = px(142)},
                    {.title = "Unit", .width = px(142)},
                    {.title = "Rate", .width = part(1), .align = Align::Right, .money = true},
                    {.title = "D%", .width = px(92), .align = Align::Right},
                    },
      .rows = std::make_shared<CellRows>(),
  };
  auto rows = db.query(
      "SELECT RT_DT, SIZE_CD, SALE_RATE1, SALE_DISC FROM PRTYRATE WHERE TRIM(ITEM_CD) = ? AND SIZE_CD = ?"
      " AND ACC_CD = ? ORDER BY RT_DT DESC",
      of.item, of.unit, of.party);
  while (rows.next())
    list.rows->rows.push_back(rowOf(rows, {Form::Date, Form::Plain, Form::Plain, Form::Plain}));
  return list;
}

RateList purchaseRates(Database& db, const RateQuery& of) {
  RateList list{
      .columns =
          {
                    {.title = "Date", .width = px(142)},
                    {.title = "Unit", .width = px(142)},
                    {.title = "Rate", .width = part(1), .align = Align::Right, .money = true},
                    },
      .rows = std::make_shared<CellRows>(),
  };
  auto rows = db.query(
      "SELECT DISTINCT RT_DT, SIZE_CD, PUR_RATE FROM PRTYRATE WHERE ITEM_CD = ? AND SIZE_CD = ? AND PUR_RATE "
      "<> 0"
      " ORDER BY RT_DT DESC",
      of.item, of.unit);
  while (rows.next()) list.rows->rows.push_back(rowOf(rows, {Form::Date, Form::Plain, Form::Plain}));
  return list;
}
