#pragma once

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "frame/child_screen.h"
#include "frame/screens.h"
#include "frame/session.h"
#include "frame/start.h"
#include "store/lock_wait.h"
#include "store/templates.h"
#include "support/temp_folder.h"
#include "support/test_host.h"

// A screen inside the shell that does nothing but stand there.
class FakeChild : public ChildScreen {
 public:
  explicit FakeChild(Host& theHost) : ChildScreen(theHost, look()) {
    wire<FakeChild>(*this, {
                               {"MaskEdBox1", KeyCode::F1,   &FakeChild::dateF1  },
                               {"MaskEdBox1", KeyCode::F2,   &FakeChild::dateF2  },
                               {"MaskEdBox1", KeyCode::F3,   &FakeChild::dateF3  },
                               {"MaskEdBox1", KeyCode::Up,   &FakeChild::dateUp  },
                               {"MaskEdBox1", KeyCode::Down, &FakeChild::dateDown},
                               {"MaskEdBox1", KeyCode::PgUp, &FakeChild::datePgUp},
                               {"MaskEdBox1", KeyCode::PgDn, &FakeChild::datePgDn},
                               {"",           KeyCode::Esc,  &FakeChild::leave   },
    });
  }
  void opened(const Opening& opening) override {
    ChildScreen::opened(opening);
    asked = opening;
  }
  void leave() { host.close(*this); }
  static inline Opening asked;

 private:
  static const ScreenSpec& look() {
    static const ScreenSpec s{
        .name = "GSTSAPU",
        .caption = "SALES ENTRY",
        .layout = {                                                                            },
        .controls = {
                   {.name = "MaskEdBox1", .kind = Kind::Date, .tab = 1, .hint = "Type The Date"},
                   {.name = "Text1", .tab = 2},
                   }
    };
    return s;
  }
};

// A program folder with three company-years: M001 of 2024 and 2025, M002 of 2025.
class FrameTest : public ::testing::Test {
 protected:
  static constexpr const char* kFiles[] = {"comp.mdb",   "SMPL.MDB",   "BLNK.MDB",
                                           "M00124.mdb", "M00125.mdb", "M00225.mdb"};

  FrameTest() : host_(known()) {
    lockWaitMs() = 50;
    for (const char* file : kFiles) std::filesystem::copy_file(pristine() / file, folder_ / file);
  }

  static const Screens& known() {
    static const Screens screens = [] {
      Screens s;
      addFrameScreens(s);
      s.add<FakeChild>("GSTSAPU");
      return s;
    }();
    return screens;
  }

  // Opens the row of the list and lets the splash run out.
  void openShell(size_t row = 0) {
    startUp(host_, folder_.path());
    host_.rowTo(host_.at("lst"), row);
    host_.enter();
    host_.ticks(4);
  }

  TempFolder folder_;
  TestHost host_;

 private:
  static const std::filesystem::path& pristine() {
    static const TempFolder folder;
    static const bool made = [] {
      makeTemplates(folder.path());
      for (const char* company : {"M00124.mdb", "M00125.mdb", "M00225.mdb"})
        copyDatabase(folder / "SMPL.MDB", folder / company);
      makeCatalogue(folder / "comp.mdb");
      Database catalogue;
      catalogue.open(folder / "comp.mdb");
      for (const auto& [code, name, from, to] : std::vector<std::array<const char*, 4>>{
               {"M001", "SHREE TRADERS", "2024", "2025"},
               {"M001", "SHREE TRADERS", "2025", "2026"},
               {"M002", "LIGHT HOUSE",   "2025", "2026"},
      })
        catalogue.exec("INSERT INTO compny VALUES (?, ?, ?, ?, '', '', 'Y')", code, name, from, to);
      return true;
    }();
    (void)made;
    return folder.path();
  }
};
