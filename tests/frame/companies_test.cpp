#include "frame/companies.h"

#include <fstream>

#include "frame_fixture.h"
#include "store/lock_file.h"

namespace {

class Companies : public FrameTest {
 protected:
  Companies() { catalogue_.open(folder_ / "comp.mdb"); }
  std::string refusal(const CompanyYear& wanted, CreateBy by) {
    return creationRefusal(catalogue_, folder_.path(), wanted, by);
  }
  std::string rows() {
    std::string all;
    for (const auto& y : companyYears(catalogue_))
      all += y.code + " " + y.name + " " + y.from + "-" + y.to + ";";
    return all;
  }

  Database catalogue_;
};

TEST_F(Companies, AreListedByCodeWithTheLatestYearFirst) {
  EXPECT_EQ(rows(), "M001 SHREE TRADERS 2025-2026;M001 SHREE TRADERS 2024-2025;M002 LIGHT HOUSE 2025-2026;");
}

TEST_F(Companies, AreFoundByAnyPartOfTheNameAsItIsTyped) {
  EXPECT_EQ(companyYears(catalogue_, "TRAD").size(), 2u);
  EXPECT_EQ(companyYears(catalogue_, "light").size(), 1u);
  EXPECT_EQ(companyYears(catalogue_, "%").size(), 0u);
  EXPECT_EQ(companyYears(catalogue_, "_").size(), 0u);
}

TEST_F(Companies, GetTheCodeAfterThatOfTheLastRow) {
  struct {
    const char *last, *next;
  } const cases[] = {
      {"M002", "M003" },
      {"M008", "M009" },
      {"M009", "M010" },
      {"M098", "M099" },
      {"M099", "M0100"},
  };
  for (const auto& c : cases) {
    catalogue_.exec("UPDATE compny SET COMP_ID = ? WHERE COMP_NAME = 'LIGHT HOUSE'", c.last);
    EXPECT_EQ(nextCompanyCode(catalogue_), c.next) << c.last;
  }
  catalogue_.exec("DELETE FROM compny");
  EXPECT_FALSE(nextCompanyCode(catalogue_));
}

TEST_F(Companies, NameTheirFileByCodeAndYear) {
  EXPECT_EQ(dataStem("M001", "2024"), "M00124");
  EXPECT_EQ(dataStem(" M0100 ", " 2005 "), "M010005");
}

TEST_F(Companies, AreCreatedInYearsThatDependOnTheDoor) {
  const std::string longWords =
      "Year Entered is not Valid\r\nPlease Enter Year in 4 Digit Format E.G. 2024\r\n"
      "You Can Enter Year Between 2020 and 2034";
  struct {
    const char* year;
    std::string byEnter, byButton;
  } const cases[] = {
      {"1999", longWords, "Year Entered is not Valid"},
      {"2000", longWords, ""                         },
      {"2019", longWords, ""                         },
      {"2020", "",        ""                         },
      {"2034", "",        ""                         },
      {"2035", longWords, ""                         },
      {"2050", longWords, ""                         },
      {"2051", longWords, "Year Entered is not Valid"},
      {"",     longWords, "Enter Valid Year"         },
      {"24",   longWords, "Year Entered is not Valid"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(refusal({"M003", "NEW", c.year}, CreateBy::Enter), c.byEnter) << c.year;
    EXPECT_EQ(refusal({"M003", "NEW", c.year}, CreateBy::Button), c.byButton) << c.year;
  }
}

TEST_F(Companies, AreNotCreatedWithoutANameOrTwice) {
  EXPECT_EQ(refusal({"M003", "  ", "2025"}, CreateBy::Enter),
            "Company Name Can Not Be Blank\r\nType Company Name and Press Enter");
  EXPECT_EQ(refusal({"M003", "light house", "2025"}, CreateBy::Enter), "year and company Already Exists");
  EXPECT_EQ(refusal({"M002", "LIGHT HOUSE", "2026"}, CreateBy::Enter), "");
}

TEST_F(Companies, AreCreatedWithRowAndFile) {
  createCompanyYear(catalogue_, folder_.path(), {"M003", "RAM'S STORES", "2026"}, CreateBy::Enter,
                    "9090909090");
  const auto row = catalogue_.first("SELECT * FROM compny WHERE COMP_ID = 'M003'");
  ASSERT_TRUE(row);
  EXPECT_EQ(row->text("COMP_NAME"), "RAM'S STORES");
  EXPECT_EQ(row->text("TOYR"), "2027");
  EXPECT_EQ(row->text("DATANM") + row->text("DATASENT"), "M00326N");
  EXPECT_TRUE(std::filesystem::exists(folder_ / "M00326.mdb"));
}

TEST_F(Companies, LeaveNoRowBehindWhenTheFileCannotBeMade) {
  std::filesystem::remove(folder_ / "BLNK.MDB");
  const std::string before = rows();
  EXPECT_THROW(createCompanyYear(catalogue_, folder_.path(), {"M003", "NEW", "2026"}, CreateBy::Button, ""),
               std::exception);
  EXPECT_EQ(rows(), before);
  EXPECT_EQ(refusal({"M003", "NEW", "2026"}, CreateBy::Button), "Template BLNK.MDB Not Found");
}

// Renamed in one year, the company may be created anew under its old name: the books of
// that year must not be written over.
TEST_F(Companies, NeverWriteOverBooks) {
  renameCompany(catalogue_, "SHREE TRADERS", "OTHER NAME", "SHREE TRADERS", "2025");
  EXPECT_EQ(refusal({"M001", "SHREE TRADERS", "2025"}, CreateBy::Enter),
            "Data File M00125.mdb Already Exists\r\nType Another Year");
}

TEST_F(Companies, AreRenamedInOneYearAlone) {
  renameCompany(catalogue_, "SHREE TRADERS", "shree & sons", "SHREE TRADERS", "2025");
  EXPECT_EQ(rows(), "M001 SHREE & SONS 2025-2026;M001 SHREE TRADERS 2024-2025;M002 LIGHT HOUSE 2025-2026;");
  // The second statement looks for the name that the field still shows.
  EXPECT_EQ(catalogue_.text("SELECT DATASENT FROM compny WHERE COMP_NAME = 'SHREE & SONS'"), "Y");
}

TEST_F(Companies, AreDeletedWithFileAndJournal) {
  std::ofstream(folder_ / "M00124.mdb-journal") << "left by a crash";
  EXPECT_TRUE(deleteCompanyYear(catalogue_, folder_.path(), {"M001", {}, "2024", "2025"}));
  EXPECT_EQ(rows(), "M001 SHREE TRADERS 2025-2026;M002 LIGHT HOUSE 2025-2026;");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "M00124.mdb"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "M00124.mdb-journal"));
  EXPECT_TRUE(std::filesystem::exists(folder_ / "M00125.mdb"));
}

TEST_F(Companies, AreNotDeletedWhileOpenElsewhere) {
  const LockFile other(folder_ / "M00124.mdb");
  EXPECT_FALSE(deleteCompanyYear(catalogue_, folder_.path(), {"M001", {}, "2024", "2025"}));
  EXPECT_TRUE(std::filesystem::exists(folder_ / "M00124.mdb"));
}

}  // namespace
