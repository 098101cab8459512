// Single properties in Designer's property editor: each edit is one exact step of the undo.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <QMetaProperty>

#include "tests/designer/driver.h"

namespace tessaria::tests {
namespace {

class Undo : public testing::Test {
 protected:
  Undo() { select(form_, field_); }
  ~Undo() override {
    while (history().canUndo()) history().undo();
  }

  QUndoStack& history() { return *form_.commandHistory(); }
  void set(const char* property, const QVariant& value) {
    edit(form_, QLatin1String(property), value);
  }
  QDesignerPropertySheetExtension& sheet() {
    return *qt_extension<QDesignerPropertySheetExtension*>(designer().extensionManager(), &field_);
  }
  bool isOffered(const char* property) {
    return sheet().isVisible(sheet().indexOf(QLatin1String(property)));
  }

  /// All that a form file holds of the field.
  QStringList stored() const {
    return field_.settings() << field_.placeholderText() << QString::number(field_.multiLineText());
  }

  QDesignerFormWindowInterface& form_ = *openForm(QStringLiteral("pedido.ui"));
  qt::TsText& field_ = *fieldOf(form_, QStringLiteral("txtData"));
  const QStringList opened_ = field_.settings();
};

TEST_F(Undo, TakesBackWhatTheKindHasDoneToOthers) {
  set("TipoControle", 5);
  const QStringList calculator = field_.settings();
  EXPECT_TRUE(field_.promptInclude());
  history().undo();
  EXPECT_EQ(field_.settings(), opened_);
  EXPECT_FALSE(field_.promptInclude());
  history().redo();
  EXPECT_EQ(field_.settings(), calculator);
}

TEST_F(Undo, EveryPropertyThatIsOfferedIsUndoneAndRedoneExactly) {
  const QMetaObject& meta = *field_.metaObject();
  const QStringList opened = stored();
  for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
    const QMetaProperty property = meta.property(i);
    if (!property.isDesignable() || property.name() == QByteArray("settings")) continue;
    SCOPED_TRACE(property.name());
    ASSERT_TRUE(sheet().isEnabled(sheet().indexOf(QLatin1String(property.name()))));
    QVariant value;
    switch (property.typeId()) {
      case QMetaType::QString:
        value = QStringLiteral("7");
        break;
      case QMetaType::Bool:
        value = !property.read(&field_).toBool();
        break;
      case QMetaType::QColor:
        value = QColor(1, 2, 3);
        break;
      case QMetaType::QFont:
        value = QFont(QStringLiteral("DejaVu Sans"), 17);
        break;
      default:
        value = 2;
    }
    if (property.read(&field_) == value) value = 1;
    set(property.name(), value);
    const QStringList edited = stored();
    EXPECT_NE(edited, opened);
    ASSERT_EQ(history().index(), 1);
    history().undo();
    EXPECT_EQ(stored(), opened);
    history().redo();
    EXPECT_EQ(stored(), edited);
    history().undo();
    EXPECT_EQ(stored(), opened);
  }
}

TEST_F(Undo, StepsOfOnePropertyThatDesignerJoinsAreOneStep) {
  set("TipoControle", 5);
  set("TipoControle", 1);
  const QStringList last = field_.settings();
  ASSERT_EQ(history().index(), 1);
  history().undo();
  EXPECT_EQ(field_.settings(), opened_);
  history().redo();
  EXPECT_EQ(field_.settings(), last);
}

TEST_F(Undo, TheSameEditFromTwoStatesIsUndoneToEach) {
  set("TipoControle", 5);
  set("MaxLength", 9);
  set("TipoControle", 0);
  set("PromptInclude", true);
  set("TipoControle", 5);
  QList<QStringList> states{field_.settings()};
  while (history().canUndo()) {
    history().undo();
    states << field_.settings();
  }
  EXPECT_EQ(states.last(), opened_);
  for (qsizetype i = states.size() - 2; i >= 0; --i) {
    history().redo();
    EXPECT_EQ(field_.settings(), states[i]);
  }
}

TEST_F(Undo, WhatHasNoSenseInADesignerIsNotOffered) {
  for (const char* hidden : {"Value", "OriginalValue", "Texto", "Text", "Nome", "SelStart",
                             "PosDataField", "LastValidaStatus", "Browse", "Pesquisa"})
    EXPECT_FALSE(isOffered(hidden)) << hidden;
  for (const char* offered : {"Mascara", "TipoControle", "BrowseTable", "Font", "geometry"})
    EXPECT_TRUE(isOffered(offered)) << offered;
}

}  // namespace
}  // namespace tessaria::tests
