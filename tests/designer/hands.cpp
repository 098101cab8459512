#include "tests/designer/hands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QProcess>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QExtensionManager>

namespace tessaria::tests {
namespace {

QPoint placeIn(QAbstractItemView& view, const QModelIndex& cell) {
  view.scrollTo(cell, QAbstractItemView::PositionAtCenter);
  QTest::qWait(50);
  return view.viewport()->mapToGlobal(view.visualRect(cell).center());
}

QModelIndex find(const QAbstractItemModel& model, const QString& text) {
  return model
      .match(model.index(0, 0), Qt::DisplayRole, text, 1,
             Qt::MatchFixedString | Qt::MatchCaseSensitive | Qt::MatchRecursive)
      .value(0);
}

/// The place of an item on the screen, in one of its columns; null when no such item is shown.
QPoint placeOf(const QWidget& window, const QString& text, int column = 0) {
  for (auto* view : window.findChildren<QAbstractItemView*>()) {
    if (!view->isVisible() || !view->model()) continue;
    const QModelIndex found = find(*view->model(), text);
    if (found.isValid()) return placeIn(*view, found.siblingAtColumn(column));
  }
  return {};
}

}  // namespace

// --- Mouse and keys ------------------------------------------------------------------------------

void clickAt(const QPoint& place, int times) {
  operate({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y()),
           QStringLiteral("click"), QStringLiteral("--repeat"), QString::number(times),
           QStringLiteral("--delay"), QStringLiteral("60"), QStringLiteral("1")});
}

void clickOn(const QWidget& widget, int times) {
  EXPECT_TRUE(widget.isVisible()) << widget.objectName().toStdString();
  clickAt(widget.mapToGlobal(widget.rect().center()), times);
}

void press(const QStringList& keys) { operate(QStringList{QStringLiteral("key")} + keys); }

void typeText(const QString& text) {
  if (!text.isEmpty()) operate({QStringLiteral("type"), QStringLiteral("--"), text});
}

// --- Designer ------------------------------------------------------------------------------------

QWidget* drop(QDesignerFormWindowInterface& form, const QString& item, const QPoint& place) {
  const auto before = form.mainContainer()->findChildren<QWidget*>();
  auto* filter = designer().widgetBox()->findChild<QLineEdit*>();
  filter->setText(item);
  QTest::qWait(100);
  const QPoint source = placeOf(*designer().widgetBox(), item);
  EXPECT_FALSE(source.isNull()) << item.toStdString();
  dragTo(source, form.mainContainer()->mapToGlobal(place));
  filter->clear();
  QWidget* dropped = nullptr;
  EXPECT_TRUE(waitFor([&] {
    for (auto* widget : form.mainContainer()->findChildren<QWidget*>())
      if (!before.contains(widget) && form.isManaged(widget)) dropped = widget;
    return dropped != nullptr;
  })) << item.toStdString();
  return dropped;
}

void typeProperty(const QString& property, const QString& text) {
  const QPoint cell = placeOf(*designer().propertyEditor(), property, 1);
  ASSERT_FALSE(cell.isNull()) << property.toStdString();
  clickAt(cell);
  QTest::qWait(200);
  press({QStringLiteral("ctrl+a")});
  typeText(text);
  press({QStringLiteral("Return")});
}

void save(const QDesignerFormWindowInterface& form) {
  press({QStringLiteral("ctrl+s")});
  EXPECT_TRUE(waitFor([&] { return !form.isDirty(); }));
}

QString contentsOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

std::string outputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
  process.setProcessEnvironment(environment);
  process.start(program, arguments);
  EXPECT_TRUE(process.waitForFinished(60000));
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << program.toStdString();
  EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput().toStdString();
}

// --- The property page ---------------------------------------------------------------------------

QDialog* pageDialog() {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == QLatin1String("tessariaPage") && window->isVisible())
      return qobject_cast<QDialog*>(window);
  return nullptr;
}

void openPage(const QWidget& field) {
  clickOn(field, 2);
  ASSERT_TRUE(waitFor([] { return pageDialog() != nullptr; }));
  EXPECT_TRUE(QTest::qWaitForWindowActive(pageDialog()));
}

void openPageByMenu(QWidget& field) {
  auto* menu = qt_extension<QDesignerTaskMenuExtension*>(designer().extensionManager(), &field);
  ASSERT_NE(menu, nullptr);
  menu->taskActions().first()->trigger();
  EXPECT_TRUE(waitFor([] { return pageDialog() != nullptr; }));
}

QPushButton* dialogButton(const QString& caption) {
  for (auto* each : pageDialog()->findChildren<QPushButton*>())
    if (each->text().remove(u'&') == caption) return each;
  return nullptr;
}

void clickTab(Tab tab) {
  const auto* bar = onPage<QTabWidget>("tabPropriedade").tabBar();
  clickAt(bar->mapToGlobal(bar->tabRect(static_cast<int>(tab)).center()));
}

Tab frontTab() { return static_cast<Tab>(onPage<QTabWidget>("tabPropriedade").currentIndex()); }

void clickButton(const char* name) { clickOn(onPage<QPushButton>(name)); }

void clickMark(const char* name) {
  const auto& box = onPage<QAbstractButton>(name);
  clickAt(box.mapToGlobal(QPoint(8, box.height() / 2)));
}

void fill(const char* name, const QString& text) {
  clickOn(onPage<QLineEdit>(name));
  press({QStringLiteral("ctrl+a"), QStringLiteral("Delete")});
  typeText(text);
  EXPECT_EQ(textOf(name).toStdString(), text.toStdString()) << name;
}

void choose(const char* name, const QString& row) {
  auto& list = onPage<QComboBox>(name);
  clickOn(list);
  ASSERT_TRUE(waitFor([&] { return list.view()->isVisible(); })) << name;
  const QModelIndex item = find(*list.model(), row);
  ASSERT_TRUE(item.isValid()) << row.toStdString();
  const QPoint place = placeIn(*list.view(), item);
  QTest::qWait(QApplication::doubleClickInterval());  // a click that opens the list keeps it open
  clickAt(place);
  EXPECT_TRUE(waitFor([&] { return !list.view()->isVisible(); })) << name;
  EXPECT_EQ(list.currentText().toStdString(), row.toStdString()) << name;
}

QString textOf(const char* name) { return onPage<QLineEdit>(name).text(); }

}  // namespace tessaria::tests
