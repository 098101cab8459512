// The common base of the widgets of a dialog.
#pragma once

#include <QWidget>
#include <optional>
#include <type_traits>
#include <utility>

#include "hosts/qt/conversion/units.h"
#include "hosts/qt/widgets/dialog_gate.h"
#include "tessaria/error.h"
#include "tessaria/host/dialog.h"

namespace tessaria::qt {

/// Whether the operator could see the widget once its window shows: no widget around it is hidden
/// by the program or stands on a page that is not in front.
bool isToBeSeen(const QWidget& widget);

/// A widget as its surface holds it. It must exist while any of these members is called.
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
  /// For a widget that passes its keys to the surface's handlers itself, each before its own ones.
  virtual void previewFor(const host::Surface& /*surface*/) {}
  virtual bool previewsKeys() const { return false; }
  /// Called before the window shows.
  virtual void aboutToShow() {}
  /// The surface raises no events any more: for a widget that does not raise all of them through
  /// the gate.
  virtual void silence() {}
  /// What widgets on that page are children of. Error 5 for a widget that contains none.
  virtual QWidget& inside(Integer /*page*/) { throw HostError(errors::InvalidArgument); }

  void standsIn(StringView container, Integer page) { container_ = container, page_ = page; }
  QWidget& face() const { return face_; }
  /// What takes the focus: the widget, or the part of it that does so.
  QWidget& focusTarget() const {
    QWidget* target = &face_;
    while (target->focusProxy()) target = target->focusProxy();
    return *target;
  }
  /// Does nothing where the operator could not bring the focus.
  void takeFocus() const;

 protected:
  const DialogGate& gate() const { return gate_; }
  String containerName() const { return String(container_); }
  Integer page() const { return page_; }
  /// Raises a click of the operator, after the widget has taken the focus from any other.
  template <class... Arguments>
  void raiseClick(const std::function<void(Arguments...)>& slot,
                  std::type_identity_t<Arguments>... arguments) const {
    takeFocus();
    gate().raise(slot, arguments...);
  }

  /// The numbers that were assigned. The window's layout decides where the widget is drawn, so that
  /// another font or size clips nothing.
  struct {
    std::optional<Long> left, top, width, height;
  } place_;

 private:
  QWidget& face_;
  const DialogGate& gate_;
  StringView container_;
  Integer page_ = -1;
};

/// Implements what all widgets share for one of the ports.
template <class Port>
class DialogItemOf : public Port, public DialogItem {
 public:
  using DialogItem::DialogItem;

  host::DialogWidget& port() override { return *this; }

  String Container() const override { return containerName(); }
  Long Page() const override { return page(); }
  Long Left() const override { return place_.left.value_or(twipsX(face().x(), face())); }
  void Left(Long twips) override { place_.left = twips; }
  Long Top() const override { return place_.top.value_or(twipsY(face().y(), face())); }
  void Top(Long twips) override { place_.top = twips; }
  Long Width() const override { return place_.width.value_or(twipsX(face().width(), face())); }
  void Width(Long twips) override { place_.width = twips; }
  Long Height() const override { return place_.height.value_or(twipsY(face().height(), face())); }
  void Height(Long twips) override { place_.height = twips; }
  // Qt counts a widget as hidden until its window shows for the first time.
  bool Visible() const override {
    return !face().isHidden() || !face().testAttribute(Qt::WA_WState_ExplicitShowHide);
  }
  void Visible(bool visible) override { face().setVisible(visible); }
  bool Enabled() const override { return !face().testAttribute(Qt::WA_ForceDisabled); }
  void Enabled(bool enabled) override { face().setEnabled(enabled); }
  bool TabStop() const override { return (focusTarget().focusPolicy() & Qt::TabFocus) != 0; }
  void TabStop(bool stop) override {
    focusTarget().setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
  }
  void SetFocus() override { takeFocus(); }
};

}  // namespace tessaria::qt
