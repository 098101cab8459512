// The rules of a form, each group in a file of its own.
#pragma once

#include "apps/check/field.h"

namespace tessaria::formcheck {

/// A form with its fields, which stay in place while the rules run.
struct CheckedForm {
  FormFile file;
  std::vector<Field> fields;

  /// Without regard to case; null when no field has the name.
  const Field* FieldNamed(StringView name) const;
};

/// Classes of the library that are promoted wrongly, and settings of other widgets.
void CheckClasses(const FormFile& file, Findings& findings);
/// Masks, their literals and slots, and what belongs to a mask.
void CheckMasks(const Field& field, Findings& findings);
/// Names of other widgets, and the number of the tab.
void CheckNames(const CheckedForm& form, const Field& field, Findings& findings);
/// Lookups by themselves, and the two of a pair.
void CheckLookup(const Field& field, Findings& findings);
void CheckPair(const CheckedForm& form, const Field& field, Findings& findings);
/// `@name@` parameters, and what is not closed in the texts of a lookup.
void CheckParameters(const CheckedForm& form, const Field& field, Findings& findings);

}  // namespace tessaria::formcheck
