// Whether a field may be left.
#pragma once

#include <optional>

#include "control/definitions.h"
#include "control/field_box.h"
#include "tessaria/host/data.h"
#include "tessaria/host/form.h"

namespace tessaria {

/// What the validation needs from its field's form. Raises the errors of the names on it.
class LeavingForm {
 public:
  virtual ~LeavingForm() = default;
  /// Whether the focus is in the field's own button. Error 91 if it is not in the field at all.
  virtual bool OwnButtonIsActive() const = 0;
  /// The control that has taken the focus; null if none has.
  virtual host::WidgetPtr ActiveControl() const = 0;
  /// The text of the field's caption; empty for a field without one.
  virtual std::optional<String> Caption() const = 0;
  /// The bound field; null if not bound.
  virtual host::FieldPtr Column() const = 0;
  /// The definition's where text with its parameters replaced.
  virtual String Condition(const Browse& definition) const = 0;
};

class Validation {
 public:
  /// The result of the rules of leaving. Escaped: the focus goes where nothing is checked.
  enum class Verdict { Passed, Refused, Escaped };

  /// All of them must outlive this object.
  Validation(host::ControlSite& site, FieldBox& box, const FieldKind& kind, const FormTies& ties,
             FieldContents& contents, const Definitions& definitions, const LeavingForm& form);
  Validation(const Validation&) = delete;
  Validation& operator=(const Validation&) = delete;

  /// Checks the text in the box without touching it. Shows its own messages and takes the focus
  /// back if it refuses the text.
  Verdict Check();
  /// Runs only the relation check: no message for a missing row, no change of focus or status.
  bool RelationHolds();
  bool IsForbiddenBlank() const;

 private:
  /// How a text is looked up in the lookup's table.
  struct Relation {
    String Condition;
    String Label;
    bool TellsMissing;
    bool ButtonIsActive;  ///< the only case in which a blank is refused
  };

  Verdict CheckText();
  Verdict CheckRules();
  Verdict RefuseBlank(const String& label);
  bool CheckDate(const String& label);
  bool CheckByProgram(const String& label);
  bool CheckRelation(const String& label);
  bool Holds(Relation relation, Variant* found) const;
  bool Cancels() const;
  bool CommandButtonIsActive() const;
  String LabelPrefix() const;
  String SearchedText() const;
  void ReturnFocus();

  host::ControlSite& site_;
  FieldBox& box_;
  const FieldKind& kind_;
  const FormTies& ties_;
  FieldContents& contents_;
  const Definitions& definitions_;
  const LeavingForm& form_;
};

}  // namespace tessaria
