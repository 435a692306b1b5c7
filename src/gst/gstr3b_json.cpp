#include <utility>

#include "base/text.h"
#include "gst/gstr3b.h"
#include "gst/json_file.h"

namespace {

Json taxes(const TaxAmounts& sums) {
  return {
      {"iamt",  jsonMoney(sums.igst)},
      {"camt",  jsonMoney(sums.cgst)},
      {"samt",  jsonMoney(sums.sgst)},
      {"csamt", jsonMoney(sums.cess)}
  };
}

Json supplies(const TaxAmounts& sums) {
  Json json{
      {"txval", jsonMoney(sums.taxable)}
  };
  json.update(taxes(sums));
  return json;
}

Json ofType(const char* type, const TaxAmounts& sums) {
  Json json{
      {"ty", type}
  };
  json.update(taxes(sums));
  return json;
}

Json places(const std::vector<PlaceSum>& list) {
  Json rows = Json::array();
  for (const PlaceSum& sum : list)
    rows.push_back({
        {"pos",                        padLeft(std::to_string(sum.place), 2, '0')},
        {"txval",                        jsonMoney(sum.sums.taxable)                                                        },
        {"iamt",jsonMoney(sum.sums.igst)}
    });
  return rows;
}

Json credit(const Gstr3b& g) {
  using enum Gstr3bRow;
  return {
      {"itc_avl",
       {ofType("IMPG", g[ImportGoods]), ofType("IMPS", g[ImportServices]), ofType("ISRC", g[ReverseCredit]),
        ofType("ISD", {}), ofType("OTH", g[OtherCredit])}            },
      {"itc_rev",   {ofType("RUL", g[Ineligible]), ofType("OTH", {})}},
      {"itc_net",   taxes(g.netCredit())                             },
      {"itc_inelg", {ofType("RUL", {}), ofType("OTH", {})}           }
  };
}

}  // namespace

std::filesystem::path writeGstr3b(const Gstr3b& g, const std::filesystem::path& folder) {
  using enum Gstr3bRow;
  const Json head{
      {"gstin",      g.shop->gstin  },
      {"ret_period", g.period.text()}
  };
  JsonFiles file(folder, "GSTR3B_" + g.shop->gstin + "_" + g.period.text(), head, static_cast<size_t>(-1));
  file.put("sup_details", {
                              {"osup_det",      supplies(g[Taxed])    },
                              {"osup_zero",     supplies(g[ZeroRated])},
                              {"osup_nil_exmp", supplies(g[NilExempt])},
                              {"isup_rev",      supplies(g[Reverse])  },
                              {"osup_nongst",   supplies(g[NonGst])   }
  });
  file.put("eco_dtls", {
                           {"eco_sup",     supplies({})  },
                           {"eco_reg_sup", {{"txval", 0}}}
  });
  file.put("itc_elg", credit(g));
  file.put(
      "inward_sup",
      {
          {"isup_details",
           {{{"ty", "GST"}, {"inter", jsonMoney(g.untaxedInter)}, {"intra", jsonMoney(g.untaxedIntra)}},
            {{"ty", "NONGST"}, {"inter", jsonMoney(g.nonGstInter)}, {"intra", jsonMoney(g.nonGstIntra)}}}}
  });
  file.put("intr_ltfee", {
                             {"intr_details",  taxes({})     },
                             {"ltfee_details", Json::object()}
  });
  if (g.shop->tables.number(kInterStateTable, "", g.period.last()) == 1)
    file.put("inter_sup", {
                              {"unreg_details", places(g.unregistered)},
                              {"comp_details",  places(g.composition) },
                              {"uin_details",   places(g.uin)         }
    });
  return file.finish().front();
}
