// The statement that opens a list.
#include "tests/browse/run_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;

class LookupStatement : public RunTest {
 protected:
  /// A description whose box contains a text that was completed after the caret.
  RunArguments Description(const String& text, Long typed) {
    box.Text(text);
    box.SelStart(typed);
    box.SelLength(static_cast<Long>(text.size()) - typed);
    RunArguments a;
    a.Tipo = TipoControle::Descricao;
    a.Campo = u"nome";
    a.SiblingField = u"codigo";
    a.OtherFields = u"";
    return a;
  }
  /// The statement of such a description, with its comparison.
  static String Filtered(StringView comparison) {
    return u"Select nome, codigo From clientes Where ativo = 1 And nome " + String(comparison) +
           u" And nome Is Not Null  Order by 1";
  }
};

TEST_F(LookupStatement, OfAKey) {
  EXPECT_EQ(StatementOf({}),
            u"Select codigo, nome, cidade From clientes Where ativo = 1 And codigo Is Not Null  "
            u"Order by 1");
}

TEST_F(LookupStatement, OfADescriptionContainsTheTypedTextWithoutItsCompletion) {
  Dbms(kSqlServer);
  EXPECT_EQ(StatementOf(Description(u"Maria", 2)),
            u"Select nome, codigo From clientes Where ativo = 1 And nome Like 'Ma%' And nome Is "
            u"Not Null  Order by 1");
}

TEST_F(LookupStatement, ComparesInTheDialect) {
  const struct {
    StringView Dbms;
    StringView Condition;
  } cases[] = {{kAccess, u"nome Like 'Ma%'"},
               {u"MS Jet", u"nome Like 'Ma%'"},
               {kSqlServer, u"nome Like 'Ma%'"},
               {kPostgres, u"nome ilike 'Ma%'"},
               {kUnknown, u"nome  'Ma%'"}};
  for (const auto& c : cases) {
    Dbms(c.Dbms);
    auto a = Description(u"Maria", 2);
    a.Where = u"";
    EXPECT_EQ(StatementOf(a), u"Select nome, codigo From clientes Where " + String(c.Condition) +
                                  u" And nome Is Not Null  Order by 1");
  }
}

TEST_F(LookupStatement, ACaretAtTheStartTakesTheWholeText) {
  EXPECT_EQ(StatementOf(Description(u"Maria", 0)), Filtered(u"ilike 'Maria%'"));
}

TEST_F(LookupStatement, DoublesApostrophesOfTheTypedText) {
  EXPECT_EQ(StatementOf(Description(u"D'Av", 0)), Filtered(u"ilike 'D''Av%'"));
}

TEST_F(LookupStatement, EscapeCharactersOfAPatternMatchThemselves) {
  EXPECT_EQ(StatementOf(Description(u"AC\\DC", 3)), Filtered(u"ilike 'AC\\\\%'"));
  Dbms(kSqlServer);
  EXPECT_EQ(StatementOf(Description(u"[A] Filial", 3)), Filtered(u"Like '[[]A]%'"));
}

TEST_F(LookupStatement, BlanksAroundTheTypedTextCount) {
  EXPECT_EQ(StatementOf(Description(u"Ma ", 0)), Filtered(u"ilike 'Ma %'"));
  EXPECT_EQ(StatementOf(Description(u" Maria", 3)), Filtered(u"ilike ' Ma%'"));
}

TEST_F(LookupStatement, ABlankBoxAndAKeyAreNotFiltered) {
  auto a = Description(u"   ", 0);
  EXPECT_EQ(StatementOf(a),
            u"Select nome, codigo From clientes Where ativo = 1 And nome Is Not Null  Order by 1");
  a = Description(u"15", 0);
  a.Tipo = TipoControle::Browse;
  EXPECT_EQ(StatementOf(a),
            u"Select nome, codigo From clientes Where ativo = 1 And nome Is Not Null  Order by 1");
}

TEST_F(LookupStatement, NoConditionHasTheAlias) {
  auto a = Description(u"Ma", 0);
  a.Campo = u"upper(nome) as n";
  a.Where = u"";
  EXPECT_EQ(StatementOf(a),
            u"Select upper(nome) as n, codigo From clientes Where upper(nome)  ilike 'Ma%' And "
            u"upper(nome)  Is Not Null  Order by 1");
}

TEST_F(LookupStatement, NoHalfOfACharacterIsSearched) {
  // The caret is inside a character of two units.
  EXPECT_EQ(
      StatementOf(Description(u"M\U0001F600", 2)),
      u"Select nome, codigo From clientes Where ativo = 1 And nome ilike 'M%' And nome Is Not "
      u"Null  Order by 1");
}

TEST_F(LookupStatement, PutsItsPartsInOrder) {
  RunArguments a;
  a.SiblingField = u"";
  a.Where = u"";
  EXPECT_EQ(StatementOf(a),
            u"Select codigo, cidade From clientes Where codigo Is Not Null  Order by 1");
  a.OtherFields = u"";
  a.GroupBy = u"Group By codigo";
  EXPECT_EQ(StatementOf(a),
            u"Select codigo From clientes Where codigo Is Not Null Group By codigo Order by 1");
  a.LeftJoin = u"clientes Left Join cidades on clientes.cid = cidades.cod";
  EXPECT_EQ(StatementOf(a),
            u"Select codigo From clientes Left Join cidades on clientes.cid = cidades.cod Where "
            u"codigo Is Not Null Group By codigo Order by 1");
}

TEST_F(LookupStatement, AsksTheFormForItsParameters) {
  auto city = form->Add<memory::TsText>(u"txtCidade");
  form->Show();
  (*city)->Value(Variant(u"Assis"));
  RunArguments a;
  a.Where = u"cidade = '@txtCidade@'";
  EXPECT_EQ(StatementOf(a),
            u"Select codigo, nome, cidade From clientes Where cidade = 'Assis' And codigo Is Not "
            u"Null  Order by 1");
}

TEST_F(LookupStatement, AParametersValueStaysOneToken) {
  auto city = form->Add<memory::TsText>(u"txtCidade");
  form->Show();
  (*city)->Value(Variant(u"' or ''='"));
  RunArguments a;
  a.Where = u"cidade = '@txtCidade@'";
  EXPECT_EQ(StatementOf(a),
            u"Select codigo, nome, cidade From clientes Where cidade = ''' or ''''=''' And codigo "
            u"Is Not Null  Order by 1");
  a.Where = u"cidade = @txtCidade@";
  EXPECT_EQ(RunUnseen(a), u"");
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
}

TEST_F(LookupStatement, AnUnknownParameterIsReported) {
  RunArguments a;
  a.Where = u"cidade = @txtNada@";
  EXPECT_EQ(RunUnseen(a), u"");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(
                  HostError(errors::ControlNotFound, u"Controle não encontrado: 'txtNada'"),
                  u"VerBrowse")));
}

}  // namespace
}  // namespace tessaria::test
