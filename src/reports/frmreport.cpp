#include "reports/frmreport.h"

#include <utility>

#include "base/text.h"
#include "base/words.h"
#include "frame/lookup.h"
#include "frame/session.h"
#include "frame/settings.h"
#include "frame/voucher_opening.h"
#include "reports/report_layout.h"
#include "reports/reports.h"

namespace {

constexpr const char* kConfirm = english("Mirav Confirmation Message");
constexpr size_t kFirstRows = 100;  // more than stand in view
constexpr size_t kAllRows = static_cast<size_t>(-1);

// Empty for a date of the accounting period.
std::string outsideMessage(Date date, Date first, Date last, Date today) {
  if (date >= first && date <= last) return {};
  const auto shown = [](Date day) { return formatDate(day, "dd/MMM/yyyy"); };
  return words(
      "Ener Date Between {first} and {last}\r\nPress : F1 for : {first}\r\nPress : F2 for : {today}\r\nPress "
      ": F3 for : {last}",
      "first", shown(first), "last", shown(last), "today", shown(today));
}

Lookup itemLookup(const std::string& category) {
  Select rows{
      .columns = {{"ITEM.ITEM_CD", 1500}, {"ITEM_NAME", 3600}, {"DEPT_NAME", 3000}, {"ITEMDTL.CL_STK", 1200}},
      .from =
          "(ITEM LEFT JOIN DEPTMENT ON ITEM.DEPT_CD = DEPTMENT.DEPT_CD)"
          " LEFT JOIN ITEMDTL ON ITEM.ITEM_CD = ITEMDTL.ITEM_CD",
      .order = {"ITEM_NAME"  }
  };
  return {.rows = category.empty() ? rows : filtered(rows, "ITEM.DEPT_CD = ?", {category})};
}

// What F1 lists for a field; nothing for one without a list.
std::optional<Lookup> lookupOf(ReportField field, const Report& report, const std::string& category) {
  if (field == kParty)
    return accounts(
        {
            {"ACC_CD",   1000},
            {"ACC_NAME", 5000},
            {"AREA",     1500},
            {"CITY",     1500},
            balanceColumn(1200)
    },
        report.offered);
  if (field == kCity) return valuesOf("ACCOUNT", "AREA", 2500);
  if (field == kState) return valuesOf("ACCOUNT", "CITY", 2500);
  if (field == kItem) return itemLookup(category);
  if (field == kCategory)
    return report.groups ? Lookup{.rows = {.columns = {{"GROUP_CD", 1500}, {"GROUP_NAME", 3000}}, .from = "GRP", .order = {"GROUP_NAME"}}}
                    : Lookup{.rows = {.columns = {{"DEPT_CD", 1500}, {"DEPT_NAME", 3000}}, .from = "DEPTMENT", .order = {"DEPT_NAME"}}};
  return {};
}

}  // namespace

frmreport::frmreport(Host& theHost) : PeriodScreen(theHost, table()) {
  wire<frmreport>(*this, {
                             {"Text1",      KeyCode::F1,     &frmreport::lookup  },
                             {"Text1",      On::Change,      &frmreport::changed },
                             {"MaskEdBox1", On::Change,      &frmreport::changed },
                             {"MaskEdBox1", KeyCode::Enter,  &frmreport::date    },
                             {"MaskEdBox1", KeyCode::F1,     &frmreport::dateF1  },
                             {"MaskEdBox1", KeyCode::F2,     &frmreport::dateF2  },
                             {"MaskEdBox1", KeyCode::F3,     &frmreport::dateF3  },
                             {"MaskEdBox1", KeyCode::F4,     &frmreport::dateF4  },
                             {"MaskEdBox1", KeyCode::Up,     &frmreport::dateUp  },
                             {"MaskEdBox1", KeyCode::Down,   &frmreport::dateDown},
                             {"MaskEdBox1", KeyCode::PgUp,   &frmreport::datePgUp},
                             {"MaskEdBox1", KeyCode::PgDn,   &frmreport::datePgDn},
                             {"cmdshowrpt", On::Click,       &frmreport::show    },
                             {"Grid1",      On::DoubleClick, &frmreport::openRow },
                             {"Grid1",      On::Row,         &frmreport::rowMoved},
                             {"cmdprint",   On::Click,       &frmreport::print   },
                             {"cmdprint",   KeyCode::F2,     &frmreport::preview },
                             {"cmdPrtToXl", On::Click,       &frmreport::excel   },
                             {"cmdPrtToXl", KeyCode::F2,     &frmreport::nextFile},
                             {"Cmdpdf",     On::Click,       &frmreport::pdf     },
                             {"cmdclose",   On::Click,       &frmreport::close   },
                             {"Cmdvideo",   On::Click,       &frmreport::video   },
                             {"",           KeyCode::F9,     &frmreport::picture },
                             {"",           KeyCode::Esc,    &frmreport::escape  },
  });
}

