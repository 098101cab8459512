// Keys that arrive while the core processes events.
#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "tessaria/qt/host.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt::tests {
namespace {

TEST(HeldInput, AKeyThatArrivesMeanwhileIsTypedAfterwards) {
  install();
  QLineEdit edit;
  QTimer::singleShot(0, &edit, [&] { QTest::keyClick(&edit, Qt::Key_A); });
  App().DoEvents();
  EXPECT_EQ(edit.text(), QString());
  QCoreApplication::processEvents();
  EXPECT_EQ(edit.text(), QStringLiteral("a"));
}

TEST(HeldInput, AWindowThatOpensMeanwhileReceivesItsKeys) {
  install();
  constexpr int kPatience = 5000;  // milliseconds, so that a failing test does not wait forever
  int answer = -1;
  QTimer::singleShot(0, [&] {
    QDialog window;
    QTimer::singleShot(0, &window, [&] { QTest::keyClick(&window, Qt::Key_Escape); });
    QTimer::singleShot(kPatience, &window, &QDialog::accept);
    answer = window.exec();
  });
  App().DoEvents();
  EXPECT_EQ(answer, int(QDialog::Rejected));
}

}  // namespace
}  // namespace tessaria::qt::tests
