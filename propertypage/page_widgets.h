// What the property page is made of.
#pragma once

#include "tessaria/host/dialog.h"

namespace tessaria::propertypage {

/// The tabs, from 0.
enum class Tab : Long { Principal, Browse, Pesquisa };

/// The row of a combo box that stands for no control.
inline constexpr StringView kNone = u"<Nenhum>";

const host::DialogDescription& Description();

}  // namespace tessaria::propertypage
