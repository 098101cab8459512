// The properties of a field as Designer's property editor sees them.
#pragma once

#include <QtDesigner/QDesignerPropertySheetExtension>

#include <QMetaProperty>
#include <QObject>
#include <optional>

#include <tessaria/qt/tstext.h>

#include "apps/designer/edit_steps.h"

class QDesignerFormEditorInterface;

namespace tessaria::designer {

/// Everything goes to Designer's own sheet, except that an assignment of one of the field's
/// properties is one exact step of Designer's undo, with all that it does to others.
class FieldSheet final : public QObject, public QDesignerPropertySheetExtension {
  Q_OBJECT
  Q_INTERFACES(QDesignerPropertySheetExtension)

 public:
  /// `own` is Designer's own sheet of the field; both outlive this one.
  FieldSheet(QDesignerFormEditorInterface& core, qt::TsText& field,
             QDesignerPropertySheetExtension& own, QObject* parent);

  int count() const override { return own_.count(); }
  int indexOf(const QString& name) const override { return own_.indexOf(name); }
  QString propertyName(int index) const override { return own_.propertyName(index); }
  QString propertyGroup(int index) const override { return own_.propertyGroup(index); }
  void setPropertyGroup(int index, const QString& group) override {
    own_.setPropertyGroup(index, group);
  }
  bool hasReset(int index) const override;
  bool reset(int index) override;
  bool isVisible(int index) const override;
  void setVisible(int index, bool visible) override { own_.setVisible(index, visible); }
  bool isAttribute(int index) const override { return own_.isAttribute(index); }
  void setAttribute(int index, bool attribute) override { own_.setAttribute(index, attribute); }
  /// A text of the field is no text to translate.
  QVariant property(int index) const override;
  void setProperty(int index, const QVariant& value) override;
  bool isChanged(int index) const override { return own_.isChanged(index); }
  void setChanged(int index, bool changed) override { own_.setChanged(index, changed); }
  /// Settings that cannot be read are kept as they are.
  bool isEnabled(int index) const override;

 private:
  std::optional<QMetaProperty> ofField(int index) const;
  FieldState state(const QMetaProperty& property) const;
  void assignSettings(int index, const QVariant& value);
  int stepPosition() const;
  void showLater();

  QDesignerFormEditorInterface& core_;
  qt::TsText& field_;
  QDesignerPropertySheetExtension& own_;
  EditSteps steps_;
};

}  // namespace tessaria::designer
