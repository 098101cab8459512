// The saved pair in a program that loads it at run time.
#include <QApplication>
#include <QFile>
#include <QUiLoader>
#include <cstdio>
#include <exception>
#include <memory>

#include "tests/designer/pair_operator.h"

int main(int count, char** arguments) try {
  QApplication application(count, arguments);
  QFile file(application.arguments().value(1));
  if (!file.open(QIODevice::ReadOnly)) return 1;
  tessaria::tests::openShop();
  QUiLoader loader;
  const std::unique_ptr<QWidget> form(loader.load(&file));
  return form ? tessaria::tests::operatePair(*form) : 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
