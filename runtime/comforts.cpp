// What `include/tessaria/comforts.h` declares.

#include "tessaria/comforts.h"

namespace tessaria {

namespace {

Comforts inForce;

}  // namespace

void setComforts(const Comforts& comforts) { inForce = comforts; }

const Comforts& comforts() { return inForce; }

}  // namespace tessaria
