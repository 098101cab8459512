// A field for tests of keys, on a database that finds "Ana Maria", code 7.
#pragma once

#include "tests/control/control_fixture.h"

namespace tessaria::test {

class KeysTest : public ControlTest {
 protected:
  KeysTest() {
    field = AddField(u"txtNome");
    connection->SetProperty(u"DBMS Name", u"ACCESS");
    connection->OnStatement = [](const String&) -> memory::Rows {
      return {{{u"nome"}, {u"codigo"}}, {{u"Ana Maria", u"7"}}};
    };
  }
  tsText& Control() { return **field; }
  /// A key-up of the box alone.
  void KeyUp(Integer code) {
    Integer shift = 0;
    field->txtEdit().OnKeyUp(code, shift);
  }
  void Show() {
    form->Show();
    form->Focus(u"txtNome");
    field->ForgetEvents();
    connection->TakeStatements();
  }

  FieldPtr field;
};

}  // namespace tessaria::test
