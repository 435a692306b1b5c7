#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/field_view.h"
#include "platform/qt/look.h"

// A message, question or input box: a framed panel over the window, which is dimmed behind it. The first
// line of its text stands large, as what is the matter; the rest in lines under it, which scroll where the
// window is too low for them. It takes keys from the host and says when it has been answered.
class BoxPanel : public QWidget, private Hands {
 public:
  enum class Kind { Message, Question, Input };
  struct Words {
    Kind kind = Kind::Message;
    std::string text, title, initial = {};
    std::string yes = {}, no = {};  // on the buttons; a message has the first alone
    std::string facts = {};         // lines under the text
    bool loses = false;             // No stands first
    bool refuses = false;           // a message that says no to what was typed
  };

  BoxPanel(Host& host, Words words, const Look& look, std::function<void()> answered, QWidget* parent);
  ~BoxPanel() override;

  void key(const Key& key);
  void type(const std::string& text);
  void paste(const std::string& text);
  // In the middle of the parent, of which all above `foot` is dimmed; nothing where there is no foot.
  void place(std::optional<int> foot);
  void restyle(const Look& look, std::optional<int> foot);  // at another scale
  void lift();                                              // above all else
  std::string keys() const;                                 // what they do now, for the hint line

  const Words& words() const { return words_; }
  bool done() const { return done_; }
  bool yes() const { return yes_; }  // Ok or Yes
  QRect buttonRect(size_t i) const { return buttonViews_[i]->widget().geometry(); }
  std::string value() const { return field_.text; }
  QWidget* focusWidget() const { return fieldView_ ? &fieldView_->widget() : nullptr; }

 protected:
  void paintEvent(QPaintEvent*) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void pressed(Screen&, Control& button) override;
  void pointed(Screen&, Control&, size_t anchor, size_t caret) override;
  void committed(const std::string& text) override;
  void rowPressed(Screen&, Control&, size_t) override {}
  void rowDoubled(Screen&, Control&) override {}

  Hands& hands() { return *this; }
  void arrange();
  int arrangeButtons(int y);
  void scroll(int by);
  void sync();
  void answer(bool yes);
  void choose(size_t button) { answer(buttons_[button] == agrees_); }
  bool escapes() const { return words_.kind == Kind::Message; }
  std::string escapeMeans() const;
  int inset() const;
  int headHeight() const;

  class Holder;  // a screen of its own for the field and the buttons
  Words words_;
  const Look* look_;
  std::function<void()> answered_;
  std::unique_ptr<Holder> holder_;
  Control& field_;
  std::vector<Control*> buttons_;  // as they stand
  const Control* agrees_ = nullptr;
  std::unique_ptr<FieldView> fieldView_;
  std::vector<std::unique_ptr<ControlView>> buttonViews_;
  QPointer<QWidget> veil_;
  size_t chosen_ = 0;
  QString sentence_, lines_;
  bool large_ = true;                                    // the sentence
  int textHeight_ = 0, shownHeight_ = 0, scrolled_ = 0;  // of the text, of what is seen of it
  bool done_ = false, yes_ = false;
};
