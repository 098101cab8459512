// Enter and Exit of whole controls, queued per window.
#pragma once

#include <QObject>
#include <QWidget>

#include "hosts/qt/focus/focused_edit.h"
#include "hosts/qt/focus/stand_in.h"
#include "hosts/qt/form/control_pointer.h"
#include "tessaria/qt/surface.h"

namespace tessaria::qt {

/// Follows the focus of one window. Leaving and entering of controls is reported after Qt has moved
/// the focus: the new control is then the form's active one. Popups, menus, dialogs and the loss of
/// activation do not count as moves, because the window's own focus stays where it was.
class FocusCycle final : public QObject {
  Q_OBJECT

 public:
  /// The window's cycle, created on first use.
  static FocusCycle* of(QWidget* window);
  static FocusCycle* existing(const QWidget* window);

  ~FocusCycle() override;
  /// The focus has moved inside the window.
  void focusMoved();
  bool hasPending() const { return queued_; }
  /// Delivers what is queued now, with `standIn` as the active control unless it is empty. Returns
  /// false if a field that was left has refused its text, or its value could not be stored.
  bool settlePending(const StandIn& standIn = {});
  /// Checks and assigns the field that has the focus as if it were left, and enters it again. Skips
  /// a field that is unchanged since it was entered, unless it must not stay blank, and one whose
  /// `ObjetoCancelar` names the stand-in. Returns false if the field refuses its text, or its value
  /// could not be stored.
  bool settleField(const StandIn& standIn = {});
  /// Whether settling would do anything now.
  bool wouldSettle(const StandIn& standIn = {}) const;
  /// The control with the focus shows another row: enters it again.
  void enterAgain();
  /// The window was hidden: no control is entered any more, and no Exit is reported.
  void windowHidden();

 private:
  explicit FocusCycle(QWidget* window);
  bool run();
  bool step();
  void leave(Surface& field);
  bool hasFieldToSettle(const StandIn& standIn) const;
  QWidget* window() const { return static_cast<QWidget*>(parent()); }

  ControlPointer<Surface> inside_;   ///< the control that was entered and not yet left
  ControlPointer<FocusedEdit> box_;  ///< the edit that has the focus
  bool queued_ = false;
  bool running_ = false;
  bool unsettled_ = false;  ///< a field that was left in the present run was not settled
};

}  // namespace tessaria::qt
