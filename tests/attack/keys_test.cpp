// Types random keys into fields of every mask and property: nothing breaks, and what a field shows
// agrees with its value.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <sstream>

#include "mask/numbers.h"
#include "tessaria/conversion.h"
#include "tessaria/format.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"
#include "tests/attack/random_form.h"
#include "tests/support/printers.h"

namespace tessaria::attack {
namespace {

using memory::Key;

constexpr int kStepsOfAForm = 400;
constexpr Key kKeys[] = {Key::Backspace, Key::Backspace, Key::Delete, Key::Left, Key::Right,
                         Key::Home,      Key::End,       Key::Insert, Key::Up,   Key::Down,
                         Key::PageUp,    Key::Enter,     Key::F9,     Key::A,    Key::Shift};

std::string Told(const Variant& value) { return testing::PrintToString(value); }
std::string Quoted(StringView text) { return "\"" + ToUtf8(text) + "\""; }

// The cells of a row as one text, for comparisons.
std::string Told(const memory::Row& cells) {
  std::string text;
  for (const Variant& cell : cells) text += Told(cell) + " ";
  return text;
}

/// A field just before the focus leaves it.
struct LeftBehind {
  LeftBehind() = default;
  explicit LeftBehind(const tsText& field)
      : Box(field.Text()),
        Texto(field.Texto()),
        Value(field.Value()),
        Typed(field.CurrentTyping().Touches) {}

  String Box, Texto;
  Variant Value;
  bool Typed = false;  ///< by the operator, since the field got the focus
};

/// One form under attack. Its random choices depend only on its number, so a second run repeats a
/// fault and records every step that led to it.
class Round {
 public:
  Round(long long number, bool tells)
      : number_(number), random_("keys " + std::to_string(number)), form_(random_), tells_(tells) {
    form_.Form().Show();
  }

  /// Whether no fault was found.
  bool Run() {
    for (int i = 0; i < kStepsOfAForm && !fault_; ++i) {
      Step();
      TellFocused();
      CheckErrors();
      if (i % 50 == 0) form_.ForgetThePast();
    }
    return !fault_;
  }
  long long Keys() const { return keys_; }
  const std::pair<std::string, std::string>& TheFault() const { return *fault_; }

 private:
  void Step() {
    const auto draw = random_.Below(1000);
    if (draw < 860) return StrikeKey();
    if (draw < 930) return Leave();
    if (draw < 945) return PlaceCaret();
    if (draw < 955) return Paste();
    if (draw < 975) return Assign();
    if (draw < 980) return Reconfigure();
    if (draw < 988) return Save();
    if (draw < 995) return Load();
    Visit();
  }

  // --- The operator ------------------------------------------------------------------------------

  void StrikeKey() {
    ++keys_;
    memory::TsText* field = form_.Focused();
    const Long before = field ? Len((*field)->Text()) : 0;
    // A text that a window returns is taken whole.
    const long long windows = form_.WindowsShown();
    if (random_.Chance(75)) {
      const char16_t character = RandomCharacter(random_);
      Tell("key " + Quoted(String(1, character)));
      form_.Form().Type(String(1, character));
    } else {
      const Key key = random_.OneOf(kKeys);
      const Integer shift = random_.Chance(15) ? AnyModifier() : Integer{0};
      Tell("key code " + std::to_string(static_cast<int>(key)) + " shift " + std::to_string(shift));
      form_.Form().Press(key, shift);
    }
    if (field != nullptr && field == form_.Focused() && windows == form_.WindowsShown())
      CheckLength(*field, before);
  }

  Integer AnyModifier() { return random_.OneOf({Integer{1}, Integer{2}, Integer{3}}); }

  void PlaceCaret() {
    if (memory::TsText* field = form_.Focused()) {
      memory::TextBox& box = field->txtEdit();
      box.SelStart(static_cast<Long>(random_.Below(20)));
      box.SelLength(static_cast<Long>(random_.Below(6)));
      Tell("caret");
    }
  }

