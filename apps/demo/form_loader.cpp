#include "apps/demo/form_loader.h"

#include <QFile>
#include <QUiLoader>
#include <utility>

#include "tessaria/qt/adodc.h"
#include "tessaria/qt/item_grid.h"
#include "tessaria/qt/tstext.h"

static void loadForms() { Q_INIT_RESOURCE(demo); }

namespace tessaria::demo {
namespace {

/// Creates the widgets of the library without a plugin.
class Loader final : public QUiLoader {
 public:
  explicit Loader(QWidget& form) : form_(&form) {}

  QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
    QWidget* widget = parent ? nullptr : std::exchange(form_, nullptr);
    if (className == QLatin1String("tessaria::qt::TsText")) widget = new qt::TsText(parent);
    if (className == QLatin1String("tessaria::qt::Adodc")) widget = new qt::Adodc(parent);
    if (className == QLatin1String("tessaria::qt::ItemGrid")) widget = new qt::ItemGrid(parent);
    if (!widget) return QUiLoader::createWidget(className, parent, name);
    widget->setObjectName(name);
    return widget;
  }

 private:
  QWidget* form_;  ///< null once the outermost widget was requested
};

}  // namespace

void loadForm(const QString& file, QWidget& form) {
  loadForms();
  QFile stored(QLatin1String(":/demo/forms/") + file);
  Loader loader(form);
  if (!stored.open(QIODevice::ReadOnly) || !loader.load(&stored))
    qFatal("%s: %s", qPrintable(file), qPrintable(loader.errorString()));
}

}  // namespace tessaria::demo
