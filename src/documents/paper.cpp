#include "documents/paper.h"

#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "base/number.h"
#include "base/words.h"
#include "documents/line_settings.h"
#include "frame/routines.h"
#include "frame/session.h"
#include "platform/paint.h"
#include "platform/workbook/draw.h"
#include "platform/workbook/held.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kMissing = english("Format File Is Missing Or Deleted Pl Contact Vendor");
constexpr const char* kOpenElsewhere = english("Excel File Is Already Open\nClose It First");
constexpr size_t kMostWarnings = 5;

// The unfilled copy of the design, made beside its place while nothing that stands has been touched.
class WorkingCopy {
 public:
  explicit WorkingCopy(const Paper& paper)
      : copy_(paper.copy),
        stray_(billsFolder() / copy_.filename()),
        beside_{paper.copy.string() + "~" + std::to_string(getpid())} {
    for (const fs::path& old : {stray_, copy_})
      if (workbook::heldElsewhere(old.string())) throw std::runtime_error(kOpenElsewhere);
    fs::create_directories(copy_.parent_path());
    fs::copy_file(paper.design, beside_.file, fs::copy_options::overwrite_existing);
  }

  // Takes its place, unless the filled one has.
  void settle(bool filled) const {
    if (!filled) fs::rename(beside_.file, copy_);
    if (stray_ != copy_) fs::remove(stray_);
  }

 private:
  // Goes, unless it has been given its name.
  struct Unfinished {
    fs::path file;
    ~Unfinished() {
      std::error_code ignored;
      fs::remove(file, ignored);
    }
  };
  fs::path copy_, stray_;
  Unfinished beside_;
};

void hideUnused(workbook::Sheet& sheet, const Paper& paper, int lines) {
  if (paper.family.empty()) return;
  const PageModel model = LoadLineSettings(data(), paper.family, paper.number);
  const RowRange rows = rowsToHide(model, lines, paper.kept);
  if (rows.any()) sheet.hideRows(rows.first, rows.last);
  sheet.resetPageBreaks();
}

void draw(Host& host, workbook::Workbook& book, const Paper& paper, std::unique_ptr<paint::Canvas> canvas) {
  workbook::draw(book, paper.sheet, *canvas, host.painter().metrics());
  canvas->finish();
}

// Where the filled workbook goes. What stands from before goes once the new paper is made: without a
// printer, or on a full disk, it is all that there is.
void put(Host& host, workbook::Workbook& book, const Paper& paper, const WorkingCopy& copy) {
  const std::string mode = session().mprnmode;
  const bool pdf = mode == "PDF";
  if (pdf) fs::create_directories(paper.pdf.parent_path());
  if (pdf)
    draw(host, book, paper, host.painter().pdf(paper.pdf.string()));
  else if (mode == "PRN")
    draw(host, book, paper, host.painter().printer());
  else
    book.save(paper.copy.string());
  copy.settle(mode.empty());
  if (!pdf) fs::remove(paper.pdf);
  if (mode != "PRN") host.view((pdf ? paper.pdf : paper.copy).string());
}

// What the machine's clock says, as a cell holds it.
double serial(const Moment& now) {
  const double day = *workbook::Value::date(now.date).number();
  return day + (now.hour * 3600 + now.minute * 60 + now.second) / 86400.0;
}

// Who prints all day with a design does not want to hear of it with every paper.
void tellWarnings(Host& host, const fs::path& design, const std::vector<std::string>& warnings) {
  static std::string told;
  std::string text;
  if (!warnings.empty())
    text = words("The print design {file} could not be used whole:", "file", design.filename().string());
  for (size_t i = 0; i < std::min(warnings.size(), kMostWarnings); ++i) text += "\n" + warnings[i];
  if (warnings.size() > kMostWarnings) text += "\n...";
  if (!text.empty() && text != told) host.message(text, kMessageTitle);
  told = text;
}

// A copy that may not be replaced where its folder may be written to is in another program's hands.
std::string said(const fs::filesystem_error& error) {
  const fs::path& path = error.path2().empty() ? error.path1() : error.path2();
  const bool writable = access(path.parent_path().c_str(), W_OK) == 0;
  if (error.code() == std::errc::permission_denied && writable) return kOpenElsewhere;
  return words("{file} cannot be written: {reason}.", "file", path.string(), "reason",
               error.code().message());
}

}  // namespace

fs::path formatsFolder() { return fs::path(session().mapppath) / "FORMATS"; }

fs::path billsFolder() { return fs::path(session().mapppath) / "BILLS"; }

Paper voucherPaper(const VoucherKind& kind, double voucher, int design) {
  const auto& paper = kind.paper;
  return {
      .design = formatsFolder() / (paper.design + numText(design) + ".xlsx"),
      .copy = billsFolder() / (paper.design + ".xlsx"),
      .pdf = billsFolder() / (paper.stem + numText(voucher) + ".pdf"),
      .sheet = paper.sheet,
      .family = paper.family,
      .number = design,
  };
}

void makePaper(Host& host, const Paper& paper, const FilledSheet& filled) {
  if (session().mexcelkill) EndProcess(host, "excel.exe");
  if (!fs::exists(paper.design)) throw std::runtime_error(kMissing);
  const WorkingCopy copy(paper);
  auto book = workbook::Workbook::load(paper.design.string());
  book.setNow(serial(host.now()));
  filled.cells.fill(book.sheet(paper.dataSheet));
  hideUnused(book.sheet(paper.sheet), paper, filled.lines);
  book.recalculate();
  session().mpdfpath = paper.pdf.string();
  put(host, book, paper, copy);
  tellWarnings(host, paper.design, book.warnings());
}

void tellFailures(Host& host, const std::function<void()>& making) {
  const std::string failure = failureOf(host, [&] {
    try {
      making();
    } catch (const fs::filesystem_error& error) {
      throw std::runtime_error(said(error));
    }
  });
  if (!failure.empty()) host.message(failure, kMessageTitle);
}
