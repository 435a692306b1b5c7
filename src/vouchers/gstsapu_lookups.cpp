#include "vouchers/gstsapu.h"

namespace {

// Where the lookups read. A comma join keeps the bills whose accounts both stand.
constexpr const char* kBills =
    "SALE, ACCOUNT, ACCOUNT AS ACCOUNT_1 where SALE.PARTY_CD = ACCOUNT.ACC_CD"
    " AND SALE.SALE_CD = ACCOUNT_1.ACC_CD AND book_cd = ?"
    " order by VOUCH_DT DESC, bill_no desc, vouch_no desc";
constexpr const char* kPostedBills =
    "(SALE LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD) LEFT JOIN ACCOUNT AS ACCOUNT_1"
    " ON SALE.SALE_CD = ACCOUNT_1.ACC_CD WHERE book_cd = ? AND GSTPOST = 1"
    " order by VOUCH_DT DESC, bill_no desc, vouch_no desc";
constexpr const char* kBillLines =
    "SALE, SALEITM, ITEM where SALE.VOUCH_NO = SALEITM.VOUCH_NO AND SALE.BOOK_CD = SALEITM.BOOK_CD"
    " AND SALEITM.ITEM_CD = ITEM.ITEM_CD AND SALE.book_cd = ?"
    " order by SALE.VOUCH_DT DESC, bill_no desc, SALE.vouch_no desc";
constexpr const char* kItems =
    "(ITEM left join itemdtl on item.item_cd = itemdtl.item_cd)"
    " left join DEPTMENT on ITEM.DEPT_CD = DEPTMENT.DEPT_CD order by ITEM_NAME";
constexpr const char* kItemUnits =
    "ITEM, ITEMDTL, DEPTMENT WHERE ITEM.DEPT_CD = DEPTMENT.DEPT_CD"
    " AND ITEM.ITEM_CD = ITEMDTL.ITEM_CD order by ITEM_NAME";

// Columns behind the first two.
constexpr const char* kOfBill =
    "ACCOUNT.ACC_NAME, SALE.bl_type, format(SALE.vouch_dt,'dd/MM/yy') AS VDT, SALE.NET_AMT, ACCOUNT.AREA,"
    " ACCOUNT_1.ACC_NAME";
constexpr const char* kOfPosted =
    "BILL_NO, vouch_dt, NET_AMT, ACCOUNT.AREA, ACCOUNT_1.ACC_NAME, BL_TYPE, NARRATION";
constexpr const char* kOfParty = "area, city, pincode, GROUP_CD, PERSON_NM, FORMAT(cl_bal,'0.00') AS CLBAL";
constexpr const char* kOfGstin = "ACC_NAME, area, city, pincode, GROUP_CD, FORMAT(cl_bal,'0.00') AS CLBAL";
// No table keeps a least stock; the column stands for it.
constexpr const char* kOfItem = "DEPT_NAME, CL_STK, SALE_RATE1, SALE_rate2, desc1, 0 AS min_stk";

const std::vector<int> kPostedWidths = {650, 2600, 800, 1050, 1000, 1200, 1100, 600, 2300};
const std::vector<int> kPartyWidths = {1000, 3500, 1500, 1500, 1000, 500, 1500, 1000};
const std::vector<int> kItemWidths = {1000, 3400, 1500, 750, 750, 750, 750, 750, 750, 750, 750};

}  // namespace

