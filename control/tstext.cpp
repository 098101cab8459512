#include "control/tstext.h"

#include <utility>

#include "pickers/calculator.h"
#include "pickers/calendar.h"
#include "pickers/folder_picker.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

/// Closes a shared dialog, errors ignored.
template <class Form>
void UnloadShared(std::shared_ptr<Form>& shared) {
  if (const auto form = std::exchange(shared, nullptr)) Catch([&] { form->Unload(); }, [] {});
}

}  // namespace

tsText::tsText(host::ControlSite& site, host::TextBox& txtEdit, host::CommandButton& btnBrowse,
               tsTextEvents& events)
    : site_(site), txtEdit_(txtEdit), btnBrowse_(btnBrowse), events_(events) {
  txtEdit_.OnChange = [this] { txtEdit_Change(); };
  txtEdit_.OnSameText = [this] { shown_.NoteTyping(); };
  txtEdit_.OnKeyDown = [this](Integer& KeyCode, Integer& Shift) { FilterKeyDown(KeyCode, Shift); };
  txtEdit_.OnKeyPress = [this](Integer& KeyAscii) { FilterKeyPress(KeyAscii); };
  txtEdit_.OnKeyUp = [this](Integer& KeyCode, Integer&) { txtEdit_KeyUp(KeyCode); };
  txtEdit_.OnGotFocus = [this] { txtEdit_GotFocus(); };
  txtEdit_.OnLostFocus = [this] { txtEdit_LostFocus(); };
  btnBrowse_.OnClick = [this] { btnBrowse_Click(); };
}

tsText::~tsText() {
  txtEdit_.OnChange = nullptr;
  txtEdit_.OnSameText = nullptr;
  txtEdit_.OnKeyDown = nullptr;
  txtEdit_.OnKeyPress = nullptr;
  txtEdit_.OnKeyUp = nullptr;
  txtEdit_.OnGotFocus = nullptr;
  txtEdit_.OnLostFocus = nullptr;
  btnBrowse_.OnClick = nullptr;
}

void tsText::UserControl_Terminate() {
  Trap(u"tsText", u"UserControl_Terminate", [&] {
    m_.Browse = nullptr;
    m_.Pesquisa = nullptr;
  });
  // The dialogs are shared: the end of any control closes them for all.
  UnloadShared(State().frmCalendario);
  UnloadShared(State().frmCalculadora);
  UnloadShared(State().frmDiretorio);
}

Variant tsText::Refresh() {
  SetarVariaveis(u"Todos");
  return {};
}

void tsText::ClearLastValue() { m_.LastValue = Variant(); }

// --- Surroundings
// ---------------------------------------------------------------------------------

Long tsText::hWnd() const {
  Long handle = 0;
  Trap(u"tsText", u"hwnd", [&] {
    if (site_.UserMode()) handle = site_.hWnd();
  });
  return handle;
}

String tsText::Nome() const { return site_.DisplayName(); }

void tsText::Nome(const String&) {
  mdlMsgBox::ExibeMensagem(hWnd(), u"Propriedade Apenas Para Leitura", 0);
}

String tsText::NumeroTab() const { return Trim(m_.NumeroTab); }
void tsText::NumeroTab(const String& v) { Store(m_.NumeroTab, v, u"NumeroTab"); }

// --- Kind and value
// -------------------------------------------------------------------------------

void tsText::TipoControle(tessaria::TipoControle v) {
  m_.TipoControle = v;
  if (v == tessaria::TipoControle::Calendario || v == tessaria::TipoControle::Calculadora)
    m_.PromptInclude = true;
  site_.PropertyChanged(u"TipoControle");
  AtualizaExibicao();
}

void tsText::OriginalValue(const Variant&) {
  mdlMsgBox::ExibeMensagem(hWnd(), u"Propriedade Somente Para Leitura", mdlMsgBox::flag::Stop,
                           u"Atenção !!!");
}

void tsText::LastValue(const String& v) { m_.LastValue = v; }

void tsText::Texto(const String& v) {
  if (filtering_) shown_.NoteTyping();
  m_.Texto = v;
  const String password = txtEdit_.PasswordChar();
  WriteBox(password.empty() ? v : StringOf(Len(v), password));
  site_.PropertyChanged(u"Texto");
}

