#include "masters/frmhlp.h"

#include "base/text.h"
#include "masters/lookup_search.h"
#include "masters/page_rows.h"
#include "masters_fixture.h"

namespace {

class LookupTest : public MastersTest {
 protected:
  LookupTest() {
    account("A00001", "AMBICA CEMENT");
    account("A00002", "NEW AMBICA 10% PAINTS");
    account("A00003", "Patel Trading");
    account("A00004", "ZENITH");
    Caller::asked = parties();
    host.start("GSTSAPU");
  }
  static Lookup parties() {
    Lookup lookup = accounts(
        {
            {"ACC_CD", 1000},
            {"ACC_NAME",        3500},
            {"city"},
            balanceColumn()
    },
        "group_cd = ? OR group_cd = 87");
    lookup.rows.values = {85};
    return lookup;
  }
  // Enter in the empty code field, then the steps inside the lookup.
  void lookUpWith(const std::function<void()>& steps) {
    host.insideModal.push_back(steps);
    host.fillEnter("Text1(0)", "");
  }
  std::string names() const {
    std::string text;
    const Grid& grid = host.at("grdDataGrid").grid;
    for (size_t i = 0; i < grid.count(); ++i) text += (i ? "," : "") + grid.cell(i, 1).text;
    return text;
  }
};

TEST_F(LookupTest, ShowsTheStatementUnderReadableTitles) {
  data().exec("UPDATE ACCOUNT SET OP_BAL = 12.5, CL_BAL = 99 WHERE ACC_CD = 'A00001'");  // a stale one
  lookUpWith([&] {
    EXPECT_EQ(names(), "AMBICA CEMENT,NEW AMBICA 10% PAINTS,Patel Trading,ZENITH");
    EXPECT_EQ(host.cell("grdDataGrid", 0, 3), "12.50");
    std::string titles;
    const auto& columns = host.at("grdDataGrid").grid.columns;
    for (const GridColumn& column : columns) titles += column.title + " ";
    EXPECT_EQ(titles, "Code Name City Balance ");
    EXPECT_GT(columns[1].width.n, 3 * columns[0].width.n);
    EXPECT_EQ(host.focus(), "Text1");
    host.escape();
  });
  EXPECT_EQ(host.text("Text1(0)"), "");
  EXPECT_EQ(Caller::entered, 0);
}

TEST_F(LookupTest, SearchesInEitherOfTheFirstTwoColumns) {
  lookUpWith([&] {
    host.type("0003");
    EXPECT_EQ(names(), "Patel Trading");
    host.key(KeyCode::Right);
    host.type("ambica");
    EXPECT_EQ(host.focus() + host.text("Text1") + ":" + names(), "Text2:AMBICA CEMENT,NEW AMBICA 10% PAINTS");
    host.type(" 10%");
    EXPECT_EQ(names(), "NEW AMBICA 10% PAINTS");
    host.key(KeyCode::Left);
    host.type("X");
    EXPECT_EQ(host.focus() + names(), "Text1");
    host.key(KeyCode::Backspace);
    EXPECT_EQ(names(), "AMBICA CEMENT,NEW AMBICA 10% PAINTS,Patel Trading,ZENITH");
    host.type("0_");
    EXPECT_EQ(names(), "") << "a typed _ stands only for itself";
    host.escape();
  });
}

TEST_F(LookupTest, TheChosenCodeIsEnteredOnce) {
  lookUpWith([&] {
    host.keys({KeyCode::Up, KeyCode::Down, KeyCode::PgDn, KeyCode::Down, KeyCode::Up});
    EXPECT_EQ(host.at("grdDataGrid").grid.current, 2u);
    host.enter();
  });
  EXPECT_EQ(host.text("Text1(0)") + host.focus(), "A00003Text1(1)");
  EXPECT_EQ(Caller::entered, 1);
  lookUpWith([&] {
    host.rowTo(host.at("grdDataGrid"), 1);
    EXPECT_EQ(host.focus(), "Text1") << "a click leaves the search where it is";
    host.doubleClick(host.at("grdDataGrid"));
  });
  EXPECT_EQ(host.text("Text1(0)"), "A00002");
}

TEST_F(LookupTest, OpensOnTheRowLastWorkedWith) {
  for (const auto& [last, row] : {
           std::pair{"a00003", 2u},
           {"A00099", 0u}
  }) {
    session().mlastacc = last;
    lookUpWith([&] {
      EXPECT_EQ(host.at("grdDataGrid").grid.current, row);
      host.escape();
    });
  }
}

TEST_F(LookupTest, AnEmptyListGivesNothing) {
  const Lookup lookups[] = {
      {.rows = {.columns = {{"narr_name"}}, .from = "NARRATN"}},  // a table that is not there
      accounts({{"AREA"}}, "1 = 0")};
  for (const Lookup& lookup : lookups) {
    Caller::asked = lookup;
    lookUpWith([&] {
      EXPECT_EQ(host.at("grdDataGrid").grid.count(), 0u);
      host.keys({KeyCode::Down, KeyCode::Enter});
    });
    EXPECT_EQ(Caller::entered, 0);
    EXPECT_EQ(host.onTop(), "GSTSAPU");
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(LookupTest, WhatIsFoundNowhereStays) {
  lookUpWith([&] {
    host.type("ZENI");
    EXPECT_EQ(join(host.at("grdDataGrid").grid.instead, "|"),
              "Nothing Holds \"ZENI\". What Was Typed Stays|Right = Look For It Under Name|"
              "Backspace = Look For Less Of It|Esc = Close The List");
    host.enter();
    EXPECT_EQ(host.onTop() + host.text("Text1"), "FRMHLPZENI");
    host.key(KeyCode::Right);
    EXPECT_EQ(host.text("Text2") + names(), "ZENIZENITH");
    host.escape();
  });
  Caller::asked = valuesOf("ACCOUNT", "CITY");
  lookUpWith([&] {
    host.type("surat");
    host.enter();
  });
  EXPECT_EQ(host.text("Text1(0)") + host.focus(), "SURATText1(1)") << "a field of any text takes it";
  Caller::asked = mayStayEmpty(parties());
  lookUpWith([&] { host.escape(); });
  host.enter();
  EXPECT_EQ(host.focus(), "Text1(1)");
}

TEST_F(LookupTest, NumbersAndDatesAreSearchedAsTheyShow) {
  for (int n = 147; n <= 149; ++n)
    data().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, VOUCH_DT) VALUES (?, 'SA', ?)", n,
                "2025-07-" + std::to_string(n - 130));
  Caller::asked = {
      .rows = {.columns = {{"VOUCH_NO"}, {"VOUCH_DT"}}, .from = "SALE", .order = {"VOUCH_NO"}}
  };
  lookUpWith([&] {
    const auto count = [&] { return host.at("grdDataGrid").grid.count(); };
    EXPECT_EQ(host.cell("grdDataGrid", 1, 1), "18/Jul/2025");
    host.type("9");
    EXPECT_EQ(count(), 1u);
    host.type(".0");
    EXPECT_EQ(count(), 0u);
    host.key(KeyCode::Right);
    host.type("18/JUL");
    EXPECT_EQ(count(), 1u);
    host.enter();
  });
  EXPECT_EQ(host.text("Text1(0)"), "148");
}

TEST_F(LookupTest, ValuesReadInStepsAreTheDistinctOnes) {
  int number = 0;
  for (const char* text : {"FAN", "fan", "", " ", "BULB", "FAN", "પંખો", "O'BRIEN", "FAN 2"})
    data().exec("INSERT INTO SALEITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_DESC) VALUES (1, 'SA', ?, ?)", ++number,
                text);
  data().exec("INSERT INTO SALEITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_DESC) VALUES (2, 'SA', 1, NULL)");
  const Lookup plain = valuesOf("SALEITM", "ITEM_DESC");
  const auto steps = valueSteps(data(), plain);
  ASSERT_TRUE(steps);
  const auto texts = [](const Select& select) {
    const PageRows rows(data(), select);
    std::string all;
    for (size_t i = 0; i < rows.count(); ++i) all += upper(rows.text(i, 0)) + "|";
    return all;
  };
  EXPECT_EQ(texts(*steps), " |BULB|FAN|FAN 2|O'BRIEN|પંખો|");
  EXPECT_EQ(texts(*steps), texts(plain.rows));
  // Without an index a step would read the whole table.
  EXPECT_FALSE(valueSteps(data(), valuesOf("ACCOUNT", "AREA")));
}

// A search among 100,000 bills is quick only while it reads one index in its own order.
TEST_F(LookupTest, BillsAreSearchedInOneIndex) {
  const Select bills{
      .columns = {{"SALE.VOUCH_NO"}, {"ACCOUNT.ACC_NAME"}, {"SALE.BL_TYPE"}},
      .from = "SALE, ACCOUNT",
      .where = "SALE.PARTY_CD = ACCOUNT.ACC_CD AND book_cd = 'SA'",
      .order = {down("VOUCH_DT"),  down("bill_no"),      down("vouch_no")}
  };
  for (const SelectColumn& column : SelectColumns{ofAccount("ACC_NAME", "SALE.PARTY_CD"),
                                                  {"SALE.GR_NO"},
                                                  {"CNAME"},
                                                  {"CMOBNO"},
                                                  {"transport"},
                                                  {"SALE.BILL_NO"}}) {
    const Select found = filtered(bills, typedCondition(column, "TEXT(50)"), {anywhere("X")});
    std::string plan;
    for (auto r = data().query("EXPLAIN QUERY PLAN " + selectText(found), found.values); r.next();)
      plan += r.text("detail") + "\n";
    EXPECT_NE(plan.find("INDEX SALE_LOOKUP (BOOK_CD=?)"), std::string::npos) << column.expression << plan;
    EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << column.expression << plan;
  }
}

TEST_F(LookupTest, BeginsOnARowWhateverTheOrder) {
  data().exec("DELETE FROM ACCOUNT");
  Transaction all(data());
  for (int i = 0; i < 600; ++i) {
    account("B" + std::to_string(1000 + i), "PARTY " + std::to_string((i * 7) % 600));
    data().exec("UPDATE ACCOUNT SET AREA = ? WHERE ACC_CD = ?",
                i < 5 ? Value() : Value(i % 2 ? "NORTH" : "SOUTH"), "B" + std::to_string(1000 + i));
  }
  all.commit();
  // Names are all different, areas are two and some are missing, one order is the other way round.
  for (const std::vector<OrderTerm>& order : std::vector<std::vector<OrderTerm>>{
           {"acc_name"  },
           {"AREA"      },
           {"AREA",       "acc_name"},
           {down("acc_name")           },
           {            }
  }) {
    const Select select{
        .columns = {{"ACC_CD"}, {"ACC_NAME"}, {"CITY"}},
        .from = "ACCOUNT",
        .where = "ACC_CD > ?",
        .order = order,
        .values = {"B" }
    };
    for (const char* code : {"b1000", "B1003", "B1333", "B1599", "B9999"}) {
      SCOPED_TRACE(selectText(select) + code);
      PageRows rows(data(), select, PageRows::Counting::Ahead, code);
      rows.countAll();
      ASSERT_EQ(rows.count(), 600u);
      if (std::string(code) == "B9999")
        EXPECT_EQ(rows.begin(), 0u);
      else
        EXPECT_EQ(rows.text(rows.begin(), 0), upper(code));
      // Pages behind the row read the same as those of a source that begins at the top.
      const PageRows whole(data(), select);
      for (const size_t i : {0u, 63u, 299u, 300u, 599u}) EXPECT_EQ(rows.text(i, 0), whole.text(i, 0)) << i;
    }
  }
}

}  // namespace
