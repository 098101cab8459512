// Scrambling of hidden texts, and two small helpers.
#pragma once

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria::mdlComum {

/// The stored form of a hidden text: each character moved by its position, with no key. Characters
/// outside the Western code page count as "?". Error 5 when a character's code moves off the page,
/// which happens in texts of some hundred characters.
TESSARIA_CORE_API String CodificaTexto(const String& strTexto);

/// Whether a number is even.
TESSARIA_CORE_API bool EhPar(Long varNumero);

/// The value as a number; 0 for Null and for anything that is not a number.
TESSARIA_CORE_API double NuloParaZero(const Variant& varValor);

}  // namespace tessaria::mdlComum
