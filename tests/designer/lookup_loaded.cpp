// A saved form with a lookup that the wizard has made, in a program of its own.
// Usage: designer_lookup_loaded cidade|municipio FORM
#include <QAbstractButton>
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

/// Goes to the end of the list, which reads its rows in portions.
int countRows(const QTableView& list) {
  for (int before = -1; list.model()->rowCount() > before;) {
    before = list.model()->rowCount();
    press(Qt::Key_End, Qt::ControlModifier);
  }
  return list.model()->rowCount();
}

void printList(const QTableView& list) {
  printCells("columns", list, -1);
  std::printf("rows: %d\n", countRows(list));
}

/// Searches in the list and takes the first row that is found.
void search(QWidget& window, const QString& text) {
  const auto& list = *window.findChild<QTableView*>();
  printList(list);
  inWindow("frmTsPesquisa", [=](QWidget&) {
    type(text);
    press(Qt::Key_Return);
  });
  press(Qt::Key_F2);
  printCells("found", list, 0);
  press(Qt::Key_Return);
}

/// Opens the list, and prints what the form then has.
void lookUp(QWidget& form, qt::TsText& code, const QString& text, void (*open)(qt::TsText& code)) {
  code.setFocus();
  QTest::qWait(50);
  inWindow("frmBrowse", [=](QWidget& list) { search(list, text); });
  open(code);
  std::printf("chosen: %s %s\n", qUtf8Printable(code.text()),
              qUtf8Printable(field(form, "txtNome").text()));
  const auto& fields = code.browseDefinition()->Outros();
  QStringList values;
  for (Long i = 1; i <= fields.Count(); ++i) values << qt::toQt(CStr(fields.Item(i)->Valor()));
  std::printf("returned: %s\n", qUtf8Printable(values.join(u'|')));
}

void openByButton(qt::TsText& code) {
  QTest::mouseClick(code.findChild<QAbstractButton*>(), Qt::LeftButton);
}

void openByKey(qt::TsText&) { press(Qt::Key_PageDown); }

void lookUpCity(QWidget& form) {
  field(form, "txtUf").setFocus();
  type(QStringLiteral("SP"));
  lookUp(form, field(form, "txtCidade"), QStringLiteral("Campinas"), openByButton);
}

/// The list while the state of the form is empty.
void showAll(QWidget& form) {
  field(form, "txtMunicipio").setFocus();
  inWindow("frmBrowse", [](QWidget& window) {
    printList(*window.findChild<QTableView*>());
    press(Qt::Key_Escape);
  });
  press(Qt::Key_PageDown);
}

void lookUpMunicipality(QWidget& form) {
  showAll(form);
  field(form, "txtUf").setFocus();
  type(QStringLiteral("SP"));
  lookUp(form, field(form, "txtMunicipio"), QStringLiteral("Xambio"), openByKey);
}

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
