// Message boxes: icons, line breaks, plain text, a text that is too high for the screen.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <functional>

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

/// Looks at a box while it is open, and closes it.
void whileShown(const String& text, Long style, const std::function<void(QMessageBox& box)>& look) {
  install();
  QTimer::singleShot(0, qApp, [&look] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    look(*box);
    box->reject();
  });
  App().ShowMessageBox(0, text, style, u"Mesa");
}

Shown show(const String& text, Long style) {
  Shown shown;
  whileShown(text, style, [&shown](QMessageBox& box) {
    shown = {box.icon(), box.text(), box.textFormat()};
  });
  return shown;
}

String linesOf(int count) {
  String text;
  for (int i = 0; i < count; ++i) text += u"      Cliente.Campo,\r\n";
  return text;
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

TEST(MessageBox, ATextThatIsTooHighForTheScreenScrollsByKeysToo) {
  whileShown(linesOf(500), 20, [](QMessageBox& box) {
    EXPECT_TRUE(box.screen()->availableGeometry().contains(box.geometry()));
    EXPECT_TRUE(box.rect().contains(box.defaultButton()->geometry()));
    EXPECT_EQ(box.focusWidget(), box.defaultButton());
    auto* area = box.findChild<QScrollArea*>();
    ASSERT_NE(area, nullptr);
    EXPECT_GE(area->viewport()->width(), area->widget()->sizeHint().width());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
    press(box, Qt::Key_Tab);
    press(box, Qt::Key_Tab);
    ASSERT_EQ(box.focusWidget(), area);
    press(box, Qt::Key_PageDown);
    EXPECT_GT(area->verticalScrollBar()->value(), 0);
  });
}

TEST(MessageBox, ATextThatFitsDoesNotScroll) {
  whileShown(linesOf(5), 20,
             [](QMessageBox& box) { EXPECT_EQ(box.findChild<QScrollArea*>(), nullptr); });
}

}  // namespace
}  // namespace tessaria::qt::tests
