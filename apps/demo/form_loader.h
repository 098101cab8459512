// Loads the forms that are drawn in Qt Designer.
#pragma once

#include <QWidget>

namespace tessaria::demo {

/// Loads a file in ":/demo/forms" into `form`, which becomes the file's outermost widget.
void loadForm(const QString& file, QWidget& form);

/// A widget of a loaded form. The forms are part of the program, so a missing name ends the
/// program.
template <class Widget>
Widget* widgetOf(const QWidget& form, const char* name) {
  auto* widget = form.findChild<Widget*>(QString::fromLatin1(name));
  if (!widget) qFatal("the form %s has no %s", qPrintable(form.objectName()), name);
  return widget;
}

}  // namespace tessaria::demo
