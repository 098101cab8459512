// The button: the road to the dialogs of a field.

#include <algorithm>

#include "browse/lookup_run.h"
#include "control/exact_number.h"
#include "control/tstext.h"
#include "mask/exit_flag.h"
#include "mask/form_helpers.h"
#include "pickers/calculator.h"
#include "pickers/calendar.h"
#include "pickers/folder_picker.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/comforts.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

// Twips from the field to its dialog.
constexpr float kRoomAbove = 930;
constexpr float kRoomLeft = 30;

/// A dialog that the controls of a thread share, made on first need. The caller's reference
/// keeps it until it has answered.
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

/// The number that a value holds, with all its digits; 0 for what is none.
Variant NumberOrZero(const Variant& v) { return IsNumeric(v) ? ExactNumber(v) : Variant(0.0); }

Variant NumberIn(const String& text) { return NumberOrZero(Replace(text, u".", u"")); }

}  // namespace

void tsText::btnBrowse_Click() {
  Trap(u"tsText", u"btnBrowse_Click", [&] {
    txtEdit_.Tag = exitIsSilenced;  // stays when the dialog fails, until the next click works
    const DialogPlace place = PlaceBelow();
    switch (m_.TipoControle) {
      case tessaria::TipoControle::Browse:
      case tessaria::TipoControle::Descricao:
        PickFromList(place);
        break;
      case tessaria::TipoControle::Calendario:
        PickDate(place);
        break;
      case tessaria::TipoControle::Diretorio:
        PickPath(place);
        break;
      case tessaria::TipoControle::Calculadora:
        CalculateChecked(place);
        break;
      case tessaria::TipoControle::Normal:
        break;
    }
    bool changed = ValueChanged();
    events_.BrowseReturn(changed, m_.LastValue);
    m_.LastValue = m_.Value;
    txtEdit_.Tag.clear();
  });
}

tsText::DialogPlace tsText::PlaceBelow() const {
  const auto extender = site_.Extender();
  const auto at = [&](const char16_t* axis) {
    return static_cast<float>(CDbl(mdlObjTxt::PosicaoNoForm(extender, axis)));
  };
  return {at(u"y") + static_cast<float>(extender->Height()) + kRoomAbove, at(u"x") + kRoomLeft};
}

void tsText::PickFromList(const DialogPlace& place) {
  if (BrwCampo().empty() || BrowseTable().empty()) {
    mdlMsgBox::ExibeMensagem(hWnd(),
                             u"Propriedades da Browse Não Foram Informadas Corretamente. Contate "
                             u"o Administrador de Sistema",
                             mdlMsgBox::flag::Stop);
    return;
  }
  const bool usesSiblings =
      m_.TipoControle == tessaria::TipoControle::Descricao && m_.bIrmaoConectado;
  const auto searches =
      usesSiblings ? Sibling()->Get(u"Pesquisa").As<tessaria::Pesquisa>() : Pesquisa();
  Variant value = m_.Value;
  String where = BrwWhere();
  String chosen;
  auto end = mdlObjTxt::FimDaLista::Falhou;
  if (ExpandForList(where))
    chosen = Trim(mdlObjTxt::VerBrowse(
        place.Top, place.Left, txtEdit_, value, BrowseTable(), BrwCampo(), BrwCampoIrmao(),
        BrwCampoOutros(), BrwGroupBy(), BrwLeftJoin(), where, BrwTitulo(), m_.TipoControle, nullptr,
        Browse()->cgrColGrid(), searches, m_.MsgBrowse, hWnd(), &end));
  App().DoEvents();
  TakeFromList(end, chosen);
  App().DoEvents();
  if (txtEdit_.Visible()) txtEdit_.SetFocus();
}

void tsText::TakeFromList(mdlObjTxt::FimDaLista end, const String& key) {
  if (end == mdlObjTxt::FimDaLista::Falhou) return;  // the field stays as it stands
  shown_.ForgetTyping();  // the answer takes the place of what was typed, and has a key of its own
  m_.bCarregandoCampo = true;
  if (end == mdlObjTxt::FimDaLista::SemEscolha)
    AssignItself();
  else
    Value(MaxLength() != 0 ? LeftWhole(key, MaxLength()) : key);
}

