// Enter and Exit of whole controls, queued per window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tessaria::qt {

class LineEdit;
class TsText;

/// Follows the focus of one window. Leaving and entering controls is told when Qt's own work on
/// the focus is done: the new control is then the form's active one. Popups, menus, dialogs and
/// a window that loses activation are no moves, for the window's own focus stays where it was.
class FocusCycle final : public QObject {
  Q_OBJECT

 public:
  /// The window's cycle, made when there is none.
  static FocusCycle* of(QWidget* window);
  static FocusCycle* existing(const QWidget* window);

  /// The focus has moved inside the window.
  void focusMoved();
  bool hasPending() const { return queued_; }
  /// Delivers what is queued now. False when a field that was left has refused its text.
  bool settlePending();
  /// Has the field that holds the focus checked and assigned as if it were left, and entered
  /// again. False when it refuses.
  bool settleField();
  /// The control that holds the focus shows another row: enters it anew.
  void enterAgain();
  /// The window was hidden: nothing is inside any more, and no Exit is told.
  void windowHidden();

 private:
  explicit FocusCycle(QWidget* window);
  bool run();
  bool step();
  QWidget* window() const { return static_cast<QWidget*>(parent()); }

  QPointer<TsText> inside_;  ///< the control that was entered and not left yet
  QPointer<LineEdit> box_;   ///< the edit that has the focus
  bool queued_ = false;
  bool running_ = false;
  bool refused_ = false;  ///< by a field that was left in the present run
};

/// For tool bars and menus, which take no focus: settles the field of the widget's window that
/// holds it. False when the field refuses; it has then told the operator why.
bool settle(QWidget* widget);

}  // namespace tessaria::qt
