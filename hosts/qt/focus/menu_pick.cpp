#include "hosts/qt/focus/menu_pick.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QThread>

namespace tessaria::qt {
namespace {

QAction* triggerable(QAction* action) {
  const bool runs = action && action->isEnabled() && !action->isSeparator() && !action->menu();
  return runs ? action : nullptr;
}

bool hasMnemonic(const QAction& action, QChar letter) {
  const QKeySequence mnemonic = QKeySequence::mnemonic(action.text());
  return !mnemonic.isEmpty() && mnemonic[0].key() == Qt::Key(letter.toUpper().unicode());
}

/// The only entry with that letter; if there are several, the key only selects them in turn.
QAction* byMnemonic(const QList<QAction*>& actions, QChar letter) {
  QAction* found = nullptr;
  for (QAction* action : actions) {
    if (!action->isVisible() || !action->isEnabled() || !hasMnemonic(*action, letter)) continue;
    if (found) return nullptr;
    found = action;
  }
  return found;
}

QAction* byKey(const QMenu& menu, const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Space:
      if (!menu.style()->styleHint(QStyle::SH_Menu_SpaceActivatesItem, nullptr, &menu))
        return nullptr;
      [[fallthrough]];
    case Qt::Key_Select:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return menu.activeAction();
    default:
      return key.text().size() == 1 ? byMnemonic(menu.actions(), key.text().front()) : nullptr;
  }
}

}  // namespace

bool MenuPicks::heeds(QEvent::Type type) {
  switch (type) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
    case QEvent::KeyPress:
    case QEvent::Shortcut:
      return true;
    default:
      return false;
  }
}

QAction* MenuPicks::picked(QMenu& menu, const QEvent& event) {
  switch (event.type()) {
    case QEvent::Show:
      level_[&menu] = QThread::currentThread()->loopLevel();
      pressed_ = nullptr;
      return nullptr;
    case QEvent::Hide:
      level_.remove(&menu);
      return nullptr;
    case QEvent::MouseButtonPress:
      pressed_ = &menu;
      return nullptr;
    case QEvent::MouseMove:
      if (static_cast<const QMouseEvent&>(event).buttons()) pressed_ = &menu;
      return nullptr;
    case QEvent::MouseButtonRelease: {
      const auto place = static_cast<const QMouseEvent&>(event).position().toPoint();
      QAction* under = menu.actionAt(place);
      return pressed_ == &menu && under == menu.activeAction() ? triggerable(under) : nullptr;
    }
    case QEvent::KeyPress:
      return triggerable(byKey(menu, static_cast<const QKeyEvent&>(event)));
    default:
      return nullptr;
  }
}

QAction* MenuPicks::picked(QMenuBar& bar, const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return triggerable(bar.actionAt(static_cast<const QMouseEvent&>(event).position().toPoint()));
    case QEvent::KeyPress: {
      const int key = static_cast<const QKeyEvent&>(event).key();
      const bool enters = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
      return enters ? triggerable(bar.activeAction()) : nullptr;
    }
    case QEvent::Shortcut: {
      const QKeySequence& keys = static_cast<const QShortcutEvent&>(event).key();
      for (QAction* action : bar.actions())
        if (QKeySequence::mnemonic(action->text()) == keys) return triggerable(action);
      return nullptr;
    }
    default:
      return nullptr;
  }
}

void MenuPicks::close() {
  while (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
    if (!menu->close()) return;
}

bool MenuPicks::runsLoop(const QMenu& menu) const {
  return level_.contains(&menu) && QThread::currentThread()->loopLevel() > level_.value(&menu);
}

void MenuPicks::triggerInLoop(QMenu& menu, QAction& action) {
  menu.setActiveAction(&action);
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QCoreApplication::sendEvent(&menu, &enter);
}

}  // namespace tessaria::qt
