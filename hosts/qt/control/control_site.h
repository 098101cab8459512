// A control's surroundings: its widget and its form.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>
#include <utility>

#include "tessaria/host/control.h"

namespace tessaria::qt {

/// May outlive its widget; every member then raises `ControlGone`.
class ControlSite final : public host::ControlSite {
 public:
  /// The parts that the control's widget provides.
  struct Control {
    std::function<bool()> designMode;
    std::function<void(const QString& name)> propertyChanged;
  };
  ControlSite(QWidget& surface, Control control)
      : surface_(&surface), control_(std::move(control)) {}

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

  /// Applies the colour again after the theme has changed.
  void applyColour();

 private:
  QWidget& surface() const;
  const Control& control() const;

  QPointer<QWidget> surface_;
  const Control control_;
  std::optional<Colour> backColor_;  ///< empty until it is assigned
  bool isColoured_ = false;          ///< the surface has a palette of its own
};

}  // namespace tessaria::qt
