// Message boxes: icons, line breaks, plain text.
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include "tessaria/host/application.h"
#include "tessaria/qt/host.h"
#include "tessaria/thread_state.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

struct Shown {
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QString text;
  Qt::TextFormat format = Qt::AutoText;
};

/// What a box shows while it is open.
Shown show(const String& text, Long style) {
  install();
  Shown shown;
  QTimer::singleShot(0, qApp, [&shown] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    shown = {box->icon(), box->text(), box->textFormat()};
    box->reject();
  });
  App().ShowMessageBox(0, text, style, u"Mesa");
  return shown;
}

TEST(MessageBox, TheStyleChoosesTheIcon) {
  const std::pair<Long, QMessageBox::Icon> rows[] = {
      {16, QMessageBox::Critical},
      {32, QMessageBox::Question},
      {48, QMessageBox::Warning},
      {64, QMessageBox::Information},
      {0, QMessageBox::NoIcon},
      {4 + 32, QMessageBox::Question},
      {4 + 48 + 256, QMessageBox::Warning},
      // Sums without an icon.
      {80, QMessageBox::NoIcon},
      {96, QMessageBox::NoIcon},
      {112, QMessageBox::NoIcon},
  };
  for (const auto& [style, icon] : rows) EXPECT_EQ(show(u"Texto", style).icon, icon) << style;
}

TEST(MessageBox, EveryKindOfLineBreakCounts) {
  EXPECT_EQ(show(u"um\rdois\r\ntrês\nquatro", 0).text, QStringLiteral("um\ndois\ntrês\nquatro"));
}

TEST(MessageBox, MarkupIsShownAsText) {
  const Shown shown = show(u"<tudo> & <b>mais</b>", 48);
  EXPECT_EQ(shown.text, QStringLiteral("<tudo> & <b>mais</b>"));
  EXPECT_EQ(shown.format, Qt::PlainText);
}

}  // namespace
}  // namespace tessaria::qt::tests
