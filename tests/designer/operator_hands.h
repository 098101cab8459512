// The hands of an operator at a form that was made in Designer, in a program of its own.
#pragma once

#include <QObject>
#include <QWidget>
#include <functional>

#include "tessaria/host/data.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::tests {

/// A connection by ODBC that is not open yet.
host::ConnectionPtr connect(const QString& text);

/// Shows the form over the data source "loja". Returns false when its window does not get active.
bool showForm(QWidget& form);

/// The field of that name; throws when there is none.
qt::TsText& field(const QWidget& form, const char* name);

void type(const QString& text);
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

/// Works once a modal window of that name is in front, inside its own loop of events.
void inWindow(const char* name, std::function<void(QWidget& window)> work);

/// Prints and closes the boxes that nobody expects.
class Boxes final : public QObject {
 public:
  Boxes();
  bool eventFilter(QObject* object, QEvent* event) override;
};

}  // namespace tessaria::tests
