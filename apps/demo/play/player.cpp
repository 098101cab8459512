#include "apps/demo/play/player.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QStatusBar>
#include <QTest>
#include <algorithm>
#include <cstdio>

#include "hosts/qt/tstext.h"

namespace tessaria::demo {
namespace {

constexpr int kWatchInterval = 10;  // milliseconds
constexpr int kTitleHeight = 26;    // pixels

/// On a Brazilian keyboard these take a dead key; ç has a key of its own.
bool isComposed(QChar c) {
  return c.decompositionTag() == QChar::Canonical && c.toLower() != QLatin1Char('\xE7');
}

bool isShifted(QChar c) { return c.isUpper() || QStringLiteral("!@#$%&*()_+:?{}|\"").contains(c); }

void typeCharacter(QWidget* target, QChar c) {
  if (isComposed(c)) {
    QInputMethodEvent commit;
    commit.setCommitString(c);
    QApplication::sendEvent(target, &commit);
    return;
  }
  const auto modifiers = isShifted(c) ? Qt::ShiftModifier : Qt::NoModifier;
  QTest::sendKeyEvent(QTest::Click, target, static_cast<Qt::Key>(c.toUpper().unicode()), c,
                      modifiers);
}

/// What a label or a status bar shows.
QString textOn(const QWidget* widget) {
  if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
  const auto* bar = qobject_cast<const QStatusBar*>(widget);
  return bar ? bar->currentMessage() : QString();
}

/// A window's title bar is the window system's, and no part of what the window draws.
void drawTitle(QPainter& painter, const QRect& place, const QString& title) {
  const QPalette palette = QApplication::palette();
  painter.fillRect(place, palette.color(QPalette::Highlight));
  painter.setPen(palette.color(QPalette::HighlightedText));
  painter.drawText(place.adjusted(8, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft, title);
}

}  // namespace

Player::Player(QWidget& window, const QString& pictures)
    : window_(&window), pictures_(pictures), makesPictures_(!pictures.isEmpty()) {
  connect(&watch_, &QTimer::timeout, this, &Player::answerBox);
  watch_.start(kWatchInterval);
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window)) fail(QStringLiteral("A janela não ficou ativa."));
  QTest::qWait(0);
}

void Player::stage(const QString& title) {
  stage_ = title;
  if (!isPlaying()) return;
  std::printf("- %s\n", qPrintable(title));
  std::fflush(stdout);
}

// --- Hands ---------------------------------------------------------------------------------------

QWidget* Player::focus() const { return window_ ? window_->focusWidget() : nullptr; }

template <class Action>
void Player::step(Action&& action) {
  if (!isPlaying()) return;
  action();
  waitForRest();
  if (sees([this] { return !expected_; }) || !isPlaying()) return;
  fail(QStringLiteral("A caixa \"%1\" não apareceu.").arg(expected_->text));
  expected_.reset();
}

/// A button that is pressed by its key stays down for a moment before it acts.
void Player::waitForRest() {
  const auto isDown = [this] {
    const auto buttons =
        window_ ? window_->findChildren<QAbstractButton*>() : QList<QAbstractButton*>();
    return std::any_of(buttons.begin(), buttons.end(),
                       [](const QAbstractButton* button) { return button->isDown(); });
  };
  QTest::qWait(0);
  if (!QTest::qWaitFor([&] { return !isDown(); }))
    fail(QStringLiteral("Um botão ficou pressionado."));
  QTest::qWait(0);
}

void Player::type(const QString& text) {
  step([&] {
    for (const QChar c : text) {
      if (!focus()) return fail(QStringLiteral("Nenhum campo tem o foco."));
      typeCharacter(focus(), c);
    }
  });
}

void Player::press(const QString& keys) {
  step([&] {
    if (!focus()) return fail(QStringLiteral("Nenhum campo tem o foco."));
    sendKeys(focus(), keys);
  });
}

void Player::press(const QString& keys, int times) {
  for (int i = 0; i < times; ++i) press(keys);
}

void Player::sendKeys(QWidget* target, const QString& keys) {
  const QKeySequence sequence(keys, QKeySequence::PortableText);
  QTest::sendKeyEvent(QTest::Click, target, sequence[0].key(), QString(),
                      sequence[0].keyboardModifiers());
}

void Player::click(const QString& name) {
  step([&] {
    auto* target = window_->findChild<QWidget*>(name);
    if (!target || !target->isVisible())
      return fail(QStringLiteral("\"%1\" não está à vista.").arg(name));
    QWidget* hit = target->childAt(target->rect().center());
    QTest::mouseClick(hit ? hit : target, Qt::LeftButton);
  });
}

