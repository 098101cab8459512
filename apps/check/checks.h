// The checks of a form, each of one sort of mistake.
#pragma once

#include <vector>

#include "apps/check/field.h"
#include "apps/check/finding.h"
#include "apps/check/form_file.h"

#include <tessaria/host/data.h>

namespace tessaria::formcheck {

/// A form and its fields.
struct Form {
  FormFile file;
  std::vector<Field> fields;

  /// Without regard to case; null when there is none.
  const Field* Find(const String& name) const;
};

/// Reports about one form.
class Check {
 public:
  Check(const Form& form, std::vector<Finding>& findings) : form_(form), findings_(findings) {}

  /// Masks that a field does not understand, or does not take out of its value.
  void Masks();
  /// Names of controls that are not on the form.
  void Names();
  /// Lookups that are not complete, and pairs that do not fit together.
  void Lookups();
  /// `@name@` in conditions.
  void Parameters();
  /// Tables, columns and statements that the database refuses. Nothing is changed there.
  void Database(host::Connection& connection);

 private:
  void Mask(const Field& field);
  void Name(const Field& field, StringView key, const char* what, Severity severity);
  void Lookup(const Field& field);
  void Pair(const Field& field);
  void Parameter(const Field& field, const String& name, bool isQuoted);
  void Report(const Field& field, StringView key, const char* kind, Severity severity,
              const String& message);
  void DataFields(host::Connection& connection);
  void LookupStatements(host::Connection& connection, const Field& field);

  const Form& form_;
  std::vector<Finding>& findings_;
};

}  // namespace tessaria::formcheck
