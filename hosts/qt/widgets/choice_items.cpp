#include "hosts/qt/widgets/choice_items.h"

#include <QButtonGroup>
#include <QLineEdit>
#include <QScopedValueRollback>

#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

// --- Combo boxes --------------------------------------------------------------------------------

namespace {

/// Characters that a box shows at least. A longer row does not widen the window.
constexpr int kLeastCharactersShown = 16;

QButtonGroup& optionsOf(QWidget& container) {
  auto* group = container.findChild<QButtonGroup*>({}, Qt::FindDirectChildrenOnly);
  return group ? *group : *new QButtonGroup(&container);
}

}  // namespace

ComboItem::ComboItem(QComboBox& box, const DialogGate& gate, Takes takes)
    : DialogItemOf(box, gate), box_(box), takes_(takes) {
  box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box.setMinimumContentsLength(kLeastCharactersShown);
  if (takes == Takes::AnyText) makeEditable();
  QObject::connect(&box, &QComboBox::activated, &box, [this] { raiseClick(OnClick); });
}

/// What is typed stays as it was typed: nothing completes it, and leaving the box chooses no row.
void ComboItem::makeEditable() {
  box_.setEditable(true);
  box_.setInsertPolicy(QComboBox::NoInsert);
  box_.setCompleter(nullptr);
  QObject::disconnect(box_.lineEdit(), &QLineEdit::editingFinished, &box_, nullptr);
  QObject::connect(box_.lineEdit(), &QLineEdit::textEdited, &box_,
                   [this] { this->gate().raise(OnChange); });
}

String ComboItem::List(Long row) const {
  return hasRow(row) ? fromQt(box_.itemText(row)) : String();
}

/// Qt chooses the first row that comes into an empty box.
void ComboItem::AddItem(const String& text) {
  const bool choosesNone = box_.currentIndex() < 0;
  const QString kept = box_.currentText();
  box_.addItem(toQt(text));
  if (!choosesNone) return;
  box_.setCurrentIndex(-1);
  if (takes_ == Takes::AnyText) box_.setEditText(kept);
}

void ComboItem::Clear() {
  box_.clear();
  if (takes_ == Takes::AnyText) box_.clearEditText();
}

/// Qt keeps the row while another text is typed over it.
Long ComboItem::ListIndex() const {
  const int row = box_.currentIndex();
  return row >= 0 && box_.itemText(row) == box_.currentText() ? row : -1;
}

void ComboItem::ListIndex(Long row) {
  if (row != -1 && !hasRow(row)) throw HostError(errors::InvalidPropertyValue);
  box_.setCurrentIndex(row);
  if (takes_ == Takes::AnyText) box_.setEditText(box_.itemText(row));
}

String ComboItem::Text() const { return fromQt(box_.currentText()); }

void ComboItem::Text(const String& text) {
  const int row = box_.findText(toQt(text), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (row < 0 && takes_ == Takes::RowsOnly) throw HostError(errors::PropertyIsReadOnly);
  box_.setCurrentIndex(row);
  if (takes_ == Takes::AnyText) box_.setEditText(toQt(text));
}

// --- Check boxes --------------------------------------------------------------------------------

CheckItem::CheckItem(QCheckBox& box, const DialogGate& gate) : DialogItemOf(box, gate), box_(box) {
  QObject::connect(&box, &QCheckBox::clicked, &box, [this] { raiseClick(OnClick); });
}

String CheckItem::Caption() const { return fromQt(box_.text()); }

void CheckItem::Value(Integer value) {
  if (value != 0 && value != 1) throw HostError(errors::InvalidPropertyValue);
  box_.setChecked(value == 1);
}

// --- Options ------------------------------------------------------------------------------------

OptionItem::OptionItem(QRadioButton& button, const DialogGate& gate, QWidget& container)
    : DialogItemOf(button, gate), button_(button) {
  optionsOf(container).addButton(&button);
  QObject::connect(&button, &QRadioButton::toggled, &button, [this](bool isSet) {
    if (isSet && !assigning_) raiseClick(OnClick);
  });
}

String OptionItem::Caption() const { return fromQt(button_.text()); }

/// Qt does not clear an option of a group in which one must be set.
void OptionItem::Value(bool value) {
  const QScopedValueRollback echo(assigning_, true);
  QButtonGroup& options = *button_.group();
  if (!value) options.setExclusive(false);
  button_.setChecked(value);
  options.setExclusive(true);
}

}  // namespace tessaria::qt
