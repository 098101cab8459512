// The names of fields in the criteria and in the orders of record sets.
#pragma once

#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// A field's name as a criterion or an order takes it: in brackets, with each "]" doubled, when it
/// could not be read without them.
TESSARIA_HOST_API String FieldNameText(const String& name);

/// Takes the name at the start of a criterion: in brackets, or up to a blank or a comparison sign.
/// `text` keeps the rest. Nothing when a bracket is not closed or there is no name.
TESSARIA_HOST_API std::optional<String> TakeFieldName(StringView& text);

/// One field of an order.
struct OrderedField {
  String Name;
  bool Descending = false;
};

/// Reads "field [ASC|DESC], ...". A name may be in brackets; a name that contains a comma or ends
/// like a direction must be. Nothing when the text cannot be read.
TESSARIA_HOST_API std::optional<std::vector<OrderedField>> ReadOrder(StringView order);

}  // namespace tessaria
