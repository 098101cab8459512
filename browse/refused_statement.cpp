#include "browse/refused_statement.h"

#include "lookup/statement_layout.h"
#include "services/message_box.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/host/dialog.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlObjTxt {

void OfferStatement(const String& statement, const String& title, Long flags, Long owner) {
  const String readable = MontaSqlPronta(statement);
  const String text = Err().Description + u"\r\r" + readable;
  if (mdlMsgBox::ExibeMensagem(owner, text, flags, title) == host::answer::Yes)
    TheDesktop().ClipboardText(readable);
}

}  // namespace tessaria::mdlObjTxt
