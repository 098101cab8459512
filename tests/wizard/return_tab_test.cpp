// The key, the sibling and the fields that go back to the application.
#include "wizard/return_tab.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardReturn : public WizardTest {
 protected:
  WizardReturn() {
    database->Memory().Answer(u"Select unnest(current_schemas(true))",
                              ScriptedDatabase::Columns({u"unnest"}, {{u"public"}}));
    database->relations = {{u"public", u"cliente"}, {u"public", u"cidade"}};
    database->fields = {{u"cliente", {u"id"}}, {u"cidade", {u"id"}}};
  }
  /// As after a retrieve of these fields, which the statement selects as `selected` says.
  void SetColumns(const Rows& fields, const Rows& selected = {}) {
    Parts().cgrColGrid.Clear();
    for (const String& field : fields) Parts().cgrColGrid.Add(field, field, u"", 100, true);
    Parts().OnColumns();
    Parts().selected = selected;
    Parts().Grid().Column(0).Caption(fields.front());
    frmMontaSql::Instance()->AtualizaAbas();
  }
  void RunReturn(const Rows& fields, const std::function<void()>& work) {
    RunReturn(fields, {}, false, work);
  }
  void RunReturn(const Rows& fields, const Rows& selected, bool accepted,
                 const std::function<void()>& work) {
    Run([&] {
      if (accepted) Click(u"chkAceitaApelidos");
      Connect();
      SetColumns(fields, selected);
      GoTo(Tab::Retorno);
      work();
    });
  }
  void Retrieve(const Rows& fields, const Rows& selected = {}) {
    GoTo(Tab::Tabelas);
    SetColumns(fields, selected);
    GoTo(Tab::Retorno);
  }
  void TakeKey(StringView field) {
    Select(u"lst7Cmp", field);
    Click(u"btn7CmpChaveInc");
  }
  void TakeSibling(StringView field) {
    Select(u"lst7Cmp", field);
    Click(u"btn7CmpIrmaoInc");
  }
  void Return(StringView field) {
    Select(u"lst7Cmp", field);
    Click(u"btn7CmpRetInc");
  }
  String Key() { return Text(u"txt7CampoChave"); }
  String Sibling() { return Text(u"txt7CampoIrmao"); }
  Rows Returned() { return RowsOf(u"lst7CmpRet"); }
};

TEST_F(WizardReturn, TheKeyMakesTheRunComplete) {
  RunReturn({u"id", u"nome", u"uf"}, [&] {
    EXPECT_EQ(RowsOf(u"lst7Cmp"), (Rows{u"id", u"nome", u"uf"}));
    EXPECT_FALSE(IsEnabled(u"btnConfirma"));
    TakeSibling(u"nome");
    EXPECT_EQ(Sibling(), u"nome");
    EXPECT_FALSE(IsEnabled(u"btnConfirma"));
    TakeKey(u"id");
    EXPECT_EQ(Key(), u"id");
    EXPECT_TRUE(IsEnabled(u"btnConfirma"));
  });
}

TEST_F(WizardReturn, AFieldIsReturnedOnce) {
  RunReturn({u"id", u"nome", u"uf"}, [&] {
    Return(u"uf");
    Return(u"nome");
    EXPECT_EQ(Returned(), (Rows{u"uf", u"nome"}));
    EXPECT_EQ(Selected(u"lst7CmpRet"), u"nome");
    Return(u"uf");
    ExpectAlert(u"Campo Já Incluído");
    EXPECT_EQ(Returned(), (Rows{u"uf", u"nome"}));
  });
}

TEST_F(WizardReturn, ReturnFieldsMoveAndGo) {
  RunReturn({u"id", u"nome", u"uf"}, [&] {
    Click(u"btn7CmpRetExc");
    Return(u"uf");
    Return(u"nome");
    Click(u"btn7CmpRetSobe");
    EXPECT_EQ(Returned(), (Rows{u"nome", u"uf"}));
    Click(u"btn7CmpRetDesce");
    EXPECT_EQ(Returned(), (Rows{u"uf", u"nome"}));
    Click(u"btn7CmpRetExc");
    EXPECT_EQ(Returned(), (Rows{u"uf"}));
    EXPECT_EQ(Selected(u"lst7CmpRet"), u"uf");
    EXPECT_TRUE(window->UnhandledErrors().empty());
  });
}

