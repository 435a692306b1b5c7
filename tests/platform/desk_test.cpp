#include "platform/desk.h"

#include "support/test_host.h"

namespace {

constexpr FieldName kParty{"party"};

// A small bill: two fields that check on Enter and on leaving, one that is off, a date, a list, buttons.
const ScreenSpec& billSpec() {
  // clang-format off
  static const ScreenSpec spec{
      .name = "BILL", .caption = "BILL", .focusColour = 0xFFC0FF, .layout = {},
      .controls = {
          {.name = "Text1", .index = 0, .tab = 1, .limit = 3, .keys = KeyClass::Number},
          {.name = "Text1", .index = 1, .field = kParty, .tab = 2, .limit = 6, .keys = KeyClass::Text},
          {.name = "Text1", .index = 2, .tab = 3, .enabled = false},
          {.name = "MaskEdBox1", .index = 0, .kind = Kind::Date, .tab = 4},
          {.name = "lst", .kind = Kind::Grid, .columns = {{"Name"}}},
          {.name = "CMDSAVE", .kind = Kind::Button, .label = "&Save", .tab = 5},
          {.name = "CMDCANCEL", .kind = Kind::Button, .label = "&Cancel", .tab = 6},
      }};
  // clang-format on
  return spec;
}

std::vector<std::string> happened;

class Bill : public Screen {
 public:
  explicit Bill(Host& theHost) : Screen(theHost, billSpec()) {
    auto rows = std::make_shared<CellRows>();
    for (const char* name : {"A", "B", "C"}) rows->rows.push_back({{.text = name}});
    at("lst").grid.source = rows;
    wire<Bill>(*this, {
                          {"Text1(0)",  KeyCode::Enter, &Bill::number    },
                          {"Text1(0)",  On::Validate,   &Bill::numberLeft},
                          {"Text1",     On::Leave,      &Bill::left      },
                          {"Text1",     On::Focus,      &Bill::entered   },
                          {"Text1",     On::Change,     &Bill::changed   },
                          {kParty,      KeyCode::Enter, &Bill::party     },
                          {"Text1(1)",  KeyCode::F1,    &Bill::find      },
                          {"Text1(1)",  KeyCode::F2,    &Bill::fail      },
                          {"lst",       On::Row,        &Bill::moved     },
                          {"CMDSAVE",   On::Click,      &Bill::save      },
                          {"CMDCANCEL", On::Click,      &Bill::cancel    },
    });
  }
  void activated() override { happened.push_back("activated"); }

  Go number() {
    happened.push_back("number");
    if (here().text == "9") focus(at(kParty));
    if (here().text == "0") host.message("Not 0");
    return here().text == "9" || here().text == "0" ? Go::Stay : Go::On;
  }
  Go numberLeft() {
    happened.push_back("validate");
    if (here().text != "7") return Go::On;
    host.message("Not 7");
    return Go::Stay;
  }
  void left() {
    happened.push_back("leave " + here().fullName());
    if (here().text == "5") at("CMDSAVE").enabled = false;
  }
  void entered() { happened.push_back("enter " + here().fullName()); }
  void changed() { happened.push_back("change " + here().text); }
  Go party() {
    if (here().text.empty()) return find();
    happened.push_back("party " + here().text);
    return Go::On;
  }
  Go find() {
    if (const auto chosen = host.openModal("HELP")) {
      set(here(), *chosen);
      enterAgain(here());
    }
    return Go::Stay;
  }
  void fail() { throw std::runtime_error("disk is full"); }
  void moved() { happened.push_back("row " + at("lst").grid.cell(at("lst").grid.current, 0).text); }
  void save() {
    happened.push_back(host.ask("Sure", "Check") ? "saved" : "kept");
    host.open("OTHER");
    happened.push_back("handler ends");
  }
  void cancel() { host.close(*this); }
};

class Help : public Screen {
 public:
  explicit Help(Host& theHost) : Screen(theHost, table()) {
    wire<Help>(*this, {
                          {"", KeyCode::Enter, &Help::choose},
                          {"", KeyCode::Esc,   &Help::leave }
    });
  }
  static const ScreenSpec& table() {
    static const ScreenSpec spec{
        .name = "HELP", .window = Window::Dialog, .layout = {}, .controls = {{.name = "Text1", .tab = 1}}};
    return spec;
  }
  void choose() {
    result = at("Text1").text;
    host.close(*this);
  }
  void leave() { host.close(*this); }
};

class Other : public Screen {
 public:
  Other(Host& theHost, const Opening& opening) : Screen(theHost, table()) {
    if (opening.entryType == "BROKEN") throw std::runtime_error("no such table");
  }
  void opened(const Opening& opening) override { happened.push_back("other opened" + opening.value); }
  bool mayClose() override { return host.ask("Give Up", "Check"); }
  static const ScreenSpec& table() {
    static const ScreenSpec spec{.name = "OTHER", .layout = {}, .controls = {}};
    return spec;
  }
};

class DeskTest : public testing::Test {
 protected:
  DeskTest() {
    screens.add<Bill>("BILL");
    screens.add<Help>("HELP");
    screens.add<Other>("OTHER");
    desk.start("BILL");
    happened.clear();
  }
  Control& field(int i) { return desk.screen().at("Text1", i); }

