// The prompt of a search: how it is set up, what it takes, what it answers.
#include "browse/search_prompt.h"

#include "control/tstext.h"
#include "hosts/memory/ts_text.h"
#include "tests/browse/browse_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// One search; by name, unless a test says otherwise.
struct Search {
  String Tabela = u"clientes";
  String Campo = u"nome";
  Long Tipo = 8;
  Long Like = 3;
  String Caption = u"Nome";
  Integer Width = 2000;
  bool Completa = false;
  String Mascara;
  Integer MaxLength = 0;
  bool PromptInclude = false;
  String Where = u"ativo = 1";
  bool CampoPronto = false;
};

class SearchPrompt : public BrowseTest {
 protected:
  bool Ask(const Search& s, memory::ModalScript::Script script) {
    desktop->WillShow(u"frmTsPesquisa", std::move(script));
    return mdlObjTxt::tsMostraFormPesquisa(s.Tabela, s.Campo, s.Tipo, s.Like, s.Caption, s.Width,
                                           s.Completa, s.Mascara, s.MaxLength, s.PromptInclude,
                                           s.Where, clause, s.CampoPronto);
  }
  /// The condition of a typed answer.
  String ClauseOf(const Search& s, StringView typed) {
    clause.clear();
    EXPECT_TRUE(Ask(s, [&](memory::Dialog& prompt) {
      prompt.Type(typed);
      prompt.Click(u"btnOk");
    }));
    return clause;
  }
  /// Looks at a prompt that is cancelled then.
  void Look(const Search& s, const std::function<void(memory::Dialog&, tsText&)>& look) {
    EXPECT_FALSE(Ask(s, [&](memory::Dialog& prompt) {
      look(prompt, *prompt.Field(u"editPesquisa"));
      prompt.Click(u"btnCancelar");
    }));
  }
  static bool OkIsEnabled(memory::Dialog& prompt) {
    return prompt.Find<host::DialogButton>(u"btnOk").Enabled();
  }

  String clause = u"antes";
};

TEST_F(SearchPrompt, IsMadeOfItsTable) {
  const auto& description = frmTsPesquisa::Description();
  EXPECT_EQ(description.Name, u"frmTsPesquisa");
  ASSERT_EQ(description.Widgets.size(), 3u);
  EXPECT_EQ(description.Widgets[0].Name, u"editPesquisa");
  EXPECT_EQ(description.Widgets[0].Kind, host::WidgetKind::TsText);
  EXPECT_EQ(description.Widgets[1].Name, u"btnOk");
  EXPECT_EQ(description.Widgets[1].Caption, u"&Ok");
  EXPECT_EQ(description.Widgets[2].Name, u"btnCancelar");
  EXPECT_EQ(description.Widgets[2].Caption, u"&Cancelar");
}

// --- Set-up -------------------------------------------------------------------------------------

TEST_F(SearchPrompt, TakesTheKindOfTheSearch) {
  const struct {
    Long Tipo;
    bool Completa;
    Long TipoDado;
    TipoControle Control;
  } cases[] = {{8, false, 8, TipoControle::Normal},     {8, true, 8, TipoControle::Descricao},
               {2, false, 2, TipoControle::Normal},     {2, true, 2, TipoControle::Normal},
               {7, false, 7, TipoControle::Calendario}, {7, true, 7, TipoControle::Calendario},
               {0, true, 8, TipoControle::Normal}};
  for (const auto& c : cases) {
    Search s;
    s.Tipo = c.Tipo;
    s.Completa = c.Completa;
    Look(s, [&](memory::Dialog&, tsText& edit) {
      EXPECT_EQ(edit.TipoDado(), c.TipoDado);
      EXPECT_EQ(edit.TipoControle(), c.Control);
    });
  }
}

TEST_F(SearchPrompt, TakesTheSettingsOfTheSearch) {
  Search s;
  s.Mascara = u"00-00";
  s.MaxLength = 5;
  s.PromptInclude = true;
  s.Caption = u"Código";
  Look(s, [](memory::Dialog& prompt, tsText& edit) {
    EXPECT_EQ(prompt.Caption(), u"Pesquisa Código");
    EXPECT_EQ(prompt.Find<host::DialogField>(u"editPesquisa").Width(), 2000);
    EXPECT_EQ(edit.Mascara(), u"00-00");
    EXPECT_EQ(edit.MaxLength(), 5);
    EXPECT_TRUE(edit.PromptInclude());
    EXPECT_EQ(edit.ObjetoCancelar(), u"btnCancelar");
    EXPECT_FALSE(edit.UsaChecaRelacao());
    EXPECT_TRUE(edit.PodeSerBranco());
  });
}

