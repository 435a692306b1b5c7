#include "vouchers/frmchln.h"

using namespace fields;

namespace {

Lookup challans(SelectColumns columns) {
  return {
      .rows = {.columns = std::move(columns),
               .from = "CHLN CROSS JOIN ACCOUNT ON CHLN.PARTY_CD = ACCOUNT.ACC_CD",
               .where = "CHLN.BOOK_CD = ?",
               .order = {down("vouch_no")}}
  };
}

Lookup units(SelectColumns columns) {
  return {
      .rows = {.columns = std::move(columns),
               .from = "ITEMDTL",
               .where = "item_cd = ?",
               .order = {"ITEM_CD", "SIZE_CD"}}
  };
}

Lookup namedUnits(SelectColumns columns) {
  return {
      .rows = {.columns = std::move(columns),
               .from = "ITEMDTL INNER JOIN ITEM ON ITEMDTL.ITEM_CD = ITEM.ITEM_CD",
               .where = "ITEMDTL.item_cd = ?",
               .order = {"ITEMDTL.ITEM_CD", "SIZE_CD"}}
  };
}

Lookup items() {
  return {
      .rows = {.columns = {{"ITEM_CD", 1000}, {"ITEM_NAME", 6000}, {"dept_name", 3000}},
               .from = "ITEM CROSS JOIN deptment on item.dept_cd = deptment.dept_cd",
               .order = {"ITEM_cd"}},
      .below = true
  };
}

}  // namespace

std::vector<FRMCHLN::KeyLookup> FRMCHLN::lookups(const VoucherKind& kind) {
  using enum KeyLookup::From;
  using enum KeyCode;
  // clang-format off
  return {
      {kNumber,      Enter, challans({{"CHLN.VOUCH_NO", 500}, {"ACC_NAME", 3000}, {"CHLN.vouch_dt", 1500}, {"ACCOUNT.CITY", 1500}, {"ACCOUNT.AREA", 1500}, {"CHLN.CHLN_TYP", 800}, {"CHLN.chln_no", 800}, {"CHLN.ORDER_NO", 1000, "REF_NO"}}), {Book}},
      {kNumber,      F1,    challans({{"CHLN.VOUCH_NO"}, {"CHLN.chln_no"}, {"ACC_NAME"}, {"CHLN.vouch_dt"}, {"ACCOUNT.CITY"}, {"ACCOUNT.AREA"}, {"CHLN.CHLN_TYP"}, {"CHLN.ORDER_NO", 0, "REF_NO"}}), {Book}},
      {kNumber,      F2,    challans({{"CHLN.VOUCH_NO"}, {"CHLN.ORDER_NO", 0, "REF_NO"}, {"ACC_NAME"}, {"CHLN.vouch_dt"}, {"ACCOUNT.CITY"}, {"ACCOUNT.AREA"}, {"CHLN.CHLN_TYP"}, {"CHLN.chln_no"}}), {Book}},
      {kParty,       Enter, accounts({{"ACC_CD", 1500}, {"ACC_NAME", 3000}, {"area", 2000}, {"city", 2000}}, kind.party.offered)},
      {kChallanType, Enter, mayStayEmpty(valuesOf("CHLN", "CHLN_TYP"))},
      {kItem,        Enter, items()},
      {kDetail,      F1,    valuesOf("CHLNITM", "DESC1")},
      {kUnit,        Enter, units({{"SIZE_CD"}, {"cl_stk"}, {"SALE_rate1"}, {"pur_rate"}, {"desc1", 0, "exp_dt"}, {"ITEM_CD"}}), {Item}},
      {kUnit,        F1,    namedUnits({{"SIZE_CD"}, {"ITEM_NAME"}, {"cl_stk"}, {"SALE_rate1"}, {"pur_rate"}, {"desc1", 0, "exp_dt"}, {"ITEMDTL.ITEM_CD"}}), {Item}},
  };
  // clang-format on
}
