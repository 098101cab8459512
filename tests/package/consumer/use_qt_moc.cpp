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
  tessaria::qt::TsText field;
  Counter counter;
  QObject::connect(&field, SIGNAL(valueChanged(QVariant)), &counter, SLOT(count()));
  field.setValue("25/12/2017");
  if (counter.changes == 1) return 0;
  std::cerr << "changes told: " << counter.changes << "\n";
  return 1;
}

#include "use_qt_moc.moc"
