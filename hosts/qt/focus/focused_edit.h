// What the focus tells an edit.
#pragma once

class QWidget;

namespace tessaria::qt {

/// An edit that hears of the focus when Qt's own work on it is done. Implemented by a widget, which
/// may be destroyed by what it is told.
class FocusedEdit {
 public:
  FocusedEdit() = default;
  FocusedEdit(const FocusedEdit&) = delete;
  FocusedEdit& operator=(const FocusedEdit&) = delete;

  virtual QWidget& widget() = 0;
  virtual void deliverGotFocus() = 0;
  virtual void deliverLostFocus() = 0;
  /// A press of the mouse has entered the field: what was selected by that is selected after the
  /// click too, unless the operator drags.
  virtual void keepSelectionOverClick() = 0;

 protected:
  ~FocusedEdit() = default;
};

}  // namespace tessaria::qt
