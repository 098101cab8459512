// The names of fields in the criteria and in the orders of record sets.
#pragma once

#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// A field's name as it stands in a criterion or an order: in brackets, its own "]" doubled, when
/// it would not be read whole without them.
TESSARIA_HOST_API String FieldNameText(const String& name);

/// Takes the name at the start of a criterion: in brackets, or up to a blank or a comparison sign.
/// `text` keeps the rest. Nothing for brackets that never end, and for no name at all.
TESSARIA_HOST_API std::optional<String> TakeFieldName(StringView& text);

/// One field of an order.
struct OrderedField {
  String Name;
  bool Descending = false;
};

/// Reads "field [ASC|DESC], ...". A name may stand in brackets; one that holds a comma or ends like
/// a direction must. Nothing for what it cannot read.
TESSARIA_HOST_API std::optional<std::vector<OrderedField>> ReadOrder(StringView order);

}  // namespace tessaria
