#include "large_year.h"

namespace {

// Three parties in four stand in the company's own state (24), the rest in 27.
void makeParties(Database& db, const LargeYear& size) {
  db.exec(R"(
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?1)
    INSERT INTO ACCOUNT (GROUP_CD, ACC_CD, ACC_NAME, PERSON_NM, ADD1, ADD2, AREA, CITY, PINCODE, PHONE1, OP_BAL, CL_BAL,
                         CREDIT_DAY, ANOTHER_CD, EMAIL, GSTINNO, STATECD, REMARK1, BANK_NAME, GSTREGTYP, DATASENT)
    SELECT 85, printf('A%05d', i), printf('%s TRADERS %d', substr('ANANDBHARATCHETNADHARTIEKTAFALGUN', 1 + i % 26, 6), i), '.',
           printf('%d STATION ROAD', i), '.', printf('AREA %d', i % 40), printf('CITY %d', i % 25), printf('38%04d', i % 10000),
           printf('98%08d', i), i % 7 * 1000, 0, i % 4 * 15, 'S001', '.',
           printf('%dABCDE%04dF1Z%d', CASE WHEN i % 4 = 0 THEN 27 ELSE 24 END, i % 10000, i % 10),
           CASE WHEN i % 4 = 0 THEN 27 ELSE 24 END, '.', '.', '.', 'N'
    FROM n)",
          size.parties);
}

void makeItems(Database& db, const LargeYear& size) {
  db.exec(R"(
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 10)
    INSERT INTO DEPTMENT (DEPT_CD, DEPT_NAME, GROUPING, NOCOUNT_STK, HSNCODE, ITEMDESC, RATEOFTAX, RATEOFCESS, DATASENT)
    SELECT printf('E%03d', 100 + i), printf('CATEGORY %d', i), '.', 'N', printf('85%02d', i), '.', 18, 0, 'N' FROM n)");
  db.exec(R"(
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?1)
    INSERT INTO ITEM (ITEM_CD, ITEM_NAME, ITEM_SNAME, ITEM_LNAME, DEPT_CD, TAX_CD, UOM, HSNCODE, RATEOFTAX, RATEOFCESS, DATASENT)
    SELECT printf('I%07d', 1000 + i), printf('%s ITEM %d', substr('WIREFANLAMPSWITCHPLUGTUBE', 1 + i % 20, 4), i), '.', '.',
           printf('E%03d', 101 + i % 10), 1, 'PCS', printf('85%02d', i % 60), 18, 0, 'N' FROM n)",
          size.items);
  db.exec(R"(
    INSERT INTO ITEMDTL (ITEM_CD, SIZE_CD, PUR_RATE, SALE_RATE1, SALE_RATE2, SALE_DISC, OP_STK, CL_STK, DESC1, DATASENT)
    SELECT ITEM_CD, 'PCS', ROUND(rate * 0.8, 2), rate, rate, 0, 100, 100, '1', 'N'
    FROM (SELECT ITEM_CD, 10 + CAST(SUBSTR(ITEM_CD, 2) AS INTEGER) * 7919 % 100000 / 100.0 AS rate
          FROM ITEM WHERE ITEM_CD LIKE 'I000%'))");
}

void makeLines(Database& db, const LargeYear& size) {
  db.exec(R"(
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?1),
         j(k) AS (VALUES (1), (2), (3))
    INSERT INTO SALEITM (VOUCH_NO, VOUCH_DT, BOOK_CD, SR_NO, ITEM_CD, SIZE_CD, QUANTITY, RATE, SALE_DISC, AMOUNT, NET_AMOUNT,
                         DESC1, ITEM_DESC, MFG_DT, EXP_DT, YOUR_REF, CUR_NM, CGSTRT, SGSTRT, IGSTRT, CGSTAMT, SGSTAMT,
                         IGSTAMT, GSTPOST, DATASENT)
    SELECT i, vouch_dt, 'SA', k, item, 'PCS', qty, rate, 0, amount,
           amount + CASE inter WHEN 1 THEN ROUND(amount * 0.18, 2) ELSE 2 * ROUND(amount * 0.09, 2) END,
           '0', '.', '.', '.', '.', '.', 9 * (1 - inter), 9 * (1 - inter), 18 * inter,
           (1 - inter) * ROUND(amount * 0.09, 2), (1 - inter) * ROUND(amount * 0.09, 2), inter * ROUND(amount * 0.18, 2), 1, 'N'
    FROM (SELECT i, k, DATE(?2, '+' || (i * 364 / ?1) || ' days') AS vouch_dt, item, qty, SALE_RATE1 AS rate,
                 ROUND(qty * SALE_RATE1, 2) AS amount, (1 + i * 7919 % ?3) % 4 = 0 AS inter
          FROM (SELECT i, k, printf('I%07d', 1001 + (i * 3 + k) * 7877 % ?4) AS item, 1 + i * k % 20 AS qty FROM n, j)
          JOIN ITEMDTL ON ITEMDTL.ITEM_CD = item))",
          size.bills, isoDate(size.first), size.parties, size.items);
}

