// A dialog of the library as a Qt window.
#pragma once

#include <memory>
#include <vector>

#include "hosts/qt/dialogs/dialog_window.h"
#include "hosts/qt/dialogs/key_relay.h"

namespace tessaria::qt {

/// The window has the name of the dialog, and its widgets have the names of the description, so
/// that controls and programs find them. Showing it again while it is open raises error 400.
class Dialog final : public host::Dialog, public std::enable_shared_from_this<Dialog> {
 public:
  static host::DialogPtr make(const host::DialogDescription& description);
  ~Dialog() override;

  String Caption() const override;
  void Caption(const String& text) override;
  Long Left() const override;
  void Left(Long twips) override;
  Long Top() const override;
  void Top(Long twips) override;
  Long Width() const override;
  void Width(Long twips) override;
  Long Height() const override;
  void Height(Long twips) override;
  Colour BackColor() const override;
  Long hWnd() const override;
  void dbForm(host::ConnectionPtr connection) override;
  void ShowModal() override;
  void Hide() override { window_->hide(); }

 private:
  struct Entry {
    const host::WidgetDescription* description;
    std::unique_ptr<DialogItem> item;
  };
  /// A number as it was assigned, valid while the window stays at the pixel it was moved to.
  struct Kept {
    Long twips = 0;
    int pixel = 0;
    bool holds = false;
    Long value(int now, Long measured) const { return holds && now == pixel ? twips : measured; }
  };

  explicit Dialog(const host::DialogDescription& description);
  void build();
  void resized();
  void shown();
  DialogItem* itemOf(const QWidget* widget) const;
  host::DialogWidget& Widget(StringView name, Integer index) override;
  /// Called when the last handle is gone: no handler runs any more, and the window hides.
  void abandon();

  const host::DialogDescription& description_;
  std::unique_ptr<DialogWindow> window_;
  DialogGate gate_;
  std::vector<Entry> entries_;
  KeyRelay keys_;
  Kept left_, top_, width_, height_;
  bool wasShown_ = false;
};

}  // namespace tessaria::qt
