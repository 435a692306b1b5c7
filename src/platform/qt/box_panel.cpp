#include "platform/qt/box_panel.h"

#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "base/words.h"
#include "platform/edit.h"
#include "platform/host.h"
#include "platform/qt/palette.h"
#include "platform/qt/small_views.h"
#include "platform/shown.h"

namespace {

constexpr double kWidth = 600, kLeastWidth = 470, kHead = 30, kInset = 24;
constexpr double kAbove = 17, kUnderSentence = 8, kPitch = 26, kBetween = 22, kBelow = 16;
constexpr double kButtonWords = 24;  // beside the words on a button
constexpr double kMargin = 24;       // to the edges of the window
constexpr int kTextFlags = static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | Qt::TextWordWrap;

ScreenSpec specOf(const BoxPanel::Words& words) {
  ScreenSpec spec;
  spec.name = "box";
  spec.window = Window::Dialog;
  spec.focusColour = 0xFFC0FF;
  spec.controls.push_back({.name = "field", .tab = 1});
  const auto button = [&](const char* name, const std::string& caption) {
    spec.controls.push_back({.name = name, .kind = ::Kind::Button, .label = caption, .tab = 1});
  };
  if (words.loses) button("no", words.no);
  button("yes", words.yes);
  if (!words.loses && words.kind != BoxPanel::Kind::Message) button("no", words.no);
  return spec;
}

// What lies between a box and the screen behind it.
class Veil : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), QColor::fromRgba(palette::kDim)); }
};

// Lines of text, each wrapped, a pitch apart.
struct Lines {
  const Look& look;
  QFont font;
  int width;

  // Draws them from y on where there is a painter; the height that they take.
  int run(const QString& text, QPainter* painter, int x, int y) const {
    if (text.isEmpty()) return 0;
    const QFontMetrics metrics(font);
    const int lead = std::max(0, look.px(kPitch) - metrics.height());
    int height = 0;
    for (const QString& line : text.split('\n')) {
      const int tall = metrics.boundingRect(QRect(0, 0, width, 1 << 16), kTextFlags, line).height();
      if (painter) painter->setFont(font);
      if (painter) painter->drawText(QRect(x, y + height + lead / 2, width, tall), kTextFlags, line);
      height += std::max(tall, metrics.height()) + lead;
    }
    return height;
  }
};

}  // namespace

class BoxPanel::Holder {
 public:
  Holder(Host& host, const Words& words) : spec_(specOf(words)), screen(host, spec_) {}

 private:
  ScreenSpec spec_;

 public:
  Screen screen;
};

BoxPanel::BoxPanel(Host& host, Words words, const Look& look, std::function<void()> answered, QWidget* parent)
    : QWidget(parent),
      words_(std::move(words)),
      look_(&look),
      answered_(std::move(answered)),
      holder_(std::make_unique<Holder>(host, words_)),
      field_(holder_->screen.at("field")),
      agrees_(&holder_->screen.at("yes")) {
  for (const auto& control : holder_->screen.controls) {
    if (control->kind != ::Kind::Button) continue;
    buttons_.push_back(control.get());
    buttonViews_.push_back(std::make_unique<ButtonView>(holder_->screen, *control, hands(), this));
  }
  if (words_.kind == Kind::Input) {
    Screen::set(field_, words_.initial);
    edit::selectAll(field_);
    fieldView_ = std::make_unique<FieldView>(holder_->screen, field_, hands(), this);
  }
  const QString all = QString::fromStdString(words_.text).remove('\r').trimmed();
  sentence_ = all.section('\n', 0, 0).trimmed();
  lines_ = all.section('\n', 1);
  if (!words_.facts.empty()) lines_ += (lines_.isEmpty() ? "" : "\n") + QString::fromStdString(words_.facts);
  setAccessibleName(QString::fromStdString(words_.title));
  setAccessibleDescription(QString::fromStdString(words_.text));
  arrange();
}

BoxPanel::~BoxPanel() { delete veil_; }

void BoxPanel::restyle(const Look& look, std::optional<int> foot) {
  look_ = &look;
  arrange();
  place(foot);
}

int BoxPanel::inset() const { return look_->px(kInset); }
int BoxPanel::headHeight() const { return look_->px(kHead); }

