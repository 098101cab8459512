#include "tessaria/memory/text_box.h"

#include <algorithm>
#include <utility>

#include "tessaria/text.h"

namespace tessaria::memory {
namespace {

/// Calls a copy of the slot: the handler may destroy its owner.
template <class Slot, class... Arguments>
void Raise(const Slot& slot, Arguments&... arguments) {
  if (const Slot copy = slot) copy(arguments...);
}

bool IsControlCharacter(char16_t character) { return character < u' '; }

constexpr StringView kLineEnd = u"\r\n";

}  // namespace

TextBox::TextBox() { font_.Name = u"MS Sans Serif"; }

TextBox::~TextBox() = default;

Long TextBox::Clamp(Long position) const { return std::clamp<Long>(position, 0, Len(text_)); }

void TextBox::Text(const String& text) {
  anchor_ = caret_ = 0;
  if (text == text_) return;
  text_ = text;
  Raise(OnChange);
}

Long TextBox::SelStart() const { return std::min(anchor_, caret_); }

void TextBox::SelStart(Long position) { anchor_ = caret_ = Clamp(position); }

Long TextBox::SelLength() const { return std::abs(caret_ - anchor_); }

void TextBox::SelLength(Long length) {
  anchor_ = SelStart();
  caret_ = anchor_ + std::clamp<Long>(length, 0, Len(text_) - anchor_);
}

String TextBox::SelText() const { return Mid(text_, SelStart() + 1, SelLength()); }

void TextBox::SelText(const String& text) {
  if (Replace(SelStart(), SelLength(), text)) Raise(OnChange);
}

void TextBox::MaxLength(Long characters) { maxLength_ = std::max<Long>(0, characters); }

void TextBox::SetFocus() {
  if (!TakesKeys()) return;
  if (OnSetFocus) {
    Raise(OnSetFocus);
  } else {
    GainFocus();
  }
}

void TextBox::GainFocus() {
  if (hasFocus_) return;
  hasFocus_ = true;
  Raise(OnGotFocus);
}

void TextBox::LoseFocus() {
  held_.clear();
  if (!hasFocus_) return;
  hasFocus_ = false;
  Raise(OnLostFocus);
}

String TextBox::DisplayedText() const {
  return passwordChar_.empty() ? text_ : String(text_.size(), passwordChar_[0]);
}

void TextBox::Type(StringView text) {
  const std::weak_ptr<const bool> alive = alive_;
  for (char16_t character : String(text)) {
    for (const Stroke& stroke : StrokesOf(character)) {
      Hold(stroke);
      if (alive.expired()) return;
      Release(stroke);
      if (alive.expired()) return;
    }
  }
}

void TextBox::Press(Key key, Integer shift) {
  const std::weak_ptr<const bool> alive = alive_;
  const Stroke stroke = StrokeOf(key, shift);
  Hold(stroke);
  if (!alive.expired()) Release(stroke);
}

void TextBox::Hold(const Stroke& stroke) {
  if (!TakesKeys()) return;
  held_.insert(stroke.Code);
  if (!PassesKeyDown(stroke)) return;
  if (stroke.Character != 0) {
    PressCharacter(stroke.Character);
  } else {
    EditCommand(stroke);
  }
}

bool TextBox::PassesKeyDown(const Stroke& stroke) {
  const std::weak_ptr<const bool> alive = alive_;
  Integer code = stroke.Code;
  Integer shift = stroke.Shift;
  // A character that no key of this keyboard makes has the code 0 from the start.
  const auto swallowed = [&] { return alive.expired() || (code == 0 && stroke.Code != 0); };
  Raise(Surface.OnKeyDown, code, shift);
  if (swallowed()) return false;
  Raise(OnKeyDown, code, shift);
  return !swallowed();
}

/// The two halves of a surrogate pair come one after the other and are one character.
void TextBox::PressCharacter(char16_t character) {
  if (IsHighSurrogate(character)) {
    half_ = character;
    return;
  }
  const char16_t half = std::exchange(half_, u'\0');
  const std::weak_ptr<const bool> alive = alive_;
  const Integer original = AnsiCode(character);
  Integer code = original;
  Raise(Surface.OnKeyPress, code);
  if (alive.expired() || code == 0) return;
  Raise(OnKeyPress, code);
  if (alive.expired() || code == 0) return;
  if (half != u'\0' && code == original) return Enter({half, character});
  const char16_t typed = code == original ? character : AnsiCharacter(code);
  if (typed == u'\b') return Backspace();
  if (typed == u'\r') return multiLine_ ? Enter(String(kLineEnd)) : Raise(OnEnterKey);
  if (!IsControlCharacter(typed)) Enter(String(1, typed));
}

void TextBox::Release(const Stroke& stroke) {
  if (TakesKeys()) RaiseKeyUp(stroke, held_.erase(stroke.Code) > 0);
}

void TextBox::RaiseKeyUp(const Stroke& stroke, bool pressedHere) {
  const std::weak_ptr<const bool> alive = alive_;
  Integer code = stroke.Code;
  Integer shift = stroke.Shift;
  Raise(Surface.OnKeyUp, code, shift);
  if (pressedHere && !alive.expired()) Raise(OnKeyUp, code, shift);
}

void TextBox::Insert(const String& text) {
  if (!TakesKeys()) return;
  const std::weak_ptr<const bool> alive = alive_;
  Enter(text);
  if (!alive.expired()) RaiseKeyUp(Stroke{}, true);
}

void TextBox::EditCommand(const Stroke& stroke) {
  const bool extend = (stroke.Shift & modifier::Shift) != 0;
  const bool control = (stroke.Shift & modifier::Control) != 0;
  switch (static_cast<Key>(stroke.Code)) {
    case Key::Home:
      return MoveCaret(LineStart(), extend);
    case Key::End:
      return MoveCaret(LineEnd(), extend);
    case Key::Left:
      return MoveCaret(!extend && SelLength() > 0 ? SelStart() : Previous(caret_), extend);
    case Key::Right:
      return MoveCaret(!extend && SelLength() > 0 ? SelStart() + SelLength() : Next(caret_),
                       extend);
    case Key::Delete:
      return Delete();
    case Key::A:
      if (control) SelStart(0), SelLength(Len(text_));
      return;
    default:
      return;
  }
}

Long TextBox::WholePosition(Long position) const {
  const bool inLineEnd = multiLine_ && position > 0 && Mid(text_, position, 2) == kLineEnd;
  return inLineEnd ? position - 1 : Len(LeftWhole(text_, position));
}

Long TextBox::Previous(Long position) const {
  return WholePosition(std::max<Long>(0, position - 1));
}

Long TextBox::Next(Long position) const {
  const Long next = std::min(position + 1, Len(text_));
  return WholePosition(next) == next ? next : next + 1;
}

Long TextBox::LineStart() const {
  const Long before = multiLine_ ? InStrRev(Left(text_, caret_), kLineEnd) : 0;
  return before == 0 ? 0 : before + 1;
}

Long TextBox::LineEnd() const {
  const Long rest = multiLine_ ? InStr(Mid(text_, caret_ + 1), kLineEnd) : 0;
  return rest == 0 ? Len(text_) : caret_ + rest - 1;
}

void TextBox::MoveCaret(Long position, bool extend) {
  caret_ = Clamp(position);
  if (!extend) anchor_ = caret_;
}

void TextBox::Backspace() {
  if (SelLength() > 0) return PutIn(SelStart(), SelLength(), u"");
  const Long start = Previous(caret_);
  if (start < caret_) PutIn(start, caret_ - start, u"");
}

void TextBox::Delete() {
  if (SelLength() > 0) return PutIn(SelStart(), SelLength(), u"");
  const Long end = Next(caret_);
  if (caret_ < end) PutIn(caret_, end - caret_, u"");
}

void TextBox::Enter(const String& text) {
  const Long start = SelStart();
  const Long length = SelLength();
  const Long room = maxLength_ == 0 ? Len(text) : maxLength_ - (Len(text_) - length);
  const String fitting = LeftWhole(text, std::max<Long>(0, room));
  const std::weak_ptr<const bool> alive = alive_;
  if (!fitting.empty() || (text.empty() && length > 0)) PutIn(start, length, fitting);
  if (fitting.size() < text.size() && !alive.expired()) Raise(OnNoRoom);
}

void TextBox::PutIn(Long start, Long length, const String& text) {
  Raise(Replace(start, length, text) ? OnChange : OnSameText);
}

bool TextBox::Replace(Long start, Long length, const String& text) {
  const bool differs = Mid(text_, start + 1, length) != text;
  text_.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(length), text);
  anchor_ = caret_ = start + Len(text);
  return differs;
}

}  // namespace tessaria::memory
