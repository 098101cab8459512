// The control: a text box with a typed value.
#pragma once

#include <memory>

#include "tessaria/browse_definition.h"
#include "tessaria/export.h"
#include "tessaria/host/control.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/tstext_interface.h"
#include "tessaria/validators.h"

namespace tessaria {

/// What the operator has typed, for a host that undoes an edit.
struct Typing {
  String Texto;          ///< the typed characters, which a password hides
  bool Touches = false;  ///< whether it counts when the field is left
};

/// A data-entry field: text box and button on one surface.
///
/// A host creates one with the widgets of the surface, then calls the `UserControl_...` entry
/// points as the surface's events come in: InitProperties for a new control or ReadProperties
/// for a stored one, Show at each appearance, EnterFocus and ExitFocus around the whole
/// surface, the surface's key events, Resize, Terminate at the end. The constructor is the
/// Initialize; it connects the events of the two widgets.
///
/// The names that tie a control to its form (data control, sibling, label) are resolved at the
/// moment of use. Property setters raise their errors in the caller, and end by calling
/// `ControlSite::PropertyChanged`; the entry points report their errors themselves, except where a
/// declaration says otherwise.
class TESSARIA_CORE_API tsText final : public _tsText {
 public:
  /// All four outlive the control.
  tsText(host::ControlSite& site, host::TextBox& txtEdit, host::CommandButton& btnBrowse,
         tsTextEvents& events);
  ~tsText() override;

  // --- What the surface's host calls -----------------------------------------------------------

  /// Sets the start values of a control that is newly placed on a form.
  void UserControl_InitProperties();
  /// Fills the members directly from the bag, without side effects.
  void UserControl_ReadProperties(const host::PropertyBag& bag);
  /// Writes the stored properties to the bag, which keeps those that differ from their defaults.
  /// Errors of all three are reported.
  void UserControl_WriteProperties(host::PropertyBag& bag);
  /// The first call resolves names, loads the row, draws and raises `Show`; later ones do nothing.
  void UserControl_Show();
  /// Places box and button after the surface has changed its size.
  void UserControl_Resize();
  /// The operator enters the field: the text is shown as it is edited, and selected.
  void UserControl_EnterFocus();
  /// Settles the field and returns the outcome: a host or a program calls it to find out whether
  /// the field may be left. A field that the focus leaves for its own button or for
  /// `ObjetoCancelar` may be left, with its text as it stands. A field that nobody has touched is
  /// not written and never `NotStored`.
  ExitVerdict UserControl_ExitFocus();
  /// Whether leaving the field now would settle anything, for a host whose action runs while the
  /// field keeps the focus: a text that the operator or a program has changed, a value assigned
  /// since the field got the focus, an exit or a check that failed, or a blank that must not remain
  /// when an action runs.
  bool HasToSettle() const;
  /// Whether the box shows something other than the field's value: what the operator or a program
  /// has put there and nothing has settled yet, or what was refused.
  bool IsTouched() const;
  /// The text with which the field would show a value of its row. Raises the errors of the row.
  String TextOf(const Variant& value) const;
  /// These three pass the key on to the application and raise the errors of its handlers. A host
  /// calls KeyUp for every release except those of auto-repeat; PageDown opens the dialog only when
  /// its key-down came to this control too. The key-up of the box itself (`TextBox::OnKeyUp`)
  /// follows it, only for a key whose key-down the box received, and once with code 0 for a text
  /// that came without a key. A key that is held while the focus leaves has none.
  void UserControl_KeyDown(Integer& KeyCode, Integer& Shift);
  /// The surface's key-press, by the code of its character.
  void UserControl_KeyPress(Integer& KeyAscii);
  /// The surface's key-up.
  void UserControl_KeyUp(Integer& KeyCode, Integer& Shift);
  /// The surface is about to go: nothing is reported any more.
  void UserControl_Terminate();

  // --- Methods ---------------------------------------------------------------------------------

  /// Resolves all names again and loads the current row. The result is always Empty.
  Variant Refresh();
  /// Whether the field may be left, depending on which control has taken the focus. Shows its own
  /// messages and takes the focus back when it refuses. In most cases the result is also kept in
  /// `LastValidaStatus`.
  bool Valida();
  /// The relation check alone: no message for a missing row, no change of focus, no status.
  bool AcionaChecaRelacao();
  Variant AtualizaIrmao(bool ApenasTsBrowse = false, bool DisparaBrowseReturn = false) override;
  void ShowSibling(bool ApenasTsBrowse) override;
  Variant DisparaEventos(const String& strEvento) override;
  /// Sets the value that changes are compared with to Empty.
  void ClearLastValue();

  // --- Surroundings ----------------------------------------------------------------------------

