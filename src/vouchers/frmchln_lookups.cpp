#include "vouchers/frmchln.h"

namespace {

// Where the lookups read.
constexpr const char* kChallans =
    "CHLN INNER JOIN ACCOUNT ON CHLN.PARTY_CD = ACCOUNT.ACC_CD where CHLN.BOOK_CD = ? order by vouch_no desc";
constexpr const char* kItems = "ITEM inner join deptment on item.dept_cd = deptment.dept_cd order by ITEM_cd";
constexpr const char* kUnits = "ITEMDTL where item_cd = ? ORDER BY ITEM_CD, SIZE_CD";
constexpr const char* kNamedUnits =
    "ITEMDTL INNER JOIN ITEM ON ITEMDTL.ITEM_CD = ITEM.ITEM_CD where ITEMDTL.item_cd = ?"
    " ORDER BY ITEMDTL.ITEM_CD, SIZE_CD";

// Columns behind the first two.
constexpr const char* kOfChallan =
    "CHLN.vouch_dt, ACCOUNT.CITY,ACCOUNT.AREA, CHLN.CHLN_TYP, CHLN.chln_no, CHLN.ORDER_NO AS REF_NO";
constexpr const char* kByNumber =
    "ACC_NAME, CHLN.vouch_dt, ACCOUNT.CITY,ACCOUNT.AREA, CHLN.CHLN_TYP, CHLN.ORDER_NO AS REF_NO";
constexpr const char* kByReference =
    "ACC_NAME, CHLN.vouch_dt, ACCOUNT.CITY,ACCOUNT.AREA, CHLN.CHLN_TYP, CHLN.chln_no";

const std::vector<int> kChallanWidths = {500, 3000, 1500, 1500, 1500, 800, 800, 1000};

}  // namespace

std::vector<FRMCHLN::KeyLookup> FRMCHLN::lookups(const VoucherKind& kind) {
  using enum KeyLookup::From;
  using enum KeyCode;
  // clang-format off
  return {
      {"Text1(0)",  Enter, {"THREEFLD", kChallans, "CHLN.VOUCH_NO", "ACC_NAME", kOfChallan, kChallanWidths}, {Book}},
      {"Text1(0)",  F1,    {"THREEFLD", kChallans, "CHLN.VOUCH_NO", "CHLN.chln_no", kByNumber}, {Book}},
      {"Text1(0)",  F2,    {"THREEFLD", kChallans, "CHLN.VOUCH_NO", "CHLN.ORDER_NO AS REF_NO", kByReference}, {Book}},
      {"Text1(4)",  Enter, {"THREEFLD", kind.party.offered, "ACC_CD", "ACC_NAME", "area, city", {1500, 3000, 2000, 2000}}},
      {"Text1(23)", Enter, {"ONEFLD",   "CHLN", "CHLN_TYP", "", ""}},
      {"Text1(5)",  Enter, {"SL_ITMCD", kItems, "ITEM_CD", "ITEM_NAME", "dept_name", {1000, 6000, 3000}}},
      {"Text1(10)", F1,    {"ONEFLD",   "CHLNITM", "DESC1", "", ""}},
      {"Text1(7)",  Enter, {"twofld",   kUnits, "SIZE_CD", "cl_stk, SALE_rate1, pur_rate, desc1 as exp_dt, ITEM_CD"}, {Item}},
      {"Text1(7)",  F1,    {"twofld",   kNamedUnits, "SIZE_CD", "ITEM_NAME, cl_stk, SALE_rate1, pur_rate, desc1 as exp_dt, ITEMDTL.ITEM_CD"}, {Item}},
  };
  // clang-format on
}
