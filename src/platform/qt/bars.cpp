#include "platform/qt/bars.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "base/words.h"
#include "platform/qt/icons.h"
#include "platform/qt/palette.h"

namespace {

constexpr double kToolInset = 13, kToolIcon = 20, kToolText = 7;

class ToolButton : public QAbstractButton {
 public:
  ToolButton(const ToolEntry& tool, const Look*& look, QWidget* parent)
      : QAbstractButton(parent), icon_(tool.icon), look_(look) {
    setText(QString::fromStdString(layout::plainCaption(words(tool.caption))));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    if (!look_) return;
    QPainter painter(this);
    if (isEnabled() && (isDown() || underMouse()))
      painter.fillRect(rect().adjusted(2, 4, -2, -4), QColor(isDown() ? palette::kGridSeen : palette::kIdle));
    const int side = look_->px(kToolIcon), left = look_->px(kToolInset);
    const QColor line(isEnabled() ? palette::kAccent : palette::kOffIcon);
    icons::draw(painter, icon_, QRectF(left, (height() - side) / 2.0, side, side), line);
    painter.setPen(QColor(isEnabled() ? palette::kInk : palette::kOffText));
    painter.setFont(look_->font(Look::Face::Plain));
    draw::line(painter, rect().adjusted(left + side + look_->px(kToolText), 0, 0, 0), text(), Qt::AlignLeft);
  }

 private:
  std::string icon_;
  const Look*& look_;
};

constexpr size_t kMany = 20;  // entries of a menu that stand closer together, so that a screen holds them

bool opens(const QAction& action, char32_t letter) {
  const QString caption = action.text();
  const qsizetype mark = caption.indexOf('&');
  return action.isEnabled() && mark >= 0 && mark + 1 < caption.size() &&
         caption.at(mark + 1).toUpper().unicode() == letter;
}

QAction* firstOf(const QList<QAction*>& actions) {
  const auto first =
      std::ranges::find_if(actions, [](const QAction* a) { return a->isEnabled() && !a->isSeparator(); });
  return first == actions.end() ? nullptr : *first;
}

}  // namespace

// Menus

MenuBar::MenuBar(std::function<void(const std::vector<size_t>&)> chosen, QWidget* parent)
    : QMenuBar(parent), chosen_(std::move(chosen)) {
  setNativeMenuBar(false);
}

void MenuBar::dressFor(const Look& look) {
  setFont(look.font(Look::Face::Plain));
  setStyleSheet(menuSheet(look));
  for (QMenu* menu : findChildren<QMenu*>()) menu->setFont(look.font(Look::Face::Plain));
}

bool MenuBar::fits(const std::vector<MenuEntry>& a, const std::vector<MenuEntry>& b) const {
  return std::ranges::equal(a, b, [this](const MenuEntry& x, const MenuEntry& y) {
    return x.caption == y.caption && x.control == y.control && fits(x.entries, y.entries);
  });
}

void MenuBar::build(QWidget& owner, QMenu* menu, const std::vector<MenuEntry>& entries,
                    std::vector<size_t> path) {
  for (size_t i = 0; i < entries.size(); ++i) {
    const MenuEntry& entry = entries[i];
    const QString caption = QString::fromStdString(words(entry.caption));
    path.push_back(i);
    if (entry.caption == "-") {
      owner.addAction(new QAction(&owner));
      owner.actions().last()->setSeparator(true);
    } else if (entry.entries.empty()) {
      auto* action = new QAction(caption, &owner);
      // When the menu has closed: what is chosen may open a box that nests.
      QObject::connect(
          action, &QAction::triggered, this, [this, path] { chosen_(path); }, Qt::QueuedConnection);
      owner.addAction(action);
    } else {
      QMenu* inner = menu ? menu->addMenu(caption) : addMenu(caption);
      inner->setFont(font());
      inner->setProperty("crowded", entry.entries.size() > kMany);
      build(*inner, inner, entry.entries, path);
    }
    path.pop_back();
  }
}

void MenuBar::enable(const QList<QAction*>& actions, const std::vector<MenuEntry>& entries) {
  for (size_t i = 0; i < entries.size() && static_cast<qsizetype>(i) < actions.size(); ++i) {
    QAction* action = actions[static_cast<qsizetype>(i)];
    if (action->isEnabled() != entries[i].enabled) action->setEnabled(entries[i].enabled);
    if (action->menu()) enable(action->menu()->actions(), entries[i].entries);
  }
}

void MenuBar::sync(const std::vector<MenuEntry>& menus) {
  if (!fits(menus, shown_)) {
    clear();
    build(*this, nullptr, menus, {});
    shown_ = menus;
  }
  enable(actions(), menus);
}

