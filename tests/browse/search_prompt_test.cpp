// The prompt of a search: its settings and the answers that it accepts.
#include "tests/browse/search_prompt_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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
    bool Completes;
    Long TipoDado;
    TipoControle Control;
  } cases[] = {{8, false, 8, TipoControle::Normal},     {8, true, 8, TipoControle::Descricao},
               {2, false, 2, TipoControle::Normal},     {2, true, 2, TipoControle::Normal},
               {7, false, 7, TipoControle::Calendario}, {7, true, 7, TipoControle::Calendario},
               {0, true, 8, TipoControle::Normal}};
  for (const auto& c : cases) {
    Search s;
    s.Tipo = c.Tipo;
    s.Completes = c.Completes;
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
  s.Completes = true;
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

// A value may contain an "@": the condition was expanded on the form that owns the lookup.
TEST_F(SearchPrompt, TakesTheConditionUnchanged) {
  rows = {{{u"nome"}}, {{u"Maria"}}};
  Search s;
  s.Completes = true;
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
  EXPECT_EQ(ClauseOf(s, u"\\' or 1=1 --"), u"clientes.nome ilike '%\\\\\\\\'' or 1=1 --%'");
}

TEST_F(SearchPrompt, GivesItsControlTheConnectionOfTheThread) {
  std::shared_ptr<memory::Dialog> window;
  Search s;
  s.Completes = true;
  Look(s, [&](memory::Dialog& prompt, tsText&) {
    window = prompt.shared_from_this();
    EXPECT_EQ(window->TheForm().Get(u"dbForm").As<memory::Connection>(), connection);
    EXPECT_EQ(State().dbConexao, connection);
  });
  EXPECT_HOST_ERROR(window->TheForm().Get(u"dbForm").As<memory::Connection>(),
                    errors::ObjectNotSet);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// The search value does not have to exist in the table.
TEST_F(SearchPrompt, APartOfADescriptionIsAnAnswer) {
  rows.Cells.clear();
  Search s;
  s.Completes = true;
  EXPECT_TRUE(Ask(s, [](memory::Dialog& prompt) {
    prompt.Click(u"btnOk");  // blank: it stays open without a message
    EXPECT_TRUE(prompt.IsShown());
    prompt.FocusOn(u"editPesquisa");
    prompt.Type(u"Ma");
    prompt.Click(u"btnOk");
  }));
  EXPECT_EQ(clause, u"clientes.nome ilike '%Ma%'");
  EXPECT_THAT(app.Boxes(), IsEmpty());
  for (const auto& statement : connection->TakeStatements())
    EXPECT_TRUE(EndsWith(statement, u"%' Limit 1")) << ToUtf8(statement);  // only completions
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

TEST_F(SearchPrompt, OkFollowsTheBoxWhenTheMaskBelongsToTheValueAndThereIsNone) {
  Search s;
  s.PromptInclude = true;
  EXPECT_EQ(ClauseOf(s, u"Silva"), u"clientes.nome ilike '%Silva%'");
  Look(s, [](memory::Dialog& prompt, tsText&) {
    prompt.Type(u"a");
    EXPECT_TRUE(OkIsEnabled(prompt));
    prompt.Press(memory::Key::Backspace);
    EXPECT_FALSE(OkIsEnabled(prompt));
  });
}

TEST_F(SearchPrompt, OkForANumberIsDisabledUntilTheBoxContainsOne) {
  const struct {
    Long Tipo;
    StringView Typed;
    bool Ok;
  } cases[] = {
      {2, u"", false},         {2, u"15", true},        {2, u"-1,5", true}, {2, u"1.234,5", true},
      {2, u"1E3", true},       {2, u"abc", false},      {2, u"12a", false}, {2, u"1,2,3", false},
      {2, u"1 or 1=1", false}, {2, u"-", false},        {2, u",", false},   {2, u"   ", false},
      {0, u"15", true},        {0, u"+1,5", true},      {0, u" 15 ", true}, {0, u"1.234,5", false},
      {0, u"abc", false},      {0, u"1 or 1=1", false}, {0, u"'1'", false}, {0, u"--1", false},
      {0, u"1--", false},      {0, u".5", true},        {0, u"5.", true},   {0, u".", false},
      {0, u"1e", false},       {0, u"1e-5", true},      {0, u"", false}};
  for (const auto& c : cases) {
    Search s;
    s.Tipo = c.Tipo;
    Look(s, [&](memory::Dialog& prompt, tsText&) {
      prompt.Type(c.Typed);
      EXPECT_EQ(OkIsEnabled(prompt), c.Ok) << c.Tipo << " " << ToUtf8(c.Typed);
    });
  }
}

TEST_F(SearchPrompt, NoKeyConfirmsLettersInANumber) {
  Search s;
  s.Tipo = 2;
  EXPECT_FALSE(Ask(s, [](memory::Dialog& prompt) {
    prompt.Type(u"abc");
    prompt.Click(u"btnOk");
    prompt.Press(memory::Key::Enter);
    EXPECT_TRUE(prompt.IsShown());
    prompt.Click(u"btnCancelar");
  }));
}

TEST_F(SearchPrompt, OkOfANumberUnderAMaskFollowsItsDigits) {
  for (const bool whole : {false, true}) {
    Search s;
    s.Tipo = 2;
    s.Mascara = u"####";
    s.PromptInclude = whole;
    Look(s, [](memory::Dialog& prompt, tsText&) {
      EXPECT_FALSE(OkIsEnabled(prompt));
      prompt.Type(u"1234");
      EXPECT_TRUE(OkIsEnabled(prompt));
    });
  }
}

TEST_F(SearchPrompt, ANullValueKeepsThePromptOpen) {
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

// The field still has the value of the previous answer.
TEST_F(SearchPrompt, AnAnswerThatTheFieldRefusesKeepsThePromptOpen) {
  Search s;
  s.Campo = u"data";
  s.Tipo = 7;
  s.Like = 0;
  s.Mascara = u"dd/mm/yyyy";
  s.PromptInclude = true;
  EXPECT_TRUE(Ask(s, [](memory::Dialog& prompt) {
    prompt.Type(u"31122016");
    prompt.Press(memory::Key::Tab);
    prompt.FocusOn(u"editPesquisa");
    prompt.Type(u"31021999");
    prompt.Click(u"btnOk");
    ASSERT_TRUE(prompt.IsShown());
    prompt.FocusOn(u"editPesquisa");
    prompt.Type(u"30122016");
    prompt.Click(u"btnOk");
    EXPECT_FALSE(prompt.IsShown());
  }));
  EXPECT_EQ(clause, u"clientes.data = '2016-12-30'::date");
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
}

TEST_F(SearchPrompt, AnAnswerThatIsNotOfItsKindKeepsThePromptOpen) {
  const struct {
    Long Tipo;
    String Typed;
  } cases[] = {{2, String(40, u'7')}, {7, u"abc"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << ToUtf8(c.Typed));
    Search s;
    s.Tipo = c.Tipo;
    EXPECT_FALSE(Ask(s, [&](memory::Dialog& prompt) {
      prompt.Type(c.Typed);
      prompt.Click(u"btnOk");
      EXPECT_TRUE(prompt.IsShown());
      prompt.Click(u"btnCancelar");
    }));
    EXPECT_EQ(app.TakeBoxes().size(), 1u);
  }
  EXPECT_EQ(clause, u"antes");
}

TEST_F(SearchPrompt, ABlankIsNotAnAnswerForAnyKindOrMask) {
  for (const Long kind : {2, 7, 8, 0})
    for (const StringView mask : {u"", u"dd/mm/yyyy", u"##-##", u"AAAA"})
      for (const bool whole : {false, true}) {
        SCOPED_TRACE(testing::Message() << kind << " " << ToUtf8(mask) << " " << whole);
        Search s;
        s.Tipo = kind;
        s.Mascara = mask;
        s.PromptInclude = whole;
        EXPECT_FALSE(Ask(s, [](memory::Dialog& prompt) {
          prompt.Click(u"btnOk");
          EXPECT_TRUE(prompt.IsShown());
          prompt.FocusOn(u"editPesquisa");
          prompt.Type(u"1");
          prompt.Press(memory::Key::Backspace);
          prompt.Click(u"btnOk");
          EXPECT_TRUE(prompt.IsShown());
          prompt.CloseWindow();
        }));
        EXPECT_EQ(clause, u"antes");
      }
}

// An amount is never blank.
TEST_F(SearchPrompt, AnAmountThatIsNotTypedIsZero) {
  Search s;
  s.Tipo = 2;
  s.Like = 0;
  s.Mascara = u"$$$$.$$";
  EXPECT_EQ(ClauseOf(s, u""), u"clientes.nome = 0");
}

TEST_F(SearchPrompt, TheButtonsProcessEventsBeforeTheyAnswer) {
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

TEST_F(SearchPrompt, CancelAndTheCloseButtonGiveNoAnswer) {
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

// Closing the frame acts as the cancel button: it takes the focus, so the field checks nothing.
TEST_F(SearchPrompt, ClosingTheFrameActsAsTheCancelButton) {
  std::vector<String> focused;
  Search s;
  s.Tipo = 7;
  s.Mascara = u"dd/mm/yyyy";
  EXPECT_FALSE(Ask(s, [&](memory::Dialog& prompt) {
    prompt.Type(u"31021999");
    app.OnDoEvents = [&] { focused.push_back(prompt.Focused()); };
    prompt.CloseWindow();
    EXPECT_FALSE(prompt.IsShown());
  }));
  app.OnDoEvents = nullptr;
  EXPECT_THAT(focused, ElementsAre(u"btnCancelar"));
  for (const auto& box : app.Boxes()) EXPECT_EQ(InStr(box.Text, u"Inv"), 0) << ToUtf8(box.Text);
}

TEST_F(SearchPrompt, EachActivationFocusesTheField) {
  Look({}, [](memory::Dialog& prompt, tsText&) {
    prompt.Type(u"Ma");
    prompt.FocusOn(u"btnCancelar");
    prompt.Reactivate();
    EXPECT_EQ(prompt.Focused(), u"editPesquisa");
  });
}

TEST_F(SearchPrompt, CancelSkipsTheCheckOfADate) {
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

}  // namespace
}  // namespace tessaria::test
