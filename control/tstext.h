// The control: a text box that knows what it holds.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "control/members.h"
#include "control/shown_text.h"
#include "mask/masked_field.h"
#include "tessaria/export.h"
#include "tessaria/host/control.h"
#include "tessaria/tstext_interface.h"

namespace tessaria {

class frmCalculadora;
enum class FieldFamily;
namespace mdlObjTxt {
enum class FimDaLista;
}

/// A data-entry field: text box and button on one surface.
///
/// A host creates one with the widgets of the surface, then calls the `UserControl_...` entry
/// points as the surface's events come in: InitProperties for a new control or ReadProperties
/// for a stored one, Show at each appearance, EnterFocus and ExitFocus around the whole
/// surface, the surface's key events, Resize, Terminate at the end. The constructor is the
/// Initialize; it connects the events of the two widgets.
///
/// The names that tie a control to its form (data control, sibling, label) are resolved at the
/// moment of use. Property setters raise in the caller what goes wrong in them, and end in
/// `ControlSite::PropertyChanged`; the entry points report their errors themselves, except
/// where a declaration says otherwise.
class TESSARIA_HOST_API tsText final : public _tsText, private MaskedField {
 public:
  /// All four outlive the control.
  tsText(host::ControlSite& site, host::TextBox& txtEdit, host::CommandButton& btnBrowse,
         tsTextEvents& events);
  ~tsText() override;

  // --- What the surface's host calls -----------------------------------------------------------

  /// Start values of a control that is newly placed on a form.
  void UserControl_InitProperties();
  /// Fills the members straight from the bag, with no side effects.
  void UserControl_ReadProperties(const host::PropertyBag& bag);
  void UserControl_WriteProperties(host::PropertyBag& bag);
  /// The first call resolves names, loads the row, draws and raises `Show`; later ones do nothing.
  void UserControl_Show();
  void UserControl_Resize();
  void UserControl_EnterFocus();
  /// Settles the field and tells how that ended: this is how a host or a program asks whether the
  /// field may be left. A field that the focus leaves for its own button or for `ObjetoCancelar`
  /// may be, with its text as it stands. A field that nobody has touched is not written, and is
  /// `NotStored` never.
  ExitVerdict UserControl_ExitFocus();
  /// Whether leaving the field now would settle anything, for a host whose action runs while the
  /// field keeps the focus: a text that the operator or a program has changed, a value assigned
  /// since the focus came in, an exit or a check that failed, or a blank that an action may find.
  bool HasToSettle() const;
  /// These three pass the key on to the application; errors of its handlers surface here. A host
  /// calls KeyUp for every release but those of auto-repeat; PageDown opens the dialog only when
  /// its key-down came to this control too. The key-up of the box itself (`TextBox::OnKeyUp`)
  /// comes behind it, and only for a key whose key-down the box had; once with code 0 for a text
  /// that came without a key. A key that is held while the focus goes has none.
  void UserControl_KeyDown(Integer& KeyCode, Integer& Shift);
  void UserControl_KeyPress(Integer& KeyAscii);
  void UserControl_KeyUp(Integer& KeyCode, Integer& Shift);
  void UserControl_Terminate();

  // --- Methods ---------------------------------------------------------------------------------

  /// Resolves all names anew and loads the current row. The result is always Empty.
  Variant Refresh();
  /// Whether the field may be left, judged by which control has taken the focus. Shows its own
  /// messages and takes the focus back when it refuses. Mostly also kept in `LastValidaStatus`.
  bool Valida();
  /// The relation check alone: no message for a missing row, no focus work, no status.
  bool AcionaChecaRelacao();
  Variant AtualizaIrmao(bool ApenasTsBrowse = false, bool DisparaBrowseReturn = false) override;
  void ShowSibling(bool ApenasTsBrowse) override;
  Variant DisparaEventos(const String& strEvento) override;
  /// Sets the value that changes are measured against to Empty.
  void ClearLastValue();

  // --- Surroundings ----------------------------------------------------------------------------

