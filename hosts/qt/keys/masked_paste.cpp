#include "hosts/qt/keys/masked_paste.h"

#include <QPointer>
#include <QRegularExpression>
#include <algorithm>

#include "hosts/qt/conversion/key_codes.h"
#include "hosts/qt/keys/line_edit.h"
#include "hosts/qt/keys/paste_refusal.h"
#include "mask/key_class.h"
#include "tessaria/comforts.h"
#include "tessaria/host/application.h"
#include "tessaria/masks.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

/// One paste into a mask of slots and literals.
class SlotPaste {
 public:
  explicit SlotPaste(LineEdit& edit)
      : edit_(&edit),
        mask_(edit.maskInUse()),
        literals_(mdlObjTxt::MontaItensMascara(mask_.mask, u"")) {}

  /// Whether any slot takes any of the characters.
  bool hasUseFor(const QString& text) const {
    for (QChar c : text)
      for (int slot = 0; slot < length(); ++slot)
        if (slotTakes(slot, c.unicode())) return true;
    return false;
  }

  /// Empties the selected slots. Returns false if the edit is gone.
  bool clearSelection() {
    if (edit_->selLength() == 0) return true;
    const int end = caret() + edit_->selLength();
    const int start = slotFrom(caret());
    edit_->setSelStart(start);
    edit_->setSelLength(end - start);
    return start >= end || edit_->typeDelete();
  }

  enum class Fate { Taken, Refused, Over };
  /// Ends when the edit is gone, or the mask or the box is full.
  Fate take(const QString& unit) {
    const char16_t c = unit.size() == 1 ? unit.front().unicode() : u'\0';
    if (isLiteral(c) && placesCaret(c)) return Fate::Taken;
    const int slot = slotFrom(caret());
    if (slot >= length()) return Fate::Over;
    edit_->setSelStart(isFill(c) ? slot + 1 : slot);
    if (isFill(c)) return Fate::Taken;
    if (!slotTakes(slot, c)) return Fate::Refused;
    return edit_->offerCharacter(unit) && caret() > slot ? Fate::Taken : Fate::Over;
  }

 private:
  int caret() const { return edit_->selStart(); }
  int length() const { return int(mask_.mask.size()); }
  char16_t maskAt(int position) const { return mask_.mask[std::size_t(position)]; }
  bool isLiteral(char16_t c) const { return c != 0 && literals_.find(c) != String::npos; }
  bool isFill(char16_t c) const { return c != 0 && mask_.prompt == String(1, c); }
  /// The first slot from a position on. The filter also goes there, but stops before the last
  /// literals of some masks.
  int slotFrom(int position) const {
    while (position < length() && isLiteral(maskAt(position))) ++position;
    return position;
  }
  /// "." would be the delete command and "x" the calculator: only a slot that takes the
  /// character gets it.
  bool slotTakes(int slot, char16_t c) const {
    return c != 0 && c != u'.' && c < 128 &&
           SlotTakes(String(1, maskAt(slot)), static_cast<Integer>(c));
  }
  /// Moves the caret after the next occurrence of the literal in the mask. Returns false if the
  /// slot at the caret takes it as a character instead.
  bool placesCaret(char16_t c) {
    if (standsBeforeCaret(c)) return true;
    const int here = caret();
    if (here < length() && slotTakes(here, c)) return false;
    const auto found = mask_.mask.find(c, std::size_t(here));
    if (found != String::npos) edit_->setSelStart(int(found) + 1);
    return true;
  }
  /// Whether it is among the literals that the caret has just passed.
  bool standsBeforeCaret(char16_t c) const {
    for (int i = caret() - 1; i >= 0 && i < length() && isLiteral(maskAt(i)); --i)
      if (maskAt(i) == c) return true;
    return false;
  }

  QPointer<LineEdit> edit_;
  const MaskInUse mask_;
  const String literals_;
};

