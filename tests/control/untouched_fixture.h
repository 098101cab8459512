// One field on one row, for tests of touched and untouched fields.
#pragma once

#include "tests/control/control_fixture.h"
#include "tests/control/raw_rows.h"

namespace tessaria::test {

/// One field on one row.
class UntouchedTest : public ControlTest {
 protected:
  UntouchedTest() {
    form->Add<memory::Generic>(u"chkAtivo", u"CheckBox", memory::Generic::Focus::Taken);
  }

  void AddRow(const memory::Column& column, const Variant& stored) {
    data = AddData({column}, {{stored}});
    field = AddField(u"txtCampo");
    Bind(field, column.Name);
    Control().UsaChecaRelacao(false);
  }
  void AddRow(Long type, const Variant& stored) { AddRow({u"campo", type}, stored); }
  /// A row that keeps any value whatever its type, and records writes.
  void AddRawRow(Long type, const Variant& stored) {
    rows->Field.Type = type;
    rows->Field.Value = stored;
    const auto control = form->Add<memory::DataControl>(u"dtcDados");
    control->ConnectionString(u"DSN=teste");
    control->RecordSource(u"crua");
    control->RecordSet(rows);
    field = AddField(u"txtCampo");
    Bind(field, u"campo");
    Control().UsaChecaRelacao(false);
  }
  tsText& Control() { return **field; }
  memory::TextBox& Box() { return field->txtEdit(); }
  void Enter() { form->Focus(u"txtCampo"); }
  void Leave() { form->Focus(u"chkAtivo"); }
  void TabThrough() {
    Enter();
    Leave();
  }
  Variant Stored() { return data->RecordSet()->Fields().Item(u"campo")->Value(); }
  bool IsEdited() { return data->RecordSet()->EditMode() != host::EditMode::None; }

  std::shared_ptr<memory::DataControl> data;
  std::shared_ptr<RawRows> rows = std::make_shared<RawRows>();
  FieldPtr field;
};

}  // namespace tessaria::test