TEST_F(SearchPrompt, AMaxLengthOfZeroIsNotSet) {
  const auto form = memory::Form::Create(u"frmCadastro");
  const tsText& fresh = **form->Add<memory::TsText>(u"txtNovo");
  Look({}, [&](memory::Dialog&, tsText& edit) { EXPECT_EQ(edit.MaxLength(), fresh.MaxLength()); });
}

TEST_F(SearchPrompt, CompletesATextFromTheTableAsTheOperatorTypes) {
  rows = {{{u"nome"}}, {{u"Maria"}}};
  Search s;
  s.Completa = true;
  Look(s, [&](memory::Dialog& prompt, tsText& edit) {
    EXPECT_EQ(edit.Browse()->BrowseTable(), u"clientes");
    EXPECT_EQ(edit.Browse()->BrwCampo(), u"nome");
    EXPECT_EQ(edit.Browse()->BrwWhere(), u"ativo = 1");
    prompt.Type(u"m");
    EXPECT_EQ(edit.Text(), u"Maria");
  });
  EXPECT_EQ(OnlyStatement(),
            u"Select nome From clientes Where ativo = 1 And nome ilike 'm%' Limit 1");
}

// A value may hold an "@": the condition was expanded on the form that owns the lookup.
TEST_F(SearchPrompt, TakesTheConditionAsItStands) {
  rows = {{{u"nome"}}, {{u"Maria"}}};
  Search s;
  s.Completa = true;
  s.Where = u"mail = 'joao@x' And obs = 'a@b@c'";
  Look(s, [&](memory::Dialog& prompt, tsText& edit) {
    prompt.Type(u"m");
    EXPECT_EQ(edit.Text(), u"Maria");
  });
  EXPECT_EQ(OnlyStatement(),
            u"Select nome From clientes Where mail = 'joao@x' And obs = 'a@b@c' And nome ilike "
            u"'m%' Limit 1");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(SearchPrompt, ATypedTextStaysBetweenItsApostrophes) {
  const Search s;
  EXPECT_EQ(ClauseOf(s, u"' or ''='"), u"clientes.nome ilike '%'' or ''''=''%'");
  connection->SetProperty(u"Backslash Escapes", true);
  EXPECT_EQ(ClauseOf(s, u"\\' or 1=1 --"), u"clientes.nome ilike '%\\\\'' or 1=1 --%'");
}

TEST_F(SearchPrompt, ATypedDateStaysBetweenItsApostrophes) {
  Search s;
  s.Tipo = 7;
  s.Campo = u"nascimento";
  for (const char16_t* family : {u"ACCESS", u"Microsoft SQL Server", u"PostgreSQL"}) {
    connection->SetProperty(u"DBMS Name", family);
    const String condition = ClauseOf(s, u"' or 1=1");
    EXPECT_NE(condition.find(u"''' or 1=1'"), String::npos) << ToUtf8(condition);
  }
}

TEST_F(SearchPrompt, LendsItsControlTheConnectionOfTheThread) {
  std::shared_ptr<memory::Dialog> window;
  Search s;
  s.Completa = true;
  Look(s, [&](memory::Dialog& prompt, tsText&) {
    window = prompt.shared_from_this();
    EXPECT_EQ(window->TheForm().Get(u"dbForm").As<memory::Connection>(), connection);
    EXPECT_EQ(State().dbConexao, connection);
  });
  EXPECT_HOST_ERROR(window->TheForm().Get(u"dbForm").As<memory::Connection>(),
                    errors::ObjectNotSet);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// What is looked for need not exist as a whole.
TEST_F(SearchPrompt, APartOfADescriptionIsAnAnswer) {
  rows.Cells.clear();
  Search s;
  s.Completa = true;
  EXPECT_TRUE(Ask(s, [](memory::Dialog& prompt) {
    prompt.Click(u"btnOk");  // blank: it stays open without a word
    EXPECT_TRUE(prompt.IsShown());
    prompt.FocusOn(u"editPesquisa");
    prompt.Type(u"Ma");
    prompt.Click(u"btnOk");
  }));
  EXPECT_EQ(clause, u"clientes.nome ilike '%Ma%'");
  EXPECT_THAT(app.Boxes(), IsEmpty());
  for (const auto& statement : connection->TakeStatements())
    EXPECT_TRUE(EndsWith(statement, u"%' Limit 1")) << ToUtf8(statement);  // completions alone
}

TEST_F(SearchPrompt, LaysItselfOutAroundTheBox) {
  const struct {
    Integer Box;
    Long Window, Cancel, Left;
  } cases[] = {{2000, 3500, 1800, 700},
               {3000, 3500, 1800, 200},
               {3001, 3501, 1801, 200},
               {6000, 6500, 4800, 200}};
  for (const auto& c : cases) {
    Search s;
    s.Width = c.Box;
    Look(s, [&](memory::Dialog& prompt, tsText&) {
      EXPECT_EQ(prompt.Width(), c.Window);
      EXPECT_EQ(prompt.Find<host::DialogButton>(u"btnOk").Left(), 100);
      EXPECT_EQ(prompt.Find<host::DialogButton>(u"btnCancelar").Left(), c.Cancel);
      EXPECT_EQ(prompt.Find<host::DialogField>(u"editPesquisa").Left(), c.Left);
      EXPECT_EQ(prompt.Focused(), u"editPesquisa");
    });
  }
}

// --- Answering ----------------------------------------------------------------------------------

TEST_F(SearchPrompt, OkFollowsWhatIsTyped) {
  Look({}, [](memory::Dialog& prompt, tsText&) {
    prompt.Type(u"a");
    EXPECT_TRUE(OkIsEnabled(prompt));
    prompt.Press(memory::Key::Backspace);
    EXPECT_FALSE(OkIsEnabled(prompt));
    prompt.Type(u" ");
    EXPECT_FALSE(OkIsEnabled(prompt));
    prompt.Type(u"b");
    EXPECT_TRUE(OkIsEnabled(prompt));
  });
}

TEST_F(SearchPrompt, OkFollowsTheTypedTextWhenTheMaskBelongsToTheValue) {
  Search s;
  s.Mascara = u"##-##";
  for (const bool whole : {false, true}) {
    s.PromptInclude = whole;
    Look(s, [&](memory::Dialog& prompt, tsText& edit) {
      prompt.Type(u"1");
      EXPECT_TRUE(OkIsEnabled(prompt));
      prompt.Press(memory::Key::Backspace);
      EXPECT_EQ(OkIsEnabled(prompt), !Trim(whole ? edit.Texto() : edit.Text()).empty());
    });
  }
}

// Only a mask's places store the typed text; the box alone does not count then.
TEST_F(SearchPrompt, OkStaysOffWhenTheMaskBelongsToTheValueAndThereIsNone) {
  Search s;
  s.PromptInclude = true;
  Look(s, [](memory::Dialog& prompt, tsText& edit) {
    prompt.Type(u"Silva");
    EXPECT_EQ(edit.Text(), u"Silva");
    EXPECT_FALSE(OkIsEnabled(prompt));
  });
}

TEST_F(SearchPrompt, ANullValueLeavesItOpen) {
  EXPECT_TRUE(Ask({}, [](memory::Dialog& prompt) {
    prompt.Click(u"btnOk");
    EXPECT_TRUE(prompt.IsShown());
    EXPECT_EQ(prompt.Focused(), u"btnOk");
    prompt.FocusOn(u"editPesquisa");
    prompt.Type(u"Silva");
    prompt.Click(u"btnOk");
    EXPECT_FALSE(prompt.IsShown());
  }));
  EXPECT_EQ(clause, u"clientes.nome ilike '%Silva%'");
}

TEST_F(SearchPrompt, TheButtonsPumpEventsBeforeTheyAnswer) {
  for (const StringView button : {u"btnOk", u"btnCancelar"}) {
    int pumps = 0;
    Ask({}, [&](memory::Dialog& prompt) {
      prompt.Type(u"x");
      app.OnDoEvents = [&] {
        ++pumps;
        EXPECT_TRUE(prompt.IsShown());
      };
      prompt.Click(button);
    });
    app.OnDoEvents = nullptr;
    EXPECT_EQ(pumps, 1);
  }
}

TEST_F(SearchPrompt, CancelAndTheCloseButtonAnswerNothing) {
  EXPECT_FALSE(Ask({}, [](memory::Dialog& prompt) {
    prompt.Type(u"Silva");
    prompt.Click(u"btnCancelar");
  }));
  EXPECT_FALSE(Ask({}, [](memory::Dialog& prompt) {
    prompt.Type(u"Silva");
    prompt.CloseWindow();
  }));
  EXPECT_EQ(clause, u"antes");
}

TEST_F(SearchPrompt, CancelEscapesTheCheckOfADate) {
  Search s;
  s.Tipo = 7;
  s.Mascara = u"dd/mm/yyyy";
  EXPECT_FALSE(Ask(s, [](memory::Dialog& prompt) {
    prompt.Type(u"31021999");
    prompt.Click(u"btnCancelar");
    EXPECT_FALSE(prompt.IsShown());
  }));
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- The condition
// --------------------------------------------------------------------------------

TEST_F(SearchPrompt, QualifiesTheFieldUnlessItIsReady) {
  Search s;
  EXPECT_EQ(ClauseOf(s, u"Silva"), u"clientes.nome ilike '%Silva%'");
  s.Campo = u"upper(nome)";
  EXPECT_EQ(ClauseOf(s, u"Silva"), u"upper(clientes.nome) ilike '%Silva%'");
  s.CampoPronto = true;
  EXPECT_EQ(ClauseOf(s, u"Silva"), u"upper(nome) ilike '%Silva%'");
}

TEST_F(SearchPrompt, DoublesApostrophes) {
  Search s;
  s.Like = 0;
  EXPECT_EQ(ClauseOf(s, u"D'Avila"), u"clientes.nome = 'D''Avila'");
  s.Like = 5;
  EXPECT_EQ(ClauseOf(s, u"A"), u"Left(clientes.nome, 1) >= 'A'");
}

TEST_F(SearchPrompt, WritesADateInTheDialect) {
  Search s;
  s.Campo = u"data";
  s.Tipo = 7;
  s.Like = 6;
  s.Mascara = u"dd/mm/yyyy";
  const struct {
    StringView Dbms, Clause;
  } cases[] = {{kAccess, u"clientes.data < Cdate('31/12/2016')"},
               {kSqlServer, u"clientes.data < '12/31/2016'"},
               {kPostgres, u"clientes.data < '2016-12-31'::date"},
               {kUnknown, u"clientes.data < "}};
  for (const auto& c : cases) {
    Dbms(c.Dbms);
    EXPECT_EQ(ClauseOf(s, u"31122016"), c.Clause);
  }
}

TEST_F(SearchPrompt, WritesAnAmountWithAPoint) {
  Search s;
  s.Campo = u"valor";
  s.Tipo = 2;
  s.Like = 4;
  s.Mascara = u"$$$$$$$.$$";
  s.MaxLength = 12;
  EXPECT_EQ(ClauseOf(s, u"1234,56"), u"clientes.valor > 1234.56");
  // The value of a number has no zero at its end.
  EXPECT_EQ(ClauseOf(s, u"1234,50"), u"clientes.valor > 1234.5");
}

TEST_F(SearchPrompt, AnAmountThatIsHeldAsTextKeepsItsZero) {
  Search s;
  s.Campo = u"valor";
  s.Tipo = 0;
  s.Like = 4;
  s.Mascara = u"$$$$$$$.$$";
  s.MaxLength = 12;
  EXPECT_EQ(ClauseOf(s, u"1234,50"), u"clientes.valor > 1234.50");
}

TEST_F(SearchPrompt, ANumberWithNoAmountMaskGoesInAsItsText) {
  Search s;
  s.Campo = u"codigo";
  s.Tipo = 2;
  s.Like = 0;
  EXPECT_EQ(ClauseOf(s, u"15"), u"clientes.codigo = 15");
  EXPECT_EQ(ClauseOf(s, u"1,5"), u"clientes.codigo = 1,5");
}

TEST_F(SearchPrompt, AnUnknownComparisonOfATextIsNoCondition) {
  Search s;
  s.Like = 9;
  EXPECT_EQ(ClauseOf(s, u"x"), u"");
}

TEST_F(SearchPrompt, AnErrorIsReportedAndCountsAsAnswered) {
  State().dbConexao = nullptr;  // and with it the dialect
  EXPECT_TRUE(Ask({}, [](memory::Dialog& prompt) {
    prompt.Type(u"Silva");
    prompt.Click(u"btnOk");
  }));
  EXPECT_EQ(clause, u"antes");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ObjectNotSet), u"tsMostraFormPesquisa")));
}

}  // namespace
}  // namespace tessaria::test
