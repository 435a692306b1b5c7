#include "frame/lookup.h"

#include "frame/session.h"

Lookup valuesOf(const std::string& table, const std::string& column, int width) {
  return {
      .rows = {.columns = {{column, width}},
               .from = table,
               .where = "LEN(" + column + ")>0",
               .distinct = true},
      .values = true
  };
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

SelectColumn balanceColumn(int width) { return {"FORMAT(cl_bal,'0.00')", width, "CLBAL"}; }

Lookup accounts(SelectColumns columns, const std::string& where) {
  return {
      .rows = {.columns = std::move(columns), .from = "ACCOUNT", .where = where, .order = {"ACC_NAME"}}
  };
}

std::string lookUpValue(Host& host, const Lookup& lookup) {
  session().mhlptable = tableText(lookup.rows);
  const std::string hint = host.hint();
  const auto chosen = host.openModal("FRMHLP", {.more = lookup});
  host.hint(hint);
  return chosen.value_or("");
}

Go lookUp(Host& host, Screen& caller, Control& field, const Lookup& lookup) {
  if (caller.leaving()) return Go::Stay;
  const std::string value = lookUpValue(host, lookup);
  if (value.empty()) return Go::Stay;
  Screen::set(field, value);
  caller.enterAgain(field);
  return Go::Stay;
}