void tsText::RestoreTyping(const Typing& typing) {
  Texto(typing.Texto);
  shown_.RestoreTyping(typing.Touches);
}

String tsText::Text() const { return txtEdit_.Text(); }
void tsText::Text(const String& v) {
  WriteBox(v);
  site_.PropertyChanged(u"Text");
}

// --- Mask
// -------------------------------------------------------------------------------------------

void tsText::Mascara(const String& v) {
  const String oldMask = m_.Mascara;
  const String oldItems = m_.ItensMascara;
  // A row that nobody edits is shown anew and not written.
  const Road road = IsTouched() ? Road::Write : Road::Show;
  m_.Mascara = v;
  ItensMascara(mdlObjTxt::MontaItensMascara(v, m_.PromptChar));
  txtEdit_.Alignment(EhNumerica() ? host::Alignment::Right : host::Alignment::Left);
  if (site_.UserMode()) {
    if (v.empty() && mdlObjTxt::LimpaMascara(txtEdit_.Text(), oldMask, oldItems).empty())
      Assign(Variant::Null(), road);
    else
      WithoutTouching([&] { WriteBox(LaidOut(Stripped())); });
  }
  site_.PropertyChanged(u"Mascara");
}

void tsText::PromptChar(const String& v) {
  m_.PromptChar = Left(v, 1);
  site_.PropertyChanged(u"PromptChar");
  ItensMascara(mdlObjTxt::MontaItensMascara(m_.Mascara, m_.PromptChar));
}

String tsText::PasswordChar() const { return txtEdit_.PasswordChar(); }
void tsText::PasswordChar(const String& v) {
  txtEdit_.PasswordChar(v);
  site_.PropertyChanged(u"PasswordChar");
}

Long tsText::MaxLength() const { return txtEdit_.MaxLength(); }
void tsText::MaxLength(Long v) {
  txtEdit_.MaxLength(v);
  site_.PropertyChanged(u"MaxLength");
}

Long tsText::SelStart() const { return txtEdit_.SelStart(); }
void tsText::SelStart(Long v) {
  txtEdit_.SelStart(v);
  site_.PropertyChanged(u"SelStart");
}

Long tsText::SelLength() const { return txtEdit_.SelLength(); }
void tsText::SelLength(Long v) {
  txtEdit_.SelLength(v);
  site_.PropertyChanged(u"SelLength");
}

String tsText::SelText() const { return txtEdit_.SelText(); }
void tsText::SelText(const String& v) {
  const ShownText::OwnWrite own(shown_);
  txtEdit_.SelText(v);
  site_.PropertyChanged(u"SelText");
}

bool tsText::EhNumerica() const { return mdlObjTxt::EhMascaraNumerica(m_.Mascara); }

/// The value is stored scrambled.
bool tsText::EhEmbaralhada() const { return UCase(Left(m_.Mascara, 1)) == u"X"; }

String tsText::LaidOut(const Variant& v) const {
  return mdlObjTxt::AplicaMascara(v, m_.Mascara, m_.PromptChar, m_.ItensMascara,
                                  txtEdit_.PasswordChar());
}

String tsText::Stripped() const {
  return mdlObjTxt::LimpaMascara(txtEdit_.Text(), m_.Mascara, m_.ItensMascara);
}

// --- For the library's own modules
// --------------------------------------------------------------------

host::FieldPtr tsText::CampoVinculado() const {
  if (!m_.bCampoConectado) return nullptr;
  return BoundRecordset()->Fields().Item(m_.DataField);
}

host::WidgetPtr tsText::ContainerDoControle() const { return site_.Extender()->Container(); }

host::FormPtr tsText::FormDoControle() const { return site_.Parent(); }

void tsText::GravaValorCampo(const Variant& v) {
  BoundRecordset()->Fields().Item(m_.DataField)->Value(v);
}

void tsText::MsgSeVisivel(const String& text, Long flags, const String& title) {
  if (site_.Parent()->Visible()) mdlMsgBox::ExibeMensagem(hWnd(), text, flags, title);
}

}  // namespace tessaria
