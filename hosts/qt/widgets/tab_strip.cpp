#include "hosts/qt/widgets/tab_strip.h"

#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStyleOptionTab>
#include <utility>

#include "hosts/qt/form/pages.h"

namespace tessaria::qt {

// --- Tabs ---------------------------------------------------------------------------------------

TabBar::TabBar(QWidget* parent) : QTabBar(parent) { setFocusPolicy(Qt::StrongFocus); }

void TabBar::setOpen(int page, bool open) {
  open ? void(closed_.remove(page)) : void(closed_.insert(page));
  apply();
}

void TabBar::apply() {
  for (int page = 0; page < count(); ++page)
    setTabEnabled(page, isOpen(page) || page == currentIndex());
  update();
}

void TabBar::initStyleOption(QStyleOptionTab* option, int page) const {
  QTabBar::initStyleOption(option, page);
  if (isOpen(page)) return;
  option->state &= ~QStyle::State_Enabled;
  option->palette.setCurrentColorGroup(QPalette::Disabled);
}

void TabBar::mousePressEvent(QMouseEvent* event) {
  const int front = currentIndex();
  QTabBar::mousePressEvent(event);
  const bool clicksFront = event->button() == Qt::LeftButton && currentIndex() == front &&
                           tabAt(event->position().toPoint()) == front;
  if (clicksFront && isOpen(front) && frontClicked) frontClicked();
}

// --- Pages --------------------------------------------------------------------------------------

TabStrip::TabStrip(QWidget* parent) : QTabWidget(parent), bar_(new TabBar(this)) {
  setTabBar(bar_);
  setElideMode(Qt::ElideNone);
  setProperty(kPagesStay, true);
  connect(this, &QTabWidget::currentChanged, this, &TabStrip::turned);
  bar_->frontClicked = [this] { report(front_); };
  connect(new QShortcut(Qt::CTRL | Qt::Key_PageDown, this), &QShortcut::activated, this,
          [this] { turnBy(1); });
  connect(new QShortcut(Qt::CTRL | Qt::Key_PageUp, this), &QShortcut::activated, this,
          [this] { turnBy(-1); });
}

void TabStrip::turnBy(int step) {
  int page = front_ + step;
  while (page >= 0 && page < count() && !bar_->isOpen(page)) page += step;
  if (page >= 0 && page < count()) setCurrentIndex(page);
}

void TabStrip::bringToFront(int page) {
  const QScopedValueRollback echo(assigning_, true);
  setCurrentIndex(page);
}

void TabStrip::report(int previous) {
  if (chosen) chosen(previous);
}

void TabStrip::turned(int page) {
  const int previous = std::exchange(front_, page);
  bar_->apply();
  if (!assigning_) report(previous);
}

}  // namespace tessaria::qt
