#include "base/words.h"

#include <QPaintEngine>
#include <QTextItem>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "base/text.h"
#include "frame/session.h"
#include "program/every_screen.h"

// Every screen drawn by the program's own window in a pseudo-language: each text of the template
// stands there in wide letters (Ｓａｌｅ), so that a plain letter on the screen is data, or a text that
// passed no door, or one that the template lacks.

namespace {

const char* const kPseudo = R"sh(
set -e
"$SCRIPTS/words" "$PWD/xx.pot" 2>/dev/null || true
msgen --no-wrap -o xx.po xx.pot
perl -CSD -pi -e 'if (/^msgstr/ .. /^$/) {
    s/(^msgstr |\{\w+\}|\\.)|([A-Za-z])/defined $1 ? $1 : chr(ord($2) + 0xFEE0)/ge unless /Content-Type|^"[\w-]+: /;
  }' xx.po
mkdir -p locale/xx/LC_MESSAGES
msgfmt -o locale/xx/LC_MESSAGES/mirav.mo xx.po
)sh";

// What a new company shows of its own: its name, dates, and the files of its books; the sign that is typed
// for the year in a number series.
const std::set<std::string> kOwn{"NEW", "SHOP",   "Mirav",    "Jan", "Feb", "Mar", "Apr",
                                 "May", "Jun",    "Jul",      "Aug", "Sep", "Oct", "Nov",
                                 "Dec", "BACKUP", "replaced", "mdb", "yy"};
// Beside its rows.
constexpr const char* kRows[] = {"SELECT ACC_NAME FROM ACCOUNT", "SELECT GROUP_NAME FROM GRP",
                                 "SELECT DEPT_NAME FROM DEPTMENT", "SELECT SIZE_CD FROM ITEMDTL"};

// Keeps the texts that are drawn on it.
class TextEngine : public QPaintEngine {
 public:
  explicit TextEngine(QStringList& texts) : QPaintEngine(AllFeatures), texts_(texts) {}
  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPath(const QPainterPath&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawTextItem(const QPointF&, const QTextItem& item) override { texts_ << item.text(); }
  Type type() const override { return User; }

 private:
  QStringList& texts_;
};

class TextPaper : public QPaintDevice {
 public:
  QStringList texts;
  QPaintEngine* paintEngine() const override { return &engine_; }

 protected:
  int metric(PaintDeviceMetric metric) const override {
    if (metric == PdmWidth) return 1366;
    if (metric == PdmHeight) return 768;
    if (metric == PdmDepth) return 32;
    if (metric == PdmDevicePixelRatio) return 1;
    if (metric == PdmDevicePixelRatioScaled) return static_cast<int>(devicePixelRatioFScale());
    return 96;
  }

 private:
  mutable TextEngine engine_{texts};
};

class Reader : public Tourist {
 public:
  using Tourist::Tourist;
  std::set<std::string> plain;  // texts drawn in plain letters, with where
  std::set<std::string> data;   // what may be
  std::string folder;           // whose path may be, too

  void look(const std::string& where) override {
    settle();
    if (!window()) return;
    TextPaper paper;
    window()->render(&paper);
    for (const QString& text : paper.texts) note(text.toStdString(), where);
    note(window()->windowTitle().toStdString(), where + " title");
    for (const QAction* action : window()->menus().findChildren<QAction*>())
      note(action->text().toStdString(), "menu");
  }

 private:
  void note(const std::string& drawn, const std::string& where) {
    if (data.contains(drawn)) return;
    const std::string text = replaceAll(drawn, folder, "");
    std::string letters;
    for (const char c : text + ".") {
      if (std::isalpha(static_cast<unsigned char>(c))) {
        letters += c;
        continue;
      }
      if (letters.size() > 1 && !kOwn.contains(letters) && seen_.insert(text).second)
        plain.insert(where + ": " + text);
      letters.clear();
    }
  }

  std::set<std::string> seen_;
};

class WordsOfEveryScreen : public EveryScreen<Reader> {
 protected:
  WordsOfEveryScreen() {
    const std::string make = "cd '" + folder_.path().string() + "' && SCRIPTS='" +
                             std::filesystem::canonical("../../scripts").string() + "' sh make";
    std::ofstream(folder_ / "make") << kPseudo;
    EXPECT_EQ(std::system(make.c_str()), 0);
    openWords(folder_.path(), "xx");
  }
  ~WordsOfEveryScreen() override { openWords(folder_ / "none", "xx"); }
};

TEST_F(WordsOfEveryScreen, PassTheDoor) {
  start(1366, 738, [this] {
    for (const char* statement : kRows)
      for (auto rows = session().cndata->query(statement); rows.next();) host_->data.insert(rows.text(0));
    host_->folder = folder_.path().string();
  });
  tour();
  std::ostringstream all;
  for (const std::string& text : host_->plain) all << text << "\n";
  EXPECT_TRUE(host_->plain.empty()) << all.str();
}

}  // namespace
