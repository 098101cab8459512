// The first show, the layout of box and button, and the colours.

#include "control/tstext.h"
#include "services/trap.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

// Twips.
constexpr Long kLeastHeight = 315;
constexpr Long kButtonInset = 60;
constexpr Long kRoomWithButton = 360;
constexpr Long kRoomWithoutButton = 70;
constexpr Long kButtonFromRight = 350;

/// Positions in a mask have 16 bits. A field of no such size keeps its mask.
constexpr Long kLongestMask = 32767;

/// The icon file of a kind of control; nullptr for a kind with no button of its own.
const char16_t* IconFile(TipoControle kind) {
  switch (kind) {
    case TipoControle::Browse:
    case TipoControle::Descricao:
      return u"TresPontos.ico";
    case TipoControle::Calendario:
      return u"Calendario.ico";
    case TipoControle::Diretorio:
      return u"Diretorio.ico";
    case TipoControle::Calculadora:
      return u"Calculadora.ico";
    case TipoControle::Normal:
      break;
  }
  return nullptr;
}

}  // namespace

void tsText::UserControl_Show() {
  if (m_.bMostrado) return;
  Trap(u"tsText", u"UserControl_Show", [&] {
    m_.Carregou = false;
    m_.bMostrado = true;
    m_.lngForeColorOriginal = Forecolor();
    if (!site_.UserMode())
      ShowAtDesignTime();
    else if (Err().Number != errors::ObjectNotSet)
      ShowAtRunTime();
    m_.Carregou = true;
  });
}

void tsText::ShowAtDesignTime() {
  if (!m_.PesqCaption.empty()) AtualizaPesquisa();
  // A database that cannot be reached is for the property page to tell: the designer opens forms
  // without one.
  designTimeError_.clear();
  Catch([&] { AchaObjetos(); },
        [&] {
          designTimeError_ = Err().Description;
          Err().Clear();
        });
  AtualizaExibicao();
}

void tsText::ShowAtRunTime() {
  SetarVariaveis(u"Todos");
  if (EhNumerica())
    txtEdit_.Alignment(host::Alignment::Right);
  else if (StartsWith(m_.Mascara, u"A"))
    FitMaskToField();
  m_.LastValidaStatus = true;
  AtualizaExibicao();
  events_.Show();
}

void tsText::FitMaskToField() {
  const Long size = m_.bCampoConectado ? CampoVinculado()->DefinedSize() : txtEdit_.MaxLength();
  if (size <= 0 || size > kLongestMask) return;
  Mascara(StringOf(size, u"A"));
  // The mask as it was has cut what it showed.
  Display({m_.Value, true, shown_.Shows()});
}

void tsText::UserControl_Resize() {
  Trap(u"tsText", u"UserControl_Resize", [&] {
    if (site_.Height() < kLeastHeight) site_.Height(kLeastHeight);
    if (txtEdit_.Height() != site_.Height()) {
      txtEdit_.Height(site_.Height());
      btnBrowse_.Height(site_.Height() - kButtonInset);
    }
    txtEdit_.Width(site_.Width() - (btnBrowse_.Visible() ? kRoomWithButton : kRoomWithoutButton));
    btnBrowse_.Left(site_.Width() - kButtonFromRight);
  });
}

void tsText::AtualizaExibicao() {
  Trap(u"tsText", u"AtualizaExibicao", [&] {
    btnBrowse_.Visible(ShowsButton());
    if (btnBrowse_.Visible()) LoadButtonPicture();
    // Here the type decides, not the button: a description without one keeps the room.
    const bool isPlain = m_.TipoControle == tessaria::TipoControle::Normal;
    txtEdit_.Width(site_.Width() - (isPlain ? kRoomWithoutButton : kRoomWithButton));
    btnBrowse_.Enabled(Enabled());
    site_.TabStop(Enabled());
    if (Enabled()) {
      DrawForecolor(m_.TipoControle == tessaria::TipoControle::Descricao ? host::colour::Blue
                                                                         : m_.lngForeColorOriginal);
      DrawBackColor(host::colour::White);
    } else {
      DrawBackColor(host::colour::ButtonFace);
    }
    ColourCaption();
  });
}

bool tsText::ShowsButton() const {
  if (m_.TipoControle != tessaria::TipoControle::Descricao)
    return IconFile(m_.TipoControle) != nullptr;
  const String form = site_.Parent()->Name();
  return form == u"frmTsPesquisa" || form == u"frmPesquisa";
}

void tsText::LoadButtonPicture() {
  const String path = App().Path() + App().PathSeparator() + IconFile(m_.TipoControle);
  if (App().FileExists(path)) btnBrowse_.Picture(App().LoadPicture(path));
}

void tsText::ColourCaption() {
  if (!m_.bLabelConectado) return;
  ColourLabel(!Enabled()   ? host::colour::GrayText
              : m_.eSocial ? host::colour::Green
                           : host::colour::MenuText);
  if (m_.eSocial) LabelWidget()->FontBold(true);
}

void tsText::ColourLabel(Colour colour) { LabelWidget()->ForeColor(colour); }

std::shared_ptr<host::Label> tsText::LabelWidget() const {
  auto label = std::dynamic_pointer_cast<host::Label>(Named(u"LabelAssociado", m_.LabelAssociado));
  if (!label) throw HostError(errors::NoSuchMember);
  return label;
}

bool tsText::Enabled() const { return txtEdit_.Enabled(); }

void tsText::Enabled(bool v) {
  txtEdit_.Enabled(v);
  site_.TabStop(v);
  if (m_.TipoControle == tessaria::TipoControle::Browse && m_.bIrmaoConectado) {
    // Only a pair that names each other both ways, and only a sibling that differs.
    auto& sibling = Sibling()->Control();
    if (sibling.TxtIrmao() == site_.DisplayName() && sibling.Enabled() != v) sibling.Enabled(v);
  }
  site_.PropertyChanged(u"Enabled");
  AtualizaExibicao();
}

Colour tsText::Forecolor() const { return txtEdit_.ForeColor(); }
void tsText::Forecolor(Colour v) {
  m_.StoredForeColor.reset();
  PutForecolor(v);
}

/// A colour that is only drawn is not stored.
void tsText::DrawForecolor(Colour v) {
  if (!m_.StoredForeColor) m_.StoredForeColor = txtEdit_.ForeColor();
  PutForecolor(v);
}

void tsText::PutForecolor(Colour v) {
  txtEdit_.ForeColor(v);
  site_.PropertyChanged(u"ForeColor");
}

Colour tsText::BackColor() const { return txtEdit_.BackColor(); }
void tsText::BackColor(Colour v) {
  m_.StoredBackColor.reset();
  PutBackColor(v);
}

void tsText::DrawBackColor(Colour v) {
  if (!m_.StoredBackColor) m_.StoredBackColor = txtEdit_.BackColor();
  PutBackColor(v);
}

void tsText::PutBackColor(Colour v) {
  txtEdit_.BackColor(v);
  site_.BackColor(v);
  site_.PropertyChanged(u"BackColor");
}

host::Font tsText::Font() const { return txtEdit_.Font(); }
void tsText::Font(const host::Font& v) {
  m_.FontIsAmbient = false;
  txtEdit_.Font(v);
  site_.PropertyChanged(u"Font");
}

}  // namespace tessaria
