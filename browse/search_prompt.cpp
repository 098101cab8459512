#include "browse/search_prompt.h"

#include <algorithm>

#include "browse/search_number.h"
#include "lookup/dialect.h"
#include "services/trap.h"
#include "tessaria/browse_definition.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext_interface.h"

namespace tessaria {

namespace {

using host::WidgetKind;

// Twips.
constexpr Long kRoomBesideEdit = 500;
constexpr Long kLeastWidth = 3500;
constexpr Long kEdge = 100;
constexpr Long kCancelFromRight = 1700;

constexpr host::WidgetDescription kPromptWidgets[] = {
    {u"editPesquisa", WidgetKind::TsText, u"Valor a pesquisar"},
    {u"btnOk", WidgetKind::CommandButton, u"&Ok"},
    {u"btnCancelar", WidgetKind::CommandButton, u"&Cancelar"},
};

}  // namespace

const host::DialogDescription& frmTsPesquisa::Description() {
  static const host::DialogDescription description{u"frmTsPesquisa", u"Pesquisa", kPromptWidgets};
  return description;
}

frmTsPesquisa::frmTsPesquisa()
    : dialog_(TheDesktop().MakeDialog(Description())),
      edit_(dialog_->Find<host::DialogField>(u"editPesquisa")),
      ok_(dialog_->Find<host::DialogButton>(u"btnOk")),
      cancel_(dialog_->Find<host::DialogButton>(u"btnCancelar")) {
  dialog_->dbForm(State().dbConexao);
  dialog_->OnActivate = [this] { Activate(); };
  edit_.OnChange = [this] { EditChanged(); };
  ok_.OnClick = [this] { Answer(ok_, true); };
  cancel_.OnClick = [this] { Answer(cancel_, false); };
  dialog_->OnCloseRequest = [this] { Answer(cancel_, false); };
}

frmTsPesquisa::~frmTsPesquisa() { dialog_->dbForm(nullptr); }

void frmTsPesquisa::Activate() {
  dialog_->Width(std::max(edit_.Width() + kRoomBesideEdit, kLeastWidth));
  ok_.Left(kEdge);
  cancel_.Left(dialog_->Width() - kCancelFromRight);
  edit_.Left((dialog_->Width() - kEdge - edit_.Width()) / 2);
  edit_.SetFocus();
}

void frmTsPesquisa::Tipo(Long lngTipo) {
  kind_ = lngTipo;
  if (mdlObjTxt::IsNumberSearch(kind_)) EditChanged();
}

void frmTsPesquisa::EditChanged() { ok_.Enabled(CanAnswer()); }

bool frmTsPesquisa::CanAnswer() const {
  const auto& control = edit_.Control();
  const String text = CStr(control.Get(u"Text"));
  const String mask = CStr(control.Get(u"Mascara"));
  const bool whole = CBool(control.Get(u"PromptInclude"));
  if (mdlObjTxt::IsNumberSearch(kind_)) {
    const String items = mdlObjTxt::MontaItensMascara(mask, CStr(control.Get(u"PromptChar")));
    const String typed = whole ? text : mdlObjTxt::LimpaMascara(text, mask, items);
    return mdlObjTxt::IsTypedNumber(typed, kind_, mask);
  }
  // Only a field with a mask keeps the typed text in `Texto`.
  const bool hasPlaces = whole && !mask.empty();
  return !Trim(hasPlaces ? CStr(control.Get(u"Texto")) : text).empty();
}

/// Tests the field's value, which is still that of an earlier text when the field refuses its text.
bool frmTsPesquisa::HasAnswer() const {
  const auto& control = edit_.Control();
  return !control.Get(u"Value").IsNull() && CBool(control.Get(u"LastValidaStatus")) && CanAnswer();
}

/// Focuses the button first, so that the field is left and its text is settled.
void frmTsPesquisa::Answer(host::DialogButton& button, bool confirmed) {
  button.SetFocus();
  App().DoEvents();
  if (confirmed && !HasAnswer()) return;
  Confirmou = confirmed;
  dialog_->Hide();
}

namespace mdlObjTxt {
namespace {

/// The prompt's `TipoDado` for a kind of search.
Long DataTypeFor(Long kind) {
  const bool known = kind == search_kind::Date || kind == search_kind::Number;
  return known ? kind : search_kind::Text;
}

/// The operator's answer in the form that `SearchCondition` takes.
String TypedValue(const host::TsTextWidget& edit, Long kind, const String& mask) {
  if (kind == search_kind::Date)
    return mdlComum::TraduzSQL(sql_fragment::Date, {}, {}, {}, {}, CStr(edit.Get(u"Text")));
  const Variant value = edit.Get(u"Value");
  if (!IsNumberSearch(kind)) {
    const String text = CStr(value);
    return StartsWith(mask, u"$") ? AmountNumber(text) : text;
  }
  if (const auto number = SearchNumber(value, mask)) return *number;
  throw HostError(errors::TypeMismatch);
}

/// Keeps the thread's sibling value while a prompt is open. The prompt's field takes and clears it,
/// but it belongs to the field whose list is open, which gets the focus back afterwards.
class KeptSiblingValue {
 public:
  KeptSiblingValue() : value_(State().vntValorIrmao) {}
  ~KeptSiblingValue() { State().vntValorIrmao = value_; }
  KeptSiblingValue(const KeptSiblingValue&) = delete;
  KeptSiblingValue& operator=(const KeptSiblingValue&) = delete;

