// The prompt of a search.
#pragma once

#include "browse/search_clause.h"
#include "tessaria/host/dialog.h"

namespace tessaria {

/// The window that asks for the value to search for. Each search creates a new one.
class frmTsPesquisa {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();

  /// Gives its control the thread's connection. Error 91 when no window can open.
  frmTsPesquisa();
  frmTsPesquisa(const frmTsPesquisa&) = delete;
  frmTsPesquisa& operator=(const frmTsPesquisa&) = delete;
  ~frmTsPesquisa();

  /// True when the operator has entered a value.
  bool Confirmou = false;
  /// Sets the kind of the search, as in its entry. All kinds except date and text accept only a
  /// number: "Ok" is disabled while the box does not contain one.
  void Tipo(Long lngTipo);

  host::DialogField& editPesquisa() { return edit_; }
  host::Dialog& Window() { return *dialog_; }

 private:
  void Activate();
  void EditChanged();
  bool CanAnswer() const;
  bool HasAnswer() const;
  void Answer(host::DialogButton& button, bool confirmed);

  host::DialogPtr dialog_;
  host::DialogField& edit_;
  host::DialogButton& ok_;
  host::DialogButton& cancel_;
  Long kind_ = mdlObjTxt::search_kind::Text;
};

namespace mdlObjTxt {

/// Asks for the value of one search and writes its condition into `strClausula`. Returns false,
/// with `strClausula` unchanged, when the operator cancels. `strTabela` qualifies the field, unless
/// `blnCampoPronto` is true; `blnCompleta` turns on completion in the prompt for a text, which
/// `strWhere` limits. `intWidth` is the prompt's width in twips; `intMaxLength` 0 means no limit.
/// An error, such as an unknown `lngLike` of a text, is reported; the function then returns true
/// and leaves `strClausula` unchanged.
bool tsMostraFormPesquisa(const String& strTabela, String strCampo, Long lngTipo, Long lngLike,
                          const String& strCaption, Integer intWidth, bool blnCompleta,
                          const String& strMascara, Integer intMaxLength, bool blnPromptInclude,
                          const String& strWhere, String& strClausula, bool blnCampoPronto);

}  // namespace mdlObjTxt
}  // namespace tessaria
