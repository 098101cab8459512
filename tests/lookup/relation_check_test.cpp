#include "lookup/relation_check.h"

#include "tests/lookup/lookup_fixture.h"
#include "tests/support/comma_locale.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char16_t* const kNotPostgres[] = {u"ACCESS", u"MS JET", u"Microsoft SQL Server", u"SQLite"};

const Long kTextTypes[] = {host::type::WChar, host::type::VarWChar, host::type::VarChar,
                           host::type::Char};
const Long kOtherTypes[] = {host::type::SmallInt, host::type::Integer,    host::type::Single,
                            host::type::Double,   host::type::Currency,   host::type::Date,
                            host::type::Boolean,  host::type::Decimal,    host::type::TinyInt,
                            host::type::Binary,   host::type::Numeric,    host::type::DBDate,
                            host::type::DBTime,   host::type::DBTimeStamp};

memory::Rows OneRow(const Variant& value) {
  return {{{u"codigo", host::type::Integer}}, {{value}}};
}

class RelationTest : public LookupTest {
 protected:
  bool Check() {
    return mdlObjTxt::ChecaRelacao(table, field, value, kind, bound.get(), hasField, mayBeBlank,
                                   message, where, label, result, 77, button);
  }

  /// Binds the control to a field of that type.
  void Bind(Long type) {
    const auto application = memory::Connection::CreateOpen();
    application->Answer(u"linha", memory::Rows{{{u"codigo", type}}, {}});
    rows = application->Execute(u"linha");
    bound = rows->Fields().Item(0);
    hasField = true;
  }

  String table = u"clientes";
  String field = u"codigo";
  String value = u"15";
  TipoControle kind = TipoControle::Browse;
  host::RecordsetPtr rows;
  host::FieldPtr bound;
  bool hasField = false;
  bool mayBeBlank = true;
  bool message = true;
  String where;
  String label;
  Variant found = u"before";
  Variant* result = &found;
  bool button = false;
};

TEST_F(RelationTest, WithoutATableOrFieldTheValueIsAcceptedWithoutAQuery) {
  State().dbConexao = nullptr;
  table = u"";
  EXPECT_TRUE(Check());
  EXPECT_SAME(found, Variant());
  table = u"clientes";
  field = u"";
  value = u"";
  button = true;
  mayBeBlank = false;
  EXPECT_TRUE(Check());
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

struct BlankCase {
  bool button;
  bool mayBeBlank;
  bool passes;
};

const BlankCase kBlanks[] = {
    {false, false, true},  // a required field can be left with Tab
    {false, true, true},
    {true, false, false},
    {true, true, true},
};

TEST_F(RelationTest, ABlankIsRefusedOnlyForAButton) {
  State().dbConexao = nullptr;
  value = u"";
  where = u"ativo = 1";
  for (const auto& row : kBlanks) {
    button = row.button;
    mayBeBlank = row.mayBeBlank;
    found = u"before";
    EXPECT_EQ(Check(), row.passes);
    EXPECT_SAME(found, Variant());
    EXPECT_EQ(app.TakeBoxes().size(), row.passes ? 0U : 1U);
  }
  EXPECT_EQ(where, u"ativo = 1");
}

TEST_F(RelationTest, ARefusedBlankIsReportedEvenWithoutTheOtherMessage) {
  value = u"";
  button = true;
  mayBeBlank = false;
  message = false;
  label = u"Cliente";
  EXPECT_FALSE(Check());
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(memory::MessageBoxRecord{
                                   77, u"Cliente Não Pode Ser Branco, Verifique Por Favor",
                                   host::box::Exclamation, u"Alerta!"}));
}

TEST_F(RelationTest, WithoutALabelTheMessageNamesFieldAndTable) {
  value = u"";
  button = true;
  mayBeBlank = false;
  EXPECT_FALSE(Check());
  EXPECT_EQ(app.TakeBoxes().at(0).Text,
            u"codigo de clientes Não Pode Ser Branco, Verifique Por Favor");
}

TEST_F(RelationTest, OneBlankIsAValue) {
  value = u" ";
  Bind(host::type::VarChar);
  EXPECT_FALSE(Check());
  EXPECT_THAT(connection->Texts(),
              ElementsAre(u"Select Top 1 codigo From clientes Where codigo = ' '"));
}

