#include "hosts/qt/boundary/wait_input.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QThread>
#include <QVariant>
#include <algorithm>
#include <utility>

namespace tessaria::qt {
namespace {

bool isPointer(QEvent::Type type) {
  switch (type) {
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

// Of this thread.
WaitInput*& innermost() {
  static thread_local WaitInput* wait = nullptr;
  return wait;
}

// A dynamic property of a window.
constexpr char kByFrame[] = "_tessaria_closes_by_frame";

void closeLater(QWidget* window, bool byFrame) {
  runLater(window, [window, byFrame] {
    const QPointer<QWidget> alive(window);
    if (byFrame) window->setProperty(kByFrame, true);
    window->close();
    if (alive) alive->setProperty(kByFrame, QVariant());
  });
}

bool isEscape(QEvent* event) { return static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape; }

}  // namespace

WaitInput::WaitInput()
    : outer_(std::exchange(innermost(), this)), loopLevel_(QThread::currentThread()->loopLevel()) {
  QCoreApplication::instance()->installEventFilter(this);
}

WaitInput::~WaitInput() {
  QCoreApplication::instance()->removeEventFilter(this);
  innermost() = outer_;
  for (KeptRule& kept : rules_)
    if (kept.context) runLater(kept.context, std::move(kept.rule));
  for (Kept& kept : kept_)
    if (kept.receiver) QCoreApplication::postEvent(kept.receiver, kept.event.release());
  for (const Closing& closing : closing_)
    if (closing.window) closeLater(closing.window, closing.byFrame);
}

bool WaitInput::isUnderWay() {
  return innermost() && QThread::currentThread()->loopLevel() <= innermost()->loopLevel_;
}

void WaitInput::keep(QObject& context, std::function<void()> rule) {
  innermost()->rules_.push_back({&context, std::move(rule)});
}

bool WaitInput::takeEscape() { return std::exchange(escape_, false); }

bool WaitInput::eventFilter(QObject* receiver, QEvent* event) {
  if (QThread::currentThread()->loopLevel() > loopLevel_) return false;
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      event->accept();  // the key comes as a key, and no shortcut is taken
      return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return holdKey(receiver, event);
    case QEvent::InputMethod:
      kept_.push_back({receiver, std::unique_ptr<QEvent>(event->clone())});
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      isPressed_ = true;
      return true;
    case QEvent::MouseButtonRelease:
      // Without it a button or an arrow that was pressed before would stay so.
      if (!std::exchange(isPressed_, false))
        kept_.push_back({receiver, std::unique_ptr<QEvent>(event->clone())});
      return true;
    case QEvent::Close:
      return holdClosing(receiver, event);
    default:
      return isPointer(event->type());
  }
}

// A window that is asked to close more than once is closed once.
bool WaitInput::holdClosing(QObject* receiver, QEvent* event) {
  auto* const window = qobject_cast<QWidget*>(receiver);
  if (!window) return false;
  event->ignore();
  const auto isKnown = [&](const Closing& closing) { return closing.window == window; };
  if (std::none_of(closing_.begin(), closing_.end(), isKnown))
    closing_.push_back({window, event->spontaneous()});
  return true;
}

// Escape is no key of a field here, neither its press nor its release.
bool WaitInput::holdKey(QObject* receiver, QEvent* event) {
  event->accept();
  if (!isEscape(event)) {
    kept_.push_back({receiver, std::unique_ptr<QEvent>(event->clone())});
  } else if (event->type() == QEvent::KeyPress && !static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
    escape_ = true;
  }
  return true;
}

void runLater(QObject* context, std::function<void()> rule) {
  QMetaObject::invokeMethod(
      context,
      [context, rule = std::move(rule)]() mutable {
        WaitInput::isUnderWay() ? WaitInput::keep(*context, std::move(rule)) : rule();
      },
      Qt::QueuedConnection);
}

bool closesByFrame(const QObject& window, const QEvent& close) {
  return close.spontaneous() || window.property(kByFrame).toBool();
}

}  // namespace tessaria::qt