  /// The surface's window handle at run time, 0 at design time.
  Long hWnd() const;
  /// The control's name on its form. Assigning shows a message and changes nothing.
  String Nome() const;
  void Nome(const String& v);
  /// Name of the data control on the form; takes effect at the next `Refresh`.
  String DataSource() const { return m_.DataSource; }
  void DataSource(const String& v) { Store(m_.DataSource, v, u"DataSource"); }
  /// Field of its record set, without regard to case; takes effect at the next `Refresh`.
  String DataField() const { return m_.DataField; }
  void DataField(const String& v) { Store(m_.DataField, v, u"DataField"); }
  /// Decimal text of the field's ordinal from 0, a cache that corrects itself.
  String PosDataField() const { return m_.PosDataField; }
  void PosDataField(const String& v) { Store(m_.PosDataField, v, u"PosDataField"); }
  /// Name of the sibling control: a key's description, or a description's key. The control's own
  /// name is refused with a message. Takes effect at the next `Refresh`.
  String TxtIrmao() const override { return m_.TxtIrmao; }
  void TxtIrmao(const String& v);
  /// Name of the caption label. Can be assigned at design time only, and not the control's own
  /// name; both refusals show a message.
  String LabelAssociado() const { return m_.LabelAssociado; }
  void LabelAssociado(const String& v);
  /// Number of the tab that the control lies on, trimmed; "" for none.
  String NumeroTab() const;
  void NumeroTab(const String& v);
  /// Name of the control that escapes validation when it takes the focus.
  String ObjetoCancelar() const { return m_.ObjetoCancelar; }
  void ObjetoCancelar(const String& v) { Store(m_.ObjetoCancelar, v, u"ObjetoCancelar"); }

  // --- Kind and value ----------------------------------------------------------------------------

  /// Types 2 and 5 also set `PromptInclude`.
  tessaria::TipoControle TipoControle() const override { return m_.TipoControle; }
  void TipoControle(tessaria::TipoControle v);
  /// Type code of an unbound value: 2, 4, 5 number, 7 date, any other text.
  Long TipoDado() const override { return m_.TipoDado; }
  void TipoDado(Long v) { Store(m_.TipoDado, v, u"TipoDado"); }
  /// The typed value. Assigning converts it by the field's type, writes it to the bound field,
  /// reads it back, shows it through the mask and refreshes the sibling. Refusals show a box.
  Variant Value() const override { return m_.Value; }
  void Value(const Variant& v) override;
  bool TakeValue(const Variant& v) override;
  void ShowValue(const Variant& v) override;
  /// Value of the row as it was loaded. Assigning shows a message and changes nothing.
  Variant OriginalValue() const { return m_.OriginalValue; }
  void OriginalValue(const Variant& v);
  /// The value that changes are measured against; write-only.
  void LastValue(const String& v);
  /// The typed characters without the mask's literals. Assigning writes the box too: the text,
  /// or as many password characters.
  String Texto() const override { return m_.Texto; }
  void Texto(const String& v) override;
  /// Both for a host that takes an edit back. Restoring writes the box as `Texto` does.
  Typing CurrentTyping() const { return {m_.Texto, shown_.IsTyped()}; }
  void RestoreTyping(const Typing& typing);
  /// The box as it stands; no mask work and no effect on `Value`.
  String Text() const;
  void Text(const String& v);
  /// The field may stay blank.
  bool PodeSerBranco() const { return m_.PodeSerBranco; }
  void PodeSerBranco(bool v) { Store(m_.PodeSerBranco, v, u"PodeSerBranco"); }
  /// Validation looks the value up in the lookup's table.
  bool UsaChecaRelacao() const { return m_.UsaChecaRelacao; }
  void UsaChecaRelacao(bool v) { Store(m_.UsaChecaRelacao, v, u"UsaChecaRelacao"); }
  /// Outcome of the last validation; true until there was one.
  bool LastValidaStatus() const override { return m_.LastValidaStatus; }
  void LastValidaStatus(bool v) { Store(m_.LastValidaStatus, v, u"LastValidaStatus"); }

  // --- Mask --------------------------------------------------------------------------------------

  /// The mask; "" for none. At run time the box is laid out anew, without touching `Value`.
  String Mascara() const override { return m_.Mascara; }
  void Mascara(const String& v);
  /// The fill character; only the first character is kept.
  String PromptChar() const override { return m_.PromptChar; }
  void PromptChar(const String& v);
  /// The value keeps the mask's literals and fill characters.
  bool PromptInclude() const { return m_.PromptInclude; }
  void PromptInclude(bool v) { Store(m_.PromptInclude, v, u"PromptInclude"); }
  /// Zero fill on leaving: 1 the whole text, any other run by run of the mask.
  Long TipoStrZero() const { return m_.TipoStrZero; }
  void TipoStrZero(Long v) { Store(m_.TipoStrZero, v, u"TipoStrZero"); }
  /// A numeric mask accepts a minus sign. Such a field needs a `MaxLength`.
  bool ValorNegativo() const override { return m_.ValorNegativo; }
  void ValorNegativo(bool v) { Store(m_.ValorNegativo, v, u"ValorNegativo"); }
  /// The box's password character; "" shows the text itself.
  String PasswordChar() const;
  void PasswordChar(const String& v);
  /// Most characters that the operator can type or paste; 0 is no limit there, and no integer
  /// digits for a sign. Texts of the program, of a row or of a lookup are taken whole.
  Long MaxLength() const;
  void MaxLength(Long v);
  /// Selection in the box: from 0, in characters.
  Long SelStart() const;
  void SelStart(Long v);
  Long SelLength() const;
  void SelLength(Long v);
  String SelText() const;
  void SelText(const String& v);

