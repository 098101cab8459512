#include "hosts/qt/conversion/colours.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "tessaria/comforts.h"
#include "tessaria/host/widgets.h"

namespace tessaria::qt {
namespace {

constexpr Colour kSystemBit = 0x80000000;

struct ThemeColour {
  QPalette::ColorGroup group;
  QPalette::ColorRole role;
};

/// System colours by index.
constexpr ThemeColour kThemeColours[] = {
    {QPalette::Active, QPalette::Mid},              // scroll bar
    {QPalette::Active, QPalette::Window},           // desktop
    {QPalette::Active, QPalette::Highlight},        // active caption
    {QPalette::Inactive, QPalette::Highlight},      // inactive caption
    {QPalette::Active, QPalette::Window},           // menu
    {QPalette::Active, QPalette::Base},             // window background
    {QPalette::Active, QPalette::Dark},             // window frame
    {QPalette::Active, QPalette::WindowText},       // menu text
    {QPalette::Active, QPalette::Text},             // window text
    {QPalette::Active, QPalette::HighlightedText},  // caption text
    {QPalette::Active, QPalette::Button},           // active border
    {QPalette::Inactive, QPalette::Button},         // inactive border
    {QPalette::Active, QPalette::Mid},              // application workspace
    {QPalette::Active, QPalette::Highlight},        // highlight
    {QPalette::Active, QPalette::HighlightedText},  // highlighted text
    {QPalette::Active, QPalette::Button},           // button face
    {QPalette::Active, QPalette::Dark},             // button shadow
    {QPalette::Disabled, QPalette::Text},           // gray text
    {QPalette::Active, QPalette::ButtonText},       // button text
    {QPalette::Inactive, QPalette::WindowText},     // inactive caption text
    {QPalette::Active, QPalette::Light},            // button highlight
    {QPalette::Active, QPalette::Shadow},           // dark shadow
    {QPalette::Active, QPalette::Midlight},         // light edge
    {QPalette::Active, QPalette::ToolTipText},      // tool tip text
    {QPalette::Active, QPalette::ToolTipBase},      // tool tip background
};

/// The minimum contrast at which a text counts as readable.
constexpr double kLeastContrast = 4.5;

double linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& c) {
  return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

double contrast(const QColor& a, const QColor& b) {
  const double la = luminance(a);
  const double lb = luminance(b);
  return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

QColor blend(const QColor& from, const QColor& to, double part) {
  const auto mix = [part](float a, float b) { return static_cast<float>(a + (b - a) * part); };
  return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                          mix(from.blueF(), to.blueF()));
}

}  // namespace

bool isSystemColour(Colour colour) { return (colour & kSystemBit) != 0; }

QColor toQColor(Colour colour, const QPalette& palette) {
  if (!isSystemColour(colour))
    return QColor(int(colour & 0xFF), int(colour >> 8 & 0xFF), int(colour >> 16 & 0xFF));
  const Colour index = colour & ~kSystemBit;
  if (index >= std::size(kThemeColours)) return palette.color(QPalette::WindowText);
  return palette.color(kThemeColours[index].group, kThemeColours[index].role);
}

Colour toColour(const QColor& colour) {
  return static_cast<Colour>(colour.red()) | static_cast<Colour>(colour.green()) << 8 |
         static_cast<Colour>(colour.blue()) << 16;
}

bool isDark(const QPalette& theme) {
  return luminance(theme.color(QPalette::Window)) < luminance(theme.color(QPalette::WindowText));
}

bool wantsLightVariants(const QPalette& theme) { return comforts().DarkPalette && isDark(theme); }

bool isThemesBase(Colour colour, const QPalette& theme) {
  return colour == host::colour::WindowBackground ||
         (colour == host::colour::White && wantsLightVariants(theme));
}

QColor textColourOn(const QColor& back) {
  const QColor black(Qt::black), white(Qt::white);
  return contrast(black, back) > contrast(white, back) ? black : white;
}

bool isReadableOn(const QColor& fore, const QColor& back) {
  return contrast(fore, back) >= kLeastContrast;
}

QColor readableOn(const QColor& fore, const QColor& back) {
  if (isReadableOn(fore, back)) return fore;
  const QColor end = textColourOn(back);
  for (double part = 0.1; part < 1; part += 0.1) {
    const QColor nearer = blend(fore, end, part);
    if (isReadableOn(nearer, back)) return nearer;
  }
  return end;
}

}  // namespace tessaria::qt
