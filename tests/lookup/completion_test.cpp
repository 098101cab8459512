#include "lookup/description_lookup.h"
#include "tessaria/memory/text_box.h"
#include "tests/lookup/lookup_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Records the calls that the completion makes to the sibling.
class Sibling final : public _tsText {
 public:
  Variant Value() const override { return value; }
  void Value(const Variant& v) override {
    value = v;
    calls.push_back(u"Value");
  }
  bool TakeValue(const Variant& v) override {
    if (refuses) return false;
    Value(v);
    return true;
  }
  void ShowValue(const Variant& v) override { Value(v); }
  Long TipoDado() const override { return 1; }
  String TxtIrmao() const override { return {}; }
  bool Enabled() const override { return true; }
  void Enabled(bool) override {}
  bool LastValidaStatus() const override { return true; }
  Variant AtualizaIrmao(bool onlyKey, bool raise) override {
    calls.push_back(u"AtualizaIrmao " + CStr(onlyKey) + u" " + CStr(raise));
    return {};
  }
  void ShowSibling(bool) override {}
  Variant DisparaEventos(const String& event) override {
    calls.push_back(u"DisparaEventos " + event);
    return {};
  }

  Variant value;
  bool refuses = false;
  std::vector<String> calls;
};

constexpr Integer kKeyA = 65;
constexpr Integer kBackspace = 8;

class CompletionTest : public LookupTest {
 protected:
  Variant Complete(const Variant& key = kKeyA) {
    return mdlObjTxt::CompletaDescr(box, u"clientes", u"nome", key, hasSibling, siblingField,
                                    sibling, where);
  }
  void WillFindMaria() {
    connection->WillAnswer({{{u"nome"}, {u"codigo", host::type::Integer}}, {{u"Maria", Long{7}}}});
  }

  memory::TextBox box;
  Sibling other;
  bool hasSibling = true;
  Variant siblingField = u"codigo";
  _tsText* sibling = &other;
  String where = u"ativo = 1";
};

TEST_F(CompletionTest, WhenTheSiblingRefusesTheBoxGetsItsTextBack) {
  other.refuses = true;
  for (const Integer key : {kKeyA, kBackspace}) {
    WillFindMaria();
    box.Text(u"Mar");
    box.SelStart(1);
    box.SelLength(1);
    Complete(key);
    EXPECT_EQ(box.Text(), u"Mar");
    EXPECT_EQ(box.SelStart(), 1);
    EXPECT_EQ(box.SelLength(), 1);
    EXPECT_THAT(other.calls, IsEmpty());
  }
}

struct StatementCase {
  const char16_t* dialect;
  Variant siblingField;
  const char16_t* where;
  const char16_t* typed;
  const char16_t* statement;
};

const StatementCase kStatements[] = {
    {u"ACCESS", u"codigo", u"ativo = 1", u"Ma",
     u"Select Top 1 nome, codigo From clientes Where ativo = 1 And nome Like 'Ma%'"},
    {u"MS JET", u"codigo", u"", u"Ma",
     u"Select Top 1 nome, codigo From clientes Where nome Like 'Ma%'"},
    {u"Microsoft SQL Server", Variant::Missing(), u"ativo = 1", u"Ma",
     u"Select Top 1 nome From clientes Where ativo = 1 And nome Like 'Ma%'"},
    {u"SQLite", u"", u"", u"d'á", u"Select Top 1 nome From clientes Where nome Like 'd''á%'"},
    {u"PostgreSQL", u"codigo", u"ativo = 1", u"Ma",
     u"Select nome, codigo From clientes Where ativo = 1 And nome ilike 'Ma%' Limit 1"},
    {u"PostgreSQL", u"", u"", u"x'; Drop Table clientes; --",
     u"Select nome From clientes Where nome ilike 'x''; Drop Table clientes; --%' Limit 1"},
    {u"PostgreSQL", u"", u"", u"C:\\",
     u"Select nome From clientes Where nome ilike 'C:\\\\%' Limit 1"},
    {u"Microsoft SQL Server", u"", u"", u"[A]",
     u"Select Top 1 nome From clientes Where nome Like '[[]A]%'"},
    // A character of two units is never cut in half.
    {u"PostgreSQL", u"", u"", u"Ana \U0001F600",
     u"Select nome From clientes Where nome ilike 'Ana \U0001F600%' Limit 1"},
    {u"PostgreSQL", Variant(), u"", u" %_",
     u"Select nome From clientes Where nome ilike ' %_%' Limit 1"},
};

