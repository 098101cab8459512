// Conversion between the twips of the ports and the pixels of Qt.
#pragma once

#include <QWidget>
#include <cmath>

#include "tessaria/string.h"

namespace tessaria::qt {

inline constexpr int kTwipsPerInch = 1440;

inline Long twipsX(int pixels, const QWidget& widget) {
  return static_cast<Long>(std::lround(double(pixels) * kTwipsPerInch / widget.logicalDpiX()));
}
inline Long twipsY(int pixels, const QWidget& widget) {
  return static_cast<Long>(std::lround(double(pixels) * kTwipsPerInch / widget.logicalDpiY()));
}
inline int pixelsX(Long twips, const QWidget& widget) {
  return static_cast<int>(std::lround(double(twips) * widget.logicalDpiX() / kTwipsPerInch));
}
inline int pixelsY(Long twips, const QWidget& widget) {
  return static_cast<int>(std::lround(double(twips) * widget.logicalDpiY() / kTwipsPerInch));
}

}  // namespace tessaria::qt
