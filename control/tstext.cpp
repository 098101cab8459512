// The control: passes the calls of its host and its siblings to its parts.

#include "tessaria/tstext.h"

#include "control/tstext.h"
#include "services/message_box.h"
#include "services/trap.h"

namespace tessaria {

tsText::tsText(host::ControlSite& site, host::TextBox& txtEdit, host::CommandButton& btnBrowse,
               tsTextEvents& events)
    : parts_(std::make_unique<Parts>(site, txtEdit, btnBrowse, events)) {}

tsText::~tsText() = default;

// --- What the surface's host calls

void tsText::UserControl_Show() { parts_->firstShow.Run(); }
void tsText::UserControl_Resize() { parts_->looks.Resize(); }
void tsText::UserControl_EnterFocus() { parts_->focus.Enter(); }

ExitVerdict tsText::UserControl_ExitFocus() {
  parts_->boxEvents.ForgetHeldKey();
  return parts_->focus.Exit();
}

bool tsText::HasToSettle() const { return parts_->focus.HasToSettle(); }

bool tsText::IsTouched() const { return parts_->box.IsTouched(); }

String tsText::TextOf(const Variant& value) const { return parts_->value.TextFor(value); }

void tsText::UserControl_KeyDown(Integer& KeyCode, Integer& Shift) {
  parts_->boxEvents.KeyDown(KeyCode, Shift);
}

void tsText::UserControl_KeyPress(Integer& KeyAscii) { parts_->events.KeyPress(KeyAscii); }

void tsText::UserControl_KeyUp(Integer& KeyCode, Integer& Shift) {
  parts_->boxEvents.KeyUp(KeyCode, Shift);
}

void tsText::UserControl_Terminate() {
  Trap(u"tsText", u"UserControl_Terminate", [&] { parts_->lookup.Release(); });
  // The dialogs are shared: destroying any control closes them for all.
  Dialogs::CloseShared();
}

// --- Methods

Variant tsText::Refresh() {
  SetarVariaveis(u"Todos");
  return {};
}

bool tsText::Valida() { return parts_->validation.Check() == Validation::Verdict::Passed; }

bool tsText::AcionaChecaRelacao() { return parts_->validation.RelationHolds(); }

Variant tsText::AtualizaIrmao(bool ApenasTsBrowse, bool DisparaBrowseReturn) {
  parts_->pair.Refresh(ApenasTsBrowse, DisparaBrowseReturn, AssignMode::Write);
  return {};
}

void tsText::ShowSibling(bool ApenasTsBrowse) {
  parts_->pair.Refresh(ApenasTsBrowse, false, AssignMode::Show);
}

Variant tsText::DisparaEventos(const String& strEvento) {
  if (strEvento == u"BrowseReturn") parts_->pair.RaiseBrowseReturn();
  return {};
}

void tsText::ClearLastValue() { parts_->members.LastValue = Variant(); }

void tsText::Value(const Variant& v) { parts_->value.Assign(v, AssignMode::Write); }
bool tsText::TakeValue(const Variant& v) { return parts_->value.Assign(v, AssignMode::Write); }
void tsText::ShowValue(const Variant& v) { parts_->value.Assign(v, AssignMode::Show); }

// --- For the library's own modules

host::FieldPtr tsText::CampoVinculado() const { return parts_->around.Column(); }

host::WidgetPtr tsText::ContainerDoControle() const { return parts_->site.Extender()->Container(); }

host::FormPtr tsText::FormDoControle() const { return parts_->site.Parent(); }

void tsText::GravaValorCampo(const Variant& v) { parts_->around.Write(v); }

bool tsText::SetarVariaveis(StringView what) { return parts_->discovery.Find(what); }

String tsText::DesignTimeError() const { return parts_->firstShow.DesignTimeError(); }

void tsText::RedrawAtDesignTime() { parts_->firstShow.Redraw(); }

void tsText::MsgSeVisivel(const String& text, Long flags, const String& title) {
  if (parts_->site.Parent()->Visible()) mdlMsgBox::ExibeMensagem(hWnd(), text, flags, title);
}

}  // namespace tessaria
