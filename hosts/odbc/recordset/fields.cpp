// The columns of a record set, with the values of its current row.

#include "hosts/odbc/driver/diagnostics.h"
#include "hosts/odbc/recordset/recordset.h"
#include "hosts/odbc/rows/find_criterion.h"

namespace tessaria::odbc {

const Column& OdbcField::Info() const { return recordset_.ColumnInfo()[column_]; }

String OdbcField::Name() const { return Info().name; }

Long OdbcField::Type() const { return Info().type; }

Long OdbcField::Attributes() const {
  namespace attribute = host::attribute;
  const Long nullable = Info().nullable ? attribute::IsNullable | attribute::MayBeNull : 0;
  return nullable | (recordset_.IsWritable(column_) ? attribute::Updatable : 0);
}

Long OdbcField::DefinedSize() const { return Info().definedSize; }

Long OdbcField::Precision() const { return Info().precision; }

Long OdbcField::NumericScale() const { return Info().scale; }

Variant OdbcField::Value() const { return recordset_.FieldValue(column_); }

void OdbcField::Value(const Variant& value) { recordset_.FieldValue(column_, value); }

Long OdbcFields::Count() const { return static_cast<Long>(recordset_.ColumnInfo().size()); }

void OdbcFields::Provide(std::size_t columns) {
  while (fields_.size() < columns) fields_.emplace_back(recordset_, fields_.size());
}

host::FieldPtr OdbcFields::Pointer(std::size_t column) const {
  return {recordset_.shared_from_this(), &fields_[column]};
}

host::FieldPtr OdbcFields::Item(Long ordinal) const {
  if (ordinal < 0 || ordinal >= Count()) {
    throw HostError(errors::ItemNotFound, u"Não há campo com esse número.");
  }
  return Pointer(static_cast<std::size_t>(ordinal));
}

host::FieldPtr OdbcFields::Item(const String& name) const {
  const auto column = ColumnOfName(recordset_.ColumnInfo(), name);
  if (!column) throw HostError(errors::ItemNotFound, u"Campo não encontrado: " + name);
  return Pointer(*column);
}

}  // namespace tessaria::odbc
