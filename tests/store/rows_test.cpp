#include "company_fixture.h"
#include "store/row_writer.h"
#include "store/rowset.h"

namespace {

class RowsTest : public CompanyTest {};

Column::Kind kindFor(std::string_view definition) {
  return declaredColumns("CREATE TABLE t (c " + std::string(definition) + ")").front().kind;
}

}  // namespace

TEST(Fitting, EachKindOfColumnTakesWhatFitsIt) {
  struct Case {
    const char* definition;
    Value value;
    std::optional<std::string> stored;
  };
  const std::vector<Case> cases = {
      {"TEXT(4)", "four",         "four"        },
      {"TEXT(4)", "five5",        {}            },
      {"TEXT(4)", 30.0,           "30"          },
      {"TEXT(4)", 12345,          {}            },
      {"TEXT(4)", "ગુજ૧", "ગુજ૧"},
      {"DOUBLE",  "12.50",        "12.5"        },
      {"DOUBLE",  " 7 ",          "7"           },
      {"DOUBLE",  "7 kg",         {}            },
      {"INTEGER", 2147483647,     "2147483647"  },
      {"INTEGER", 3e9,            {}            },
      {"INTEGER", "3.5",          "4"           },
      {"DATE",    "15/Jun/2026",  "2026-06-15"  },
      {"DATE",    "10:30",        "10:30"       },
      {"DATE",    "__/__/____",   {}            },
      {"DATE",    5,              {}            },
  };
  for (const auto& c : cases) {
    const Column column{.name = "c", .definition = c.definition, .kind = kindFor(c.definition), .size = 4};
    const auto stored = fitting(column, c.value);
    EXPECT_EQ(stored ? stored->text() : "no", c.stored.value_or("no"))
        << c.definition << " " << c.value.text();
  }
  EXPECT_TRUE(fitting({.name = "c", .kind = Column::Kind::number}, Value())->isNull());
}

TEST_F(RowsTest, ManyAreWrittenInTheirOrder) {
  for (const int count : {1, 8, 9, 64, 200}) {
    db.exec("DELETE FROM T_SLITM");
    std::vector<Value> values;
    for (int i = 0; i < count; ++i) values.insert(values.end(), {i, "ROW"});
    insertMany(db, "INSERT INTO T_SLITM (SR_NO, ITEM_NAME, BOOK_CD)", "(?, ?, 'SA')", values);
    std::string serials, expected;
    for (auto rows = db.query("SELECT SR_NO FROM T_SLITM WHERE BOOK_CD = 'SA' ORDER BY rowid"); rows.next();)
      serials += rows.text(0) + " ";
    for (int i = 0; i < count; ++i) expected += std::to_string(i) + " ";
    EXPECT_EQ(serials, expected);
  }
}

TEST_F(RowsTest, ATypedFilterIsALiteralPartOfTheText) {
  for (const char* name : {"Steel 50% off", "steel_rod", "O'Brien", "Steel 500", "back\\slash"})
    insertRow(db, "ITEM",
              {
                  {"ITEM_CD",   name},
                  {"ITEM_NAME", name},
                  {"TAX_CD",    12  }
    });
  Rowset items(db, {.table = "ITEM", .where = "ITEM_CD <> ?", .order = "ITEM_NAME", .values = {"MISC"}});
  const std::vector<std::pair<std::string, int>> cases = {
      {"",      5},
      {"STEEL", 3},
      {"50%",   1},
      {"l_r",   1},
      {"l_5",   0},
      {"'",     1},
      {"\\",    1},
      {"none",  0}
  };
  for (const auto& [typed, count] : cases) {
    items.filter("ITEM_NAME", typed);
    EXPECT_EQ(items.count(), count) << typed;
  }
  items.filter("TAX_CD", "2");
  EXPECT_EQ(items.count(), 5);
  items.filter("TAX_CD", ".0");
  EXPECT_EQ(items.count(), 0) << "a number filters as it shows";
}
