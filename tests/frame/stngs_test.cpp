#include <utility>

#include "frame/company_details.h"
#include "frame_fixture.h"
#include "full_disk.h"
#include "killed.h"
#include "store/lock_wait.h"

namespace {

class Details : public FrameTest {
 protected:
  Details() {
    openShell();
    host_.choose("acc_set");
  }
  Row row() { return *data().first("SELECT * FROM COMP_DET"); }
};

TEST_F(Details, SaveAddsTheRowAndTheNameGoesToAllYears) {
  EXPECT_EQ(host_.focus() + host_.text("company"), "company");
  host_.fillEnter("company", "new name");
  EXPECT_EQ(host_.focus(), "address");
  host_.fill("city", "x");
  host_.fill("state_code", "24");
  host_.fill("gstin", "24abcde1234f1z5");
  host_.fill("email", "shop@example.org");
  host_.fill("pan", "ABCDE1234F");
  host_.press("cmdsave");

  EXPECT_EQ(host_.onTop(), "frmmain");
  const Row r = row();
  EXPECT_EQ(r.text("COMPNM"), "NEW NAME");
  EXPECT_EQ(r.text("CITY"), "Ahmedabad");
  EXPECT_EQ(r.text("PLA_NO") + r.text("GSTINNO") + r.text("C_EMAIL"),
            "ABCDE1234F24ABCDE1234F1Z5shop@example.org");
  EXPECT_EQ(r.text("AD1") + r.text("AD2") + r.text("AREA") + r.text("C_PASS") + r.text("C_SMTP"), ".....");
  EXPECT_EQ(r.number("TERMS") + r.number("C_PORT"), 0);
  EXPECT_EQ(r.text("MOBNOCO") + r.text("DATANM") + r.text("DATASENT"), "9090909090M00125N");

  EXPECT_EQ(session().mcompname + session().mgstinno, "NEW NAME24ABCDE1234F1Z5");
  EXPECT_EQ(host_.screen().caption.substr(0, 15), "NEW NAME : 2526");
  EXPECT_EQ(host_.screen().panels[0].substr(0, 8), "NEW NAME");
  EXPECT_EQ(catalogue().number("SELECT COUNT(*) FROM compny WHERE COMP_NAME = 'NEW NAME'"), 2);
  EXPECT_EQ(catalogue().text("SELECT COMP_NAME FROM compny WHERE COMP_ID = 'M002'"), "LIGHT HOUSE");
}

TEST_F(Details, AreStoredWithTheNameInTheCatalogueOrNotAtAll) {
  const int wait = std::exchange(lockWaitMs(), 50);
  host_.fill("company", "NEW NAME");
  session().cndata->open(session().mdbpath);  // of the short wait
  {
    Database other;
    other.open(folder_ / "comp.mdb");
    const Transaction busy(other);
    host_.press("cmdsave");
  }
  lockWaitMs() = wait;
  EXPECT_NE(host_.lastMessage().find("in use by another program"), std::string::npos);
  {
    const FullDisk full;
    host_.press("cmdsave");
  }
  EXPECT_NE(host_.lastMessage().find("the disk reports an error"), std::string::npos) << host_.lastMessage();
  EXPECT_EQ(host_.text("company"), "NEW NAME");
  EXPECT_FALSE(data().first("SELECT 1 FROM COMP_DET"));

  const std::string year = session().mdbpath;
  session() = Session{};
  const auto save = [&](int call) {
    return killedAt(call, [&] {
      Session s;
      s.mcompid = "M001";
      s.cndata = std::make_unique<Database>();
      s.cncomp = std::make_unique<Database>();
      s.cndata->open(year);
      s.cncomp->open(folder_ / "comp.mdb");
      saveCompanyDetails(s, {
                                {"COMPNM", "KILLED " + std::to_string(call)}
      });
    });
  };
  constexpr int kMoments = 40;
  const Killed whole = save(0);
  if (!whole.possible) GTEST_SKIP() << "processes may not be watched here";
  for (int moment = 1; moment <= kMoments; ++moment) {
    const int call = whole.calls / 2 + whole.calls * moment / kMoments / 2;  // it writes in the second half
    save(call);
    Database books, names;
    books.open(year);
    names.open(folder_ / "comp.mdb");
    ASSERT_EQ(books.text("SELECT COMPNM FROM COMP_DET"),
              names.text("SELECT COMP_NAME FROM compny WHERE COMP_ID = 'M001'"))
        << call;
  }
}

}  // namespace
