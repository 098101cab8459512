#include "control/naming.h"

#include "control/surface.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

bool Naming::IsOwnName(const String& v) const { return UCase(v) == UCase(site_.DisplayName()); }

void Naming::TxtIrmao(const String& v) {
  if (IsOwnName(v)) {
    App().ShowMessageBox(0, u"Como é Que o Componente Consegue ser Irmão Dele Mesmo???",
                         host::box::Ok, u"Alerta!");
    return;
  }
  ties_.TxtIrmao = v;
  site_.PropertyChanged(u"TxtIrmao");
}

void Naming::LabelAssociado(const String& v) {
  if (site_.UserMode()) {
    Tell(site_, u"Não é possível alterar a propriedade LabelAssociado em Tempo de Execucao");
    return;
  }
  if (IsOwnName(v)) {
    Tell(site_, u"Tá Querendo me Enganar é ??");
    return;
  }
  ties_.LabelAssociado = v;
  site_.PropertyChanged(u"TxtLabelAssociado");  // not the name of any property
}

}  // namespace tessaria
