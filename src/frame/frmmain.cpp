#include "frame/frmmain.h"

#include <array>
#include <functional>
#include <utility>
#include <vector>

#include "base/number.h"
#include "base/pattern.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/backup_menu.h"
#include "frame/company_details.h"
#include "frame/frmstartup.h"
#include "frame/menu.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "frame/together.h"
#include "frame/voucher_kinds.h"
#include "frame/voucher_opening.h"
#include "store/together.h"

namespace {

constexpr int kTipEvery = 30000;  // milliseconds
constexpr int kBillRows = 24, kDebtorRows = 16;
constexpr Bgr kDueColour = 0xB3E3FF;

// clang-format off
const ScreenSpec& spec() {
  static const ScreenSpec s{
      .name = "frmmain",
      .caption = "Mirav",
      .window = Window::Main,
      .layout = {.bands = {
          {px(54),  {{.name = "head", .frame = Frame::Plain, .columns = {part(1), px(240)}, .pitch = 27}}},
          {px(100), {{.name = "card0", .columns = {part(1)}, .pitch = 28},
                     {.name = "card1", .columns = {part(1)}, .pitch = 28},
                     {.name = "card2", .columns = {part(1)}, .pitch = 28},
                     {.name = "card3", .columns = {part(1)}, .pitch = 28},
                     {.name = "card4", .columns = {part(1)}, .pitch = 28}}},
          {part(1), {{.name = "left", .width = part(1.45), .frame = Frame::Plain, .bands = {
                         {px(24),  {{.name = "billshead", .frame = Frame::Plain, .columns = {part(1)}, .pitch = 24}}},
                         {part(1), {{.name = "bills", .frame = Frame::Plain, .pitch = 29}}}}},
                     {.name = "right", .width = part(1), .frame = Frame::Plain, .bands = {
                         {px(24),  {{.name = "duehead", .frame = Frame::Plain, .columns = {part(1), px(160)}, .pitch = 24}}},
                         {px(31, 26), {{.name = "due", .frame = Frame::Plain, .pitch = 29}}},
                         {px(24),  {{.name = "debtorshead", .frame = Frame::Plain, .columns = {part(1)}, .pitch = 24}}},
                         {part(1), {{.name = "debtors", .frame = Frame::Plain, .pitch = 29}}},
                         {px(24),  {{.name = "keyshead", .frame = Frame::Plain, .columns = {part(1)}, .pitch = 24}}},
                         {px(66),  {{.name = "keys", .columns = {px(62), part(1), px(62), part(1)}, .pitch = 25}}}}}}},
      }, .margin = 18, .gap = 10},
      .controls = {
          {.name = "Picture1", .kind = Kind::Picture},
          {.name = "Frame1",   .kind = Kind::Picture},
          {.name = "Image1",   .kind = Kind::Picture},

          {.name = "Company",  .kind = Kind::Label, .at = {.group = "head", .row = 0, .col = 0}, .style = Style::Company},
          {.name = "Period",   .kind = Kind::Label, .at = {.group = "head", .row = 1, .col = 0}, .style = Style::Quiet},
          {.name = "Today",    .kind = Kind::Label, .at = {.group = "head", .row = 0, .col = 1}, .align = Align::Right, .style = Style::Head},
          {.name = "Weekday",  .kind = Kind::Label, .at = {.group = "head", .row = 1, .col = 1}, .align = Align::Right, .style = Style::Quiet},

          {.name = "Card",   .index = 0, .kind = Kind::Label, .label = "Today's Sales",         .at = {.group = "card0"}, .style = Style::Quiet},
          {.name = "Figure", .index = 0, .kind = Kind::Label, .at = {.group = "card0", .row = 1}, .align = Align::Right, .money = true, .style = Style::Figure},
          {.name = "Count",  .index = 0, .kind = Kind::Label, .at = {.group = "card0", .row = 2}, .align = Align::Right, .style = Style::Quiet},
          {.name = "Card",   .index = 1, .kind = Kind::Label, .label = "This Month's Sales",    .at = {.group = "card1"}, .style = Style::Quiet},
          {.name = "Figure", .index = 1, .kind = Kind::Label, .at = {.group = "card1", .row = 1}, .align = Align::Right, .money = true, .style = Style::Figure},
          {.name = "Count",  .index = 1, .kind = Kind::Label, .at = {.group = "card1", .row = 2}, .align = Align::Right, .style = Style::Quiet},
          {.name = "Card",   .index = 2, .kind = Kind::Label, .label = "Today's Receipts",      .at = {.group = "card2"}, .style = Style::Quiet},
          {.name = "Figure", .index = 2, .kind = Kind::Label, .at = {.group = "card2", .row = 1}, .align = Align::Right, .money = true, .style = Style::Figure},
          {.name = "Count",  .index = 2, .kind = Kind::Label, .at = {.group = "card2", .row = 2}, .align = Align::Right, .style = Style::Quiet},
          {.name = "Card",   .index = 3, .kind = Kind::Label, .label = "This Month's Receipts", .at = {.group = "card3"}, .style = Style::Quiet},
          {.name = "Figure", .index = 3, .kind = Kind::Label, .at = {.group = "card3", .row = 1}, .align = Align::Right, .money = true, .style = Style::Figure},
          {.name = "Count",  .index = 3, .kind = Kind::Label, .at = {.group = "card3", .row = 2}, .align = Align::Right, .style = Style::Quiet},
          {.name = "Card",   .index = 4, .kind = Kind::Label, .label = "Outstanding",           .at = {.group = "card4"}, .style = Style::Quiet},
          {.name = "Figure", .index = 4, .kind = Kind::Label, .at = {.group = "card4", .row = 1}, .align = Align::Right, .money = true, .style = Style::Figure},
          {.name = "Count",  .index = 4, .kind = Kind::Label, .at = {.group = "card4", .row = 2}, .align = Align::Right, .style = Style::Quiet},

          {.name = "Section", .index = 3, .kind = Kind::Label, .label = "Due Today", .at = {.group = "duehead"}, .style = Style::Section},
          {.name = "DueKey", .kind = Kind::Label, .label = "F5 = First Of Them", .at = {.group = "duehead", .col = 1}, .align = Align::Right, .style = Style::Quiet},
          {.name = "Due", .kind = Kind::Grid, .at = {.group = "due"}, .tab = 1, .enabled = false, .columns = {
              {.title = "Count", .width = px(44), .align = Align::Right},
              {.title = "What",  .width = part(1, 180)},
              {.title = "Fact",  .width = part(1.4), .align = Align::Right}}},

          {.name = "Section", .index = 0, .kind = Kind::Label, .label = "Last Bills", .at = {.group = "billshead"}, .style = Style::Section},
          {.name = "LastBills", .kind = Kind::Grid, .at = {.group = "bills"}, .tab = 2, .columns = {
              {.title = "B.No",        .width = px(86, 56)},
              {.title = "Date",        .width = px(116, 102)},
              {.title = "Party",       .width = part(1, 160)},
              {.title = "City",        .width = px(130, 84)},
              {.title = "Bill Amount", .width = px(140, 104), .align = Align::Right, .money = true}}},
          {.name = "Section", .index = 1, .kind = Kind::Label, .label = "Largest Outstanding", .at = {.group = "debtorshead"}, .style = Style::Section},
          {.name = "Largest", .kind = Kind::Grid, .at = {.group = "debtors"}, .tab = 3, .columns = {
              {.title = "Party",  .width = part(1, 180)},
              {.title = "Oldest", .width = px(92, 76),  .align = Align::Right},
              {.title = "Amount", .width = px(129, 104), .align = Align::Right, .money = true}}},
          {.name = "Section", .index = 2, .kind = Kind::Label, .label = "Keys", .at = {.group = "keyshead"}, .style = Style::Section},
          {.name = "KeyName", .index = 0, .kind = Kind::Label, .label = "Ctrl+G",          .at = {.group = "keys", .row = 0, .col = 0}, .style = Style::Key},
          {.name = "Means",   .index = 0, .kind = Kind::Label, .label = "GST Sales Entry", .at = {.group = "keys", .row = 0, .col = 1}},
          {.name = "KeyName", .index = 1, .kind = Kind::Label, .label = "Ctrl+L",          .at = {.group = "keys", .row = 0, .col = 2}, .style = Style::Key},
          {.name = "Means",   .index = 1, .kind = Kind::Label, .label = "Account Ledgers", .at = {.group = "keys", .row = 0, .col = 3}},
          {.name = "KeyName", .index = 2, .kind = Kind::Label, .label = "Ctrl+M",          .at = {.group = "keys", .row = 1, .col = 0}, .style = Style::Key},
          {.name = "Means",   .index = 2, .kind = Kind::Label, .label = "Account Master",  .at = {.group = "keys", .row = 1, .col = 1}},
          {.name = "KeyName", .index = 3, .kind = Kind::Label, .label = "Ctrl+I",          .at = {.group = "keys", .row = 1, .col = 2}, .style = Style::Key},
          {.name = "Means",   .index = 3, .kind = Kind::Label, .label = "Item Master",     .at = {.group = "keys", .row = 1, .col = 3}},
      },
  };
  return s;
}
// clang-format on

std::string rupees(double amount) { return numText(Round(amount, 0)); }
std::string paise(double amount) { return Format(amount, "0.00"); }

std::string shown(const std::optional<Date>& date) { return date ? formatDate(*date, "dd/MMM/yyyy") : ""; }

std::vector<Cell> cells(const std::vector<std::string>& texts) {
  std::vector<Cell> row;
  for (const std::string& text : texts) row.push_back({.text = text});
  return row;
}

std::string weekday(Date date) {
  constexpr std::array<const char*, 7> names = {english("Sunday"),    english("Monday"),   english("Tuesday"),
                                                english("Wednesday"), english("Thursday"), english("Friday"),
                                                english("Saturday")};
  return words(names[std::chrono::weekday{std::chrono::sys_days{date}}.c_encoding()]);
}

Date firstOfMonth(Date date) { return {date.year(), date.month(), std::chrono::day{1}}; }
Date lastOfMonth(Date date) { return Date{date.year() / date.month() / std::chrono::last}; }

}  // namespace