bool MenuBar::openByLetter(char32_t letter) {
  for (QAction* action : actions()) {
    if (!opens(*action, letter)) continue;
    if (action->menu())
      drop(*action);
    else
      action->trigger();
    return true;
  }
  return false;
}

void MenuBar::activate() {
  if (QAction* first = firstOf(actions())) drop(*first);
}

// Opens a menu with the cursor on its first entry.
void MenuBar::drop(QAction& action) {
  setActiveAction(&action);
  if (!action.menu()) return;
  if (QAction* first = firstOf(action.menu()->actions())) action.menu()->setActiveAction(first);
}

// Tools

ToolBar::ToolBar(std::function<void(size_t)> chosen, QWidget* parent)
    : QWidget(parent), chosen_(std::move(chosen)) {}

void ToolBar::sync(const std::vector<ToolEntry>& tools, const Look& look) {
  const bool same = std::ranges::equal(tools, shown_, [](const ToolEntry& a, const ToolEntry& b) {
    return a.key == b.key && a.caption == b.caption && a.icon == b.icon;
  });
  if (!same) {
    qDeleteAll(buttons_);
    buttons_.clear();
    for (size_t i = 0; i < tools.size(); ++i) {
      buttons_.push_back(new ToolButton(tools[i], look_, this));
      QObject::connect(
          buttons_.back(), &QAbstractButton::clicked, this, [this, i] { chosen_(i); }, Qt::QueuedConnection);
      buttons_.back()->show();
    }
  }
  for (size_t i = 0; i < tools.size(); ++i)
    if (buttons_[i]->isEnabled() != tools[i].enabled) buttons_[i]->setEnabled(tools[i].enabled);
  if (!same || look_ != &look) {
    look_ = &look;
    placeButtons();
    update();
  }
  shown_ = tools;
}

void ToolBar::placeButtons() {
  if (!look_) return;
  int x = look_->px(2);
  for (QAbstractButton* button : buttons_) {
    const int text = look_->metrics(Look::Face::Plain).horizontalAdvance(button->text());
    const int width = look_->px(2 * kToolInset + kToolIcon + kToolText) + text;
    button->setGeometry(x, 0, width, height() - 1);
    x += width;
  }
}

void ToolBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(palette::kPanel));
  painter.fillRect(QRect(0, height() - 1, width(), 1), QColor(palette::kPanelLine));
}

// Status

void StatusBar::sync(const std::vector<std::string>& panels, const std::string& hint, const Look& look) {
  if (panels == panels_ && hint == hint_ && look_ == &look) return;
  panels_ = panels;
  hint_ = hint;
  look_ = &look;
  update();
}

void StatusBar::paintEvent(QPaintEvent*) {
  if (!look_) return;
  QPainter painter(this);
  painter.fillRect(rect(), QColor(palette::kMenu));
  painter.fillRect(QRect(0, 0, width(), 1), QColor(palette::kPanelLine));
  const int inset = look_->px(12);
  const QFontMetrics& plain = look_->metrics(Look::Face::Plain);
  QRect room = rect().adjusted(inset, 2, -inset, 0);
  painter.setFont(look_->font(Look::Face::Plain));
  painter.setPen(QColor(palette::kInk));
  const auto line = [&](int x) {
    painter.fillRect(QRect(x, look_->px(4), 1, height() - look_->px(8)), QColor(palette::kBarLine));
  };
  if (panels_.size() > 2 && !panels_[2].empty()) {
    const QString text = QString::fromStdString(words(panels_[2]));
    draw::line(painter, room, text, Qt::AlignRight);
    room.setRight(room.right() - plain.horizontalAdvance(text) - inset);
    line(room.right());
    room.setRight(room.right() - inset);
  }
  if (!panels_.empty() && !panels_[0].empty()) {
    // On a small window the hint is worth more than the whole of the company's name.
    const int most = look_->small() ? width() / 5 : room.width();
    const QString text = plain.elidedText(QString::fromStdString(words(panels_[0])), Qt::ElideRight, most);
    draw::line(painter, room, text, Qt::AlignLeft);
    room.setLeft(room.left() + plain.horizontalAdvance(text) + inset);
    line(room.left());
    room.setLeft(room.left() + inset + 1);
  }
  painter.setFont(look_->font(Look::Face::Strong));
  painter.setPen(QColor(palette::kAccent));
  QString hint = QString::fromStdString(hint_);
  hint.replace("  ::  ", " :: ").replace(" :: ", "  ::  ");  // its parts stand apart however they were joined
  draw::line(painter, room, hint, Qt::AlignLeft);
}
