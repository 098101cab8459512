#include "pickers/calendar.h"

#include "mask/dates.h"
#include "services/box_state.h"
#include "services/dialog_placement.h"
#include "services/key_codes.h"
#include "tessaria/comforts.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

constexpr host::WidgetDescription kCalendarWidgets[] = {
    {u"Calendario", host::WidgetKind::Calendar, u"Calendário"},
};

Date StartDate(host::TextBox& box, const String& text, const String& mask, const String& items) {
  if (text.empty() || !mdlObjTxt::ChecaData(box, mask, items)) return TheDesktop().Today();
  if (Len(text) == 8) return CDate(Left(text, 2) + u"/" + Mid(text, 3, 2) + u"/" + Right(text, 4));
  return CDate(text);
}

/// The date test may expand the year and moves the caret. Restores the box afterwards, also when
/// its text is not a date.
Date StartDateKeepingBox(host::TextBox& box, const String& text, const String& mask,
                         const String& items) {
  const BoxState before(box);
  try {
    const Date start = StartDate(box, text, mask, items);
    before.PutBack();
    return start;
  } catch (...) {
    before.PutBack();
    throw;
  }
}

}  // namespace

const host::DialogDescription& frmCalendario::Description() {
  static const host::DialogDescription description{u"frmCalendario", u"Calendário",
                                                   kCalendarWidgets};
  return description;
}

frmCalendario::frmCalendario() : dialog_(TheDesktop().MakeDialog(Description())) {
  auto& calendar = dialog_->Find<host::Calendar>(u"Calendario");
  calendar.OnClick = [this] { Leave(true); };
  calendar.OnKeyPress = [this](Integer& key) {
    if (key == kKeyEnter || key == kKeyEscape) Leave(key == kKeyEnter);
  };
}

frmCalendario::~frmCalendario() = default;

void frmCalendario::Leave(bool chosen) {
  chosen_ = chosen;
  dialog_->Hide();
}

void frmCalendario::Unload() { dialog_->Hide(); }

Variant frmCalendario::ExecutaCalendario(const Variant& nLi, const Variant& nCi,
                                         host::TextBox& txtData, const String& cTexto,
                                         const String& cMascara, const String& cItensMascara,
                                         bool* chosen) {
  const bool canCancel = comforts().CalendarCancels;
  auto& calendar = dialog_->Find<host::Calendar>(u"Calendario");
  const auto startDate = canCancel ? StartDateKeepingBox : StartDate;
  const Date start = startDate(txtData, cTexto, cMascara, cItensMascara);
  calendar.Value(start);
  PlaceOnScreen(*dialog_, static_cast<float>(CDbl(nLi)), static_cast<float>(CDbl(nCi)));
  if (!canCancel) txtData.Text(CStr(start));
  chosen_ = false;
  dialog_->ShowModal();
  const bool isMoved = calendar.Value().Days != start.Days;
  if (chosen) *chosen = chosen_ || (!canCancel && isMoved);
  return calendar.Value();
}

}  // namespace tessaria
