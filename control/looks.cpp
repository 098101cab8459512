#include "control/looks.h"

#include "services/trap.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

// Twips.
constexpr Long kLeastHeight = 315;
constexpr Long kButtonInset = 60;
constexpr Long kRoomWithButton = 360;
constexpr Long kRoomWithoutButton = 70;
constexpr Long kButtonFromRight = 350;

/// The icon file of a kind of control; nullptr for a kind without a button.
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

Looks::Looks(host::ControlSite& site, host::TextBox& txtEdit, host::CommandButton& btnBrowse,
             const FieldKind& kind, const FormTies& ties, Appearance& appearance,
             const LooksForm& form)
    : site_(site),
      txtEdit_(txtEdit),
      btnBrowse_(btnBrowse),
      kind_(kind),
      ties_(ties),
      appearance_(appearance),
      form_(form) {}

void Looks::Resize() {
  Trap(u"tsText", u"UserControl_Resize", [&] {
    if (site_.Height() < kLeastHeight) site_.Height(kLeastHeight);
    const Long height = site_.Height(), width = site_.Width();
    if (txtEdit_.Height() != height) {
      txtEdit_.Height(height);
      btnBrowse_.Height(height - kButtonInset);
    }
    txtEdit_.Width(width - (btnBrowse_.Visible() ? kRoomWithButton : kRoomWithoutButton));
    btnBrowse_.Left(width - kButtonFromRight);
  });
}

void Looks::Draw() {
  Trap(u"tsText", u"AtualizaExibicao", [&] {
    btnBrowse_.Visible(ShowsButton());
    if (btnBrowse_.Visible()) LoadButtonPicture();
    // The kind decides here, not the button: a description without a button keeps the room for it.
    const bool isPlain = kind_.TipoControle == TipoControle::Normal;
    txtEdit_.Width(site_.Width() - (isPlain ? kRoomWithoutButton : kRoomWithButton));
    btnBrowse_.Enabled(Enabled());
    site_.TabStop(Enabled());
    if (Enabled()) {
      DrawForecolor(kind_.IsDescription() ? host::colour::Blue : appearance_.lngForeColorOriginal);
      DrawBackColor(host::colour::White);
    } else {
      DrawBackColor(host::colour::ButtonFace);
    }
    ColourCaption();
  });
}

bool Looks::ShowsButton() const {
  if (!kind_.IsDescription()) return IconFile(kind_.TipoControle) != nullptr;
  const String form = form_.FormName();
  return form == u"frmTsPesquisa" || form == u"frmPesquisa";
}

void Looks::LoadButtonPicture() {
  const String path = App().Path() + App().PathSeparator() + IconFile(kind_.TipoControle);
  if (App().FileExists(path)) btnBrowse_.Picture(App().LoadPicture(path));
}

void Looks::ColourCaption() {
  if (!ties_.bLabelConectado) return;
  form_.CaptionLabel()->ForeColor(!Enabled()      ? host::colour::GrayText
                                  : kind_.eSocial ? host::colour::Green
                                                  : host::colour::MenuText);
  if (kind_.eSocial) form_.CaptionLabel()->FontBold(true);
}

void Looks::ColourFocused() {
  if (ties_.bLabelConectado && (Enabled() || kind_.eSocial))
    form_.CaptionLabel()->ForeColor(host::colour::Blue);
}

void Looks::ColourUnfocused() {
  if (!Enabled() || !ties_.bLabelConectado) return;
  form_.CaptionLabel()->ForeColor(kind_.eSocial ? host::colour::Green : host::colour::WindowText);
}

void Looks::Enabled(bool v) {
  txtEdit_.Enabled(v);
  site_.TabStop(v);
  if (kind_.TipoControle == TipoControle::Browse && ties_.bIrmaoConectado) {
    // Only for a pair whose fields name each other, and only if the sibling differs.
    auto& sibling = form_.Sibling()->Control();
    if (sibling.TxtIrmao() == site_.DisplayName() && sibling.Enabled() != v) sibling.Enabled(v);
  }
  site_.PropertyChanged(u"Enabled");
  Draw();
}

void Looks::Forecolor(Colour v) {
  appearance_.StoredForeColor.reset();
  PutForecolor(v);
}

/// A colour that is only drawn is not stored.
void Looks::DrawForecolor(Colour v) {
  if (!appearance_.StoredForeColor) appearance_.StoredForeColor = txtEdit_.ForeColor();
  PutForecolor(v);
}

void Looks::PutForecolor(Colour v) {
  txtEdit_.ForeColor(v);
  site_.PropertyChanged(u"ForeColor");
}

void Looks::BackColor(Colour v) {
  appearance_.StoredBackColor.reset();
  PutBackColor(v);
}

void Looks::DrawBackColor(Colour v) {
  if (!appearance_.StoredBackColor) appearance_.StoredBackColor = txtEdit_.BackColor();
  PutBackColor(v);
}

void Looks::PutBackColor(Colour v) {
  txtEdit_.BackColor(v);
  site_.BackColor(v);
  site_.PropertyChanged(u"BackColor");
}

void Looks::Font(const host::Font& v) {
  appearance_.FontIsAmbient = false;
  txtEdit_.Font(v);
  site_.PropertyChanged(u"Font");
}

}  // namespace tessaria
