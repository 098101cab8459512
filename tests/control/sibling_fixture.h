// A key and its description, connected, on a scripted database.
#pragma once

#include "tests/control/control_fixture.h"

namespace tessaria::test {

/// A key "txtCodigo" and its description "txtNome", connected, on a database that finds
/// "Ana" for every code and "7" for every name.
class SiblingTest : public ControlTest {
 protected:
  SiblingTest() : key(AddField(u"txtCodigo")), description(AddField(u"txtNome")) {
    connection->SetProperty(u"DBMS Name", u"ACCESS");
    connection->OnStatement = [this](const String& statement) { return Answer(statement); };
    (*key)->TipoControle(TipoControle::Browse);
    (*key)->TxtIrmao(u"txtNome");
    Define(key, u"codigo", u"nome");
    (*description)->TipoControle(TipoControle::Descricao);
    (*description)->TxtIrmao(u"txtCodigo");
    Define(description, u"nome", u"codigo");
    (*key)->Refresh();
    (*description)->Refresh();
    Forget();
  }

  static void Define(const FieldPtr& field, const String& campo, const String& siblingField) {
    const auto definition = (*field)->Browse();
    definition->BrowseTable(u"clientes");
    definition->BrwCampo(campo);
    definition->BrwCampoIrmao(siblingField);
  }
  memory::Rows Answer(const String& statement) {
    if (!found) return {{{u"nada"}}, {}};
    const bool asksForName = StartsWith(statement, u"Select Top 1 nome");
    if (asksForName) return {{{u"nome"}, {u"cidade"}}, {{u"Ana", u"Campinas"}}};
    return {{{u"codigo"}}, {{u"7"}}};
  }
  void Forget() {
    connection->TakeStatements();
    key->ForgetEvents();
    description->ForgetEvents();
    app.TakeBoxes();
  }
  /// Assigns as after a typed key.
  static void AssignTyped(const FieldPtr& field, const Variant& value) {
    Integer code = 16, shift = 0;  // Shift starts no search
    field->txtEdit().OnKeyUp(code, shift);
    (*field)->Value(value);
  }
  std::shared_ptr<CampoOutro> AddReturnField(const FieldPtr& field, const String& name) {
    (*field)->Browse()->Outros().Add(name);
    return (*field)->Browse()->Outros().Item((*field)->Browse()->Outros().Count());
  }

  bool found = true;
  FieldPtr key, description;
};

}  // namespace tessaria::test
