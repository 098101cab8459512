#include "hosts/qt/control/field_icons.h"

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

using Drawing = void (*)(QPainter& painter, const Inks& inks);

Drawing drawingOf(TipoControle kind) {
  switch (kind) {
    case TipoControle::Browse:
    case TipoControle::Descricao:
      return drawDots;
    case TipoControle::Calendario:
      return drawCalendar;
    case TipoControle::Diretorio:
      return drawFolder;
    case TipoControle::Calculadora:
      return drawCalculator;
    case TipoControle::Normal:
      break;
  }
  return nullptr;
}

class FieldIcon final : public QIconEngine {
 public:
  FieldIcon(TipoControle kind, bool dark) : kind_(kind), dark_(dark) {}

  void paint(QPainter* painter, const QRect& area, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(area.topLeft());
    painter->scale(area.width() / kSide, area.height() / kSide);
    if (mode == QIcon::Disabled) painter->setOpacity(0.4);
    drawingOf(kind_)(*painter, inksFor(dark_));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    const QString key = QStringLiteral("tessaria %1 %2 %3 %4x%5")
                            .arg(int(kind_))
                            .arg(dark_)
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

  QIconEngine* clone() const override { return new FieldIcon(*this); }

 private:
  const TipoControle kind_;
  const bool dark_;
};

}  // namespace

QIcon fieldIcon(TipoControle kind, const QPalette& theme) {
  static std::map<std::pair<TipoControle, bool>, QIcon> icons;
  if (!drawingOf(kind)) return {};
  const bool dark = isDark(theme);
  QIcon& icon = icons[{kind, dark}];
  if (icon.isNull()) icon = QIcon(new FieldIcon(kind, dark));
  return icon;
}

}  // namespace tessaria::qt
