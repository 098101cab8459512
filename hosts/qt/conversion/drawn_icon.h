// The library's own icons, drawn for light and dark themes.
#pragma once

#include <QIcon>
#include <optional>

namespace tessaria::qt {

enum class DrawnShape {
  Dots,
  Calendar,
  Folder,
  Calculator,
  Confirm,
  Back,
  Search,
  Drive,
  First,
  Previous,
  Next,
  Last
};

/// Sharp at every size and density, in colours that contrast with a light or a dark ground; without
/// a ground that of the application's palette, also when it changes later. All that ask for the
/// same share one icon.
QIcon drawnIcon(DrawnShape shape, std::optional<bool> onDark = {});

}  // namespace tessaria::qt