/// The number in a text as an operator types it: digits, one comma, a minus sign. A point is the
/// decimal mark only when the text has no comma and its groups are not of three digits.
QString typedNumber(QString text, const String& literals) {
  for (char16_t c : literals)
    if (StringView(u".,+-").find(c) == StringView::npos) text.remove(QChar(c));
  static const QRegularExpression grouped(QStringLiteral("^[^0-9]*[0-9]{1,3}(\\.[0-9]{3})+$"));
  if (text.contains(QLatin1Char(',')) || grouped.match(text).hasMatch())
    text.remove(QLatin1Char('.'));
  else
    text.replace(QLatin1Char('.'), QLatin1Char(','));
  QString typed;
  for (QChar c : text)
    if (c.unicode() < 128 && (c.isDigit() || QStringLiteral(",-").contains(c))) typed += c;
  return typed;
}

/// The number in a text: its digits and commas, after its minus signs.
QString plainNumber(const QString& text) {
  QString signs;
  QString digits;
  for (QChar c : text) {
    if (c == QLatin1Char('-')) signs += c;
    if (c == QLatin1Char(',') || (c.unicode() < 128 && c.isDigit())) digits += c;
  }
  return signs + digits;
}

/// Whether the text is a number and nothing else.
bool isNumber(QString text, const String& literals) {
  text.remove(QLatin1String("R$"));
  for (char16_t c : literals) text.remove(QChar(c));
  static const QRegularExpression number(QStringLiteral("^[0-9.,+\\- ]*[0-9][0-9.,+\\- ]*$"));
  return number.match(text).hasMatch();
}

/// Inserts the number as a whole or not at all: without a digit that the mask refuses it would be
/// another number.
bool pasteNumber(LineEdit& edit, const QString& text, const String& literals) {
  const QPointer<LineEdit> alive(&edit);
  const QString typed = typedNumber(text, literals);
  if (typed.isEmpty()) return false;
  QString wanted = edit.text();
  wanted.replace(edit.selStart(), edit.selLength(), typed);
  return edit.attempt([&] {
    if (edit.selLength() > 0 && !edit.typeDelete()) return false;
    for (QChar c : typed)
      if (!edit.typeCharacter(c)) return false;
    return alive && plainNumber(edit.text()) == plainNumber(wanted);
  });
}

/// Returns false if nothing was pasted or the edit is gone.
bool pasteSlots(LineEdit& edit, const QString& text) {
  const QPointer<LineEdit> alive(&edit);
  SlotPaste paste(edit);
  if (!paste.hasUseFor(text) || !paste.clearSelection()) return false;
  for (const QString& unit : charactersOf(text))
    if (paste.take(unit) == SlotPaste::Fate::Over) break;
  return alive;
}

bool pasteAllSlots(LineEdit& edit, const QString& text) {
  return edit.attempt([&] {
    SlotPaste paste(edit);
    if (!paste.clearSelection()) return false;
    const QStringList units = charactersOf(text);
    return std::all_of(units.begin(), units.end(), [&](const QString& unit) {
      return paste.take(unit) == SlotPaste::Fate::Taken;
    });
  });
}

/// The first line that is not blank.
QString firstLine(const QString& text) {
  static const QRegularExpression ends(QStringLiteral("[\\r\\n]"));
  return text.trimmed().section(ends, 0, 0).trimmed();
}

}  // namespace

void pasteThroughMask(LineEdit& edit, const QString& text) {
  const QPointer<LineEdit> alive(&edit);
  const QString line = firstLine(text);
  if (line.isEmpty() || !edit.isEnabled()) return;
  const String mask = edit.maskInUse().mask;
  const String literals = mdlObjTxt::MontaItensMascara(mask, u"");
  const bool numeric = mdlObjTxt::IsNumericMask(mask);
  const bool whole = comforts().PasteWholeOrNothing;
  bool pasted = false;
  if (!whole || line == text.trimmed()) {
    if (numeric)
      pasted = (!whole || isNumber(line, literals)) && pasteNumber(edit, line, literals);
    else
      pasted = whole ? pasteAllSlots(edit, line) : pasteSlots(edit, line);
  }
  if (pasted && alive) return edit.reportTextWithoutKey();
  if (!alive) return;
  if (whole)
    tellRefusedPaste(edit);
  else if (numeric && !typedNumber(line, literals).isEmpty())
    App().Beep();
}

}  // namespace tessaria::qt
