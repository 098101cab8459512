// The statement of a search over the rows of a list.
#include "browse/search_run.h"

#include "tessaria/text.h"
#include "tests/browse/browse_fixture.h"

namespace tessaria::test {
namespace {

using mdlObjTxt::SearchEntry;
using memory::MessageBoxRecord;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr host::WidgetDescription kWidgets[] = {{u"grade", host::WidgetKind::DataGrid}};
constexpr host::DialogDescription kGridOnly{u"frmGrade", u"", kWidgets};

class SearchRun : public BrowseTest {
 protected:
  SearchRun() {
    data = connection->Execute(u"Select * From antes");
    grid.DataSource(data);
    connection->TakeStatements();
  }

  static SearchEntry Entry(const String& field, Long like, const String& orderBy = u"") {
    SearchEntry entry;
    entry.Table = u"clientes";
    entry.Campo = field;
    entry.Tipo = 8;
    entry.Like = like;
    entry.Caption = field;
    entry.Width = 2000;
    entry.OrderBy = orderBy;
    return entry;
  }
  /// "" cancels a prompt.
  void Search(const std::vector<SearchEntry>& entries, const std::vector<String>& answers) {
    for (const auto& answer : answers) {
      desktop->WillShow(u"frmTsPesquisa", [answer](memory::Dialog& prompt) {
        prompt.Type(answer);
        prompt.Click(answer.empty() ? u"btnCancelar" : u"btnOk");
      });
    }
    mdlObjTxt::ExecutaPesquisa(entries, fields, from, where, orderBy, groupBy, data, grid, 5);
  }

