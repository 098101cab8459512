#include "hosts/qt/conversion/fonts.h"

#include <QFontInfo>

#include "tessaria/qt/text.h"

namespace tessaria::qt {

host::Font toFont(const QFont& font) {
  host::Font out;
  out.Name = fromQt(font.family());
  out.Size = font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
  out.Bold = font.bold();
  out.Italic = font.italic();
  out.Underline = font.underline();
  out.Strikethrough = font.strikeOut();
  return out;
}

QFont toQFont(const host::Font& font, const QFont& surrounding) {
  const host::Font around = toFont(surrounding);
  QFont out;
  if (font.Name != around.Name && !font.Name.empty()) out.setFamily(toQt(font.Name));
  if (font.Size != around.Size && font.Size > 0) out.setPointSizeF(font.Size);
  if (font.Bold != around.Bold) out.setBold(font.Bold);
  if (font.Italic != around.Italic) out.setItalic(font.Italic);
  if (font.Underline != around.Underline) out.setUnderline(font.Underline);
  if (font.Strikethrough != around.Strikethrough) out.setStrikeOut(font.Strikethrough);
  return out;
}

}  // namespace tessaria::qt
