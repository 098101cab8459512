// A program that ends while a call which its operator has given up still stands in the driver.
// Arguments: the connection string, and "connect" or "call".
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <iostream>
#include <string>
#include <string_view>

#include "tessaria/error.h"
#include "tessaria/qt/host.h"
#include "tessaria/utf8.h"
#include "tests/support/database_driver.h"

namespace {

// Presses Escape as soon as a wait has begun.
void GiveUpSoon(QWidget& window) {
  QTimer::singleShot(300, &window, [&window] { QTest::keyClick(&window, Qt::Key_Escape); });
}

// The test tells when the server is silent.
void AwaitTheTest() {
  std::cout << "ready" << std::endl;
  std::string line;
  std::getline(std::cin, line);
}

}  // namespace

int main(int count, char** arguments) {
  using namespace tessaria;
  // Ends after `main`, as a global one does.
  static const host::ConnectionPtr connection = test::NewConnectionOfTheDriver();
  QApplication application(count, arguments);
  qt::install();
  QWidget window;
  window.show();
  connection->ConnectionString(FromUtf8(arguments[1]));
  const bool isConnecting = std::string_view(arguments[2]) == "connect";
  if (!isConnecting) connection->Open();
  AwaitTheTest();
  GiveUpSoon(window);
  try {
    isConnecting ? connection->Open() : void(connection->Execute(u"select pg_sleep(1)"));
    return 1;
  } catch (const HostError& error) {
    std::cout << error.Number() << std::endl;
  }
  return 0;
}
