#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "frame/lookup.h"
#include "frame/session.h"
#include "masters/screens.h"
#include "store/dictionary.h"
#include "store/templates.h"
#include "support/temp_folder.h"
#include "support/test_host.h"

// A screen with two fields that looks things up, as vouchers do.
class Caller : public Screen {
 public:
  explicit Caller(Host& theHost) : Screen(theHost, look()) {
    wire<Caller>(*this, {
                            {"Text1(0)", KeyCode::Enter, &Caller::codeEntered},
    });
  }
  Go codeEntered() {
    if (here().text.empty()) return lookUp(host, *this, here(), asked);
    ++entered;
    return Go::On;
  }

  static inline Lookup asked;
  static inline int entered = 0;

 private:
  static const ScreenSpec& look() {
    static const ScreenSpec s{
        .name = "GSTSAPU",
        .caption = "SALES ENTRY",
        .layout = {                                       },
        .controls = { {.name = "Text1", .index = 0, .tab = 1}, {.name = "Text1", .index = 1, .tab = 2}},
    };
    return s;
  }
};

// An empty company-year as delivered, open, with its catalogue.
class MastersTest : public ::testing::Test {
 protected:
  MastersTest() : host(known()) {
    std::filesystem::copy_file(pristine() / "SMPL.MDB", folder / "M00124.mdb");
    std::filesystem::copy_file(pristine() / "comp.mdb", folder / "comp.mdb");
    Session& s = session();
    s = Session();
    s.mmobile = "9090909090";
    s.mdataname = "M00124";
    s.cncomp = std::make_unique<Database>();
    s.cncomp->open(folder / "comp.mdb");
    s.cndata = std::make_unique<Database>();
    s.cndata->open(folder / "M00124.mdb");
    RemakeWorkTables(*s.cndata);
    Caller::entered = 0;
  }
  ~MastersTest() override { session() = Session(); }

  static const Screens& known() {
    static const Screens screens = [] {
      Screens s;
      addMasterScreens(s);
      s.add<Caller>("GSTSAPU");
      return s;
    }();
    return screens;
  }

  // The columns of the first row, joined by "|"; "none" without a row.
  template <typename... Args>
  static std::string row(const std::string& sql, const Args&... args) {
    const auto found = data().first(sql, args...);
    if (!found) return "none";
    std::string text = found->text(0);
    for (int i = 1; i < found->count(); ++i) text += "|" + found->text(i);
    return text;
  }
  static void account(const std::string& code, const std::string& name, double group = 85) {
    data().exec(
        "INSERT INTO ACCOUNT (ACC_CD, ACC_NAME, GROUP_CD, CITY, STATECD, CL_BAL) VALUES (?, ?, ?, 'ANAND', "
        "24, 12.5)",
        code, name, group);
  }

  TempFolder folder;
  TestHost host;

 private:
  static const std::filesystem::path& pristine() {
    static const TempFolder made;
    static const bool done = [] {
      makeCompanyDatabase(made / "SMPL.MDB");
      makeCatalogue(made / "comp.mdb");
      return true;
    }();
    (void)done;
    return made.path();
  }
};
