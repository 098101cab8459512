#include "tessaria/variant.h"

#include <array>

#include "tessaria/error.h"

namespace tessaria {

namespace {

// In the order of the alternatives in the variant's storage.
constexpr std::array kKinds = {
    Variant::Kind::Empty,   Variant::Kind::Null,   Variant::Kind::Missing, Variant::Kind::Integer,
    Variant::Kind::Long,    Variant::Kind::Single, Variant::Kind::Double,  Variant::Kind::Currency,
    Variant::Kind::Decimal, Variant::Kind::Date,   Variant::Kind::Boolean, Variant::Kind::String,
    Variant::Kind::Object};

}  // namespace

Variant Variant::Null() { return Variant(NullTag{}); }

Variant Variant::Missing() { return Variant(MissingTag{}); }

Variant::Kind Variant::Type() const {
  static_assert(kKinds.size() == std::variant_size_v<decltype(data_)>);
  return kKinds[data_.index()];
}

bool Variant::IsNumeric() const {
  switch (Type()) {
    case Kind::Integer:
    case Kind::Long:
    case Kind::Single:
    case Kind::Double:
    case Kind::Currency:
    case Kind::Decimal:
    case Kind::Boolean:
      return true;
    default:
      return false;
  }
}

ObjectPtr Variant::RequireObject() const {
  const auto* object = TryGet<ObjectPtr>();
  if (!object) throw HostError(errors::ObjectRequired);
  if (!*object) throw HostError(errors::ObjectNotSet);
  return *object;
}

void Variant::ThrowTypeMismatch() { throw HostError(errors::TypeMismatch); }

}  // namespace tessaria
