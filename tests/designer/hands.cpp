#include "tests/designer/hands.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

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

/// A row of a list in the window in front.
QModelIndex rowOf(const char* name, const QString& row) {
  const auto& list = inFront<QAbstractItemView>(name);
  EXPECT_TRUE(waitFor([&] { return find(*list.model(), row).isValid(); }))
      << name << ": " << row.toStdString();
  return find(*list.model(), row);
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

QDialog* openWindow(const char* name) {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window->objectName() == QLatin1String(name) && window->isVisible())
      return qobject_cast<QDialog*>(window);
  return nullptr;
}

QDialog* pageDialog() { return openWindow("tessariaPage"); }
QDialog* wizardDialog() { return openWindow("frmMontaSql"); }

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

void workInside(const std::function<void()>& open, const std::function<bool()>& isOpen,
                const std::function<void()>& work) {
  QTimer whenOpen;
  bool hasWorked = false;
  QObject::connect(&whenOpen, &QTimer::timeout, [&] {
    if (!isOpen()) return;
    whenOpen.stop();
    try {
      work();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    hasWorked = true;
  });
  whenOpen.start(50);
  open();
  EXPECT_TRUE(waitFor([&] { return hasWorked; }));
}

void workInWizard(const std::function<void()>& open, const std::function<void()>& work) {
  workInside(
      open, [] { return wizardDialog() && wizardDialog()->isActiveWindow(); },
      [&] {
        work();
        if (wizardDialog()) wizardDialog()->reject();
      });
}

void picture(QWidget& window, const QString& name) {
  const QString folder = qEnvironmentVariable("TESSARIA_PICTURES");
  if (folder.isEmpty()) return;
  QTest::qWait(200);
  EXPECT_TRUE(
      window.grab().save(QDir(folder).filePath(QStringLiteral("designer-%1.png").arg(name))));
}

void clickTabAt(const char* strip, int position) {
  const auto& tabs = inFront<QTabWidget>(strip);
  clickAt(tabs.tabBar()->mapToGlobal(tabs.tabBar()->tabRect(position).center()));
}

void clickTab(Tab tab) { clickTabAt("tabPropriedade", static_cast<int>(tab)); }

Tab frontTab() { return static_cast<Tab>(inFront<QTabWidget>("tabPropriedade").currentIndex()); }

void clickButton(const char* name) { clickOn(inFront<QPushButton>(name)); }

void clickMark(const char* name) {
  const auto& box = inFront<QAbstractButton>(name);
  clickAt(box.mapToGlobal(QPoint(8, box.height() / 2)));
}

void fill(const char* name, const QString& text) {
  clickOn(inFront<QLineEdit>(name));
  press({QStringLiteral("ctrl+a"), QStringLiteral("Delete")});
  typeText(text);
  EXPECT_EQ(textOf(name).toStdString(), text.toStdString()) << name;
}

void choose(const char* name, const QString& row) {
  auto& list = inFront<QComboBox>(name);
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

void clickRow(const char* name, const QString& row) {
  clickAt(placeIn(inFront<QAbstractItemView>(name), rowOf(name, row)));
}

void clickMarkOfRow(const char* name, const QString& row) {
  auto& list = inFront<QAbstractItemView>(name);
  const QPoint middle = placeIn(list, rowOf(name, row));
  const int left = list.viewport()->mapToGlobal(list.visualRect(rowOf(name, row)).topLeft()).x();
  constexpr int kMiddleOfMark = 10;
  clickAt({left + kMiddleOfMark, middle.y()});
}

// --- By keyboard alone ---------------------------------------------------------------------------

void reach(const char* name, const QString& key) {
  const auto& widget = inFront<QWidget>(name);
  const auto hasFocus = [&] {
    const QWidget* focus = QApplication::focusWidget();
    return focus == &widget || widget.isAncestorOf(focus);
  };
  for (int i = 0; i < 40 && !hasFocus(); ++i) press({key});
  EXPECT_TRUE(hasFocus()) << name;
}

void pressButton(const char* name) {
  reach(name);
  EXPECT_TRUE(inFront<QWidget>(name).isEnabled()) << name;
  press({QStringLiteral("space")});
}

void fillByKeys(const char* name, const QString& text) {
  reach(name);
  press({QStringLiteral("ctrl+a")});
  typeText(text);
  EXPECT_EQ(textOf(name).toStdString(), text.toStdString()) << name;
}

void chooseByKeys(const char* name, const QString& row) {
  reach(name);
  const auto& list = inFront<QComboBox>(name);
  const int steps = list.findText(row) - list.currentIndex();
  const auto key = steps > 0 ? QStringLiteral("Down") : QStringLiteral("Up");
  if (steps != 0) press(QStringList(std::abs(steps), key));
  EXPECT_EQ(list.currentText().toStdString(), row.toStdString()) << name;
}

void goToRow(const char* name, const QString& row) {
  const QModelIndex wanted = rowOf(name, row);
  reach(name);
  press(QStringList(QStringLiteral("Home")) + QStringList(wanted.row(), QStringLiteral("Down")));
  EXPECT_EQ(inFront<QAbstractItemView>(name).currentIndex().row(), wanted.row()) << name;
}

QString textOf(const char* name) { return inFront<QLineEdit>(name).text(); }

}  // namespace tessaria::tests
