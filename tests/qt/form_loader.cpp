#include "tests/qt/form_loader.h"

#include <QBuffer>
#include <QUiLoader>

#include "tessaria/qt/adodc.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt::tests {
namespace {

class FormLoader final : public QUiLoader {
 public:
  QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
    QWidget* widget = nullptr;
    if (className == QLatin1String("tessaria::qt::TsText")) widget = new TsText(parent);
    if (className == QLatin1String("tessaria::qt::Adodc")) widget = new Adodc(parent);
    if (!widget) return QUiLoader::createWidget(className, parent, name);
    widget->setObjectName(name);
    return widget;
  }
};

}  // namespace

std::unique_ptr<QWidget> loadForm(const QString& ui) {
  FormLoader loader;
  loader.clearPluginPaths();
  QBuffer file;
  file.setData(ui.toUtf8());
  file.open(QIODevice::ReadOnly);
  return std::unique_ptr<QWidget>(loader.load(&file));
}

}  // namespace tessaria::qt::tests
