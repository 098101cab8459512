// The control as a widget: what a program and Qt Designer use.
#pragma once

#include <QColor>
#include <QFont>
#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <memory>

#include "tessaria/export.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/surface.h"
#include "tessaria/validators.h"

class QLabel;

namespace tessaria {
class Browse;
class Pesquisa;
class tsText;
struct FieldSettings;
struct LookupSettings;
namespace host {
class PropertyBag;
}
}  // namespace tessaria

namespace tessaria::qt {

/// A data-entry field: a box and a button on one surface. Every property of the control is one
/// of the widget, under the same name.
///
/// A setter is an assignment with its side effects, so single properties are not stored in form
/// files: there a control is stored as the one property `settings`, which is loaded without side
/// effects.
///
/// `Value` is the user property: `QDataWidgetMapper` and the delegates of item views read and write
/// it. They commit when the field has been left and settled; a text that is refused is not
/// committed. The event `FocusOut` therefore comes to the event filters of a field at that moment,
/// and not when the field is refused.
///
/// Setters, getters and events never throw. An error that would reach the caller, and every
/// exception of a handler, is shown in a box and reported by `unhandledError`; the program
/// continues. A handler may change what it gets by reference, and may destroy the control.
class TESSARIA_QT_API TsText final : public QWidget, public Surface, public ErrorListener {
  Q_OBJECT
  Q_PROPERTY(QStringList settings READ settings WRITE setSettings)
  Q_PROPERTY(QString DataSource READ dataSource WRITE setDataSource STORED false)
  Q_PROPERTY(QString DataField READ dataField WRITE setDataField STORED false)
  Q_PROPERTY(
      QString PosDataField READ posDataField WRITE setPosDataField DESIGNABLE false STORED false)
  Q_PROPERTY(QString TxtIrmao READ txtIrmao WRITE setTxtIrmao STORED false)
  Q_PROPERTY(QString LabelAssociado READ labelAssociado WRITE setLabelAssociado STORED false)
  Q_PROPERTY(QString NumeroTab READ numeroTab WRITE setNumeroTab STORED false)
  Q_PROPERTY(QString ObjetoCancelar READ objetoCancelar WRITE setObjetoCancelar STORED false)
  Q_PROPERTY(QString Nome READ nome WRITE setNome DESIGNABLE false STORED false)
  Q_PROPERTY(TipoControle TipoControle READ tipoControle WRITE setTipoControle STORED false)
  Q_PROPERTY(int TipoDado READ tipoDado WRITE setTipoDado STORED false)
  Q_PROPERTY(QVariant Value READ value WRITE setValue NOTIFY valueChanged
                 DESIGNABLE false STORED false USER true)
  Q_PROPERTY(QVariant OriginalValue READ originalValue WRITE setOriginalValue
                 DESIGNABLE false STORED false)
  Q_PROPERTY(
      QString Texto READ texto WRITE setTexto NOTIFY textoChanged DESIGNABLE false STORED false)
  Q_PROPERTY(QString Text READ text WRITE setText DESIGNABLE false STORED false)
  Q_PROPERTY(bool PodeSerBranco READ podeSerBranco WRITE setPodeSerBranco STORED false)
  Q_PROPERTY(bool UsaChecaRelacao READ usaChecaRelacao WRITE setUsaChecaRelacao STORED false)
  Q_PROPERTY(bool LastValidaStatus READ lastValidaStatus WRITE setLastValidaStatus NOTIFY
                 lastValidaStatusChanged DESIGNABLE false STORED false)
  Q_PROPERTY(QString Mascara READ mascara WRITE setMascara STORED false)
  Q_PROPERTY(QString PromptChar READ promptChar WRITE setPromptChar STORED false)
  Q_PROPERTY(bool PromptInclude READ promptInclude WRITE setPromptInclude STORED false)
  Q_PROPERTY(int TipoStrZero READ tipoStrZero WRITE setTipoStrZero STORED false)
  Q_PROPERTY(bool ValorNegativo READ valorNegativo WRITE setValorNegativo STORED false)
  Q_PROPERTY(QString PasswordChar READ passwordChar WRITE setPasswordChar STORED false)
  Q_PROPERTY(int MaxLength READ maxLength WRITE setMaxLength STORED false)
  Q_PROPERTY(int SelStart READ selStart WRITE setSelStart DESIGNABLE false STORED false)
  Q_PROPERTY(int SelLength READ selLength WRITE setSelLength DESIGNABLE false STORED false)
  Q_PROPERTY(QString SelText READ selText WRITE setSelText DESIGNABLE false STORED false)
  Q_PROPERTY(bool Enabled READ isFieldEnabled WRITE setEnabled NOTIFY enabledChanged STORED false)
  Q_PROPERTY(QColor Forecolor READ foreColor WRITE setForeColor STORED false)
  Q_PROPERTY(QColor BackColor READ backColor WRITE setBackColor STORED false)
  Q_PROPERTY(QFont Font READ fieldFont WRITE setFieldFont STORED false)
  Q_PROPERTY(bool eSocial READ eSocial WRITE setESocial STORED false)
  Q_PROPERTY(bool MultiLine READ multiLine WRITE setMultiLine STORED false)
  Q_PROPERTY(bool Carregou READ carregou DESIGNABLE false STORED false)
  Q_PROPERTY(int hWnd READ hWnd DESIGNABLE false STORED false)
  Q_PROPERTY(QVariant Browse READ browse WRITE setBrowse DESIGNABLE false STORED false)
  Q_PROPERTY(QString BrwTitulo READ brwTitulo WRITE setBrwTitulo STORED false)
  Q_PROPERTY(QString BrowseTable READ browseTable WRITE setBrowseTable STORED false)
  Q_PROPERTY(QString BrwCampo READ brwCampo WRITE setBrwCampo STORED false)
  Q_PROPERTY(QString BrwCampoIrmao READ brwCampoIrmao WRITE setBrwCampoIrmao STORED false)
  Q_PROPERTY(QString BrwCampoOutros READ brwCampoOutros WRITE setBrwCampoOutros STORED false)
  Q_PROPERTY(QString BrwGroupBy READ brwGroupBy WRITE setBrwGroupBy STORED false)
  Q_PROPERTY(QString BrwLeftJoin READ brwLeftJoin WRITE setBrwLeftJoin STORED false)
  Q_PROPERTY(QString BrwWhere READ brwWhere WRITE setBrwWhere STORED false)
  Q_PROPERTY(QVariant Pesquisa READ pesquisa WRITE setPesquisa DESIGNABLE false STORED false)
  Q_PROPERTY(QString PesqCaption READ pesqCaption WRITE setPesqCaption STORED false)
  Q_PROPERTY(QString PesqCampo READ pesqCampo WRITE setPesqCampo STORED false)
  Q_PROPERTY(QString PesqMascara READ pesqMascara WRITE setPesqMascara STORED false)
  Q_PROPERTY(QString PesqWidth READ pesqWidth WRITE setPesqWidth STORED false)
  Q_PROPERTY(QString PesqTipo READ pesqTipo WRITE setPesqTipo STORED false)
  Q_PROPERTY(QString PesqLike READ pesqLike WRITE setPesqLike STORED false)
  Q_PROPERTY(QString PesqMaxLength READ pesqMaxLength WRITE setPesqMaxLength STORED false)
  Q_PROPERTY(
      QString PesqCompletaDescr READ pesqCompletaDescr WRITE setPesqCompletaDescr STORED false)
  Q_PROPERTY(
      QString PesqPromptInclude READ pesqPromptInclude WRITE setPesqPromptInclude STORED false)
  Q_PROPERTY(QString MsgBrowse READ msgBrowse WRITE setMsgBrowse STORED false)
  Q_PROPERTY(bool DirVerArquivos READ dirVerArquivos WRITE setDirVerArquivos STORED false)
  Q_PROPERTY(QString DirPattern READ dirPattern WRITE setDirPattern STORED false)
  Q_PROPERTY(QString DirFilePath READ dirFilePath WRITE setDirFilePath STORED false)
  Q_PROPERTY(QString DirFileName READ dirFileName WRITE setDirFileName STORED false)
  Q_PROPERTY(QString placeholderText READ placeholderText WRITE setPlaceholderText)
  Q_PROPERTY(bool multiLineText READ multiLineText WRITE setMultiLineText)
  Q_PROPERTY(bool enabled READ isFieldEnabled WRITE setEnabled NOTIFY enabledChanged
                 DESIGNABLE false STORED false)

