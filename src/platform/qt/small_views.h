#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QPixmap>

#include "platform/qt/control_view.h"

// The plain controls: buttons, labels, check boxes, progress bars and pictures.

class ButtonView : public WidgetView<QAbstractButton> {
 public:
  ButtonView(Screen& screen, Control& control, Hands& hands, QWidget* parent);
  void sync(const Situation& situation) override;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  struct Shown {
    std::string text;
    bool enabled = true, focus = false, pair = false;
    Bgr back = kWhite;
    Style style = Style::Normal;
    bool operator==(const Shown&) const = default;
  };
  Shown shown_;
};

class CheckView : public WidgetView<QAbstractButton> {
 public:
  CheckView(Screen& screen, Control& control, Hands& hands, QWidget* parent);
  void sync(const Situation& situation) override;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  struct Shown {
    std::string text;
    bool enabled = true, focus = false, on = false;
    bool operator==(const Shown&) const = default;
  };
  Shown shown_;
};

class LabelView : public WidgetView<QLabel> {
 public:
  LabelView(Screen& screen, Control& control, Hands& hands, QWidget* parent);
  void sync(const Situation& situation) override;
  void place(const layout::Spot& spot, const Look& look) override;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  struct Shown {
    std::string text;
    Style style = Style::Normal;
    Bgr back = kWhite;
    Align align = Align::Auto;
    bool operator==(const Shown&) const = default;
  };
  Qt::Alignment alignment() const;
  int insetOf(Qt::Alignment side) const;
  void paintWarning(QPainter& painter, const QStringList& lines) const;
  void paintLines(QPainter& painter, const QStringList& lines) const;
  void paintFact(QPainter& painter, const QRect& row, const QString& text) const;
  Shown shown_;
};

class ProgressView : public WidgetView<QWidget> {
 public:
  using WidgetView::WidgetView;
  void sync(const Situation& situation) override;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  double value_ = 0, maximum_ = 0;
};

class PictureView : public WidgetView<QLabel> {
 public:
  PictureView(Screen& screen, Control& control, Hands& hands, QWidget* parent);
  void sync(const Situation& situation) override;

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  std::string path_;
  QPixmap picture_;
};
