// Finds the description of a code, and completes a typed text to a description.
#pragma once

#include "tessaria/browse_definition.h"
#include "tessaria/host/widgets.h"
#include "tessaria/tstext_interface.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// The result of a search for a description.
struct FoundDescription {
  Variant Value;       ///< Empty without a row
  bool Failed = true;  ///< an error ended the search, and has been reported
};

/// `AchaDescr` for a caller that needs to know whether the search failed; `controlName` corresponds
/// to `strNomeControle`.
FoundDescription SearchDescription(Browse& browse, const Variant& value, const String& controlName,
                                   const String& where);

/// Fetches the row of the code `varValor` with one statement on the thread's connection. Returns
/// the first selected field, Empty when there is no row. Sets `Valor` of each entry of
/// `objBrowse.Outros()` that the select list names, and of the others to Empty. With nothing to
/// select, the database is not queried and `Outros` does not change. `strWhere` is a further
/// condition, already expanded. `strNomeControle` names the control in the error for a value that
/// is not one SQL token; `lngHwnd` is not used. Host events are processed once at the end. An error
/// is reported; the function then returns the result so far and leaves `Outros` unchanged.
Variant AchaDescr(Browse& objBrowse, const Variant& varValor, const String& strNomeControle,
                  const String& strWhere, Long lngHwnd);

/// Completes the text of `txtBox` with the first `strCampo` of `strTabela` that begins with it,
/// and selects the added part. The key code 8 first removes the last character. With
/// `blnTemIrmao` the field `varCampoIrmao` is passed to `objIrmao`, which then raises its
/// BrowseReturn; otherwise `objIrmao` may be null. `varCampoIrmao` may be missing or empty.
/// Does nothing for an empty box. An error is reported. The result is always Empty.
Variant CompletaDescr(host::TextBox& txtBox, const String& strTabela, const String& strCampo,
                      const Variant& varTecla, bool blnTemIrmao, const Variant& varCampoIrmao,
                      _tsText* objIrmao, const String& strWhere);

}  // namespace tessaria::mdlObjTxt
