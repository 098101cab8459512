// The other events of a program that its controls depend on.
#pragma once

#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QWidget>

#include "hosts/qt/focus/action_gate.h"

namespace tessaria::qt {

/// Watches the whole application: first shows of forms, moves of the focus, and the keys, clicks,
/// actions and closing windows that must wait until the focused field is settled.
class FormEvents final : public QObject {
  Q_OBJECT

 public:
  explicit FormEvents(QObject* parent);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void focusChanged(QWidget* now);
  bool swallows(QWidget* widget, QEvent* event);
  void watchShow(QWidget* widget);
  bool swallowsPress(QWidget* widget, const QMouseEvent& press);
  static bool hasMoved(const QWidget& widget);
  static bool settlesAhead(QWidget* widget, bool moved, bool stays);
  static bool swallowsWheel(QWidget* widget);
  bool swallowsKey(QWidget* widget);
  bool swallowsClose(QWidget* window, QCloseEvent& close);
  bool movesToNextPage(QWidget* widget, const QKeyEvent& key);

  ActionGate actions_;
  int modalShows_ = 0;  ///< modal windows shown so far
};

}  // namespace tessaria::qt
