#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/field_view.h"
#include "platform/qt/look.h"

// A message, question or input box: a framed panel over the window. It takes keys from the
// host and says when it has been answered.
class BoxPanel : public QWidget, private Hands {
 public:
  enum class Kind { Message, Question, Input };
  struct Words {
    Kind kind = Kind::Message;
    std::string text, title, initial = {};
  };

  BoxPanel(Host& host, Words words, const Look& look, std::function<void()> answered, QWidget* parent);
  ~BoxPanel() override;

  void key(const Key& key);
  void type(const std::string& text);
  void paste(const std::string& text);
  void place();                    // in the middle of the parent
  void restyle(const Look& look);  // at another scale

  const Words& words() const { return words_; }
  bool done() const { return done_; }
  bool yes() const { return yes_; }  // Ok or Yes
  std::string value() const { return field_.text; }
  QWidget* focusWidget() const { return fieldView_ ? &fieldView_->widget() : nullptr; }

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  void pressed(Screen&, Control& button) override;
  void pointed(Screen&, Control&, size_t anchor, size_t caret) override;
  void committed(const std::string& text) override { type(text); }
  void rowPressed(Screen&, Control&, size_t) override {}
  void rowDoubled(Screen&, Control&) override {}

  Hands& hands() { return *this; }
  void arrange();
  void sync();
  void answer(bool yes);
  QRect textRect() const;

  class Holder;  // a screen of its own for the field and the buttons
  Words words_;
  const Look* look_;
  std::function<void()> answered_;
  std::unique_ptr<Holder> holder_;
  Control& field_;
  std::vector<Control*> buttons_;
  std::unique_ptr<FieldView> fieldView_;
  std::vector<std::unique_ptr<ControlView>> buttonViews_;
  size_t chosen_ = 0;
  int textHeight_ = 0;
  bool done_ = false, yes_ = false;
};
