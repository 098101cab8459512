// Does a typed value exist in the related table?
#pragma once

#include "tessaria/host/data.h"
#include "tessaria/tstext_interface.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// Looks `strValor` (typed, without mask) up in `strCampo` of `strTabela` on the thread's
/// connection. True when it is there, when there is nothing to look in, and for a blank that
/// may pass. An error is reported and gives false. On a field that is no text the value goes into
/// the statement as a number (`SqlNumber`); what is none is such an error, and nothing is sent.
///
/// `strCampo` may have an alias. `fldCampo` is read only when `blnTemCampo`, and may be null
/// otherwise. `strWhere` is a further condition; it is left with " And " in front. `strLabel`
/// names the field in messages; "" gives field and table. `varRetorno` takes the found value,
/// Empty without one; null when the caller does not want it. A value found as Null is Null and
/// so differs from Empty. `lngHwnd` owns the messages; `blnMensagem` shows the one for a missing
/// row. `blnBotao`: a command button has the focus, the only case in which a blank is refused.
bool ChecaRelacao(const String& strTabela, const String& strCampo, const String& strValor,
                  TipoControle intTipoControle, const host::Field* fldCampo, bool blnTemCampo,
                  bool blnPodeSerBranco, bool blnMensagem, String& strWhere, const String& strLabel,
                  Variant* varRetorno, Long lngHwnd, bool blnBotao);

}  // namespace tessaria::mdlObjTxt