  String fields = u"codigo, nome";
  String from = u"clientes";
  String where = u"ativo = 1";
  String orderBy;
  String groupBy;
  host::DialogPtr window = TheDesktop().MakeDialog(kGridOnly);
  host::DataGrid& grid = window->Find<host::DataGrid>(u"grade");
  host::RecordsetPtr data;
};

TEST_F(SearchRun, OrdersByTheFieldAsWrittenInTheSearch) {
  Search({Entry(u"nome", 1)}, {u"Ma"});
  EXPECT_EQ(OnlyStatement(),
            u"Select codigo, nome From clientes Where (clientes.nome ilike 'Ma%') And ativo = 1 "
            u"Order by nome");
  // A field that is written with its table keeps it in the order.
  Search({Entry(u"clientes.nome", 1)}, {u"Ma"});
  EXPECT_EQ(OnlyStatement(),
            u"Select codigo, nome From clientes Where (clientes.nome ilike 'Ma%') And ativo = 1 "
            u"Order by clientes.nome");
}

TEST_F(SearchRun, RemovesTheAliasOfItsField) {
  Search({Entry(u"upper(nome) as n", 1)}, {u"Ma"});
  EXPECT_EQ(OnlyStatement(),
            u"Select codigo, nome From clientes Where (upper(clientes.nome)  ilike 'Ma%') And "
            u"ativo = 1 Order by upper(nome) ");
}

TEST_F(SearchRun, SpeaksEachDialect) {
  const struct {
    StringView Dbms, Keyword;
  } cases[] = {{kAccess, u"Like"}, {kSqlServer, u"Like"}, {kPostgres, u"ilike"}, {kUnknown, u""}};
  for (const auto& c : cases) {
    Dbms(c.Dbms);
    Search({Entry(u"nome", 1)}, {u"Ma"});
    EXPECT_EQ(OnlyStatement(), u"Select codigo, nome From clientes Where (clientes.nome " +
                                   String(c.Keyword) + u" 'Ma%') And ativo = 1 Order by nome");
  }
}

TEST_F(SearchRun, PutsItsPartsInOrder) {
  where = u"";
  groupBy = u"Group By codigo, nome";
  Search({Entry(u"nome", 0)}, {u"Ana"});
  EXPECT_EQ(OnlyStatement(),
            u"Select codigo, nome From clientes Where (clientes.nome = 'Ana') Group By codigo, "
            u"nome Order by nome");
  orderBy = u"2, 1";
  Search({Entry(u"nome", 0)}, {u"Ana"});
  EXPECT_EQ(OnlyStatement(),
            u"Select codigo, nome From clientes Where (clientes.nome = 'Ana') Group By codigo, "
            u"nome Order by 2, 1");
  Search({Entry(u"nome", 0, u"cidade")}, {u"Ana"});
  EXPECT_EQ(OnlyStatement(),
            u"Select codigo, nome From clientes Where (clientes.nome = 'Ana') Group By codigo, "
            u"nome Order by cidade");
}

TEST_F(SearchRun, JoinsItsConditionsAndTakesTheRestOfTheLastEntry) {
  from = u"";
  fields = u"";
  auto first = Entry(u"a", 0, u"x");
  first.Table = u"um";
  auto second = Entry(u"b", 1);
  second.Table = u"dois";
  Search({first, second}, {u"1", u"x"});
  EXPECT_EQ(OnlyStatement(),
            u"Select * From dois Where (um.a = '1' And dois.b ilike 'x%') And ativo = 1 Order by "
            u"b");
  EXPECT_EQ(fields, u"*");
  EXPECT_EQ(from, u"dois");
}

TEST_F(SearchRun, ShowsTheRowsThatItFound) {
  rows = NamesFirst();
  Search({Entry(u"nome", 1)}, {u"b"});
  EXPECT_EQ(grid.DataSource(), data);
  EXPECT_EQ(data->RecordCount(), 5);
  EXPECT_EQ(grid.Column(0).DataField(), u"nome");
}

TEST_F(SearchRun, WithNoEntryNothingHappens) {
  Search({}, {});
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
  EXPECT_EQ(grid.DataSource(), data);
}

TEST_F(SearchRun, CancellingTheSecondPromptAlsoDiscardsTheFirstAnswer) {
  const auto before = data;
  fields = u"";
  Search({Entry(u"a", 0), Entry(u"b", 0), Entry(u"c", 0)}, {u"1", u""});
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
  EXPECT_EQ(grid.DataSource(), before);
  EXPECT_EQ(fields, u"");
}

TEST_F(SearchRun, ANumberAndATextWithFieldsThatAreReady) {
  Dbms(kAccess);
  auto number = Entry(u"a", 0);
  number.Tipo = 2;
  auto text = Entry(u"b", 1);
  number.CampoPronto = text.CampoPronto = true;
  Search({number, text}, {u"1", u"x"});
  EXPECT_EQ(OnlyStatement(),
            u"Select codigo, nome From clientes Where (a = 1 And b Like 'x%') And ativo = 1 Order "
            u"by b");
}

TEST_F(SearchRun, WritesADateInEachDialect) {
  const struct {
    StringView Dbms, Literal;
  } cases[] = {{kAccess, u"Cdate('31/12/2016')"},
               {kSqlServer, u"'12/31/2016'"},
               {kPostgres, u"'2016-12-31'::date"}};
  auto day = Entry(u"data", 6);
  day.Tipo = 7;
  day.Mascara = u"dd/mm/yyyy";
  for (const auto& c : cases) {
    Dbms(c.Dbms);
    Search({day}, {u"31122016"});
    EXPECT_EQ(OnlyStatement(), u"Select codigo, nome From clientes Where (clientes.data < " +
                                   String(c.Literal) + u") And ativo = 1 Order by data");
  }
}

/// Refused answers: nothing is sent, and the list does not change.
class RefusedAnswer : public SearchRun {
 protected:
  void ExpectNothingWasSent() {
    EXPECT_THAT(connection->TakeStatements(), IsEmpty());
    EXPECT_EQ(data, before);
    EXPECT_EQ(grid.DataSource(), before);
    EXPECT_EQ(fields, u"");
    EXPECT_EQ(from, u"");
    EXPECT_THAT(desktop->Shown(), testing::SizeIs(shown));
  }

