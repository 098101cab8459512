#include "control/surroundings.h"

#include "lookup/where_text.h"
#include "services/trap.h"

namespace tessaria {

host::WidgetPtr Surroundings::Named(const char16_t* property, const String& name) const {
  host::WidgetPtr widget;
  Catch([&] { widget = site_.Parent()->Controls(name); }, [&] { RaiseNaming(property); });
  return widget;
}

/// Raises the pending error again; error 730 then names the property and this field.
void Surroundings::RaiseNaming(const char16_t* property) const {
  String description = Err().Description;
  if (Err().Number == errors::ControlNotFound)
    description += String(u", em ") + property + u" de '" + site_.DisplayName() + u"'";
  throw HostError(Err().Number, description);
}

/// Error 438 if the name is that of something else.
template <class Kind>
std::shared_ptr<Kind> Surroundings::NamedAs(const char16_t* property, const String& name) const {
  auto widget = std::dynamic_pointer_cast<Kind>(Named(property, name));
  if (!widget) throw HostError(errors::NoSuchMember);
  return widget;
}

std::shared_ptr<host::DataControl> Surroundings::Data() const {
  return NamedAs<host::DataControl>(u"DataSource", ties_.DataSource);
}

std::shared_ptr<host::TsTextWidget> Surroundings::Sibling() const {
  return NamedAs<host::TsTextWidget>(u"TxtIrmao", ties_.TxtIrmao);
}

std::shared_ptr<host::Label> Surroundings::CaptionLabel() const {
  return NamedAs<host::Label>(u"LabelAssociado", ties_.LabelAssociado);
}

host::RecordsetPtr Surroundings::Rows() const {
  auto rows = Data()->RecordSet();
  if (!rows) throw HostError(errors::ObjectNotSet);
  return rows;
}

host::FieldPtr Surroundings::Column() const {
  if (!ties_.bCampoConectado) return nullptr;
  return Rows()->Fields().Item(ties_.DataField);
}

bool Surroundings::HasRow() const {
  const auto rows = Rows();
  return !rows->Eof() && !rows->Bof();
}

void Surroundings::Write(const Variant& v) { Rows()->Fields().Item(ties_.DataField)->Value(v); }

String Surroundings::Expanded(const String& where) const {
  String condition;
  Catch([&] { condition = mdlObjTxt::ExpandCondition(site_.Parent(), where); },
        [&] { RaiseNaming(u"BrwWhere"); });
  return condition;
}

String Surroundings::Condition(const Browse& definition) const {
  return definition.WherePronto() ? definition.BrwWhere() : Expanded(definition.BrwWhere());
}

bool Surroundings::OwnButtonIsActive() const { return site_.ActiveControlName() == u"btnBrowse"; }

host::WidgetPtr Surroundings::ActiveControl() const { return site_.Parent()->ActiveControl(); }

std::optional<String> Surroundings::Caption() const {
  return ties_.bLabelConectado ? std::optional(CaptionLabel()->Caption()) : std::nullopt;
}

String Surroundings::FormName() const { return site_.Parent()->Name(); }

}  // namespace tessaria
