#include "control/dialogs.h"

#include <algorithm>
#include <utility>

#include "control/exact_number.h"
#include "control/same_value.h"
#include "control/surface.h"
#include "mask/exit_flag.h"
#include "mask/form_helpers.h"
#include "pickers/calculator.h"
#include "pickers/calendar.h"
#include "pickers/folder_picker.h"
#include "services/trap.h"
#include "tessaria/comforts.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "wizard/frm_monta_sql.h"

namespace tessaria {

namespace {

// Twips from the field to its dialog.
constexpr float kRoomAbove = 930;
constexpr float kRoomLeft = 30;

/// A dialog that the controls of a thread share, created on first use. The caller's reference
/// keeps it alive until it has answered.
template <class Form>
std::shared_ptr<Form> Shared(std::shared_ptr<Form>& slot) {
  if (!slot) slot = std::make_shared<Form>();
  return slot;
}

template <class Form>
void Release(const std::shared_ptr<Form>& form, std::shared_ptr<Form>& slot) {
  form->Unload();
  slot = nullptr;
}

template <class Form>
void UnloadShared(std::shared_ptr<Form>& shared) {
  if (const auto form = std::exchange(shared, nullptr)) Catch([&] { form->Unload(); }, [] {});
}

/// The number that a value holds, with all its digits; 0 if it is not a number.
Variant NumberOrZero(const Variant& v) { return IsNumeric(v) ? ExactNumber(v) : Variant(0.0); }

Variant NumberIn(const String& text) { return NumberOrZero(Replace(text, u".", u"")); }

}  // namespace

void Dialogs::CloseShared() {
  UnloadShared(State().frmCalendario);
  UnloadShared(State().frmCalculadora);
  UnloadShared(State().frmDiretorio);
  UnloadShared(State().frmMontaSql);
}

void Dialogs::Open() {
  Trap(u"tsText", u"btnBrowse_Click", [&] {
    // If the dialog fails, the tag stays until a click succeeds.
    box_.Widget().Tag = exitIsSilenced;
    Pick(PlaceBelow());
    bool changed = m_.HasChanged();
    parts_.Events.BrowseReturn(changed, m_.LastValue);
    m_.LastValue = m_.Value;
    box_.Widget().Tag.clear();
  });
}

void Dialogs::Pick(const Place& place) {
  switch (m_.TipoControle) {
    case TipoControle::Browse:
    case TipoControle::Descricao:
      return PickFromList(place);
    case TipoControle::Calendario:
      return PickDate(place);
    case TipoControle::Diretorio:
      return PickPath(place);
    case TipoControle::Calculadora:
      return CalculateChecked(place);
    case TipoControle::Normal:
      break;
  }
}

Dialogs::Place Dialogs::PlaceBelow() const {
  const auto extender = parts_.Site.Extender();
  const auto at = [&](const char16_t* axis) {
    return static_cast<float>(CDbl(mdlObjTxt::PosicaoNoForm(extender, axis)));
  };
  return {at(u"y") + static_cast<float>(extender->Height()) + kRoomAbove, at(u"x") + kRoomLeft};
}

void Dialogs::PickFromList(const Place& place) {
  if (parts_.Lookup.BrwCampo().empty() || parts_.Lookup.BrowseTable().empty()) {
    TellStop(parts_.Site,
             u"Propriedades da Browse Não Foram Informadas Corretamente. Contate o Administrador "
             u"de Sistema");
    return;
  }
  auto end = mdlObjTxt::ListEnd::Failed;
  const String chosen = RunList(place, end);
  App().DoEvents();
  TakeFromList(end, chosen);
  App().DoEvents();
  if (box_.Widget().Visible()) box_.Widget().SetFocus();
}

String Dialogs::RunList(const Place& place, mdlObjTxt::ListEnd& end) {
  const Definitions& lookup = parts_.Lookup;
  const auto searches = Searches();
  Variant value = m_.Value;
  String where = lookup.BrwWhere();
  if (!ExpandForList(where)) return {};
  return Trim(mdlObjTxt::VerBrowse(
      place.Top, place.Left, box_.Widget(), value, lookup.BrowseTable(), lookup.BrwCampo(),
      lookup.BrwCampoIrmao(), lookup.BrwCampoOutros(), lookup.BrwGroupBy(), lookup.BrwLeftJoin(),
      where, lookup.BrwTitulo(), m_.TipoControle, nullptr, lookup.Browse()->cgrColGrid(), searches,
      m_.MsgBrowse, WindowOf(parts_.Site), &end));
}

/// A description offers the searches of its key.
std::shared_ptr<Pesquisa> Dialogs::Searches() const {
  if (!m_.IsDescription() || !m_.bIrmaoConectado) return parts_.Lookup.Pesquisa();
  return parts_.Around.Sibling()->Get(u"Pesquisa").As<Pesquisa>();
}

void Dialogs::TakeFromList(mdlObjTxt::ListEnd end, const String& key) {
  if (end == mdlObjTxt::ListEnd::Failed) return;  // the field keeps its value
  // The answer replaces what was typed, and has its own key.
  box_.Shown().ForgetTyping();
  m_.bCarregandoCampo = true;
  const Long room = box_.Widget().MaxLength();
  if (end == mdlObjTxt::ListEnd::NoChoice)
    value_.AssignItself();
  else
    Assign(room != 0 ? LeftWhole(key, room) : key);
}

/// Returns false on an error, which is reported like the list's own errors.
bool Dialogs::ExpandForList(String& where) const {
  return parts_.Lookup.Browse()->WherePronto() ||
         Trap(u"mdlObjTxt", u"VerBrowse", [&] { where = parts_.Around.Expanded(where); });
}

void Dialogs::PickDate(const Place& place) {
  const String given = box_.Widget().Text();
  const bool touched = box_.IsTouched();
  const bool isBlank = Trim(box_.Stripped()).empty();
  const auto calendar = Shared(State().frmCalendario);
  bool chosen = false;
  Variant day;
  box_.WithoutTouching([&] {  // it may complete the year
    day = calendar->ExecutaCalendario(place.Top, place.Left, box_.Widget(), Trim(box_.Stripped()),
                                      m_.Mascara, m_.ItensMascara, &chosen);
  });
  const bool isSame = box_.LaidOut(day) == given || (!chosen && !isBlank);
  if (chosen || !comforts().CalendarCancels) TakeAnswer(day, !touched && isSame);
  Release(calendar, State().frmCalendario);
}

void Dialogs::PickPath(const Place& place) {
  const String given = box_.Widget().Text();
  const bool touched = box_.IsTouched();
  // A field may be wider than the picker's 16-bit width can express.
  const auto width = static_cast<Integer>(std::min<Long>(parts_.Site.Width(), 32767));
  const auto picker = Shared(State().frmDiretorio);
  const Variant path = picker->ExecutaDiretorio(place.Top, place.Left, width, given,
                                                m_.DirVerArquivos, m_.DirPattern);
  TakeAnswer(path, !touched && CStr(path) == given);
  Release(picker, State().frmDiretorio);
}

/// Without a choice the answer is the field's own value, which the box may show only in part.
void Dialogs::TakeAnswer(const Variant& answer, bool isOwn) {
  if (isOwn)
    value_.AssignItself();
  else
    Assign(answer);
}

/// An untouched blank has no value to keep: the calculator's 0 is its answer.
Dialogs::Calculated Dialogs::Calculate(frmCalculadora& calculator, const Place& place) {
  const bool mayKeep = !box_.IsTouched() && !box_.Widget().Text().empty();
  bool changed = false;
  const Variant answer =
      calculator.ExecutaCalculadora(place.Top, place.Left, box_.Widget(), Trim(box_.Stripped()),
                                    m_.Mascara, m_.ItensMascara, &changed);
  return {answer, mayKeep && !changed};
}

void Dialogs::CalculateChecked(const Place& place) {
  const auto calculator = Shared(State().frmCalculadora);
  const Calculated result = Calculate(*calculator, place);
  const Held before = Holds();
  TakeAnswer(result.Answer, result.IsOwn);
  if (!result.IsOwn && !CalculationFits()) {
    App().ShowMessageBox(0,
                         u"Atenção. O resultado do calculo é superior ao tamanho do campo. O Valor "
                         u"será desconsiderado !",
                         host::box::Stop, u"Tessaria Sistemas");
    GiveBack(before);
  }
  Release(calculator, State().frmCalculadora);
}

/// Compares the field's value with what the box shows, and so detects a result that the mask has
/// cut.
bool Dialogs::CalculationFits() {
  if (box_.Widget().MaxLength() <= 0) return true;
  String text = box_.Widget().Text();
  const Long point = InStr(m_.Mascara, u".");
  if (point == 0) {
    if (InStr(text, u".") != 0) return false;
  } else {
    if (InStr(text, u",") == 0) text += u",";
    const Long missing = (Len(m_.Mascara) - point) - (Len(text) - InStr(text, u","));
    if (missing > 0) text += StringOf(missing, u"0");
    Assign(NumberIn(text));
    if (Len(text) > box_.Widget().MaxLength()) return false;
  }
  return !Less(NumberOrZero(m_.Value), NumberIn(text));
}

Dialogs::Held Dialogs::Holds() const {
  Held held{m_.Value, std::nullopt, box_.Shown().Shows()};
  // The assignment that follows reports a row that cannot be read.
  Catch(
      [&] {
        if (m_.bCampoConectado && parts_.Around.HasRow())
          held.Stored = parts_.Around.Column()->Value();
      },
      [] {});
  return held;
}

/// Writes back exactly what the row held, unconverted: it may be a text that is not a number.
void Dialogs::GiveBack(const Held& before) {
  if (before.Stored && !IsSame(parts_.Around.Column()->Value(), *before.Stored))
    parts_.Around.Write(*before.Stored);
  m_.Value = before.Value;
  value_.ShowAgain(before.Shows, AssignMode::Write);
}

void Dialogs::OpenCalculator() {
  const auto calculator = Shared(State().frmCalculadora);
  const Calculated result = Calculate(*calculator, PlaceBelow());
  TakeAnswer(result.Answer, result.IsOwn);
  Release(calculator, State().frmCalculadora);
}

}  // namespace tessaria
