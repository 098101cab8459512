#include "hosts/qt/conversion/drawn_icon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <map>
#include <utility>

#include "hosts/qt/conversion/colours.h"

namespace tessaria::qt {
namespace {

/// Side of the square that the icons are drawn in.
constexpr qreal kSide = 16;

struct Inks {
  QColor line;
  QColor accent;
};

Inks inksFor(bool dark) {
  if (dark) return {QColor(0xE8, 0xEA, 0xED), QColor(0x8A, 0xB4, 0xF8)};
  return {QColor(0x3A, 0x3F, 0x47), QColor(0x1C, 0x63, 0xB7)};
}

void outline(QPainter& painter, const QColor& ink) {
  QPen pen(ink, 1);
  pen.setJoinStyle(Qt::RoundJoin);
  painter.setPen(pen);
  painter.setBrush(Qt::NoBrush);
}

void fill(QPainter& painter, const QColor& ink) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
}

void drawDots(QPainter& painter, const Inks& inks) {
  fill(painter, inks.line);
  for (const qreal x : {3.0, 8.0, 13.0}) painter.drawEllipse(QPointF(x, 10.5), 1.5, 1.5);
}

void drawCalendar(QPainter& painter, const Inks& inks) {
  fill(painter, inks.accent);
  painter.drawRect(QRectF(2, 3, 12, 3));
  outline(painter, inks.line);
  painter.drawRect(QRectF(1.5, 2.5, 13, 12));
  fill(painter, inks.line);
  for (const qreal x : {4.0, 10.0}) painter.drawRect(QRectF(x, 1, 2, 3));
  for (const qreal y : {8.0, 11.0})
    for (const qreal x : {4.0, 7.0, 10.0}) painter.drawRect(QRectF(x, y, 2, 2));
}

void drawFolder(QPainter& painter, const Inks& inks) {
  QPainterPath folder;
  folder.moveTo(1.5, 13.5);
  folder.lineTo(1.5, 2.5);
  folder.lineTo(6.5, 2.5);
  folder.lineTo(8.5, 4.5);
  folder.lineTo(14.5, 4.5);
  folder.lineTo(14.5, 13.5);
  folder.closeSubpath();
  fill(painter, inks.accent);
  painter.drawRect(QRectF(2, 7, 12, 6));
  outline(painter, inks.line);
  painter.drawPath(folder);
}

void drawCalculator(QPainter& painter, const Inks& inks) {
  fill(painter, inks.accent);
  painter.drawRect(QRectF(4, 3, 8, 3));
  outline(painter, inks.line);
  painter.drawRect(QRectF(2.5, 1.5, 11, 13));
  fill(painter, inks.line);
  for (const qreal y : {8.0, 11.0})
    for (const qreal x : {4.0, 7.0, 10.0}) painter.drawRect(QRectF(x, y, 2, 2));
}

/// Lines that are as clear as the filled shapes.
void stroke(QPainter& painter, const QColor& ink, qreal width) {
  painter.setPen(QPen(ink, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
}

void drawConfirm(QPainter& painter, const Inks& inks) {
  stroke(painter, inks.accent, 2.2);
  painter.drawPolyline(QPolygonF({{2.5, 8.5}, {6.5, 12.5}, {13.5, 4}}));
}

void drawBack(QPainter& painter, const Inks& inks) {
  stroke(painter, inks.line, 2);
  painter.drawLine(QPointF(3, 8), QPointF(13, 8));
  painter.drawPolyline(QPolygonF({{7, 3.5}, {2.5, 8}, {7, 12.5}}));
}

void drawSearch(QPainter& painter, const Inks& inks) {
  stroke(painter, inks.accent, 1.8);
  painter.drawEllipse(QPointF(6.5, 6.5), 4, 4);
  stroke(painter, inks.line, 2.2);
  painter.drawLine(QPointF(9.8, 9.8), QPointF(13.5, 13.5));
}

void drawDrive(QPainter& painter, const Inks& inks) {
  outline(painter, inks.line);
  painter.drawRoundedRect(QRectF(1.5, 4.5, 13, 7), 1.5, 1.5);
  fill(painter, inks.accent);
  painter.drawEllipse(QPointF(11.5, 8), 1.5, 1.5);
}

/// One step among rows, or the step to their end, before a bar.
void drawSteps(QPainter& painter, const Inks& inks, bool back, bool toTheEnd) {
  if (back) {
    painter.translate(kSide, 0);
    painter.scale(-1, 1);
  }
  fill(painter, inks.line);
  const qreal left = toTheEnd ? 3 : 5;
  painter.drawPolygon(QPolygonF({{left, 3}, {left + 7, 8}, {left, 13}}));
  if (toTheEnd) painter.drawRect(QRectF(11, 3, 2, 10));
}

void drawFirst(QPainter& painter, const Inks& inks) { drawSteps(painter, inks, true, true); }
void drawPrevious(QPainter& painter, const Inks& inks) { drawSteps(painter, inks, true, false); }
void drawNext(QPainter& painter, const Inks& inks) { drawSteps(painter, inks, false, false); }
void drawLast(QPainter& painter, const Inks& inks) { drawSteps(painter, inks, false, true); }

using Drawing = void (*)(QPainter& painter, const Inks& inks);

Drawing drawingOf(DrawnShape shape) {
  switch (shape) {
    case DrawnShape::Dots:
      return drawDots;
    case DrawnShape::Calendar:
      return drawCalendar;
    case DrawnShape::Folder:
      return drawFolder;
    case DrawnShape::Calculator:
      return drawCalculator;
    case DrawnShape::Confirm:
      return drawConfirm;
    case DrawnShape::Back:
      return drawBack;
    case DrawnShape::Search:
      return drawSearch;
    case DrawnShape::Drive:
      return drawDrive;
    case DrawnShape::First:
      return drawFirst;
    case DrawnShape::Previous:
      return drawPrevious;
    case DrawnShape::Next:
      return drawNext;
    case DrawnShape::Last:
      break;
  }
  return drawLast;
}

class DrawnIcon final : public QIconEngine {
 public:
  DrawnIcon(DrawnShape shape, std::optional<bool> onDark) : shape_(shape), onDark_(onDark) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(area.topLeft());
    painter->scale(area.width() / kSide, area.height() / kSide);
    if (mode == QIcon::Disabled) painter->setOpacity(0.4);
    drawingOf(shape_)(*painter, inksFor(isOnDark()));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    const QString key = QStringLiteral("tessaria %1 %2 %3 %4x%5")
                            .arg(int(shape_))
                            .arg(isOnDark())
                            .arg(mode == QIcon::Disabled)
                            .arg(size.width())
                            .arg(size.height());
    QPixmap drawn;
    if (QPixmapCache::find(key, &drawn)) return drawn;
    drawn = QPixmap(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, QRect(QPoint(), size), mode, state);
    painter.end();
    QPixmapCache::insert(key, drawn);
    return drawn;
  }

  QIconEngine* clone() const override { return new DrawnIcon(*this); }

 private:
  bool isOnDark() const { return onDark_.value_or(isDark(QGuiApplication::palette())); }

  const DrawnShape shape_;
  const std::optional<bool> onDark_;
};

}  // namespace

QIcon drawnIcon(DrawnShape shape, std::optional<bool> onDark) {
  static std::map<std::pair<DrawnShape, std::optional<bool>>, QIcon> icons;
  QIcon& icon = icons[{shape, onDark}];
  if (icon.isNull()) icon = QIcon(new DrawnIcon(shape, onDark));
  return icon;
}

}  // namespace tessaria::qt
