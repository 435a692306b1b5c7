#pragma once

#include <QAbstractButton>
#include <QMenuBar>
#include <QWidget>
#include <functional>
#include <vector>

#include "platform/qt/look.h"

// The bars of a window: menus and tools of its screen, and the status bar.

class MenuBar : public QMenuBar {
 public:
  MenuBar(std::function<void(const std::vector<size_t>& path)> chosen, QWidget* parent);
  void sync(const std::vector<MenuEntry>& menus);
  void dressFor(const Look& look);
  // Opens the enabled menu whose letter this is.
  bool openByLetter(char32_t letter);
  // Alt by itself: the keys go to the menus.
  void activate();

 private:
  void drop(QAction& action);
  void build(QWidget& owner, QMenu* menu, const std::vector<MenuEntry>& entries, std::vector<size_t> path);
  bool fits(const std::vector<MenuEntry>& a, const std::vector<MenuEntry>& b) const;
  void enable(const QList<QAction*>& actions, const std::vector<MenuEntry>& entries);

  std::function<void(const std::vector<size_t>&)> chosen_;
  std::vector<MenuEntry> shown_;
};

class ToolBar : public QWidget {
 public:
  ToolBar(std::function<void(size_t)> chosen, QWidget* parent);
  void sync(const std::vector<ToolEntry>& tools, const Look& look);

 protected:
  void paintEvent(QPaintEvent*) override;
  void resizeEvent(QResizeEvent*) override { placeButtons(); }

 private:
  void placeButtons();
  std::function<void(size_t)> chosen_;
  std::vector<ToolEntry> shown_;
  std::vector<QAbstractButton*> buttons_;
  const Look* look_ = nullptr;
};

class StatusBar : public QWidget {
 public:
  explicit StatusBar(QWidget* parent) : QWidget(parent) {}
  // The panels of the screen with the hint line as the second; without panels the hint alone.
  void sync(const std::vector<std::string>& panels, const std::string& hint, const Look& look);

 protected:
  void paintEvent(QPaintEvent*) override;

 private:
  std::vector<std::string> panels_;
  std::string hint_;
  const Look* look_ = nullptr;
};
