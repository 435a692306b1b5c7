#include "platform/qt/box_panel.h"

#include <QPainter>
#include <algorithm>

#include "base/words.h"
#include "platform/edit.h"
#include "platform/host.h"
#include "platform/qt/palette.h"
#include "platform/qt/small_views.h"
#include "platform/shown.h"

namespace {

constexpr double kInset = 26, kAbove = 22, kBetween = 22, kLeastWidth = 400, kMostText = 680;
constexpr int kTextFlags = static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | Qt::TextWordWrap;

ScreenSpec specOf(BoxPanel::Kind kind) {
  ScreenSpec spec;
  spec.name = "box";
  spec.window = Window::Dialog;
  spec.focusColour = 0xFFC0FF;
  spec.controls.push_back({.name = "field", .tab = 1});
  const auto button = [&](const char* name, const char* caption) {
    spec.controls.push_back({.name = name, .kind = ::Kind::Button, .label = caption, .tab = 1});
  };
  const bool question = kind == BoxPanel::Kind::Question;
  button("yes", question ? english("&Yes") : english("&Ok"));
  if (kind != BoxPanel::Kind::Message) button("no", question ? english("&No") : english("&Cancel"));
  return spec;
}

}  // namespace

class BoxPanel::Holder {
 public:
  Holder(Host& host, Kind kind) : spec_(specOf(kind)), screen(host, spec_) {}

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
      holder_(std::make_unique<Holder>(host, words_.kind)),
      field_(holder_->screen.at("field")) {
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
  setAccessibleName(QString::fromStdString(words_.title));
  setAccessibleDescription(QString::fromStdString(words_.text));
  arrange();
}

BoxPanel::~BoxPanel() = default;

void BoxPanel::restyle(const Look& look) {
  look_ = &look;
  arrange();
}

QRect BoxPanel::textRect() const {
  const int inset = look_->px(kInset);
  const int top =
      look_->px(look_->of(layout::size::kDialogFrame) + look_->of(layout::size::kDialogTitle) + kAbove);
  return {inset, top, width() - 2 * inset, textHeight_};
}

void BoxPanel::arrange() {
  using namespace layout::size;
  const QFontMetrics& metrics = look_->metrics(Look::Face::Plain);
  const QString text = QString::fromStdString(words_.text);
  const int inset = look_->px(kInset);
  const int most = std::min(look_->px(kMostText), parentWidget()->width() - 4 * inset);
  const QRect needed = metrics.boundingRect(QRect(0, 0, most, 1 << 16), kTextFlags, text);
  const int titled =
      look_->metrics(Look::Face::Strong).horizontalAdvance(QString::fromStdString(words_.title));
  textHeight_ = text.isEmpty() ? 0 : std::max(needed.height(), metrics.height());
  const int width = std::max({needed.width() + 1 + 2 * inset, titled + inset, look_->px(kLeastWidth)});
  int y = look_->px(look_->of(kDialogFrame) + look_->of(kDialogTitle) + kAbove) + textHeight_;
  setFixedWidth(width);
  if (fieldView_) {
    y += look_->px(kColumnGap);
    layout::Spot spot;
    spot.box = {inset, y, width - 2 * inset, look_->px(kField)};
    fieldView_->place(spot, *look_);
    y += look_->px(kField);
  }
  y += look_->px(kBetween);
  const int own = look_->px(kButtonWidth), gap = look_->px(12);
  const auto count = static_cast<int>(buttonViews_.size());
  int x = (width - count * own - (count - 1) * gap) / 2;
  for (const auto& view : buttonViews_) {
    layout::Spot spot;
    spot.box = {x, y, own, look_->px(kButton)};
    view->place(spot, *look_);
    x += own + gap;
  }
  setFixedHeight(y + look_->px(kButton) + look_->px(18));
  place();
  sync();
}

void BoxPanel::place() {
  const QRect room = parentWidget()->rect();
  move((room.width() - width()) / 2, (room.height() - height()) / 2);
}

void BoxPanel::sync() {
  if (fieldView_) fieldView_->sync({.focus = true, .focusColour = holder_->screen.spec.focusColour});
  for (size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->style = i == chosen_ ? Style::Primary : Style::Normal;
    buttonViews_[i]->sync({});
  }
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
    answer(chosen_ == 0);
    return;
  }
  if (key.code == KeyCode::Esc) {
    answer(words_.kind == Kind::Message);
    return;
  }
  if (key.alt && key.code == KeyCode::Char) {
    for (size_t i = 0; i < buttons_.size(); ++i)
      if (isLetterOf(*buttons_[i], key.ch)) answer(i == 0);
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
      answer(chosen_ == 0);
      return;
    }
    const char32_t upper = typed >= U'a' && typed <= U'z' ? typed - 32 : typed;
    for (size_t i = 0; i < buttons_.size(); ++i)
      if (isLetterOf(*buttons_[i], upper)) {
        answer(i == 0);
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

void BoxPanel::pressed(Screen&, Control& button) { answer(&button == buttons_.front()); }

void BoxPanel::pointed(Screen&, Control&, size_t anchor, size_t caret) {
  field_.anchor = anchor;
  field_.caret = caret;
  sync();
}

void BoxPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const int frame = look_->px(layout::size::kDialogFrame);
  draw::box(painter, rect(), QColor(palette::kPanel), QColor(palette::kAccent), frame, 0);
  const QRect strip(frame, frame, width() - 2 * frame, look_->px(layout::size::kDialogTitle));
  painter.fillRect(strip, QColor(palette::kAccent));
  painter.setPen(QColor(palette::kWhiteText));
  painter.setFont(look_->font(Look::Face::Strong));
  draw::line(painter, strip.adjusted(look_->px(12), 0, -look_->px(12), 0),
             QString::fromStdString(words_.title), Qt::AlignLeft);
  painter.setPen(QColor(palette::kInk));
  painter.setFont(look_->font(Look::Face::Plain));
  painter.drawText(textRect(), kTextFlags, QString::fromStdString(words_.text));
}
