// From a code to its description, and from typed text to the description that begins so.
#pragma once

#include "tessaria/browse_definition.h"
#include "tessaria/host/widgets.h"
#include "tessaria/tstext_interface.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// What a search for a description found.
struct FoundDescription {
  Variant Value;       ///< Empty without a row
  bool Failed = true;  ///< an error ended the search, and has been reported
};

/// `AchaDescr` for a caller that has to know whether the search failed; `controlName` is its
/// `strNomeControle`.
FoundDescription SearchDescription(Browse& browse, const Variant& value, const String& controlName,
                                   const String& where);

/// Fetches the row of the code `varValor` with one statement on the thread's connection. Gives
/// the first selected field, Empty when there is no row, and fills `Valor` of each entry of
/// `objBrowse.Outros()` that the select list names, the others with Empty. With nothing to
/// select the database is not asked and `Outros` stays. `strWhere` is a further condition,
/// already expanded. `strNomeControle` names the control whose value is refused for not being one
/// token of SQL; `lngHwnd` is not used. Host events are pumped once at the end. An error is
/// reported, and the result is as it stood then; `Outros` stays as it was.
Variant AchaDescr(Browse& objBrowse, const Variant& varValor, const String& strNomeControle,
                  const String& strWhere, Long lngHwnd);

/// Completes the text of `txtBox` with the first `strCampo` of `strTabela` that begins with it,
/// and selects what was added. The key code 8 first takes the last character away. With
/// `blnTemIrmao` the field `varCampoIrmao` goes to `objIrmao`, which then raises its
/// BrowseReturn; otherwise `objIrmao` may be null. `varCampoIrmao` may be missing or empty.
/// An empty box is left alone. An error is reported. The result is always Empty.
Variant CompletaDescr(host::TextBox& txtBox, const String& strTabela, const String& strCampo,
                      const Variant& varTecla, bool blnTemIrmao, const Variant& varCampoIrmao,
                      _tsText* objIrmao, const String& strWhere);

}  // namespace tessaria::mdlObjTxt
