// The box of a field: the edit that it is made of, its size and its names.

#include <QLabel>

#include "hosts/qt/control/tstext.h"
#include "hosts/qt/conversion/label_text.h"
#include "hosts/qt/conversion/units.h"
#include "hosts/qt/form/widget_tree.h"
#include "hosts/qt/keys/line_edit.h"
#include "hosts/qt/keys/multi_line_edit.h"
#include "tessaria/qt/design_time.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

// Twips.
constexpr Long kLeastHeight = 315;
constexpr Long kRoomForButton = 360;

}  // namespace

// --- One line or several

TextEdit* newEdit(TsText& surface, bool severalLines) {
  if (severalLines) return new MultiLineEdit(&surface);
  return new LineEdit(&surface);
}

void TsText::adoptEdit() {
  QWidget& face = parts_->face();
  face.setObjectName(QStringLiteral("txtEdit"));
  setFocusProxy(&face);
  face.installEventFilter(this);
  parts_->edit->showPlaceholder(parts_->placeholder);
  const bool several = parts_->edit->hasSeveralLines();
  setSizePolicy(QSizePolicy::Expanding, several ? QSizePolicy::Expanding : QSizePolicy::Fixed);
}

/// Whether the text can be edited in several lines now: masks and passwords have one.
bool TsText::wantsSeveralLines() const {
  const tsText& c = parts_->control;
  return parts_->hasSeveralLines && c.Mascara().empty() && c.PasswordChar().empty() &&
         c.TipoControle() == tessaria::TipoControle::Normal;
}

void TsText::chooseEdit() {
  if (wantsSeveralLines() == parts_->edit->hasSeveralLines()) return;
  QWidget& before = parts_->face();
  const bool hasFocus = window()->focusWidget() == &before;
  parts_->edit = newEdit(*this, !parts_->edit->hasSeveralLines());
  QWidget& now = parts_->face();
  now.setGeometry(before.geometry());
  now.setFocusPolicy(before.focusPolicy());
  if (formUnderDesign(this)) now.setAttribute(Qt::WA_TransparentForMouseEvents);
  setTabOrder(&before, &now);
  parts_->box.setEdit(*parts_->edit);
  adoptEdit();
  now.setAccessibleName(before.accessibleName());
  describeEdit();
  now.setVisible(!before.isHidden());
  if (hasFocus) now.setFocus(Qt::OtherFocusReason);
  // One of its events may be under way.
  before.hide();
  before.setObjectName(QString());
  before.removeEventFilter(this);
  before.deleteLater();
  updateGeometry();
}

bool TsText::multiLineText() const { return parts_->hasSeveralLines; }

void TsText::setMultiLineText(bool severalLines) {
  parts_->hasSeveralLines = severalLines;
  guarded(this, [this] { chooseEdit(); });
}

QString TsText::placeholderText() const { return parts_->placeholder; }

void TsText::setPlaceholderText(const QString& text) {
  parts_->placeholder = text;
  parts_->edit->showPlaceholder(text);
}

// --- Size

QSize TsText::hintAround(const QSize& box) const {
  return {box.width() + pixelsX(kRoomForButton, *this),
          std::max(box.height(), pixelsY(kLeastHeight, *this))};
}

QSize TsText::sizeHint() const { return hintAround(parts_->edit->boxHint()); }
QSize TsText::minimumSizeHint() const { return hintAround(parts_->edit->leastBoxHint()); }

// --- Names

QLabel* TsText::captionAmong(const QList<QLabel*>& labels) {
  const QString name = labelAssociado();
  QLabel* buddyLabel = nullptr;
  for (QLabel* label : labels) {
    if (!name.isEmpty() && label->objectName().compare(name, Qt::CaseInsensitive) == 0)
      return label;
    if (label->buddy() == this) buddyLabel = label;
  }
  return buddyLabel;
}

/// A screen reader reads the field's own accessible description, and whether a value is required.
void TsText::describeEdit() {
  QStringList parts{accessibleDescription()};
  if (!podeSerBranco()) parts << QStringLiteral("obrigatório");
  parts.removeAll(QString());
  parts_->edit->describe(parts.join(QStringLiteral(", ")));
}

/// A screen reader reads the edit: it gets the field's own accessible name, or else the present
/// text of its caption.
void TsText::nameByCaption(const QList<QLabel*>& labels) {
  QLabel* label = captionAmong(labels);
  if (label && !label->buddy()) label->setBuddy(this);
  // A label does not signal a change of its text, but it repaints.
  if (label) label->installEventFilter(this);
  QString name = accessibleName();
  if (name.isEmpty() && label) name = captionOf(*label);
  QWidget& face = parts_->face();
  if (name != face.accessibleName()) face.setAccessibleName(name);
  parts_->browseButton->setFieldName(name);
  describeEdit();
}

// On a form under design the labels are the designer's.
void TsText::nameForAccessibility() {
  if (!formUnderDesign(this)) nameByCaption(labelsOf(formOf(this)));
}

/// Whether the label is known to be the caption, with its present text: then a search of the whole
/// form would find nothing new.
bool TsText::isNamedBy(const QObject* object) const {
  const auto* label = qobject_cast<const QLabel*>(object);
  return label && label->buddy() == this && accessibleName().isEmpty() &&
         captionOf(*label) == parts_->face().accessibleName();
}

bool TsText::eventFilter(QObject* object, QEvent* event) {
  const bool isEdit = parts_ && object == &parts_->face();
  if (parts_ && event->type() == (isEdit ? QEvent::FocusIn : QEvent::Paint) && !isNamedBy(object))
    nameForAccessibility();
  return QWidget::eventFilter(object, event);
}

}  // namespace tessaria::qt
