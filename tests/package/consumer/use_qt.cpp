// The widgets from outside: a date field on a form takes a value and shows it in its mask.
// Qt's moc reads this file, whose first header is one that it could not read by itself.
#include <tessaria/variant.h>

#include <tessaria/qt/tstext.h>

#include <QApplication>
#include <iostream>

#include "own_headers.h"

class Counter final : public QObject {
  Q_OBJECT

 public:
  int changes = 0;
  Q_SLOT void count() { ++changes; }
};

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget form;
  auto* field = new tessaria::qt::TsText(&form);
  field->setObjectName("nascimento");
  field->setMascara("dd/mm/yyyy");
  field->setPromptInclude(true);
  form.show();
  Counter counter;
  QObject::connect(field, SIGNAL(valueChanged(QVariant)), &counter, SLOT(count()));
  field->setValue("25/12/2017");
  if (field->text() == "25/12/2017" && counter.changes == 1) return 0;
  std::cerr << "the field shows " << field->text().toStdString() << "\n";
  return 1;
}

#include "use_qt.moc"