TEST_F(RelationTest, AMissingRowIsReported) {
  Bind(host::type::Integer);
  EXPECT_FALSE(Check());
  label = u"Cliente ";
  EXPECT_FALSE(Check());
  EXPECT_THAT(
      app.TakeBoxes(),
      ElementsAre(
          memory::MessageBoxRecord{77, u"codigo de clientes Inexistente, Verifique Por Favor",
                                   host::box::Exclamation, u"Alerta!"},
          memory::MessageBoxRecord{77, u"Cliente  Inexistente, Verifique Por Favor",
                                   host::box::Exclamation, u"Alerta!"}));
  EXPECT_SAME(found, Variant());
}

TEST_F(RelationTest, WithoutTheMessageAMissingRowFailsSilently) {
  Bind(host::type::Integer);
  message = false;
  EXPECT_FALSE(Check());
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(RelationTest, TheFoundValueIsReturned) {
  Bind(host::type::Integer);
  connection->WillAnswer(OneRow(Long{15}));
  EXPECT_TRUE(Check());
  EXPECT_SAME(found, Long{15});
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(RelationTest, ANullThatWasFoundIsNotEmpty) {
  Bind(host::type::Integer);
  connection->WillAnswer(OneRow(Variant::Null()));
  EXPECT_TRUE(Check());
  EXPECT_SAME(found, Variant::Null());
}

TEST_F(RelationTest, TheCallerMayIgnoreTheValue) {
  Bind(host::type::Integer);
  result = nullptr;
  EXPECT_FALSE(Check());
  connection->WillAnswer(OneRow(Long{15}));
  EXPECT_TRUE(Check());
  EXPECT_SAME(found, u"before");
}

TEST_F(RelationTest, TheRowsAreOpenedStaticAndReadOnly) {
  Check();
  ASSERT_EQ(connection->Statements().size(), 2U);
  for (const auto& statement : connection->Statements()) {
    EXPECT_FALSE(statement.Executed);
    EXPECT_EQ(statement.Cursor, host::CursorType::Static);
    EXPECT_EQ(statement.Lock, host::LockType::ReadOnly);
    EXPECT_EQ(statement.Options, -1);
  }
}

struct ProbeCase {
  const char16_t* dialect;
  Long type;
  const char16_t* value;
  const char16_t* where;
  const char16_t* statement;
};

const ProbeCase kProbes[] = {
    {u"ACCESS", host::type::Integer, u"15", u"",
     u"Select Top 1 codigo From clientes Where codigo = 15"},
    {u"Microsoft SQL Server", host::type::Integer, u"15", u"ativo = 1",
     u"Select Top 1 codigo From clientes Where codigo = 15 And ativo = 1"},
    {u"MS JET", host::type::VarChar, u"A'1", u"",
     u"Select Top 1 codigo From clientes Where codigo = 'A''1'"},
    {u"SQLite", host::type::VarChar, u"Abc", u"ativo = 1",
     u"Select Top 1 codigo From clientes Where codigo = 'Abc' And ativo = 1"},
    {u"PostgreSQL", host::type::Integer, u"15", u"",
     u"Select codigo From clientes Where cast(codigo as integer) = 15 Limit 1"},
    {u"PostgreSQL", host::type::Integer, u"15", u"ativo = 1",
     u"Select codigo From clientes Where cast(codigo as integer) = 15 And ativo = 1 Limit 1"},
    {u"PostgreSQL", host::type::VarWChar, u"Abc", u"",
     u"Select codigo From clientes Where cast(lower(codigo) as varchar) = "
     u"cast(lower('Abc') as varchar) Limit 1"},
    {u"PostgreSQL", host::type::VarWChar, u"A'1", u"ativo = 1",
     u"Select codigo From clientes Where cast(lower(codigo) as varchar) = "
     u"cast(lower('A''1') as varchar) And ativo = 1 Limit 1"},
    // A number that was typed with a comma is written with a point.
    {u"ACCESS", host::type::Double, u"12,5", u"",
     u"Select Top 1 codigo From clientes Where codigo = 12.5"},
    {u"Microsoft SQL Server", host::type::Currency, u"1234,50", u"",
     u"Select Top 1 codigo From clientes Where codigo = 1234.50"},
    {u"PostgreSQL", host::type::Numeric, u"-12,5", u"",
     u"Select codigo From clientes Where cast(codigo as integer) = -12.5 Limit 1"},
    {u"ACCESS", host::type::Integer, u"00015", u"",
     u"Select Top 1 codigo From clientes Where codigo = 00015"},
    {u"ACCESS", host::type::Double, u"1.234", u"",
     u"Select Top 1 codigo From clientes Where codigo = 1.234"},
    {u"ACCESS", host::type::VarChar, u"12,5", u"",
     u"Select Top 1 codigo From clientes Where codigo = '12,5'"},
};

TEST_F(RelationTest, WritesTheStatementOfEachDialect) {
  for (const auto& row : kProbes) {
    SCOPED_TRACE(ToUtf8(row.statement));
    State().dbConexao = connection = std::make_shared<RecordingConnection>();
    connection->Dbms(row.dialect);
    connection->WillAnswer(OneRow(Long{1}));
    Bind(row.type);
    value = row.value;
    where = row.where;
    EXPECT_TRUE(Check());
    EXPECT_THAT(connection->Texts(), ElementsAre(row.statement));
  }
}

TEST_F(RelationTest, AValueThatIsNotANumberIsRefusedBeforeItIsSent) {
  Bind(host::type::Integer);
  label = u"Cliente ";
  for (const char16_t* typed : {u"1,a", u"0 or true", u"1 or pg_sleep(1) is null", u"1.234,50"}) {
    value = typed;
    EXPECT_FALSE(Check());
    ExpectErrorBox(u"ChecaRelacao",
                   HostError(errors::TypeMismatch, u"Cliente: o valor \"" + value +
                                                       u"\" não é um número, e só um número é "
                                                       u"aceito aqui."));
  }
  EXPECT_THAT(connection->Statements(), IsEmpty());
}

TEST_F(RelationTest, ThePostgresVersionDoesNotMatter) {
  connection->Dbms(u"PostgreSQL", u"PostgreSQL 10.1 on x");
  connection->WillAnswer(OneRow(Long{15}));
  Bind(host::type::Integer);
  EXPECT_TRUE(Check());
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(RelationTest, TheBoundFieldsTypeDecidesTheQuotes) {
  message = false;
  for (const Long type : kTextTypes) {
    Bind(type);
    Check();
    EXPECT_EQ(connection->Texts().back(), u"Select Top 1 codigo From clientes Where codigo = '15'");
  }
  for (const Long type : kOtherTypes) {
    Bind(type);
    Check();
    EXPECT_EQ(connection->Texts().back(), u"Select Top 1 codigo From clientes Where codigo = 15")
        << type;
  }
}

TEST_F(RelationTest, AQuotedValueKeepsItsBlanksAndABareOneIsUnchanged) {
  value = u" 15 ";
  Bind(host::type::VarChar);
  Check();
  Bind(host::type::Integer);
  Check();
  EXPECT_THAT(connection->Texts(),
              ElementsAre(u"Select Top 1 codigo From clientes Where codigo = ' 15 '",
                          u"Select Top 1 codigo From clientes Where codigo =  15 "));
}

TEST_F(RelationTest, ADescriptionIsAlwaysTextWhateverItsField) {
  kind = TipoControle::Descricao;
  value = u"  d'água ";
  hasField = true;  // without a field object, because it is not used
  Check();
  connection->Dbms(u"PostgreSQL");
  Check();
  EXPECT_THAT(connection->Texts(),
              ElementsAre(u"Select Top 1 codigo From clientes Where codigo = 'd''água'",
                          u"Select codigo From clientes Where cast(lower(codigo) as varchar) = "
                          u"cast(lower('d''água') as varchar) Limit 1"));
}

TEST_F(RelationTest, WithoutAFieldAProbeFindsTheType) {
  for (const auto* dialect : kNotPostgres) {
    State().dbConexao = connection = std::make_shared<RecordingConnection>();
    connection->Dbms(dialect);
    connection->WillAnswer({{{u"codigo", host::type::Integer}}, {}});
    connection->WillAnswer(OneRow(Long{15}));
    EXPECT_TRUE(Check());
    EXPECT_THAT(connection->Texts(),
                ElementsAre(u"Select Top 1 codigo From clientes Where codigo=Null",
                            u"Select Top 1 codigo From clientes Where codigo = 15"));
  }
}

TEST_F(RelationTest, TheProbeOnPostgres) {
  connection->Dbms(u"PostgreSQL");
  connection->WillAnswer({{{u"codigo", host::type::Numeric}}, {}});
  connection->WillAnswer(OneRow(Long{15}));
  EXPECT_TRUE(Check());
  EXPECT_THAT(connection->Texts(),
              ElementsAre(u"Select codigo From clientes Where codigo=Null Limit 1",
                          u"Select codigo From clientes Where cast(codigo as integer) = 15 "
                          u"Limit 1"));
  EXPECT_EQ(connection->Recordsets().front()->State(), host::state::Closed);
}

TEST_F(RelationTest, AProbedNumberHasAPointToo) {
  value = u"12,5";
  connection->WillAnswer({{{u"codigo", host::type::Double}}, {}});
  Check();
  EXPECT_EQ(connection->Texts().back(), u"Select Top 1 codigo From clientes Where codigo = 12.5");
}

TEST_F(RelationTest, ANumberHasAPointWhateverTheLocale) {
  const CommaLocale locale;
  Bind(host::type::Double);
  for (const char16_t* typed : {u"1234567,5", u"1234567.5"}) {
    value = typed;
    Check();
    EXPECT_EQ(connection->Texts().back(),
              u"Select Top 1 codigo From clientes Where codigo = 1234567.5");
  }
}

// The first " as " ends the field, also when it does not introduce an alias.
TEST_F(RelationTest, ACastInTheFieldIsCutLikeAnAlias) {
  Bind(host::type::Integer);
  field = u"cast(k as integer) as chave";
  Check();
  EXPECT_EQ(connection->Texts().back(),
            u"Select Top 1 cast(k as integer) as chave From clientes Where cast(k  = 15");
}

TEST_F(RelationTest, AProbedTextIsQuotedNotTrimmed) {
  value = u"A'1 ";
  message = false;
  for (const Long type : kTextTypes) {
    connection->WillAnswer({{{u"codigo", type}}, {}});
    Check();
    EXPECT_EQ(connection->Texts().back(),
              u"Select Top 1 codigo From clientes Where codigo = 'A''1 '");
  }
}

TEST_F(RelationTest, TheConditionHasNoAlias) {
  field = u"upper(nome) as n";
  connection->WillAnswer({{{u"n", host::type::VarChar}}, {}});
  Check();
  EXPECT_THAT(connection->Texts(),
              ElementsAre(u"Select Top 1 upper(nome) as n From clientes Where upper(nome) =Null",
                          u"Select Top 1 upper(nome) as n From clientes Where upper(nome)  = "
                          u"'15'"));
  // The message names the field as the program wrote it.
  EXPECT_EQ(app.TakeBoxes().at(0).Text,
            u"upper(nome) as n de clientes Inexistente, Verifique Por Favor");
}

TEST_F(RelationTest, TheCallersConditionKeepsItsPrefix) {
  Bind(host::type::Integer);
  where = u"ativo = 1";
  connection->WillAnswer(OneRow(Long{15}));
  EXPECT_TRUE(Check());
  EXPECT_EQ(where, u" And ativo = 1");
  where = u"";
  Check();
  EXPECT_EQ(where, u"");
}

TEST_F(RelationTest, ARefusedStatementIsReportedAndFails) {
  const HostError refused(errors::ProviderError, u"relação \"clientes\" não existe");
  Bind(host::type::Integer);
  where = u"ativo = 1";
  connection->WillFail(refused);
  EXPECT_FALSE(Check());
  ExpectErrorBox(u"ChecaRelacao", refused);
  EXPECT_SAME(found, Variant());
  EXPECT_EQ(where, u" And ativo = 1");
}

TEST_F(RelationTest, ARefusedProbeIsReportedAndRunsNoCheck) {
  const HostError refused(errors::ProviderError, u"coluna não existe");
  where = u"ativo = 1";
  connection->WillFail(refused);
  EXPECT_FALSE(Check());
  ExpectErrorBox(u"ChecaRelacao", refused);
  EXPECT_EQ(connection->Statements().size(), 1U);
  EXPECT_EQ(where, u"ativo = 1");
}

TEST_F(RelationTest, WithoutAConnectionTheErrorIsReported) {
  State().dbConexao = nullptr;
  EXPECT_FALSE(Check());
  ExpectErrorBox(u"ChecaRelacao", HostError(errors::ObjectNotSet));
}

TEST_F(RelationTest, AClosedConnectionIsReported) {
  connection->Close();
  EXPECT_FALSE(Check());
  ExpectErrorBox(u"ChecaRelacao", HostError(errors::InvalidConnection));
}

TEST_F(RelationTest, AMissingFieldIsReported) {
  hasField = true;
  EXPECT_FALSE(Check());
  ExpectErrorBox(u"ChecaRelacao", HostError(errors::ObjectNotSet));
}

TEST_F(RelationTest, AFieldOfClosedRowsIsReported) {
  Bind(host::type::Integer);
  rows->Close();
  EXPECT_FALSE(Check());
  ExpectErrorBox(u"ChecaRelacao", HostError(errors::ObjectClosed));
}

}  // namespace
}  // namespace tessaria::test
