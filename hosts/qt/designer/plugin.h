// The library's widgets in Qt Designer, and for forms that are loaded at run time.
#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace tessaria::qt {

/// Describes one widget to Designer.
struct WidgetEntry {
  const char* className;
  const char* header;
  const char* icon;
  const char* toolTip;
  const char* domXml;
  QWidget* (*make)(QWidget* parent, bool designing);
};

class DesignerWidget final : public QObject, public QDesignerCustomWidgetInterface {
  Q_OBJECT
  Q_INTERFACES(QDesignerCustomWidgetInterface)

 public:
  DesignerWidget(const WidgetEntry& entry, QObject* parent) : QObject(parent), entry_(entry) {}

  QString name() const override { return QLatin1String(entry_.className); }
  QString group() const override { return QStringLiteral("Tessaria"); }
  QString toolTip() const override { return QString::fromUtf8(entry_.toolTip); }
  QString whatsThis() const override { return toolTip(); }
  QString includeFile() const override { return QLatin1String(entry_.header); }
  QString domXml() const override { return QLatin1String(entry_.domXml); }
  QIcon icon() const override;
  bool isContainer() const override { return false; }
  bool isInitialized() const override { return designing_; }
  /// Only Designer calls this; a form loader does not.
  void initialize(QDesignerFormEditorInterface*) override { designing_ = true; }
  QWidget* createWidget(QWidget* parent) override { return entry_.make(parent, designing_); }

 private:
  const WidgetEntry& entry_;
  bool designing_ = false;
};

class DesignerPlugin final : public QObject, public QDesignerCustomWidgetCollectionInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
  Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

 public:
  explicit DesignerPlugin(QObject* parent = nullptr);
  QList<QDesignerCustomWidgetInterface*> customWidgets() const override { return widgets_; }

 private:
  QList<QDesignerCustomWidgetInterface*> widgets_;
};

}  // namespace tessaria::qt
