#include "frame_fixture.h"

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

}  // namespace
