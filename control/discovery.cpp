// Finding the connection, the sibling, the data control, the field and the label by name.

#include "control/scoped_flag.h"
#include "control/tstext.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

constexpr Long kNotFound = -1;

/// The error object's number and description as the boxes of this file show them; both are
/// usually blank, because a name that leads nowhere is no error of its own.
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

}  // namespace

bool tsText::SetarVariaveis(StringView what) {
  const auto asked = [what](StringView part) { return what == part || what == u"Todos"; };
  const bool needsDatabase = m_.TipoControle == tessaria::TipoControle::Browse ||
                             m_.TipoControle == tessaria::TipoControle::Descricao;
  if (needsDatabase && !ConnectDatabase()) return false;

  bool loaded = false;
  Trap(u"tsText", u"SetarVariaveis", [&] {
    if (asked(u"Irmao") && !Trim(m_.TxtIrmao).empty() &&
        Named(u"TxtIrmao", m_.TxtIrmao)->TypeName() == u"tsText")
      m_.bIrmaoConectado = true;
    const bool dataControlOk = asked(u"DataSource") && FindDataControl();
    if (asked(u"Campo") && dataControlOk && BoundRecordset()->State() != host::state::Closed &&
        BindField()) {
      LoadRow();
      loaded = true;
    }
    if (asked(u"Label") && !m_.LabelAssociado.empty() &&
        Named(u"LabelAssociado", m_.LabelAssociado)->TypeName() == u"Label")
      m_.bLabelConectado = true;
  });
  return loaded;
}

bool tsText::ConnectDatabase() {
  const auto refuse = [this] {
    mdlMsgBox::ExibeMensagem(
        hWnd(),
        u"Não foi Possível Conectar 'dbForm'. Contate Administrador de Sistema." +
            PendingDescription(),
        mdlMsgBox::flag::Stop, u"Objeto: '" + site_.DisplayName() + u"' Erro: " + PendingNumber());
  };
  bool connected = false;
  Catch(
      [&] {
        const Variant dbForm = site_.Parent()->Get(u"dbForm");
        const bool isNothing = dbForm.IsObject() && !*dbForm.TryGet<ObjectPtr>();
        if (dbForm.IsEmpty() || dbForm.IsNull() || isNothing) {
          refuse();
          return;
        }
        State().dbConexao = dbForm.As<host::Connection>();
        connected = true;
      },
      refuse);
  return connected;
}

bool tsText::FindDataControl() {
  if (m_.DataSource.empty() || m_.DataField.empty()) {
    ShowValue(Variant::Null());
    return false;
  }
  const auto refuse = [this] {
    mdlMsgBox::ExibeMensagem(hWnd(),
                             u"Não foi Possível Localizar o Data Control '" + m_.DataSource +
                                 u"'." + PendingDescription(),
                             mdlMsgBox::flag::Stop,
                             u"Objeto: '" + site_.DisplayName() + u"' Erro: " + PendingNumber());
  };
  bool found = false;
  Catch(
      [&] {
        const auto widget = Named(u"DataSource", m_.DataSource);
        found = EndsWith(widget->TypeName(), u"Adodc") && IsConfigured(*DataControlByName());
        if (!found) refuse();
      },
      refuse);
  return found;
}

bool tsText::BindField() {
  m_.bCampoConectado = false;
  const auto rows = BoundRecordset();
  const auto& fields = rows->Fields();
  if (!CacheHolds(fields, m_.PosDataField, m_.DataField)) {
    const Long ordinal = OrdinalOf(fields, m_.DataField);
    if (ordinal == kNotFound) {
      mdlMsgBox::ExibeMensagem(hWnd(),
                               u"Não Foi Possível Conectar o Objeto '" + site_.DisplayName() +
                                   u"' ao Campo " + UCase(m_.DataField) + u"." +
                                   PendingDescription(),
                               mdlMsgBox::flag::Stop, u"Erro: " + PendingNumber());
      return false;
    }
    PosDataField(CStr(Variant(ordinal)));
  }
  m_.bCampoConectado = true;
  return true;
}

void tsText::LoadRow() {
  const auto rows = BoundRecordset();
  if (rows->Eof() || rows->Bof()) {
    ShowValue(Variant::Null());
    m_.OriginalValue = Variant::Null();
    return;
  }
  const ScopedFlag loading(m_.bCarregandoCampo);
  ShowValue(CampoVinculado()->Value());
  m_.OriginalValue = CampoVinculado()->Value();
}

void tsText::AchaObjetos() {
  if (site_.UserMode() || m_.DataSource.empty() || m_.DataField.empty()) return;
  std::shared_ptr<host::DataControl> control;
  Trap(u"tsText", u"AchaObjetos", [&] {
    for (const auto& widget : site_.Parent()->Controls())
      if (widget->Name() == m_.DataSource) {
        control = std::dynamic_pointer_cast<host::DataControl>(widget);
        if (!control) throw HostError(errors::NoSuchMember);
        break;
      }
    if (control && !IsConfigured(*control)) control = nullptr;
  });
  if (!control) return;
  // A record set that is not there yet is opened; an error after that is the caller's.
  Catch(
      [&] {
        const auto rows = control->RecordSet();
        if (!rows || rows->State() == host::state::Closed) control->Refresh();
        CacheFieldOrdinal(*control);
      },
      [&] {
        Err().Clear();  // steers, reports nothing
        control->Refresh();
        CacheFieldOrdinal(*control);
      });
}

void tsText::CacheFieldOrdinal(host::DataControl& control) {
  const auto rows = control.RecordSet();
  if (!rows) throw HostError(errors::ObjectNotSet);
  const auto& fields = rows->Fields();
  if (CacheHolds(fields, m_.PosDataField, m_.DataField)) return;
  const Long ordinal = OrdinalOf(fields, m_.DataField);
  if (ordinal != kNotFound) PosDataField(CStr(Variant(ordinal)));
}

std::shared_ptr<host::DataControl> tsText::DataControlByName() const {
  auto control = std::dynamic_pointer_cast<host::DataControl>(Named(u"DataSource", m_.DataSource));
  if (!control) throw HostError(errors::NoSuchMember);
  return control;
}

host::WidgetPtr tsText::Named(const char16_t* property, const String& name) const {
  host::WidgetPtr widget;
  Catch([&] { widget = site_.Parent()->Controls(name); }, [&] { RaiseNaming(property); });
  return widget;
}

void tsText::RaiseNaming(const char16_t* property) const {
  String description = Err().Description;
  if (Err().Number == errors::ControlNotFound)
    description += String(u", em ") + property + u" de '" + site_.DisplayName() + u"'";
  throw HostError(Err().Number, description);
}

host::RecordsetPtr tsText::BoundRecordset() const {
  auto rows = DataControlByName()->RecordSet();
  if (!rows) throw HostError(errors::ObjectNotSet);
  return rows;
}

}  // namespace tessaria
