// Where the widgets of each dialog lie: the one thing that its description leaves to the host.
#pragma once

#include <QDialog>
#include <QHBoxLayout>

#include "tessaria/string.h"

namespace tessaria::qt {

/// Lays out the widgets of the dialog of that name, which are the window's children, each under
/// its own object name, and gives the window its first size. A dialog with no layout of its own
/// has its widgets one below the other.
void layOut(QDialog& window, StringView name);

/// One for each dialog.
void layOutCalculator(QDialog& window);
void layOutCalendar(QDialog& window);
void layOutFolderPicker(QDialog& window);
void layOutGridForm(QDialog& window);
void layOutSearchPrompt(QDialog& window);

/// A widget by object name; of several with one name the one at `index`, in order of creation.
template <class Widget = QWidget>
Widget* part(const QDialog& window, const char* name, int index = 0) {
  return window.findChildren<Widget*>(QLatin1String(name)).at(index);
}

/// The row of the two buttons that end a dialog: the default one, and the one that Escape presses.
QHBoxLayout* answerRow(QDialog& window, const char* yes, const char* no);

/// Pixels of so many average characters, or lines, in the window's font.
int characters(const QWidget& window, int count);
int lines(const QWidget& window, int count);

}  // namespace tessaria::qt
