#include "vouchers/accounts.h"
#include "vouchers/bwrcpy.h"

// The lists that keys open.

using namespace fields;

namespace {

const std::vector<OrderTerm> kNewest{down("RPTPAY.VOUCH_DT"), down("RPTPAY.vouch_no")};
const SelectColumn kDay{"SHOWN(vouch_dt,'dd/mm/yyyy')", 0, "VDT"};

}  // namespace

Go bwrcpy::oldEntries() {
  return lookUp(host, *this, here(),
                {
                    .rows = {.columns = {{"vouch_no", 500},
                                         {"ACC_NAME", 2800},
                                         {"ACCOUNT.city", 1200},
                                         {"ACCOUNT.area", 1200},
                                         {"vouch_dt", 1200},
                                         {"AMOUNT", 1000},
                                         {"REF_NO", 1000},
                                         {"NARRATION", 1400},
                                         {"chq_no", 1000}},
                             .from = "RPTPAY CROSS JOIN ACCOUNT",
                             .where = "book_cd = ? AND RPTPAY.PARTY_CD = ACCOUNT.ACC_CD",
                             .order = kNewest,
                             .values = {kind_.code}}
  });
}

Lookup bwrcpy::oldVouchers(const SelectColumn& second, const SelectColumns& more) const {
  return {
      .rows = {.columns = joined({{"vouch_no"}, second}, more),
               .from = "RPTPAY CROSS JOIN ACCOUNT ON RPTPAY.PARTY_CD = ACCOUNT.ACC_CD",
               .where = "book_cd = ?",
               .order = kNewest,
               .values = {kind_.code}}
  };
}

Go bwrcpy::oldByReference() {
  return lookUp(
      host, *this, here(),
      oldVouchers({"Ref_no"}, {{"ACCOUNT.acc_name"}, {"ACCOUNT.city"}, kDay, {"AMOUNT"}, {"NARRATION"}}));
}

Go bwrcpy::oldByCheque() {
  return lookUp(
      host, *this, here(),
      oldVouchers({"chq_no"}, {{"ACCOUNT.acc_name"}, {"ACCOUNT.city"}, kDay, {"AMOUNT"}, {"NARRATION"}}));
}

Go bwrcpy::oldByAmount() {
  return lookUp(host, *this, here(),
                oldVouchers(amountText("AMOUNT", "amt"), {
                                                             {"ACCOUNT.acc_name"},
                                                             {"CHQ_NO"          },
                                                             {"ACCOUNT.city"    },
                                                             {kDay.expression,    0, "dt"},
                                                             {"NARRATION"             }
  }));
}

Go bwrcpy::partyByCity() {
  return lookUp(host, *this, here(),
                accounts({
                    {"ACC_CD",   600 },
                    {"city",     4000},
                    {"acc_name", 4000},
                    {"area",     2000}
  }));
}

Go bwrcpy::earlierRemarks() { return lookUp(host, *this, here(), valuesOf("RPTPAY", "NARRATION")); }
