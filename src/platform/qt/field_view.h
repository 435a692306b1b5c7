#pragma once

#include <QLineEdit>
#include <QTextLayout>

#include "platform/qt/control_view.h"

// A text or date field. It shows text, caret and selection of its record; typing goes through
// the desk, never through the widget.
class FieldView : public WidgetView<QLineEdit> {
 public:
  FieldView(Screen& screen, Control& control, Hands& hands, QWidget* parent);
  void sync(const Situation& situation) override;
  void place(const layout::Spot& spot, const Look& look) override;

  QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

 protected:
  void paintEvent(QPaintEvent*) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent*) override {}
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  bool event(QEvent* event) override;

 private:
  enum class State { Ready, Focus, Caller, Off, Locked, Error, Bare };

  struct Shown {
    std::string text, placeholder;
    State state = State::Ready;
    Bgr back = kWhite;
    size_t caret = 0, anchor = 0;
    bool operator==(const Shown&) const = default;
  };

  State stateNow(const Situation& situation) const;
  Qt::Alignment alignment() const;
  bool typing() const { return shown_.state == State::Focus || shown_.state == State::Error; }
  QRect textRect() const;
  Look::Face face() const;
  void layOut(QTextLayout& layout, const QString& text) const;
  size_t placeAt(int x) const;
  double leftOf(const QTextLayout& layout) const;
  void paintBox(QPainter& painter) const;
  void paintTyping(QPainter& painter) const;

  Shown shown_;
  Situation situation_;
  QString preedit_;
  size_t pressedAt_ = 0;
  QPoint pressed_;
  bool dragging_ = false;
  mutable double scroll_ = 0;
};
