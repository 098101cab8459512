// The saved pair in a program that was compiled from it.
#include <QApplication>
#include <cstdio>
#include <exception>

#include "tests/designer/pair_operator.h"
#include "ui_par.h"

int main(int count, char** arguments) try {
  const QApplication application(count, arguments);
  tessaria::tests::openShop();
  QWidget form;
  Ui::Par pair;
  pair.setupUi(&form);
  return tessaria::tests::operatePair(form);
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
