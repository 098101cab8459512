#include "control/surface.h"

#include "services/message_box.h"
#include "services/trap.h"

namespace tessaria {

Long WindowOf(const host::ControlSite& site) {
  Long handle = 0;
  Trap(u"tsText", u"hwnd", [&] {
    if (site.UserMode()) handle = site.hWnd();
  });
  return handle;
}

void TellStop(const host::ControlSite& site, const String& text, const String& title) {
  mdlMsgBox::ExibeMensagem(WindowOf(site), text, mdlMsgBox::flag::Stop, title);
}

void Tell(const host::ControlSite& site, const String& text) {
  mdlMsgBox::ExibeMensagem(WindowOf(site), text, 0);
}

}  // namespace tessaria
