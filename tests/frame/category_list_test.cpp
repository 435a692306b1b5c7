#include "frame/category_list.h"

#include "frame_fixture.h"
#include "held_open.h"
#include "platform/workbook/workbook.h"

namespace {

namespace fs = std::filesystem;

class Categories : public FrameTest {
 protected:
  Categories() {
    openShell();
    data().exec(
        "INSERT INTO DEPTMENT (DEPT_CD, DEPT_NAME) VALUES ('E002', '=1+1'), ('007', '+5'), ('-3', '@SUM'),"
        " ('E005', 'વીજળી & <FANS>')");
  }
  fs::path list() const { return folder_ / "FORMATS" / "list.xlsx"; }
};

TEST_F(Categories, AreListedAsTextUnderTheirTitle) {
  EXPECT_FALSE(fs::exists(folder_ / "FORMATS"));
  EXPECT_TRUE(host_.choose("dept"));
  EXPECT_EQ(host_.viewed, std::vector<std::string>{list().string()});
  EXPECT_EQ(host_.hint(), "Not built yet") << "and the report screen is asked for";

  auto book = workbook::Workbook::load(list().string());
  auto& sheet = book.sheet("LIST");
  const char* const rows[][2] = {
      {"Category Listing", ""                        },
      {"CODE",             "NAME"                    },
      {"E001",             "MISC"                    },
      {"E002",             "=1+1"                    },
      {"007",              "+5"                      },
      {"-3",               "@SUM"                    },
      {"E005",             "વીજળી & <FANS>"},
      {"",                 ""                        },
  };
  for (int r = 0; r < 8; ++r)
    for (int c = 0; c < 2; ++c) {
      const workbook::Value value = sheet.value(r + 1, c + 1);
      EXPECT_EQ(value.text() ? *value.text() : "", rows[r][c]) << r << c;
      EXPECT_EQ(value.empty(), *rows[r][c] == '\0') << r << c;
    }
}

TEST_F(Categories, AWorkbookThatIsHeldOpenStays) {
  host_.choose("dept");
  const auto before = fs::last_write_time(list());
  {
    const HeldOpen held(list());
    host_.choose("dept");
    EXPECT_EQ(host_.lastMessage(), "Excel File Is Already Open\r\nClose It First");
    EXPECT_EQ(host_.viewed.size(), 1u);
    EXPECT_EQ(fs::last_write_time(list()), before);
  }
  host_.processes = {"excel.exe"};
  host_.choose("dept");
  EXPECT_EQ(host_.viewed.size(), 2u);
  EXPECT_EQ(host_.processes.size(), 1u) << "ended only when the session says so";
  session().mexcelkill = true;
  host_.choose("dept");
  EXPECT_TRUE(host_.processes.empty());
}

}  // namespace
