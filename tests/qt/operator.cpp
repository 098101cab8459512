#include "tests/qt/operator.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <utility>

#include "tessaria/qt/host.h"

namespace tessaria::qt::tests {
namespace {

QString plain(QString text) { return text.remove(QLatin1Char('&')); }

Qt::Key keyOf(QChar c) {
  const QChar upper = c.toUpper();
  return upper.unicode() < 0x100 ? Qt::Key(upper.unicode()) : Qt::Key_unknown;
}

struct Key {
  int code;
  QString text;
  Qt::KeyboardModifiers modifiers;
};

constexpr std::pair<Qt::KeyboardModifier, Qt::Key> kModifierKeys[] = {
    {Qt::ShiftModifier, Qt::Key_Shift},
    {Qt::ControlModifier, Qt::Key_Control},
    {Qt::AltModifier, Qt::Key_Alt}};

/// Each key goes to the widget that has the focus at that time, if the window still exists. QTest's
/// own sequences continue with a widget that the modifier's key has destroyed.
void send(const QPointer<QWidget>& window, bool down, const Key& key) {
  if (window && window->focusWidget())
    QTest::simulateEvent(window->focusWidget(), down, key.code, key.modifiers, key.text, false);
}

void pressKey(const QPointer<QWidget>& window, const Key& key) {
  for (const auto& [modifier, code] : kModifierKeys)
    if (key.modifiers & modifier) send(window, true, {code, {}, {}});
  send(window, true, key);
}

void release(const QPointer<QWidget>& window, const Key& key) {
  send(window, false, key);
  for (const auto& [modifier, code] : kModifierKeys)
    if (key.modifiers & modifier) send(window, false, {code, {}, {}});
}

QMenu* openMenu(QLineEdit& edit) {
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(2, 2),
                          edit.mapToGlobal(QPoint(2, 2)));
  QApplication::sendEvent(&edit, &event);
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// The offscreen platform leaves no window active after a popup.
void closeMenu(QMenu& menu, QLineEdit& edit) {
  menu.close();
  edit.activateWindow();
  settleEvents();
}

}  // namespace

BoxKeeper::BoxKeeper() {
  connect(&install(), &Host::boxShown, this,
          [this](const QString& text, const QString& title, int style) {
            boxes_.push_back({text, title, style, {}, {}});
            QTimer::singleShot(0, this, [this] { answer(); });
          });
  connect(&install(), &Host::beeped, this, [this] { ++beeps_; });
}

void BoxKeeper::answer() {
  const QPointer<QMessageBox> box(qobject_cast<QMessageBox*>(QApplication::activeModalWidget()));
  if (!box) {
    QTimer::singleShot(1, this, [this] { answer(); });
    return;
  }
  if (box->parentWidget()) boxes_.back().owner = box->parentWidget()->objectName();
  for (QAbstractButton* button : box->buttons()) boxes_.back().buttons << plain(button->text());
  if (whileOpen) whileOpen();
  if (!box || !box->isVisible()) return;
  QAbstractButton* button = box->defaultButton();
  if (!answers_.empty()) {
    for (QAbstractButton* candidate : box->buttons())
      if (plain(candidate->text()) == answers_.front()) button = candidate;
    answers_.pop_front();
  }
  button->click();
}

QStringList BoxKeeper::takeTexts() {
  QStringList texts;
  for (; taken_ < boxes_.size(); ++taken_) texts << boxes_[taken_].text;
  return texts;
}

void showActive(QWidget& window) {
  window.show();
  window.activateWindow();
  (void)QTest::qWaitForWindowActive(&window);
  settleEvents();
}

void settleEvents() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

QLineEdit* editOf(TsText& field) { return field.findChild<QLineEdit*>(QStringLiteral("txtEdit")); }

QWidget* focusOf(const QWidget& window) { return window.focusWidget(); }

void type(QWidget& window, const QString& text) {
  const QPointer<QWidget> alive(&window);
  for (QChar c : text) {
    const Key key{keyOf(c), QString(c), c.isUpper() ? Qt::ShiftModifier : Qt::NoModifier};
    pressKey(alive, key);
    release(alive, key);
  }
}

void press(QWidget& window, int key, Qt::KeyboardModifiers modifiers) {
  const QPointer<QWidget> alive(&window);
  pressKey(alive, {key, {}, modifiers});
  release(alive, {key, {}, modifiers});
}

void commit(QWidget& window, const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QApplication::sendEvent(window.focusWidget(), &event);
}

void closeByFrame(QWidget& window) {
  QCloseEvent event;
  QSpontaneKeyEvent::setSpontaneous(&event);
  const QPointer<QWidget> alive(&window);
  qApp->notify(&window, &event);
  if (alive && event.isAccepted()) window.hide();
}

void click(QWidget& widget) {
  const QPointer<QWidget> alive(&widget);
  QTest::mousePress(&widget, Qt::LeftButton);
  if (alive) QTest::mouseRelease(&widget, Qt::LeftButton);
  settleEvents();
}

void pasteByMenu(QLineEdit& edit, const QString& text) {
  QApplication::clipboard()->setText(text);
  QMenu* menu = openMenu(edit);
  if (!menu) return;
  for (QAction* action : menu->actions())
    if (plain(action->text()).startsWith(QLatin1String("Colar"))) action->trigger();
  closeMenu(*menu, edit);
}

QStringList menuOf(QLineEdit& edit) {
  QStringList entries;
  QMenu* menu = openMenu(edit);
  if (!menu) return entries;
  for (QAction* action : menu->actions())
    if (!action->isSeparator())
      entries << (action->isEnabled() ? QString() : QStringLiteral("-")) +
                     plain(action->text()).section(QLatin1Char('\t'), 0, 0);
  closeMenu(*menu, edit);
  return entries;
}

void drop(QLineEdit& edit, const QString& text, int position) {
  QMimeData data;
  data.setText(text);
  edit.setCursorPosition(position);
  const QPoint point(edit.inputMethodQuery(Qt::ImCursorRectangle).toRectF().center().toPoint().x(),
                     edit.height() / 2);
  QDropEvent event(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
  static_cast<QObject&>(edit).event(&event);  // a real drop would need a running drag
  settleEvents();
}

}  // namespace tessaria::qt::tests