  Screens screens;
  TestHost desk{screens};
};

using Events = std::vector<std::string>;

TEST_F(DeskTest, EnterChecksOnceAndMovesOnPastFieldsThatAreOff) {
  desk.type("12");
  desk.enter();
  EXPECT_EQ(happened, (Events{"change 1", "change 12", "number", "leave Text1(0)", "enter Text1(1)"}));
  EXPECT_EQ(field(0).back, kWhite);
  EXPECT_EQ(field(1).back, 0xFFC0FFu);
  desk.type("ab");
  desk.enter();
  EXPECT_EQ(desk.focus(), "MaskEdBox1(0)");
  desk.key(Key::Shift(KeyCode::Tab));
  EXPECT_EQ(desk.focus(), "party");
  EXPECT_EQ(field(1).text, "AB");
  // A control that is switched off loses the focus to the next.
  desk.go("Text1(0)");
  field(0).enabled = false;
  desk.key(KeyCode::F5);
  EXPECT_EQ(desk.focus(), "party");
}

TEST_F(DeskTest, AHandlerMovesTheFocusAfterItHasReturnedAndARefusalKeepsIt) {
  desk.type("9");
  desk.enter();
  EXPECT_EQ(desk.focus(), "party");
  desk.key(Key::Shift(KeyCode::Tab));
  desk.key(Key::Ctrl('A'));
  desk.type("0");
  desk.enter();
  EXPECT_EQ(desk.lastMessage(), "Not 0");
  EXPECT_TRUE(field(0).refused);
  desk.key(KeyCode::Backspace);
  EXPECT_FALSE(field(0).refused);
  desk.type("7");
  happened.clear();
  desk.key(KeyCode::Tab);
  EXPECT_EQ(happened, Events{"validate"});
  EXPECT_EQ(desk.focus(), "Text1(0)");
  EXPECT_FALSE(desk.focusOn(field(1)));
  // A mnemonic is a click: the field may refuse that too.
  desk.key(Key::Alt('S'));
  EXPECT_EQ(desk.onTop(), "BILL");
}

TEST_F(DeskTest, AClickReachesNeitherWhatLeavingHasSwitchedOffNorAnotherScreen) {
  Control& save = desk.screen().at("CMDSAVE");
  desk.type("5");
  happened.clear();
  desk.click(save);
  EXPECT_EQ(happened, (Events{"validate", "leave Text1(0)"}));
  EXPECT_EQ(desk.focus(), "Text1(0)");

  save.enabled = true;
  Control& number = field(0);
  Control& list = desk.screen().at("lst");
  desk.open("OTHER");
  happened.clear();
  EXPECT_FALSE(desk.click(save));
  EXPECT_FALSE(desk.focusOn(number));
  desk.rowTo(list, 2);
  desk.doubleClick(list);
  desk.select(number, 0, 1);
  EXPECT_EQ(happened, Events{});
  EXPECT_EQ(list.grid.current, Grid::kNone);
  EXPECT_EQ(number.anchor, 1u);
}

TEST_F(DeskTest, TheLookupFillsTheFieldAndEnterRunsOnce) {
  desk.focusOn(field(1));
  happened.clear();
  desk.insideModal.push_back([&] {
    desk.type("A00001");
    desk.enter();
  });
  desk.enter();
  EXPECT_EQ(happened, (Events{"party A00001", "leave Text1(1)"}));
  EXPECT_EQ(desk.focus(), "MaskEdBox1(0)");

  desk.focusOn(field(1));
  happened.clear();
  desk.insideModal.push_back([&] { desk.escape(); });
  desk.key(KeyCode::F1);
  EXPECT_TRUE(happened.empty());
  EXPECT_EQ(field(1).text, "A00001");
  // What a handler raises is told, and the screen stays.
  desk.key(KeyCode::F2);
  EXPECT_EQ(desk.lastMessage(), "disk is full");
  EXPECT_EQ(field(1).text, "A00001");
  EXPECT_EQ(desk.focus(), "party");
}

TEST_F(DeskTest, AFieldIsFoundByItsNameWhichIsItsAlone) {
  EXPECT_EQ(desk.screen().find("Party"), &field(1));
  EXPECT_EQ(desk.screen().find(""), nullptr);
  ScreenSpec twice = billSpec();
  twice.controls[0].field = kParty;
  EXPECT_THROW(Screen(desk, twice), std::logic_error);
}

TEST_F(DeskTest, OtherScreensOpenAfterTheHandlerAndTheOneBelowIsActivatedAgain) {
  desk.answers = {true};
  desk.press("CMDSAVE");
  EXPECT_EQ(happened, (Events{"validate", "leave Text1(0)", "saved", "handler ends", "other opened"}));
  EXPECT_EQ(desk.onTop(), "OTHER");
  // It comes to the top as it stands, or gives way to a new one where it is asked for something else.
  desk.open("BILL");
  happened.clear();
  desk.open("OTHER");
  desk.answers = {false, true};
  desk.open("OTHER", {.value = " 1"});
  EXPECT_EQ(desk.onTop() + std::to_string(desk.open().size()), "OTHER2");
  desk.open("OTHER", {.value = " 2"});
  EXPECT_EQ(happened, (Events{"other opened 2"}));
  happened.clear();
  desk.answers = {true};
  desk.closeTop();
  EXPECT_EQ(happened, Events{"activated"});
  desk.start("NOWHERE");
  EXPECT_EQ(desk.hint(), "Not built yet");
  EXPECT_FALSE(desk.quitting());
  desk.press("CMDCANCEL");
  EXPECT_TRUE(desk.quitting());
}

TEST_F(DeskTest, AScreenThatCannotBeMadeIsNotOpened) {
  desk.open("OTHER", {.entryType = "BROKEN"});
  EXPECT_EQ(desk.onTop() + desk.lastMessage(), "BILLno such table");
  EXPECT_EQ(desk.openModal("OTHER", {.entryType = "BROKEN"}), std::nullopt);
  EXPECT_EQ(desk.messages.size(), 2u);
}

TEST_F(DeskTest, TypingPassesFiltersLimitsAndMasks) {
  desk.type("1a-2.5");
  EXPECT_EQ(field(0).text, "1-2");
  desk.focusOn(field(1));
  desk.type("o'\u0A95!");  // a Gujarati letter passes, "!" does not
  EXPECT_EQ(field(1).text, "O'\u0A95");
  desk.key(KeyCode::Home);
  desk.paste(
      "ab \r\n\tcd\x01"
      "efg\n");  // unfiltered, in one line, cut to six
  EXPECT_EQ(field(1).text, "ab O'\u0A95");
  desk.key({KeyCode::Home, 0, false, false, true});
  desk.key(Key::Ctrl('X'));
  EXPECT_EQ(desk.clipboard(), "ab ");
  EXPECT_EQ(field(1).text, "O'\u0A95");

  desk.go("MaskEdBox1(0)");
  const std::string& date = desk.text("MaskEdBox1(0)");
  desk.type("15/06/2026");
  EXPECT_EQ(date, "15/06/2026");
  desk.keys({KeyCode::Backspace, KeyCode::Backspace});
  desk.type("31x");
  EXPECT_EQ(date, "15/06/2031");
  for (int i = 0; i < 5; ++i) desk.key(KeyCode::Backspace);
  EXPECT_EQ(date, "15/0_/____") << "the slash takes no key";
  desk.key(Key::Ctrl('A'));
  desk.type("0");
  EXPECT_EQ(date, "0_/__/____");
}

TEST_F(DeskTest, FiguresAndDatesArePastedAsWhatTheySay) {
  field(0).limit = 12;
  const std::pair<const char*, const char*> figures[] = {
      {"1,234.50",            "1234.50"  },
      {"\u20B9\u00A0500\n",   "500"      },
      {"Rs. 1,00,000.50/-",   "100000.50"},
      {"'007",                "007"      },
      {"\u2212 12 345",       "-12345"   },
      {"\u0967\u0968.\u0AEB", "12.5"     },
      {"1,5",                 nullptr    },
      {"15.06.2026",          nullptr    },
      {"12\t13",              nullptr    },
      {"1234567890123",       nullptr    },
  };
  for (const auto& [pasted, read] : figures) {
    Screen::set(field(0), "9");
    desk.key(Key::Ctrl('A'));
    desk.messages.clear();
    desk.paste(pasted);
    EXPECT_EQ(field(0).text, read ? read : "9") << pasted;
    EXPECT_EQ(desk.messages.empty(), read != nullptr) << pasted;
  }
  desk.go("MaskEdBox1(0)");
  for (const char* date : {"15-06-2026", "15.06.2026", "15 Jun 2026", "\u0967\u096B/06/2026"}) {
    desk.key(Key::Ctrl('A'));
    desk.key(KeyCode::Delete);
    desk.paste(date);
    EXPECT_EQ(desk.text("MaskEdBox1(0)"), "15/06/2026") << date;
  }
}

TEST_F(DeskTest, ListsAndButtonsAnswerTheArrows) {
  desk.rowTo(desk.at("lst"), 1);
  desk.keys({KeyCode::Down, KeyCode::Down, KeyCode::Home});
  EXPECT_EQ(happened, (Events{"validate", "leave Text1(0)", "row B", "row C", "row A"}));
  desk.go("CMDSAVE");
  desk.key(KeyCode::Right);
  EXPECT_EQ(desk.focus(), "CMDCANCEL");
  desk.type(" ");
  EXPECT_EQ(desk.top(), nullptr);
}

}  // namespace
