#include "control/discovery.h"

#include "control/scoped_flag.h"
#include "control/surface.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

constexpr Long kNotFound = -1;

/// The error object's number and description as the boxes of this file show them. Both are usually
/// blank, because a name that is not found does not raise an error by itself.
String PendingDescription() { return u"\r" + Err().Description; }
String PendingNumber() { return CStr(Variant(Err().Number)); }

bool IsConfigured(const host::DataControl& control) {
  return !control.ConnectionString().empty() && !control.RecordSource().empty();
}

bool NamesField(const host::Fields& fields, Long ordinal, const String& name) {
  return UCase(fields.Item(ordinal)->Name()) == UCase(name);
}

/// Whether the cached text is the ordinal of the field of that name.
bool CacheHolds(const host::Fields& fields, const String& cached, const String& name) {
  if (!IsNumeric(cached)) return false;
  const double ordinal = CDbl(cached);
  return ordinal >= 0 && ordinal < fields.Count() &&
         NamesField(fields, static_cast<Long>(ordinal), name);
}

Long OrdinalOf(const host::Fields& fields, const String& name) {
  for (Long ordinal = 0; ordinal < fields.Count(); ++ordinal)
    if (NamesField(fields, ordinal, name)) return ordinal;
  return kNotFound;
}

bool IsNothing(const Variant& v) {
  const bool isNoObject = v.IsObject() && !*v.TryGet<ObjectPtr>();
  return v.IsEmpty() || v.IsNull() || isNoObject;
}

}  // namespace

Discovery::Discovery(host::ControlSite& site, const FieldKind& kind, FormTies& ties,
                     FieldContents& contents, const Surroundings& surroundings,
                     ValueAssignment& value)
    : site_(site),
      kind_(kind),
      ties_(ties),
      contents_(contents),
      surroundings_(surroundings),
      value_(value) {}

bool Discovery::Find(StringView what) {
  const auto asked = [what](StringView part) { return what == part || what == u"Todos"; };
  if (kind_.HasLookup() && !ConnectDatabase()) return false;

  bool loaded = false;
  Trap(u"tsText", u"SetarVariaveis", [&] {
    if (asked(u"Irmao") && !Trim(ties_.TxtIrmao).empty() &&
        surroundings_.Named(u"TxtIrmao", ties_.TxtIrmao)->TypeName() == u"tsText")
      ties_.bIrmaoConectado = true;
    const bool dataControlOk = asked(u"DataSource") && FindDataControl();
    if (asked(u"Campo") && dataControlOk && surroundings_.Rows()->State() != host::state::Closed &&
        BindField()) {
      LoadRow();
      loaded = true;
    }
    if (asked(u"Label") && !ties_.LabelAssociado.empty() &&
        surroundings_.Named(u"LabelAssociado", ties_.LabelAssociado)->TypeName() == u"Label")
      ties_.bLabelConectado = true;
  });
  return loaded;
}

void Discovery::TellNotFound(const String& what) const {
  TellStop(site_, what + PendingDescription(),
           u"Objeto: '" + site_.DisplayName() + u"' Erro: " + PendingNumber());
}

bool Discovery::ConnectDatabase() {
  const auto refuse = [this] {
    TellNotFound(u"Não foi Possível Conectar 'dbForm'. Contate Administrador de Sistema.");
  };
  bool connected = false;
  Catch(
      [&] {
        const Variant dbForm = site_.Parent()->Get(u"dbForm");
        if (IsNothing(dbForm)) {
          refuse();
          return;
        }
        State().dbConexao = dbForm.As<host::Connection>();
        connected = true;
      },
      refuse);
  return connected;
}

bool Discovery::FindDataControl() {
  if (ties_.DataSource.empty() || ties_.DataField.empty()) {
    value_.Assign(Variant::Null(), AssignMode::Show);
    return false;
  }
  const auto refuse = [this] {
    TellNotFound(u"Não foi Possível Localizar o Data Control '" + ties_.DataSource + u"'.");
  };
  bool found = false;
  Catch(
      [&] {
        const auto widget = surroundings_.Named(u"DataSource", ties_.DataSource);
        found = EndsWith(widget->TypeName(), u"Adodc") && IsConfigured(*surroundings_.Data());
        if (!found) refuse();
      },
      refuse);
  return found;
}

bool Discovery::BindField() {
  ties_.bCampoConectado = false;
  const auto rows = surroundings_.Rows();
  if (!CacheOrdinalOf(rows->Fields())) {
    TellStop(site_,
             u"Não Foi Possível Conectar o Objeto '" + site_.DisplayName() + u"' ao Campo " +
                 UCase(ties_.DataField) + u"." + PendingDescription(),
             u"Erro: " + PendingNumber());
    return false;
  }
  ties_.bCampoConectado = true;
  return true;
}

/// Returns false if no field has the name.
bool Discovery::CacheOrdinalOf(const host::Fields& fields) {
  if (CacheHolds(fields, ties_.PosDataField, ties_.DataField)) return true;
  const Long ordinal = OrdinalOf(fields, ties_.DataField);
  if (ordinal == kNotFound) return false;
  ties_.PosDataField = CStr(Variant(ordinal));
  site_.PropertyChanged(u"PosDataField");
  return true;
}

void Discovery::LoadRow() {
  if (!surroundings_.HasRow()) {
    value_.Assign(Variant::Null(), AssignMode::Show);
    contents_.OriginalValue = Variant::Null();
    return;
  }
  const ScopedFlag loading(contents_.bCarregandoCampo);
  value_.Assign(surroundings_.Column()->Value(), AssignMode::Show);
  contents_.OriginalValue = surroundings_.Column()->Value();
}

void Discovery::FindAtDesignTime() {
  if (site_.UserMode() || ties_.DataSource.empty() || ties_.DataField.empty()) return;
  std::shared_ptr<host::DataControl> control;
  Trap(u"tsText", u"AchaObjetos", [&] { control = ConfiguredControl(); });
  if (!control) return;
  // A missing record set is opened; later errors are raised to the caller.
  Catch(
      [&] {
        const auto rows = control->RecordSet();
        if (!rows || rows->State() == host::state::Closed) control->Refresh();
        CacheFieldOrdinal(*control);
      },
      [&] {
        Err().Clear();  // only selects this branch; it is not reported
        control->Refresh();
        CacheFieldOrdinal(*control);
      });
}

/// The first control with exactly that name; null if there is none or it names no rows.
std::shared_ptr<host::DataControl> Discovery::ConfiguredControl() const {
  for (const auto& widget : site_.Parent()->Controls()) {
    if (widget->Name() != ties_.DataSource) continue;
    auto control = std::dynamic_pointer_cast<host::DataControl>(widget);
    if (!control) throw HostError(errors::NoSuchMember);
    return IsConfigured(*control) ? control : nullptr;
  }
  return nullptr;
}

void Discovery::CacheFieldOrdinal(const host::DataControl& control) {
  const auto rows = control.RecordSet();
  if (!rows) throw HostError(errors::ObjectNotSet);
  CacheOrdinalOf(rows->Fields());
}

}  // namespace tessaria
