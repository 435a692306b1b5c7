#include "frame/menu.h"

#include <algorithm>

#include "base/words.h"
#include "frame/books_check.h"
#include "frame/category_list.h"
#include "frame/company_details.h"
#include "frame/move_books.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "frame/voucher_kinds.h"
#include "store/server_operators.h"

namespace {

bool makesOperators() { return session().cncomp && mayMakeOperators(catalogue()); }

struct TopMenu {
  const char* control;
  const char* caption;
};

bool booksOnServer() { return session().mdbtype == "MYSQL"; }

bool booksInFiles() {
  try {
    return booksOnServer() && !companiesInFiles(catalogue(), session().mapppath).empty();
  } catch (const std::exception& error) {
    logFailure("passed over: files that cannot be read are not moved", error);
    return false;
  }
}

// clang-format off
constexpr TopMenu kTop[] = {
    {"mnumstr",  english("&MASTERS")},
    {"mnutrns",  english("E&NTRY")},
    {"mnulists", english(" &LISTS ")},
    {"mnurpts",  english(" &REPORTS ")},
    {"mnuutils", english(" &UTILITIES ")},
    {"mnuexit",  english("&EXIT")},
};

// The key of a voucher's entry is its kind's entry type.
constexpr Command kCommands[] = {
    {.menu = "mnumstr",  .caption = "&Account Master",              .control = "mnumast",       .index = 1, .key = "account",    .screen = "frmacc",   .tool = "accmstr"},
    {.menu = "mnumstr",  .caption = "&Category Master",             .control = "mnumast",       .index = 3, .key = "category",   .masterKey = "catg", .screen = "frmtaxmast"},
    {.menu = "mnumstr",  .caption = "&Item Master",                 .control = "mnumast",       .index = 4, .key = "item",       .screen = "FRMITEM1", .tool = "itemmstr"},

    {.menu = "mnutrns",  .caption = "GST Sales Entry",              .control = "mnutrans",      .key = "SALE",       .tool = "sales"},
    {.menu = "mnutrns",  .caption = "Quotation",                    .control = "mnutrans",      .key = "QUOTATION",  .tool = "quotbtn"},
    {.menu = "mnutrns",  .caption = "Delivery Challan",             .control = "mnutrans",      .key = "CH",         .tool = "delislip"},
    {.menu = "mnutrns",  .caption = "Receipts",                     .control = "mnutrans",      .key = "RECEIPT"},
    {.menu = "mnutrns",  .caption = "Purchase",                     .control = "mnutrans",      .key = "PURCHASE"},
    {.menu = "mnutrns",  .caption = "Payments",                     .control = "mnutrans",      .key = "PAYMENT"},
    {.menu = "mnutrns",  .caption = "Credit Note",                  .control = "mnutrans",      .key = "SALERET"},
    {.menu = "mnutrns",  .caption = "Debit Note",                   .control = "mnutrans",      .key = "SALEDEB"},
    {.menu = "mnutrns",  .caption = "Purchase Return",              .control = "mnutrans",      .key = "PURCHRET"},
    {.menu = "mnutrns",  .caption = "Journal",                      .control = "mnutrans",      .key = "JOURNAL"},
    {.menu = "mnutrns",  .caption = "Contra",                       .control = "mnutrans",      .key = "CONTRA"},
    {.menu = "mnutrns",  .caption = "Incomes",                      .control = "mnutrans",      .key = "INCOME"},
    {.menu = "mnutrns",  .caption = "Expenses",                     .control = "mnutrans",      .key = "EXPENSE"},

    {.menu = "mnulists", .caption = "Party List Print",             .control = "MNULIST",       .key = "accmastADD",  .reportKey = "accmastADD",  .screen = "frmreport"},
    {.menu = "mnulists", .caption = "Address Card Print",           .control = "MNULIST",       .key = "adcard",      .reportKey = "adcard",      .screen = "dlg1", .tool = "adrscrd"},
    {.menu = "mnulists", .caption = "Category List",                .control = "MNULIST",       .key = "dept",        .reportKey = "dept",        .first = showCategoryList, .screen = "frmreport"},
    {.menu = "mnulists", .caption = "Product List Print",           .control = "MNULIST",       .key = "priclstprn",  .reportKey = "priclstprn",  .screen = "frmreport"},
    {.menu = "mnulists", .caption = "Closing Balance List",         .control = "MNULIST",       .key = "accmastclbl", .reportKey = "accmastclbl", .screen = "frmreport"},
    {.menu = "mnulists", .caption = "Balances By Group And Party",  .control = "MNULIST",       .key = "CLBALGROUP",  .reportKey = "CLBALGROUP",  .screen = "frmreport"},

    {.menu = "mnurpts",  .caption = "GSTR-1 RD Sales Register",     .control = "GSTLIST",       .key = "GSTR1-RD",        .reportKey = "GSTR1-RD",        .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "GSTR-1 URD Sales Register",    .control = "GSTLIST",       .key = "GSTR1-URD",       .reportKey = "GSTR1-URD",       .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Sales Bill Register",          .control = "SALERPT", .index = 0, .key = "SALEBILLSUMMARY", .reportKey = "SALEBILLSUMMARY", .screen = "frmreport", .tool = "salereg"},
    {.menu = "mnurpts",  .caption = "Sale Bill Detailed Register",  .control = "SALERPT", .index = 1, .key = "slblreg",         .reportKey = "slblreg",         .screen = "frmreport", .tool = "saledtlreg"},
    {.menu = "mnurpts",  .caption = "Quotation Register",           .control = "SALERPT", .index = 2, .key = "QUOTREG",         .reportKey = "QUOTREG",         .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Quotation Detail Register",    .control = "SALERPT", .index = 3, .key = "QUOTREGDTL",      .reportKey = "QUOTREGDTL",      .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Quotations By Date",           .control = "SALERPT",       .key = "QUOTASKED",       .reportKey = "QUOTASKED",       .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Quotations By Date With Items", .control = "SALERPT",      .key = "QUOTASKEDDTL",    .reportKey = "QUOTASKEDDTL",    .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Challan Register",             .control = "SALERPT", .index = 4, .key = "CHLNRPT",         .reportKey = "CHLNRPT",         .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Challan Detail Register",      .control = "SALERPT", .index = 5, .key = "CHLNRPTDTL",      .reportKey = "CHLNRPTDTL",      .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Challans By Date",             .control = "SALERPT",       .key = "CHLNASKED",       .reportKey = "CHLNASKED",       .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Challans By Date With Items",  .control = "SALERPT",       .key = "CHLNASKEDDTL",    .reportKey = "CHLNASKEDDTL",    .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Receipt Register",             .control = "SALERPT",       .key = "recipt",          .reportKey = "recipt",          .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Purchase Register",            .control = "SALERPT",       .key = "PURREG",          .reportKey = "PURREG",          .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Credit / Debit Note Register", .control = "SALERPT",       .key = "NOTEREG",         .reportKey = "NOTEREG",         .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Payment Register",             .control = "SALERPT",       .key = "PAYREG",          .reportKey = "PAYREG",          .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Income And Expense Register",  .control = "SALERPT",       .key = "INEXREG",         .reportKey = "INEXREG",         .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Tds Register",                 .control = "SALERPT",       .key = "TDSREG",          .reportKey = "TDSREG",          .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Journal Register",             .control = "SALERPT",       .key = "JVREG",           .reportKey = "JVREG",           .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Day Book",                     .control = "SALERPT",       .key = "DAYBOOK",         .reportKey = "DAYBOOK",         .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Cash Book",                    .control = "SALERPT",       .key = "CASHBOOK",        .reportKey = "CASHBOOK",        .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Bank Book",                    .control = "SALERPT",       .key = "BANKBOOK",        .reportKey = "BANKBOOK",        .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Partty Ledger",                .control = "SALERPT",       .key = "LEDGERS",         .reportKey = "LEDGERS",         .screen = "regdlg1"},
    {.menu = "mnurpts",  .caption = "T-Ledger",                     .control = "SALERPT",       .key = "TLEDGERS",        .reportKey = "TLEDGERS",        .screen = "regdlg1"},
    {.menu = "mnurpts",  .caption = "Outstanding LIst",             .control = "SALERPT",       .key = "ONACRCV",         .reportKey = "ONACRCV",         .screen = "frmreport"},
    {.menu = "mnurpts",  .caption = "Bank Reconciliation",          .control = "SALERPT",       .key = "BRS",             .screen = "FRMBRS"},

    {.menu = "mnuutils", .caption = "Posting",                      .control = "UTIL1", .index = 0,     .key = "posting",  .screen = "FRMPOST"},
    {.menu = "mnuutils", .caption = "Company Details Set",          .control = "UTIL1", .index = 1,     .key = "acc_set",  .screen = "stngs"},
    {.menu = "mnuutils", .caption = "Voucher Format Set",           .control = "UTIL1", .index = 6,     .key = "formats",  .screen = "VSETFRM"},
    {.menu = "mnuutils", .caption = "Number Series",                .control = "mnuseries",             .key = "SERIES",   .screen = "FRMSERIES"},
    {.menu = "mnuutils", .caption = "Settings",                     .control = "mnusettings",           .key = "settings", .screen = "frmsettings"},
    {.menu = "mnuutils", .caption = "Accounting Period",            .control = "mnuperiod",             .key = "period",   .screen = "frmperiod"},
    {.menu = "mnuutils", .caption = "Operators",                    .control = "mnuoperators",          .key = "operators", .screen = "frmoperators", .offered = makesOperators},
    {.menu = "mnuutils", .caption = "Video Training",               .control = "mnuvideotrning",        .key = "training", .link = &Links::videoTraining},
    {.menu = "mnuutils", .caption = "Training Book Pdf",            .control = "mnutrngbkpdf",          .key = "book",     .link = &Links::trainingBook},
    {.menu = "mnuutils", .caption = "Update Software",              .control = "mnupdtsoft",            .key = "software", .link = &Links::softwareUpdate},
    {.menu = "mnuutils", .caption = "Database Check",               .control = "mnupdtstrct",           .key = "struct",   .screen = "struct"},
    {.menu = "mnuutils", .caption = "What Does Not Agree",          .control = "mnubookscheck",         .key = "BOOKSCHECK", .reportKey = kBooksCheck, .screen = "frmreport"},
    {.menu = "mnuutils", .caption = "Error Log",                    .control = "mnulog",                .key = "log",      .first = showLog},
    {.menu = "mnuutils", .caption = "Move to Server",               .control = "mnumove",               .key = "tosrvr",   .screen = "frmmove",  .offered = booksInFiles},
    {.menu = "mnuutils", .caption = "Copy from Server",             .control = "mnucopy",               .key = "fromsrvr", .screen = "frmcopy",  .offered = booksOnServer},
    // The shell's own work, as is the exit.
    {.menu = "mnuutils", .caption = "&Backup",                      .control = "mnubackup"},
    {.menu = "mnuutils", .caption = "&Restore",                     .control = "mnurestore"},

    // Of the tool bar alone.
    {.key = "videos", .link = &Links::videoChannel, .tool = "vidlist1"},
};

struct Tool {
  const char* key;
  const char* caption;
  const char* icon;
};

constexpr Tool kTools[] = {
    {"accmstr",    english("Account"),         "person"},
    {"itemmstr",   english("Item"),            "box"},
    {"sales",      english("Sales"),           "bill"},
    {"quotbtn",    english("Quotation"),       "sheet"},
    {"delislip",   english("Challan"),         "van"},
    {"salereg",    english("Bill Register"),   "table"},
    {"saledtlreg", english("Detail Register"), "lines"},
    {"adrscrd",    english("Address Card"),    "card"},
    {"vidlist1",   english("Videos"),          "play"},
};
// clang-format on

template <class Test>
const Command* findCommand(Test test) {
  const auto* const found = std::ranges::find_if(kCommands, test);
  return found == std::end(kCommands) ? nullptr : found;
}

}  // namespace

std::span<const Command> commands() { return kCommands; }

const Command* commandOf(const MenuEntry& entry) {
  return entry.key.empty() ? nullptr : commandByKey(entry.key);
}

const Command* commandOf(const ToolEntry& tool) {
  return findCommand([&](const Command& c) { return tool.key == c.tool; });
}

const Command* commandByKey(const std::string& key) {
  return findCommand([&](const Command& c) { return key == c.key; });
}

bool leadsSomewhere(const Command& command) {
  if (command.offered && !command.offered()) return false;
  return !command.link || !(links().*command.link).empty();
}

std::vector<MenuEntry> menuTree() {
  std::vector<MenuEntry> tree;
  for (const TopMenu& top : kTop) {
    MenuEntry menu{.caption = top.caption, .control = top.control};
    for (const Command& c : kCommands)
      if (menu.control == c.menu && leadsSomewhere(c))
        menu.entries.push_back({.caption = c.caption, .control = c.control, .index = c.index, .key = c.key});
    tree.push_back(std::move(menu));
  }
  return tree;
}

std::vector<ToolEntry> toolBar() {
  std::vector<ToolEntry> tools;
  for (const Tool& t : kTools)
    if (ToolEntry tool{.key = t.key, .caption = t.caption, .icon = t.icon}; leadsSomewhere(*commandOf(tool)))
      tools.push_back(std::move(tool));
  return tools;
}

std::string screenOf(const Command& command) {
  const VoucherKind* const kind = kindByEntryType(command.key);
  return kind ? kind->screen : command.screen;
}

void carryOut(Host& host, const Command& command) {
  if (session().cndata) passOver(host, [] { readWhatOthersWrote(); });
  if (command.first) command.first(host);
  const VoucherKind* const kind = kindByEntryType(command.key);
  if (const std::string screen = screenOf(command); !screen.empty())
    host.open(screen, {.entryType = kind ? kind->entryType : "",
                       .reportKey = command.reportKey,
                       .masterKey = command.masterKey});
  if (command.link) openTutorial(host, links().*command.link);
}