frmmain::frmmain(Host& h) : Screen(h, ::spec()) {
  menus = menuTree();
  tools = toolBar();
  panels = {"", "", ""};
  timerMs = kTipEvery;
  at("Due").grid.heading = false;
  wire<frmmain>(*this, {
                           {"",          Key::Ctrl('L'),         &frmmain::ledger     },
                           {"",          Key::Ctrl('M'),         &frmmain::accounts   },
                           {"",          Key::Ctrl('I'),         &frmmain::items      },
                           {"",          Key::Ctrl('G'),         &frmmain::sales      },
                           {"",          Key::Ctrl('U'),         &frmmain::purchases  },
                           {"",          Key::Ctrl(KeyCode::F2), &frmmain::period     },
                           {"",          KeyCode::F5,            &frmmain::doWhatIsDue},
                           {"Due",       On::DoubleClick,        &frmmain::doWhatIsDue},
                           {"LastBills", On::DoubleClick,        &frmmain::openBill   },
                           {"LastBills", On::Row,                &frmmain::rowMoved   },
                           {"Largest",   On::DoubleClick,        &frmmain::openLedger },
                           {"Largest",   On::Row,                &frmmain::rowMoved   },
  });
}

void frmmain::opened(const Opening&) { readCompany(); }

// What the shell takes from the company-year that has just been opened.
void frmmain::readCompany() {
  Session& s = session();
  seed();
  passOver(host, [&] { loadCompanyDetails(s); });
}

