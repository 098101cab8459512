// Loads forms of Qt Designer with the library's widgets, and without its plugin.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>

namespace tessaria::qt::tests {

/// The form that the text of a `.ui` file describes; nullptr when it describes none.
std::unique_ptr<QWidget> loadForm(const QString& ui);

}  // namespace tessaria::qt::tests
