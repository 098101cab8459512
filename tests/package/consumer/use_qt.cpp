// The widgets from outside: a date field on a form takes a value and shows it in its mask.
#include <tessaria/qt/tstext.h>

#include <QApplication>
#include <iostream>

#include "own_headers.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget form;
  auto* field = new tessaria::qt::TsText(&form);
  field->setObjectName("nascimento");
  field->setMascara("dd/mm/yyyy");
  field->setPromptInclude(true);
  form.show();
  field->setValue("25/12/2017");
  if (field->text() == "25/12/2017") return 0;
  std::cerr << "the field shows " << field->text().toStdString() << "\n";
  return 1;
}