void frmmain::seed() {
  struct Seed {
    const char* table;
    std::function<void()> add;
  };
  const Seed seeds[] = {
      {"SPSFILE",  [] { EnsureSettings(data(), session()); }},
      {"ACCOUNT",  [] { EnsureAccounts(data()); }           },
      {"GRP",      [] { EnsureGroups(data()); }             },
      {"DISCHTAX", [] { EnsureTaxes(data()); }              },
  };
  for (const Seed& seed : seeds)
    if (CheckTable(seed.table)) passOver(host, seed.add);
}

// The company's name and its period may have been changed meanwhile.
void frmmain::activated() {
  passOver(host, [] { readWhatOthersWrote(); });
  panels[0] = periodPanel(session());
  caption = shellCaption(session());
  // The shell stands whatever its figures do.
  passOver(host, [this] { showGlance(); });
  if (!std::exchange(standing_, true) && at("Due").enabled) focus(at("Due"));
  ShowHint(host, "Press Alt Btn To Activate Menus");
}

void frmmain::showGlance() {
  const Session& s = session();
  Database& db = data();
  const Date today = host.today(), first = firstOfMonth(today), last = lastOfMonth(today);
  shownDay_ = today;

  set(at("Company"), s.mcompname);
  const bool registered = length(s.mgstinno) > 1;
  set(at("Period"), words("Accounting Period {first} to {last}{more}", "first",
                          formatDate(s.mstartdt, "dd/MMM/yyyy"), "last", formatDate(s.menddt, "dd/MMM/yyyy"),
                          "more", registered ? words("  ·  GSTIN {gstin}", "gstin", s.mgstinno) : ""));
  set(at("Today"), formatDate(today, "dd/MMM/yyyy"));
  set(at("Weekday"), weekday(today));

  const auto show = [&](int card, const Figure& figure, const char* one, const char* many) {
    set(at("Figure", card), rupees(figure.amount));
    set(at("Count", card), counted(figure.count, one, many));
  };
  show(0, salesBetween(db, today, today), english("{count} bill"), english("{count} bills"));
  show(1, salesBetween(db, first, last), english("{count} bill"), english("{count} bills"));
  show(2, receiptsBetween(db, today, today), english("{count} receipt"), english("{count} receipts"));
  show(3, receiptsBetween(db, first, last), english("{count} receipt"), english("{count} receipts"));
  const Receivable owed = receivable(db, kDebtorRows, today, s.mstartdt);
  show(4, owed.all, english("{count} party"), english("{count} parties"));

  showDue(postingDue(db), db.engine().heldBy());

  auto bills = std::make_shared<CellRows>();
  bills_ = lastBills(db, kBillRows);
  for (const LastBill& b : bills_)
    bills->rows.push_back(cells({b.number, shown(b.date), b.party, b.city, paise(b.amount)}));
  fill("LastBills", bills);

  auto debtors = std::make_shared<CellRows>();
  debtors_ = owed.largest;
  for (const Debtor& d : debtors_)
    debtors->rows.push_back(
        cells({d.party, counted(d.days, english("{count} day"), english("{count} days")), paise(d.amount)}));
  fill("Largest", debtors);
}

