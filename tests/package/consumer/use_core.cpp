// The core from outside: a mask laid out and stripped, and an error with its number.
#include <tessaria/error.h>
#include <tessaria/masks.h>
#include <tessaria/text.h>
#include <tessaria/variant.h>

#include <iostream>

#include "own_headers.h"

int main() {
  using namespace tessaria::mdlObjTxt;
  const tessaria::String mask = u"dd/mm/yyyy";
  const auto items = MontaItensMascara(mask, u"_");
  const auto shown = AplicaMascara(tessaria::Variant(u"25122017"), mask, u"_", items, u"");
  if (shown != u"25/12/2017" || LimpaMascara(shown, mask, items) != u"25122017" ||
      tessaria::UCase(u"ação") != u"AÇÃO") {
    std::cerr << "the mask does not fit\n";
    return 1;
  }
  return tessaria::HostError(tessaria::errors::TypeMismatch).Number() == 13 ? 0 : 1;
}
