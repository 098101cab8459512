// The texts that the wizard's selection becomes in the definition of a lookup.
#pragma once

#include "lookup/statement_layout.h"

namespace tessaria::wizard {

/// The condition of the search rows that have exactly 3 sub-items, joined by "and".
String BrwWhere(const mdlObjTxt::ListRows& rows);

/// The select list without the key and the sibling, each cut at its first place with the comma that
/// follows it, and then at its first place without. With a table both stand behind its name and a
/// point. A name is cut where it is an entry of the list, or the name of a concatenated field,
/// whose expression then stays; never inside an expression. What remains has no commas or blanks at
/// its ends.
String BrwCampoOutros(const String& campos, const String& chave, const String& irmao,
                      const String& tabela);

}  // namespace tessaria::wizard
