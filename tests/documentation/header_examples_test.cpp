// The examples in the public headers, compiled as they stand there.
#include <gtest/gtest.h>

#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QSqlDatabase>

#include "tessaria/field_settings.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/item_grid.h"
#include "tessaria/qt/item_settings.h"
#include "tessaria/qt/record_form.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/qtsql/adopt.h"

namespace tessaria::tests {
namespace {

class Examples : public QWidget {
 public:
  [[maybe_unused]] static void fieldSettings(QWidget* form) {
    const LookupSettings cities{
        .title = u"Cidades",
        .table = u"cidades",
        .columns = {{.field = u"codigo", .caption = u"Código"}, {.field = u"nome"}},
        .searches = {{.caption = u"Nome", .field = u"nome"}}};
    const FieldPair city = MakePair(cities, {.name = u"cidade"}, {.name = u"nome_da_cidade"});
    auto* code = new tessaria::qt::TsText(city.code, form);
    Q_UNUSED(code);
  }
  [[maybe_unused]] void recordForm(QWidget* form, qt::Adodc* data, QPushButton* saveButton) {
    auto* record = new tessaria::qt::RecordForm(form, data);
    record->setRecordName("o cliente");
    record->setAsksOnClose(true);
    connect(saveButton, &QPushButton::clicked, record, &tessaria::qt::RecordForm::save);
  }
  [[maybe_unused]] static void itemGrid(const qt::ItemSettings& settings, QWidget* form,
                                        qt::RecordForm* record) {
    auto* items = new tessaria::qt::ItemGrid(settings, form);
    record->addItems(items);  // reads, checks and saves them with the row
  }
  [[maybe_unused]] static void connection(QWidget& form, const QSqlDatabase& database) {
    tessaria::qt::setConnection(form, tessaria::qtsql::Adopt(database));
  }
};

QString readFile(const char* path) {
  QFile file(QStringLiteral(TESSARIA_SOURCE_DIR "/") + QString::fromUtf8(path));
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

TEST(HeaderExamples, AreAllAmongThese) {
  static const QRegularExpression line(QStringLiteral("^//+   +(\\S.*)$"),
                                       QRegularExpression::MultilineOption);
  const QString here = readFile("tests/documentation/header_examples_test.cpp");
  int found = 0;
  for (const char* header :
       {"include/tessaria/field_settings.h", "include/tessaria/qt/record_form.h",
        "include/tessaria/qt/item_grid.h", "include/tessaria/qt/form.h"}) {
    for (auto it = line.globalMatch(readFile(header)); it.hasNext(); ++found) {
      const QString text = it.next().captured(1);
      EXPECT_TRUE(here.contains(text)) << header << ": " << text.toStdString();
    }
  }
  EXPECT_GE(found, 14);
}

}  // namespace
}  // namespace tessaria::tests
