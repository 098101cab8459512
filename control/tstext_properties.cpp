// The control's properties: each reads or writes one part and reports the change.

#include "control/surface.h"
#include "control/tstext.h"
#include "tessaria/text.h"

namespace tessaria {

// A read-only member, and one that can also be assigned.
#define TESSARIA_READ(Type, name) \
  Type tsText::name() const { return parts_->members.name; }
#define TESSARIA_STORE(Argument, name)       \
  void tsText::name(Argument v) {            \
    parts_->members.name = v;                \
    parts_->site.PropertyChanged(u"" #name); \
  }
#define TESSARIA_TEXT(name)   \
  TESSARIA_READ(String, name) \
  TESSARIA_STORE(const String&, name)
#define TESSARIA_VALUE(Type, name) \
  TESSARIA_READ(Type, name)        \
  TESSARIA_STORE(Type, name)

// --- Surroundings

TESSARIA_TEXT(DataSource)
TESSARIA_TEXT(DataField)
TESSARIA_TEXT(PosDataField)
TESSARIA_READ(String, TxtIrmao)
TESSARIA_READ(String, LabelAssociado)
TESSARIA_STORE(const String&, NumeroTab)
TESSARIA_TEXT(ObjetoCancelar)

Long tsText::hWnd() const { return WindowOf(parts_->site); }

String tsText::Nome() const { return parts_->site.DisplayName(); }
void tsText::Nome(const String&) { Tell(parts_->site, u"Propriedade Apenas Para Leitura"); }

String tsText::NumeroTab() const { return Trim(parts_->members.NumeroTab); }

void tsText::TxtIrmao(const String& v) { parts_->naming.TxtIrmao(v); }
void tsText::LabelAssociado(const String& v) { parts_->naming.LabelAssociado(v); }

// --- Kind and value

TESSARIA_READ(tessaria::TipoControle, TipoControle)
TESSARIA_VALUE(Long, TipoDado)
TESSARIA_READ(Variant, Value)
TESSARIA_READ(Variant, OriginalValue)
TESSARIA_READ(String, Texto)
TESSARIA_VALUE(bool, PodeSerBranco)
TESSARIA_VALUE(bool, UsaChecaRelacao)
void tsText::Validator(tessaria::Validator validator) {
  parts_->members.Validator = std::move(validator);
}
TESSARIA_VALUE(bool, LastValidaStatus)

void tsText::TipoControle(tessaria::TipoControle v) {
  parts_->mask.TipoControle(parts_->members, v);
  parts_->looks.Draw();
}

void tsText::OriginalValue(const Variant&) {
  TellStop(parts_->site, u"Propriedade Somente Para Leitura", u"Atenção !!!");
}

void tsText::LastValue(const String& v) { parts_->members.LastValue = v; }

void tsText::Texto(const String& v) { parts_->box.Texto(v); }

Typing tsText::CurrentTyping() const {
  return {parts_->members.Texto, parts_->box.Shown().IsTyped()};
}

void tsText::RestoreTyping(const Typing& typing) {
  parts_->box.Texto(typing.Texto);
  parts_->box.Shown().RestoreTyping(typing.Touches);
}

String tsText::Text() const { return parts_->box.Widget().Text(); }
void tsText::Text(const String& v) {
  parts_->box.Write(v);
  parts_->site.PropertyChanged(u"Text");
}

// --- Mask

TESSARIA_READ(String, Mascara)
TESSARIA_READ(String, PromptChar)
TESSARIA_READ(String, ItensMascara)
TESSARIA_VALUE(bool, PromptInclude)
TESSARIA_VALUE(Long, TipoStrZero)
TESSARIA_VALUE(bool, ValorNegativo)

void tsText::Mascara(const String& v) { parts_->mask.Mascara(v); }
void tsText::PromptChar(const String& v) { parts_->mask.PromptChar(v); }
void tsText::ItensMascara(const String& v) { parts_->mask.ItensMascara(v); }

// What the box itself keeps.
#define TESSARIA_OF_BOX(Type, Argument, name)                       \
  Type tsText::name() const { return parts_->box.Widget().name(); } \
  void tsText::name(Argument v) {                                   \
    parts_->box.Widget().name(v);                                   \
    parts_->site.PropertyChanged(u"" #name);                        \
  }

TESSARIA_OF_BOX(String, const String&, PasswordChar)
TESSARIA_OF_BOX(Long, Long, MaxLength)
TESSARIA_OF_BOX(Long, Long, SelStart)
TESSARIA_OF_BOX(Long, Long, SelLength)
#undef TESSARIA_OF_BOX

String tsText::SelText() const { return parts_->box.Widget().SelText(); }
void tsText::SelText(const String& v) {
  parts_->box.WriteSelection(v);
  parts_->site.PropertyChanged(u"SelText");
}

// --- Looks

bool tsText::Enabled() const { return parts_->looks.Enabled(); }
void tsText::Enabled(bool v) { parts_->looks.Enabled(v); }
Colour tsText::Forecolor() const { return parts_->box.Widget().ForeColor(); }
void tsText::Forecolor(Colour v) { parts_->looks.Forecolor(v); }
Colour tsText::BackColor() const { return parts_->box.Widget().BackColor(); }
void tsText::BackColor(Colour v) { parts_->looks.BackColor(v); }
host::Font tsText::Font() const { return parts_->box.Widget().Font(); }
void tsText::Font(const host::Font& v) { parts_->looks.Font(v); }

TESSARIA_VALUE(bool, eSocial)
TESSARIA_VALUE(bool, MultiLine)
TESSARIA_READ(bool, Carregou)

// --- Lookup

#define TESSARIA_OF_LOOKUP(Type, name)                        \
  Type tsText::name() const { return parts_->lookup.name(); } \
  void tsText::name(const Type& v) {                          \
    parts_->lookup.name(v);                                   \
    parts_->site.PropertyChanged(u"" #name);                  \
  }
#define TESSARIA_TEXT_OF_LOOKUP(name) TESSARIA_OF_LOOKUP(String, name)

TESSARIA_OF_LOOKUP(std::shared_ptr<tessaria::Browse>, Browse)
TESSARIA_OF_LOOKUP(std::shared_ptr<tessaria::Pesquisa>, Pesquisa)
TESSARIA_LOOKUP_TEXTS(TESSARIA_TEXT_OF_LOOKUP)
#undef TESSARIA_TEXT_OF_LOOKUP
#undef TESSARIA_OF_LOOKUP

TESSARIA_TEXT(PesqCaption)
TESSARIA_TEXT(PesqCampo)
TESSARIA_TEXT(PesqMascara)
TESSARIA_TEXT(PesqWidth)
TESSARIA_TEXT(PesqTipo)
TESSARIA_TEXT(PesqLike)
TESSARIA_TEXT(PesqMaxLength)
TESSARIA_TEXT(PesqCompletaDescr)
TESSARIA_TEXT(PesqPromptInclude)
TESSARIA_TEXT(MsgBrowse)

// --- Folder picker

TESSARIA_VALUE(bool, DirVerArquivos)
TESSARIA_TEXT(DirPattern)
TESSARIA_TEXT(DirFilePath)
TESSARIA_TEXT(DirFileName)

#undef TESSARIA_VALUE
#undef TESSARIA_TEXT
#undef TESSARIA_STORE
#undef TESSARIA_READ

}  // namespace tessaria
