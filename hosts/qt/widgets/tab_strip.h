// Pages under tabs, of which a disabled one may stay in front.
#pragma once

#include <QKeyEvent>
#include <QSet>
#include <QTabBar>
#include <QTabWidget>
#include <functional>

namespace tessaria::qt {

/// Qt moves on to another tab when the one in front is disabled. Such a tab therefore stays enabled
/// in Qt while it is in front, and is only drawn as a disabled one.
class TabBar final : public QTabBar {
  Q_OBJECT

 public:
  explicit TabBar(QWidget* parent = nullptr);

  bool isOpen(int page) const { return !closed_.contains(page); }
  void setOpen(int page, bool open);
  /// Another tab is in front.
  void apply();

  /// The operator has clicked the tab that is in front. Must not throw.
  std::function<void()> frontClicked;

 protected:
  void initStyleOption(QStyleOptionTab* option, int page) const override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  QSet<int> closed_;
};

/// Its widgets stay usable on a disabled page. A click on a tab takes the focus. Ctrl+PageDown and
/// Ctrl+PageUp choose the next tab that is enabled, from anywhere in the window.
class TabStrip final : public QTabWidget {
  Q_OBJECT

 public:
  explicit TabStrip(QWidget* parent);
  TabBar& bar() const { return *bar_; }
  /// Brings a page to the front without reporting it.
  void bringToFront(int page);

  /// The operator has chosen a tab, perhaps the one in front. Must not throw.
  std::function<void(int previous)> chosen;

 private:
  void turnBy(int step);
  void turned(int page);
  void report(int previous);

  TabBar* bar_;
  int front_ = 0;
  bool assigning_ = false;
};

}  // namespace tessaria::qt