 public:
  /// Any other number behaves as Normal.
  enum TipoControle : int { Normal, Browse, Calendario, Descricao, Diretorio, Calculadora };
  Q_ENUM(TipoControle)

  explicit TsText(QWidget* parent = nullptr);
  /// A field with these settings, loaded without side effects. The settings' name becomes the
  /// object name.
  explicit TsText(const FieldSettings& settings, QWidget* parent = nullptr);
  ~TsText() override;

  /// The property bag as lines of text, the version first. Assigning an empty list does nothing; an
  /// invalid one shows an error and leaves the control unchanged. On a form under design there is
  /// no box: the lines are kept as they are until others are assigned, and `designError` tells why.
  QStringList settings() const;
  void setSettings(const QStringList& lines);
  /// Why the settings could not be read on a form under design; empty when they could.
  QString designError() const { return designError_; }

  // Surroundings
  /// Name of the data control on the form; takes effect at the next `refresh()`.
  QString dataSource() const override;
  void setDataSource(const QString& v);
  /// Field of its record set; takes effect at the next `refresh()`.
  QString dataField() const;
  void setDataField(const QString& v);
  /// Decimal text of the field's ordinal from 0, a cache that corrects itself.
  QString posDataField() const;
  void setPosDataField(const QString& v);
  /// Name of the sibling control.
  QString txtIrmao() const;
  void setTxtIrmao(const QString& v);
  /// Name of the caption label; can be assigned at design time only.
  QString labelAssociado() const;
  void setLabelAssociado(const QString& v);
  /// Number of the tab that the control is on; empty for none.
  QString numeroTab() const;
  void setNumeroTab(const QString& v);
  /// Name of the control that can take the focus without validation.
  QString objetoCancelar() const override;
  void setObjetoCancelar(const QString& v);
  /// The object name. Assigning shows a message and changes nothing.
  QString nome() const;
  void setNome(const QString& v);

