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
      {"INTEGER", "2.5",          "2"           },
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

TEST_F(RowsTest, AWriterLeavesAColumnThatTheValueDoesNotFitAtItsDefault) {
  const auto id = insertRow(db, "SALE",
                            {
                                {"VOUCH_NO", 7             },
                                {"BOOK_CD",  "SA"          },
                                {"VOUCH_DT", "15/Jun/2026" },
                                {"ORDER_DT", "15/Jun/2026" },
                                {"BILL_NO",  std::string(31, 'x')},
                                {"NET_AMT",          "12,000"               },
                                {"CHLN_NO",          7.0},
                                {"NARRATION",          "O'Brien 50%_"             },
                                {"GR_DATE",          "__/__/____"  },
                                {"NO_SUCH_COLUMN",          1      }
  });
  const auto row = db.first("SELECT * FROM SALE WHERE rowid = ?", id);
  EXPECT_EQ(row->text("VOUCH_DT"), "2026-06-15");
  EXPECT_EQ(row->text("ORDER_DT"), "15/Jun/2026");
  EXPECT_TRUE(row->isNull("BILL_NO"));
  EXPECT_EQ(row->text("NET_AMT"), "0");
  EXPECT_EQ(row->text("CHLN_NO"), "7");
  EXPECT_EQ(row->text("NARRATION"), "O'Brien 50%_");
  EXPECT_TRUE(row->isNull("GR_DATE"));

  EXPECT_EQ(updateRows(db, "SALE",
                       {
                           {"BILL_NO", "0001"},
                           {"BOOK_CD", "LONG"},
                           {"NET_AMT", 5     }
  },
                       "VOUCH_NO = ? AND BOOK_CD = ?", {7, "SA"}),
            1);
  EXPECT_EQ(db.text("SELECT BOOK_CD || BILL_NO || NUMTEXT(NET_AMT) FROM SALE"), "SA00015");
  EXPECT_THROW(insertRow(db, "SALE",
                         {
                             {"VOUCH_NO", 7   },
                             {"BOOK_CD",  "sa"}
  }),
               DatabaseError);
}

TEST_F(RowsTest, ACursorWalksTheLinesOfABill) {
  Rowset lines(db, {.table = "T_SLITM", .order = "VOUCH_NO, SR_NO"});
  EXPECT_TRUE(lines.bof());
  EXPECT_TRUE(lines.eof());
  EXPECT_EQ(lines.text("ITEM_CD"), "");
  for (int line = 1; line <= 3; ++line) {
    EXPECT_TRUE(lines.eof()) << "stepping past the last line leads to a new one";
    lines.addNew({
        {"VOUCH_NO", 1                         },
        {"SR_NO",    line                      },
        {"ITEM_CD",  "I" + std::to_string(line)}
    });
    EXPECT_EQ(lines.absolutePosition(), line);
    lines.moveNext();
  }
  lines.movePrevious();
  lines.movePrevious();
  EXPECT_EQ(lines.text("ITEM_CD"), "I2");
  lines.update({
      {"QUANTITY",       2.5 },
      { "ITEM_NAME", std::string(101, 'x')}
  });
  EXPECT_EQ(lines.number("QUANTITY"), 2.5);
  EXPECT_TRUE(lines.row().isNull("ITEM_NAME"));
  EXPECT_EQ(lines.number("RATE"), 0);

  lines.moveFirst();
  lines.movePrevious();
  EXPECT_TRUE(lines.bof());
  EXPECT_EQ(lines.absolutePosition(), 0);
  lines.movePrevious();
  EXPECT_EQ(lines.absolutePosition(), 0);
  EXPECT_TRUE(lines.find("ITEM_CD", "i3"));
  EXPECT_EQ(lines.absolutePosition(), 3);
  EXPECT_FALSE(lines.find("ITEM_CD", "none"));
  EXPECT_TRUE(lines.eof());
  EXPECT_EQ(lines.absolutePosition(), 4);

  db.exec("DELETE FROM T_SLITM WHERE SR_NO = 2");
  EXPECT_EQ(lines.count(), 3) << "until the next requery";
  lines.refresh();
  lines.moveTo(2);
  EXPECT_EQ(lines.text("ITEM_CD"), "");
  lines.requery();
  EXPECT_EQ(lines.count(), 2);
  EXPECT_EQ(lines.absolutePosition(), 1);
  EXPECT_EQ(lines.rowAt(1).text("ITEM_CD"), "I3");
  lines.remove();
  EXPECT_EQ(lines.text("ITEM_CD"), "I3");
  EXPECT_EQ(db.number("SELECT COUNT(*) FROM T_SLITM"), 1);
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
