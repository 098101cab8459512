// Whether a field may be left.
#pragma once

#include <optional>

#include "control/definitions.h"
#include "control/field_box.h"
#include "tessaria/host/data.h"
#include "tessaria/host/form.h"

namespace tessaria {

/// What the validation asks of its field's form. Errors are those of the names on it.
class LeavingForm {
 public:
  virtual ~LeavingForm() = default;
  /// Whether the focus is in the field's own button. Error 91 when it is not in the field at all.
  virtual bool OwnButtonIsActive() const = 0;
  /// The control that has taken the focus; nothing when none has.
  virtual host::WidgetPtr ActiveControl() const = 0;
  /// The text of the field's caption; nothing for a field without one.
  virtual std::optional<String> Caption() const = 0;
  /// The bound field; nothing when not bound.
  virtual host::FieldPtr Column() const = 0;
  /// The definition's where text with its parameters replaced.
  virtual String Condition(const Browse& definition) const = 0;
};

class Validation {
 public:
  /// How the rules of leaving end. Escaped: the focus goes where nothing is checked.
  enum class Verdict { Passed, Refused, Escaped };

  /// All outlive it.
  Validation(host::ControlSite& site, FieldBox& box, const FieldKind& kind, const FormTies& ties,
             FieldContents& contents, const Definitions& definitions, const LeavingForm& form);
  Validation(const Validation&) = delete;
  Validation& operator=(const Validation&) = delete;

  /// Judges the text in the box, which that does not touch. Shows its own messages and takes the
  /// focus back when it refuses.
  Verdict Check();
  /// The relation check alone: no message for a missing row, no focus work, no status.
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