  // --- Looks -------------------------------------------------------------------------------------

  /// Of the box. A key field hands it on to its description when the two name each other.
  bool Enabled() const override;
  void Enabled(bool v) override;
  Colour Forecolor() const;
  void Forecolor(Colour v);
  /// Of the box and the surface.
  Colour BackColor() const;
  void BackColor(Colour v);
  host::Font Font() const;
  void Font(const host::Font& v);
  /// Marks the field: green, bold caption.
  bool eSocial() const { return m_.eSocial; }
  void eSocial(bool v) { Store(m_.eSocial, v, u"eSocial"); }
  /// Stored only.
  bool MultiLine() const { return m_.MultiLine; }
  void MultiLine(bool v) { Store(m_.MultiLine, v, u"MultiLine"); }
  /// False only while the first show runs, and after one that failed.
  bool Carregou() const { return m_.Carregou; }

  // --- Lookup ------------------------------------------------------------------------------------

  /// The lookup's definition; created on first need, never nothing.
  std::shared_ptr<tessaria::Browse> Browse() const;
  void Browse(const std::shared_ptr<tessaria::Browse>& v);
  /// The eight texts of the lookup: the control's own when not empty, otherwise the definition's.
  /// Assigning sets both.
  String BrwTitulo() const;
  void BrwTitulo(const String& v);
  String BrowseTable() const;
  void BrowseTable(const String& v);
  String BrwCampo() const;
  void BrwCampo(const String& v);
  String BrwCampoIrmao() const;
  void BrwCampoIrmao(const String& v);
  String BrwCampoOutros() const;
  void BrwCampoOutros(const String& v);
  String BrwGroupBy() const;
  void BrwGroupBy(const String& v);
  String BrwLeftJoin() const;
  void BrwLeftJoin(const String& v);
  String BrwWhere() const;
  void BrwWhere(const String& v);
  /// The searches of the lookup's grid; created on first need.
  std::shared_ptr<tessaria::Pesquisa> Pesquisa() const;
  void Pesquisa(const std::shared_ptr<tessaria::Pesquisa>& v);
  /// The older text form of the searches: one field per search, each closed by character 3.
  String PesqCaption() const { return m_.PesqCaption; }
  void PesqCaption(const String& v) { Store(m_.PesqCaption, v, u"PesqCaption"); }
  String PesqCampo() const { return m_.PesqCampo; }
  void PesqCampo(const String& v) { Store(m_.PesqCampo, v, u"PesqCampo"); }
  String PesqMascara() const { return m_.PesqMascara; }
  void PesqMascara(const String& v) { Store(m_.PesqMascara, v, u"PesqMascara"); }
  String PesqWidth() const { return m_.PesqWidth; }
  void PesqWidth(const String& v) { Store(m_.PesqWidth, v, u"PesqWidth"); }
  String PesqTipo() const { return m_.PesqTipo; }
  void PesqTipo(const String& v) { Store(m_.PesqTipo, v, u"PesqTipo"); }
  String PesqLike() const { return m_.PesqLike; }
  void PesqLike(const String& v) { Store(m_.PesqLike, v, u"PesqLike"); }
  String PesqMaxLength() const { return m_.PesqMaxLength; }
  void PesqMaxLength(const String& v) { Store(m_.PesqMaxLength, v, u"PesqMaxLength"); }
  String PesqCompletaDescr() const { return m_.PesqCompletaDescr; }
  void PesqCompletaDescr(const String& v) { Store(m_.PesqCompletaDescr, v, u"PesqCompletaDescr"); }
  String PesqPromptInclude() const { return m_.PesqPromptInclude; }
  void PesqPromptInclude(const String& v) { Store(m_.PesqPromptInclude, v, u"PesqPromptInclude"); }
  /// Message of a lookup that finds nothing; blank for the standard one.
  String MsgBrowse() const { return m_.MsgBrowse; }
  void MsgBrowse(const String& v) { Store(m_.MsgBrowse, v, u"MsgBrowse"); }

