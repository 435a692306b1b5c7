#include "vouchers/frmquot.h"

namespace {

Lookup offers(const SelectColumn& second, const SelectColumns& more) {
  return {
      .rows = {.columns = joined({{"vouch_no"}, second}, more),
               .from = "QUOT left join ACCOUNT on QUOT.party_cd = ACCOUNT.ACC_CD",
               .where = "ENTRY_TYP = ?",
               .order = {down("vouch_dt"), down("VOUCH_NO")}}
  };
}

Lookup items() {
  return {
      .rows = {.columns = {{"ITEM_CD"}, {"ITEM_NAME"}, {"dept_name"}},
               .from = "item inner join deptment on item.dept_cd = deptment.dept_cd",
               .order = {"ITEM_NAME"}}
  };
}

Lookup itemNames() {
  return {
      .rows = {.columns = {{"ITEM_NAME"}}, .from = "item", .order = {"ITEM_NAME"}, .distinct = true}
  };
}

Lookup linesOfItem() {
  return {
      .rows = {.columns = {{"ITEM_DESC"}, {"VOUCH_DT"}, {"QUANTITY"}, {"RATE"}, {"AMOUNT"}, {"DISC"}},
               .from = "QUOTITM",
               .where = "ITEM_CD = ?",
               .order = {"ITEM_DESC", "VOUCH_DT"}}
  };
}

Lookup unitsOfItem() {
  return {
      .rows = {.columns = {{"SIZE_CD"}}, .from = "itemdtl", .where = "item_cd = ?", .distinct = true}
  };
}

constexpr const char* kTermFields[] = {"Text1(1)",  "Text1(7)",  "Text1(29)", "Text1(33)",
                                       "Text1(18)", "Text1(26)", "Text1(28)", "Text1(6)"};

}  // namespace

std::vector<FRMQUOT::KeyLookup> FRMQUOT::lookups(const VoucherKind& kind, bool narrations) {
  using enum KeyLookup::From;
  using enum KeyCode;
  const SelectColumns ofPlace{{"acc_name"}, {"phone1"}, {"to_name"}, {"CITY"}, {"VOUCH_DT"}, {"NET_AMT"}};
  // clang-format off
  std::vector<KeyLookup> table = {
      {"Text1(0)",  Enter, offers({"acc_name"}, {{"to_name"}, {"AREA"}, {"CITY"}, {"VOUCH_DT"}, {"NET_AMT"}}), {Book}},
      {"Text1(0)",  F1,    offers({"area"}, ofPlace), {Book}},
      {"Text1(0)",  F2,    offers({"city"}, ofPlace), {Book}},
      {"Text1(0)",  F4,    offers(amountText("NET_AMT", "netamt"), {{"acc_name"}, {"to_name"}, {"AREA"}, {"CITY"}, {"VOUCH_DT"}, {"phone1"}}), {Book}},
      {"Text1(4)",  Enter, accounts({{"ACC_CD"}, {"ACC_NAME"}, {"AREA"}, {"CITY"}, {"PERSON_NM"}, balanceColumn()}, kind.party.offered)},
      {"Text1(4)",  F1,    accounts({{"acc_cd"}, {"ACC_NAME"}, {"phone1"}, {"AREA"}, {"EMAIL"}}, "group_cd > 74")},
      {"Text1(2)",  F1,    valuesOf("QUOT", "TO_NAME")},
      {"Text1(3)",  F1,    valuesOf("QUOT", "SUB_DESC")},
      {"Text1(12)", Enter, items()},
      {"Text1(5)",  Enter, itemNames()},
      {"Text1(15)", F1,    valuesOf("QUOTITM", "ITEM_DESC")},
      {"Text1(15)", F2,    linesOfItem(), {Item}},
      {"Text1(10)", Enter, unitsOfItem(), {Item}},
  };
  // clang-format on
  if (narrations)
    for (const char* field : kTermFields) table.push_back({field, F1, valuesOf("NARRATN", "NARR_NAME")});
  return table;
}