TEST_F(WizardReturn, ReturnFieldsComeBackInTheOrderOfTheColumns) {
  RunReturn({u"id", u"nome", u"uf"}, [&] {
    Return(u"uf");
    Return(u"id");
    GoTo(Tab::Tabelas);
    GoTo(Tab::Retorno);
    EXPECT_EQ(Returned(), (Rows{u"id", u"uf"}));
    EXPECT_EQ(RowsOf(u"lst7Cmp"), (Rows{u"id", u"nome", u"uf"}));
  });
}

TEST_F(WizardReturn, WhatLeftTheStatementIsForgotten) {
  RunReturn({u"id", u"nome", u"uf"}, [&] {
    TakeKey(u"id");
    TakeSibling(u"nome");
    Return(u"uf");
    Return(u"nome");
    Retrieve({u"nome", u"cep"});
    EXPECT_EQ(Key(), u"");
    EXPECT_EQ(Sibling(), u"nome");
    EXPECT_EQ(Returned(), (Rows{u"nome"}));
    EXPECT_FALSE(IsEnabled(u"btnConfirma"));
  });
}

TEST_F(WizardReturn, ANameThatIsNoFieldDoesNotSurviveALeave) {
  RunReturn({u"id"}, [&] {
    Type(u"txt7CampoChave", u"outro");
    EXPECT_TRUE(IsEnabled(u"btnConfirma"));
    GoTo(Tab::Tabelas);
    GoTo(Tab::Retorno);
    EXPECT_EQ(Key(), u"");
  });
}

TEST_F(WizardReturn, WithoutASelectedFieldAButtonIsAnError) {
  RunReturn({u"id"}, [&] {
    List(u"lst7Cmp").Clear();
    for (const StringView button : {u"btn7CmpChaveInc", u"btn7CmpIrmaoInc", u"btn7CmpRetInc"}) {
      Click(button);
      ExpectUnhandled(errors::ObjectNotSet);
    }
    EXPECT_EQ(Key(), u"");
    EXPECT_TRUE(Returned().empty());
  });
}

// --- Names as statements use them

TEST_F(WizardReturn, KeyAndSiblingAreQuotedWhereTheDatabaseNeedsIt) {
  RunReturn({u"Id", u"nota fiscal", u"uf"}, [&] {
    EXPECT_EQ(RowsOf(u"lst7Cmp"), (Rows{u"Id", u"nota fiscal", u"uf"}));
    TakeKey(u"Id");
    TakeSibling(u"nota fiscal");
    Return(u"nota fiscal");
    EXPECT_EQ(Key(), u"\"Id\"");
    EXPECT_EQ(Sibling(), u"\"nota fiscal\"");
    EXPECT_EQ(Returned(), (Rows{u"nota fiscal"}));
    GoTo(Tab::Tabelas);
    GoTo(Tab::Retorno);
    EXPECT_EQ(Key(), u"\"Id\"");
    EXPECT_EQ(Sibling(), u"\"nota fiscal\"");
  });
}

TEST_F(WizardReturn, AQualifiedKeyOfADefinitionStays) {
  RunReturn({u"id"}, [&] {
    Type(u"txt7CampoChave", u"cliente.id");
    GoTo(Tab::Tabelas);
    GoTo(Tab::Retorno);
    EXPECT_EQ(Key(), u"cliente.id");
  });
}

TEST_F(WizardReturn, WithoutAliasesTheKeyIsNotQualified) {
  RunReturn({u"id", u"nome"}, {u"cliente.id", u"cidade.nome"}, false, [&] {
    TakeKey(u"id");
    TakeSibling(u"nome");
    EXPECT_EQ(Key(), u"id");
    EXPECT_EQ(Sibling(), u"nome");
  });
}

