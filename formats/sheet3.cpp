#include "formats/sheet3.h"

#include <algorithm>
#include <stdexcept>

namespace formats::sheet3 {

namespace {

// clang-format off
const std::vector<std::string_view> kBillFields = {
    "SALE.VOUCH_NO", "SALE.VOUCH_DT", "SALE.BL_TYPE", "SALE.BILL_NO", "SALE.BOOK_CD", "SALE.CHLN_NO",
    "SALE.ORDER_NO", "SALE.PARTY_CD", "SALE.SALE_CD", "SALE.CASH_CD", "SALE.CASH_AMT", "SALE.ITEM_AMT",
    "SALE.ROUND_OFF", "SALE.NET_AMT", "SALE.NARRATION", "SALE.PARCLE", "SALE.NO_OF_ITEM", "SALE.SMAN_CD",
    "SALE.GR_NO", "SALE.GR_DATE", "SALE.TRANSPORT", "SALE.FREIGHT", "SALE.DESTI", "SALE.CHLN_DT",
    "SALE.ORDER_DT", "SALE.TCGSTRT", "SALE.TSGSTRT", "SALE.TIGSTRT", "SALEITM.VOUCH_NO", "SALEITM.VOUCH_DT",
    "SALEITM.BOOK_CD", "SALEITM.SR_NO", "SALEITM.ITEM_CD", "SALEITM.SIZE_CD", "SALEITM.QUANTITY",
    "SALEITM.RATE", "SALEITM.SALE_DISC", "SALEITM.AMOUNT", "SALEITM.NET_AMOUNT", "SALEITM.DESC1",
    "SALEITM.ITEM_DESC", "SALEITM.CGSTRT", "SALEITM.SGSTRT", "SALEITM.IGSTRT", "SALEITM.CGSTAMT",
    "SALEITM.SGSTAMT", "SALEITM.IGSTAMT", "ITEM.ITEM_NAME", "ITEM.HSNCODE", "ITEM.RATEOFTAX",
    "ACCOUNT.ACC_NAME", "ACCOUNT.PERSON_NM", "ACCOUNT.ADD1", "ACCOUNT.ADD2", "ACCADD3", "ACCOUNT.AREA",
    "ACCOUNT.CITY", "ACCOUNT.PINCODE", "ACCOUNT.PHONE1", "ACCOUNT.CL_BAL", "ACCOUNT.GSTINNO",
    "ACCOUNT.STATECD", "ACCOUNT_1.ACC_NAME", "ACCOUNT_1.PERSON_NM", "ACCOUNT_1.ADD1", "ACCOUNT_1.ADD2",
    "ACC1ADD3", "ACCOUNT_1.AREA", "ACCOUNT_1.CITY", "ACCOUNT_1.PINCODE", "ACCOUNT_1.PHONE1",
    "ACCOUNT_1.CL_BAL", "ACCOUNT_1.GSTINNO", "ACCOUNT_1.STATECD", "PANNO", "PANNO1", "SALE.CR_DAYS",
    "SMAN_NAME", "DEPTMENT.DEPT_NAME", "ACCOUNT.EMAIL", "EMAIL1", "ITEM.ITEM_SNAME", "ACCOUNT.EMAIL",
    "WEBADD", "ACCOUNT.GSTREGTYP", "ACCOUNT_1.GSTREGTYP", "SALEITM.SALE_DISC1", "ITEMDTL.SALE_RATE2",
    "ITEMDTL.DESC1", "ITEMDTL.SALE_RATE1", "SALE.PRV_BNO", "SALE.PRV_BDT", "SALEITM.CESS_PERC1",
    "SALEITM.CESS_AMT1", "SALEITM.CUR_NM", "SALEITM.CUR_RT", "SALEITM.CUR_ITM_RT", "SALEITM.DISC3",
    "SALEITM.DISC4", "SALEITM.CUR_AMT", "SALE.CUR_TOTAMT", "SALE.GWT", "SALE.NWT", "SALE.COMMPERC",
    "SALE.COMMAMT", "TRANS_CD", "DIST_KM", "TRANS_GOV_ID", "SALE.CHRG_AMT3", "PRTYTYP", "SALE.CNAME",
    "SALE.CMOBNO", "SALE.CADRS", "ITEM.UOM", "PHONE2", "SALE.EINVNO", "SALE.IRNNO", "SALE.ACK_DT", "RNG",
    "DIVISN", "ECC_NO", "DESPACCNM", "DESPAD1", "DESPAD2", "DESPLOCATN", "DESPPIN", "DESPSTATE", "TADD1",
    "TADD2", "TAREA", "TCITY", "TPHONE1", "TPHONE2",
};
// clang-format on

}  // namespace

std::string letters(int column) {
  std::string text;
  for (; column > 0; column = (column - 1) / 26)
    text.insert(text.begin(), static_cast<char>('A' + (column - 1) % 26));
  return text;
}

std::string cell(int row, int column) { return "SHEET3!$" + letters(column) + "$" + std::to_string(row); }

std::string span(int row1, int row2, int column) {
  return cell(row1, column) + ":$" + letters(column) + "$" + std::to_string(row2);
}

const std::vector<std::string_view>& billFields() { return kBillFields; }

int billColumn(std::string_view field) {
  const auto at = std::find(kBillFields.begin(), kBillFields.end(), field);
  if (at == kBillFields.end())
    throw std::out_of_range("no field " + std::string(field) + " in the bill lines");
  return static_cast<int>(at - kBillFields.begin()) + 1;
}

}  // namespace formats::sheet3
