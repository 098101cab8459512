// The prompt of a search.
#pragma once

#include "browse/search_clause.h"
#include "tessaria/host/dialog.h"

namespace tessaria {

/// The window that asks for the value to search for. A new one for each search.
class frmTsPesquisa {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();

  /// The control on it finds the thread's connection. Error 91 when no window can open.
  frmTsPesquisa();
  frmTsPesquisa(const frmTsPesquisa&) = delete;
  frmTsPesquisa& operator=(const frmTsPesquisa&) = delete;
  ~frmTsPesquisa();

  /// The operator gave a value.
  bool Confirmou = false;
  /// The kind of the search, as its entry has it. Any but a date and a text takes only a number:
  /// "Ok" is off while the box holds none.
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

/// Asks for the value of one search and writes its condition into `strClausula`; false when the
/// operator cancels, with `strClausula` untouched. `strTabela` qualifies the field, unless
/// `blnCampoPronto`; `strWhere` limits the completion of the prompt for a text, which
/// `blnCompleta` asks for. `intWidth` is the prompt's width in twips; `intMaxLength` 0 sets no
/// limit. An error is reported and gives true, with `strClausula` as it stood; so does an unknown
/// `lngLike` of a text.
bool tsMostraFormPesquisa(const String& strTabela, String strCampo, Long lngTipo, Long lngLike,
                          const String& strCaption, Integer intWidth, bool blnCompleta,
                          const String& strMascara, Integer intMaxLength, bool blnPromptInclude,
                          const String& strWhere, String& strClausula, bool blnCampoPronto);

}  // namespace mdlObjTxt
}  // namespace tessaria
