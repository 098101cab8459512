#include "lookup/bag_reader.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tessaria/conversion.h"
#include "tessaria/error.h"

namespace tessaria {
namespace {

float ToSingle(const Variant& value) {
  const double number = CDbl(value);
  // Written so that NaN fails too.
  if (!(std::abs(number) <= std::numeric_limits<float>::max())) throw HostError(errors::Overflow);
  return static_cast<float>(number);
}

}  // namespace

template <class T, class Convert>
T BagReader::Read(StringView name, T byDefault, Convert convert) {
  try {
    return convert(bag_.ReadProperty(Key(name), Variant(byDefault)));
  } catch (const HostError&) {
    broken_ = true;
    return byDefault;
  }
}

String BagReader::Text(StringView name) { return Read(name, String(), CStr); }

Long BagReader::Whole(StringView name) { return Read(name, Long{0}, CLng); }

Integer BagReader::Short(StringView name) { return Read(name, Integer{0}, CInt); }

float BagReader::Number(StringView name) { return Read(name, 0.0F, ToSingle); }

bool BagReader::Flag(StringView name, bool byDefault) { return Read(name, byDefault, CBool); }

bool BagReader::Holds(StringView name) const {
  try {
    return !bag_.ReadProperty(Key(name), Variant::Missing()).IsMissing();
  } catch (const HostError&) {
    return true;
  }
}

bool BagReader::HoldsAny(std::initializer_list<StringView> names) const {
  return std::any_of(names.begin(), names.end(), [&](StringView name) { return Holds(name); });
}

void BagReader::RaiseIfBroken() const {
  if (broken_) throw HostError(errors::TypeMismatch);
}

String EntryPrefix(StringView list, Long number) { return String(list) + CStr(Variant(number)); }

Variant AlwaysStored() { return Variant::Null(); }

}  // namespace tessaria