// As wide as its words ask for, and never higher than the window: the text gives way and scrolls.
void BoxPanel::arrange() {
  const QSize room = parentWidget()->size() - 2 * QSize(look_->px(kMargin), look_->px(kMargin));
  const QFontMetrics& plain = look_->metrics(Look::Face::Plain);
  const QFontMetrics& strong = look_->metrics(Look::Face::Strong);
  int widest = look_->metrics(Look::Face::Head).horizontalAdvance(sentence_);
  for (const QString& line : lines_.split('\n')) widest = std::max(widest, plain.horizontalAdvance(line));
  const int head = strong.horizontalAdvance(QString::fromStdString(words_.title)) +
                   plain.horizontalAdvance(QString::fromStdString(escapeMeans()));
  const bool small = widest + 2 * inset() <= look_->px(kLeastWidth);
  setFixedWidth(
      std::min(std::max(look_->px(small ? kLeastWidth : kWidth), head + 3 * inset()), room.width()));

  const Lines large{*look_, look_->font(Look::Face::Head), width() - 2 * inset()};
  const Lines lines{*look_, look_->font(Look::Face::Plain), large.width};
  const int sentence = large.run(sentence_, nullptr, 0, 0);
  large_ = sentence <= 3 * look_->px(kPitch);
  textHeight_ = (large_ ? sentence : lines.run(sentence_, nullptr, 0, 0)) + lines.run(lines_, nullptr, 0, 0);
  if (!lines_.isEmpty()) textHeight_ += look_->px(kUnderSentence);

  const int top = headHeight() + look_->px(kAbove);
  const int field = fieldView_ ? look_->px(layout::size::kColumnGap) + look_->px(layout::size::kField) : 0;
  const int foot = arrangeButtons(0) + look_->px(kBetween + kBelow);
  shownHeight_ =
      std::clamp(room.height() - top - field - foot, std::min(textHeight_, look_->px(kPitch)), textHeight_);
  int y = top + shownHeight_;
  if (fieldView_) {
    layout::Spot spot;
    spot.box = {inset(), y + look_->px(layout::size::kColumnGap), large.width,
                look_->px(layout::size::kField)};
    fieldView_->place(spot, *look_);
    y += field;
  }
  setFixedHeight(y + look_->px(kBetween) + arrangeButtons(y + look_->px(kBetween)) + look_->px(kBelow));
  scroll(0);
  sync();
}

// From the left, in rows where one is too narrow for them; the height that they take.
int BoxPanel::arrangeButtons(int y) {
  using namespace layout::size;
  const QFontMetrics& metrics = look_->metrics(Look::Face::Strong);
  const int gap = look_->px(kButtonGap), tall = look_->px(kButton), most = width() - 2 * inset();
  int x = 0, height = tall;
  for (size_t i = 0; i < buttons_.size(); ++i) {
    const QString caption = QString::fromStdString(layout::plainCaption(shownText(*buttons_[i])));
    const int own = std::min(most, std::max(look_->px(kButtonWidth), metrics.horizontalAdvance(caption) +
                                                                         2 * look_->px(kButtonWords)));
    if (x > 0 && x + own > most) {
      x = 0;
      height += gap + tall;
    }
    layout::Spot spot;
    spot.box = {inset() + x, y + height - tall, own, tall};
    buttonViews_[i]->place(spot, *look_);
    x += own + gap;
  }
  return height;
}

void BoxPanel::place(std::optional<int> foot) {
  const QRect room = parentWidget()->rect();
  move((room.width() - width()) / 2, std::max(0, (room.height() - height()) / 2));
  if (!foot) return;
  if (!veil_) veil_ = new Veil(parentWidget());
  veil_->setGeometry(0, 0, room.width(), *foot);
}

void BoxPanel::lift() {
  if (veil_) veil_->show(), veil_->raise();
  show();
  raise();
}

void BoxPanel::scroll(int by) {
  scrolled_ = std::clamp(scrolled_ + by, 0, textHeight_ - shownHeight_);
  update();
}

void BoxPanel::wheelEvent(QWheelEvent* event) {
  constexpr int kStep = 120;
  scroll(-event->angleDelta().y() * look_->px(kPitch) / kStep);
}

std::string BoxPanel::escapeMeans() const {
  const std::string what = layout::plainCaption(words_.kind == Kind::Message ? words_.yes : words_.no);
  return ::words("Esc = {answer}", "answer", what);
}

std::string BoxPanel::keys() const {
  const std::string more =
      textHeight_ > shownHeight_ ? ::words("Page Up / Page Down = Scroll") + "  ::  " : "";
  if (words_.kind == Kind::Message)
    return more + ::words("Enter = {answer}", "answer", layout::plainCaption(words_.yes));
  const char* const other = words_.kind == Kind::Input
                                ? english("Enter = Marked Button  ::  Tab = Other Button")
                                : english("Enter = Marked Button  ::  Left / Right = Other Button");
  return more + ::words(other) + "  ::  " + escapeMeans();
}

