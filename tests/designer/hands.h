// The hands of a developer at the real Designer: what they drop, type and click, by mouse and keys.
#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <stdexcept>
#include <string>

#include "tests/designer/driver.h"

namespace tessaria::tests {

/// A click at a place of the screen.
void clickAt(const QPoint& place, int times = 1);
void clickOn(const QWidget& widget, int times = 1);
/// Presses keys by their names of X11, one after the other.
void press(const QStringList& keys);
/// Types plain text, which may be empty.
void typeText(const QString& text);

/// Drags an item of the widget box to a place of the form, and returns the new widget; null when
/// none has come.
QWidget* drop(QDesignerFormWindowInterface& form, const QString& item, const QPoint& place);
/// Types a property of the selected widget in the property editor.
void typeProperty(const QString& property, const QString& text);
/// Saves the form by Ctrl+S.
void save(const QDesignerFormWindowInterface& form);

QString contentsOf(const QString& path);
/// What a program prints without a screen. The test fails when it does not end with status 0.
std::string outputOf(const QString& program, const QStringList& arguments);

/// A dialog by its name; null when it is not open.
QDialog* openWindow(const char* name);
/// The dialog of the property page; null when it is not open.
QDialog* pageDialog();
/// The window of the SQL wizard, likewise.
QDialog* wizardDialog();
/// Opens it by a double click on the field, and waits for it.
void openPage(const QWidget& field);
/// Opens it by the field's entry of the context menu.
void openPageByMenu(QWidget& field);
/// A button of the dialog itself.
QPushButton* dialogButton(const QString& caption);

/// A widget of the window in front, which is the wizard or else the page, by its name. The test
/// ends when there is none.
template <class Widget>
Widget& inFront(const char* name) {
  const QDialog* window = wizardDialog() ? wizardDialog() : pageDialog();
  auto* found = window ? window->findChild<Widget*>(QLatin1String(name)) : nullptr;
  if (!found) throw std::runtime_error(std::string("the window has no ") + name);
  return *found;
}

/// For a window or a menu with an event loop of its own, which "open" does not return from before
/// it is closed: works once "isOpen" is true.
void workInside(const std::function<void()>& open, const std::function<bool()>& isOpen,
                const std::function<void()>& work);
/// Works in the wizard, which is closed afterwards.
void workInWizard(const std::function<void()>& open, const std::function<void()>& work);

/// Saves the window as a picture of a guide, into the folder that TESSARIA_PICTURES names, if any.
void picture(QWidget& window, const QString& name);

/// The tabs of the page, in order.
enum class Tab { Principal, Browse, Pesquisa };

void clickTab(Tab tab);
Tab frontTab();
/// A tab of a strip of tabs, by its position from 0.
void clickTabAt(const char* strip, int position);
void clickButton(const char* name);
/// Clicks the mark of a check box or an option.
void clickMark(const char* name);
/// Replaces the text of a box.
void fill(const char* name, const QString& text);
/// Chooses a row of a drop-down list.
void choose(const char* name, const QString& row);
/// Clicks a row of a list.
void clickRow(const char* name, const QString& row);
/// Clicks the mark in a row of a list.
void clickMarkOfRow(const char* name, const QString& row);
QString textOf(const char* name);

/// Goes on by the key until the widget has the focus.
void reach(const char* name, const QString& key = QStringLiteral("Tab"));
/// The same things by keyboard alone.
void pressButton(const char* name);
void fillByKeys(const char* name, const QString& text);
void chooseByKeys(const char* name, const QString& row);
void goToRow(const char* name, const QString& row);

}  // namespace tessaria::tests
