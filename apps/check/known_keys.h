// The keys that the settings of a field may have.
#pragma once

#include <map>

#include <tessaria/string.h>
#include <tessaria/variant.h>

namespace tessaria::formcheck {

/// Keys in small letters, the numbers of list entries as "#": "browse.coluna#campo". The value is
/// the default, from which the kind of the setting follows; Null for a definition.
const std::map<String, Variant>& KnownKeys();

/// A key in the form that `KnownKeys` has.
String Folded(StringView key);

/// The known key that is most like another one, as it is written in files; "" when none is near.
String MostLike(const String& key);

}  // namespace tessaria::formcheck