// Only where something is due does its row take the focus.
void frmmain::showDue(int deleted, const std::optional<Other>& waits) {
  othersWait_ = waits.has_value();
  Control& due = at("Due");
  due.enabled = at("DueKey").visible = deleted > 0;
  auto rows = std::make_shared<CellRows>();
  rows->rows.push_back(deleted > 0 ? cells({std::to_string(deleted), words("Posting is due"),
                                            words(deleted == 1 ? english("deleted voucher in the ledger")
                                                               : english("deleted vouchers in the ledger"))})
                                   : cells({"", words("Nothing Is Due Today"), ""}));
  if (waits) rows->rows[0] = cells({"", waits->who, holdFact(*waits)});
  for (Cell& cell : rows->rows[0]) {
    if (deleted > 0 || waits) cell.back = kDueColour;
    cell.bold = &cell == &rows->rows[0][0];
  }
  fill("Due", rows);
}

// The cursor stays where it was as long as there is such a row.
void frmmain::fill(const char* name, std::shared_ptr<CellRows> rows) {
  Control& list = at(name);
  list.grid.source = std::move(rows);
  if (list.grid.current != Grid::kNone)
    list.grid.moveTo(list.grid.current);
  else if (focused() == &list)
    list.grid.moveTo(0);
}

// Rows

void frmmain::focusMoved(Control& control) { ShowHint(host, hintFor(control)); }

void frmmain::rowMoved() { ShowHint(host, hintFor(here())); }

std::string frmmain::hintFor(const Control& grid) const {
  const size_t row = grid.grid.current;
  std::string enter;
  if (grid.family == "Due")
    enter = words("Press Enter For Posting");
  else if (grid.family == "LastBills" && row < bills_.size())
    enter = openingHint({saleKind().code, bills_[row].voucher});
  else if (grid.family == "Largest" && row < debtors_.size())
    enter = words("Press Enter For The Ledger Of {party}", "party", debtors_[row].party);
  const std::string keys = words("Tab = Next List :: Alt = Menus");
  return enter.empty() ? keys : enter + " :: " + keys;
}

void frmmain::doWhatIsDue() {
  if (at("Due").enabled) run("posting");
}

void frmmain::openBill() {
  const size_t row = here().grid.current;
  if (row < bills_.size()) openVoucher(host, *this, {saleKind().code, bills_[row].voucher});
}

void frmmain::openLedger() {
  const size_t row = here().grid.current;
  if (row >= debtors_.size()) return;
  const Command& ledger = *commandByKey("LEDGERS");
  host.open(ledger.screen, {.caller = spec.name, .reportKey = ledger.reportKey, .value = debtors_[row].code});
}

bool frmmain::mayClose() {
  if (!host.ask({.text = english("Are You Sure You Want To Exit"),
                 .title = english("Mirav Confirmation"),
                 .yes = english("&Yes, Exit"),
                 .no = english("&No, Stay")}))
    return false;
  settleAtEnd(host);
  backUpAtExit(host);
  return true;
}

void frmmain::closed() { host.quit(); }

// A shell that stands over midnight shows the new day, and what others have saved or wait for meanwhile.
void frmmain::tick() {
  passOver(host, [this] {
    const bool another = readWhatOthersWrote() || host.today() != shownDay_;
    if (another || data().engine().heldBy().has_value() != othersWait_) showGlance();
  });
  ShowHint(host, "");
}

void frmmain::chosen(const MenuEntry& entry) {
  if (entry.control == "mnuexit")
    host.close(*this);
  else if (entry.control == "mnubackup")
    backUpNow(host);
  else if (entry.control == "mnurestore")
    restore();
  else if (const Command* command = commandOf(entry))
    carryOut(host, *command);
}

void frmmain::toolChosen(const ToolEntry& entry) {
  if (const Command* command = commandOf(entry)) carryOut(host, *command);
}

void frmmain::period() { run("period"); }

void frmmain::restore() {
  if (!restoreNow(host)) return;
  runOpeningRoutines(host);
  readCompany();
  activated();
}

void frmmain::run(const char* key) {
  if (const Command* command = commandByKey(key)) carryOut(host, *command);
}
