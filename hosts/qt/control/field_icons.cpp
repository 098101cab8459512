#include "hosts/qt/control/field_icons.h"

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/drawn_icon.h"

namespace tessaria::qt {
namespace {

std::optional<Shape> shapeOf(TipoControle kind) {
  switch (kind) {
    case TipoControle::Browse:
    case TipoControle::Descricao:
      return Shape::Dots;
    case TipoControle::Calendario:
      return Shape::Calendar;
    case TipoControle::Diretorio:
      return Shape::Folder;
    case TipoControle::Calculadora:
      return Shape::Calculator;
    case TipoControle::Normal:
      break;
  }
  return {};
}

}  // namespace

QIcon fieldIcon(TipoControle kind, const QPalette& theme) {
  const auto shape = shapeOf(kind);
  return shape ? drawnIcon(*shape, isDark(theme)) : QIcon();
}

}  // namespace tessaria::qt
