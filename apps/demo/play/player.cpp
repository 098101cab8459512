#include "apps/demo/play/player.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QLabel>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "apps/demo/play/scene.h"
#include "tessaria/qt/item_grid.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::demo {
namespace {

/// On a Brazilian keyboard these need a dead key; ç has a key of its own.
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

/// The text that a label or a status bar shows.
QString textOn(const QWidget* widget) {
  if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
  const auto* bar = qobject_cast<const QStatusBar*>(widget);
  return bar ? bar->currentMessage() : QString();
}

/// The name of the field, when the widget is a part of one.
QString knownName(const QWidget* widget) {
  if (!widget) return {};
  const auto* field = qobject_cast<const qt::TsText*>(widget->parentWidget());
  return field ? field->objectName() : widget->objectName();
}

/// The form that the widget is on, or its window.
const QWidget* formAround(const QWidget* widget) {
  while (!widget->isWindow() && !widget->property("dbForm").isValid())
    widget = widget->parentWidget();
  return widget;
}

}  // namespace

Player::Player(QWidget& window, const QString& pictures)
    : window_(&window), pictures_(pictures), makesPictures_(!pictures.isEmpty()) {
  watchSoon();
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

// --- Input ---------------------------------------------------------------------------------------

/// The window that gets the keys: a menu, a dialog, or the main window.
QWidget* Player::front() const {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
  return window_;
}

QWidget* Player::focus() const {
  QWidget* found = front();
  return found && found->focusWidget() ? found->focusWidget() : found;
}

QWidget* Player::find(const QString& name) const {
  const auto all = front() ? front()->findChildren<QWidget*>(name) : QList<QWidget*>();
  for (QWidget* each : all)
    if (formAround(each)->isVisible()) return each;
  return nullptr;
}

template <class Action>
void Player::step(Action&& action) {
  if (!isPlaying()) return;
  action();
  waitForRest();
  if (sees([this] { return expected_.size() <= later_; }) || !isPlaying()) return;
  const Expected& missing = expected_.first();
  fail(QStringLiteral("A janela \"%1\" não apareceu.").arg(missing.name + missing.text));
}

/// A button that is pressed by its key stays down for a moment before it acts.
void Player::waitForRest() {
  const auto isDown = [this] {
    const auto buttons =
        front() ? front()->findChildren<QAbstractButton*>() : QList<QAbstractButton*>();
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

void Player::whileWaiting(int milliseconds, std::function<void()> act) {
  QTimer::singleShot(milliseconds, this, std::move(act));
}

void Player::key(const QString& name) { sendKeys(focus(), name); }

void Player::sendKeys(QWidget* target, const QString& keys) {
  const QKeySequence sequence(keys, QKeySequence::PortableText);
  QTest::sendKeyEvent(QTest::Click, target, sequence[0].key(), QString(),
                      sequence[0].keyboardModifiers());
}

void Player::click(const QString& name) {
  step([&] {
    QWidget* target = find(name);
    if (!target || !target->isVisible())
      return fail(QStringLiteral("\"%1\" não está à vista.").arg(name));
    QWidget* hit = target->childAt(target->rect().center());
    QTest::mouseClick(hit ? hit : target, Qt::LeftButton);
  });
}

void Player::tabTo(const QString& name) {
  constexpr int kPatience = 12;
  const auto isThere = [&] {
    const QWidget* wanted = find(name);
    return wanted && (wanted == focus() || wanted->isAncestorOf(focus()));
  };
  for (int i = 0; i < kPatience && isPlaying() && !isThere(); ++i) press(QStringLiteral("Tab"));
  expect(isThere(), QStringLiteral("Tab não chega a \"%1\".").arg(name));
}

void Player::clickHeader(int column) {
  step([&] {
    if (!list()) return fail(QStringLiteral("Não há lista."));
    const QHeaderView& header = *list()->horizontalHeader();
    const QPoint place(header.sectionViewportPosition(column) + 10, header.height() / 2);
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
  });
}

// --- Checks --------------------------------------------------------------------------------------

void Player::expectNext(const Expected& expected) {
  expected_.insert(expected_.size() - later_, expected);
}

void Player::expectBox(const QString& text, const QString& picture, const QString& answer) {
  expectNext({{}, text, picture, answer, true, {}});
}

void Player::expectRefusal(const QString& beginning, const QString& picture,
                           const QString& answer) {
  expectNext({{}, beginning, picture, answer, false, {}});
}

void Player::expectWindow(const QString& name, std::function<void()> work) {
  expectNext({name, {}, {}, {}, true, std::move(work)});
}

/// Waits for the condition, because a slow machine needs more time.
bool Player::sees(const std::function<bool()>& condition) const {
  return QTest::qWaitFor([&] { return !isPlaying() || condition(); }) && isPlaying();
}

void Player::expectFocus(const QString& name) {
  const auto holds = [&] {
    const QWidget* found = focus();
    while (found && found->objectName() != name) found = found->parentWidget();
    return found != nullptr;
  };
  expect(sees(holds),
         QStringLiteral("O foco não está em \"%1\", mas em \"%2\".").arg(name, knownName(focus())));
}

void Player::expectText(const QString& field, const QString& text) {
  const auto* found = qobject_cast<qt::TsText*>(find(field));
  if (!found) return fail(QStringLiteral("Não há o campo \"%1\".").arg(field));
  expect(sees([&] { return found->text() == text; }),
         QStringLiteral("O campo \"%1\" mostra \"%2\", e não \"%3\".")
             .arg(field, found->text(), text));
}

void Player::expectShown(const QString& name, const QString& text) {
  const QWidget* found = find(name);
  expect(sees([&] { return textOn(found) == text; }),
         QStringLiteral("\"%1\" mostra \"%2\", e não \"%3\".").arg(name, textOn(found), text));
}

void Player::expectItem(int row, int column, const QString& text) {
  const auto* grid = front() ? front()->findChild<qt::ItemGrid*>() : nullptr;
  if (!grid) return fail(QStringLiteral("Não há itens."));
  const auto shown = [&] { return grid->model()->index(row - 1, column).data().toString(); };
  expect(sees([&] { return shown() == text; }),
         QStringLiteral("O item %1 mostra \"%2\", e não \"%3\".").arg(row).arg(shown(), text));
}

QTableView* Player::list() const { return front() ? front()->findChild<QTableView*>() : nullptr; }

void Player::expectList(int rows, int column, const QString& first) {
  const QAbstractItemModel* model = list() ? list()->model() : nullptr;
  if (!model) return expect(false, QStringLiteral("Não há lista."));
  const auto text = [&] { return model->index(0, column).data().toString(); };
  expect(sees([&] { return (rows < 0 || model->rowCount() == rows) && text() == first; }),
         QStringLiteral("A lista tem %1 registros e começa com \"%2\", e não %3 e \"%4\".")
             .arg(model->rowCount())
             .arg(text())
             .arg(rows)
             .arg(first));
}

void Player::expect(bool holds, const QString& what) {
  if (!holds && isPlaying()) fail(what);
}

void Player::fail(const QString& what) {
  failures_ << (stage_.isEmpty() ? what : stage_ + QStringLiteral(": ") + what);
  std::printf("  ERRADO: %s\n", qPrintable(what));
  std::fflush(stdout);
  if (window_) save(pictureOf(*window_, met_), QStringLiteral("errado"));
}

// --- Pictures ------------------------------------------------------------------------------------

void Player::picture(const QString& name) {
  if (isPlaying()) save(pictureOf(*window_, met_), name);
}

void Player::save(const QPixmap& picture, const QString& name) {
  if (!makesPictures_) return;
  const QString file =
      QStringLiteral("%1-%2.png").arg(++pictureCount_, 2, 10, QLatin1Char('0')).arg(name);
  if (!picture.save(pictures_.filePath(file)))
    failures_ << QStringLiteral("%1 não pôde ser gravado.").arg(pictures_.filePath(file));
}

}  // namespace tessaria::demo