  // Kind and value
  /// Types 2 and 5 also set `PromptInclude`.
  TipoControle tipoControle() const;
  void setTipoControle(TipoControle v);
  /// Type code of an unbound value: 2, 4, 5 number, 7 date, any other text.
  int tipoDado() const;
  void setTipoDado(int v);
  /// The typed value. Assigning converts it by the field's type, writes it to the bound field,
  /// shows it through the mask and refreshes the sibling. Null is a null pointer. A number that a
  /// double would round is returned as a whole number of 64 bits when it fits, otherwise as the
  /// text of all its digits, with a comma; assigning either gives exactly the same number.
  QVariant value() const;
  void setValue(const QVariant& v);
  /// Value of the row as it was loaded. Assigning shows a message and changes nothing.
  QVariant originalValue() const;
  void setOriginalValue(const QVariant& v);
  /// The typed characters without the mask's literals.
  QString texto() const;
  void setTexto(const QString& v);
  /// The box as it stands.
  QString text() const;
  void setText(const QString& v);
  /// Whether the field may stay blank; checked when the focus goes to a button.
  bool podeSerBranco() const;
  void setPodeSerBranco(bool v);
  /// Whether leaving the field looks its text up in the browse table.
  bool usaChecaRelacao() const;
  void setUsaChecaRelacao(bool v);
  /// Adds a check of the program's, made when the field is left with a text that the operator
  /// wrote, before the text is looked up. Not stored; empty for none.
  void setValidator(tessaria::Validator validator);
  /// Outcome of the last check; true before the first one. A check that was skipped by cancelling,
  /// or that let a required field stay blank, leaves it unchanged.
  bool lastValidaStatus() const;
  void setLastValidaStatus(bool v);

  // Mask
  /// The mask: one character for each slot or literal; empty for a plain text.
  QString mascara() const;
  void setMascara(const QString& v);
  /// What an empty slot shows; only the first character is kept.
  QString promptChar() const;
  void setPromptChar(const QString& v);
  /// Whether `Value` holds the text with the mask's literals.
  bool promptInclude() const;
  void setPromptInclude(bool v);
  /// Zero-fill when the field is left: 1 fills the whole text, any other number each run of the
  /// mask.
  int tipoStrZero() const;
  void setTipoStrZero(int v);
  /// Whether a number may take a minus sign.
  bool valorNegativo() const;
  void setValorNegativo(bool v);
  /// Shown in place of each character; only the first one is kept. Empty shows the text.
  QString passwordChar() const;
  void setPasswordChar(const QString& v);
  /// The most characters that the operator can type or paste; 0 means no limit. Texts from the
  /// program, a row or a lookup are never cut.
  int maxLength() const;
  void setMaxLength(int v);
  /// Selection in the box: from 0, in characters.
  int selStart() const;
  void setSelStart(int v);
  /// Characters selected; 0 for none.
  int selLength() const;
  void setSelLength(int v);
  /// The selected text; assigning replaces it, whatever `MaxLength` is.
  QString selText() const;
  void setSelText(const QString& v);

