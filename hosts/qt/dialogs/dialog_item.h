// The common base of the widgets of a dialog.
#pragma once

#include <QWidget>
#include <optional>
#include <utility>

#include "hosts/qt/conversion/units.h"
#include "hosts/qt/dialogs/dialog_gate.h"
#include "tessaria/host/dialog.h"

namespace tessaria::qt {

/// A widget as its dialog holds it. The widget is a child of the dialog's window, and must exist
/// while any of these members is called.
class DialogItem {
 public:
  DialogItem(QWidget& face, const DialogGate& gate) : face_(face), gate_(gate) {}
  DialogItem(const DialogItem&) = delete;
  DialogItem& operator=(const DialogItem&) = delete;
  virtual ~DialogItem() = default;

  virtual host::DialogWidget& port() = 0;
  /// Keys that arrive while `focus`, the widget or a part of it, has the focus are not reported
  /// here; the dialog still sees them first.
  virtual bool keepsKeysOf(const QWidget& /*focus*/) const { return false; }
  /// Called before the window shows.
  virtual void aboutToShow() {}

  QWidget& face() const { return face_; }
  /// What takes the focus: the widget, or the part of it that does so.
  QWidget& focusTarget() const {
    QWidget* target = &face_;
    while (target->focusProxy()) target = target->focusProxy();
    return *target;
  }

 protected:
  const DialogGate& gate() const { return gate_; }

  /// The numbers that were assigned. The window's layout decides where the widget is drawn, so that
  /// another font or size clips nothing.
  struct {
    std::optional<Long> left, top, width, height;
  } place_;

 private:
  QWidget& face_;
  const DialogGate& gate_;
};

/// Implements what all widgets share for one of the ports.
template <class Port>
class DialogItemOf : public Port, public DialogItem {
 public:
  using DialogItem::DialogItem;

  host::DialogWidget& port() override { return *this; }

  Long Left() const override { return place_.left.value_or(twipsX(face().x(), face())); }
  void Left(Long twips) override { place_.left = twips; }
  Long Top() const override { return place_.top.value_or(twipsY(face().y(), face())); }
  void Top(Long twips) override { place_.top = twips; }
  Long Width() const override { return place_.width.value_or(twipsX(face().width(), face())); }
  void Width(Long twips) override { place_.width = twips; }
  Long Height() const override { return place_.height.value_or(twipsY(face().height(), face())); }
  void Height(Long twips) override { place_.height = twips; }
  bool Visible() const override { return !face().isHidden(); }
  void Visible(bool visible) override { face().setVisible(visible); }
  bool Enabled() const override { return face().isEnabledTo(face().window()); }
  void Enabled(bool enabled) override { face().setEnabled(enabled); }
  bool TabStop() const override { return (focusTarget().focusPolicy() & Qt::TabFocus) != 0; }
  void TabStop(bool stop) override {
    focusTarget().setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
  }
  void SetFocus() override {
    if (focusTarget().focusPolicy() != Qt::NoFocus) focusTarget().setFocus(Qt::OtherFocusReason);
  }
};

}  // namespace tessaria::qt
