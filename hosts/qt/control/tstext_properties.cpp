// The control's properties as properties of the widget.

#include "control/storage/properties.h"
#include "hosts/qt/control/tstext.h"
#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/fonts.h"
#include "tessaria/field_settings.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

// Short forms of the most common rows.
#define TEXT(getter, setter, Name)                               \
  QString TsText::getter() const {                               \
    return read([](const tsText& c) { return toQt(c.Name()); }); \
  }                                                              \
  void TsText::setter(const QString& v) {                        \
    write([&](tsText& c) { c.Name(fromQt(v)); });                \
  }
#define PLAIN(type, getter, setter, Name)                  \
  type TsText::getter() const {                            \
    return read([](const tsText& c) { return c.Name(); }); \
  }                                                        \
  void TsText::setter(type v) {                            \
    write([&](tsText& c) { c.Name(v); });                  \
  }

// --- Surroundings ---

TEXT(dataSource, setDataSource, DataSource)
TEXT(dataField, setDataField, DataField)
TEXT(posDataField, setPosDataField, PosDataField)
TEXT(txtIrmao, setTxtIrmao, TxtIrmao)
TEXT(labelAssociado, setLabelAssociado, LabelAssociado)
TEXT(numeroTab, setNumeroTab, NumeroTab)
TEXT(objetoCancelar, setObjetoCancelar, ObjetoCancelar)
TEXT(nome, setNome, Nome)

// --- Kind and value ---

PLAIN(int, tipoDado, setTipoDado, TipoDado)
TEXT(texto, setTexto, Texto)
TEXT(text, setText, Text)
PLAIN(bool, podeSerBranco, setPodeSerBranco, PodeSerBranco)
PLAIN(bool, usaChecaRelacao, setUsaChecaRelacao, UsaChecaRelacao)
PLAIN(bool, lastValidaStatus, setLastValidaStatus, LastValidaStatus)

// --- Mask ---

TEXT(mascara, setMascara, Mascara)
TEXT(promptChar, setPromptChar, PromptChar)
PLAIN(bool, promptInclude, setPromptInclude, PromptInclude)
PLAIN(int, tipoStrZero, setTipoStrZero, TipoStrZero)
PLAIN(bool, valorNegativo, setValorNegativo, ValorNegativo)
TEXT(passwordChar, setPasswordChar, PasswordChar)
PLAIN(int, maxLength, setMaxLength, MaxLength)
PLAIN(int, selStart, setSelStart, SelStart)
PLAIN(int, selLength, setSelLength, SelLength)
TEXT(selText, setSelText, SelText)

// --- Looks ---

PLAIN(bool, eSocial, setESocial, eSocial)
PLAIN(bool, multiLine, setMultiLine, MultiLine)

// --- Lookup ---

TEXT(brwTitulo, setBrwTitulo, BrwTitulo)
TEXT(browseTable, setBrowseTable, BrowseTable)
TEXT(brwCampo, setBrwCampo, BrwCampo)
TEXT(brwCampoIrmao, setBrwCampoIrmao, BrwCampoIrmao)
TEXT(brwCampoOutros, setBrwCampoOutros, BrwCampoOutros)
TEXT(brwGroupBy, setBrwGroupBy, BrwGroupBy)
TEXT(brwLeftJoin, setBrwLeftJoin, BrwLeftJoin)
TEXT(brwWhere, setBrwWhere, BrwWhere)
TEXT(pesqCaption, setPesqCaption, PesqCaption)
TEXT(pesqCampo, setPesqCampo, PesqCampo)
TEXT(pesqMascara, setPesqMascara, PesqMascara)
TEXT(pesqWidth, setPesqWidth, PesqWidth)
TEXT(pesqTipo, setPesqTipo, PesqTipo)
TEXT(pesqLike, setPesqLike, PesqLike)
TEXT(pesqMaxLength, setPesqMaxLength, PesqMaxLength)
TEXT(pesqCompletaDescr, setPesqCompletaDescr, PesqCompletaDescr)
TEXT(pesqPromptInclude, setPesqPromptInclude, PesqPromptInclude)
TEXT(msgBrowse, setMsgBrowse, MsgBrowse)