 private:
  const Variant value_;
};

}  // namespace

bool tsMostraFormPesquisa(const String& strTabela, String strCampo, Long lngTipo, Long lngLike,
                          const String& strCaption, Integer intWidth, bool blnCompleta,
                          const String& strMascara, Integer intMaxLength, bool blnPromptInclude,
                          const String& strWhere, String& strClausula, bool blnCampoPronto) {
  bool result = true;
  Trap(u"mdlObjTxt", u"tsMostraFormPesquisa", [&] {
    const KeptSiblingValue kept;
    frmTsPesquisa form;
    auto& edit = form.editPesquisa().Control();
    edit.Let(u"PromptInclude", blnPromptInclude);
    form.editPesquisa().Width(intWidth);
    edit.Let(u"TipoDado", DataTypeFor(lngTipo));
    edit.Let(u"Mascara", strMascara);
    edit.Let(u"ObjetoCancelar", u"btnCancelar");
    if (intMaxLength != 0) edit.Let(u"MaxLength", Long{intMaxLength});
    // Part of a value is also an answer: it is not checked in its table, and may be blank.
    edit.Let(u"UsaChecaRelacao", false);
    edit.Let(u"PodeSerBranco", true);

    if (blnCompleta && lngTipo == search_kind::Text) {
      edit.Let(u"TipoControle", static_cast<Long>(TipoControle::Descricao));
      const auto definition = edit.Get(u"Browse").As<Browse>();
      definition->BrowseTable(strTabela);
      definition->BrwCampo(strCampo);
      definition->WherePronto(strWhere);
    } else if (lngTipo == search_kind::Date) {
      edit.Let(u"TipoControle", static_cast<Long>(TipoControle::Calendario));
    }

    form.Tipo(lngTipo);
    form.Window().Caption(u"Pesquisa " + strCaption);
    form.Window().ShowModal();
    if (!form.Confirmou) {
      result = false;
      return;
    }
    const String value = TypedValue(edit, lngTipo, strMascara);
    if (!blnCampoPronto) strCampo = QualifyField(strCampo, strTabela);
    const String clause = SearchCondition(strCampo, lngTipo, lngLike, value);
    if (clause.empty())
      throw HostError(errors::InvalidArgument,
                      u"A pesquisa \"" + strCaption + u"\" não diz como comparar.");
    strClausula = clause;
  });
  return result;
}

}  // namespace mdlObjTxt
}  // namespace tessaria
