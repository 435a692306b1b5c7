#include "frame/routines.h"

#include "frame_fixture.h"

namespace {

class Named : public Screen {
 public:
  Named(Host& theHost, const ScreenSpec& look) : Screen(theHost, look) {}
};

TEST_F(FrameTest, DialogsStandInTheMiddleAndTheLookupByItsMode) {
  const ScreenSpec dialog{.name = "dlg1", .caption = {}, .layout = {}, .controls = {}};
  const ScreenSpec lookup{.name = "FRMHLP", .caption = {}, .layout = {}, .controls = {}};
  struct {
    const ScreenSpec& screen;
    const char* mode;
    Anchor stands;
  } const cases[] = {
      {dialog, "SL_ITMCD",      Anchor::Centre},
      {lookup, "SL_ITMCD",      Anchor::Bottom},
      {lookup, "pendordhlpgst", Anchor::Bottom},
      {lookup, "twofld",        Anchor::Top   },
      {lookup, "sl_itmcd",      Anchor::Top   }, // modes are told by their letters
      {lookup, "",              Anchor::Top   },
  };
  for (const auto& c : cases) {
    session().mhlpmode = c.mode;
    EXPECT_EQ(CenterScreen(Named(host_, c.screen)), c.stands) << c.mode;
  }
}

TEST_F(FrameTest, ProcessesEndByTheirNameAlone) {
  host_.processes = {"excel.exe", "excel2.exe", "excel.exe"};
  EndProcess(host_, " EXCEL.EXE ");
  EXPECT_EQ(host_.processes, std::vector<std::string>{"excel2.exe"});
}

TEST(Routines, KeysAreFilteredByMode) {
  struct {
    int mode;
    std::u32string keys, reach;
  } const cases[] = {
      {0, U"09.-",            U"09.-"           },
      {0, U"+, eA/:૧",      U""               },
      {1, U"azAZ09+. ()-/&'", U"AZAZ09+. ()-/&'"},
      {1, U"\xBC\xBD\xBEગ", U"\xBC\xBD\xBEગ"},
      {1, U"~|!\t",           U""               },
  };
  for (const auto& c : cases) {
    std::u32string reached;
    for (const char32_t key : c.keys)
      if (const char32_t through = KeyFilter(c.mode, key)) reached += through;
    EXPECT_TRUE(reached == c.reach) << c.mode << " " << c.keys.size() << " " << reached.size();
  }
}

TEST_F(FrameTest, StampsNameDayAndMinute) {
  struct {
    const char* date;
    int hour, minute;
    const char* stamp;
  } const cases[] = {
      {"2026-06-15", 10, 30, "260615_1030"},
      {"2026-01-02", 3,  4,  "260102_0304"},
      {"2009-12-31", 23, 59, "091231_2359"},
      {"2030-10-01", 0,  0,  "301001_0000"},
  };
  for (const auto& c : cases) {
    host_.clock = {*parseDate(c.date), c.hour, c.minute, 59};
    EXPECT_EQ(MakeStamp(host_), c.stamp);
    EXPECT_EQ(session().mstamp, c.stamp);
  }
}

TEST_F(FrameTest, AStepThatFailsIsToldWhenItMustBe) {
  using Kind = DatabaseError::Kind;
  struct {
    Kind kind;
    bool told;
  } const cases[] = {
      {Kind::other,      false},
      {Kind::constraint, false},
      {Kind::locked,     true },
      {Kind::full,       true },
      {Kind::readOnly,   true },
      {Kind::damaged,    true },
      {Kind::io,         true },
  };
  for (const auto& c : cases) {
    host_.messages.clear();
    passOver(host_, [&] { throw DatabaseError(c.kind, "M00125.mdb", "detail"); });
    EXPECT_EQ(host_.messages.size(), c.told ? 1u : 0u) << static_cast<int>(c.kind);
  }
  passOver(host_, [] { throw std::runtime_error("not of the store"); });
  EXPECT_EQ(host_.lastMessage(), "not of the store");
}

}  // namespace
