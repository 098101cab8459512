#include "tessaria/qt/variants.h"

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <cmath>
#include <limits>

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/fonts.h"
#include "runtime/digits.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

QVariant fromDate(Date date) {
  const CivilTime t = ToCivil(date);
  const QDate day(t.Year, t.Month, t.Day);
  if (date.Days == std::floor(date.Days)) return day;
  return QDateTime(day, QTime(t.Hour, t.Minute, t.Second));
}

Date toDate(const QDateTime& moment) {
  const QDate d = moment.date();
  const QTime t = moment.time();
  return FromCivil({d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second()});
}

Variant fromMagnitude(qulonglong magnitude, bool negative) {
  Decimal number;
  number.Magnitude = {static_cast<std::uint32_t>(magnitude),
                      static_cast<std::uint32_t>(magnitude >> 32), 0};
  number.Negative = negative;
  return number;
}

Variant fromWhole(qlonglong number) {
  if (number >= std::numeric_limits<Long>::min() && number <= std::numeric_limits<Long>::max())
    return static_cast<Long>(number);
  const auto bits = static_cast<qulonglong>(number);
  return number < 0 ? fromMagnitude(0 - bits, true) : fromMagnitude(bits, false);
}

Variant fromUnsigned(qulonglong number) {
  if (number > qulonglong(std::numeric_limits<qlonglong>::max()))
    return fromMagnitude(number, false);
  return fromWhole(static_cast<qlonglong>(number));
}

/// A double if it holds all digits of the number; otherwise a whole number, or the text of all
/// digits.
QVariant fromExact(const Variant& value) {
  const Digits exact = DigitsOf(value);
  const double number = CDbl(value);
  if (Order(DigitsOf(number), exact) == std::strong_ordering::equal) return number;
  const QString text = toQt(CStr(value));
  bool isWhole = false;
  const qlonglong whole = text.toLongLong(&isWhole);
  return isWhole ? QVariant(whole) : QVariant(text);
}

/// A handle that refers to nothing is no null value.
bool isPointer(const QVariant& value) {
  return value.metaType() == QMetaType::fromType<ObjectPtr>() ||
         value.metaType() == QMetaType::fromType<host::ConnectionPtr>();
}

/// Models of Qt have a null of each type; a date that is not valid is none.
bool isNull(const QVariant& value) {
  switch (value.typeId()) {
    case QMetaType::QDate:
      return !value.toDate().isValid();
    case QMetaType::QDateTime:
      return !value.toDateTime().isValid();
    case QMetaType::QTime:
      return !value.toTime().isValid();
    default:
      return value.isValid() && value.isNull() && !isPointer(value);
  }
}

Variant fromOther(const QVariant& value) {
  if (value.metaType() == QMetaType::fromType<ObjectPtr>()) return value.value<ObjectPtr>();
  if (value.metaType() == QMetaType::fromType<host::ConnectionPtr>()) {
    const auto connection = value.value<host::ConnectionPtr>();
    return connection ? Variant(connection) : Variant();  // the form may have none yet
  }
  if (value.metaType().flags() & QMetaType::IsEnumeration) return fromWhole(value.toLongLong());
  if (!value.canConvert<QString>()) throw HostError(errors::TypeMismatch);
  return fromQt(value.toString());
}

}  // namespace

QVariant toQVariant(const Variant& value) {
  switch (value.Type()) {
    case Variant::Kind::Empty:
    case Variant::Kind::Missing:
      return {};
    case Variant::Kind::Null:
      return QVariant::fromValue(nullptr);
    case Variant::Kind::Integer:
    case Variant::Kind::Long:
      return CLng(value);
    case Variant::Kind::Single:
    case Variant::Kind::Double:
      return CDbl(value);
    case Variant::Kind::Currency:
    case Variant::Kind::Decimal:
      return fromExact(value);
    case Variant::Kind::Date:
      return fromDate(*value.TryGet<Date>());
    case Variant::Kind::String:
      return toQt(*value.TryGet<String>());
    case Variant::Kind::Object:
      return QVariant::fromValue(*value.TryGet<ObjectPtr>());
    case Variant::Kind::Boolean:
      return *value.TryGet<bool>();
  }
  return {};
}

Variant toVariant(const QVariant& value) {
  if (isNull(value)) return Variant::Null();
  switch (value.typeId()) {
    case QMetaType::UnknownType:
      return {};
    case QMetaType::Bool:
      return value.toBool();
    case QMetaType::Short:
      return static_cast<Integer>(value.toInt());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::Char:
      return fromWhole(value.toLongLong());
    case QMetaType::ULongLong:
    case QMetaType::ULong:
      return fromUnsigned(value.toULongLong());
    case QMetaType::Double:
      return value.toDouble();
    case QMetaType::Float:
      return value.toFloat();
    case QMetaType::QDate:
    case QMetaType::QDateTime:
      return toDate(value.toDateTime());
    case QMetaType::QTime:
      return Date{value.toTime().msecsSinceStartOfDay() / 86400000.0};
    case QMetaType::QColor:
      return static_cast<Long>(toColour(value.value<QColor>()));
    case QMetaType::QFont:
      return std::make_shared<host::Font>(toFont(value.value<QFont>()));
    default:
      return fromOther(value);
  }
}

}  // namespace tessaria::qt
