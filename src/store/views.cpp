#include "store/views.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "store/dictionary.h"
#include "store/engine.h"

namespace {

struct View {
  std::string_view name;
  std::string_view columns;
  std::string_view from;
};

// Print designs read the columns by position: nothing in the lists is to be tidied.
// clang-format off
constexpr std::array printViews = {
  View{"blprn",
    "SALE.VOUCH_NO, SALE.VOUCH_DT, SALE.BL_TYPE, SALE.BILL_NO, SALE.BOOK_CD, SALE.CHLN_NO, "
    "SALE.PARTY_CD, SALE.CASH_CD, SALE.CASH_AMT, SALE.ITEM_DISC, SALE.ITEM_AMT, SALE.TOT_TAX, "
    "SALE.TOT_VAT, SALE.DISC_PERC1, SALE.DISC_AMT1, SALE.DISC_PERC2, SALE.DISC_AMT2, SALE.CHRG_AMT1, "
    "SALE.CHRG_AMT2, SALE.ROUND_OFF, SALE.NET_AMT, SALE.NARRATION, SALE.NARRATION1, SALE.PARCLE, "
    "SALE.SMAN_CD, SALE.cr_days, SALE.GR_NO, SALE.GR_DATE, SALE.TRANSPORT, SALE.desti, SALE.TAX_CD1, "
    "SALE.TAX_AMT1, SALE.TAX_CD2, SALE.TAX_AMT2, SALEITM.VOUCH_DT, SALEITM.SR_NO, SALEITM.ITEM_CD, "
    "SALEITM.SIZE_CD, SALEITM.QUANTITY, SALEITM.Rate, SALEITM.SALE_DISC, SALEITM.AMOUNT, SALEITM.brkrg, "
    "SALEITM.VAT_AMT, SALEITM.TAX_AMT, SALEITM.NET_AMOUNT, SALEITM.ITEM_DESC, BUYER.ACC_NAME, "
    "BUYER.PERSON_NM, BUYER.ADD1, BUYER.ADD2, BUYER.area, BUYER.city, BUYER.PINCODE, BUYER.phone1, "
    "BUYER.PHONE2, BUYER.STAX_NO, BUYER.CST_NO, BUYER.Credit_DAY, DISCHTAX.CODE, DISCHTAX.Name, "
    "DISCHTAX.Rate, DISCHTAX.FORM_PRINT, DISCHTAX_1.Name, Item.ITEM_CD, Item.ITEM_NAME, Item.DEPT_CD, "
    "0 AS PRATE, 0 AS SRATE1, 0 AS MINIM_STK, 0 AS SDISC, ITEMDTL.ITEM_CD, ITEMDTL.SIZE_CD, "
    "ITEMDTL.PUR_RATE, ITEMDTL.SALE_RATE1, ITEMDTL.SALE_DISC, 0 AS PURC_DISC, DEPTMENT.DEPT_NAME, "
    "ITEMDTL.DESC1, SALEITM.DESC1, SALE.order_no, SALE.NARRATION1, SALE.ORDER_DT, SALEITM.CHLN_DT, "
    "itemdtl.SALE_rate2, '' AS SMAN_NAME, BUYER.cl_bal, saleitm.tax_rt, BUYER.fer_lic_no, "
    "ITEM.ITEM_SNAME, BUYER.GSTINNO, BUYER.BANK_NAME, BUYER.STATECD, SALE.FREIGHT, ITEM.HSNCODE, "
    "TRANS_CD, DIST_KM, TRANS_GOV_ID, SALE.CHRG_AMT3, BUYER.PRTYTYP, SALE.NARRATION2, SALE.CNAME, "
    "SALE.CMOBNO, SALE.CADRS, SALEITM.SALE_DISC1, SALEITM.DISC3, SALEITM.DISC4, ITEM.RATEOFTAX, "
    "item.uom, EINVNO, IRNNO, SALEITM.MFG_DT, BUYER.EMAIL, SALE.SALE_CD, SALE.NO_OF_ITEM, SALE.ACK_DT, "
    "ATAX_CD, ATAX_AMT, CACC.ACC_NAME, DESPAC.ACC_NAME AS DESPACCNM, DESPAC.ADD1 AS DESPAD1, "
    "DESPAC.ADD2 AS DESPAD2, DESPAC.AREA AS DESPLOCATN, DESPAC.PINCODE AS DESPPIN, "
    "DESPAC.CITY AS DESPSTATE",
    "SALE LEFT JOIN SALEITM ON SALE.VOUCH_NO = SALEITM.VOUCH_NO AND SALE.BOOK_CD = SALEITM.BOOK_CD"
    " LEFT JOIN ITEM ON SALEITM.ITEM_CD = ITEM.ITEM_CD"
    " LEFT JOIN ACCOUNT AS BUYER ON SALE.PARTY_CD = BUYER.ACC_CD"
    " LEFT JOIN ACCOUNT AS CACC ON SALE.CASH_CD = CACC.ACC_CD"
    " LEFT JOIN DISCHTAX ON SALE.TAX_CD1 = DISCHTAX.CODE"
    " LEFT JOIN DISCHTAX AS DISCHTAX_1 ON SALE.TAX_CD2 = DISCHTAX_1.CODE"
    " LEFT JOIN ITEMDTL ON SALEITM.SIZE_CD = ITEMDTL.SIZE_CD AND SALEITM.ITEM_CD = ITEMDTL.ITEM_CD"
    " LEFT JOIN DEPTMENT ON ITEM.DEPT_CD = DEPTMENT.DEPT_CD"
    " LEFT JOIN ACCOUNT AS DESPAC ON SALE.DESPATCH_FROM = DESPAC.ACC_CD"},
  View{"CHLNPRN",
    "CHLN.VOUCH_DT, CHLN.VOUCH_NO, CHLN.BOOK_CD, CHLN.NARRATION, CHLN.TRANSPORT, CHLN.TAX_CD1, "
    "CHLN.TAX_AMT1, CHLN.TAX_CD2, CHLN.TAX_AMT2, CHLNITM.ITEM_CD, CHLNITM.SIZE_CD, CHLNITM.QUANTITY, "
    "CHLNITM.RATE, CHLNITM.NET_AMOUNT, ACCOUNT.ACC_CD, ACCOUNT.ACC_NAME, ACCOUNT.ADD1, ACCOUNT.ADD2, "
    "ACCOUNT.AREA, ACCOUNT.CITY, ACCOUNT.PINCODE, ACCOUNT.PHONE1, '' AS STAX_NO, '' AS CST_NO, "
    "ACCOUNT.Credit_DAY, '' AS TRANSPORT1, CHLNITM.DESC1, ITEM.ITEM_NAME, CHLN.ORDER_NO, ITEMDTL.DESC1, "
    "CHLN.NET_AMT, DISCHTAX.NAME, DISCHTAX_1.NAME, CHLN.DISC_PERC, CHLN.DISC_AMT, CHLN.CHRGS, "
    "ACCOUNT.PERSON_NM, CHLNITM.SR_NO, ITEM.DEPT_CD, CHLN.CHLN_NO, CHLN.CHLN_TYP, ACCOUNT.GSTINNO, "
    "ACCOUNT.STATECD, ACCOUNT.EMAIL, ACCOUNT.CL_BAL, CHLN.GR_NO, CHLN.GR_DATE, CHLN.FREIGHT, "
    "CHLN.PAY_TOPAY, CHLN.DESTI, CHLN.DISC_PERC, CHLN.DISC_AMT, CHLN.CHRGS, '' AS PHONE2, "
    "CHLNITM.ITEM_DESC, ITEM.HSNCODE, '' AS SMAN_NAME, '.' AS PHN1",
    "CHLN LEFT JOIN ACCOUNT ON CHLN.PARTY_CD = ACCOUNT.ACC_CD"
    " LEFT JOIN CHLNITM ON CHLN.BOOK_CD = CHLNITM.BOOK_CD AND CHLN.VOUCH_NO = CHLNITM.VOUCH_NO"
    " LEFT JOIN ITEM ON CHLNITM.ITEM_CD = ITEM.ITEM_CD"
    " LEFT JOIN ITEMDTL ON CHLNITM.SIZE_CD = ITEMDTL.SIZE_CD AND CHLNITM.ITEM_CD = ITEMDTL.ITEM_CD"
    " LEFT JOIN DISCHTAX ON CHLN.TAX_CD1 = DISCHTAX.CODE"
    " LEFT JOIN DISCHTAX AS DISCHTAX_1 ON CHLN.TAX_CD2 = DISCHTAX_1.CODE"},
  View{"GSTBLPRN",
    "SALE.VOUCH_NO, SALE.VOUCH_DT, SALE.BL_TYPE, SALE.BILL_NO, SALE.BOOK_CD, SALE.CHLN_NO, "
    "SALE.ORDER_NO, SALE.PARTY_CD, SALE.SALE_CD, SALE.CASH_CD, SALE.CASH_AMT, SALE.ITEM_AMT, "
    "SALE.ROUND_OFF, SALE.NET_AMT, SALE.NARRATION, SALE.PARCLE, SALE.NO_OF_ITEM, SALE.SMAN_CD, "
    "SALE.GR_NO, SALE.GR_DATE, SALE.TRANSPORT, SALE.FREIGHT, SALE.desti, SALE.CHLN_DT, SALE.ORDER_DT, "
    "SALE.TCGSTRT, SALE.TSGSTRT, SALE.TIGSTRT, SALEITM.VOUCH_NO, SALEITM.VOUCH_DT, SALEITM.BOOK_CD, "
    "SALEITM.SR_NO, SALEITM.ITEM_CD, SALEITM.SIZE_CD, SALEITM.QUANTITY, SALEITM.Rate, SALEITM.SALE_DISC, "
    "SALEITM.AMOUNT, SALEITM.NET_AMOUNT, SALEITM.DESC1, SALEITM.ITEM_DESC, SALEITM.CGSTRT, "
    "SALEITM.SGSTRT, SALEITM.IGSTRT, SALEITM.CGSTAMT, SALEITM.SGSTAMT, SALEITM.IGSTAMT, Item.ITEM_NAME, "
    "Item.hsncode, Item.RATEOFTAX, ACCOUNT.ACC_NAME, ACCOUNT.PERSON_NM, ACCOUNT.ADD1, ACCOUNT.ADD2, "
    "'' AS ACCADD3, ACCOUNT.area, ACCOUNT.City, ACCOUNT.PINCODE, ACCOUNT.phone1, ACCOUNT.CL_BAL, "
    "ACCOUNT.GSTINNO, ACCOUNT.STATECD, ACCOUNT_1.ACC_NAME, ACCOUNT_1.PERSON_NM, ACCOUNT_1.ADD1, "
    "ACCOUNT_1.ADD2, '' AS ACC1ADD3, ACCOUNT_1.AREA, ACCOUNT_1.CITY, ACCOUNT_1.PINCODE, "
    "ACCOUNT_1.PHONE1, ACCOUNT_1.CL_BAL, ACCOUNT_1.GSTINNO, ACCOUNT_1.STATECD, "
    "ACCOUNT.BANK_NAME AS PANNO, ACCOUNT_1.BANK_NAME AS PANNO1, SALE.cr_days, '.' AS SMAN_NAME, "
    "DEPTMENT.DEPT_NAME, ACCOUNT.EMAIL, ACCOUNT_1.EMAIL AS EMAIL1, item.item_sname, ACCOUNT.EMAIL, "
    "'' AS WEBADD, ACCOUNT.GSTREGTYP, ACCOUNT_1.GSTREGTYP, SALEITM.SALE_DISC1, itemdtl.sale_rate2, "
    "itemdtl.desc1, itemdtl.sale_rate1, SALE.PRV_BNO, SALE.PRV_BDT, SALEITM.CESS_PERC1, "
    "SALEITM.CESS_AMT1, SALEITM.CUR_NM, SALEITM.CUR_RT, SALEITM.CUR_ITM_RT, SALEITM.DISC3, "
    "SALEITM.DISC4, SALEITM.CUR_AMT, SALE.CUR_TOTAMT, SALE.GWT, SALE.NWT, SALE.COMMPERC, SALE.COMMAMT, "
    "TRANS_CD, DIST_KM, TRANS_GOV_ID, SALE.CHRG_AMT3, '' AS PRTYTYP, SALE.CNAME, SALE.CMOBNO, "
    "SALE.CADRS, ITEM.UOM, '' AS PHONE2, SALE.EINVNO, SALE.IRNNO, SALE.ACK_DT, '' AS RNG, '' AS DIVISN, "
    "'' AS ECC_NO, DESPAC.ACC_NAME AS DESPACCNM, DESPAC.ADD1 AS DESPAD1, DESPAC.ADD2 AS DESPAD2, "
    "DESPAC.AREA AS DESPLOCATN, DESPAC.PINCODE AS DESPPIN, DESPAC.CITY AS DESPSTATE",
    "SALE LEFT JOIN SALEITM ON SALE.BOOK_CD = SALEITM.BOOK_CD AND SALE.VOUCH_NO = SALEITM.VOUCH_NO"
    " LEFT JOIN ITEM ON SALEITM.ITEM_CD = ITEM.ITEM_CD"
    " LEFT JOIN ACCOUNT ON SALE.PARTY_CD = ACCOUNT.ACC_CD"
    // An update puts X90005 where a bill has no ship-to.
    " LEFT JOIN ACCOUNT AS ACCOUNT_1 ON SALE.CASH_CD = ACCOUNT_1.ACC_CD AND SALE.CASH_CD <> 'X90005'"
    " LEFT JOIN DEPTMENT ON ITEM.DEPT_CD = DEPTMENT.DEPT_CD"
    " LEFT JOIN ITEMDTL ON SALEITM.ITEM_CD = ITEMDTL.ITEM_CD AND SALEITM.SIZE_CD = ITEMDTL.SIZE_CD"
    " LEFT JOIN ACCOUNT AS DESPAC ON SALE.DESPATCH_FROM = DESPAC.ACC_CD"},
  View{"QUOTPRN",
    "QUOT.VOUCH_DT, QUOT.VOUCH_NO, QUOT.party_cd, QUOT.to_name, QUOT.sub_desc, QUOT.your_ref_no, "
    "QUOT.DESC1, QUOT.DESC2, QUOT.DESC3, QUOT.DESC4, QUOT.DESC5, QUOT.DESC6, QUOT.DESC7, QUOT.desc8, "
    "QUOTITM.VOUCH_DT, QUOTITM.VOUCH_NO, QUOTITM.ITEM_CD, QUOTITM.ITEM_NAME, QUOTITM.ITEM_SNAME, "
    "QUOTITM.SIZE_CD, QUOTITM.QUANTITY, QUOTITM.Rate, QUOTITM.AMOUNT, ITEM.ITEM_CD, ITEM.ITEM_NAME, "
    "ITEM.DEPT_CD, DEPTMENT.dept_name, ACCOUNT.ACC_CD, ACCOUNT.ACC_NAME, ACCOUNT.PERSON_NM, "
    "ACCOUNT.ADD1, ACCOUNT.ADD2, ACCOUNT.AREA, ACCOUNT.CITY, ACCOUNT.PINCODE, ACCOUNT.PHONE1, "
    "'' AS ACPHN2, '' AS STAX_NO, '' AS CST_NO, QUOTITM.SRNO, QUOT.ITEM_AMT, QUOT.DISC_PERC, "
    "QUOT.DISC_AMT, QUOT.CHRG_AMT, QUOT.TAX_PERC, QUOT.TAX_AMT, QUOT.ATAX_PERC, QUOT.ATAX_AMT, "
    "QUOT.NET_AMT, DISCHTAX.name, DISCHTAX_1.name, QUOTITM.item_desc, ACCOUNT.GSTINNO, ACCOUNT.STATECD, "
    "ACCOUNT.BANK_NAME, ITEM.HSNCODE, ITEMDTL.DESC1, QUOTITM.DISC, QUOTITM.DESC1, QUOTITM.DISC2, "
    "QUOT.ENTRY_TYP, QUOTITM.DTL1, QUOTITM.DTL2, ITEM.ITEM_SNAME AS ITMSNM, QUOT.TOTQTY, QUOT.TCGST, "
    "QUOT.TSGST, QUOT.TIGST, QUOTITM.CGSTRT, QUOTITM.SGSTRT, QUOTITM.IGSTRT, QUOTITM.CGSTAMT, "
    "QUOTITM.SGSTAMT, QUOTITM.IGSTAMT, SHIPACC.ACC_CD, SHIPACC.ACC_NAME, SHIPACC.PERSON_NM, "
    "SHIPACC.ADD1, SHIPACC.ADD2, SHIPACC.area, SHIPACC.City, SHIPACC.PINCODE, SHIPACC.PHONE1, "
    "'' AS SHPH2, SHIPACC.GSTINNO, SHIPACC.STATECD, '' AS SHPEMAIL, QUOTITM.ASSIVAL, ACCOUNT.EMAIL, "
    "QUOTITM.TCSRT, QUOTITM.TCSAMT, QUOT.TCSTRT, QUOT.TCSTAMT",
    "QUOT LEFT JOIN QUOTITM ON QUOT.VOUCH_NO = QUOTITM.VOUCH_NO AND QUOT.ENTRY_TYP = QUOTITM.ENTRY_TYP"
    " LEFT JOIN ITEM ON QUOTITM.ITEM_NAME = ITEM.ITEM_NAME AND QUOTITM.ITEM_CD = ITEM.ITEM_CD"
    " LEFT JOIN ACCOUNT ON QUOT.PARTY_CD = ACCOUNT.ACC_CD"
    " LEFT JOIN ITEMDTL ON QUOTITM.ITEM_CD = ITEMDTL.ITEM_CD AND QUOTITM.SIZE_CD = ITEMDTL.SIZE_CD"
    " LEFT JOIN DEPTMENT ON ITEM.DEPT_CD = DEPTMENT.DEPT_CD"
    " LEFT JOIN DISCHTAX ON QUOT.TAX_PERC = DISCHTAX.CODE"
    " LEFT JOIN DISCHTAX AS DISCHTAX_1 ON QUOT.ATAX_PERC = DISCHTAX_1.CODE"
    " LEFT JOIN ACCOUNT AS SHIPACC ON QUOT.BL_PARTY_CD = SHIPACC.ACC_CD"},
};
// clang-format on

struct Total {
  std::string_view name;
  std::string_view select;
};

constexpr std::array totals = {
    Total{"GSTTOTQRY",
          "SELECT CGSTRT, SGSTRT, IGSTRT, SUM(CGSTAMT) AS CGSTTAX, SUM(SGSTAMT) AS SGSTTAX, SUM(IGSTAMT) AS "
          "IGSTTAX,"
          " SUM(AMOUNT + COALESCE(DISC4, 0)) AS GSTVAL, [SALE.VOUCH_NO] AS VOUCH_NO, [SALE.BOOK_CD] AS "
          "BOOK_CD FROM GSTBLPRN"
          " GROUP BY CGSTRT, SGSTRT, IGSTRT, [SALE.VOUCH_NO], [SALE.BOOK_CD]"},
    Total{"QUOTGSTTOT",
          "SELECT CGSTRT, SGSTRT, IGSTRT, SUM(CGSTAMT) AS CGSTTAX, SUM(SGSTAMT) AS SGSTTAX, SUM(IGSTAMT) AS "
          "IGSTTAX,"
          " SUM(AMOUNT) AS GSTVAL, [QUOT.VOUCH_NO] AS VOUCH_NO, ENTRY_TYP FROM QUOTPRN"
          " GROUP BY CGSTRT, SGSTRT, IGSTRT, [QUOT.VOUCH_NO], ENTRY_TYP"     },
};

struct Piece {
  std::string expression;
  std::string name;   // as it stands behind the point or AS
  std::string table;  // empty for an unqualified column and for a constant
};

// "ACCOUNT AS BUYER" makes BUYER a name of ACCOUNT.
std::string tableOf(const std::string& alias, std::string_view from) {
  const std::string text = upper(from);
  const auto at = text.find(" AS " + upper(alias) + " ");
  if (at == std::string::npos) return alias;
  const auto start = text.rfind(' ', at - 1) + 1;
  return text.substr(start, at - start);
}

Piece pieceOf(const std::string& column, std::string_view from) {
  Piece piece{.expression = column, .name = column, .table = {}};
  const auto alias = upper(column).find(" AS ");
  if (alias != std::string::npos) {
    piece.expression = column.substr(0, alias);
    piece.name = trim(column.substr(alias + 4));
  }
  const auto point = piece.expression.find('.');
  if (point == std::string::npos || piece.expression.front() == '\'') return piece;
  const std::string table = piece.expression.substr(0, point);
  const std::string field = piece.expression.substr(point + 1);
  if (!isDeclared(tableOf(table, from), field)) piece.expression = "''";
  if (alias != std::string::npos) return piece;
  piece.table = table;
  piece.name = field;
  return piece;
}

// The bare name where it is unique, table and name where it repeats, numbered when both repeat.
std::vector<std::string> outputNames(const std::vector<Piece>& pieces) {
  std::vector<std::string> names;
  for (const auto& piece : pieces) {
    const auto same = std::count_if(pieces.begin(), pieces.end(),
                                    [&](const Piece& p) { return sameText(p.name, piece.name); });
    const std::string full = same == 1 || piece.table.empty() ? piece.name : piece.table + "." + piece.name;
    std::string name = full;
    const auto taken = [&] {
      return std::any_of(names.begin(), names.end(), [&](const std::string& n) { return sameText(n, name); });
    };
    for (int copy = 1; taken(); ++copy) name = full + "_" + std::to_string(copy);
    names.push_back(std::move(name));
  }
  return names;
}

std::string selectOf(const View& view) {
  std::vector<Piece> pieces;
  for (const auto& column : split(view.columns, ",")) pieces.push_back(pieceOf(trim(column), view.from));
  const auto names = outputNames(pieces);
  std::string statement = "SELECT ";
  for (size_t i = 0; i < pieces.size(); ++i)
    statement += (i == 0 ? "" : ", ") + pieces[i].expression + " AS " + quotedName(names[i]);
  return statement + " FROM " + std::string(view.from);
}

}  // namespace

std::vector<SavedQuery> savedQueries() {
  std::vector<SavedQuery> queries;
  for (const auto& view : printViews) queries.push_back({std::string(view.name), selectOf(view)});
  for (const auto& total : totals) queries.push_back({std::string(total.name), std::string(total.select)});
  return queries;
}

void DropViews(Database& db) {
  for (const std::string& view : db.engine().views()) db.engine().dropView(view);
}

void RemakeViews(Database& db) {
  db.passOver(kOlderBooks, [&] {
    Transaction all(db);
    DropViews(db);
    for (const auto& query : savedQueries()) db.engine().createView(query.name, query.select);
    all.commit();
  });
}