  void Paste() {
    memory::TsText* field = form_.Focused();
    if (field == nullptr || !(*field)->Mascara().empty()) return;
    String text;
    for (std::size_t n = random_.Below(12); n > 0; --n) text += RandomCharacter(random_);
    Tell("paste " + Quoted(text));
    const Long before = Len((*field)->Text());
    form_.Form().RunEvent([&] { field->txtEdit().Insert(text); });
    if (field == form_.Focused()) CheckLength(*field, before);
  }

  void Leave() {
    memory::TsText* field = form_.Focused();
    const LeftBehind before = field ? LeftBehind(**field) : LeftBehind();
    form_.Program().TakeBoxes();
    MoveFocus();
    if (field == nullptr || field == form_.Focused()) return;
    CheckAgreement(*field, before);
  }

  void MoveFocus() {
    const auto draw = random_.Below(10);
    Tell("leave by " + std::to_string(draw));
    if (draw < 4) return form_.Form().Press(Key::Tab);
    if (draw < 6) return form_.Form().Press(Key::Tab, memory::modifier::Shift);
    if (draw < 8) return form_.Form().Focus(form_.AnyField().Name());
    form_.Form().Click(draw == 8 ? u"btnGravar" : u"btnCancelar");
  }

  // --- The program -------------------------------------------------------------------------------

  void Assign() {
    memory::TsText& field = form_.AnyField();
    const Variant value = RandomValue(random_);
    const auto draw = random_.Below(4);
    Tell("assign " + std::to_string(draw) + " " + ToUtf8(field.Name()) + " " + Told(value));
    form_.Form().RunEvent([&] {
      switch (draw) {
        case 0:
          return (*field).Text(CStr(value));
        case 1:
          return (*field).SelText(CStr(value));
        case 2:
          return (*field).Texto(CStr(value));
        default:
          return (*field).Value(value);
      }
    });
  }

  void Reconfigure() {
    Tell("other properties");
    form_.Reconfigure(form_.AnyField());
  }

  void Save() {
    Tell("save");
    form_.Form().RunEvent([&] {
      if (form_.Rows().EditMode() != host::EditMode::None) form_.Rows().Update();
    });
  }

  void Load() {
    const auto row = static_cast<Long>(1 + random_.Below(form_.Stored().Rows().size()));
    Tell("row " + std::to_string(row));
    form_.LoadRow(row);
    CheckUnedited("a row that is shown is not written", row);
  }

  /// The operator tabs through all the fields of a row that was just loaded and changes none.
  void Visit() {
    const auto row = static_cast<Long>(1 + random_.Below(form_.Stored().Rows().size()));
    Tell("visit of row " + std::to_string(row));
    form_.LoadRow(row);
    if (fault_ || form_.Rows().EditMode() != host::EditMode::None) return;
    for (const auto& field : form_.Fields()) {
      form_.Form().Focus(field->Name());
      form_.Form().Focus(random_.OneOf(form_.Fields())->Name());
      CheckUnedited("an untouched field does not write its row: " + Settings(*field), row);
      if (fault_) return;
    }
    Count("visits of untouched fields", static_cast<long long>(form_.Fields().size()));
  }

  // --- Checks ------------------------------------------------------------------------------------

  void CheckErrors() {
    for (const HostError& error : form_.Form().UnhandledErrors()) {
      if (error.Number() == 0) Found("an exception that is no run-time error", error.what());
    }
    for (const String& message : form_.WindowFaults())
      Found("a fault of a window", ToUtf8(message));
  }

  void CheckLength(memory::TsText& field, Long before) {
    const tsText& control = *field;
    const Long most = control.MaxLength();
    const Long now = Len(control.Text());
    // The text that completes a description comes from the lookup.
    if (most == 0 || now <= most || now <= before ||
        control.TipoControle() == TipoControle::Descricao)
      return;
    Found("a key makes a text longer than MaxLength",
          Settings(field) + ": " + std::to_string(before) + " became " + Quoted(control.Text()));
  }

  void CheckUnedited(const std::string& rule, Long row) {
    if (form_.Rows().EditMode() == host::EditMode::None) return;
    const auto& stored = form_.Stored().Rows()[static_cast<std::size_t>(row) - 1].Cells;
    memory::Row pending;
    for (Long i = 0; i < form_.Rows().Fields().Count(); ++i)
      pending.push_back(form_.Rows().Fields().Item(i)->Value());
    Found(rule.substr(0, rule.find(':')),
          rule + "\n  stored  " + Told(stored) + "\n  pending " + Told(pending));
  }

