#include "pickers/calendar.h"

#include "mask/dates.h"
#include "runtime/conversion.h"
#include "runtime/text.h"
#include "services/dialog_placement.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

constexpr Integer kKeyEnter = 13;
constexpr Integer kKeyEscape = 27;

constexpr host::WidgetDescription kWidgets[] = {
    {u"Calendario", host::WidgetKind::Calendar, u"Calendário"},
};

Date StartDate(host::TextBox& box, const String& text, const String& mask, const String& items) {
  if (text.empty() || !mdlObjTxt::ChecaData(box, mask, items)) return TheDesktop().Today();
  if (Len(text) == 8) return CDate(Left(text, 2) + u"/" + Mid(text, 3, 2) + u"/" + Right(text, 4));
  return CDate(text);
}

}  // namespace

const host::DialogDescription& frmCalendario::Description() {
  static const host::DialogDescription description{u"frmCalendario", u"Calendário", kWidgets};
  return description;
}

frmCalendario::frmCalendario() : dialog_(TheDesktop().MakeDialog(Description())) {
  auto& calendar = dialog_->Find<host::Calendar>(u"Calendario");
  calendar.OnClick = [this] { dialog_->Hide(); };
  calendar.OnKeyPress = [this](Integer& key) {
    if (key == kKeyEnter || key == kKeyEscape) dialog_->Hide();
  };
}

frmCalendario::~frmCalendario() = default;

void frmCalendario::Unload() { dialog_->Hide(); }

Variant frmCalendario::ExecutaCalendario(const Variant& nLi, const Variant& nCi,
                                         host::TextBox& txtData, const String& cTexto,
                                         const String& cMascara, const String& cItensMascara) {
  auto& calendar = dialog_->Find<host::Calendar>(u"Calendario");
  const Date start = StartDate(txtData, cTexto, cMascara, cItensMascara);
  calendar.Value(start);
  PlaceOnScreen(*dialog_, static_cast<float>(CDbl(nLi)), static_cast<float>(CDbl(nCi)));
  txtData.Text(CStr(start));
  dialog_->ShowModal();
  return calendar.Value();
}

}  // namespace tessaria
