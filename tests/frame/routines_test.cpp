#include "frame/routines.h"

#include "base/number.h"
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
      {lookup, "PENDCHLNSL",    Anchor::Bottom},
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

TEST_F(FrameTest, ScalingKeepsItsFactor) {
  struct {
    double x, y, font;
  } const cases[] = {
      {1.7075, 1.28, 1.49375},
      {1,      1,    1      },
      {0,      0,    0      },
  };
  for (const auto& c : cases) {
    ResizeControls(c.x, c.y);
    EXPECT_DOUBLE_EQ(session().mfontfactor, c.font);
    EXPECT_TRUE(session().mresizeflag);
  }
}

TEST_F(FrameTest, ProcessesEndByTheirNameAlone) {
  host_.processes = {"excel.exe", "excel2.exe", "excel.exe"};
  EndProcess(host_, " EXCEL.EXE ");
  EXPECT_EQ(host_.processes, std::vector<std::string>{"excel2.exe"});
}

TEST(Routines, KeysAreFilteredByMode) {
  constexpr char32_t kNothing = 0;
  struct {
    int mode;
    char32_t key, reaches;
  } const cases[] = {
      {0, U'0',   U'0'    },
      {0, U'9',   U'9'    },
      {0, U'.',   U'.'    },
      {0, U'-',   U'-'    },
      {0, U'+',   kNothing},
      {0, U',',   kNothing},
      {0, U' ',   kNothing},
      {0, U'e',   kNothing},
      {0, U'A',   kNothing},
      {0, U'/',   kNothing},
      {0, U':',   kNothing},
      {0, U'૧', kNothing},
      {1, U'a',   U'A'    },
      {1, U'z',   U'Z'    },
      {1, U'A',   U'A'    },
      {1, U'Z',   U'Z'    },
      {1, U'0',   U'0'    },
      {1, U'9',   U'9'    },
      {1, U'+',   U'+'    },
      {1, U'.',   U'.'    },
      {1, U' ',   U' '    },
      {1, U'(',   U'('    },
      {1, U')',   U')'    },
      {1, U'-',   U'-'    },
      {1, U'/',   U'/'    },
      {1, U'&',   U'&'    },
      {1, U'\'',  U'\''   },
      {1, 188,    188     },
      {1, 189,    189     },
      {1, 190,    190     },
      {1, U'~',   kNothing},
      {1, U'|',   kNothing},
      {1, U'!',   kNothing},
      {1, U'\t',  kNothing},
      {1, U'ગ', U'ગ'  },
  };
  for (const auto& c : cases)
    EXPECT_EQ(KeyFilter(c.mode, c.key), c.reaches) << c.mode << " " << static_cast<unsigned>(c.key);
}

TEST(Routines, PagesAreRoundedUp) {
  struct {
    double value;
    long pages;
  } const cases[] = {
      {2.0,       2      },
      {2.1,       3      },
      {0,         0      },
      {0.001,     1      },
      {24.0 / 24, 1      },
      {25.0 / 24, 2      },
      {1e6 + 0.5, 1000001}
  };
  for (const auto& c : cases) EXPECT_EQ(RoundUp(c.value), c.pages) << c.value;
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
