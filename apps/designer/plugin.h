// The library's widgets in Qt Designer, and for forms that are loaded at run time.
#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include "apps/designer/page.h"

namespace tessaria::designer {

class DesignerPlugin;

/// Describes one widget to Designer.
struct WidgetEntry {
  const char* className;
  const char* header;
  const char* icon;
  const char* toolTip;
  const char* domXml;
  QWidget* (*make)(QWidget* parent);
};

class DesignerWidget final : public QObject, public QDesignerCustomWidgetInterface {
  Q_OBJECT
  Q_INTERFACES(QDesignerCustomWidgetInterface)

 public:
  DesignerWidget(const WidgetEntry& entry, DesignerPlugin& plugin);

  QString name() const override { return QLatin1String(entry_.className); }
  QString group() const override { return QStringLiteral("Tessaria"); }
  QString toolTip() const override { return QString::fromUtf8(entry_.toolTip); }
  QString whatsThis() const override { return toolTip(); }
  QString includeFile() const override { return QLatin1String(entry_.header); }
  QString domXml() const override { return QLatin1String(entry_.domXml); }
  QIcon icon() const override;
  bool isContainer() const override { return false; }
  bool isInitialized() const override { return isInitialized_; }
  /// Only Designer calls this; a form loader does not.
  void initialize(QDesignerFormEditorInterface* core) override;
  QWidget* createWidget(QWidget* parent) override { return entry_.make(parent); }

 private:
  const WidgetEntry& entry_;
  DesignerPlugin& plugin_;
  bool isInitialized_ = false;
};

/// Offers no widgets when another copy of the plugin has been loaded before.
class DesignerPlugin final : public QObject,
                             public QDesignerCustomWidgetCollectionInterface,
                             public PageHost {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
  Q_INTERFACES(QDesignerCustomWidgetCollectionInterface tessaria::designer::PageHost)

 public:
  explicit DesignerPlugin(QObject* parent = nullptr);
  QList<QDesignerCustomWidgetInterface*> customWidgets() const override { return widgets_; }
  const PageFactory& pageFactory() const override { return page_; }
  void setPageFactory(PageFactory factory) override { page_ = std::move(factory); }

  /// Makes the program a designer; a second call does nothing.
  void enter(QDesignerFormEditorInterface& core);

 private:
  QList<QDesignerCustomWidgetInterface*> widgets_;
  PageFactory page_;
  bool isInDesigner_ = false;
};

}  // namespace tessaria::designer
