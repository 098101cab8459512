// The layout of each dialog's widgets, which its description leaves to the host.
#pragma once

#include <QDialog>
#include <QHBoxLayout>

#include "tessaria/string.h"

namespace tessaria::qt {

/// Lays out the widgets of the dialog of that name, which are children of the window, each with its
/// own object name, and sets the initial size of the window. A dialog without its own layout has
/// its widgets one below the other.
void layOut(QDialog& window, StringView name);

/// One for each dialog.
void layOutCalculator(QDialog& window);
void layOutCalendar(QDialog& window);
void layOutFolderPicker(QDialog& window);
void layOutGridForm(QDialog& window);
void layOutSearchPrompt(QDialog& window);

/// A widget by object name; if several have that name, the one at `index`, in order of creation.
template <class Widget = QWidget>
Widget* part(const QDialog& window, const char* name, int index = 0) {
  return window.findChildren<Widget*>(QLatin1String(name)).at(index);
}

/// The row of the two buttons that end a dialog: the default one, and the one that Escape presses.
QHBoxLayout* answerRow(QDialog& window, const char* yes, const char* no);

/// The pixels of that many average characters, or lines, in the window's font.
int characters(const QWidget& window, int count);
int lines(const QWidget& window, int count);

}  // namespace tessaria::qt
