// Texts between the core and Qt: both count in UTF-16 units.
#pragma once

#include <QString>

#include "tessaria/string.h"

namespace tessaria::qt {

/// A text of the core for Qt.
inline QString toQt(StringView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

/// A text of Qt for the core.
inline String fromQt(const QString& text) { return text.toStdU16String(); }

}  // namespace tessaria::qt
