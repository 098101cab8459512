// A saved form with a lookup that the wizard has made, in a program of its own.
// Usage: designer_lookup_loaded cidade|municipio FORM
#include <QApplication>
#include <QFile>
#include <QTableView>
#include <QTest>
#include <QUiLoader>
#include <cstdio>
#include <exception>
#include <memory>

#include "tessaria/browse_definition.h"
#include "tessaria/conversion.h"
#include "tessaria/qt/text.h"
#include "tests/designer/operator_hands.h"

namespace tessaria::tests {
namespace {

/// The shown cells of a row, or the headings for -1.
void printCells(const char* what, const QTableView& list, int row) {
  QStringList cells;
  const auto& model = *list.model();
  for (int column = 0; column < model.columnCount(); ++column) {
    if (list.isColumnHidden(column)) continue;
    cells << (row < 0 ? model.headerData(column, Qt::Horizontal) : model.index(row, column).data())
                 .toString();
  }
  std::printf("%s: %s\n", what, cells.join(u'|').toUtf8().constData());
}

/// Searches in the list and takes the first row that is found.
void search(QWidget& window, const QString& text) {
  const auto& list = *window.findChild<QTableView*>();
  printCells("columns", list, -1);
  std::printf("rows: %d\n", list.model()->rowCount());
  inWindow("frmTsPesquisa", [=](QWidget&) {
    type(text);
    press(Qt::Key_Return);
  });
  press(Qt::Key_F2);
  printCells("found", list, 0);
  press(Qt::Key_Return);
}

void lookUp(QWidget& form, const char* code, const QString& text) {
  field(form, code).setFocus();
  QTest::qWait(50);
  inWindow("frmBrowse", [=](QWidget& list) { search(list, text); });
  press(Qt::Key_PageDown);
  std::printf("chosen: %s %s\n", qUtf8Printable(field(form, code).text()),
              qUtf8Printable(field(form, "txtNome").text()));
}

void lookUpCity(QWidget& form) {
  field(form, "txtUf").setFocus();
  type(QStringLiteral("SP"));
  lookUp(form, "txtCidade", QStringLiteral("Campinas"));
  const auto& fields = field(form, "txtCidade").browseDefinition()->Outros();
  std::printf("returned: %s\n", qUtf8Printable(qt::toQt(CStr(fields.Item(1)->Valor()))));
}

void lookUpMunicipality(QWidget& form) { lookUp(form, "txtMunicipio", QStringLiteral("Xambio")); }

int operate(const QString& work, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return 1;
  QUiLoader loader;
  const std::unique_ptr<QWidget> form(loader.load(&file));
  const Boxes boxes;
  if (!form || !showForm(*form)) return 1;
  work == QLatin1String("cidade") ? lookUpCity(*form) : lookUpMunicipality(*form);
  return 0;
}

}  // namespace
}  // namespace tessaria::tests

int main(int count, char** arguments) try {
  const QApplication application(count, arguments);
  return tessaria::tests::operate(application.arguments().value(1),
                                  application.arguments().value(2));
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
