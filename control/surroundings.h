// The surroundings of a field: the widgets, the rows and the column that it names.
#pragma once

#include "control/looks.h"
#include "control/pair.h"
#include "control/validation.h"
#include "control/value.h"

namespace tessaria {

/// Resolves the names of one field. Nothing is cached: each call looks them up again, so that an
/// object that was closed meanwhile leaves no dangling link.
class Surroundings final : public BoundField,
                           public PairForm,
                           public LeavingForm,
                           public LooksForm {
 public:
  /// Both must outlive this object.
  Surroundings(const host::ControlSite& site, const FormTies& ties) : site_(site), ties_(ties) {}
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;

  /// A control of the form by the name that the property holds. Error 730 names both.
  host::WidgetPtr Named(const char16_t* property, const String& name) const;
  /// Error 438 if the name is not that of a data control.
  std::shared_ptr<host::DataControl> Data() const;
  /// The rows that the field is bound to. Error 91 if there are none.
  host::RecordsetPtr Rows() const;
  /// A where text with its parameters replaced by the values of the form's controls.
  String Expanded(const String& where) const;

  // BoundField
  host::FieldPtr Field() const override { return Column(); }
  bool HasRow() const override;
  void Write(const Variant& v) override;

  // LeavingForm, PairForm, LooksForm
  bool OwnButtonIsActive() const override;
  host::WidgetPtr ActiveControl() const override;
  std::optional<String> Caption() const override;
  host::FieldPtr Column() const override;
  String Condition(const Browse& definition) const override;
  String FormName() const override;
  std::shared_ptr<host::Label> CaptionLabel() const override;
  std::shared_ptr<host::TsTextWidget> Sibling() const override;

 private:
  template <class Kind>
  std::shared_ptr<Kind> NamedAs(const char16_t* property, const String& name) const;
  [[noreturn]] void RaiseNaming(const char16_t* property) const;

  const host::ControlSite& site_;
  const FormTies& ties_;
};

}  // namespace tessaria
