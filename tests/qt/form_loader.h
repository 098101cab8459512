// Loads forms of Qt Designer with the library's widgets but without its plugin.
#pragma once

#include <QString>
#include <QWidget>
#include <memory>

namespace tessaria::qt::tests {

/// The form that the text of a `.ui` file describes; nullptr if it does not describe one.
std::unique_ptr<QWidget> loadForm(const QString& ui);

}  // namespace tessaria::qt::tests
