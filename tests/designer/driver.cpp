#include "tests/designer/driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <cstdio>

namespace tessaria::tests {
namespace {

QDesignerFormEditorInterface* theDesigner = nullptr;
QStringList messages;

void keepMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
  messages << text;
  std::fprintf(stderr, "%s\n", qPrintable(text));
}

QString ownerOf(const QWidget& box) {
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (window->windowHandle() && window->windowHandle() == box.windowHandle()->transientParent())
      return window->objectName();
  return {};
}

int formsOnCommandLine() {
  return static_cast<int>(qApp->arguments().filter(QStringLiteral(".ui")).size());
}

}  // namespace

QDesignerFormEditorInterface& designer() { return *theDesigner; }

QDesignerFormWindowInterface* openForm(const QString& file) {
  const auto* forms = designer().formWindowManager();
  for (int i = 0; i < forms->formWindowCount(); ++i)
    if (QFileInfo(forms->formWindow(i)->fileName()).fileName() == file) return forms->formWindow(i);
  ADD_FAILURE() << "no form " << file.toStdString();
  return nullptr;
}

qt::TsText* fieldOf(QDesignerFormWindowInterface& form, const QString& name) {
  return form.mainContainer()->findChild<qt::TsText*>(name);
}

void select(QDesignerFormWindowInterface& form, QWidget& widget) {
  designer().formWindowManager()->setActiveFormWindow(&form);
  form.clearSelection();
  form.selectWidget(&widget);
  QTest::qWait(50);
}

void edit(QDesignerFormWindowInterface& form, const QString& property, const QVariant& value) {
  form.cursor()->setProperty(property, value);
  QTest::qWait(10);
}

void operate(const QStringList& command) {
  QProcess tool;
  tool.start(QStringLiteral("xdotool"), command);
  EXPECT_TRUE(waitFor([&] { return tool.state() == QProcess::NotRunning; }));
  EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
  QTest::qWait(50);
}

void dragTo(const QPoint& from, const QPoint& to) {
  const auto moveTo = [](const QPoint& p) {
    return QStringList{QStringLiteral("mousemove"), QString::number(p.x()), QString::number(p.y()),
                       QStringLiteral("sleep"), QStringLiteral("0.1")};
  };
  operate(moveTo(from) + QStringList{QStringLiteral("mousedown"), QStringLiteral("1")} +
          moveTo(from + QPoint(15, 15)) + moveTo((from + to) / 2) + moveTo(to - QPoint(5, 5)) +
          moveTo(to) + QStringList{QStringLiteral("mouseup"), QStringLiteral("1")});
}

bool waitFor(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 10000); }

QStringList takeMessages() { return std::exchange(messages, {}); }

BoxWatch::BoxWatch() { qApp->installEventFilter(this); }
BoxWatch::~BoxWatch() { qApp->removeEventFilter(this); }

bool BoxWatch::eventFilter(QObject* object, QEvent* event) {
  auto* box = qobject_cast<QMessageBox*>(object);
  if (!box || event->type() != QEvent::Show) return false;
  texts_ << box->text();
  QTimer::singleShot(0, box, [open = QPointer(box), self = QPointer(this)] {
    if (self) self->note(*open);
    if (open && open->isVisible()) open->reject();
  });
  return false;
}

void BoxWatch::note(QMessageBox& box) {
  const QPointer open(&box);
  owners_ << ownerOf(box);
  if (!answer) return;
  EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
  answer();
  EXPECT_TRUE(waitFor([&] { return !open || !open->isVisible(); }));
}

void Driver::initialize(QDesignerFormEditorInterface* core) {
  core_ = theDesigner = core;
  qInstallMessageHandler(keepMessage);
  QTimer::singleShot(0, this, &Driver::start);
}

void Driver::start() {
  if (core_->formWindowManager()->formWindowCount() < formsOnCommandLine()) {
    QTimer::singleShot(100, this, &Driver::start);
    return;
  }
  QTimer::singleShot(500, this, &Driver::run);
}

void Driver::run() {
  int count = 1;
  char program[] = "designer";
  char* arguments[] = {program, nullptr};
  testing::InitGoogleTest(&count, arguments);
  QCoreApplication::exit(RUN_ALL_TESTS());
}

}  // namespace tessaria::tests
