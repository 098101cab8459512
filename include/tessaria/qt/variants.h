// Values between the core and Qt.
#pragma once

#include <QVariant>

#include "tessaria/export.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/variant.h"

namespace tessaria::qt {

/// Empty is an invalid QVariant, Null a QVariant of nullptr. Whole numbers are int, all others
/// double; an exact number that a double would round is a qlonglong, or the text of all its digits
/// with a comma; a date is a QDate, with a time a QDateTime; an object is an `ObjectPtr`.
TESSARIA_QT_API QVariant toQVariant(const Variant& value);

/// The reverse conversion. A null QVariant of any type, as Qt's models have it, and a date that is
/// not valid are Null. A whole number is a Long when it fits, else a Decimal; a colour is its
/// number, a font a `host::Font`, an enumeration its number, and a null connection is Empty. Error
/// 13 for a kind without a counterpart.
TESSARIA_QT_API Variant toVariant(const QVariant& value);

}  // namespace tessaria::qt
