#include "hosts/qt/widgets/tool_bar.h"

#include <QKeyEvent>

#include "hosts/qt/conversion/drawn_icon.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

constexpr StringView kSeparator = u"-";

/// A caption has no mnemonic: two captions may begin with the same letter.
QString literal(StringView text) {
  return toQt(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace

void MenuButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down && isEnabled()) return showMenu();
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QToolButton::keyPressEvent(event);
}

DialogToolBar::DialogToolBar(const QString& caption, const QString& toolTip, QWidget* parent)
    : QToolBar(parent), button_(new MenuButton(this)) {
  button_->setText(caption);
  button_->setToolTip(toolTip);
  button_->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
  button_->setIcon(drawnIcon(DrawnShape::Search));
  button_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button_->setPopupMode(QToolButton::MenuButtonPopup);
  button_->setFocusPolicy(Qt::TabFocus);
  button_->setMenu(new QMenu(button_));
  addWidget(button_);
  setFocusProxy(button_);
}

ToolBarItem::ToolBarItem(DialogToolBar& bar, const DialogGate& gate)
    : DialogItemOf(bar, gate), bar_(bar), menu_(*bar.button().menu()) {
  QObject::connect(&bar.button(), &QToolButton::clicked, &bar,
                   [this] { this->gate().raise(OnButtonClick); });
}

bool ToolBarItem::ButtonEnabled() const { return bar_.button().isEnabledTo(&bar_); }

void ToolBarItem::Menu(Long position, const host::MenuEntry& entry) {
  entries_[index(position)] = entry;
  buildMenu();
}

void ToolBarItem::AddMenu(const host::MenuEntry& entry) {
  entries_.push_back(entry);
  buildMenu();
}

std::size_t ToolBarItem::index(Long position) const {
  if (position < 1 || position > MenuCount()) throw HostError(errors::SubscriptOutOfRange);
  return static_cast<std::size_t>(position - 1);
}

void ToolBarItem::buildMenu() {
  menu_.clear();
  Long position = 0;
  for (const host::MenuEntry& entry : entries_) {
    ++position;
    if (entry.Text == kSeparator) {
      menu_.addSeparator();
      continue;
    }
    QString text = literal(entry.Text);
    if (bar_.keysOf) text += QLatin1Char('\t') + toQt(bar_.keysOf(position));
    QObject::connect(menu_.addAction(text), &QAction::triggered, &bar_, [this, position] {
      Long chosen = position;
      this->gate().raise(OnMenuClick, chosen);
    });
  }
}

}  // namespace tessaria::qt