  /// The surface's window handle at run time, 0 at design time.
  Long hWnd() const;
  /// The control's name on its form. Assigning shows a message and changes nothing.
  String Nome() const;
  void Nome(const String& v);
  /// Name of the data control on the form; takes effect at the next `Refresh`.
  String DataSource() const;
  void DataSource(const String& v);
  /// Field of its record set, without regard to case; takes effect at the next `Refresh`.
  String DataField() const;
  void DataField(const String& v);
  /// Decimal text of the field's ordinal from 0, a cache that corrects itself.
  String PosDataField() const;
  void PosDataField(const String& v);
  /// Name of the sibling control: a key's description, or a description's key. The control's own
  /// name is refused with a message. Takes effect at the next `Refresh`.
  String TxtIrmao() const override;
  void TxtIrmao(const String& v);
  /// Name of the caption label. Can be assigned at design time only, and not the control's own
  /// name; both refusals show a message.
  String LabelAssociado() const;
  void LabelAssociado(const String& v);
  /// Number of the tab that the control is on, trimmed; "" for none.
  String NumeroTab() const;
  void NumeroTab(const String& v);
  /// Name of the control that can take the focus without validation.
  String ObjetoCancelar() const;
  void ObjetoCancelar(const String& v);

  // --- Kind and value ----------------------------------------------------------------------------

  /// Types 2 and 5 also set `PromptInclude`.
  tessaria::TipoControle TipoControle() const;
  void TipoControle(tessaria::TipoControle v);
  /// Type code of an unbound value: 2, 4, 5 number, 7 date, any other text.
  Long TipoDado() const override;
  void TipoDado(Long v);
  /// The typed value. Assigning converts it by the field's type, writes it to the bound field,
  /// reads it back, shows it through the mask and refreshes the sibling. Refusals show a message
  /// box.
  Variant Value() const override;
  void Value(const Variant& v) override;
  bool TakeValue(const Variant& v) override;
  void ShowValue(const Variant& v) override;
  /// Value of the row as it was loaded. Assigning shows a message and changes nothing.
  Variant OriginalValue() const;
  void OriginalValue(const Variant& v);
  /// The value that changes are compared with; write-only.
  void LastValue(const String& v);
  /// The typed characters without the mask's literals. Assigning writes the box too: the text,
  /// or as many password characters.
  String Texto() const;
  void Texto(const String& v);
  /// Both are for a host that undoes an edit. Restoring writes the box as `Texto` does.
  Typing CurrentTyping() const;
  /// Restores what `CurrentTyping` has returned.
  void RestoreTyping(const Typing& typing);
  /// The text of the box as it stands, without the mask's work and without effect on `Value`.
  String Text() const;
  void Text(const String& v);
  /// Whether the field may stay blank.
  bool PodeSerBranco() const;
  void PodeSerBranco(bool v);
  /// Whether validation looks the value up in the lookup's table.
  bool UsaChecaRelacao() const;
  void UsaChecaRelacao(bool v);
  /// Adds a check of the program's, made when the field is left with a text that the operator
  /// wrote, before the text is looked up. Not stored; empty for none.
  void Validator(tessaria::Validator validator);
  /// Outcome of the last validation; true before the first one.
  bool LastValidaStatus() const override;
  void LastValidaStatus(bool v);

  // --- Mask --------------------------------------------------------------------------------------

  /// The mask; "" for none. At run time the box is laid out again; `Value` stays unchanged.
  String Mascara() const;
  void Mascara(const String& v);
  /// The fill character; only the first character is kept.
  String PromptChar() const;
  void PromptChar(const String& v);
  /// Whether the value keeps the mask's literals and fill characters.
  bool PromptInclude() const;
  void PromptInclude(bool v);
  /// Zero-fill when the field is left: 1 fills the whole text, any other number each run of the
  /// mask.
  Long TipoStrZero() const;
  void TipoStrZero(Long v);
  /// Whether a numeric mask accepts a minus sign. Such a field needs a `MaxLength`.
  bool ValorNegativo() const;
  void ValorNegativo(bool v);
  /// The box's password character; "" shows the text itself.
  String PasswordChar() const;
  void PasswordChar(const String& v);
  /// The most characters that the operator can type or paste. 0 means no limit there, but no
  /// integer digits when a sign is typed. Texts from the program, a row or a lookup are never cut.
  Long MaxLength() const;
  void MaxLength(Long v);
  /// Selection in the box: from 0, in characters.
  Long SelStart() const;
  void SelStart(Long v);
  /// Length of the selection, in characters.
  Long SelLength() const;
  void SelLength(Long v);
  /// The selected text. Assigning replaces the selection, without a limit.
  String SelText() const;
  void SelText(const String& v);

  // --- Looks -------------------------------------------------------------------------------------

  /// Of the box. A key field passes it on to its description when the two name each other.
  bool Enabled() const override;
  void Enabled(bool v) override;
  /// Of the text in the box.
  Colour Forecolor() const;
  void Forecolor(Colour v);
  /// Of the box and the surface.
  Colour BackColor() const;
  void BackColor(Colour v);
  /// Of the box.
  host::Font Font() const;
  void Font(const host::Font& v);
  /// Marks the field by a green, bold caption.
  bool eSocial() const;
  void eSocial(bool v);
  /// Stored, without any effect.
  bool MultiLine() const;
  void MultiLine(bool v);
  /// False only while the first show runs, and after one that failed.
  bool Carregou() const;

