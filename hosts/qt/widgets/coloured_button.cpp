#include "hosts/qt/widgets/coloured_button.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "hosts/qt/conversion/colours.h"

namespace tessaria::qt {
namespace {

/// Pixels by which the caption moves down with the pressed button.
constexpr int kSink = 1;

}  // namespace

ColouredButton::ColouredButton(const QString& caption, QWidget* parent)
    : QPushButton(caption, parent), caption_(caption) {}

void ColouredButton::setTextColour(Colour colour) {
  colour_ = colour;
  setText(QString(caption_).replace(QLatin1Char('&'), QLatin1String("&&")));
  update();
}

// A button with the system's face needs no palette of its own, and so follows the theme.
void ColouredButton::setBackColour(Colour colour) {
  backColour_ = colour;
  QPalette own;
  if (colour != host::colour::ButtonFace)
    own.setColor(QPalette::Button, toQColor(colour, QPalette()));
  setPalette(own);
}

/// The colour, adjusted if it is not readable on the background.
QColor ColouredButton::penColour() const {
  if (!isEnabled()) return palette().color(QPalette::Disabled, QPalette::ButtonText);
  const QColor wanted = toQColor(*colour_, palette());
  return isSystemColour(*colour_) ? wanted : readableOn(wanted, palette().color(QPalette::Button));
}

void ColouredButton::keyPressEvent(QKeyEvent* event) {
  const bool presses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  presses ? click() : QPushButton::keyPressEvent(event);
}

void ColouredButton::paintEvent(QPaintEvent* event) {
  if (!colour_) return QPushButton::paintEvent(event);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  QStylePainter painter(this);
  painter.drawControl(QStyle::CE_PushButton, option);
  painter.setPen(penColour());
  const int sink = option.state.testFlag(QStyle::State_Sunken) ? kSink : 0;
  painter.drawText(rect().translated(sink, sink), Qt::AlignCenter | Qt::TextSingleLine, caption_);
}

}  // namespace tessaria::qt