  // --- Folder picker -----------------------------------------------------------------------------

  /// The picker lists files too, and the text is split into folder and file.
  bool DirVerArquivos() const { return m_.DirVerArquivos; }
  void DirVerArquivos(bool v) { Store(m_.DirVerArquivos, v, u"DirVerArquivos"); }
  String DirPattern() const { return m_.DirPattern; }
  void DirPattern(const String& v) { Store(m_.DirPattern, v, u"DirPattern"); }
  String DirFilePath() const { return m_.DirFilePath; }
  void DirFilePath(const String& v) { Store(m_.DirFilePath, v, u"DirFilePath"); }
  String DirFileName() const { return m_.DirFileName; }
  void DirFileName(const String& v) { Store(m_.DirFileName, v, u"DirFileName"); }

  // --- For the library's own modules
  // ---------------------------------------------------------------

  /// The fill character and the literals of the mask, each once.
  String ItensMascara() const override { return m_.ItensMascara; }
  void ItensMascara(const String& v) { Store(m_.ItensMascara, v, u"ItensMascara"); }
  /// The bound field, found by name at each call; nothing when not bound.
  host::FieldPtr CampoVinculado() const;
  host::WidgetPtr ContainerDoControle() const;
  host::FormPtr FormDoControle() const;
  /// Assigns the bound field.
  void GravaValorCampo(const Variant& v);
  /// Resolves names: "Irmao", "DataSource", "Campo", "Label", or "Todos" for all of them. True
  /// when a field was bound and loaded, which only "Todos" can do.
  bool SetarVariaveis(StringView what);
  /// Why the first show in the designer could not look into the database; "" when it could. For
  /// the property page to tell.
  String DesignTimeError() const { return designTimeError_; }
  /// A message that only a visible form shows. Flags and title as `ExibeMensagem` takes them.
  void MsgSeVisivel(const String& text, Long flags, const String& title);

 private:
  friend struct MemberAccess;  // the property table's way to the members

  template <class T>
  void Store(T& member, const T& v, const char16_t* name) {
    member = v;
    site_.PropertyChanged(name);
  }

  // MaskedField
  host::TextBox& Box() override { return txtEdit_; }
  void GuardaTexto(const String& text) override { m_.Texto = text; }
  void AbreCalculadora() override;

  // Events of the two widgets
  void txtEdit_Change();
  void FilterKeyDown(Integer& KeyCode, Integer& Shift);
  void FilterKeyPress(Integer& KeyAscii);
  void txtEdit_KeyUp(Integer KeyCode);
  void txtEdit_GotFocus();
  void txtEdit_LostFocus();

  // Value
  /// Whether an assignment writes the bound field, or only shows what a row holds.
  enum class Road { Write, Show };
  /// What the first steps of an assignment made of the value.
  struct Taken {
    Variant Shown;  ///< what the box will show
    bool IsStored = false;
    ShownText::What What = ShownText::What::Value;
  };
  bool Assign(const Variant& argument, Road road);
  void AssignItself();
  void ShowAgain(ShownText::What what, Road road);
  Taken AssignUnbound(const Variant& v, Road road);
  Taken AssignBound(const Variant& v, Road road);
  template <class Convert>
  static Taken Converted(const Variant& v, Road road, Convert convert);
  Variant ConvertUnbound(const Variant& v) const;
  Variant ConvertBound(const Variant& v, FieldFamily family, bool acceptsNull) const;
  void WriteField(Taken& taken);
  void TextoFromValue();
  void Present(const Taken& taken, Road road);
  void Display(const Taken& taken);
  static bool IsSame(const Variant& a, const Variant& b);
  bool ValueChanged() const;
  bool EhNumerica() const;
  bool EhEmbaralhada() const;
  String LaidOut(const Variant& v) const;
  String Stripped() const;

  // What the box was left showing
  bool IsTouched() const;
  bool HidesTexto() const;
  bool ShowsStoredText() const;
  void WriteBox(const String& text);
  template <class Body>
  void WithoutTouching(Body&& body);

