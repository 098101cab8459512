// The forms that the documentation shows are loaded, and each of their settings is known.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QUiLoader>
#include <memory>
#include <sstream>

#include "apps/check/check_forms.h"
#include "tessaria/field_settings.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/text.h"
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

std::unique_ptr<QWidget> loadForm(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return nullptr;
  DocumentedForms loader;
  loader.clearPluginPaths();
  return std::unique_ptr<QWidget>(loader.load(&file));
}

std::string textOf(const qt::TsText& field) {
  return field.settings().join(QLatin1Char('\n')).toStdString();
}

TEST(Documentation, FormsLoadWithEverySetting) {
  const QDir folder(QStringLiteral(TESSARIA_BLOCKS "/ui"));
  ASSERT_FALSE(folder.entryList({QStringLiteral("*.ui")}).isEmpty());
  QStringList boxes;
  QObject::connect(&qt::install(), &qt::Host::boxShown,
                   [&](const QString& text) { boxes << text; });
  for (const auto& name : folder.entryList({QStringLiteral("*.ui")})) {
    SCOPED_TRACE(name.toStdString());
    const std::unique_ptr<QWidget> form = loadForm(folder.filePath(name));
    ASSERT_TRUE(form);
    QStringList kept;
    for (const auto* field : form->findChildren<qt::TsText*>()) kept += field->settings();
    for (const auto& setting : settingsIn(readFile(folder.filePath(name))))
      EXPECT_TRUE(kept.contains(setting)) << "not kept: " << setting.toStdString();
  }
  EXPECT_TRUE(boxes.isEmpty()) << boxes.join(QLatin1Char('\n')).toStdString();
}

TEST(Documentation, FormsHaveNoMistakes) {
  formcheck::Options options;
  const QDir folder(QStringLiteral(TESSARIA_BLOCKS "/ui"));
  for (const auto& name : folder.entryList({QStringLiteral("*.ui")}))
    options.files.push_back(folder.filePath(name).toStdString());
  options.warnings = false;  // a block is no whole file
  std::ostringstream found;
  std::ostringstream failures;
  EXPECT_EQ(formcheck::CheckForms(options, found, failures), 0) << found.str() << failures.str();
}

// One value and the lines of a form file make the same pair.
TEST(Documentation, APairInCodeIsThePairInAFormFile) {
  const LookupSettings customers{
      .title = u"Clientes",
      .table = u"clientes",
      .columns = {{.field = u"codigo", .caption = u"Código", .width = 900},
                  {.field = u"nome", .caption = u"Nome", .width = 3600}},
      .searches = {{.caption = u"Nome que contém", .field = u"nome"}}};
  const auto [code, name] =
      MakePair(customers,
               {.name = u"cliente", .mask = u"00000", .mayBeBlank = false, .label = u"lblCliente"},
               {.name = u"nomeCliente", .maxLength = 60});
  const QDir folder(QStringLiteral(TESSARIA_BLOCKS "/ui"));
  const QStringList files = folder.entryList({QStringLiteral("lookups*.ui")});
  ASSERT_EQ(files.size(), 2);
  for (const auto& file : files) {
    const std::unique_ptr<QWidget> form = loadForm(folder.filePath(file));
    for (const FieldSettings& settings : {code, name}) {
      const auto* field = form->findChild<qt::TsText*>(qt::toQt(settings.name));
      ASSERT_NE(field, nullptr);
      EXPECT_EQ(textOf(*field), textOf(qt::TsText(settings))) << file.toStdString();
    }
  }
}

}  // namespace
}  // namespace tessaria::tests
