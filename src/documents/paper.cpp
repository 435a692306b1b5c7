#include "documents/paper.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>
#include <vector>

#include "frame/session.h"
#include "platform/paint.h"
#include "platform/workbook/draw.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kMissing = "Format File Is Missing Or Deleted Pl Contact Vendor";
constexpr const char* kOpenElsewhere = "Excel File Is Already Open\nClose It First";
constexpr size_t kMostWarnings = 5;

// The unfilled copy of the design.
void copyDesign(const Paper& paper) {
  fs::remove(billsFolder() / paper.copy.filename());
  fs::copy_file(paper.design, paper.copy, fs::copy_options::overwrite_existing);
}

void draw(Host& host, workbook::Workbook& book, const Paper& paper, std::unique_ptr<paint::Canvas> canvas) {
  workbook::draw(book, paper.sheet, *canvas, host.painter().metrics());
  canvas->finish();
}

void makePdf(Host& host, workbook::Workbook& book, const Paper& paper) {
  fs::create_directories(paper.pdf.parent_path());
  fs::remove(paper.pdf);
  draw(host, book, paper, host.painter().pdf(paper.pdf.string()));
  host.view(paper.pdf.string());
}

// What the machine's clock says, as a cell holds it.
double serial(const Moment& now) {
  const double day = *workbook::Value::date(now.date).number();
  return day + (now.hour * 3600 + now.minute * 60 + now.second) / 86400.0;
}

void tellWarnings(Host& host, const std::vector<std::string>& warnings) {
  if (warnings.empty()) return;
  std::string text = "The print design could not be calculated whole:";
  for (size_t i = 0; i < std::min(warnings.size(), kMostWarnings); ++i) text += "\n" + warnings[i];
  if (warnings.size() > kMostWarnings) text += "\n...";
  host.message(text, kMessageTitle);
}

class Busy {
 public:
  explicit Busy(Host& machine) : host(machine) { host.busy(true); }
  ~Busy() { host.busy(false); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  Host& host;
};

}  // namespace

fs::path formatsFolder() { return fs::path(session().mapppath) / "FORMATS"; }

fs::path billsFolder() { return fs::path(session().mapppath) / "BILLS"; }

void makePaper(Host& host, const Paper& paper) {
  if (!fs::exists(paper.design)) throw std::runtime_error(kMissing);
  copyDesign(paper);
  auto book = workbook::Workbook::load(paper.copy.string());
  book.setNow(serial(host.now()));
  paper.fill(book);
  book.recalculate();
  const std::string mode = session().mprnmode;
  if (mode == "PDF") {
    makePdf(host, book, paper);
  } else if (mode == "PRN") {
    draw(host, book, paper, host.painter().printer());
  } else {
    book.save(paper.copy.string());
    host.view(paper.copy.string());
  }
  tellWarnings(host, book.warnings());
}

void tellFailures(Host& host, const std::function<void()>& making) {
  std::string failure;
  try {
    const Busy busy(host);
    making();
  } catch (const fs::filesystem_error& error) {
    failure = error.code() == std::errc::permission_denied ? kOpenElsewhere : error.what();
  } catch (const std::exception& error) {
    failure = error.what();
  }
  if (!failure.empty()) host.message(failure, kMessageTitle);
}
