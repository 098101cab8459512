// Checks that a typed value exists in the related table.
#pragma once

#include "tessaria/host/data.h"
#include "tessaria/tstext_interface.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// Searches for `strValor` (typed, without mask) in `strCampo` of `strTabela` on the thread's
/// connection. True when it exists, when table or field is empty, and for an accepted blank. An
/// error is reported, and the result is false. For a field that is not a text the value is written
/// as a number (`SqlNumber`); a value that is not a number is such an error, and nothing is sent.
///
/// `strCampo` may have an alias. `fldCampo` is read only when `blnTemCampo` is true, and may be
/// null otherwise. `strWhere` is a further condition; on return it begins with " And ". `strLabel`
/// names the field in messages; "" means field and table. `varRetorno` receives the found value,
/// Empty when there is none; it may be null. A Null that was found is returned as Null, which is
/// different from Empty. `lngHwnd` owns the messages; `blnMensagem` shows the one for a missing
/// row. `blnBotao`: a command button has the focus, the only case in which a blank is refused.
bool ChecaRelacao(const String& strTabela, const String& strCampo, const String& strValor,
                  TipoControle intTipoControle, const host::Field* fldCampo, bool blnTemCampo,
                  bool blnPodeSerBranco, bool blnMensagem, String& strWhere, const String& strLabel,
                  Variant* varRetorno, Long lngHwnd, bool blnBotao);

}  // namespace tessaria::mdlObjTxt
