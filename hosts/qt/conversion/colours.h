// Colours of the object model in Qt: system colours are the theme's own.
#pragma once

#include <QColor>
#include <QPalette>

#include "tessaria/string.h"

namespace tessaria::qt {

bool isSystemColour(Colour colour);

/// A system colour is looked up in the palette; an unknown index is the window's text colour.
QColor toQColor(Colour colour, const QPalette& palette);
Colour toColour(const QColor& colour);

/// Whether a box of that background shows the theme's own: one of the system's colour, and under
/// `Comforts::DarkPalette` a white one in a dark theme.
bool isThemesBase(Colour colour, const QPalette& theme);
bool isDark(const QPalette& theme);
/// Whether what is drawn for a light theme has to be drawn light now.
bool wantsLightVariants(const QPalette& theme);

bool isReadableOn(const QColor& fore, const QColor& back);
/// Black or white, whichever reads better.
QColor textColourOn(const QColor& back);
/// `fore`, or the nearest to it that can be read on `back`: blended towards black or white.
QColor readableOn(const QColor& fore, const QColor& back);

}  // namespace tessaria::qt
