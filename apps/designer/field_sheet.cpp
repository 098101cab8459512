#include "apps/designer/field_sheet.h"

#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>

#include <QUndoStack>

namespace tessaria::designer {
namespace {

const QString kSettings = QStringLiteral("settings");

}  // namespace

FieldSheet::FieldSheet(QDesignerFormEditorInterface& core, qt::TsText& field,
                       QDesignerPropertySheetExtension& own, QObject* parent)
    : QObject(parent), core_(core), field_(field), own_(own) {}

/// A property of the field's own; empty for the settings and for those of every widget.
std::optional<QMetaProperty> FieldSheet::ofField(int index) const {
  const QString name = propertyName(index);
  const QMetaObject& meta = qt::TsText::staticMetaObject;
  const int found = meta.indexOfProperty(name.toLatin1());
  if (found < meta.propertyOffset() || name == kSettings) return {};
  return meta.property(found);
}

FieldState FieldSheet::state(const QMetaProperty& property) const {
  return {field_.settings(), property.read(&field_)};
}

// The default of a property is a part of the settings.
bool FieldSheet::hasReset(int index) const {
  return propertyName(index) != kSettings && !ofField(index) && own_.hasReset(index);
}

bool FieldSheet::reset(int index) { return hasReset(index) && own_.reset(index); }

bool FieldSheet::isVisible(int index) const {
  const auto property = ofField(index);
  return own_.isVisible(index) && (!property || property->isDesignable());
}

bool FieldSheet::isEnabled(int index) const {
  return own_.isEnabled(index) && (field_.designError().isEmpty() || !ofField(index));
}

QVariant FieldSheet::property(int index) const {
  const auto property = ofField(index);
  if (property && property->typeId() == QMetaType::QString) return property->read(&field_);
  return own_.property(index);
}

void FieldSheet::setProperty(int index, const QVariant& value) {
  const auto property = ofField(index);
  if (!property) {
    if (propertyName(index) == kSettings) return assignSettings(index, value);
    own_.setProperty(index, value);
    return;
  }
  const FieldState before = state(*property);
  own_.setProperty(index, value);
  FieldState after = state(*property);
  const QString name = propertyName(index);
  if (const auto known = steps_.find(stepPosition(), name, before.settings, after.value)) {
    field_.setSettings(*known);
    after = state(*property);
  }
  if (sameSettings(before.settings, after.settings)) return;
  steps_.note(stepPosition(), name, before, after);
  own_.setChanged(indexOf(kSettings), true);
  showLater();
}

/// Designer's own value of a list holds how it is to be stored, not to be translated: a plain list
/// would take that away.
void FieldSheet::assignSettings(int index, const QVariant& value) {
  if (value.typeId() == QMetaType::QStringList)
    field_.setSettings(value.toStringList());
  else
    own_.setProperty(index, value);
  showLater();
}

/// The index of the undo stack; 0 while a form is loaded.
int FieldSheet::stepPosition() const {
  const auto* form = QDesignerFormWindowInterface::findFormWindow(&field_);
  return form && form->commandHistory() ? form->commandHistory()->index() : 0;
}

/// The editor reads only the property that was assigned.
void FieldSheet::showLater() {
  QMetaObject::invokeMethod(
      this,
      [this] {
        QDesignerPropertyEditorInterface* const editor = core_.propertyEditor();
        if (editor && editor->object() == &field_) editor->setObject(&field_);
      },
      Qt::QueuedConnection);
}

}  // namespace tessaria::designer
