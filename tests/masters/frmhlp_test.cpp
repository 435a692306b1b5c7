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
  static LookupSpec parties() {
    return {
        .mode = "THREEFLD",
        .table = "ACCOUNT where group_cd = ? OR group_cd = 87 order by acc_name",
        .first = "ACC_CD",
        .second = "ACC_NAME",
        .more = "city, FORMAT(cl_bal,'0.00') AS CLBAL",
        .widths = {1000, 3500},
        .values = {85   }
    };
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
  EXPECT_TRUE(session().mhlpclosed);
  EXPECT_EQ(session().mhlpwidth[1], 0);
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
  const LookupSpec specs[] = {
      {.mode = "twofld",     .table = "",    .first = "ACC_CD",   .second = "ACC_NAME"},
      {.mode = "twofld",                    .table = "ACCOUNT",                   .first = "ACC_CD", .second = "PRTYTYP"},
      {.mode = "nothing", .table = "ACCOUNT",               .first = "ACC_CD",                  .second = "CITY"},
      {.mode = "ONEFLD",   .table = "ACCOUNT where 1 = 0",.first = "AREA"},
  };
  for (const LookupSpec& spec : specs) {
    Caller::asked = spec;
    lookUpWith([&] {
      EXPECT_EQ(host.at("grdDataGrid").grid.count(), 0u);
      host.keys({KeyCode::Down, KeyCode::Enter});
    });
    EXPECT_EQ(Caller::entered, 0);
    EXPECT_EQ(host.onTop(), "GSTSAPU");
  }
  EXPECT_TRUE(host.messages.empty());
}

TEST_F(LookupTest, NumbersAndDatesAreSearchedAsTheyShow) {
  for (int n = 147; n <= 149; ++n)
    data().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, VOUCH_DT) VALUES (?, 'SA', ?)", n,
                "2025-07-" + std::to_string(n - 130));
  Caller::asked = {
      .mode = "twofld", .table = "SALE order by VOUCH_NO", .first = "VOUCH_NO", .second = "VOUCH_DT"};
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

TEST_F(LookupTest, TheVoucherInHandIsNotOffered) {
  for (const char* book : {"SA", "RC"})
    for (int n = 1; n <= 2; ++n)
      data().exec("INSERT INTO SALE (VOUCH_NO, BOOK_CD, BILL_NO) VALUES (?, ?, ?)", n, book,
                  std::string("B") + std::to_string(n));
  struct {
    const char *mode, *typed;
    size_t shown;
  } const cases[] = {
      {"BW_VOUCH_VW", "",   3},
      {"BW_VOUCH_VW", "B1", 1},
      {"BWRCPY",      "",   3},
      {"BWRCPY",      "B1", 2}, // here a search takes the filter's place
      {"BWRCPYNEW",   "",   4},
  };
  for (const auto& c : cases) {
    Caller::asked = {.mode = c.mode,
                     .table = "SALE order by VOUCH_NO, BOOK_CD",
                     .first = "BILL_NO",
                     .second = "BOOK_CD",
                     .more = "VOUCH_NO",
                     .voucher = 1,
                     .book = "SA"};
    lookUpWith([&] {
      host.type(c.typed);
      EXPECT_EQ(host.at("grdDataGrid").grid.count(), c.shown) << c.mode << c.typed;
      host.escape();
    });
  }
}

TEST_F(LookupTest, UsersComeFromTheCatalogue) {
  catalogue().exec("INSERT INTO USER1 (USER_NAME) VALUES ('RAMESH')");
  Caller::asked = {.mode = "userhlp", .table = "user1", .first = "user_name"};
  lookUpWith([&] { host.enter(); });
  EXPECT_EQ(host.text("Text1(0)"), "RAMESH");

  // Before a company-year is open the catalogue answers every mode.
  session().cndata.reset();
  for (const char* year : {"2024", "2025"})
    catalogue().exec("INSERT INTO compny (COMP_ID, COMP_NAME, FROMYR) VALUES ('M001', 'SHREE TRADERS', ?)",
                     year);
  Caller::asked = {.mode = "twofld", .table = "compny", .first = "distinct(comp_id)", .second = "comp_name"};
  lookUpWith([&] {
    EXPECT_EQ(host.at("grdDataGrid").grid.count(), 1u);
    host.type("M0");
    EXPECT_EQ(host.cell("grdDataGrid", 0, 1), "SHREE TRADERS");
    host.enter();
  });
  EXPECT_EQ(host.text("Text1(0)"), "M001");
}

