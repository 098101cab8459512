#include "hosts/qt/control/control_site.h"

#include <utility>

#include "hosts/qt/boundary/handles.h"
#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/fonts.h"
#include "hosts/qt/conversion/units.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/error.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

QWidget& ControlSite::surface() const {
  if (!surface_) throw ControlGone{};
  return *surface_;
}

const ControlSite::Control& ControlSite::control() const {
  if (!surface_) throw ControlGone{};
  return control_;
}

bool ControlSite::UserMode() const { return !control().designMode(); }
String ControlSite::DisplayName() const { return fromQt(surface().objectName()); }
host::Font ControlSite::AmbientFont() const { return toFont(surface().font()); }

// A field without a parent is a window of its own, and so a form.
host::FormPtr ControlSite::Parent() const { return makeForm(*formOf(&surface())); }

host::WidgetPtr ControlSite::Extender() const { return makeWidget(surface()); }

bool ControlSite::TabStop() const {
  return (surface().focusProxy()->focusPolicy() & Qt::TabFocus) != 0;
}

void ControlSite::TabStop(bool stop) {
  surface().focusProxy()->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
}

Long ControlSite::hWnd() const { return handleOf(surface()); }
Long ControlSite::Width() const { return twipsX(surface().width(), surface()); }
Long ControlSite::Height() const { return twipsY(surface().height(), surface()); }

void ControlSite::Height(Long twips) {
  surface().resize(surface().width(), pixelsY(twips, surface()));
}

void ControlSite::BackColor(Colour colour) {
  backColor_ = colour;
  applyColour();
}

// The white of an ordinary box would show as a patch on the form where there is no button: such a
// surface is as the form around it. Of the others only a colour that the program has set is
// painted.
void ControlSite::applyColour() {
  if (!backColor_) return;
  QWidget& s = surface();
  const bool isOrdinary = *backColor_ == host::colour::White;
  s.setAutoFillBackground(!isOrdinary && !isSystemColour(*backColor_));
  if (isOrdinary && !std::exchange(isColoured_, false)) return;
  QPalette palette;
  if (!isOrdinary) {
    const QPalette theme = s.parentWidget() ? s.parentWidget()->palette() : QPalette();
    palette.setColor(QPalette::Window, toQColor(*backColor_, theme));
    if (isColoured_ && s.palette().color(QPalette::Window) == palette.color(QPalette::Window))
      return;
    isColoured_ = true;
  }
  s.setPalette(palette);
}

String ControlSite::ActiveControlName() const {
  const QWidget* focus = surface().window()->focusWidget();
  if (!focus || focus->parentWidget() != &surface()) throw HostError(errors::ObjectNotSet);
  return fromQt(focus->objectName());
}

void ControlSite::PropertyChanged(const String& name) { control().propertyChanged(toQt(name)); }

}  // namespace tessaria::qt