TEST_F(WizardReturn, WithAliasesAcceptedKeyAndSiblingAreAsTheSelectListHasThem) {
  RunReturn({u"Id", u"nome", u"rotulo"}, {u"cliente.\"Id\"", u"cidade.nome", u"a || b as rotulo"},
            true, [&] {
              EXPECT_EQ(RowsOf(u"lst7Cmp"), (Rows{u"Id", u"nome", u"rotulo"}));
              TakeKey(u"Id");
              TakeSibling(u"nome");
              Return(u"Id");
              EXPECT_EQ(Key(), u"cliente.\"Id\"");
              EXPECT_EQ(Sibling(), u"cidade.nome");
              EXPECT_EQ(Returned(), (Rows{u"Id"}));
              GoTo(Tab::Tabelas);
              GoTo(Tab::Retorno);
              EXPECT_EQ(Key(), u"cliente.\"Id\"");
              EXPECT_EQ(Sibling(), u"cidade.nome");
              TakeKey(u"rotulo");
              EXPECT_EQ(Key(), u"rotulo") << "a concatenated column has only its name";
            });
}

TEST_F(WizardReturn, WithAliasesAcceptedTheSameFieldOfAnotherTableIsAnotherOne) {
  RunReturn({u"id", u"nome"}, {u"cliente.id", u"cliente.nome"}, true, [&] {
    TakeKey(u"id");
    TakeSibling(u"nome");
    Retrieve({u"id", u"nome"}, {u"cidade.id", u"cliente.nome"});
    EXPECT_EQ(Key(), u"");
    EXPECT_EQ(Sibling(), u"cliente.nome");
    Type(u"txt7CampoChave", u"id");
    GoTo(Tab::Tabelas);
    GoTo(Tab::Retorno);
    EXPECT_EQ(Key(), u"id") << "a bare name is what the operator typed";
  });
}

TEST_F(WizardReturn, ColumnsThatWereNotRetrievedHaveBareNames) {
  RunReturn({u"id"}, {u"cliente.id"}, true, [&] {
    Parts().OnColumns();
    GoTo(Tab::Tabelas);
    GoTo(Tab::Retorno);
    TakeKey(u"id");
    EXPECT_EQ(Key(), u"id");
  });
}

TEST_F(WizardReturn, NamesThatWereTakenFollowTheBoxOfTheAliases) {
  RunReturn({u"id", u"nome"}, {u"cliente.id", u"cidade.nome"}, false, [&] {
    TakeKey(u"id");
    TakeSibling(u"nome");
    GoTo(Tab::Tabelas);
    Click(u"chkAceitaApelidos");
    EXPECT_EQ(Key(), u"cliente.id");
    EXPECT_EQ(Sibling(), u"cidade.nome");
    Click(u"chkAceitaApelidos");
    EXPECT_EQ(Key(), u"id");
    EXPECT_EQ(Sibling(), u"nome");
  });
}

TEST_F(WizardReturn, ALostConnectionChangesNothingInTheNamesOfRetrievedFields) {
  RunReturn({u"Id", u"nome"}, {u"cliente.\"Id\"", u"cidade.nome"}, false, [&] {
    database->Close();
    TakeKey(u"Id");
    EXPECT_EQ(Key(), u"\"Id\"");
    GoTo(Tab::Tabelas);
    Click(u"chkAceitaApelidos");
    EXPECT_EQ(Key(), u"cliente.\"Id\"");
    GoTo(Tab::Retorno);
    TakeSibling(u"nome");
    EXPECT_EQ(Sibling(), u"cidade.nome");
    ExpectNoBox();
  });
}

TEST_F(WizardReturn, AConcatenatedFieldKeepsItsNameUnderBothRules) {
  RunReturn({u"id", u"cepfmt"}, {u"cliente.id", u"cliente.cep || '' as cepfmt"}, true, [&] {
    TakeKey(u"cepfmt");
    GoTo(Tab::Tabelas);
    Click(u"chkAceitaApelidos");
    EXPECT_EQ(Key(), u"cepfmt");
    EXPECT_EQ(Sibling(), u"");
  });
}

}  // namespace
}  // namespace tessaria::test
