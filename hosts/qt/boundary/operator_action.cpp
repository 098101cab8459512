#include "hosts/qt/boundary/operator_action.h"
#include "hosts/qt/boundary/wait_input.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QThread>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace tessaria::qt {
namespace {

struct Actions {
  Long last = 0;
  std::vector<Long> byLevel;  // of event loops; the innermost has its outer one's at first
};

Actions& actions() {
  static thread_local Actions instance;
  return instance;
}

std::size_t level() { return static_cast<std::size_t>(QThread::currentThread()->loopLevel()); }

void setPresent(Long action) {
  std::vector<Long>& all = actions().byLevel;
  all.resize(level() + 1, all.empty() ? 0 : all.back());
  all.back() = action;
}

enum class Meaning { None, Begins, GoesOn, Background };

// A key that its widget leaves alone comes to the widgets around it too.
Meaning meaningOfKey(const QObject& receiver, const QKeyEvent& key) {
  const auto* widget = qobject_cast<const QWidget*>(&receiver);
  const bool isFirst = !widget || widget->window()->focusWidget() == widget;
  return isFirst && !key.isAutoRepeat() ? Meaning::Begins : Meaning::GoesOn;
}

Meaning meaningOf(const QObject& receiver, QEvent& event) {
  switch (event.type()) {
    case QEvent::KeyPress:
      return meaningOfKey(receiver, static_cast<QKeyEvent&>(event));
    case QEvent::Close:
      return closesByFrame(receiver, event) ? Meaning::Begins : Meaning::None;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Drop:
    case QEvent::TouchBegin:
      return Meaning::Begins;
    case QEvent::KeyRelease:
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
      return Meaning::GoesOn;
    case QEvent::Timer:
    case QEvent::SockAct:
      return Meaning::Background;
    default:
      return Meaning::None;
  }
}

}  // namespace

Long presentAction() {
  const std::vector<Long>& all = actions().byLevel;
  return all.empty() ? 0 : all[std::min(level(), all.size() - 1)];
}

DuringAction::DuringAction(Long action) : before_(actions().byLevel) { setPresent(action); }

DuringAction::~DuringAction() { actions().byLevel = std::move(before_); }

ActionWatch::ActionWatch(QObject* parent) : QObject(parent) {
  QCoreApplication::instance()->installEventFilter(this);
}

bool ActionWatch::eventFilter(QObject* receiver, QEvent* event) {
  switch (meaningOf(*receiver, *event)) {
    case Meaning::Begins:
      setPresent(++actions().last);
      break;
    case Meaning::GoesOn:
      setPresent(actions().last);
      break;
    case Meaning::Background:
      setPresent(0);
      break;
    case Meaning::None:
      break;
  }
  return false;
}

}  // namespace tessaria::qt
