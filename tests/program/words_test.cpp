#include "base/words.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPaintEngine>
#include <QTextItem>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "base/text.h"
#include "frame/menu.h"
#include "frame/session.h"
#include "frame/start.h"
#include "platform/qt/look.h"
#include "platform/qt/qt_host.h"
#include "program/all_screens.h"
#include "store/templates.h"
#include "support/temp_folder.h"

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

// What a new company shows of its own: its name, dates, and the files of its books.
const std::set<std::string> kOwn{"NEW", "SHOP", "Mirav", "Jan", "Feb", "Mar", "Apr",    "May",      "Jun",
                                 "Jul", "Aug",  "Sep",   "Oct", "Nov", "Dec", "BACKUP", "replaced", "mdb"};
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

// A person who opens everything, says Yes to questions and leaves lookups by Escape.
class Visitor : public QtHost {
 public:
  using QtHost::QtHost;
  std::set<std::string> plain;  // texts drawn in plain letters, with where
  std::set<std::string> data;   // what may be
  std::string folder;           // whose path may be, too

  void look(const std::string& where) {
    settle();
    if (!window()) return;
    TextPaper paper;
    window()->render(&paper);
    for (const QString& text : paper.texts) note(text.toStdString(), where);
    note(window()->windowTitle().toStdString(), where + " title");
    for (const QAction* action : window()->menus().findChildren<QAction*>())
      note(action->text().toStdString(), "menu");
  }
  Moment now() const override { return {parseDate("2026-06-15").value(), 10, 30, 0}; }
  bool online() const override { return true; }
  void openLink(const std::string&) override {}
  void view(const std::string&) override {}

 protected:
  void nest(Screen& screen) override {
    look(screen.spec.name);
    key(KeyCode::Esc);
    if (isOpen(screen)) close(screen);
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

class WordsOfEveryScreen : public testing::Test {
 protected:
  WordsOfEveryScreen() {
    static int count = 1;
    static char name[] = "test", *arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* const app = new QApplication(count, arguments);
    dress(*app);
    const std::string make = "cd '" + folder_.path().string() + "' && SCRIPTS='" +
                             std::filesystem::canonical("../../scripts").string() + "' sh make";
    std::ofstream(folder_ / "make") << kPseudo;
    EXPECT_EQ(std::system(make.c_str()), 0);
    openWords(folder_.path(), "xx");

    makeTemplates(folder_.path());
    copyDatabase(folder_ / "SMPL.MDB", folder_ / "M00126.mdb");
    makeCatalogue(folder_ / "comp.mdb");
    Database catalogue;
    catalogue.open(folder_ / "comp.mdb");
    catalogue.exec(
        "INSERT INTO compny (comp_id, comp_name, fromyr, toyr) VALUES ('M001', 'NEW SHOP', '2026', '2027')");
    catalogue.close();
    host_ = std::make_unique<Visitor>(allScreens());
    host_->windowSize = {1366, 738};
    host_->onBox = [this] {
      host_->look("box");
      host_->realKey(KeyCode::Enter);
    };
  }
  ~WordsOfEveryScreen() override { openWords(folder_ / "none", "xx"); }

  void backToTheShell() {
    for (int i = 0; i < 6 && host_->top()->spec.name != "frmmain"; ++i) {
      host_->closeTop();
      host_->settle();
    }
    ASSERT_EQ(host_->top()->spec.name, "frmmain");
  }

  // The fields by Enter, which looks up or moves on.
  void walk(const std::string& where) {
    Screen* const screen = host_->top();
    host_->look(where);
    for (const auto& c : screen->controls) {
      if (host_->top() != screen) return;
      if (!c->editable() || !c->focusable() || !host_->focusOn(*c)) continue;
      host_->key(KeyCode::Enter);
      host_->look(where + " " + c->fullName());
    }
  }

  TempFolder folder_;
  std::unique_ptr<Visitor> host_;
};

TEST_F(WordsOfEveryScreen, PassTheDoor) {
  ASSERT_TRUE(startUp(*host_, folder_.path()));
  host_->look("FRMCOMP");
  host_->key(KeyCode::Enter);
  for (int i = 0; i < 4; ++i) host_->tick(), host_->look("frmStartup");
  for (const char* statement : kRows)
    for (auto rows = session().cndata->query(statement); rows.next();) host_->data.insert(rows.text(0));
  host_->folder = folder_.path().string();
  for (const MenuEntry& menu : menuTree())
    for (const MenuEntry& entry : menu.entries) {
      const Command* const command = commandOf(entry);
      if (command && command->first) continue;  // writes a workbook
      for (const char* mode : {"", "cmdAdd", "cmdEdit", "cmdDelete"}) {
        host_->menu(entry);
        host_->look(entry.caption);
        if (host_->top()->spec.name == "frmmain") break;
        Control* const button = *mode ? host_->top()->find(mode) : nullptr;
        if (*mode && !(button && host_->click(*button))) {
          backToTheShell();
          break;
        }
        // The fields are the same ones in the other modes.
        const std::string where = entry.key + " " + mode;
        if (*mode && std::string_view(mode) != "cmdAdd")
          host_->look(where);
        else
          walk(where);
        backToTheShell();
      }
    }
  std::ostringstream all;
  for (const std::string& text : host_->plain) all << text << "\n";
  EXPECT_TRUE(host_->plain.empty()) << all.str();
}

}  // namespace
