#include "apps/demo/dark_palette.h"

namespace tessaria::demo {

QPalette darkPalette() {
  QPalette dark(QColor(50, 50, 53));
  dark.setColor(QPalette::Base, QColor(32, 32, 34));
  dark.setColor(QPalette::AlternateBase, QColor(40, 40, 43));
  dark.setColor(QPalette::Highlight, QColor(38, 110, 160));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::ToolTipBase, QColor(70, 70, 74));
  dark.setColor(QPalette::ToolTipText, Qt::white);
  const QColor text(230, 230, 230);
  const QColor disabled(140, 140, 140);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(role, text);
    dark.setColor(QPalette::Disabled, role, disabled);
  }
  return dark;
}

}  // namespace tessaria::demo
