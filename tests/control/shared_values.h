// Values and texts that several tests of the control use.
#pragma once

#include "tessaria/variant.h"

namespace tessaria::test {

inline constexpr bool yes = true;
inline constexpr bool no = false;
inline const Variant null = Variant::Null();
/// The text in the box's tag that silences the exit of the field.
inline const char16_t* const silenced = u"Nao Dispara Valida";

}  // namespace tessaria::test