  // Sibling
  void SiblingStep(Road road);
  String SiblingCondition() const;
  void HandOn(const Variant& value, Road road);
  void RefreshSibling(bool ApenasTsBrowse, bool DisparaBrowseReturn, Road road);
  bool HandsOnToSibling() const;
  bool LookupIsComplete() const;
  void EmptyReturnFields();
  std::shared_ptr<host::TsTextWidget> Sibling() const;
  /// The definition's where text with its parameters replaced.
  String Condition() const;
  /// A where text with its parameters replaced.
  String Expanded(const String& where) const;
  String SiblingLiteral() const;
  void FetchSiblingLiteral();
  void CompleteDescription(Integer KeyCode);

  // Discovery
  bool ConnectDatabase();
  bool FindDataControl();
  bool BindField();
  void LoadRow();
  void AchaObjetos();
  void CacheFieldOrdinal(host::DataControl& control);
  void AtualizaPesquisa();
  std::shared_ptr<host::DataControl> DataControlByName() const;
  host::RecordsetPtr BoundRecordset() const;
  /// A control of the form by the name that the property holds. Error 730 tells both.
  host::WidgetPtr Named(const char16_t* property, const String& name) const;
  /// Raises the pending error again; error 730 then tells the property and this field.
  [[noreturn]] void RaiseNaming(const char16_t* property) const;

  // Validation
  /// How the rules of leaving end. Escaped: the focus goes where nothing is checked.
  enum class Check { Passed, Refused, Escaped };
  Check CheckText();
  Check CheckRules();
  bool CheckDate(const String& label);
  bool CheckRelation(const String& label);
  bool RelationHolds(String condition, const String& label, bool tellsMissing, Variant* found,
                     bool buttonIsActive);
  bool IsForbiddenBlank() const;
  bool Cancels() const;
  bool CommandButtonIsActive() const;
  String LabelPrefix() const;
  String SearchedText() const;
  void ReturnFocus();
  void Refuse(const String& text);

  // Focus
  String WithoutPoints() const;
  void SelectWhole();
  void Settle(ExitVerdict& verdict);
  void FillZeros();
  bool AssignTyped();
  void ReportChange();

  // Button
  struct DialogPlace {
    float Top;
    float Left;
  };
  void btnBrowse_Click();
  DialogPlace PlaceBelow() const;
  void PickFromList(const DialogPlace& place);
  void TakeFromList(mdlObjTxt::FimDaLista end, const String& key);
  bool ExpandForList(String& where) const;
  void PickDate(const DialogPlace& place);
  void PickPath(const DialogPlace& place);
  void TakeAnswer(const Variant& answer, bool isOwn);
  /// An answer, and whether it is no more than the field's own value.
  struct Calculated {
    Variant Answer;
    bool IsOwn;
  };
  Calculated Calculate(frmCalculadora& calculator, const DialogPlace& place);
  void CalculateChecked(const DialogPlace& place);
  bool CalculationFits();
  /// What the field and its row hold before an answer that may be taken back.
  struct Held {
    Variant Value;
    std::optional<Variant> Stored;  ///< nothing where there is no row
    ShownText::What Shows;
  };
  Held Holds() const;
  void GiveBack(const Held& before);

  // Looks
  void AtualizaExibicao();
  void ShowAtDesignTime();
  void ShowAtRunTime();
  void FitMaskToField();
  bool ShowsButton() const;
  void LoadButtonPicture();
  void ColourCaption();
  void ColourLabel(Colour colour);
  void DrawForecolor(Colour v);
  void PutForecolor(Colour v);
  void DrawBackColor(Colour v);
  void PutBackColor(Colour v);
  std::shared_ptr<host::Label> LabelWidget() const;

  host::ControlSite& site_;
  host::TextBox& txtEdit_;
  host::CommandButton& btnBrowse_;
  tsTextEvents& events_;
  mutable Members m_;  // the definitions are created on first need, reading included
  ShownText shown_;
  String designTimeError_;
  ExitVerdict lastExit_ = ExitVerdict::Left;
  bool pageDownIsHeld_ = false;
  bool loading_ = false;
  bool filtering_ = false;         ///< a key of the box is on its way through the filter
  std::vector<Variant> handedOn_;  ///< values whose sibling step is running, outermost first
};

/// What the field itself does to its box in `body` does not touch it, also when it breaks off.
template <class Body>
void tsText::WithoutTouching(Body&& body) {
  const bool touched = IsTouched();
  const auto remember = [&] {
    if (!touched) shown_.Remember(txtEdit_.Text(), m_.Texto);
  };
  try {
    const ShownText::OwnWrite own(shown_);
    body();
  } catch (...) {
    remember();
    throw;
  }
  remember();
}

}  // namespace tessaria
