#include "services/error_box.h"

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlError {

void MostraErro(const String& strProcedimento, const String& strModulo) {
  constexpr Long kNoOwner = 0;
  const String title =
      u"Erro: " + CStr(Err().Number) + u" - Função: " + strModulo + u"." + strProcedimento;
  App().ShowMessageBox(kNoOwner, Err().Description, host::box::Stop, title);
}

}  // namespace tessaria::mdlError