  // Looks
  /// The control's own flag. The widget's flag follows it, and changes it when it is changed
  /// through `QWidget`; disabling a parent widget leaves it alone.
  bool isFieldEnabled() const;
  /// Of the box. A colour of the theme reads as its present value.
  QColor foreColor() const;
  void setForeColor(const QColor& v);
  /// Of the box and the surface.
  QColor backColor() const;
  void setBackColor(const QColor& v);
  /// Of the box.
  QFont fieldFont() const;
  void setFieldFont(const QFont& v);
  /// Marks the caption green and bold.
  bool eSocial() const;
  void setESocial(bool v);
  /// What an empty box shows, paler than a text; neither a text nor a value. A box whose mask shows
  /// its fill characters is never empty. Not among the settings: a form file stores it by itself.
  QString placeholderText() const;
  void setPlaceholderText(const QString& text);
  /// Whether the text is edited in a box of several lines. A masked or hidden text has one line
  /// whatever this says, and so has a field with a button. Enter ends a line, with "\r\n" unless
  /// the lines of the assigned text end with "\n"; a layout gives the field the height that is
  /// left. Not among the settings: a form file stores it by itself.
  bool multiLineText() const;
  void setMultiLineText(bool severalLines);
  /// Kept with the settings, without effect: see `multiLineText`.
  bool multiLine() const;
  void setMultiLine(bool v);
  /// False only while the first show runs, and after one that failed.
  bool carregou() const;
  /// The surface's window handle, a token; 0 at design time.
  int hWnd() const;

  // Lookup
  /// The lookup's definition, which the program may change.
  std::shared_ptr<tessaria::Browse> browseDefinition() const;
  /// The searches of its list, likewise.
  std::shared_ptr<tessaria::Pesquisa> pesquisaDefinition() const;
  /// Replaces both definitions, whatever they hold.
  void setLookup(const LookupSettings& lookup);
  /// The lookup's definition, a QVariant of an `ObjectPtr`.
  QVariant browse() const;
  void setBrowse(const QVariant& v);
  /// Title of the list; empty takes the table's name.
  QString brwTitulo() const;
  void setBrwTitulo(const QString& v);
  /// Table that the key or description is looked up in.
  QString browseTable() const;
  void setBrowseTable(const QString& v);
  /// Its column that this field holds.
  QString brwCampo() const;
  void setBrwCampo(const QString& v);
  /// Its column that the sibling holds.
  QString brwCampoIrmao() const;
  void setBrwCampoIrmao(const QString& v);
  /// Further columns of the list, separated by commas.
  QString brwCampoOutros() const;
  void setBrwCampoOutros(const QString& v);
  /// GROUP BY clause of the list, with its keyword.
  QString brwGroupBy() const;
  void setBrwGroupBy(const QString& v);
  /// Join that replaces the table in FROM.
  QString brwLeftJoin() const;
  void setBrwLeftJoin(const QString& v);
  /// Condition on the rows; `@name@` stands for the value of another field.
  QString brwWhere() const;
  void setBrwWhere(const QString& v);
  /// The searches of the lookup's grid, likewise.
  QVariant pesquisa() const;
  void setPesquisa(const QVariant& v);
  // The nine below are the older form of the searches: one part for each search, ended by character
  // 3. When the field is shown in the designer, it converts them to `Pesquisa`.
  /// Captions of the searches.
  QString pesqCaption() const;
  void setPesqCaption(const QString& v);
  /// Columns searched in.
  QString pesqCampo() const;
  void setPesqCampo(const QString& v);
  /// Masks of the prompts.
  QString pesqMascara() const;
  void setPesqMascara(const QString& v);
  /// Widths of the prompts, in twips.
  QString pesqWidth() const;
  void setPesqWidth(const QString& v);
  /// Types of the searched values: N number, S text, D date.
  QString pesqTipo() const;
  void setPesqTipo(const QString& v);
  /// Where the wildcard goes: N nowhere, F after the text, C before it, A both.
  QString pesqLike() const;
  void setPesqLike(const QString& v);
  /// The most characters in the prompts.
  QString pesqMaxLength() const;
  void setPesqMaxLength(const QString& v);
  /// Whether the prompts complete what is typed.
  QString pesqCompletaDescr() const;
  void setPesqCompletaDescr(const QString& v);
  /// Whether the prompts return the literals of their masks.
  QString pesqPromptInclude() const;
  void setPesqPromptInclude(const QString& v);
  /// The message when the list finds no row; blank for the standard text.
  QString msgBrowse() const;
  void setMsgBrowse(const QString& v);

  // Folder picker
  /// Whether files can be picked too.
  bool dirVerArquivos() const;
  void setDirVerArquivos(bool v);
  /// Pattern of the files to pick from; empty for all.
  QString dirPattern() const;
  void setDirPattern(const QString& v);
  /// Folder of the path in the box; follows the text.
  QString dirFilePath() const;
  void setDirFilePath(const QString& v);
  /// File of the path in the box, with `DirVerArquivos`; follows the text.
  QString dirFileName() const;
  void setDirFileName(const QString& v);