TEST_F(LookupTest, ManyRowsAreCountedAsTheyAreReached) {
  Transaction all(data());
  for (int i = 10000; i < 14000; ++i) account("B" + std::to_string(i), "PARTY " + std::to_string(i));
  all.commit();
  lookUpWith([&] {
    const auto& grid = host.at("grdDataGrid").grid;
    EXPECT_LT(grid.count(), 2000u);
    for (int i = 0; i < 700; ++i) host.key(KeyCode::PgDn);
    EXPECT_EQ(grid.cell(grid.current, 1).text, "PARTY 13498");
    host.tick();
    EXPECT_EQ(grid.count(), 4004u);
    for (int i = 0; i < 120; ++i) host.key(KeyCode::PgDn);
    EXPECT_EQ(grid.cell(grid.current, 1).text, "ZENITH") << "and stays on the last row";
    host.escape();
  });
}

TEST_F(LookupTest, ValuesReadInStepsAreTheDistinctOnes) {
  int number = 0;
  for (const char* text : {"FAN", "fan", "", " ", "BULB", "FAN", "પંખો", "O'BRIEN", "FAN 2"})
    data().exec("INSERT INTO SALEITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_DESC) VALUES (1, 'SA', ?, ?)", ++number,
                text);
  data().exec("INSERT INTO SALEITM (VOUCH_NO, BOOK_CD, SR_NO, ITEM_DESC) VALUES (2, 'SA', 1, NULL)");
  const Select plain = parseSelect("select DISTINCT[ITEM_DESC] from SALEITM WHERE LEN(ITEM_DESC)>0");
  const auto steps = valueSteps(data(), plain);
  ASSERT_TRUE(steps);
  const auto texts = [](const Select& select) {
    const PageRows rows(data(), select);
    std::string all;
    for (size_t i = 0; i < rows.count(); ++i) all += upper(rows.text(i, 0)) + "|";
    return all;
  };
  EXPECT_EQ(texts(*steps), " |BULB|FAN|FAN 2|O'BRIEN|પંખો|");
  EXPECT_EQ(texts(*steps), texts(plain));
  // Without an index a step would read the whole table.
  EXPECT_FALSE(valueSteps(data(), parseSelect("select DISTINCT[AREA] from ACCOUNT WHERE LEN(AREA)>0")));
  EXPECT_FALSE(valueSteps(data(), parseSelect("select DISTINCT[ITEM_DESC] from SALEITM WHERE LEN(DESC1)>0")));
}

// A search among 100,000 bills is quick only while it reads one index in its own order.
TEST_F(LookupTest, BillsAreSearchedInOneIndex) {
  const Select bills = parseSelect(
      "select SALE.VOUCH_NO, ACCOUNT.ACC_NAME, SALE.BL_TYPE from SALE, ACCOUNT where SALE.PARTY_CD = "
      "ACCOUNT.ACC_CD AND "
      "book_cd = 'SA' order by VOUCH_DT DESC, bill_no desc, vouch_no desc");
  for (const char* column :
       {"ACCOUNT.ACC_NAME", "SALE.GR_NO", "CNAME", "CMOBNO", "transport", "SALE.BILL_NO"}) {
    const Select found = filtered(bills, typedCondition(bills, column, "TEXT(50)"), {anywhere("X")});
    std::string plan;
    for (auto r = data().query("EXPLAIN QUERY PLAN " + selectText(found), found.values); r.next();)
      plan += r.text("detail") + "\n";
    EXPECT_NE(plan.find("INDEX SALE_LOOKUP (BOOK_CD=?)"), std::string::npos) << column << plan;
    EXPECT_EQ(plan.find("TEMP B-TREE"), std::string::npos) << column << plan;
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
  for (const char* order : {"acc_name", "AREA", "AREA, acc_name", "acc_name desc", "2", "CITYNAME", ""})
    for (const char* code : {"b1000", "B1003", "B1333", "B1599", "B9999"}) {
      const std::string sql =
          std::string("select ACC_CD, ACC_NAME, CITY AS CITYNAME from ACCOUNT where ACC_CD > ?") +
          (*order ? " order by " : "") + order;
      PageRows rows(data(), parseSelect(sql, {"B"}), PageRows::Counting::Ahead, code);
      rows.countAll();
      ASSERT_EQ(rows.count(), 600u);
      if (std::string(code) == "B9999")
        EXPECT_EQ(rows.begin(), 0u) << order;
      else
        EXPECT_EQ(rows.text(rows.begin(), 0), upper(code)) << order;
      // Pages behind the row read the same as those of a source that begins at the top.
      const PageRows whole(data(), parseSelect(sql, {"B"}));
      for (const size_t i : {0u, 63u, 299u, 300u, 599u})
        EXPECT_EQ(rows.text(i, 0), whole.text(i, 0)) << order << i;
    }
}

}  // namespace