// --- Folder picker ---

PLAIN(bool, dirVerArquivos, setDirVerArquivos, DirVerArquivos)
TEXT(dirPattern, setDirPattern, DirPattern)
TEXT(dirFilePath, setDirFilePath, DirFilePath)
TEXT(dirFileName, setDirFileName, DirFileName)

#undef PLAIN
#undef TEXT

// --- Those of another type ---

TsText::TipoControle TsText::tipoControle() const {
  return read([](const tsText& c) { return static_cast<TipoControle>(c.TipoControle()); });
}

void TsText::setTipoControle(TipoControle v) {
  write([&](tsText& c) { c.TipoControle(static_cast<tessaria::TipoControle>(v)); });
}

QVariant TsText::value() const {
  return read([](const tsText& c) { return toQVariant(c.Value()); });
}
void TsText::setValue(const QVariant& v) {
  write([&](tsText& c) { c.Value(toVariant(v)); });
}

QVariant TsText::originalValue() const {
  return read([](const tsText& c) { return toQVariant(c.OriginalValue()); });
}
void TsText::setOriginalValue(const QVariant& v) {
  write([&](tsText& c) { c.OriginalValue(toVariant(v)); });
}

bool TsText::isFieldEnabled() const {
  return read([](const tsText& c) { return c.Enabled(); });
}
void TsText::setEnabled(bool v) {
  write([&](tsText& c) { c.Enabled(v); });
}

QColor TsText::foreColor() const {
  return read([this](const tsText& c) { return toQColor(c.Forecolor(), palette()); });
}
void TsText::setForeColor(const QColor& v) {
  write([&](tsText& c) { c.Forecolor(toColour(v)); });
}

QColor TsText::backColor() const {
  return read([this](const tsText& c) { return toQColor(c.BackColor(), palette()); });
}
void TsText::setBackColor(const QColor& v) {
  write([&](tsText& c) { c.BackColor(toColour(v)); });
}

QFont TsText::fieldFont() const { return parts_->face().font(); }
void TsText::setFieldFont(const QFont& v) {
  write([&](tsText& c) { c.Font(toFont(v)); });
}

bool TsText::carregou() const {
  return read([](const tsText& c) { return c.Carregou(); });
}

int TsText::hWnd() const {
  return read([](const tsText& c) { return c.hWnd(); });
}

std::shared_ptr<tessaria::Browse> TsText::browseDefinition() const { return control().Browse(); }

std::shared_ptr<tessaria::Pesquisa> TsText::pesquisaDefinition() const {
  return control().Pesquisa();
}

void TsText::setValidator(tessaria::Validator validator) {
  write([&](tsText& c) { c.Validator(std::move(validator)); });
}

void TsText::setLookup(const LookupSettings& lookup) {
  write([&](tsText& c) {
    c.Browse(MakeBrowse(lookup));
    c.Pesquisa(MakePesquisa(lookup));
  });
}

QVariant TsText::browse() const {
  return read([](const tsText& c) { return toQVariant(GetProperty(c, u"Browse")); });
}
void TsText::setBrowse(const QVariant& v) {
  write([&](tsText& c) { LetProperty(c, u"Browse", toVariant(v)); });
}

QVariant TsText::pesquisa() const {
  return read([](const tsText& c) { return toQVariant(GetProperty(c, u"Pesquisa")); });
}
void TsText::setPesquisa(const QVariant& v) {
  write([&](tsText& c) { LetProperty(c, u"Pesquisa", toVariant(v)); });
}

void TsText::setLastValue(const QString& v) {
  write([&](tsText& c) { c.LastValue(fromQt(v)); });
}

}  // namespace tessaria::qt
