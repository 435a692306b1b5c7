#include "frame/routines.h"

#include <algorithm>
#include <iterator>

#include "base/log.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/menu.h"
#include "frame/session.h"
#include "store/dictionary.h"
#include "store/safe_file.h"

namespace {

// What a tip names is a command of the menu; a tip whose command is not there waits for it.
struct Tip {
  const char* text;
  const char* names = "";
};
// clang-format off
constexpr Tip kTips[] = {
    {english("PRESS ALT BUTTON TO ACTIVATE MENU")},
    {english("TAKE BACKUP REGULERLY")},
    {english("GET NEW UPDATE REGULARLY"),                               "software"},
    {english("USE SHORTCUT CTRL+L TO VIEW LEDGER"),                     "LEDGERS"},
    {english("FOR NEW UPDATE DETAILS : GO TO UTILITIES - WHATSNEW "),   "whatsnew"},
    {english("USE SHORTCUT CTRL+S FOR STOCK LEDGER"),                   "STOCKLEDGER"},
    {english("USE SHORTCUT CTRL+F3 FOR STOCK SUMMARY"),                 "STOCKSUMMARY"},
    {english("USE SHORTCUT CTRL+M FOR ACCOUNT MASTER"),                 "account"},
    {english("USE SHORTCUT CTRL+ I FOR ITEM MASTER"),                   "item"},
    {english("USE SHORTCUT CTRL+ G FOR GST SALES"),                     "SALE"},
    {english("USE SHORTCUT CTRL+ U FOR GST PURCHASE"),                  "PURCHASE"},
    {english("FOR SET A/C PERIOD CTRL+F2"),                             "period"},
    {english("STAY CONNECTED STAY UPDATED"),                            "software"},
};
// clang-format on

bool maybeGiven(const Tip& tip) {
  if (!*tip.names) return true;
  const Command* const command = commandByKey(tip.names);
  return command && leadsSomewhere(*command);
}

std::string nextTip() {
  Session& s = session();
  auto step = static_cast<size_t>(s.mhintcount);
  while (step < std::size(kTips) && !maybeGiven(kTips[step])) ++step;
  s.mhintcount = static_cast<double>(step) + 1;
  if (step < std::size(kTips)) return kTips[step].text;
  s.mhintcount = 1;
  return english("Press Alt Button To Activate Menu");
}

Screen* shellOf(Host& host) { return host.find("frmmain"); }

double next(double largest) { return std::max(largest, 0.0) + 1; }

}  // namespace

// The date beside the hint follows the clock as well, also while the shell's own timer rests.
void ShowHint(Host& host, const std::string& text) {
  Screen* const shell = shellOf(host);
  const std::string& who = session().musername;
  if (shell)
    shell->panels[2] = (who.empty() ? who : who + "  ::  ") + formatDate(host.today(), "dd/MMM/yyyy");
  if (!text.empty()) {
    host.hint(text);
    return;
  }
  if (shell && shell->at("Frame1").visible) host.hint(nextTip());
}

void SetMenus(Host& host, bool allenabled, bool basicenabled) {
  Screen* const shell = shellOf(host);
  if (!shell) return;
  for (MenuEntry& menu : shell->menus) {
    const bool basic = menu.control == "mnumstr" || menu.control == "mnuutils";
    menu.enabled = allenabled || (basic && basicenabled);
  }
  for (ToolEntry& tool : shell->tools) tool.enabled = allenabled;
}

void showPicture(Host& host, bool on) {
  Screen* const shell = shellOf(host);
  if (!shell) return;
  for (const auto& control : shell->controls) control->visible = on;
}

