// The layout of each dialog's widgets, which its description leaves to the host.
#pragma once

#include <QHBoxLayout>
#include <QWidget>
#include <span>

#include "tessaria/host/dialog.h"

namespace tessaria::qt {

/// A widget of a surface, in the order of its description.
struct LaidWidget {
  host::WidgetKind kind;
  QWidget* widget;
};

/// Lays out the widgets of the surface of that name, each with its own object name, and sets the
/// initial size of a window. A surface without its own layout, in the table of layouts.cpp, has the
/// rows of `layOutInRows`.
void layOut(QWidget& surface, StringView name, std::span<const LaidWidget> widgets);

/// Rows in the order of the description, in each frame and on each page: a label stands before the
/// box that follows it, and buttons or options that follow each other stand side by side.
void layOutInRows(QWidget& surface, std::span<const LaidWidget> widgets);

/// One for each dialog.
void layOutCalculator(QWidget& window);
void layOutCalendar(QWidget& window);
void layOutFolderPicker(QWidget& window);
void layOutGridForm(QWidget& window);
void layOutSearchPrompt(QWidget& window);
void layOutWizard(QWidget& window);

/// A widget by object name; if several have that name, the one at `index`, in order of creation.
template <class Widget = QWidget>
Widget* part(const QWidget& window, const char* name, int index = 0) {
  return window.findChildren<Widget*>(QLatin1String(name)).at(index);
}

/// The row of the two buttons that end a dialog: the default one, and the one that Escape presses.
QHBoxLayout* answerRow(QWidget& window, const char* yes, const char* no);

/// The pixels of that many average characters, or lines, in the window's font.
int characters(const QWidget& window, int count);
int lines(const QWidget& window, int count);

}  // namespace tessaria::qt