void makeBills(Database& db, const LargeYear& size) {
  makeLines(db, size);
  db.exec(R"(
    INSERT INTO SALE (VOUCH_NO, VOUCH_DT, BL_TYPE, BILL_NO, BOOK_CD, BL_TIME, DT_GOODS, GWDN, CHLN_NO, ORDER_NO, ORDER_DT,
                      PAY_MODE, PARTY_CD, SALE_CD, CASH_CD, ITEM_AMT, ROUND_OFF, NET_AMT, NARRATION, NARRATION1, NARRATION2,
                      PARCLE, NO_OF_ITEM, SMAN_CD, AGNT_DOC, CR_DAYS, GR_NO, GR_DATE, TRANSPORT, FREIGHT, DESTI, FORM_ISSUE,
                      C_EX_REGNO, PLA_NO, DESPATCH_FROM, CHLN_DT, TRANS_CD, DIST_KM, TRANS_GOV_ID, PRV_BNO, TCGSTRT, TSGSTRT,
                      TIGSTRT, GSTPOST, CMOBNO, CNAME, CADRS, DATASENT, EINVNO, IRNNO, ACK_DT)
    SELECT VOUCH_NO, VOUCH_DT, 'TAX', printf('%05d', VOUCH_NO), 'SA', '10:00', VOUCH_DT, '1', VOUCH_NO, '.', '.',
           '.', printf('A%05d', 1 + VOUCH_NO * 7919 % ?1), 'X90002', printf('A%05d', 1 + VOUCH_NO * 7919 % ?1), amount,
           ROUND(ROUND(total, 0) - total, 2), ROUND(total, 0), '.', '.', '.',
           '.', qty, 'S001', '.', 30, '.', VOUCH_DT, 'LOCAL', '.', '.', '.',
           '.', '0', 'X90002', VOUCH_DT, 1, '0', '.', '0', cgst, sgst, igst, 1, '.', '.', '.', 'N', '.', '.', VOUCH_DT
    FROM (SELECT VOUCH_NO, VOUCH_DT, ROUND(SUM(AMOUNT), 2) AS amount, SUM(QUANTITY) AS qty, ROUND(SUM(CGSTAMT), 2) AS cgst,
                 ROUND(SUM(SGSTAMT), 2) AS sgst, ROUND(SUM(IGSTAMT), 2) AS igst,
                 ROUND(SUM(AMOUNT + CGSTAMT + SGSTAMT + IGSTAMT), 2) AS total
          FROM SALEITM WHERE BOOK_CD = 'SA' GROUP BY VOUCH_NO, VOUCH_DT))",
          size.parties);
}

void makeReceipts(Database& db, const LargeYear& size) {
  db.exec(R"(
    WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?1)
    INSERT INTO RPTPAY (VOUCH_NO, VOUCH_DT, REF_NO, BOOK_CD, CSHBNK_CD, PARTY_CD, AMOUNT, RPTPAY_DTL, NARRATION, NARRATION1,
                        NARRATION2, CHQ_NO, VOUCH_TYPE)
    SELECT i, DATE(?2, '+' || (i * 364 / ?1) || ' days'), '.', 'RC', 'X90005', printf('A%05d', 1 + i * 7919 % ?3),
           100 + i * 37 % 50000, '.', '.', '.', '.', '.', 'C' FROM n)",
          size.receipts, isoDate(size.first), size.parties);
}

void makeLedger(Database& db) {
  constexpr const char* kColumns =
      "INSERT INTO ALEDGER (VOUCH_DT, VOUCH_NO, BOOK_CD, VOUCH_TYPE, PARTY_CD, PARTY_TCD, VOUCH_AMT, "
      "PARTY_BL, NARRATION, "
      "SUB_DESC, BW_AB) ";
  const std::string into = kColumns;
  db.exec(into +
          "SELECT VOUCH_DT, VOUCH_NO, 'SA', 'D', PARTY_CD, 'X90002', NET_AMT, BILL_NO, NARRATION, "
          "NUMTEXT(CR_DAYS), 'A' FROM SALE");
  db.exec(into +
          "SELECT VOUCH_DT, VOUCH_NO, 'SA', 'C', 'X90002', PARTY_CD, ITEM_AMT, BILL_NO, NARRATION, NULL, 'A' "
          "FROM SALE");
  for (const auto& [account, column] : {
           std::pair{"X90061", "TCGSTRT"},
           {"X90062", "TSGSTRT"},
           {"X90063", "TIGSTRT"}
  })
    db.exec(into + "SELECT VOUCH_DT, VOUCH_NO, 'SA', 'C', ?, PARTY_CD, " + column +
                ", NULL, NARRATION, NULL, 'A' FROM SALE",
            account);
  db.exec(
      into +
      "SELECT VOUCH_DT, VOUCH_NO, 'SA', CASE WHEN ROUND_OFF < 0 THEN 'D' ELSE 'C' END, 'X90015', PARTY_CD, "
      "ABS(ROUND_OFF), BILL_NO, NARRATION, NULL, 'A' FROM SALE WHERE ROUND_OFF <> 0");
  db.exec(into +
          "SELECT VOUCH_DT, VOUCH_NO, 'RC', 'C', PARTY_CD, CSHBNK_CD, AMOUNT, REF_NO, NARRATION, NULL, 'A' "
          "FROM RPTPAY");
  db.exec(into +
          "SELECT VOUCH_DT, VOUCH_NO, 'RC', 'D', CSHBNK_CD, PARTY_CD, AMOUNT, REF_NO, NARRATION, NULL, 'A' "
          "FROM RPTPAY");
}

}  // namespace

void makeLargeYear(Database& db, const LargeYear& size) {
  Transaction all(db);
  makeParties(db, size);
  makeItems(db, size);
  makeBills(db, size);
  makeReceipts(db, size);
  makeLedger(db);
  all.commit();
  db.exec("ANALYZE");
}
