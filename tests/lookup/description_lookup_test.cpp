#include "lookup/description_lookup.h"

#include "tests/lookup/lookup_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DescriptionTest : public LookupTest {
 protected:
  DescriptionTest() {
    browse.BrowseTable(u"clientes");
    browse.BrwCampo(u"codigo");
    browse.BrwCampoIrmao(u"nome");
    browse.BrwCampoOutros(u"cidade, uf");
  }

  Variant Find(const Variant& code, const String& where = u"") {
    return mdlObjTxt::AchaDescr(browse, code, u"txtCodigo", where, 77);
  }
  void Use(const String& name, const String& version = u"") { connection->Dbms(name, version); }
  /// The statement for a code, without a condition.
  String StatementFor(const Variant& code) {
    Find(code);
    return connection->Texts().back();
  }
  void WillFindAna() {
    connection->WillAnswer(
        {{{u"nome"}, {u"cidade"}, {u"uf"}}, {{u"Ana", u"Campinas", Variant::Null()}}});
  }

  Browse browse;
};

struct VersionStatement {
  const char16_t* dialect;
  const char16_t* version;
  const char16_t* groupBy;
  const char16_t* statement;
};

const VersionStatement kVersionStatements[] = {
    {u"ACCESS", u"", u"",
     u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And ativo = 1"},
    {u"ACCESS", u"", u"Group By nome",
     u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And ativo = 1 Group By nome"},
    {u"MS JET", u"", u"",
     u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And ativo = 1"},
    {u"Microsoft SQL Server", u"", u"",
     u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And ativo = 1"},
    {u"SQLite", u"", u"",
     u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And ativo = 1"},
    {u"PostgreSQL", u"PostgreSQL 9.4.1 on x86_64", u"",
     u"Select nome, cidade, uf From clientes Where codigo = 15 And ativo = 1 Limit 1"},
    {u"PostgreSQL", u"PostgreSQL 9.4.1 on x86_64", u"Group By nome",
     u"Select nome, cidade, uf From clientes Where codigo = 15 And ativo = 1 Group By nome   "
     u"Limit 1"},
    {u"PostgreSQL", u"PostgreSQL 9.4.9", u"",
     u"Select nome, cidade, uf From clientes Where codigo = 15 And ativo = 1 Limit 1"},
    {u"PostgreSQL", u"PostgreSQL 9.5.0", u"",
     u"Select nome, cidade, uf From clientes Where cast(codigo as varchar) = "
     u"cast(15 as varchar) And ativo = 1 Limit 1"},
    {u"PostgreSQL", u"PostgreSQL 9.5.3 on x86_64", u"Group By nome",
     u"Select nome, cidade, uf From clientes Where cast(codigo as varchar) = "
     u"cast(15 as varchar) And ativo = 1 Group By nome   Limit 1"},
    {u"MS JET", u"", u"Group By nome",
     u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And ativo = 1 Group By nome"},
    {u"Microsoft SQL Server", u"", u"Group By nome",
     u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And ativo = 1 Group By nome"},
    {u"SQLite", u"", u"Group By nome",
     u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And ativo = 1 Group By nome"},
    // The digits of the release are compared, not the release itself.
    {u"PostgreSQL", u"PostgreSQL 8.4.22 ", u"",
     u"Select nome, cidade, uf From clientes Where cast(codigo as varchar) = "
     u"cast(15 as varchar) And ativo = 1 Limit 1"},
    {u"PostgreSQL", u"PostgreSQL 15.18.0", u"",
     u"Select nome, cidade, uf From clientes Where cast(codigo as varchar) = "
     u"cast(15 as varchar) And ativo = 1 Limit 1"},
};

TEST_F(DescriptionTest, WritesTheStatementOfEachDialect) {
  for (const auto& row : kVersionStatements) {
    SCOPED_TRACE(ToUtf8(row.dialect) + " " + ToUtf8(row.version));
    Use(row.dialect, row.version);
    browse.BrwGroupBy(row.groupBy);
    Find(Long{15}, u"ativo = 1");
    EXPECT_EQ(connection->Texts().back(), row.statement);
    EXPECT_TRUE(connection->Statements().back().Executed);
  }
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

struct LiteralCase {
  Variant code;
  const char16_t* literal;
};

const LiteralCase kLiterals[] = {
    {Long{15}, u"15"},
    {Long{-3}, u"-3"},
    {12.5, u"12.5"},
    {Currency{12345600}, u"1234.56"},
    {u"15", u"'15'"},
    {u"A'1", u"'A''1'"},
    {u" x ", u"' x '"},
    {u"", u"''"},
    {Variant::Null(), u""},
    {Variant(), u""},
    {2.5F, u"2.5"},
    {DecimalFromText(u"1234567890123456789.5"), u"1234567890123456789.5"},
    {true, u"-1"},
    {false, u"0"},
    {u"x'; Drop Table clientes; --", u"'x''; Drop Table clientes; --'"},
};

TEST_F(DescriptionTest, ATextIsQuotedAndAnyOtherCodeIsWrittenAsItsText) {
  for (const auto& row : kLiterals) {
    Use(u"ACCESS");
    EXPECT_EQ(StatementFor(row.code),
              u"Select Top 1 nome, cidade, uf From clientes Where codigo = " + String(row.literal));
    Use(u"PostgreSQL", u"PostgreSQL 9.5.3");
    EXPECT_EQ(StatementFor(row.code),
              u"Select nome, cidade, uf From clientes Where cast(codigo as varchar) = cast(" +
                  String(row.literal) + u" as varchar) Limit 1");
  }
}

TEST_F(DescriptionTest, ACodeThatIsNotOneSqlTokenIsRefusedBeforeItIsSent) {
  browse.Outros().Add(u"cidade");
  browse.Outros().Item(1)->Valor(u"velho");
  Use(u"ACCESS");
  const Variant date = FromCivil({2016, 5, 3});  // would be two divisions
  EXPECT_SAME(mdlObjTxt::AchaDescr(browse, date, u"txtCodigo", {}, 0), Variant());
  ExpectErrorBox(u"AchaDescr", HostError(errors::TypeMismatch,
                                         u"txtCodigo: o valor \"03/05/2016\" não é um "
                                         u"número, e só um número é aceito aqui."));
  EXPECT_THAT(connection->Statements(), IsEmpty());
  EXPECT_SAME(browse.Outros().Item(1)->Valor(), u"velho");
}

TEST_F(DescriptionTest, ABlankConditionIsIgnored) {
  Find(Long{15}, u"   ");
  EXPECT_EQ(connection->Texts().back(),
            u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15");
}

TEST_F(DescriptionTest, AnyOtherConditionIsNotTrimmed) {
  Find(Long{15}, u" ativo = 1 ");
  EXPECT_EQ(connection->Texts().back(),
            u"Select Top 1 nome, cidade, uf From clientes Where codigo = 15 And  ativo = 1 ");
}

TEST_F(DescriptionTest, TheJoinReplacesTheTable) {
  browse.BrwLeftJoin(u"clientes Left Join cidades on clientes.cid = cidades.cod");
  EXPECT_EQ(StatementFor(Long{15}),
            u"Select Top 1 nome, cidade, uf From clientes Left Join cidades on clientes.cid = "
            u"cidades.cod Where codigo = 15");
  const String from =
      u"Select nome, cidade, uf From clientes Left Join cidades on clientes.cid = cidades.cod "
      u"Where ";
  Use(u"PostgreSQL", u"PostgreSQL 9.4.1");
  EXPECT_EQ(StatementFor(Long{15}), from + u"codigo = 15 Limit 1");
  Use(u"PostgreSQL", u"PostgreSQL 15.2.0");
  EXPECT_EQ(StatementFor(Long{15}),
            from + u"cast(codigo as varchar) = cast(15 as varchar) Limit 1");
}

TEST_F(DescriptionTest, TheConditionHasNoAliasOfTheKey) {
  browse.BrwCampo(u"upper(codigo) as n");
  EXPECT_EQ(StatementFor(u"A"),
            u"Select Top 1 nome, cidade, uf From clientes Where upper(codigo)  = 'A'");
  Use(u"PostgreSQL", u"PostgreSQL 9.5.3");
  EXPECT_EQ(StatementFor(u"A"),
            u"Select nome, cidade, uf From clientes Where cast(upper(codigo)  as varchar) = "
            u"cast('A' as varchar) Limit 1");
}

TEST_F(DescriptionTest, TheListIsTheSiblingsFieldAndTheOthers) {
  browse.BrwCampoOutros(u"");
  EXPECT_EQ(StatementFor(Long{15}), u"Select Top 1 nome From clientes Where codigo = 15");
  browse.BrwCampoIrmao(u"");
  browse.BrwCampoOutros(u"cidade, uf");
  connection->WillAnswer({{{u"cidade"}, {u"uf"}}, {{u"Campinas", u"SP"}}});
  EXPECT_SAME(Find(Long{15}), u"Campinas");
  EXPECT_EQ(connection->Texts().back(), u"Select Top 1 cidade, uf From clientes Where codigo = 15");
}

TEST_F(DescriptionTest, WithNothingToSelectNeitherDatabaseNorReturnFieldsAreTouched) {
  browse.BrwCampoIrmao(u"");
  browse.BrwCampoOutros(u"");
  browse.Outros().Add(u"cidade");
  browse.Outros().Item(1)->Valor(u"Campinas");
  EXPECT_SAME(Find(Long{15}), Variant());
  EXPECT_THAT(connection->Statements(), IsEmpty());
  EXPECT_SAME(browse.Outros().Item(1)->Valor(), u"Campinas");
  EXPECT_EQ(app.EventPumps(), 0);
}

TEST_F(DescriptionTest, TheFirstFieldIsTheDescription) {
  WillFindAna();
  EXPECT_SAME(Find(Long{15}), u"Ana");
}

TEST_F(DescriptionTest, ANullDescriptionIsNull) {
  connection->WillAnswer({{{u"nome"}}, {{Variant::Null()}}});
  EXPECT_SAME(Find(Long{15}), Variant::Null());
}

TEST_F(DescriptionTest, WithoutARowTheResultIsEmpty) {
  EXPECT_SAME(Find(Long{15}), Variant());
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(DescriptionTest, TheStartAndTheEndOfTheRowsMeanNoRow) {
  browse.Outros().Add(u"cidade");
  for (const auto& toTheEnd : {PastTheEnd, AheadOfTheStart}) {
    browse.Outros().Item(1)->Valor(u"velho");
    connection->OnRows = toTheEnd;
    WillFindAna();
    EXPECT_SAME(Find(Long{15}), Variant());
    EXPECT_SAME(browse.Outros().Item(1)->Valor(), Variant());
  }
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(DescriptionTest, ReturnFieldsTakeTheirValues) {
  for (const auto* name : {u"cidade", u"uf", u"CIDADE", u"bairro"}) {
    browse.Outros().Add(name);
    browse.Outros().Item(browse.Outros().Count())->Valor(u"velho");
  }
  WillFindAna();
  Find(Long{15});
  EXPECT_SAME(browse.Outros().Item(1)->Valor(), u"Campinas");
  EXPECT_SAME(browse.Outros().Item(2)->Valor(), Variant::Null());
  EXPECT_SAME(browse.Outros().Item(3)->Valor(), Variant());  // not in the list with this spelling
  EXPECT_SAME(browse.Outros().Item(4)->Valor(), Variant());
  EXPECT_EQ(app.EventPumps(), 1);
}

TEST_F(DescriptionTest, WithoutARowAllReturnFieldsAreEmptied) {
  browse.Outros().Add(u"cidade");
  browse.Outros().Item(1)->Valor(u"velho");
  Find(Long{15});
  EXPECT_SAME(browse.Outros().Item(1)->Valor(), Variant());
  EXPECT_EQ(app.EventPumps(), 1);
}

TEST_F(DescriptionTest, AReturnFieldMatchesAnyPartOfTheListAndThenFails) {
  browse.Outros().Add(u"uf");
  browse.Outros().Add(u"cid");
  browse.Outros().Item(1)->Valor(u"velho");
  WillFindAna();
  EXPECT_SAME(Find(Long{15}), u"Ana");  // the result so far
  ExpectErrorBox(u"AchaDescr", HostError(errors::ItemNotFound));
  EXPECT_EQ(app.EventPumps(), 0);
  EXPECT_SAME(browse.Outros().Item(1)->Valor(),
              u"velho");  // a failure leaves all entries unchanged
}

TEST_F(DescriptionTest, TheDefinitionMayBeDestroyedWhileEventsAreProcessed) {
  auto own = std::make_unique<Browse>();
  own->BrowseTable(u"clientes");
  own->BrwCampo(u"codigo");
  own->BrwCampoIrmao(u"nome");
  own->Outros().Add(u"nome");
  app.Post([&] {
    own.reset();
    State().dbConexao = nullptr;
  });
  connection->WillAnswer({{{u"nome"}}, {{u"Ana"}}});
  EXPECT_SAME(mdlObjTxt::AchaDescr(*own, Long{15}, u"", u"", 0), u"Ana");
  EXPECT_EQ(own, nullptr);
}

TEST_F(DescriptionTest, TheRowsAreDropped) {
  WillFindAna();
  Find(Long{15});
  EXPECT_EQ(connection->Recordsets().front().use_count(), 1);
}

TEST_F(DescriptionTest, ARefusedStatementIsReported) {
  const HostError refused(errors::ProviderError, u"erro de sintaxe");
  browse.Outros().Add(u"cidade");
  browse.Outros().Item(1)->Valor(u"velho");
  connection->WillFail(refused);
  EXPECT_SAME(Find(Variant::Null()), Variant());
  EXPECT_EQ(connection->Texts().back(),
            u"Select Top 1 nome, cidade, uf From clientes Where codigo = ");
  ExpectErrorBox(u"AchaDescr", refused);
  EXPECT_SAME(browse.Outros().Item(1)->Valor(), u"velho");
}

TEST_F(DescriptionTest, WithoutAConnectionTheErrorIsReported) {
  State().dbConexao = nullptr;
  browse.Outros().Add(u"cidade");
  browse.Outros().Item(1)->Valor(u"velho");
  EXPECT_SAME(Find(Long{15}), Variant());
  ExpectErrorBox(u"AchaDescr", HostError(errors::ObjectNotSet));
  EXPECT_SAME(browse.Outros().Item(1)->Valor(), u"velho");
}

TEST_F(DescriptionTest, AConnectionWithoutItsTextRunsNothing) {
  connection->ConnectionString(u"");
  EXPECT_SAME(Find(Long{15}), Variant());
  EXPECT_THAT(connection->Statements(), IsEmpty());
  ExpectErrorBox(u"AchaDescr", HostError(errors::ObjectNotSet));
}

TEST_F(DescriptionTest, AVersionWithTwoLeadingDigitsThatIsNotCutToANumberIsReported) {
  Use(u"PostgreSQL", u"PostgreSQL 10.1 on x");
  EXPECT_SAME(Find(Long{15}), Variant());
  EXPECT_THAT(connection->Statements(), IsEmpty());
  ExpectErrorBox(u"AchaDescr", HostError(errors::TypeMismatch));
}

TEST_F(DescriptionTest, ACodeThatIsAnObjectIsReported) {
  EXPECT_SAME(Find(Variant(ObjectPtr())), Variant());
  ExpectErrorBox(u"AchaDescr", HostError(errors::TypeMismatch));
}

}  // namespace
}  // namespace tessaria::test
