#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <memory>
#include <utility>
#include <vector>

// Tells, while a piece of work holds up the event loop, whether Esc was pressed meanwhile. What else has
// happened is kept and comes after the work, in its order: nothing is drawn from what the work stands in.
class EscWatch : public QObject {
 public:
  bool pressed();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  bool pressed_ = false;
  std::vector<std::pair<QPointer<QObject>, std::unique_ptr<QEvent>>> kept_;
};
