#include "lookup/query_text.h"

#include "runtime/text.h"

namespace tessaria::mdlObjTxt {

String TiraAlias(const String& strCampo) {
  const Long posicao = InStr(strCampo, u" as ");
  return posicao == 0 ? strCampo : Left(strCampo, posicao);
}

}  // namespace tessaria::mdlObjTxt
