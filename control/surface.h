// The surface of a field: its window handle, and the message boxes that it owns.
#pragma once

#include "tessaria/host/control.h"

namespace tessaria {

/// The surface's window handle at run time, 0 at design time. On an error, reports it and returns
/// 0.
Long WindowOf(const host::ControlSite& site);

/// Shows a message with the stop icon that the surface owns.
void TellStop(const host::ControlSite& site, const String& text, const String& title = u"Alerta!");
/// The same without an icon.
void Tell(const host::ControlSite& site, const String& text);

}  // namespace tessaria
