#include "hosts/qt/control/field_icons.h"

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/drawn_icon.h"

namespace tessaria::qt {
namespace {

std::optional<DrawnShape> shapeOf(TipoControle kind) {
  switch (kind) {
    case TipoControle::Browse:
    case TipoControle::Descricao:
      return DrawnShape::Dots;
    case TipoControle::Calendario:
      return DrawnShape::Calendar;
    case TipoControle::Diretorio:
      return DrawnShape::Folder;
    case TipoControle::Calculadora:
      return DrawnShape::Calculator;
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
