#include "vouchers/gstsapu.h"

using namespace fields;

namespace {

const SelectColumn kDay{"SHOWN(SALE.vouch_dt,'dd/mm/yy')", 0, "VDT"};
const std::vector<OrderTerm> kNewest{down("VOUCH_DT"), down("bill_no"), down("vouch_no")};

// The bills whose accounts both stand, read in the order of the bills.
Lookup bills(const SelectColumn& second, const SelectColumns& more) {
  return {
      .rows = {.columns = joined({{"SALE.VOUCH_NO"}, second}, more),
               .from = "SALE CROSS JOIN ACCOUNT CROSS JOIN ACCOUNT AS ACCOUNT_1",
               .where = "SALE.PARTY_CD = ACCOUNT.ACC_CD AND SALE.SALE_CD = ACCOUNT_1.ACC_CD AND book_cd = ?",
               .order = kNewest}
  };
}

Lookup postedBills() {
  return {
      .rows = {.columns = {{"VOUCH_NO", 650},
                           ofAccount("ACC_NAME", "SALE.PARTY_CD", 2600),
                           {"BILL_NO", 800},
                           {"vouch_dt", 1050},
                           {"NET_AMT", 1000},
                           {"ACCOUNT.AREA", 1200},
                           {"ACCOUNT_1.ACC_NAME", 1100},
                           {"BL_TYPE", 600},
                           {"NARRATION", 2300}},
               .from = "(SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD) LEFT JOIN ACCOUNT AS"
                       " ACCOUNT_1 ON SALE.SALE_CD = ACCOUNT_1.ACC_CD", .where = "book_cd = ? AND GSTPOST = 1",
               .order = kNewest}
  };
}

Lookup billLines() {
  return {
      .rows = {.columns = {{"SALE.VOUCH_NO"},
                           {"SALEITM.ITEM_DESC"},
                           {"ITEM.ITEM_NAME"},
                           kDay,
                           {"SALE.NET_AMT"},
                           {"GR_NO"},
                           {"DESTI"}},
               .from = "SALE CROSS JOIN SALEITM CROSS JOIN ITEM",
               .where = "SALE.VOUCH_NO = SALEITM.VOUCH_NO AND SALE.BOOK_CD = SALEITM.BOOK_CD"
                        " AND SALEITM.ITEM_CD = ITEM.ITEM_CD AND SALE.book_cd = ?", .order = {down("SALE.VOUCH_DT"), down("bill_no"), down("SALE.vouch_no")}}
  };
}

Lookup parties(const std::string& where) {
  return accounts(
      {
          {"ACC_CD",    1000},
          {"ACC_NAME",  3500},
          {"area",      1500},
          {"city",      1500},
          {"pincode",   1000},
          {"GROUP_CD",  500 },
          {"PERSON_NM", 1500},
          balanceColumn(1000)
  },
      where);
}

Lookup partiesByGstin() {
  return accounts({{"ACC_CD"},
                   {"GSTINNO"},
                   {"ACC_NAME"},
                   {"area"},
                   {"city"},
                   {"pincode"},
                   {"GROUP_CD"},
                   balanceColumn()});
}

Lookup items() {
  return {
      .rows = {.columns = {{"ITEM.ITEM_CD", 1000},
                           {"ITEM_NAME", 3400},
                           {"DEPT_NAME", 1500},
                           {"size_cd", 750},
                           {"CL_STK", 750},
                           {"SALE_RATE1", 750},
                           {"SALE_RATE2", 750},
                           {"item.hsncode", 750},
                           {"item.rateoftax", 750},
                           {"SALE_DISC", 750},
                           {"pur_rate"}},
               .from = "(ITEM left join itemdtl on item.item_cd = itemdtl.item_cd)"
                       " left join DEPTMENT on ITEM.DEPT_CD = DEPTMENT.DEPT_CD", .order = {"ITEM_NAME", "ITEM.rowid", "SIZE_CD"}},
      .below = true,
      .along = "size_cd"
  };
}

// No table keeps a least stock; the last column stands for it.
Lookup itemUnits() {
  return {
      .rows = {.columns = {{"item.item_cd"},
                           {"item.item_name"},
                           {"DEPT_NAME"},
                           {"CL_STK"},
                           {"SALE_RATE1"},
                           {"SALE_rate2"},
                           {"desc1"},
                           {"0", 0, "min_stk"}},
               .from = "ITEM CROSS JOIN DEPTMENT CROSS JOIN ITEMDTL",
               .where = "ITEM.DEPT_CD = DEPTMENT.DEPT_CD AND ITEM.ITEM_CD = ITEMDTL.ITEM_CD",
               .order = {"ITEM_NAME", "ITEM.rowid", "SIZE_CD"}},
      .along = "size_cd"
  };
}

// The plus keeps the search in the index of the item.
Lookup soldUnderOtherNames() {
  return {
      .rows = {.columns = {{"ITEM_DESC"}, {"VOUCH_DT"}, {"RATE"}, {"QUANTITY"}, {"SALE_DISC"}},
               .from = "SALEITM",
               .where = "item_cd = ? AND +book_cd = ?",
               .order = {down("SALEITM.VOUCH_DT")}}
  };
}

Lookup units() {
  return {
      .rows = {.columns = {{"SIZE_CD", 800},
                           {"CL_STK", 1000},
                           {"SALE_RATE1", 1000},
                           {"SALE_RATE2", 1000},
                           {"pur_rate", 1200},
                           {"desc1", 1000}},
               .from = "ITEMDTL",
               .where = "item_cd = ?"}
  };
}

Lookup transporters() {
  return {
      .rows = {.columns = {{"transname"}, {"trans_id"}, {"trans_gov_id"}},
               .from = "transmast",
               .order = {"TRANSNAME"}},
      .free = true
  };
}

}  // namespace