// --- Eyes ----------------------------------------------------------------------------------------

void Player::expectBox(const QString& text, const QString& picture, const QString& answer) {
  expected_ = ExpectedBox{text, picture, answer};
}

/// An operator looks until it is there; a slow machine takes its time.
bool Player::sees(const std::function<bool()>& condition) const {
  return QTest::qWaitFor([&] { return !isPlaying() || condition(); }) && isPlaying();
}

void Player::expectFocus(const QString& name) {
  const auto holds = [&] {
    const QWidget* found = focus();
    while (found && found->objectName() != name) found = found->parentWidget();
    return found != nullptr;
  };
  expect(sees(holds), QStringLiteral("O foco não está em \"%1\", mas em \"%2\".")
                          .arg(name, focus() ? focus()->objectName() : QString()));
}

void Player::expectText(const QString& field, const QString& text) {
  const auto* found = window_ ? window_->findChild<qt::TsText*>(field) : nullptr;
  if (!found) return fail(QStringLiteral("Não há o campo \"%1\".").arg(field));
  expect(sees([&] { return found->text() == text; }),
         QStringLiteral("O campo \"%1\" mostra \"%2\", e não \"%3\".")
             .arg(field, found->text(), text));
}

void Player::expectShown(const QString& name, const QString& text) {
  const auto* found = window_ ? window_->findChild<QWidget*>(name) : nullptr;
  expect(sees([&] { return textOn(found) == text; }),
         QStringLiteral("\"%1\" mostra \"%2\", e não \"%3\".").arg(name, textOn(found), text));
}

void Player::expect(bool holds, const QString& what) {
  if (!holds && isPlaying()) fail(what);
}

void Player::fail(const QString& what) {
  failures_ << (stage_.isEmpty() ? what : stage_ + QStringLiteral(": ") + what);
  std::printf("  ERRADO: %s\n", qPrintable(what));
  std::fflush(stdout);
  if (window_) save(window_->grab(), QStringLiteral("errado"));
}

// --- Message boxes -------------------------------------------------------------------------------

/// Runs inside the box's own event loop.
void Player::answerBox() {
  const QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (!box || box == met_ || !box->isActiveWindow()) return;
  met_ = box;
  meet(*box);
  const QString answer = expected_ ? expected_->answer : QStringLiteral("Return");
  expected_.reset();
  QWidget* target = box->focusWidget() ? box->focusWidget() : box.data();
  sendKeys(target, answer);
  if (!QTest::qWaitFor([&] { return !box || !box->isVisible(); })) {
    fail(QStringLiteral("A caixa \"%1\" não fechou com %2.").arg(box->text(), answer));
    box->reject();
  }
}

void Player::meet(const QMessageBox& box) {
  if (!expected_) return fail(QStringLiteral("Caixa inesperada: \"%1\".").arg(box.text()));
  expect(box.text() == expected_->text,
         QStringLiteral("A caixa diz \"%1\", e não \"%2\".").arg(box.text(), expected_->text));
  if (!expected_->picture.isEmpty()) pictureOfBox(box, expected_->picture);
}

// --- Pictures ------------------------------------------------------------------------------------

void Player::picture(const QString& name) {
  if (isPlaying()) save(window_->grab(), name);
}

void Player::pictureOfBox(const QMessageBox& box, const QString& name) {
  if (!window_) return;
  QPixmap whole = window_->grab();
  const QPixmap front = const_cast<QMessageBox&>(box).grab();
  QRect place(QPoint(), front.deviceIndependentSize().toSize() + QSize(0, kTitleHeight));
  place.moveCenter(window_->rect().center());
  QPainter painter(&whole);
  drawTitle(painter, QRect(place.topLeft(), QSize(place.width(), kTitleHeight)), box.windowTitle());
  painter.drawPixmap(place.topLeft() + QPoint(0, kTitleHeight), front);
  painter.setPen(QApplication::palette().color(QPalette::Shadow));
  painter.drawRect(place.adjusted(0, 0, -1, -1));
  painter.end();
  save(whole, name);
}

void Player::save(const QPixmap& picture, const QString& name) {
  if (!makesPictures_) return;
  const QString file =
      QStringLiteral("%1-%2.png").arg(++pictureCount_, 2, 10, QLatin1Char('0')).arg(name);
  if (!picture.save(pictures_.filePath(file)))
    failures_ << QStringLiteral("%1 não pôde ser gravado.").arg(pictures_.filePath(file));
}

}  // namespace tessaria::demo
