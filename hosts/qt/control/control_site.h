// A control's surroundings: its widget and its form.
#pragma once

#include <QPointer>
#include <optional>

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
  void BackColor(Colour colour) override;
  String ActiveControlName() const override;
  void PropertyChanged(const String& name) override;

  /// Draws the colour anew, after the theme has changed.
  void applyColour();

 private:
  TsText& surface() const;
  QPointer<TsText> surface_;
  std::optional<Colour> backColor_;  ///< none as long as it was not assigned
};

}  // namespace tessaria::qt
