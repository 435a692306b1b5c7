#include "vouchers/frmquot.h"

namespace {

constexpr const char* kOffers =
    "QUOT left join ACCOUNT on QUOT.party_cd = ACCOUNT.ACC_CD where ENTRY_TYP = ?"
    " ORDER BY vouch_dt desc, VOUCH_NO DESC";
constexpr const char* kItems =
    "item inner join deptment on item.dept_cd = deptment.dept_cd order by ITEM_NAME";
constexpr const char* kAccounts = "ACCOUNT where group_cd > 74 ORDER BY ACC_NAME";
constexpr const char* kLinesOfItem = "QUOTITM WHERE ITEM_CD = ? ORDER BY ITEM_DESC, VOUCH_DT";

// Columns behind the first two.
constexpr const char* kOfOffer = "to_name, AREA, CITY, VOUCH_DT, NET_AMT";
constexpr const char* kOfPlace = "acc_name, phone1, to_name, CITY, VOUCH_DT, NET_AMT";
constexpr const char* kOfAmount = "acc_name, to_name, AREA, CITY, VOUCH_DT, phone1";
constexpr const char* kOfParty = "AREA, CITY, PERSON_NM, FORMAT(cl_bal,'0.00') AS CLBAL";

constexpr const char* kTermFields[] = {"Text1(1)",  "Text1(7)",  "Text1(29)", "Text1(33)",
                                       "Text1(18)", "Text1(26)", "Text1(28)", "Text1(6)"};

}  // namespace

std::vector<FRMQUOT::KeyLookup> FRMQUOT::lookups(const VoucherKind& kind, bool narrations) {
  using enum KeyLookup::From;
  using enum KeyCode;
  // clang-format off
  std::vector<KeyLookup> table = {
      {"Text1(0)",  Enter, {"THREEFLD", kOffers,      "vouch_no",  "acc_name", kOfOffer}, {Book}},
      {"Text1(0)",  F1,    {"THREEFLD", kOffers,      "vouch_no",  "area",     kOfPlace}, {Book}},
      {"Text1(0)",  F2,    {"THREEFLD", kOffers,      "vouch_no",  "city",     kOfPlace}, {Book}},
      {"Text1(0)",  F4,    {"THREEFLD", kOffers,      "vouch_no",  "trim(str(NET_AMT)) as netamt", kOfAmount}, {Book}},
      {"Text1(4)",  Enter, {"THREEFLD", kind.party.offered, "ACC_CD",    "ACC_NAME", kOfParty}},
      {"Text1(4)",  F1,    {"THREEFLD", kAccounts,    "acc_cd",    "ACC_NAME", "phone1, AREA, EMAIL"}},
      {"Text1(2)",  F1,    {"ONEFLD",   "QUOT",       "TO_NAME",   "", ""}},
      {"Text1(3)",  F1,    {"ONEFLD",   "QUOT",       "SUB_DESC",  "", ""}},
      {"Text1(12)", Enter, {"THREEFLD", kItems,       "ITEM_CD",   "ITEM_NAME", "dept_name"}},
      {"Text1(5)",  Enter, {"ONEFLD",   "item order by ITEM_NAME", "ITEM_NAME", "", ""}},
      {"Text1(15)", F1,    {"ONEFLD",   "QUOTITM",    "ITEM_DESC", "", ""}},
      {"Text1(15)", F2,    {"THREEFLD", kLinesOfItem, "ITEM_DESC", "VOUCH_DT", "QUANTITY, RATE, AMOUNT, DISC"}, {Item}},
      {"Text1(10)", Enter, {"ONEFLD",   "itemdtl where item_cd = ?", "SIZE_CD", "", ""}, {Item}},
  };
  // clang-format on
  if (narrations)
    for (const char* field : kTermFields)
      table.push_back({
          field, F1, {"ONEFLD", "NARRATN", "NARR_NAME", "", ""}
      });
  return table;
}
