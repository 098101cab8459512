#include "apps/demo/form_loader.h"

#include <QFile>
#include <QFontMetricsF>
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

// The height in pixels of the font with which the forms were drawn.
constexpr qreal kDrawnFont = 14;

/// A larger font of the system needs wider fields and a larger window.
void fitToFont(QWidget& form) {
  const qreal factor = QFontMetricsF(form.font()).height() / kDrawnFont;
  if (factor <= 1) return;
  const auto wider = [factor](int width) { return qRound(width * factor); };
  for (qt::TsText* each : form.findChildren<qt::TsText*>()) {
    each->setMinimumWidth(wider(each->minimumWidth()));
    if (each->maximumWidth() < QWIDGETSIZE_MAX) each->setMaximumWidth(wider(each->maximumWidth()));
  }
  for (qt::Adodc* each : form.findChildren<qt::Adodc*>())
    each->setMinimumWidth(wider(each->minimumWidth()));
  form.resize(form.size() * factor);
}

}  // namespace

void loadForm(const QString& file, QWidget& form) {
  loadForms();
  QFile stored(QLatin1String(":/demo/forms/") + file);
  Loader loader(form);
  if (!stored.open(QIODevice::ReadOnly) || !loader.load(&stored))
    qFatal("%s: %s", qPrintable(file), qPrintable(loader.errorString()));
  fitToFont(form);
}

}  // namespace tessaria::demo
