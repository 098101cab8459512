// The windows that open during a played session: boxes, dialogs, menus.

#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "apps/demo/play/player.h"

namespace tessaria::demo {
namespace {

constexpr int kWatchInterval = 10;  // milliseconds

bool isReady(QWidget* window) {
  return window->isVisible() && (qobject_cast<QMenu*>(window) || window->isActiveWindow());
}

}  // namespace

/// Each check has a timer of its own: a repeating one would stop while `work` acts in a window.
void Player::watchSoon() {
  QTimer::singleShot(kWatchInterval, this, [this] { watch(); });
}

/// Runs inside the new window's own event loop.
void Player::watch() {
  watchSoon();
  met_.removeIf([](const QPointer<QWidget>& window) { return !window || !window->isVisible(); });
  QWidget* window = front();
  if (!window || window == window_ || met_.contains(window) || !isReady(window)) return;
  met_ << window;
  auto* box = qobject_cast<QMessageBox*>(window);
  if (expected_.isEmpty())
    fail(
        QStringLiteral("Janela inesperada: \"%1\".").arg(box ? box->text() : window->objectName()));
  const Expected expected = expected_.isEmpty() ? Expected{} : expected_.takeFirst();
  const auto before = std::exchange(later_, expected_.size());
  if (box)
    answer(*box, expected);
  else
    workIn(*window, expected);
  later_ = before;
}

void Player::answer(QMessageBox& box, const Expected& expected) {
  const QPointer<QMessageBox> open(&box);
  const bool isMeant =
      expected.isWhole ? box.text() == expected.text : box.text().startsWith(expected.text);
  expect(isMeant,
         QStringLiteral("A caixa diz \"%1\", e não \"%2\".").arg(box.text(), expected.text));
  if (!expected.picture.isEmpty()) picture(expected.picture);
  const QString keys = expected.answer.isEmpty() ? QStringLiteral("Return") : expected.answer;
  sendKeys(box.focusWidget() ? box.focusWidget() : &box, keys);
  if (QTest::qWaitFor([&] { return !open || !open->isVisible(); })) return;
  fail(QStringLiteral("A caixa \"%1\" não fechou com %2.").arg(box.text(), keys));
  box.reject();
}

void Player::workIn(QWidget& window, const Expected& expected) {
  const QPointer<QWidget> open(&window);
  expect(window.objectName() == expected.name,
         QStringLiteral("Abriu-se a janela \"%1\", e não \"%2\".")
             .arg(window.objectName(), expected.name));
  if (isPlaying() && expected.work) expected.work();
  if (!QTest::qWaitFor([&] { return !isPlaying() || !open || !open->isVisible(); }) || !open ||
      !open->isVisible())
    return expect(!open || !open->isVisible(),
                  QStringLiteral("A janela \"%1\" ficou aberta.").arg(expected.name));
  open->hide();
}

}  // namespace tessaria::demo