  /// After the operator has left a field, the typed text is either its value, in all its forms, or
  /// still there.
  void CheckAgreement(memory::TsText& field, const LeftBehind& before) {
    const tsText& control = *field;
    const auto active = form_.Form().ActiveControl();
    if (active && active->Name() == control.ObjetoCancelar()) return;  // nothing was settled
    if (!form_.Program().Boxes().empty()) return CheckTypedStays(field, before);
    if (!control.LastValidaStatus()) return;
    const Variant value = control.Value();
    const String expected = mdlObjTxt::LimpaMascara(value.IsNull() ? String() : CStr(value),
                                                    control.Mascara(), control.ItensMascara());
    // When a column has made Null of a text, the text stays in memory.
    const bool isNull = control.Texto().empty() && ColumnHoldsNull(control);
    if (control.Texto() != expected && !isNull)
      Found("Texto and Value differ after the exit",
            Settings(field) + ": Texto " + Quoted(control.Texto()) + ", Value " + Told(value));
    if (!control.DataField().empty() || (control.Mascara().empty() && value.IsNull())) return;
    const String shown = mdlObjTxt::AplicaMascara(value, control.Mascara(), control.PromptChar(),
                                                  control.ItensMascara(), control.PasswordChar());
    if (control.Text() != shown)
      Found("box and Value differ after the exit",
            Settings(field) + ": box " + Quoted(control.Text()) + ", Value " + Told(value));
  }

  void CheckTypedStays(memory::TsText& field, const LeftBehind& before) {
    Count("exits with a message");
    const tsText& control = *field;
    // A text that was not typed is replaced by the value.
    if (!before.Typed) return Count("untouched exits with a message");
    if (RefusedByItsType(control)) return Count("texts that their type refused");
    const bool stays = ShowsSomething(control, control.Text()) || HasNewValue(control, before);
    if (!stays && KeepsByTheRules(control, before))
      Found("an error takes the typed text away",
            Settings(field) + ": typed " + Quoted(before.Box) + " Texto " + Quoted(before.Texto) +
                ", box " + Quoted(control.Text()) + " Value " + Told(control.Value()) + TheBoxes());
  }

  bool ColumnHoldsNull(const tsText& control) {
    const auto column = control.CampoVinculado();
    return column && !form_.Rows().Eof() && !form_.Rows().Bof() && column->Value().IsNull();
  }
  static bool ShowsSomething(const tsText& control, const String& text) {
    return !Trim(mdlObjTxt::LimpaMascara(text, control.Mascara(), control.ItensMascara())).empty();
  }
  static bool HasNewValue(const tsText& control, const LeftBehind& before) {
    const Variant value = control.Value();
    // The digits of a number may be literals of the mask.
    return Told(value) != Told(before.Value) && !value.IsNull() &&
           (!value.IsString() || ShowsSomething(control, CStr(value)));
  }

  /// Whether the steps of the exit themselves leave any of the text in the box: zeros, the number's
  /// format, the relation check, which replaces it with the found key, and a mask that may be
  /// applied twice.
  static bool KeepsByTheRules(const tsText& control, const LeftBehind& before) {
    const bool scrambled = StartsWith(UCase(control.Mascara()), u"X");
    const String typed = Rounded(control, ZeroFilled(control, before.Box));
    return ShowsSomething(control, Assigned(control, scrambled ? before.Texto : typed)) &&
           (!control.UsaChecaRelacao() || scrambled ||
            ShowsSomething(control, Assigned(control, LaidOut(control, RandomForm::kFoundKey))));
  }
  static String ZeroFilled(const tsText& control, const String& text) {
    if (InStr(control.Mascara(), u"0") == 0 || !ShowsSomething(control, text)) return text;
    memory::TextBox box;
    box.Text(text);
    mdlObjTxt::PreencheZeros(box, control.Mascara(), control.ItensMascara(), control.PromptChar(),
                             control.TipoStrZero());
    return box.Text();
  }
  static String Rounded(const tsText& control, const String& text) {
    const String mask = control.Mascara();
    return mdlObjTxt::IsNumericMask(mask) ? Format(text, mdlObjTxt::FormatoNumero(mask, true))
                                          : text;
  }
  static String LaidOut(const tsText& control, const String& text) {
    return mdlObjTxt::AplicaMascara(text, control.Mascara(), control.PromptChar(),
                                    control.ItensMascara(), u"");
  }
  /// The text of the box after the text was assigned. The mask is applied twice when the value
  /// includes the mask.
  static String Assigned(const tsText& control, const String& text) {
    if (control.PromptInclude()) return LaidOut(control, LaidOut(control, text));
    return LaidOut(control,
                   mdlObjTxt::LimpaMascara(text, control.Mascara(), control.ItensMascara()));
  }
  std::string TheBoxes() {
    std::string told;
    for (const auto& box : form_.Program().Boxes())
      told += "\n  box " + Quoted(box.Text) + " title " + Quoted(box.Title);
    return told;
  }

