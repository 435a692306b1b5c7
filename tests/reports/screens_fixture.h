#pragma once

#include "frame/session.h"
#include "masters/screens.h"
#include "reports/screens.h"
#include "store/company_fixture.h"
#include "support/test_host.h"

// Stand for the vouchers: each keeps with what it was opened last.
template <int N>
class Voucher : public Screen {
 public:
  explicit Voucher(Host& theHost) : Screen(theHost, look()) {}
  void opened(const Opening& opening) override {
    last = opening.entryType + " " + opening.caller + " " + opening.value;
  }
  static constexpr const char* kNames[] = {"GSTSAPU", "FRMQUOT", "FRMCHLN", "bwrcpy", "FRMJRNL"};
  static inline std::string last;

 private:
  static const ScreenSpec& look() {
    static const ScreenSpec s{.name = kNames[N], .caption = "VOUCHER", .layout = {}, .controls = {}};
    return s;
  }
};

// The screens of reports over a new company-year, on 15 June.
class ReportScreens : public CompanyTest {
 protected:
  ReportScreens() : host(known()) {
    Session& s = session();
    s = Session();
    s.mcompname = "SHREE TRADERS";
    s.mapppath = folder.path().string();
    s.mgstinno = "24AAKFS4821M1ZW";
    s.mstartdt = *parseDate("2026-04-01");
    s.menddt = *parseDate("2027-03-31");
    s.mcolor2 = 16769248;
    s.mcolor6 = 14741759;
    s.cndata = std::make_unique<Database>();
    s.cndata->open(db.file());
  }
  ~ReportScreens() override { session().cndata.reset(); }

  static Screens& known() {
    static Screens screens;
    addReportScreens(screens);
    addMasterScreens(screens);
    screens.add<Voucher<0>>("GSTSAPU");
    screens.add<Voucher<1>>("FRMQUOT");
    screens.add<Voucher<2>>("FRMCHLN");
    screens.add<Voucher<3>>("bwrcpy");
    screens.add<Voucher<4>>("FRMJRNL");
    return screens;
  }

  void open(const std::string& key) {
    while (host.top()) host.closeTop();
    host.open("frmreport", {.reportKey = key});
  }
  // Enter on a row; what happens in the voucher, of whose opening this tells; back to the report.
  template <int N>
  std::string drill(
      size_t row, const std::function<void()>& meanwhile = [] {}) {
    const std::string report = host.onTop();
    Voucher<N>::last.clear();
    host.rowTo(host.at("Grid1"), row);
    host.enter();
    meanwhile();
    if (host.onTop() != report) host.closeTop();
    return Voucher<N>::last;
  }
  std::string said() const { return host.messages.back().title + "|" + host.lastMessage(); }

  TestHost host;
};
