#include "fuzz/program.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "formats/designs.h"
#include "frame/session.h"
#include "frame/start.h"
#include "fuzz/scratch.h"
#include "platform/paint.h"
#include "platform/qt/paint_qt.h"
#include "tools/folder/sample_data.h"
#include "workbook/recorder.h"

namespace fs = std::filesystem;

namespace {

constexpr Moment kNow{
    Date{std::chrono::year{2026}, std::chrono::June, std::chrono::day{15}},
    10, 30, 0
};

// Papers that nobody reads.
class BlankPaper : public paint::Canvas {
 public:
  void page(double, double) override {}
  void text(const paint::Text&) override {}
  void line(double, double, double, double, double, paint::Colour, paint::Dash) override {}
  void fill(const paint::Rect&, paint::Colour) override {}
  void picture(const paint::Rect&, std::string_view, const paint::Rect&) override {}
  void finish() override {}
};

class BlankPainter : public paint::Painter {
 public:
  const paint::Metrics& metrics() const override { return metrics_; }
  std::unique_ptr<paint::Canvas> pdf(const std::string&) override { return std::make_unique<BlankPaper>(); }
  std::unique_ptr<paint::Canvas> image(const std::string&, double) override {
    return std::make_unique<BlankPaper>();
  }
  std::unique_ptr<paint::Canvas> printer() override { return std::make_unique<BlankPaper>(); }

 private:
  books::HalfMetrics metrics_;
};

const fs::path& sample() {
  static const fs::path path = [] {
    fs::path folder = scratch() / "sample";
    makeSampleFolder(folder, kNow);
    formats::writeAll(folder / "FORMATS");
    for (const char* name : {"BILLS", "pics"}) fs::create_directories(folder / name);
    return folder;
  }();
  return path;
}

void allow(int ruleset, const fs::path& folder, uint64_t rights) {
  const int file = open(folder.c_str(), O_PATH | O_CLOEXEC);
  if (file < 0) return;
  const landlock_path_beneath_attr rule{.allowed_access = rights, .parent_fd = file};
  syscall(SYS_landlock_add_rule, ruleset, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
  close(file);
}

}  // namespace

// The player's own host asks for it; no Qt here.
std::unique_ptr<paint::Painter> paint::makePainter() { return std::make_unique<BlankPainter>(); }

void confine(int argc, char** argv) {
  constexpr uint64_t kChange =
      LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR | LANDLOCK_ACCESS_FS_REMOVE_FILE |
      LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_SYM |
      LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO | LANDLOCK_ACCESS_FS_REFER;
  sample();
  const landlock_ruleset_attr handled{.handled_access_fs = kChange};
  const int ruleset = static_cast<int>(syscall(SYS_landlock_create_ruleset, &handled, sizeof handled, 0));
  if (ruleset < 0) return;
  allow(ruleset, scratch().parent_path(), kChange);
  allow(ruleset, "/dev/null", LANDLOCK_ACCESS_FS_WRITE_FILE);
  for (int i = 1; i < argc; ++i) {
    std::string_view argument = argv[i];
    constexpr std::string_view kArtifacts = "-artifact_prefix=";
    if (argument.starts_with(kArtifacts)) argument.remove_prefix(kArtifacts.size());
    if (!argument.starts_with('-') && fs::is_directory(argument)) allow(ruleset, argument, kChange);
  }
  prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
  syscall(SYS_landlock_restrict_self, ruleset, 0);
  close(ruleset);
}

const fs::path& freshFolder() {
  static const fs::path folder = scratch() / "folder";
  session() = Session{};
  fs::remove_all(folder);
  fs::create_directories(folder / "BILLS");
  for (const auto& entry : fs::recursive_directory_iterator(sample())) {
    const fs::path to = folder / fs::relative(entry.path(), sample());
    const std::string name = entry.path().filename();
    if (entry.is_directory())
      fs::create_directories(to);
    else if (name == kYearFile || name == "comp.mdb")
      fs::copy_file(entry.path(), to);
    else
      fs::create_hard_link(entry.path(), to);  // the program replaces such a file, it writes into none
  }
  return folder;
}

bool Person::answerTo(const Question& question) {
  said.push_back(question.text);
  return yes_ = !yes_;
}

std::optional<std::string> Person::input(const std::string& prompt, const std::string&, const std::string&) {
  said.push_back(prompt);
  return "7";
}

Moment Person::now() const { return kNow; }

paint::Painter& Person::painter() {
  static BlankPainter blank;
  return blank;
}

void Person::box(const std::string& text, const std::string&) { said.push_back(text); }

void Person::nest(Screen& screen) {
  while (isOpen(screen) && act()) {
  }
  if (isOpen(screen)) key(KeyCode::Esc);
  if (isOpen(screen)) close(screen);
}

// Looks at what a host would draw.
void Person::changed() {
  for (const auto& screen : open())
    for (const auto& control : screen->controls) {
      if (!control->visible || control->kind != Kind::Grid) continue;
      const Grid& grid = control->grid;
      for (size_t row = 0; row < std::min<size_t>(grid.count(), 3); ++row)
        for (size_t column = 0; column < grid.columns.size(); ++column) grid.cell(row, column);
      if (grid.count() > 3) grid.cell(grid.count() - 1, 0);
    }
}

void refuseFaults(const Person& person) {
  for (const std::string& text : person.said)
    for (const char* fault : {"std::", "bad_", "_M_", "basic_string", "stoi", "stod", "has no control",
                              "syntax error", "vector::", "map::at", "optional access"})
      if (text.find(fault) != std::string::npos) {
        std::fprintf(stderr, "a message in the words of the machine: %s\n", text.c_str());
        std::abort();
      }
}
