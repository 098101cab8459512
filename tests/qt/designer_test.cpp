// The plugin for Qt Designer, as the form loader of a program uses it: only with the shared
// library.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QPluginLoader>
#include <QTemporaryDir>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <memory>

#include "tessaria/qt/adodc.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt::tests {
namespace {

const QByteArray kForm = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="frmCliente">
  <widget class="tessaria::qt::TsText" name="txtCPF">
   <property name="settings">
    <stringlist>
     <string>tessaria 1</string>
     <string>Mascara=String:000.000.000-00</string>
     <string>PodeSerBranco=Boolean:False</string>
    </stringlist>
   </property>
  </widget>
  <widget class="tessaria::qt::Adodc" name="dcCliente">
   <property name="RecordSource"><string>Cliente</string></property>
  </widget>
 </widget>
</ui>)";

class DesignerPlugin : public testing::Test {
 protected:
  DesignerPlugin() {
    loader_.clearPluginPaths();
    loader_.addPluginPath(QStringLiteral(TESSARIA_DESIGNER_PLUGINS));
  }

  QUiLoader loader_;
};

TEST_F(DesignerPlugin, OffersAllWidgets) {
  const QStringList offered = loader_.availableWidgets();
  EXPECT_TRUE(offered.contains(QStringLiteral("tessaria::qt::TsText")));
  EXPECT_TRUE(offered.contains(QStringLiteral("tessaria::qt::Adodc")));
  EXPECT_TRUE(offered.contains(QStringLiteral("tessaria::qt::ItemGrid")));
}

TEST_F(DesignerPlugin, ASecondCopyOffersNothing) {
  const QTemporaryDir elsewhere;
  const QString copy = elsewhere.filePath(QStringLiteral("copy.so"));
  ASSERT_TRUE(QFile::copy(QStringLiteral(TESSARIA_DESIGNER_PLUGIN), copy));
  const auto widgetsOf = [](const QString& file) {
    QPluginLoader plugin(file);
    auto* widgets = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(plugin.instance());
    return widgets ? widgets->customWidgets().size() : -1;
  };
  EXPECT_EQ(widgetsOf(QStringLiteral(TESSARIA_DESIGNER_PLUGIN)), 3);
  EXPECT_EQ(widgetsOf(copy), 0);
}

TEST_F(DesignerPlugin, AFormFileHoldsTheWidgetsWithTheirSettings) {
  QBuffer file;
  file.setData(kForm);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const std::unique_ptr<QWidget> form(loader_.load(&file));
  ASSERT_NE(form, nullptr);
  const auto* field = form->findChild<TsText*>(QStringLiteral("txtCPF"));
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(field->mascara(), QStringLiteral("000.000.000-00"));
  EXPECT_FALSE(field->podeSerBranco());
  EXPECT_FALSE(field->designMode());
  const auto* data = form->findChild<Adodc*>(QStringLiteral("dcCliente"));
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(data->recordSource(), QStringLiteral("Cliente"));
}

}  // namespace
}  // namespace tessaria::qt::tests