  /// A text that is not a number or not a date leaves a blank box.
  bool RefusedByItsType(const tsText& control) {
    const auto column = control.CampoVinculado();
    const bool takesText = column ? IsTextType(column->Type()) : !IsTypedCode(control.TipoDado());
    const auto& boxes = form_.Program().Boxes();
    return !takesText && std::any_of(boxes.begin(), boxes.end(), [](const auto& box) {
      return StartsWith(box.Title, u"Erro ao Atualizar o Campo");
    });
  }
  static bool IsTextType(Long type) { return type == host::type::VarWChar; }
  /// Whether an unbound value of that code is a number or a date.
  static bool IsTypedCode(Long code) { return code == 2 || code == 4 || code == 5 || code == 7; }

  static std::string Settings(memory::TsText& field) {
    const tsText& control = *field;
    std::ostringstream told;
    told << ToUtf8(field.Name()) << " kind " << static_cast<Long>(control.TipoControle())
         << " mask " << Quoted(control.Mascara()) << " prompt " << Quoted(control.PromptChar())
         << (control.PromptInclude() ? " included" : "") << " MaxLength " << control.MaxLength()
         << " TipoDado " << control.TipoDado() << " TipoStrZero " << control.TipoStrZero()
         << (control.ValorNegativo() ? " negative" : "") << " column "
         << Quoted(control.DataField()) << " password " << Quoted(control.PasswordChar());
    return told.str();
  }

  // --- The record of the steps -------------------------------------------------------------------

  void Tell(const std::string& what) {
    if (tells_) story_.push_back(what);
  }
  /// Adds the field that has the focus after the step.
  void TellFocused() {
    const memory::TsText* field = story_.empty() ? nullptr : form_.Focused();
    if (field == nullptr) return;
    const tsText& control = **field;
    story_.back() += "  -> " + ToUtf8(field->Name()) + " box " + Quoted(control.Text()) +
                     " Texto " + Quoted(control.Texto()) + " Value " + Told(control.Value());
  }
  void Found(const std::string& kind, const std::string& detail) {
    if (fault_) return;
    std::string told = "round " + std::to_string(number_) + ": " + detail + "\n  after";
    const std::size_t shown = 40;
    for (std::size_t i = story_.size() > shown ? story_.size() - shown : 0; i < story_.size(); ++i)
      told += "\n    " + story_[i];
    fault_.emplace(kind, told);
  }

  long long number_;
  Random random_;
  RandomForm form_;
  bool tells_;
  long long keys_ = 0;
  std::vector<std::string> story_;
  std::optional<std::pair<std::string, std::string>> fault_;
};

TEST(Keys, NeitherBreakAFieldNorMakeItDisagreeWithItsValue) {
  const long long wanted = Amount(300'000, 100'000'000);
  long long keys = 0;
  for (long long number = 0; keys < wanted; ++number) {
    Round round(number, false);
    const bool clean = round.Run();
    keys += round.Keys();
    if (clean) continue;
    Round again(number, true);
    if (again.Run()) {
      Fault("a fault that came once only", round.TheFault().second);
    } else {
      Fault(again.TheFault().first, again.TheFault().second);
    }
  }
  Count("keys", keys);
}

}  // namespace
}  // namespace tessaria::attack
