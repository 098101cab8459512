// The interface through which an edit is notified of focus changes.
#pragma once

class QWidget;

namespace tessaria::qt {

/// An edit that is notified of the focus after Qt has moved it. Implemented by a widget, which may
/// be destroyed by the notification.
class FocusedEdit {
 public:
  FocusedEdit() = default;
  FocusedEdit(const FocusedEdit&) = delete;
  FocusedEdit& operator=(const FocusedEdit&) = delete;

  virtual QWidget& widget() = 0;
  virtual void deliverGotFocus() = 0;
  virtual void deliverLostFocus() = 0;
  /// A mouse press has entered the field: keeps the selection made by entering after the click,
  /// unless the operator drags.
  virtual void keepSelectionOverClick() = 0;

 protected:
  ~FocusedEdit() = default;
};

}  // namespace tessaria::qt
