#include "browse/refused_statement.h"

#include "lookup/statement_layout.h"
#include "services/message_box.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/host/dialog.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlObjTxt {

void OfereceInstrucao(const String& strInstrucao, const String& strTitulo, Long intFlags,
                      Long lngHwnd) {
  const String legivel = MontaSqlPronta(strInstrucao);
  const String texto = Err().Description + u"\r\r" + legivel;
  if (mdlMsgBox::ExibeMensagem(lngHwnd, texto, intFlags, strTitulo) == host::answer::Yes)
    TheDesktop().ClipboardText(legivel);
}

}  // namespace tessaria::mdlObjTxt