std::vector<GSTSAPU::KeyLookup> GSTSAPU::lookups(const VoucherKind& kind) {
  using enum KeyLookup::From;
  using enum KeyCode;
  // clang-format off
  return {
      {"Text1(0)",  Enter, {"THREEFLD",  kPostedBills, "VOUCH_NO", "ACCOUNT.ACC_NAME", kOfPosted, kPostedWidths}, {Book}},
      {"Text1(0)",  F1,    {"THREEFLD",  kBills, "SALE.VOUCH_NO", "SALE.BILL_NO", kOfBill}, {Book}},
      {"Text1(0)",  F2,    {"THREEFLD",  kBills, "SALE.VOUCH_NO", "SALE.GR_NO", kOfBill}, {Book}},
      {"Text1(0)",  F3,    {"THREEFLD",  kBills, "SALE.VOUCH_NO", "SALE.transport", kOfBill}, {Book}},
      {"Text1(0)",  F4,    {"THREEFLD",  kBills, "VOUCH_NO", "TRIM(str(NET_AMT)) AS NAMT", "ACCOUNT.ACC_NAME, format(vouch_dt,'dd/MM/yy') AS VDT, bill_no, ACCOUNT.AREA, ACCOUNT.CITY"}, {Book}},
      {"Text1(0)",  F5,    {"THREEFLD",  kBills, "VOUCH_NO", "format(VOUCH_DT,'dd/MMM/yyyy') AS DT1", "ACCOUNT.ACC_NAME, NET_AMT, bill_no, ACCOUNT.AREA, ACCOUNT.CITY"}, {Book}},
      {"Text1(0)",  F8,    {"THREEFLD",  kBills, "VOUCH_NO", "ACCOUNT.GSTINNO", "BILL_NO, vouch_dt, NET_AMT, ACCOUNT.AREA, ACCOUNT.ACC_NAME, BL_TYPE"}, {Book}},
      {"Text1(0)",  F9,    {"THREEFLD",  kBills, "SALE.VOUCH_NO", "CNAME", "SALE.BILL_NO, format(SALE.vouch_dt,'dd/MM/yy') AS VDT, SALE.NET_AMT, CMOBNO"}, {Book}},
      {"Text1(0)",  F10,   {"THREEFLD",  kBills, "SALE.VOUCH_NO", "CMOBNO", "SALE.BILL_NO, format(SALE.vouch_dt,'dd/MM/yy') AS VDT, SALE.NET_AMT, CNAME"}, {Book}},
      {"Text1(0)",  F11,   {"THREEFLD",  kBillLines, "SALE.VOUCH_NO", "SALEITM.ITEM_DESC", "ITEM.ITEM_NAME, format(SALE.vouch_dt,'dd/MM/yy') AS VDT, SALE.NET_AMT, GR_NO, DESTI "}, {Book}},
      {"Text1(4)",  Enter, {"THREEFLD",  kind.party.offered, "ACC_CD", "ACC_NAME", kOfParty, kPartyWidths}},
      {"Text1(4)",  F1,    {"THREEFLD",  "ACCOUNT ORDER BY ACC_NAME", "ACC_CD", "AREA", "acc_name, CITY"}},
      {"Text1(4)",  F2,    {"THREEFLD",  "ACCOUNT ORDER BY ACC_NAME", "ACC_CD", "city", "acc_name, area"}},
      {"Text1(4)",  F4,    {"THREEFLD",  "ACCOUNT where group_cd > 74 order by acc_name", "ACC_CD", "ACC_NAME", kOfParty, kPartyWidths}},
      {"Text1(4)",  F8,    {"THREEFLD",  "ACCOUNT ORDER BY ACC_NAME", "ACC_CD", "GSTINNO", kOfGstin}},
      {"Text1(32)", Enter, {"THREEFLD",  kind.party.offered, "ACC_CD", "ACC_NAME", kOfParty, kPartyWidths}},
      {"Text1(32)", F8,    {"THREEFLD",  "ACCOUNT ORDER BY ACC_NAME", "ACC_CD", "GSTINNO", kOfGstin}},
      {"Text1(47)", Enter, {"ONEFLD",    "SALE", "bl_type", "", ""}},
      {"Text1(5)",  Enter, {"SL_ITMCD",  kItems, "ITEM.ITEM_CD", "ITEM_NAME", "DEPT_NAME, size_cd, CL_STK, SALE_RATE1, SALE_RATE2, item.hsncode, item.rateoftax, SALE_DISC, pur_rate ", kItemWidths}},
      {"Text1(5)",  F1,    {"THREEFLD",  kItemUnits, "item.item_cd", "item.item_name", kOfItem}, {}, true},
      {"Text1(5)",  F2,    {"THREEFLD",  kItemUnits, "item.item_cd", "item.item_name", kOfItem}},
      {"Text1(6)",  Enter, {"ONEFLD",    "SALEITM", "ITEM_DESC", "", ""}},
      {"Text1(46)", F1,    {"ONEFLD",    "SALEITM", "item_desc", "", ""}},
      {"Text1(46)", F2,    {"THREEFLD",  "SALEITM where item_cd = ? AND +book_cd = ? ORDER BY SALEITM.VOUCH_DT DESC", "ITEM_DESC", "VOUCH_DT", "RATE, QUANTITY, SALE_DISC"}, {Item, Book}},
      {"Text1(7)",  Enter, {"THREEFLD",  "ITEMDTL where item_cd = ?", "SIZE_CD", "CL_STK", "SALE_RATE1, SALE_RATE2, pur_rate, desc1", {800, 1000, 1000, 1000, 1200, 1000}}, {Item}},
      {"Text1(29)", F1,    {"ONEFLD",    "SALE", "NARRATION", "", ""}},
      {"Text1(42)", Enter, {"twofld",    "transmast ORDER BY TRANSNAME", "transname", "trans_id, trans_gov_id", ""}},
      {"Text1(41)", Enter, {"ONEFLD",    "SALE", "DESTI", "", ""}},
      {"Text1(40)", F1,    {"ONEFLD",    "SALE", "GR_NO", "", ""}},
  };
  // clang-format on
}
