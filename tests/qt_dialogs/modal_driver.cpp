#include "tests/qt_dialogs/modal_driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace tessaria::qt::tests {
namespace {

constexpr int kInterval = 2;  // milliseconds

}  // namespace

ModalDriver::ModalDriver() { lookSoon(); }

/// One timer for each check: a repeating timer would not fire while its own script runs.
void ModalDriver::lookSoon() {
  QTimer::singleShot(kInterval, this, [this] { look(); });
}

ModalDriver::~ModalDriver() {
  for (const Expected& left : expected_)
    ADD_FAILURE() << "never opened: " << left.name.toStdString();
}

void ModalDriver::willShow(const QString& name, Script script) {
  expected_.push_back({name, std::move(script)});
}

void ModalDriver::look() {
  lookSoon();
  const QPointer<QDialog> window(qobject_cast<QDialog*>(QApplication::activeModalWidget()));
  // Message boxes are answered elsewhere. A window's script runs once.
  if (!window || qobject_cast<QMessageBox*>(window) || worked_.contains(window)) return;
  shown_ << window->objectName();
  if (expected_.empty() || expected_.front().name != window->objectName()) {
    ADD_FAILURE() << "opened unforeseen: " << window->objectName().toStdString();
    window->hide();
    return;
  }
  const Script script = std::move(expected_.front().script);
  expected_.pop_front();
  worked_.push_back(window);
  (void)QTest::qWaitForWindowActive(window);
  settleEvents();
  script(*window);
  worked_.pop_back();
  if (window && window->isVisible()) {
    ADD_FAILURE() << "left open: " << window->objectName().toStdString();
    window->hide();
  }
}

void strike(QWidget& window, const QString& text, Qt::KeyboardModifiers modifiers) {
  const QPointer<QWidget> alive(&window);
  for (QChar c : text) {
    if (!alive || !alive->isVisible()) return;
    QWidget* focus = window.focusWidget() ? window.focusWidget() : &window;
    QTest::sendKeyEvent(QTest::Click, focus, Qt::Key(c.toUpper().unicode()), QString(c), modifiers);
  }
}

void picture(QWidget& window, const QString& name) {
  const QString folder = qEnvironmentVariable("TESSARIA_PICTURES");
  if (!folder.isEmpty()) window.grab().save(folder + QLatin1Char('/') + name + ".png");
}

}  // namespace tessaria::qt::tests
