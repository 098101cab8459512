// What the SQL wizard's window is made of.
#pragma once

#include "tessaria/host/dialog.h"

namespace tessaria::wizard {

/// The tabs, from 0.
enum class Tab : Long { Tabelas, Links, Campos, Grid, Ordem, Where, Retorno, SqlPronta };
inline constexpr Long kTabs = 8;

const host::DialogDescription& Description();

}  // namespace tessaria::wizard
