#include "apps/demo/play/scene.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>

namespace tessaria::demo {
namespace {

constexpr int kTitleHeight = 26;  // pixels

int titleHeight(const QWidget& window) {
  return qobject_cast<const QMenu*>(&window) ? 0 : kTitleHeight;
}

/// The place on the screen, with the title bar.
QRect placeOf(const QWidget& window) {
  return QRect(window.mapToGlobal(QPoint()), window.size()).adjusted(0, -titleHeight(window), 0, 0);
}

void drawTitle(QPainter& painter, const QRect& place, const QString& title) {
  const QPalette palette = QApplication::palette();
  painter.fillRect(place, palette.color(QPalette::Highlight));
  painter.setPen(palette.color(QPalette::HighlightedText));
  painter.drawText(place.adjusted(8, 0, -8, 0), Qt::AlignVCenter | Qt::AlignLeft, title);
}

void drawInFront(QPainter& painter, QWidget& window) {
  const QRect place = placeOf(window);
  const int title = titleHeight(window);
  drawTitle(painter, QRect(place.topLeft(), QSize(place.width(), title)), window.windowTitle());
  painter.drawPixmap(place.topLeft() + QPoint(0, title), window.grab());
  painter.setPen(QApplication::palette().color(QPalette::Shadow));
  painter.drawRect(place.adjusted(0, 0, -1, -1));
}

}  // namespace

QPixmap pictureOf(QWidget& window, const QList<QPointer<QWidget>>& inFront) {
  const QRect own(window.mapToGlobal(QPoint()), window.size());
  QRect all = own;
  for (const auto& each : inFront)
    if (each && each->isVisible()) all |= placeOf(*each);
  const qreal ratio = window.devicePixelRatioF();
  QPixmap picture((QSizeF(all.size()) * ratio).toSize());
  picture.setDevicePixelRatio(ratio);
  picture.fill(QApplication::palette().color(QPalette::Dark));
  QPainter painter(&picture);
  painter.translate(-all.topLeft());
  painter.drawPixmap(own.topLeft(), window.grab());
  for (const auto& each : inFront)
    if (each && each->isVisible()) drawInFront(painter, *each);
  return picture;
}

}  // namespace tessaria::demo
