#include "wizard/wizard.h"

#include "services/message_box.h"
#include "tessaria/error.h"

namespace tessaria::wizard {

bool Wizard::IsAlias(const String& text) const {
  return colTabelas.HasKey(text) && colTabelas.Item(text) != text;
}

host::Connection& Wizard::Connection() const {
  if (!cnWizard) throw HostError(errors::ObjectNotSet);
  return *cnWizard;
}

void Wizard::Alert(const String& text) const {
  mdlMsgBox::ExibeMensagem(window.hWnd(), text, 0, u"Alerta!");
}

}  // namespace tessaria::wizard
