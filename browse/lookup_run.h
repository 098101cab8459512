// The run of a lookup: from its definition to the key that the operator picks.
#pragma once

#include <memory>

#include "tessaria/grid_columns.h"
#include "tessaria/host/form.h"
#include "tessaria/host/widgets.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/tstext_interface.h"

namespace tessaria::mdlObjTxt {

/// How a list ended.
enum class ListEnd {
  Answered,  ///< a key was chosen, or the table is empty
  NoChoice,  ///< the operator left it without a choice
  Failed     ///< no list could be shown, or an error ended it
};

/// Shows the list of a lookup and gives the chosen key as text, the old value on a cancel, "" when
/// there is nothing to choose from. Errors are reported, and the result is as it stood then.
///
/// `sngTop` and `sngLeft` are the wanted place on the screen, twips. `txtBox` is the box of the
/// control: the list of a description (`intTipoControle` 3) holds only what begins with its typed
/// text; its `Tag` is set as the list opens. `varValor` is the control's value; a blank one takes
/// the key of the first row. The texts are those of the definition; `strWhere` may hold `@name@`
/// parameters, which the controls of `frmForm` answer; with no form it stays as it is.
/// `objPesquisa` may be nothing: no searches. `strMsgBrowse` replaces the message of an empty table
/// unless blank. `lngHwnd` is the window of the control and owns the messages. After a choice of a
/// description the thread's sibling value is the key of its row. `end`, unless null, tells how the
/// list ended.
///
/// References are not used any more once the list shows, so that the control and its form may go
/// away under it.
String VerBrowse(float sngTop, float sngLeft, host::TextBox& txtBox, Variant& varValor,
                 const String& strTabela, const String& strCampo, const String& strCampoIrmao,
                 const String& strCampoOutros, const String& strGroupBy, const String& strLeftJoin,
                 const String& strWhere, const String& strTitulo, TipoControle intTipoControle,
                 const host::FormPtr& frmForm, ListaColunas& cgrColGrid,
                 std::shared_ptr<Pesquisa> objPesquisa, const String& strMsgBrowse, Long lngHwnd,
                 ListEnd* end = nullptr);

}  // namespace tessaria::mdlObjTxt
