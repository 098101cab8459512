// Enter and Exit of whole controls, queued per window.
#pragma once

#include <QObject>
#include <QWidget>

#include "hosts/qt/focus/focused_edit.h"
#include "hosts/qt/focus/stand_in.h"
#include "hosts/qt/form/control_pointer.h"
#include "tessaria/qt/surface.h"

namespace tessaria::qt {

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
  /// Delivers what is queued now, with `standIn` as the active control when it is one. False when
  /// a field that was left has refused its text, or its value could not be taken.
  bool settlePending(const StandIn& standIn = {});
  /// Has the field that holds the focus checked and assigned as if it were left, and entered
  /// again. A field that stands as it was entered is spared, unless it must not stay blank; so is
  /// one whose `ObjetoCancelar` names the stand-in. False when the field refuses its text, or its
  /// value could not be taken.
  bool settleField(const StandIn& standIn = {});
  /// Whether that would do anything now.
  bool wouldSettle(const StandIn& standIn = {}) const;
  /// The control that holds the focus shows another row: enters it anew.
  void enterAgain();
  /// The window was hidden: nothing is inside any more, and no Exit is told.
  void windowHidden();

 private:
  explicit FocusCycle(QWidget* window);
  bool run();
  bool step();
  void leave(Surface& field);
  bool hasFieldToSettle(const StandIn& standIn) const;
  QWidget* window() const { return static_cast<QWidget*>(parent()); }

  ControlPointer<Surface> inside_;   ///< the control that was entered and not left yet
  ControlPointer<FocusedEdit> box_;  ///< the edit that has the focus
  bool queued_ = false;
  bool running_ = false;
  bool unsettled_ = false;  ///< a field that was left in the present run
};

}  // namespace tessaria::qt