/// False when that failed, which is reported as the list's own errors are.
bool tsText::ExpandForList(String& where) const {
  return Browse()->WherePronto() ||
         Trap(u"mdlObjTxt", u"VerBrowse", [&] { where = Expanded(where); });
}

void tsText::PickDate(const DialogPlace& place) {
  const String given = txtEdit_.Text();
  const bool touched = IsTouched();
  const bool isBlank = Trim(Stripped()).empty();
  const auto calendar = Shared(State().frmCalendario);
  bool chosen = false;
  Variant day;
  WithoutTouching([&] {  // it may write the year out
    day = calendar->ExecutaCalendario(place.Top, place.Left, txtEdit_, Trim(Stripped()), m_.Mascara,
                                      m_.ItensMascara, &chosen);
  });
  const bool isSame = LaidOut(day) == given || (!chosen && !isBlank);
  if (chosen || !comforts().CalendarCancels) TakeAnswer(day, !touched && isSame);
  Release(calendar, State().frmCalendario);
}

void tsText::PickPath(const DialogPlace& place) {
  const String given = txtEdit_.Text();
  const bool touched = IsTouched();
  // A field may be wider than the picker's 16-bit width tells.
  const auto width = static_cast<Integer>(std::min<Long>(site_.Width(), 32767));
  const auto picker = Shared(State().frmDiretorio);
  const Variant path = picker->ExecutaDiretorio(place.Top, place.Left, width, given,
                                                m_.DirVerArquivos, m_.DirPattern);
  TakeAnswer(path, !touched && CStr(path) == given);
  Release(picker, State().frmDiretorio);
}

/// An answer that nobody made is the field's own value, of which the box may show a part only.
void tsText::TakeAnswer(const Variant& answer, bool isOwn) {
  if (isOwn)
    AssignItself();
  else
    Value(answer);
}

/// A blank that nobody touched has no value of its own to keep: the calculator's 0 is its answer.
tsText::Calculated tsText::Calculate(frmCalculadora& calculator, const DialogPlace& place) {
  const bool mayKeep = !IsTouched() && !txtEdit_.Text().empty();
  bool changed = false;
  const Variant answer = calculator.ExecutaCalculadora(
      place.Top, place.Left, txtEdit_, Trim(Stripped()), m_.Mascara, m_.ItensMascara, &changed);
  return {answer, mayKeep && !changed};
}

void tsText::CalculateChecked(const DialogPlace& place) {
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

/// Compares what the field made of the result with what it shows: a result that the mask cut
/// down is caught here.
bool tsText::CalculationFits() {
  if (MaxLength() <= 0) return true;
  String text = txtEdit_.Text();
  const Long point = InStr(m_.Mascara, u".");
  if (point == 0) {
    if (InStr(text, u".") != 0) return false;
  } else {
    if (InStr(text, u",") == 0) text += u",";
    const Long missing = (Len(m_.Mascara) - point) - (Len(text) - InStr(text, u","));
    if (missing > 0) text += StringOf(missing, u"0");
    Value(NumberIn(text));
    if (Len(text) > MaxLength()) return false;
  }
  return !Less(NumberOrZero(m_.Value), NumberIn(text));
}

tsText::Held tsText::Holds() const {
  Held held{m_.Value, std::nullopt, shown_.Shows()};
  // A row that cannot be read is told by the assignment that follows.
  Catch(
      [&] {
        if (!m_.bCampoConectado) return;
        const auto rows = BoundRecordset();
        if (!rows->Eof() && !rows->Bof()) held.Stored = CampoVinculado()->Value();
      },
      [] {});
  return held;
}

/// The row gets what it held and no conversion of it: that may be a text that no number is.
void tsText::GiveBack(const Held& before) {
  if (before.Stored && !IsSame(CampoVinculado()->Value(), *before.Stored))
    GravaValorCampo(*before.Stored);
  m_.Value = before.Value;
  ShowAgain(before.Shows, Road::Write);
}

/// The keyboard's road to the calculator takes the answer unchecked.
void tsText::AbreCalculadora() {
  const auto calculator = Shared(State().frmCalculadora);
  const Calculated result = Calculate(*calculator, PlaceBelow());
  TakeAnswer(result.Answer, result.IsOwn);
  Release(calculator, State().frmCalculadora);
}

}  // namespace tessaria
