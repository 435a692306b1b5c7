#include "platform/qt/esc_watch.h"

#include <QCoreApplication>
#include <QKeyEvent>

bool EscWatch::pressed() {
  pressed_ = false;
  qApp->installEventFilter(this);
  QCoreApplication::processEvents(QEventLoop::AllEvents);
  qApp->removeEventFilter(this);
  for (auto& [object, event] : kept_)
    if (object) QCoreApplication::postEvent(object, event.release());
  kept_.clear();
  return pressed_;
}

// A window gets events before its widgets; two kinds go to a widget itself.
bool EscWatch::eventFilter(QObject* object, QEvent* event) {
  const bool ofWidget = event->type() == QEvent::UpdateRequest || event->type() == QEvent::InputMethod;
  if (!object->isWindowType() && !ofWidget) return false;
  const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    pressed_ = pressed_ || event->type() == QEvent::KeyPress;
    return true;
  }
  kept_.emplace_back(object, event->clone());
  event->ignore();
  return true;
}
