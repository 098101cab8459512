// The foreign key between two tables.
#pragma once

#include <optional>

#include "tessaria/host/data.h"

namespace tessaria::wizard {

/// A field of each of two tables, by its bare name.
struct FieldPair {
  String parent;
  String child;
};

/// The fields of a key with a single field by which `parent` refers to `child`, or `child` to
/// `parent`; the first one by its name. Nothing where there is none or the database tells of none.
/// Tables as a statement takes them. Errors are the provider's.
std::optional<FieldPair> ForeignKey(host::Connection& connection, const String& parent,
                                    const String& child);

}  // namespace tessaria::wizard
