#include "lookup/field_types.h"

#include <algorithm>
#include <iterator>

namespace tessaria {

bool EhTipoDeCampoNumerico(Long type) {
  static constexpr Long kNumericos[] = {20, 128, 6, 14, 5, 3, 131, 4, 2, 16, 21, 19, 18, 17, 139};
  return std::find(std::begin(kNumericos), std::end(kNumericos), type) != std::end(kNumericos);
}

}  // namespace tessaria
