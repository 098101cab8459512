#include "lookup/field_types.h"

#include <algorithm>
#include <iterator>

#include "tessaria/host/data.h"

namespace tessaria {

bool EhTipoDeCampoNumerico(Long type) {
  static constexpr Long kNumericos[] = {20, 128, 6, 14, 5, 3, 131, 4, 2, 16, 21, 19, 18, 17, 139};
  return std::find(std::begin(kNumericos), std::end(kNumericos), type) != std::end(kNumericos);
}

bool EhTipoDeCampoTexto(Long type) {
  return type == host::type::WChar || type == host::type::VarWChar || type == host::type::VarChar ||
         type == host::type::Char;
}

}  // namespace tessaria
