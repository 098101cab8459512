// Loads a form of Designer as a program does at run time, and prints the settings of its fields.
#include <QApplication>
#include <QFile>
#include <QUiLoader>
#include <cstdio>
#include <memory>

#include "tessaria/qt/tstext.h"

int main(int count, char** arguments) {
  QApplication application(count, arguments);
  QFile file(application.arguments().value(1));
  if (!file.open(QIODevice::ReadOnly)) return 1;
  QUiLoader loader;
  const std::unique_ptr<QWidget> form(loader.load(&file));
  if (!form) return 1;
  for (const auto* field : form->findChildren<tessaria::qt::TsText*>())
    std::printf("%s: %s\n", qPrintable(field->objectName()),
                qPrintable(field->settings().join(QStringLiteral(" | "))));
}
