#include "vouchers/frmquot.h"

using namespace fields;

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
               .from = "item CROSS JOIN deptment on item.dept_cd = deptment.dept_cd",
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

}  // namespace

std::vector<FRMQUOT::KeyLookup> FRMQUOT::lookups(const VoucherKind& kind, bool narrations) {
  using enum KeyLookup::From;
  using enum KeyCode;
  const SelectColumns ofPlace{{"acc_name"}, {"phone1"}, {"to_name"}, {"CITY"}, {"VOUCH_DT"}, {"NET_AMT"}};
  // clang-format off
  std::vector<KeyLookup> table = {
      {kNumber,    Enter, offers({"acc_name"}, {{"to_name"}, {"AREA"}, {"CITY"}, {"VOUCH_DT"}, {"NET_AMT"}}), {Book}},
      {kNumber,    F1,    offers({"area"}, ofPlace), {Book}},
      {kNumber,    F2,    offers({"city"}, ofPlace), {Book}},
      {kNumber,    F4,    offers(amountText("NET_AMT", "netamt"), {{"acc_name"}, {"to_name"}, {"AREA"}, {"CITY"}, {"VOUCH_DT"}, {"phone1"}}), {Book}},
      {kParty,     Enter, accounts({{"ACC_CD"}, {"ACC_NAME"}, {"AREA"}, {"CITY"}, {"PERSON_NM"}, balanceColumn()}, kind.party.offered)},
      {kParty,     F1,    accounts({{"acc_cd"}, {"ACC_NAME"}, {"phone1"}, {"AREA"}, {"EMAIL"}}, "group_cd > 74")},
      {kAttention, F1,    valuesOf("QUOT", "TO_NAME")},
      {kSubject,   F1,    valuesOf("QUOT", "SUB_DESC")},
      {kItem,      Enter, items()},
      {kItemName,  Enter, itemNames()},
      {kDetail,    F1,    valuesOf("QUOTITM", "ITEM_DESC")},
      {kDetail,    F2,    linesOfItem(), {Item}},
      {kUnit,      Enter, mayStayEmpty(unitsOfItem()), {Item}},
  };
  // clang-format on
  if (narrations)
    for (const FieldName field : kTerms) table.push_back({field, F1, valuesOf("NARRATN", "NARR_NAME")});
  return table;
}
