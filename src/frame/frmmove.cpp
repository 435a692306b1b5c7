#include "frame/frmmove.h"

#include "base/number.h"
#include "base/text.h"
#include "base/words.h"
#include "frame/backup.h"
#include "frame/routines.h"
#include "frame/session.h"

namespace {

constexpr const char* kTitle = english("Mirav Information");

Layout moveLayout() {
  Layout layout = progressLayout(760, 420);
  layout.bands.insert(layout.bands.begin() + 1, {part(1), {{.name = "list", .frame = Frame::Plain}}});
  layout.bands[2].height = px(72);
  return layout;
}

// clang-format off
const ScreenSpec& moveTable() {
  static const ScreenSpec s{
      .name = "frmmove",
      .caption = "Move to Server",
      .window = Window::Dialog,
      .focusColour = 0xFFC0FF,
      .layout = moveLayout(),
      .controls = {
          {.name = "lblwhat",  .index = 0, .kind = Kind::Label, .label = "These Companies Stand In Files Of This Folder :: Move Them To The Server ?", .at = {.group = "what"}, .style = Style::Section},
          {.name = "lblwhat",  .index = 1, .kind = Kind::Label, .label = "Every Table Is Compared With The File :: The Files Are Kept, As M00126_moved.mdb", .at = {.group = "what", .row = 1}, .style = Style::Quiet},
          {.name = "lst",      .kind = Kind::Grid, .at = {.group = "list"}, .tab = 1, .hint = "Enter = Move This Company :: Esc = Not Now", .columns = {
              {.title = "Code",         .width = twips(1000)},
              {.title = "Company Name", .width = twips(5000)},
              {.title = "Years",        .width = twips(2500)}}},
          {.name = "Label1",   .kind = Kind::Label,  .at = {.group = "progress", .rows = 2}},
          {.name = "cmdmove",  .kind = Kind::Button, .label = "&Move Them", .at = {.group = "buttons"}, .tab = 2, .style = Style::Primary, .hint = "Press Enter To Move All Of Them :: Esc = Not Now"},
          {.name = "cmdclose", .kind = Kind::Button, .label = "&Not Now",   .at = {.group = "buttons"}, .tab = 3},
      },
  };
  return s;
}

const ScreenSpec& copyTable() {
  static const ScreenSpec s{
      .name = "frmcopy",
      .caption = "Copy from Server",
      .window = Window::Dialog,
      .focusColour = 0xFFC0FF,
      .layout = progressLayout(640, 250),
      .controls = {
          {.name = "lblwhat",  .index = 0, .kind = Kind::Label, .label = "Copies All Years Of This Company Into Files, Which Open Without The Server", .at = {.group = "what"}, .style = Style::Quiet},
          {.name = "lblwhat",  .index = 1, .kind = Kind::Label, .label = "Every Table Is Compared With The Server :: The Books Stay There", .at = {.group = "what", .row = 1}, .style = Style::Quiet},
          {.name = "Label1",   .kind = Kind::Label,  .at = {.group = "progress", .rows = 2}},
          {.name = "cmdcopy",  .kind = Kind::Button, .label = "C&opy",  .at = {.group = "buttons"}, .tab = 1, .style = Style::Primary, .hint = "Press Enter To Copy :: Esc = Close"},
          {.name = "cmdclose", .kind = Kind::Button, .label = "&Close", .at = {.group = "buttons"}, .tab = 2},
      },
  };
  return s;
}
// clang-format on

std::string progressText(const std::string& table, double rows) {
  return words("{table} :: {count} Rows", "table", table, "count", numText(rows));
}

}  // namespace

frmmove::frmmove(Host& h)
    : ProgressDialog(h, moveTable(),
                     {.start = "cmdmove",
                      .cancel = "cmdclose",
                      .undone = english("What Is Listed Was Not Moved :: Its Files Are As They Were")}) {
  escMeans = english("Esc = Not Now");
  wire<frmmove>(*this, {
                           {"cmdmove",  On::Click,       &frmmove::moveAll},
                           {"lst",      KeyCode::Enter,  &frmmove::moveRow},
                           {"lst",      On::DoubleClick, &frmmove::moveRow},
                           {"cmdclose", On::Click,       &frmmove::close  },
                           {"",         KeyCode::Esc,    &frmmove::close  },
  });
}

void frmmove::opened(const Opening& opening) {
  ProgressDialog::opened(opening);
  fill();
}

void frmmove::fill() {
  companies_ = companiesInFiles(catalogue(), session().mapppath);
  auto cells = std::make_shared<CellRows>();
  for (const FileCompany& company : companies_) {
    std::vector<std::string> years;
    for (const CompanyYear& year : company.years) years.push_back(year.from + "-" + right(year.to, 2));
    cells->rows.push_back({{.text = company.code}, {.text = company.name}, {.text = join(years, ", ")}});
  }
  Grid& grid = at("lst").grid;
  grid.source = cells;
  grid.moveTo(0);
}

void frmmove::moveAll() { move(companies_); }

void frmmove::moveRow() {
  const size_t row = at("lst").grid.current;
  if (row < companies_.size()) move({companies_[row]});
}

void frmmove::move(const std::vector<FileCompany>& companies) {
  if (companies.empty()) return close();
  std::vector<std::string> kept, withoutKey;
  try {
    run([&] {
      for (const FileCompany& company : companies) {
        const Moved moved =
            moveToServer(catalogue(), session().mapppath, company,
                         [&](const std::string& table, double rows) { tell(progressText(table, rows)); });
        kept.insert(kept.end(), moved.kept.begin(), moved.kept.end());
        withoutKey.insert(withoutKey.end(), moved.withoutKey.begin(), moved.withoutKey.end());
      }
    });
  } catch (...) {
    fill();  // some may have gone before
    throw;
  }
  for (const std::string& table : withoutKey)
    host.message(words("PRIMARY KEY NOT SET FOR {table}  TABLE", "table", table), kMessageTitle);
  host.message(words("Moved To The Server\r\nThe Files Are Kept As {files}", "files", join(kept, ", ")),
               kTitle);
  close();
}

frmcopy::frmcopy(Host& h)
    : ProgressDialog(h, copyTable(),
                     {.start = "cmdcopy", .cancel = "cmdclose", .undone = english("It Was Not Copied")}) {
  wire<frmcopy>(*this, {
                           {"cmdcopy",  On::Click,    &frmcopy::copy },
                           {"cmdclose", On::Click,    &frmcopy::close},
                           {"",         KeyCode::Esc, &frmcopy::close},
  });
}

void frmcopy::copy() {
  const Session& s = session();
  const auto typed =
      host.input("Type The Folder For The Files", kTitle, "FILES_" + s.mcompid + "_" + MakeStamp(host));
  if (!typed || trim(*typed).empty()) return;
  const auto into = backupFolder(*typed, s.mapppath);
  run([&] {
    copyFromServer(catalogue(), s.mcompid, into,
                   [&](const std::string& table, double rows) { tell(progressText(table, rows)); });
  });
  host.message(words("Copied From The Server\r\n{folder}", "folder", into.string()), kTitle);
  close();
}