  RefusedAnswer() { fields = from = u""; }
  const host::RecordsetPtr before = data;
  std::size_t shown = 1;  ///< prompts
};

TEST_F(RefusedAnswer, OfAPromptThatFails) {
  desktop->WillShow(u"frmTsPesquisa", [](memory::Dialog& prompt) {
    prompt.Type(u"x");
    State().dbConexao = nullptr;  // without it there is no dialect
    prompt.Click(u"btnOk");
  });
  Search({Entry(u"nome", 1), Entry(u"b", 0)}, {});
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ObjectNotSet), u"tsMostraFormPesquisa")));
  ExpectNothingWasSent();
}

TEST_F(RefusedAnswer, WithABackslashThatTheServerMayReadAsAnEscape) {
  connection->SetProperty(u"Backslash Escapes", Variant::Null());
  Search({Entry(u"nome", 1)}, {u"C:\\"});
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_NE(InStr(boxes[0].Text, u"barra invertida"), 0);
  ExpectNothingWasSent();
}

TEST_F(RefusedAnswer, AfterAnAcceptedOne) {
  connection->SetProperty(u"Backslash Escapes", Variant::Null());
  shown = 2;
  Search({Entry(u"a", 0), Entry(u"b", 0)}, {u"1", u"C:\\"});
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
  ExpectNothingWasSent();
}

TEST_F(RefusedAnswer, ToASearchThatDoesNotSayHowToCompare) {
  Search({Entry(u"a", 9), Entry(u"b", 0)}, {u"1"});
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(
                  HostError(errors::InvalidArgument, u"A pesquisa \"a\" não diz como comparar."),
                  u"tsMostraFormPesquisa")));
  ExpectNothingWasSent();
}

TEST_F(SearchRun, ARefusedStatementIsOfferedAndTheGridIsEmpty) {
  const auto before = data;
  const String laidOut =
      u"SELECT\r\n      codigo,\r\n       nome \r\nFROM\r\n      clientes Where (clientes.nome = "
      u"'Ana') And ativo = 1 Order by nome";
  const MessageBoxRecord box{5, u"coluna não existe\r\r" + laidOut,
                             host::box::YesNo + host::box::Exclamation,
                             u"Deseja Copiar para Área de Transferencia ?"};
  connection->FailNext(HostError(errors::ProviderError, u"coluna não existe"));
  Search({Entry(u"nome", 0)}, {u"Ana"});
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(box));
  EXPECT_EQ(desktop->Clipboard(), std::nullopt);
  EXPECT_EQ(grid.DataSource(), nullptr);
  EXPECT_EQ(data, before);
  EXPECT_EQ(Err().Number, 0);

  connection->FailNext(HostError(errors::ProviderError, u"coluna não existe"));
  app.WillAnswer(host::answer::Yes);
  Search({Entry(u"nome", 0)}, {u"Ana"});
  EXPECT_EQ(desktop->Clipboard(), laidOut);
}

TEST_F(SearchRun, EventsAreProcessedOnceBeforeTheBox) {
  connection->FailNext(HostError(errors::ProviderError, u"recusado"));
  std::vector<std::string> order;
  desktop->WillShow(u"frmTsPesquisa", [&](memory::Dialog& prompt) {
    prompt.Type(u"x");
    prompt.Click(u"btnOk");
    app.OnDoEvents = [&] { order.push_back("pump"); };
    app.OnMessageBox = [&](const MessageBoxRecord&) { order.push_back("box"); };
  });
  Search({Entry(u"nome", 0)}, {});
  EXPECT_THAT(order, ElementsAre("pump", "box"));
}

TEST_F(SearchRun, ALostConnectionIsARefusal) {
  connection->Close();
  Search({Entry(u"nome", 0)}, {u"Ana"});
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].Title, u"Deseja Copiar para Área de Transferencia ?");
  EXPECT_EQ(grid.DataSource(), nullptr);
}

}  // namespace
}  // namespace tessaria::test