void BoxPanel::sync() {
  if (fieldView_) fieldView_->sync({.focus = true, .focusColour = holder_->screen.spec.focusColour});
  for (size_t i = 0; i < buttons_.size(); ++i) buttonViews_[i]->sync({.focus = i == chosen_});
}

void BoxPanel::answer(bool yes) {
  if (done_) return;
  done_ = true;
  yes_ = yes;
  answered_();
}

void BoxPanel::key(const Key& key) {
  const bool input = words_.kind == Kind::Input;
  if (key.code == KeyCode::Enter) {
    choose(chosen_);
    return;
  }
  if (key.code == KeyCode::Esc) {
    answer(escapes());
    return;
  }
  if (key.alt && key.code == KeyCode::Char) {
    for (size_t i = 0; i < buttons_.size(); ++i)
      if (isLetterOf(*buttons_[i], key.ch)) choose(i);
    return;
  }
  if (key.code == KeyCode::PgDn || key.code == KeyCode::PgUp) {
    scroll(key.code == KeyCode::PgDn ? shownHeight_ : -shownHeight_);
    return;
  }
  const bool along =
      key.code == KeyCode::Tab || (!input && (key.code == KeyCode::Left || key.code == KeyCode::Right ||
                                              key.code == KeyCode::Up || key.code == KeyCode::Down));
  if (along)
    chosen_ = (chosen_ + 1) % buttons_.size();
  else if (input)
    edit::key(field_, key);
  sync();
}

void BoxPanel::type(const std::string& text) {
  for (const char32_t typed : QString::fromStdString(text).toStdU32String()) {
    if (words_.kind == Kind::Input) {
      if (typed >= U' ') edit::insert(field_, typed);
      continue;
    }
    if (typed == U' ') {
      choose(chosen_);
      return;
    }
    const char32_t upper = typed >= U'a' && typed <= U'z' ? typed - 32 : typed;
    for (size_t i = 0; i < buttons_.size(); ++i)
      if (isLetterOf(*buttons_[i], upper)) {
        choose(i);
        return;
      }
  }
  sync();
}

void BoxPanel::paste(const std::string& text) {
  if (words_.kind != Kind::Input) return;
  edit::paste(field_, text);
  sync();
}

void BoxPanel::committed(const std::string& text) {
  if (text.empty())
    key(KeyCode::Delete);
  else
    type(text);
}

void BoxPanel::pressed(Screen&, Control& button) { answer(&button == agrees_); }

void BoxPanel::pointed(Screen&, Control&, size_t anchor, size_t caret) {
  field_.anchor = anchor;
  field_.caret = caret;
  sync();
}

void BoxPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor line(words_.refuses ? palette::kError : palette::kAccent);
  draw::box(painter, rect(), QColor(palette::kPanel), line, look_->px(layout::size::kDialogFrame), 0);
  const QRect head(0, 0, width(), headHeight());
  painter.fillRect(head, line);
  painter.setPen(QColor(palette::kWhiteText));
  const QRect words = head.adjusted(look_->px(14), 0, -look_->px(14), 0);
  painter.setFont(look_->font(Look::Face::Strong));
  draw::line(painter, words, QString::fromStdString(words_.title), Qt::AlignLeft);
  painter.setFont(look_->font(Look::Face::Plain));
  draw::line(painter, words, QString::fromStdString(escapeMeans()), Qt::AlignRight);

  const QRect area(inset(), headHeight() + look_->px(kAbove), width() - 2 * inset(), shownHeight_);
  painter.setClipRect(area);
  painter.setPen(QColor(palette::kInk));
  const Lines plain{*look_, look_->font(Look::Face::Plain), area.width()};
  const Lines large{*look_, look_->font(Look::Face::Head), area.width()};
  int y = area.y() - scrolled_;
  y += (large_ ? large : plain).run(sentence_, &painter, area.x(), y) + look_->px(kUnderSentence);
  plain.run(lines_, &painter, area.x(), y);
  painter.setClipping(false);
  if (shownHeight_ == textHeight_) return;
  const int lane = look_->px(4), tall = std::max(lane, area.height() * shownHeight_ / textHeight_);
  const int from = (area.height() - tall) * scrolled_ / (textHeight_ - shownHeight_);
  const QRect at(width() - inset() / 2 - lane, area.y(), lane, area.height());
  painter.fillRect(at, QColor(palette::kLane));
  painter.fillRect(QRect(at.x(), at.y() + from, lane, tall), QColor(palette::kThumb));
}
