// Runs a lookup: from its definition to the key that the operator chooses.
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

/// Shows the list of a lookup and returns the chosen key as text, the old value when the operator
/// cancels, and "" when there is nothing to choose from. Errors are reported, and the result is the
/// one so far.
///
/// `sngTop` and `sngLeft` are the wanted position on the screen, in twips. `txtBox` is the box of
/// the control: the list of a description (`intTipoControle` 3) contains only what begins with its
/// typed text; its `Tag` is set when the list opens. `varValor` is the control's value; a blank one
/// receives the key of the first row. The texts are those of the definition; `strWhere` may contain
/// `@name@` parameters, which are replaced with values of the controls of `frmForm`; without a form
/// it stays unchanged. Without `objPesquisa` there are no searches. `strMsgBrowse`, unless blank,
/// replaces the message for an empty table. `lngHwnd` is the window of the control and owns the
/// messages. When a description has been chosen, the thread's sibling value is the key of its row.
/// `end`, unless null, receives how the list ended.
///
/// The arguments passed by reference are not used while the list shows or afterwards, so the
/// control and its form may be destroyed meanwhile.
String VerBrowse(float sngTop, float sngLeft, host::TextBox& txtBox, Variant& varValor,
                 const String& strTabela, const String& strCampo, const String& strCampoIrmao,
                 const String& strCampoOutros, const String& strGroupBy, const String& strLeftJoin,
                 const String& strWhere, const String& strTitulo, TipoControle intTipoControle,
                 const host::FormPtr& frmForm, ListaColunas& cgrColGrid,
                 std::shared_ptr<Pesquisa> objPesquisa, const String& strMsgBrowse, Long lngHwnd,
                 ListEnd* end = nullptr);

}  // namespace tessaria::mdlObjTxt
