#include "frame/update_database.h"

#include "base/words.h"
#include "frame/backup_menu.h"
#include "frame/books_check.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "store/dictionary.h"
#include "store/update.h"

namespace {

constexpr int kOne = 1, kMany = 2;  // of the setting

const ScreenSpec& updateTable() {
  // clang-format off
  static const ScreenSpec spec = {
      .name = "struct",
      .caption = "Update Database",
      .window = Window::Dialog,
      .focusColour = 0xFFC0FF,
      .layout = progressLayout(640, 250),
      .controls = {
          {.name = "lblwhat",   .index = 0, .kind = Kind::Label, .label = "Brings Tables, Designs And Keys Of This Company To The Program's Shape", .at = {.group = "what"}, .style = Style::Quiet},
          {.name = "lblwhat",   .index = 1, .kind = Kind::Label, .label = "A Verified Backup Is Made First :: Nobody Else May Have The Company Open", .at = {.group = "what", .row = 1}, .style = Style::Quiet},
          {.name = "Label1",    .kind = Kind::Label,  .at = {.group = "progress", .rows = 2}},
          {.name = "cmdupdate", .kind = Kind::Button, .label = "&Update", .at = {.group = "buttons"}, .tab = 1, .style = Style::Primary, .hint = "Press Enter To Update :: Esc = Close"},
          {.name = "Cmdclose",  .kind = Kind::Button, .label = "&Close",  .at = {.group = "buttons"}, .tab = 2},
      },
  };
  // clang-format on
  return spec;
}

}  // namespace

UpdateDatabase::UpdateDatabase(Host& theHost)
    : ProgressDialog(theHost, updateTable(),
                     {.start = "cmdupdate",
                      .cancel = "Cmdclose",
                      .undone = session().mdbtype == "MYSQL"
                                    ? english("The Update Was Not Ended :: Nothing Is Lost :: Do It Again")
                                    : english("The Update Was Not Done :: The Books Are As They Were")}) {
  wire<UpdateDatabase>(*this, {
                                  {"cmdupdate", On::Click,    &UpdateDatabase::update},
                                  {"Cmdclose",  On::Click,    &UpdateDatabase::close },
                                  {"",          KeyCode::Esc, &UpdateDatabase::close },
  });
}

// What the update drops is gone, so it waits until the backup stands.
void UpdateDatabase::update() {
  if (shapeVersion(data()) > kShapeVersion) {
    host.message(english("These Books Were Made By A Newer Program :: Their Shape Stays As It Is"),
                 kMessageTitle);
    return;
  }
  const auto withoutKey = updateHolding();
  if (!withoutKey) return;
  for (const std::string& table : *withoutKey)
    host.message(words("PRIMARY KEY NOT SET FOR {table}  TABLE", "table", table), kMessageTitle);
  tell("");
  host.message("SUCCESS", kMessageTitle);
  close();
  tellDisagreement(host, data());
}

// None when it was not begun.
std::optional<std::vector<std::string>> UpdateDatabase::updateHolding() {
  HoldBooks held(host, data(), english("Database Check"), HoldBooks::Till::Alone);
  if (!held || !backUpNow(host)) return {};
  const bool oneUnit = wantsOneUnit();
  std::vector<std::string> withoutKey;
  run([&] {
    withoutKey = work(oneUnit, held);
    storeSetting(data(), kOneUnit, oneUnit ? kOne : kMany);
  });
  return withoutKey;
}

// Asked, or told, once: then the settings know it.
bool UpdateDatabase::wantsOneUnit() {
  const int set = settingNumber(data(), kOneUnit);
  const bool several = hasSeveralUnits(data());
  if (set == kMany || (set == kOne && !several)) return set == kOne;
  if (several)
    host.message(english("Items Of These Books Have Several Units\r\n"
                         "So The Table ITEMDTL Has No Key :: Nothing Is Wrong, And No Figure Changes"),
                 kMessageTitle);
  else
    return host.ask(
        {.text = english("Every Item Has One Unit\r\nShall These Books Refuse A Second Unit For An Item ?"),
         .title = kQuestionTitle,
         .yes = english("&Refuse It"),
         .no = english("&Allow It"),
         .loses = true});
  return false;
}

// The tables that have their rows but not the key of the dictionary.
std::vector<std::string> UpdateDatabase::work(bool oneUnit, HoldBooks& held) {
  const Session& s = session();
  const Moment now = host.now();
  const UpdateFacts facts{
      .companyCode = s.mcompid,
      .companyName = s.mcompname,
      .fromYear = s.mfromyr,
      .toYear = s.mtoyr,
      .mobile = s.mmobile,
      .dataname = s.mdataname,
      .repair = {.periodStart = s.mstartdt, .timeOfDay = formatTime(now, "HH:MM")},
      .oneUnit = oneUnit,
  };
  return updateDatabase(data(), facts, [&](std::string_view what) {
    held.goesOn();
    tell(words("Updating {what}", "what", words(what)));
  });
}
