#include "vouchers/frmjrnl.h"

using namespace fields;

namespace {

Lookup journals(const SelectColumn& second, const SelectColumns& more) {
  return {
      .rows = {.columns = joined({{"VOUCH_NO"}, second}, more),
               .from = "JOURNAL",
               .where = "BOOK_CD = ?",
               .order = {down("VOUCH_DT"), down("VOUCH_NO")}}
  };
}

}  // namespace

std::vector<FRMJRNL::KeyLookup> FRMJRNL::lookups(const VoucherKind& kind) {
  using enum KeyLookup::From;
  using enum KeyCode;
  const SelectColumn day{"SHOWN(VOUCH_DT,'dd/mm/yyyy')", 0, "VDT"};
  // clang-format off
  return {
      {kNumber,        Enter, journals({"NARRATION", 4000}, {day, {"REF_NO"}, {"AMOUNT"}}), {Book}},
      {kNumber,        F1,    journals({"REF_NO"}, {{"NARRATION", 4000}, day, {"AMOUNT"}}), {Book}},
      {kNumber,        F4,    journals(amountText("AMOUNT", "AMT"), {{"NARRATION", 4000}, day, {"REF_NO"}}), {Book}},
      {kNarration,     F1,    valuesOf("JOURNAL", "NARRATION")},
      {kAccount,       Enter, accounts({{"ACC_CD"}, {"ACC_NAME"}, {"AREA"}, {"CITY"}, {"GROUP_CD"}, balanceColumn()}, kind.party.offered)},
      {kLineNarration, F1,    valuesOf("JOURNITM", "NARRATION")},
  };
  // clang-format on
}
