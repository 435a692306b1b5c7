#include "frame/lookup.h"

#include "base/text.h"
#include "base/words.h"
#include "frame/session.h"
#include "store/balances.h"

Lookup valuesOf(const std::string& table, const std::string& column, int width) {
  return {
      .rows = {.columns = {{column, width}}, .from = table, .where = column + " <> ''", .distinct = true},
      .values = true,
      .free = true
  };
}

Lookup mayStayEmpty(Lookup lookup) {
  lookup.optional = true;
  return lookup;
}

// The sign keeps the rows in the order of the select's own index.
SelectColumn ofAccount(const std::string& column, const std::string& by, int width) {
  return {.expression = "ACCOUNT." + column,
          .width = width,
          .search = "+" + by + " IN (SELECT ACC_CD FROM ACCOUNT WHERE " + likeText(column) + ")"};
}

SelectColumn amountText(const std::string& amount, const std::string& name) {
  return {.expression = "TRIM(STR(" + amount + "))", .name = name, .search = likeText(numberText(amount))};
}

SelectColumn balanceColumn(int width) {
  return {.expression = "SHOWN(cl_bal,'0.00')", .width = width, .name = "CLBAL", .balance = true};
}

Lookup accounts(SelectColumns columns, const std::string& where) {
  return {
      .rows = {.columns = std::move(columns), .from = "ACCOUNT", .where = where, .order = {"ACC_NAME"}}
  };
}

const char* hintAfterList(bool optional) {
  return optional ? english("Press Enter Once More To Leave It Empty")
                  : english("Type It Or Press Enter For Help");
}

std::string lookUpValue(Host& host, const Lookup& lookup) {
  session().mhlptable = tableText(lookup.rows);
  const std::string hint = host.hint();
  Lookup asked = lookup;
  for (SelectColumn& column : asked.rows.columns)
    if (column.balance) column.expression = std::string("SHOWN(") + balanceExpression(data()) + ",'0.00')";
  const auto chosen = host.openModal("FRMHLP", {.more = asked});
  host.hint(hint);
  return chosen.value_or("");
}

Go lookUp(Host& host, Screen& caller, Control& field, const Lookup& lookup) {
  if (caller.leaving()) return Go::Stay;
  if (lookup.optional && field.declined) return Go::On;
  std::string value = lookUpValue(host, lookup);
  field.declined = value.empty();
  if (value.empty()) {
    caller.focusMoved(field);
    return Go::Stay;
  }
  if (lookup.free && field.limit > 0) value = cut(value, field.limit);
  Screen::set(field, value);
  caller.enterAgain(field);
  return Go::Stay;
}
