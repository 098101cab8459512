// Conversion and assignment of a value: to the bound field, the typed text, the box and the
// sibling.
#pragma once

#include "control/field_box.h"
#include "tessaria/host/data.h"

namespace tessaria {

/// Whether an assignment writes the bound field or only shows what a row holds.
enum class AssignMode { Write, Show };

/// What an assignment needs from the bound field.
class BoundField {
 public:
  virtual ~BoundField() = default;
  /// Raises the errors of the names on the form: 730, 438, 91.
  virtual host::FieldPtr Field() const = 0;
  virtual bool HasRow() const = 0;
  /// Raises the errors of the field.
  virtual void Write(const Variant& v) = 0;
};

/// Receives the value once the field shows it.
class ValueFollower {
 public:
  virtual ~ValueFollower() = default;
  virtual void Follow(AssignMode mode) = 0;
};

/// Assigns a field's value.
class ValueAssignment {
 public:
  /// All of them must outlive this object.
  ValueAssignment(host::ControlSite& site, FieldBox& box, const FieldKind& kind,
                  const FormTies& ties, FieldContents& contents, BoundField& bound,
                  ValueFollower& follower);
  ValueAssignment(const ValueAssignment&) = delete;
  ValueAssignment& operator=(const ValueAssignment&) = delete;

  /// Returns false if the value was refused; the operator has been told.
  bool Assign(const Variant& v, AssignMode mode);
  /// Assigns an untouched field its present value: does what an assignment does, but converts and
  /// writes nothing.
  void AssignItself();
  /// Shows the present value in place of one that was refused. `what` is what the box showed when
  /// the present value was assigned.
  void ShowAgain(FieldBox::What what, AssignMode mode);
  /// The text with which the box would show a value of the row.
  String TextFor(const Variant& v) const;

 private:
  using What = FieldBox::What;
  /// The result of the first steps of an assignment.
  struct Taken {
    Variant Shown;  ///< what the box will show
    bool IsStored = false;
    FieldBox::What What = FieldBox::What::Value;
  };

  Taken AssignUnbound(const Variant& v, AssignMode mode);
  Taken AssignBound(const Variant& v, AssignMode mode);
  void TakeBound(const Variant& v, AssignMode mode, Taken& taken);
  template <class Convert>
  static Taken Converted(const Variant& v, AssignMode mode, Convert convert);
  void WriteField(Taken& taken);
  void TextoFromValue();
  void Present(const Taken& taken, AssignMode mode);

  host::ControlSite& site_;
  FieldBox& box_;
  const FieldKind& kind_;
  const FormTies& ties_;
  FieldContents& contents_;
  BoundField& bound_;
  ValueFollower& follower_;
};

}  // namespace tessaria