TEST_F(CompletionTest, WritesTheStatementOfEachDialect) {
  for (const auto& row : kStatements) {
    SCOPED_TRACE(ToUtf8(row.statement));
    connection->Dbms(row.dialect);
    siblingField = row.siblingField;
    where = row.where;
    box.Text(row.typed);
    EXPECT_SAME(Complete(), Variant());
    const auto& statement = connection->Statements().back();
    EXPECT_EQ(statement.Text, row.statement);
    EXPECT_FALSE(statement.Executed);
    EXPECT_EQ(statement.Cursor, host::CursorType::Static);
    EXPECT_EQ(statement.Lock, host::LockType::ReadOnly);
    EXPECT_EQ(statement.Options, -1);
    EXPECT_EQ(box.Text(), row.typed);  // no row: the box does not change
  }
  EXPECT_THAT(other.calls, IsEmpty());
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(CompletionTest, BackspaceRemovesAWholeCharacter) {
  siblingField = u"";
  where = u"";
  box.Text(u"Ana \U0001F600");
  EXPECT_SAME(Complete(kBackspace), Variant());
  EXPECT_EQ(connection->Statements().back().Text,
            u"Select Top 1 nome From clientes Where nome Like 'Ana %'");
  EXPECT_EQ(box.Text(), u"Ana ");
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(CompletionTest, TheConditionHasNoAlias) {
  connection->Dbms(u"PostgreSQL");
  box.Text(u"Ma");
  mdlObjTxt::CompletaDescr(box, u"clientes", u"upper(nome) as n", kKeyA, false, u"codigo as chave",
                           nullptr, where);
  EXPECT_EQ(connection->Statements().back().Text,
            u"Select upper(nome) as n, codigo as chave From clientes Where ativo = 1 And "
            u"upper(nome)  ilike 'Ma%' Limit 1");
}

TEST_F(CompletionTest, AnEmptyBoxIsNotCompleted) {
  State().dbConexao = nullptr;
  EXPECT_SAME(Complete(kBackspace), Variant());
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(CompletionTest, TheCompletedTailIsSelected) {
  box.Text(u"Ma");
  WillFindMaria();
  EXPECT_SAME(Complete(), Variant());
  EXPECT_EQ(box.Text(), u"Maria");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(box.SelText(), u"ria");
}

TEST_F(CompletionTest, TheSiblingTakesItsFieldAndIsUpdated) {
  box.Text(u"Ma");
  WillFindMaria();
  Complete();
  EXPECT_SAME(other.value, Long{7});
  EXPECT_THAT(other.calls, ElementsAre(u"Value", u"AtualizaIrmao Verdadeiro Falso",
                                       u"DisparaEventos BrowseReturn"));
}

TEST_F(CompletionTest, TheBoxIsFilledBeforeTheSiblingAndSelectedAfterIt) {
  std::vector<String> order;
  box.Text(u"Ma");
  box.OnChange = [&] { order.push_back(u"box " + CStr(Variant(Long(other.calls.size())))); };
  WillFindMaria();
  Complete();
  EXPECT_THAT(order, ElementsAre(u"box 0"));
  EXPECT_EQ(box.SelText(), u"ria");
}

TEST_F(CompletionTest, WithoutASiblingItsFieldIsFetchedToo) {
  hasSibling = false;
  sibling = nullptr;
  box.Text(u"Ma");
  WillFindMaria();
  Complete();
  EXPECT_EQ(connection->Texts().back(),
            u"Select Top 1 nome, codigo From clientes Where ativo = 1 And nome Like 'Ma%'");
  EXPECT_EQ(box.Text(), u"Maria");
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(CompletionTest, ASiblingThatIsNotConnectedReceivesNothing) {
  hasSibling = false;
  box.Text(u"Ma");
  WillFindMaria();
  Complete();
  EXPECT_THAT(other.calls, IsEmpty());
}

TEST_F(CompletionTest, BackspaceRemovesATypedCharacter) {
  box.Text(u"Mar");
  WillFindMaria();
  Complete(kBackspace);
  EXPECT_EQ(connection->Texts().back(),
            u"Select Top 1 nome, codigo From clientes Where ativo = 1 And nome Like 'Ma%'");
  EXPECT_EQ(box.Text(), u"Maria");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(box.SelText(), u"ria");
}

TEST_F(CompletionTest, BackspaceWithoutARowLeavesTheShortenedText) {
  box.Text(u"Mxy");
  Complete(kBackspace);
  EXPECT_EQ(box.Text(), u"Mx");
}

TEST_F(CompletionTest, BackspaceOnTheLastCharacterFindsTheFirstRowOfAll) {
  box.Text(u"M");
  WillFindMaria();
  Complete(kBackspace);
  EXPECT_EQ(connection->Texts().back(),
            u"Select Top 1 nome, codigo From clientes Where ativo = 1 And nome Like '%'");
  EXPECT_EQ(box.Text(), u"Maria");
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelText(), u"Maria");
}

TEST_F(CompletionTest, AFoundTextIsNotCutAtTheLimitOfTheBox) {
  box.MaxLength(4);
  box.Text(u"Ma");
  WillFindMaria();
  Complete();
  EXPECT_EQ(box.Text(), u"Maria");
  EXPECT_EQ(box.SelText(), u"ria");
}

// Only being at the start of the rows means that there are none.
TEST_F(CompletionTest, TheStartOfTheRowsMeansNoRowAndTheirEndIsAnError) {
  box.Text(u"Ma");
  connection->OnRows = AheadOfTheStart;
  WillFindMaria();
  Complete();
  EXPECT_EQ(box.Text(), u"Ma");
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());

  connection->OnRows = PastTheEnd;
  WillFindMaria();
  Complete();
  EXPECT_EQ(box.Text(), u"Ma");
  ExpectErrorBox(u"CompletaDescr", HostError(errors::NoCurrentRecord));
  EXPECT_THAT(other.calls, IsEmpty());
}

TEST_F(CompletionTest, TheRowsAreDropped) {
  box.Text(u"Ma");
  WillFindMaria();
  Complete();
  EXPECT_EQ(connection->Recordsets().front().use_count(), 1);
}

TEST_F(CompletionTest, ARefusedStatementIsReported) {
  const HostError refused(errors::ProviderError, u"coluna não existe");
  box.Text(u"Ma");
  connection->WillFail(refused);
  EXPECT_SAME(Complete(), Variant());
  ExpectErrorBox(u"CompletaDescr", refused);
  EXPECT_EQ(box.Text(), u"Ma");
}

TEST_F(CompletionTest, WithoutAConnectionNothingIsShortened) {
  State().dbConexao = nullptr;
  box.Text(u"Ma");
  Complete(kBackspace);
  EXPECT_EQ(box.Text(), u"Ma");
  ExpectErrorBox(u"CompletaDescr", HostError(errors::ObjectNotSet));
}

TEST_F(CompletionTest, ANullDescriptionIsReported) {
  box.Text(u"Ma");
  connection->WillAnswer(
      {{{u"nome"}, {u"codigo", host::type::Integer}}, {{Variant::Null(), Long{7}}}});
  Complete();
  ExpectErrorBox(u"CompletaDescr", HostError(errors::InvalidUseOfNull));
  EXPECT_THAT(other.calls, IsEmpty());
}

TEST_F(CompletionTest, ASiblingWithoutItsFieldIsReportedAndTheBoxKeepsTheTypedText) {
  siblingField = u"";
  box.Text(u"Ma");
  connection->WillAnswer({{{u"nome"}}, {{u"Maria"}}});
  Complete();
  ExpectErrorBox(u"CompletaDescr", HostError(errors::ItemNotFound));
  EXPECT_EQ(box.Text(), u"Ma");
  EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(CompletionTest, AMissingConnectedSiblingIsReported) {
  sibling = nullptr;
  box.Text(u"Ma");
  WillFindMaria();
  Complete();
  ExpectErrorBox(u"CompletaDescr", HostError(errors::ObjectNotSet));
}

TEST_F(CompletionTest, ATextBeyond16BitsIsReported) {
  box.Text(String(40000, u'a'));
  WillFindMaria();
  Complete();
  ExpectErrorBox(u"CompletaDescr", HostError(errors::Overflow));
}

}  // namespace
}  // namespace tessaria::test
