// The forms that the documentation shows are loaded, and each of their settings is known.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QUiLoader>
#include <memory>

#include "tessaria/qt/adodc.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::tests {
namespace {

class DocumentedForms final : public QUiLoader {
 public:
  QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
    QWidget* widget = nullptr;
    if (className == QLatin1String("tessaria::qt::TsText")) widget = new qt::TsText(parent);
    if (className == QLatin1String("tessaria::qt::Adodc")) widget = new qt::Adodc(parent);
    if (!widget) return QUiLoader::createWidget(className, parent, name);
    widget->setObjectName(name);
    return widget;
  }
};

// The settings in a form's text, in the order of its lines.
QStringList settingsIn(const QString& ui) {
  static const QRegularExpression setting(
      QStringLiteral("<string>(\\w[\\w.]*=[A-Z]\\w*:.*)</string>"));
  QStringList found;
  for (auto it = setting.globalMatch(ui); it.hasNext();) found << it.next().captured(1);
  return found;
}

QString readFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  return QString::fromUtf8(file.readAll());
}

TEST(Documentation, FormsLoadWithEverySetting) {
  const QDir folder(QStringLiteral(TESSARIA_BLOCKS "/ui"));
  ASSERT_FALSE(folder.entryList({QStringLiteral("*.ui")}).isEmpty());
  QStringList boxes;
  QObject::connect(&qt::install(), &qt::Host::boxShown,
                   [&](const QString& text) { boxes << text; });
  for (const auto& name : folder.entryList({QStringLiteral("*.ui")})) {
    SCOPED_TRACE(name.toStdString());
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    DocumentedForms loader;
    loader.clearPluginPaths();
    const std::unique_ptr<QWidget> form(loader.load(&file));
    ASSERT_TRUE(form) << loader.errorString().toStdString();
    QStringList kept;
    for (const auto* field : form->findChildren<qt::TsText*>()) kept += field->settings();
    for (const auto& setting : settingsIn(readFile(folder.filePath(name))))
      EXPECT_TRUE(kept.contains(setting)) << "not kept: " << setting.toStdString();
  }
  EXPECT_TRUE(boxes.isEmpty()) << boxes.join(QLatin1Char('\n')).toStdString();
}

}  // namespace
}  // namespace tessaria::tests
