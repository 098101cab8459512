// The tagged value that fields, properties and events exchange.
#pragma once

#include <array>
#ifndef Q_MOC_RUN  // Qt's moc cannot read them before other headers
#include <compare>
#include <concepts>
#endif
#include <cstdint>
#include <memory>
#include <utility>
#include <variant>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// Anything that a variant can refer to. Shared ownership: a variant keeps its object alive.
class TESSARIA_CORE_API Object {
 public:
  Object() = default;
  virtual ~Object() = default;

 protected:
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;
};

using ObjectPtr = std::shared_ptr<Object>;

/// A money value: a 64-bit count of ten-thousandths.
struct TESSARIA_CORE_API Currency {
  std::int64_t TenThousandths = 0;
  auto operator<=>(const Currency&) const = default;
};

/// An exact decimal: sign, 96-bit whole number (least significant word first), power of ten.
struct TESSARIA_CORE_API Decimal {
  std::array<std::uint32_t, 3> Magnitude{};
  std::uint8_t Scale = 0;  ///< digits after the decimal mark, 0 to 28
  bool Negative = false;
  /// Compares the digits: 1.5 and 1.50 differ here. `Equal` compares values.
  bool operator==(const Decimal&) const = default;
};

/// A date and time: days since 30 December 1899, the time as the fraction of the day.
struct TESSARIA_CORE_API Date {
  double Days = 0;
  auto operator<=>(const Date&) const = default;
};

/// A value that keeps its kind. The numbers of the kinds are the object model's type codes.
class TESSARIA_CORE_API Variant {
 public:
  enum class Kind : Integer {
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Missing = 10,
    Boolean = 11,
    Decimal = 14
  };

  /// Empty.
  Variant() = default;
  static Variant Null();
  /// The value of an optional argument that was not given.
  static Variant Missing();

  Variant(tessaria::Integer value) : data_(value) {}
  Variant(tessaria::Long value) : data_(value) {}
  Variant(float value) : data_(value) {}
  Variant(double value) : data_(value) {}
  Variant(tessaria::Currency value) : data_(value) {}
  Variant(tessaria::Decimal value) : data_(value) {}
  Variant(tessaria::Date value) : data_(value) {}
  Variant(bool value) : data_(value) {}
  Variant(tessaria::String value) : data_(std::move(value)) {}
  Variant(const char16_t* value) : data_(tessaria::String(value)) {}
  /// An object reference; a null pointer is the reference to nothing.
  Variant(ObjectPtr value) : data_(std::move(value)) {}
  template <class T>
  requires std::derived_from<T, Object> Variant(std::shared_ptr<T> value)
      : data_(ObjectPtr(std::move(value))) {}

  Kind Type() const;
  bool IsEmpty() const { return Type() == Kind::Empty; }
  bool IsNull() const { return Type() == Kind::Null; }
  bool IsMissing() const { return Type() == Kind::Missing; }
  bool IsString() const { return Type() == Kind::String; }
  bool IsObject() const { return Type() == Kind::Object; }
  /// True for every kind that holds a number, Boolean included; a date does not count as one.
  bool IsNumeric() const;

  /// The value held, or nullptr when the variant holds another kind.
  template <class T>
  const T* TryGet() const {
    return std::get_if<T>(&data_);
  }

  /// The object as a T. Errors: 424 when this is not an object, 91 when it is the reference to
  /// nothing, 13 when it is an object of another class.
  template <class T>
  std::shared_ptr<T> As() const;

 private:
  struct EmptyTag {};
  struct NullTag {};
  struct MissingTag {};
  explicit Variant(NullTag tag) : data_(tag) {}
  explicit Variant(MissingTag tag) : data_(tag) {}
  ObjectPtr RequireObject() const;
  [[noreturn]] static void ThrowTypeMismatch();

  std::variant<EmptyTag, NullTag, MissingTag, tessaria::Integer, tessaria::Long, float, double,
               tessaria::Currency, tessaria::Decimal, tessaria::Date, bool, tessaria::String,
               ObjectPtr>
      data_;
};

template <class T>
std::shared_ptr<T> Variant::As() const {
  auto object = std::dynamic_pointer_cast<T>(RequireObject());
  if (!object) ThrowTypeMismatch();
  return object;
}

}  // namespace tessaria