// Opening, coming back and going

void frmreport::opened(const Opening& opening) {
  ChildScreen::opened(opening);
  const Session& s = session();
  key_ = opening.reportKey;
  report_ = reportByKey(key_);
  const Date last = host.today() > s.menddt ? s.menddt : host.today();
  put(fields::kFrom, s.mstartdt);
  put(fields::kTo, last);
  caption = openingCaption();
  offerTutorial(*this, tutorial());
  escMeans = escapes() ? english("Esc = Exit") : english("Alt+C = Close");
  outputs(false);
  if (!report_) return;
  for (const ReportField field : report_->fields) at(field).enabled = true;
  for (const FieldName date : {fields::kFrom, fields::kTo}) at(date).enabled = !report_->undated;
  if (!report_->salesmanLabel.empty()) at(kSalesman).label = report_->salesmanLabel;
  if (!report_->partyLabel.empty()) at(kParty).label = report_->partyLabel;
  if (report_->ofToday) put(fields::kFrom, last);
}

// A report from which a voucher was opened is read anew and stands on that voucher again.
void frmreport::activated() {
  Session& s = session();
  outputs(false);
  const auto place = std::exchange(drilledInto_, std::nullopt);
  if (!place && !s.mreportrefresh) return;
  s.mreportrefresh = false;
  if (!place) answer_.reset();
  build();
  if (!place || !shown_) return;
  at("Grid1").grid.moveTo(shown_->find(*place));
  rowMoved();
}

void frmreport::closed() {
  shown_.reset();
  ChildScreen::closed();
}

std::string frmreport::openingCaption() const {
  if (!report_) return spec.caption;
  return words(report_->caption) + (report_->captionWithGstin ? session().mgstinno : "");
}

bool frmreport::escapes() const { return key_ != kLedgers && !(report_ && report_->ignoresEscape); }

void frmreport::escape() {
  if (escapes() && host.ask({.text = english("Exit"),
                             .title = kConfirm,
                             .yes = english("&Yes, Exit"),
                             .no = english("&No, Stay")}))
    close();
}

// Filters

Go frmreport::lookup() {
  const std::string category = trimmed(kCategory);
  const auto list = report_ ? lookupOf(here().spec->field, *report_, category) : std::nullopt;
  return list ? lookUp(host, *this, here(), *list) : Go::Stay;
}

// Only Enter knows the period; Show takes any date.
Go frmreport::date() {
  const auto typed = checkedDate(here().spec->field);
  if (!typed) return Go::Stay;
  const std::string refusal = outsideMessage(*typed, session().mstartdt, session().menddt, host.today());
  if (!refusal.empty()) {
    host.message(refusal, kMessageTitle);
    return Go::Stay;
  }
  if (isHere(fields::kFrom) && report_ && report_->toDate) put(fields::kTo, report_->toDate(here().text));
  return Go::On;
}

void frmreport::dateF4() { put(fields::kTo, text(fields::kFrom)); }

// The report

void frmreport::show() {
  answer_.reset();
  build();
}

void frmreport::build() {
  const auto period = checkedPeriod();
  if (!period) return;
  clear();
  showPhone();
  if (!report_) {
    host.message("No Report", kMessageTitle);
    return;
  }
  ReportQuery query = queryNow(*period);
  if (asks(ReportQuestion::When::First)) query.yes = answer();
  host.busy(true);
  plan_ = report_->plan(data(), query);
  caption = plan_.caption.empty() ? openingCaption() : plan_.caption;
  if (!plan_.refusal.empty() || !start(asks(ReportQuestion::When::WithRows) ? 1 : kFirstRows)) {
    host.busy(false);
    if (plan_.refusal.empty())
      host.message(plan_.none.empty() ? english("No Records") : plan_.none);
    else
      host.message(plan_.refusal, kMessageTitle);
    return;
  }
  if (asks(ReportQuestion::When::WithRows)) chooseFill();
  fill();
}

// What stood before is gone whatever comes of the new one.
void frmreport::clear() {
  outputs(false);
  shown_.reset();
  at("Grid1").grid.source.reset();
  at("Grid1").grid.moveTo(0);
  at("Grid1").visible = at("Chart1").visible = false;
  put(fields::kPhone, "");
}

void frmreport::showPhone() {
  const std::string code = trimmed(kParty);
  if (!code.empty()) put(fields::kPhone, data().text("SELECT PHONE1 FROM ACCOUNT WHERE ACC_CD = ?", code));
}

