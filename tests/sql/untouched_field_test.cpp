// Fields that nobody touches, on rows of a real server: no stored value changes.

#include "tessaria/memory/application.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

struct Stored {
  const char16_t* Type;
  const char16_t* Literal;
  const char16_t* Mask;
  Long MaxLength;
};

const Stored storedValues[] = {
    {u"numeric(12,2)", u"12345.67", u"$$$$$.$$", 7},
    {u"numeric(12,3)", u"1.239", u"$$$$$.$$", 12},
    {u"numeric(12,3)", u"-1.239", u"$$$$$.$$", 12},
    {u"numeric", u"null", u"$$$$$.$$", 12},
    {u"numeric", u"'NaN'", u"$$$$$.$$", 12},
    {u"numeric", u"0", u"#####", 5},
    {u"numeric(20)", u"12345678901234567890", u"", 0},
    {u"numeric", u"1234567890123456789.123456789", u"$$$$.$$$", 9},
    {u"bigint", u"9007199254740993", u"$$$$$$", 6},
    {u"bigint", u"-9223372036854775808", u"", 3},
    {u"integer", u"2147483647", u"0000", 4},
    {u"integer", u"0", u"", 0},
    {u"smallint", u"7", u"00000", 5},
    {u"real", u"0.3", u"$$$.$$", 6},
    {u"real", u"'NaN'", u"", 0},
    {u"double precision", u"1e300", u"$$$.$$", 6},
    {u"double precision", u"0.1234567890123456", u"", 4},
    {u"double precision", u"'Infinity'", u"$$$.$$", 6},
    {u"money", u"1234.5", u"$$$$.$", 7},
    {u"timestamp", u"'2017-12-25 10:30:59.123456'", u"dd/mm/yyyy", 10},
    {u"timestamp", u"'infinity'", u"dd/mm/yyyy", 10},
    {u"timestamp", u"'0044-03-15 12:00:00 BC'", u"dd/mm/yyyy", 0},
    {u"date", u"'2017-12-25'", u"mm/yyyy", 7},
    {u"date", u"'12017-12-25'", u"dd/mm/yy", 8},
    {u"time", u"'10:30:59'", u"##:##", 5},
    {u"text", u"'d''Ávila_&_(filhos)'", u"AAAAA", 5},
    {u"varchar(5)", u"'15'", u"00000", 5},
    {u"char(6)", u"'a b'", u"XXXX", 4},
    {u"boolean", u"null", u"#", 1},
};

class UntouchedField : public DatabaseTest, public ::testing::WithParamInterface<Stored> {
 protected:
  String StoredText() { return CStr(Scalar(u"select coalesce(campo::text, 'nulo') from t")); }

  memory::Application app_;
};

INSTANTIATE_TEST_SUITE_P(Values, UntouchedField, ::testing::ValuesIn(storedValues));

TEST_P(UntouchedField, KeepsItsRow) {
  const Stored& row = GetParam();
  Run(u"create table t (codigo int primary key, campo " + String(row.Type) + u")");
  Run(u"insert into t values (1, " + String(row.Literal) + u")");
  const String before = StoredText();
  const auto rows = Edit(u"select codigo, campo from t");

  const auto form = memory::Form::Create(u"frmCadastro", memory::Form::Mode::Run);
  const auto data = form->Add<memory::DataControl>(u"dtcDados");
  data->ConnectionString(u"real");
  data->RecordSource(u"t");
  data->RecordSet(rows);
  const auto field = form->Add<memory::TsText>(u"txtCampo");
  form->Add<memory::Generic>(u"chkAtivo", u"CheckBox", memory::Generic::Focus::Taken);
  tsText& control = **field;
  control.DataSource(u"dtcDados");
  control.DataField(u"campo");
  control.UsaChecaRelacao(false);
  control.MaxLength(row.MaxLength);
  control.Mascara(row.Mask);
  form->Show();
  for (int i = 0; i < 2; ++i) {
    form->Focus(u"txtCampo");
    form->Focus(u"chkAtivo");
  }
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(StoredText(), before);
  form->Close();
}

}  // namespace
}  // namespace tessaria::sql::test