std::vector<GSTSAPU::KeyLookup> GSTSAPU::lookups(const VoucherKind& kind) {
  using enum KeyLookup::From;
  using enum KeyCode;
  const SelectColumns ofBill{{"ACCOUNT.ACC_NAME"}, {"SALE.bl_type"}, kDay,
                             {"SALE.NET_AMT"},     {"ACCOUNT.AREA"}, {"ACCOUNT_1.ACC_NAME"}};
  // clang-format off
  return {
      {kNumber,      Enter, postedBills(), {Book}},
      {kNumber,      F1,    bills({"SALE.BILL_NO"}, ofBill), {Book}},
      {kNumber,      F2,    bills({"SALE.GR_NO"}, ofBill), {Book}},
      {kNumber,      F3,    bills({"SALE.transport"}, ofBill), {Book}},
      {kNumber,      F4,    bills(amountText("NET_AMT", "NAMT"), {{"ACCOUNT.ACC_NAME"}, kDay, {"bill_no"}, {"ACCOUNT.AREA"}, {"ACCOUNT.CITY"}}), {Book}},
      {kNumber,      F5,    bills({"SHOWN(VOUCH_DT,'dd/mmm/yyyy')", 0, "DT1"}, {{"ACCOUNT.ACC_NAME"}, {"NET_AMT"}, {"bill_no"}, {"ACCOUNT.AREA"}, {"ACCOUNT.CITY"}}), {Book}},
      {kNumber,      F8,    bills(ofAccount("GSTINNO", "SALE.PARTY_CD"), {{"BILL_NO"}, {"vouch_dt"}, {"NET_AMT"}, {"ACCOUNT.AREA"}, {"ACCOUNT.ACC_NAME"}, {"BL_TYPE"}}), {Book}},
      {kNumber,      F9,    bills({"CNAME"}, {{"SALE.BILL_NO"}, kDay, {"SALE.NET_AMT"}, {"CMOBNO"}}), {Book}},
      {kNumber,      F10,   bills({"CMOBNO"}, {{"SALE.BILL_NO"}, kDay, {"SALE.NET_AMT"}, {"CNAME"}}), {Book}},
      {kNumber,      F11,   billLines(), {Book}},
      {kParty,       Enter, parties(kind.party.offered)},
      {kParty,       F1,    accounts({{"ACC_CD"}, {"AREA"}, {"acc_name"}, {"CITY"}})},
      {kParty,       F2,    accounts({{"ACC_CD"}, {"city"}, {"acc_name"}, {"area"}})},
      {kParty,       F4,    parties("group_cd > 74")},
      {kParty,       F8,    partiesByGstin()},
      {kShipTo,      Enter, mayStayEmpty(parties(kind.party.offered))},
      {kShipTo,      F8,    partiesByGstin()},
      {kBillType,    Enter, mayStayEmpty(valuesOf("SALE", "bl_type"))},
      {kItem,        Enter, items()},
      {kItem,        F1,    itemUnits(), {}, true},
      {kItem,        F2,    itemUnits()},
      {kItemName,    Enter, valuesOf("SALEITM", "ITEM_DESC")},
      {kDetail,      F1,    valuesOf("SALEITM", "item_desc")},
      {kDetail,      F2,    soldUnderOtherNames(), {Item, Book}},
      {kUnit,        Enter, units(), {Item}},
      {kNarration,   F1,    valuesOf("SALE", "NARRATION")},
      {kTransport,   Enter, mayStayEmpty(transporters())},
      {kDestination, Enter, mayStayEmpty(valuesOf("SALE", "DESTI"))},
      {kLrNumber,    F1,    valuesOf("SALE", "GR_NO")},
  };
  // clang-format on
}
