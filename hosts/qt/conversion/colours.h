// Colours of the object model in Qt: system colours come from the theme.
#pragma once

#include <QColor>
#include <QPalette>

#include "tessaria/string.h"

namespace tessaria::qt {

bool isSystemColour(Colour colour);

/// A system colour is looked up in the palette; an unknown index is the window's text colour.
QColor toQColor(Colour colour, const QPalette& palette);
Colour toColour(const QColor& colour);

/// Whether a box with that background uses the theme's base colour: one with the system's colour,
/// and under `Comforts::DarkPalette` a white one in a dark theme.
bool isThemesBase(Colour colour, const QPalette& theme);
bool isDark(const QPalette& theme);
/// Whether drawings made for a light theme must now be drawn in light colours.
bool wantsLightVariants(const QPalette& theme);

bool isReadableOn(const QColor& fore, const QColor& back);
/// Black or white, whichever is more readable.
QColor textColourOn(const QColor& back);
/// `fore`, or the nearest colour that is readable on `back`: blended towards black or white.
QColor readableOn(const QColor& fore, const QColor& back);

}  // namespace tessaria::qt
