// A control's surroundings: its widget and its form.
#pragma once

#include <QPointer>

#include "tessaria/host/control.h"

namespace tessaria::qt {

class TsText;

/// May outlive its widget: every member then raises `ControlGone`.
class ControlSite final : public host::ControlSite {
 public:
  explicit ControlSite(TsText& surface) : surface_(&surface) {}

  bool UserMode() const override;
  String DisplayName() const override;
  host::Font AmbientFont() const override;
  host::FormPtr Parent() const override;
  host::WidgetPtr Extender() const override;
  bool TabStop() const override;
  void TabStop(bool stop) override;
  Long hWnd() const override;
  Long Width() const override;
  Long Height() const override;
  void Height(Long twips) override;
  /// The surface shows through: only its box is drawn in the colour.
  void BackColor(Colour) override {}
  String ActiveControlName() const override;
  void PropertyChanged(const String& name) override;

 private:
  TsText& surface() const;
  QPointer<TsText> surface_;
};

}  // namespace tessaria::qt