  // --- Lookup ------------------------------------------------------------------------------------

  /// The lookup's definition; created when first needed, never null.
  std::shared_ptr<tessaria::Browse> Browse() const;
  void Browse(const std::shared_ptr<tessaria::Browse>& v);
  /// The eight texts of the lookup: the control's own when not empty, otherwise the definition's.
  /// Assigning sets both.
  String BrwTitulo() const;
  void BrwTitulo(const String& v);
  /// The table that is searched.
  String BrowseTable() const;
  void BrowseTable(const String& v);
  /// The field's own column in it.
  String BrwCampo() const;
  void BrwCampo(const String& v);
  /// The sibling's column.
  String BrwCampoIrmao() const;
  void BrwCampoIrmao(const String& v);
  /// Further columns of the list, joined by commas.
  String BrwCampoOutros() const;
  void BrwCampoOutros(const String& v);
  /// The whole GROUP BY clause with its keywords.
  String BrwGroupBy() const;
  void BrwGroupBy(const String& v);
  /// The text after FROM in place of the table.
  String BrwLeftJoin() const;
  void BrwLeftJoin(const String& v);
  /// Condition on the rows; `@name@` stands for the value of another field.
  String BrwWhere() const;
  void BrwWhere(const String& v);
  /// The searches of the lookup's grid; created when first needed.
  std::shared_ptr<tessaria::Pesquisa> Pesquisa() const;
  void Pesquisa(const std::shared_ptr<tessaria::Pesquisa>& v);
  /// The older text form of the searches: one field per search, each ended by character 3.
  String PesqCaption() const;
  void PesqCaption(const String& v);
  /// Columns searched in, one part for each search.
  String PesqCampo() const;
  void PesqCampo(const String& v);
  /// Masks of the prompts, one part for each search.
  String PesqMascara() const;
  void PesqMascara(const String& v);
  /// Widths of the prompts in twips, one part for each search.
  String PesqWidth() const;
  void PesqWidth(const String& v);
  /// Types of the searched values: N number, S text, D date, one part for each search.
  String PesqTipo() const;
  void PesqTipo(const String& v);
  /// Where the wildcard goes: N nowhere, F after the text, C before it, A both, one part for each
  /// search.
  String PesqLike() const;
  void PesqLike(const String& v);
  /// The most characters in the prompts, one part for each search.
  String PesqMaxLength() const;
  void PesqMaxLength(const String& v);
  /// Whether the prompts complete what is typed, one part for each search.
  String PesqCompletaDescr() const;
  void PesqCompletaDescr(const String& v);
  /// Whether the prompts keep the literals of their masks, one part for each search.
  String PesqPromptInclude() const;
  void PesqPromptInclude(const String& v);
  /// Message of a lookup that finds nothing; blank for the standard one.
  String MsgBrowse() const;
  void MsgBrowse(const String& v);

  // --- Folder picker -----------------------------------------------------------------------------

  /// Whether the picker lists files too; the text is then split into folder and file.
  bool DirVerArquivos() const;
  void DirVerArquivos(bool v);
  /// Which files are offered, such as "*.txt"; empty for all.
  String DirPattern() const;
  void DirPattern(const String& v);
  /// Folder of the path in the box; follows the text.
  String DirFilePath() const;
  void DirFilePath(const String& v);
  /// File of the path in the box, with `DirVerArquivos`; follows the text.
  String DirFileName() const;
  void DirFileName(const String& v);

  // --- For the library's own modules -------------------------------------------------------------

  /// The fill character and the literals of the mask, each once.
  String ItensMascara() const;
  void ItensMascara(const String& v);
  /// The bound field, found by name at each call; null when not bound.
  host::FieldPtr CampoVinculado() const;
  /// What the control lies in: its page or its form.
  host::WidgetPtr ContainerDoControle() const;
  /// The form around the control.
  host::FormPtr FormDoControle() const;
  /// Assigns the bound field.
  void GravaValorCampo(const Variant& v);
  /// Resolves names: "Irmao", "DataSource", "Campo", "Label", or "Todos" for all of them. True
  /// when a field was bound and loaded, which only "Todos" can do.
  bool SetarVariaveis(StringView what);
  /// Why the first show in the designer could not access the database; "" when it could. For a
  /// property page to show.
  String DesignTimeError() const;
  /// As `UserControl_ReadProperties`, for a designer of forms: raises what that shows in a box.
  void ReadAtDesignTime(const host::PropertyBag& bag);
  /// Draws the field as its settings say after they were loaded again; before the first show
  /// nothing is drawn.
  void RedrawAtDesignTime();
  /// Shows a message, but only on a visible form. Flags and title are those of `ExibeMensagem`.
  void MsgSeVisivel(const String& text, Long flags, const String& title);

 private:
  friend struct StoredAccess;  // lets the property table reach the stored members

  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace tessaria