std::string dateHelp(const Host& host) {
  const Date today = host.today();
  struct Line {
    Date date;
    const char* key;
  };
  // clang-format off
  const Line lines[] = {
      {today,                     english("Press ::  F2 ::  Button To Get Current Date ")},
      {session().mstartdt,        english("Press ::  F1 ::  Button To Get First Date of Accounting Period ")},
      {session().menddt,          english("Press ::  F3 ::  Button To Last Date of Accounting Period ")},
      {addDays(today, 1),         english("Press ::  Up Arrow ::  Button Get Next Date")},
      {addDays(today, -1),        english("Press ::  Down Arrow ::  Button Get Previous Date")},
      {addMonths(today, 1),       english("Press ::  Page Up ::  Button Get Next Month Date")},
      {addMonths(today, -1),      english("Press ::  Page Down ::  Button Get Previous Month Date")},
  };
  // clang-format on
  std::vector<std::string> help;
  for (const Line& line : lines)
    help.push_back("'" + formatDate(line.date, "dd/MMM/yyyy") + "' : " + words(line.key));
  return join(help, "\r\n");
}

void CheckOnline(Host& host) { session().monline = host.online(); }

void openTutorial(Host& host, const std::string& link) {
  CheckOnline(host);
  if (link.empty())
    ShowHint(host, "No Page Has Been Set For This");
  else if (!session().monline)
    ShowHint(host, "Opens When This Computer Is Online");
  else
    host.openLink(link);
}

void offerTutorial(Screen& screen, const std::string& link) { screen.at("Cmdvideo").visible = !link.empty(); }

bool passOver(Host& host, const std::function<void()>& step) {
  try {
    step();
    return true;
  } catch (const DatabaseError& error) {
    // Who may only look leaves to others what an opening would write.
    if (error.mayBePassedOver() || error.kind() == DatabaseError::Kind::denied)
      logFailure("passed over: the next step runs all the same", error);
    else
      tellFailure(host, error);
  } catch (const std::exception& error) {
    tellFailure(host, error);
  }
  return false;
}

void tellFailure(Host& host, const std::exception& error) {
  logFailure(kTold, error);
  host.message(error.what(), kMessageTitle);
}

void showLog(Host& host) {
  const auto file = logFile(session().mapppath);
  if (fileExists(file))
    host.view(file.string());
  else
    ShowHint(host, "Nothing Has Failed :: There Is No Error Log Yet");
}

std::string failureOf(Host& host, const std::function<void()>& work) {
  try {
    const Busy busy(host);
    work();
    return {};
  } catch (const std::exception& error) {
    logFailure(kTold, error);
    return error.what();
  }
}

bool CheckTable(const std::string& name) {
  const Session& s = session();
  return s.cndata && s.cndata->isOpen() && CheckTable(*s.cndata, name);
}

std::string MakeStamp(Host& host) { return session().mstamp = MakeStamp(host.now()); }

void EndProcess(Host& host, const std::string& name) { host.endProcess(lower(trim(name))); }

double NextAccountCode() {
  return next(
      data().number("SELECT MAX(VAL(SUBSTR(ACC_CD, 2))) FROM ACCOUNT WHERE ACC_CD >= 'A' AND ACC_CD < 'B'"));
}

double NextItemCode() {
  constexpr double kMillion = 1000000;
  const auto last = [](const char* from, const char* to) {
    return data().number(
        "SELECT MAX(VAL(SUBSTR(ITEM_CD, 2))) FROM ITEM"
        " WHERE ITEM_CD >= ? AND ITEM_CD < ? AND LEN(ITEM_CD) = 8",
        from, to);
  };
  const double own = next(last("I0", "I1"));
  // Codes of another make that begin with a higher digit count only once the series has come to them.
  return own < kMillion ? own : std::max(own, next(last("I1", "I:")));
}

double NextCategoryCode() {
  return next(data().number(
      "SELECT MAX(VAL(SUBSTR(DEPT_CD, 2))) FROM DEPTMENT WHERE DEPT_CD >= 'E' AND DEPT_CD < 'F'"));
}

std::string accountCode(double number) { return "A" + Format(number, "00000"); }
std::string itemCode(double number) { return "I" + Format(number, "0000000"); }
std::string categoryCode(double number) { return "E" + Format(number, "000"); }