  /// The value that changes are compared with; write-only.
  void setLastValue(const QString& v);

  /// Resolves all names again and loads the current row.
  void refresh() override;
  /// Checks the text by the rules for leaving the field. True when it may be left; a required field
  /// may be left blank unless a command button has the focus. Returns false without a message while
  /// the focus is on the field's own button or on the control that `ObjetoCancelar` names. A
  /// refused text is reported in a box, and the field takes the focus back.
  bool valida();
  /// The relation check alone.
  bool acionaChecaRelacao();
  /// Looks the description up and assigns it to the sibling. `apenasTsBrowse` leaves the sibling of
  /// a key alone; `disparaBrowseReturn` raises `browseReturn` afterwards.
  void atualizaIrmao(bool apenasTsBrowse = false, bool disparaBrowseReturn = false);
  /// "BrowseReturn" raises `browseReturn(true, ...)`; any other name does nothing.
  void disparaEventos(const QString& evento);
  /// Forgets the value that changes are compared with.
  void clearLastValue();

  /// The control itself. Its members throw: calls belong inside `guarded()`.
  tsText& control();
  const tsText& control() const;

  /// True while a form is being designed: no row is loaded then. A program that builds a form in
  /// code sets it while it assigns properties that can be assigned at design time only.
  /// A control on a form under design is in design mode by itself; see `design_time.h`.
  bool designMode() const;
  void setDesignMode(bool designing) { designMode_ = designing; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  void unhandled(int number, const QString& description) override;

 public slots:  // NOLINT
  /// Hide those of `QWidget`, for connections by name too.
  void setEnabled(bool v);
  /// The opposite of `setEnabled`.
  void setDisabled(bool v) { setEnabled(!v); }

 signals:
  /// The first show at run time is complete.
  void shown();
  /// The text in the box has changed, by the operator or by the program.
  void changed();
  /// The three key events: a handler connected directly may change the arguments; code 0 swallows
  /// the key.
  void keyDown(qint16& keyCode, qint16& shift);
  /// A key gives a character, by its code in the Western code page.
  void keyPress(qint16& keyAscii);
  /// A key was released.
  void keyUp(qint16& keyCode, qint16& shift);
  /// The field was settled. `lastValue` is the previous value.
  void browseReturn(bool& houveAlteracao, QVariant& lastValue);
  /// An error that nobody handled; a message box follows.
  void unhandledError(int number, const QString& description);
  /// A property was assigned.
  void propertyChanged(const QString& name);
  // The four below report each real change once, whoever has caused it: the operator, the program,
  // a row or the sibling. They come when the work that has changed the field is complete, its
  // sibling included; after a move to another row, when all fields show it.
  /// `Value` is another one.
  void valueChanged(const QVariant& value);
  /// `Texto` is another one.
  void textoChanged(const QString& texto);
  /// `Enabled` is another one.
  void enabledChanged(bool enabled);
  /// Whether the last check has passed.
  void lastValidaStatusChanged(bool valid);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  struct Parts;
  class Events;

  // Surface
  QWidget& widget() override { return *this; }
  String typeName() const override;
  host::WidgetPtr makePort() override;
  std::optional<Variant> ownProperty(const String& name) const override;
  bool letOwnProperty(const String& name, const Variant& value) override;
  void formShown() override;
  bool settlesByItself() const override { return false; }
  LoadOrder loadOrder() const override;
  void nameByCaption(const QList<QLabel*>& labels) override;
  void entered() override;
  ExitVerdict left() override;
  bool hasToSettle() const override;

  template <class Get>
  auto read(Get&& get) const;
  template <class Set>
  void write(Set&& set);
  void adoptEdit();
  bool wantsSeveralLines() const;
  void chooseEdit();
  void describeEdit();
  QSize hintAround(const QSize& box) const;
  QLabel* captionAmong(const QList<QLabel*>& labels);
  void nameForAccessibility();
  bool isNamedBy(const QObject* object) const;
  void connectKeys();
  void leaveCell(bool next);
  void watchChanges() const;
  void reportChanges();
  void followControl(const QString& property);
  void followWidget();

  void load(const host::PropertyBag& bag);

  std::shared_ptr<Parts> parts_;
  QStringList unreadable_;  ///< settings of a form under design that could not be read
  QString designError_;
  bool designMode_ = false;
};

}  // namespace tessaria::qt
