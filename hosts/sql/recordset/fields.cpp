// The columns of a record set, with the values of its current row.

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/recordset/recordset.h"
#include "hosts/sql/rows/find_criterion.h"

namespace tessaria::sql {

const Column& SqlField::Info() const { return recordset_.ColumnInfo()[column_]; }

String SqlField::Name() const { return Info().name; }

Long SqlField::Type() const { return Info().type; }

Long SqlField::Attributes() const {
  namespace attribute = host::attribute;
  const Long nullable = Info().nullable ? attribute::IsNullable | attribute::MayBeNull : 0;
  return nullable | (recordset_.IsWritable(column_) ? attribute::Updatable : 0);
}

Long SqlField::DefinedSize() const { return Info().definedSize; }

Long SqlField::Precision() const { return Info().precision; }

Long SqlField::NumericScale() const { return Info().scale; }

Variant SqlField::Value() const { return recordset_.FieldValue(column_); }

void SqlField::Value(const Variant& value) { recordset_.FieldValue(column_, value); }

Long SqlFields::Count() const { return static_cast<Long>(recordset_.ColumnInfo().size()); }

void SqlFields::Provide(std::size_t columns) {
  while (fields_.size() < columns) fields_.emplace_back(recordset_, fields_.size());
}

host::FieldPtr SqlFields::Pointer(std::size_t column) const {
  return {recordset_.shared_from_this(), &fields_[column]};
}

host::FieldPtr SqlFields::Item(Long ordinal) const {
  if (ordinal < 0 || ordinal >= Count()) {
    throw HostError(errors::ItemNotFound, u"Não há campo com esse número.");
  }
  return Pointer(static_cast<std::size_t>(ordinal));
}

host::FieldPtr SqlFields::Item(const String& name) const {
  const auto column = ColumnOfName(recordset_.ColumnInfo(), name);
  if (!column) throw HostError(errors::ItemNotFound, u"Campo não encontrado: " + name);
  return Pointer(*column);
}

}  // namespace tessaria::sql
