#include "lookup/field_types.h"

#include <algorithm>
#include <iterator>

#include "tessaria/host/data.h"

namespace tessaria {

bool IsNumericFieldType(Long type) {
  static constexpr Long kNumericTypes[] = {20, 128, 6,  14, 5,  3,  131, 4,
                                           2,  16,  21, 19, 18, 17, 139};
  return std::find(std::begin(kNumericTypes), std::end(kNumericTypes), type) !=
         std::end(kNumericTypes);
}

bool IsTextFieldType(Long type) {
  return type == host::type::WChar || type == host::type::VarWChar || type == host::type::VarChar ||
         type == host::type::Char;
}

}  // namespace tessaria
