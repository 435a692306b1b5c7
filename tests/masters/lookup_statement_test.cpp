#include "masters/lookup_statement.h"

#include <gtest/gtest.h>

#include "masters/lookup_search.h"
#include "masters/select_text.h"

namespace {

TEST(LookupStatement, EachShapeHasItsText) {
  struct Case {
    const char *mode, *table, *first, *second, *more, *statement;
  };
  const Case cases[] = {
      {"ONEFLD",     "item",                 "ITEM_NAME", "",           "",           "select DISTINCT[ITEM_NAME] from item WHERE LEN(ITEM_NAME)>0"},
      {"acmstrcity", "ACCOUNT",              "city",      "",           "",           "select DISTINCT[city] from ACCOUNT WHERE LEN(city)>0"       },
      {"ONEFLD",     "item order by 1",      "UOM",       "",           "",           "select DISTINCT[UOM] from item order by 1"                  },
      {"onefld",     "item WHERE UOM > 'A'", "UOM",       "",           "",           "select DISTINCT[UOM] from item WHERE UOM > 'A'"             },
      {"ONEFLD",     "itemdtl where x = ?",  "SIZE_CD",   "",           "",
       "select DISTINCT[SIZE_CD] from itemdtl where x = ?"                                                                                         },
      {"twofld",     "GRP ORDER BY 2",       "GROUP_CD",  "GROUP_NAME", "ignored",
       "select GROUP_CD, GROUP_NAME from GRP ORDER BY 2"                                                                                           },
      {"THREEFLD",   "ACCOUNT",              "ACC_CD",    "acc_NAME",   "AREA, CITY",
       "select ACC_CD,acc_NAME,AREA, CITY from ACCOUNT "                                                                                           },
      {"SL_ITMCD",   "ITEM",                 "ITEM_CD",   "ITEM_NAME",  "UOM",        "select ITEM_CD,ITEM_NAME,UOM from ITEM "                    },
      {"userhlp",    "user1",                "user_name", "",           "",           "select DISTINCT[user_name] from user1 "                     },
      {"COMPNMHLP",  "compny",               "comp_id",   "comp_name",  "",           "select comp_id, comp_name from compny"                      },
      {"MULTIFILE",  "compny",               "comp_id",   "comp_name",  "fromyr",
       "select comp_id,comp_name,fromyr from compny "                                                                                              },
      {"THREEFLD",   " ",                    "ACC_CD",    "acc_NAME",   "AREA",       ""                                                           },
      {"OneFld",     "item",                 "ITEM_NAME", "",           "",           ""                                                           },
  };
  for (const Case& c : cases)
    EXPECT_EQ(lookupStatement(lookupShape(c.mode, ""), {c.mode, c.table, c.first, c.second, c.more}),
              c.statement);
  EXPECT_EQ(lookupStatement(lookupShape("twofld", "USERFORM"), {"twofld", "GRP", "A", "B", ""}),
            "select USER1.* FROM USER1 ORDER BY USER_NAME");
}

TEST(SelectText, ClausesAreFoundOutsideOfPiecesOnly) {
  const Select s = parseSelect(
      "select DISTINCT ITEM.ITEM_CD, STR(SALE_RATE1) AS SRATE1, [SALE.VOUCH_NO], trim(str(NET, 'from, x')) "
      "as netamt"
      " from (ITEM left join ITEMDTL on ITEM.ITEM_CD = ITEMDTL.ITEM_CD) Where UOM = 'order by' AND A IN "
      "(SELECT B "
      "FROM C WHERE D ORDER BY E) OR F Group By 1, 2 ORDER by ITEM_NAME");
  ASSERT_EQ(s.columns.size(), 4u);
  EXPECT_TRUE(s.distinct);
  EXPECT_EQ(s.columns[0].name, "ITEM_CD");
  EXPECT_EQ(s.columns[1].name, "SRATE1");
  EXPECT_EQ(s.columns[1].expression, "STR(SALE_RATE1)");
  EXPECT_EQ(s.columns[2].name, "SALE.VOUCH_NO");
  EXPECT_EQ(s.columns[3].name, "netamt");
  EXPECT_EQ(s.from, "(ITEM left join ITEMDTL on ITEM.ITEM_CD = ITEMDTL.ITEM_CD)");
  EXPECT_EQ(s.where, "UOM = 'order by' AND A IN (SELECT B FROM C WHERE D ORDER BY E) OR F");
  EXPECT_EQ(s.group, "1, 2");
  EXPECT_EQ(s.order, "ITEM_NAME");

  const Select companies = parseSelect("select distinct(comp_id), comp_name from compny");
  EXPECT_EQ(companies.columns[0].name, "comp_id");
  EXPECT_EQ(selectText(companies), "SELECT DISTINCT comp_id, comp_name FROM compny ORDER BY 1, 2");
  EXPECT_TRUE(parseSelect("").columns.empty());
  EXPECT_TRUE(parseSelect("DELETE FROM ITEM").columns.empty());
}

TEST(SelectText, ColumnsOfKeyedTablesAreSearchedThere) {
  const Select bills = parseSelect(
      "select VOUCH_NO from (SALE LEFT JOIN ACCOUNT ON SALE.party_cd = ACCOUNT.acc_cd) LEFT JOIN ACCOUNT AS "
      "ACCOUNT_1 ON SALE.SALE_CD = ACCOUNT_1.ACC_CD, SALEITM WHERE SALE.VOUCH_NO = SALEITM.VOUCH_NO");
  const auto like = [](const std::string& column) { return column + " LIKE ? ESCAPE '\\'"; };
  EXPECT_EQ(typedCondition(bills, "ACCOUNT.ACC_NAME", "TEXT(100)"),
            "+SALE.party_cd IN (SELECT ACC_CD FROM ACCOUNT WHERE " + like("ACC_NAME") + ")");
  for (const char* plain : {"ACC_NAME", "ACCOUNT_1.ACC_NAME", "SALEITM.ITEM_DESC", "SALE.BILL_NO",
                            "ITEM.ITEM_NAME", "TRIM(ACCOUNT.AREA)"})
    EXPECT_EQ(typedCondition(bills, plain, "TEXT(100)"), like(plain));
}

TEST(SelectText, FilterAndPageGoIntoTheStatement) {
  const Select all = parseSelect(
      "select ACC_CD, ACC_NAME from ACCOUNT where GROUP_CD = ? OR GROUP_CD = 87 order by ACC_NAME", {85});
  const Select some = filtered(all, likeText("ACC_NAME"), {anywhere("10%_\\")});
  EXPECT_EQ(pageText(some),
            "SELECT ACC_CD, ACC_NAME FROM ACCOUNT WHERE (GROUP_CD = ? OR GROUP_CD = 87) AND (ACC_NAME LIKE ? "
            "ESCAPE "
            "'\\') ORDER BY ACC_NAME LIMIT ? OFFSET ?");
  EXPECT_EQ(
      countText(some),
      "SELECT COUNT(*) FROM ACCOUNT WHERE (GROUP_CD = ? OR GROUP_CD = 87) AND (ACC_NAME LIKE ? ESCAPE '\\')");
  ASSERT_EQ(some.values.size(), 2u);
  EXPECT_EQ(some.values[1].text(), "%10\\%\\_\\\\%");
  EXPECT_EQ(countText(parseSelect("select DISTINCT[UOM] from item")),
            "SELECT COUNT(*) FROM (SELECT DISTINCT [UOM] FROM item)");
}

}  // namespace