ReportQuery frmreport::queryNow(const Period& period) const {
  const Session& s = session();
  ReportQuery query{.from = period.from,
                    .to = period.to,
                    .periodStart = s.mstartdt,
                    .periodEnd = s.menddt,
                    .gstin = s.mgstinno};
  for (const ReportField field : report_->fields) query.fields[field.text] = trimmed(field);
  return query;
}

bool frmreport::asks(ReportQuestion::When when) const {
  return report_->question && report_->question->when == when;
}

// A report that is read anew is read as it was.
bool frmreport::answer() {
  if (!answer_) answer_ = askUnlessSet(host, report_->question->setting, report_->question->asked);
  return *answer_;
}

// False when there are no rows.
bool frmreport::start(size_t rows) {
  const Session& s = session();
  shown_ = std::make_shared<ReportRows>(
      data(), plan_,
      ReportRows::Colours{.total = static_cast<Bgr>(s.mcolor2), .detail = static_cast<Bgr>(s.mcolor6)});
  shown_->read(rows);
  if (shown_->count() == 0) shown_.reset();
  return shown_ != nullptr;
}

// While the question stands, no statement is under way that keeps others from writing.
void frmreport::chooseFill() {
  shown_.reset();
  host.busy(false);
  if (!answer()) plan_.details.reset();
  host.busy(true);
  start(kFirstRows);
}

// The first rows show at once, the rest when they have been read.
void frmreport::fill() {
  if (!shown_) return;
  Control& grid = at("Grid1");
  grid.grid.columns = layoutOf(*shown_).columns;
  grid.grid.source = shown_;
  grid.grid.moveTo(0);
  grid.visible = true;
  try {
    if (shown_->read(0)) host.refresh();
    shown_->read(kAllRows);
  } catch (...) {
    clear();
    throw;
  }
  const ReportLayout layout = layoutOf(*shown_);
  grid.grid.columns = layout.columns;
  shown_->totalSize = layout.totalSize;
  outputs(true);
  drawPicture();
  host.busy(false);
  focus(grid);
  rowMoved();
}

// Rows

std::optional<VoucherKey> frmreport::currentVoucher() const {
  const auto voucher = shown_ ? shown_->voucher(at("Grid1").grid.current) : std::nullopt;
  return voucher && canOpen(*voucher) ? voucher : std::nullopt;
}

std::string frmreport::hintFor(const Control& control) const {
  if (control.family == "cmdPrtToXl" && report_ && report_->exports.size() > 1)
    return words("Press Enter To View In Excel :: F2 = {file}", "file", words(report_->exports[1]->name));
  if (control.kind != Kind::Grid) return ChildScreen::hintFor(control);
  const auto voucher = currentVoucher();
  const std::string row = voucher ? openingHint(*voucher) : words("Up / Down = Scroll");
  const std::string keys =
      report_ && report_->chart ? english("F9 = Picture") : english("Page Up / Page Down = Page");
  return row + " :: " + words(plan_.note.empty() ? keys : plan_.note) +
         " :: " + words("Alt+D = Pdf :: Alt+C = Close");
}

void frmreport::picture() {
  if (!shown_ || !report_->chart) return;
  pictured_ = !pictured_;
  drawPicture();
}

void frmreport::drawPicture() {
  Control& picture = at("Chart1");
  picture.visible = pictured_;
  if (!pictured_) return;
  picture.chart = report_->chart(data(), *shown_);
  set(picture, chartText(picture.chart));
}

void frmreport::rowMoved() { ShowHint(host, hintFor(at("Grid1"))); }

void frmreport::openRow() {
  const auto voucher = currentVoucher();
  if (!voucher) return;
  drilledInto_ = shown_->place(at("Grid1").grid.current);
  openVoucher(host, *this, *voucher);
}

// Output

void frmreport::exportTo(size_t file) {
  if (report_ && file < report_->exports.size()) handOver(*report_->exports[file]);
}

void frmreport::handOver(const GridTarget& target) {
  const auto period = checkedPeriod();
  if (!period || !shown_ || !standsAsShown()) return;
  const auto between = [&](const char* text, const char* pattern) {
    if (report_->undated) return words("As On {date}", "date", formatDate(host.today(), pattern));
    return words(text, "from", formatDate(period->from, pattern), "to", formatDate(period->to, pattern));
  };
  target.send(host, {.caption = words(caption),
                     .period = target.onPaper ? between(english("FROM {from} TO {to}"), "dd/MM/yyyy")
                                              : between(english("From : {from} To : {to}"), "dd/MMM/yyyy"),
                     .columns = shown_->outputColumns(),
                     .rows = shown_,
                     .key = key_});
}

const std::string& frmreport::tutorial() const {
  return links().*(report_ ? report_->video : &Links::reportVideo);
}
