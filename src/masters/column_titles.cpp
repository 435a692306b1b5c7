#include "masters/column_titles.h"

#include <array>
#include <string>
#include <vector>

#include "base/text.h"

namespace {

enum class Content { Words, Figure, Money };

struct Known {
  std::string_view column, title;
  double width;
  Content content;
};

using enum Content;

// clang-format off
constexpr std::array kKnown{
    Known{"ACC_CD",       "Code",        92, Words },
    Known{"ACC_NAME",     "Name",       330, Words },
    Known{"AREA",         "Area",       150, Words },
    Known{"SAREA",        "Area",       150, Words },
    Known{"CITY",         "City",       150, Words },
    Known{"SCITY",        "City",       150, Words },
    Known{"PINCODE",      "Pin Code",    92, Words },
    Known{"PERSON_NM",    "Person",     180, Words },
    Known{"PHONE1",       "Phone",      150, Words },
    Known{"GSTINNO",      "Gstin No.",  170, Words },
    Known{"PRTYTYP",      "Type",       120, Words },
    Known{"CLBAL",        "Balance",    120, Money },
    Known{"CL_BAL",       "Balance",    120, Money },
    Known{"GROUP_CD",     "Group",       70, Figure},
    Known{"GROUP_NAME",   "Group Name", 330, Words },
    Known{"SUB_GROUP",    "Under",       92, Figure},
    Known{"ITEM_CD",      "Code",        92, Words },
    Known{"ITEM_NAME",    "Name",       380, Words },
    Known{"ITEM_SNAME",   "Short Name", 150, Words },
    Known{"ITEM_DESC",    "Description",330, Words },
    Known{"ITEMDESC",     "Description",250, Words },
    Known{"SUB_CATG",     "Sub Category",150,Words },
    Known{"MATERIAL",     "Material",   150, Words },
    Known{"CATEGORY",     "Category",   250, Words },
    Known{"DEPT_CD",      "Code",        92, Words },
    Known{"DEPT_NAME",    "Category",   460, Words },
    Known{"SIZE_CD",      "Unit",        76, Words },
    Known{"UOM",          "Unit",        92, Words },
    Known{"CL_STK",       "Stock",       76, Figure},
    Known{"MIN_STK",      "Min. Stock",  86, Figure},
    Known{"SALE_RATE1",   "Rate 1",      86, Money },
    Known{"SRATE1",       "Rate 1",      92, Money },
    Known{"SALE_RATE2",   "Rate 2",      86, Money },
    Known{"PUR_RATE",     "P. Rate",     86, Money },
    Known{"SALE_DISC",    "D%",          60, Figure},
    Known{"HSNCODE",      "HSN",         92, Words },
    Known{"RATEOFTAX",    "Tax %",       64, Figure},
    Known{"RATEOFCESS",   "Cess %",      70, Figure},
    Known{"DESC1",        "Detail",     120, Words },
    Known{"EXP_DT",       "Expiry",      92, Words },
    Known{"CODE",         "Code",        70, Figure},
    Known{"NAME",         "Name",       330, Words },
    Known{"RATE",         "Rate",        92, Money },
    Known{"QUANTITY",     "Qty",         86, Figure},
    Known{"AMOUNT",       "Amount",     110, Money },
    Known{"NET_AMT",      "Amount",     110, Money },
    Known{"NETAMT",       "Amount",     110, Money },
    Known{"TAX_ACC",      "A/c Code",    92, Words },
    Known{"FORM_PRINT",   "Print",       64, Words },
    Known{"TRANS_ID",     "Id",          70, Figure},
    Known{"TRANSNAME",    "Transport",  330, Words },
    Known{"TRANS_GOV_ID", "Gov. Id",    170, Words },
    Known{"GWDN_CD",      "Code",        92, Words },
    Known{"GWDN_NAME",    "Godown",     330, Words },
    Known{"SMAN_CD",      "Code",        92, Words },
    Known{"SMAN_NAME",    "Salesman",   330, Words },
    Known{"NARR_NAME",    "Narration",  500, Words },
    Known{"NARRATION",    "Narration",  250, Words },
    Known{"RTYP",         "Receipt Type",250,Words },
    Known{"RTYPACC",      "A/c Code",    92, Words },
    Known{"CHRGYN",       "Charge",      70, Words },
    Known{"USER_NAME",    "User",       250, Words },
    Known{"COMP_ID",      "Code",        92, Words },
    Known{"COMP_NAME",    "Company",    380, Words },
    Known{"FROMYR",       "From Year",  110, Words },
    Known{"TOYR",         "To Year",    110, Words },
    Known{"VOUCH_NO",     "V. No",       80, Figure},
    Known{"BILL_NO",      "Bill No",    110, Words },
    Known{"CHLN_NO",      "Chln No",    110, Words },
    Known{"CHLN_TYP",     "Type",       110, Words },
    Known{"ORDER_NO",     "Ordr No",    110, Words },
    Known{"REF_NO",       "Ref No",     110, Words },
    Known{"BL_TYPE",      "B.Type",      80, Words },
    Known{"VOUCH_DT",     "Date",       112, Words },
    Known{"VDT",          "Date",       112, Words },
    Known{"DT1",          "Date",       112, Words },
    Known{"NAMT",         "Amount",     110, Money },
    Known{"TRANSPORT",    "Transport",  180, Words },
    Known{"DESTI",        "Destination",150, Words },
    Known{"GR_NO",        "Lr No",      110, Words },
    Known{"CNAME",        "Customer",   200, Words },
    Known{"CMOBNO",       "Mobile",     150, Words },
    Known{"TO_NAME",      "To",         200, Words },
    Known{"CHQ_NO",       "Chq No",     110, Words },
    Known{"LOT_NO",       "Lot No",     110, Words },
};
// clang-format on

// "SALE.VOUCH_NO" is known by its last part.
std::string_view bare(std::string_view column) { return column.substr(column.rfind('.') + 1); }

std::string inWords(std::string_view column) {
  std::vector<std::string> parts = split(column, "_");
  for (std::string& part : parts) part = upper(left(part, 1)) + lower(mid(part, 2));
  return trim(join(parts, " "));
}

}  // namespace

ColumnTitle columnTitle(std::string_view column) {
  for (const Known& k : kKnown)
    if (sameText(k.column, bare(column)))
      return {.title = std::string(k.title),
              .width = k.width,
              .align = k.content == Words ? Align::Left : Align::Right,
              .money = k.content == Money};
  return {.title = inWords(bare(column))};
}
