#include "services/coloured_button.h"

namespace tessaria::mdlCorBtn {

bool CorBotao(host::DialogButton& objBotao, Colour lngCor) {
  objBotao.TextColour(lngCor);
  return true;
}

}  // namespace tessaria::mdlCorBtn
