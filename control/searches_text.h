// Conversion of the older text form of the searches into the definition object.
#pragma once

#include "control/members.h"
#include "tessaria/pesquisa_definition.h"

namespace tessaria {

/// Adds a search for each caption, at its position, and empties the texts when all were added.
/// Errors are reported.
void AddSearchTexts(SearchTexts& texts, Pesquisa& searches);

}  // namespace tessaria
