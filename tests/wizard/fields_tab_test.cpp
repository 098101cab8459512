// The select list, and columns put together from several fields.
#include "wizard/fields_tab.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardFields : public WizardTest {
 protected:
  WizardFields() {
    database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
    database->relations = {{u"", u"Cliente"}, {u"", u"Cidade"}};
    database->fields = {{u"Cliente", {u"Codigo", u"Nome", u"Cep"}},
                        {u"Cidade", {u"Codigo", u"Descricao"}}};
  }
  /// The tab, with the fields of the first of these tables.
  void RunFields(const Rows& tables, const std::function<void()>& work) {
    Run([&] {
      Connect();
      Pick(tables);
      Check(u"lst1TabSel", tables.front());
      GoTo(Tab::Campos);
      Choose(u"cmb3Tab", tables.front());
      work();
    });
  }
  void Include(StringView field) {
    Select(u"lst3Cmp", field);
    Click(u"btn3Inclui");
  }
  void AddPiece(StringView field) {
    Select(u"lst3Cmp", field);
    Click(u"btn3Concatena");
  }
  /// The last piece gets that mask.
  void MaskPiece(StringView mask) {
    window->ClickRow(u"lst3Concatena", List(u"lst3Concatena").Count());
    Type(u"txt3ConcMascara", mask);
  }
  void Create(StringView name) {
    Type(u"txt3ConcNome", name);
    Click(u"btn3CriaConcatena");
  }
  Rows Columns() { return RowsOf(u"lst3CmpSel"); }
  Rows Pieces() { return RowsOf(u"lst3Concatena"); }
  Rows TagsOf(StringView list) {
    Rows tags;
    for (Long i = 1; i <= List(list).Count(); ++i) tags.push_back(List(list).Item(i).Tag);
    return tags;
  }
};

// --- Fields

TEST_F(WizardFields, AFieldOfASingleTableStandsAlone) {
  RunFields({u"Cliente"}, [&] {
    EXPECT_EQ(RowsOf(u"lst3Cmp"), (Rows{u"Codigo", u"Nome", u"Cep"}));
    Include(u"Nome");
    window->DoubleClickRow(u"lst3Cmp", 1);
    EXPECT_EQ(Columns(), (Rows{u"Nome", u"Codigo"}));
    EXPECT_EQ(TagsOf(u"lst3CmpSel"), (Rows{u"Nome", u"Codigo"}));
    EXPECT_TRUE(IsTabEnabled(Tab::Grid));
    ExpectNoBox();
  });
}

TEST_F(WizardFields, OfSeveralTablesAFieldHasItsTableInFront) {
  RunFields({u"Cliente", u"Cidade"}, [&] {
    Include(u"Codigo");
    Choose(u"cmb3Tab", u"Cidade");
    Include(u"Descricao");
    EXPECT_EQ(Columns(), (Rows{u"Cliente.Codigo", u"Cidade.Descricao"}));
    EXPECT_EQ(TagsOf(u"lst3CmpSel"), (Rows{u"Codigo", u"Descricao"}));
  });
}

TEST_F(WizardFields, TwoTablesDoNotBothGiveAFieldOfOneName) {
  RunFields({u"Cliente", u"Cidade"}, [&] {
    Include(u"Codigo");
    Include(u"Nome");
    Choose(u"cmb3Tab", u"Cidade");
    Include(u"Codigo");
    ExpectAlert(u"Campo Com Esse Nome Já Incluído");
    EXPECT_EQ(Columns(), (Rows{u"Cliente.Codigo", u"Cliente.Nome"}));
    EXPECT_EQ(Selected(u"lst3CmpSel"), u"Cliente.Codigo");
  });
}

TEST_F(WizardFields, AFieldThatWasMovedCanBeIncludedTwice) {
  RunFields({u"Cliente"}, [&] {
    Include(u"Codigo");
    Include(u"Nome");
    Select(u"lst3CmpSel", u"Nome");
    Click(u"btn3CmpSelSobe");
    EXPECT_EQ(Columns(), (Rows{u"Nome", u"Codigo"}));
    EXPECT_EQ(TagsOf(u"lst3CmpSel"), (Rows{u"", u"Codigo"}));
    Include(u"Nome");
    ExpectNoBox();
    EXPECT_EQ(Columns(), (Rows{u"Nome", u"Codigo", u"Nome"}));
    Select(u"lst3CmpSel", u"Nome");
    Click(u"btn3CmpSelDesce");
    EXPECT_EQ(Columns(), (Rows{u"Codigo", u"Nome", u"Nome"}));
  });
}

TEST_F(WizardFields, FieldsAreRemovedOneByOne) {
  RunFields({u"Cliente"}, [&] {
    Click(u"btn3CmpSelExclui");
    Include(u"Codigo");
    Include(u"Nome");
    Select(u"lst3CmpSel", u"Nome");
    Click(u"btn3CmpSelExclui");
    EXPECT_EQ(Columns(), (Rows{u"Codigo"}));
    EXPECT_EQ(Selected(u"lst3CmpSel"), u"Codigo");
    Click(u"btn3CmpSelExclui");
    EXPECT_TRUE(Columns().empty());
    EXPECT_FALSE(IsTabEnabled(Tab::Grid));
    EXPECT_TRUE(window->UnhandledErrors().empty());
  });
}

TEST_F(WizardFields, WithoutATableThereIsNothingToInclude) {
  Run([&] {
    Connect();
    Pick({u"Cliente"});
    GoTo(Tab::Campos);
    Click(u"btn3Inclui");
    ExpectUnhandled(errors::ObjectNotSet);
    Click(u"btn3Concatena");
    ExpectUnhandled(errors::ObjectNotSet);
    EXPECT_TRUE(Columns().empty());
    EXPECT_TRUE(Pieces().empty());
  });
}

// --- Pieces of a new column

TEST_F(WizardFields, APieceIsAFieldOnce) {
  RunFields({u"Cliente", u"Cidade"}, [&] {
    AddPiece(u"Nome");
    AddPiece(u"Cep");
    EXPECT_EQ(Pieces(), (Rows{u"Cliente.Nome", u"Cliente.Cep"}));
    EXPECT_EQ(Selected(u"lst3Concatena"), u"Cliente.Cep");
    AddPiece(u"Nome");
    ExpectAlert(u"Campo Já Incluído");
    EXPECT_EQ(Pieces().size(), 2U);
  });
}

TEST_F(WizardFields, APieceOfASingleTableIsAFieldOnceToo) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Nome");
    AddPiece(u"Nome");
    ExpectAlert(u"Campo Já Incluído");
    EXPECT_EQ(Pieces(), Rows{u"Nome"});
  });
}

TEST_F(WizardFields, ATextIsAskedForUntilItStandsInQuotes) {
  RunFields({u"Cliente"}, [&] {
    for (const char16_t* text : {u"''", u"x", u"'x", u"x'", u"' - '"}) app.WillEnter(text);
    Click(u"btn3ConcIncluir");
    EXPECT_EQ(Pieces(), (Rows{u"' - '"}));
    EXPECT_EQ(Selected(u"lst3Concatena"), u"' - '");
    Rows offered;
    for (const auto& box : app.InputBoxes()) {
      EXPECT_EQ(box.Prompt, u"Informe o Texto Adicional Delimitado Por Aspas Simples");
      EXPECT_EQ(box.Title, u"");
      offered.push_back(box.Offered);
    }
    EXPECT_EQ(offered, (Rows{u"''", u"''", u"x", u"'x", u"x'"})) << "the last answer is offered";
  });
}

TEST_F(WizardFields, ATextCanBeGivenUp) {
  RunFields({u"Cliente"}, [&] {
    app.WillEnter(u"x");
    Click(u"btn3ConcIncluir");
    EXPECT_EQ(app.InputBoxes().size(), 2U);
    EXPECT_TRUE(Pieces().empty());
  });
}

TEST_F(WizardFields, ASingleQuoteCountsAsAText) {
  RunFields({u"Cliente"}, [&] {
    app.WillEnter(u"'");
    Click(u"btn3ConcIncluir");
    EXPECT_EQ(Pieces(), (Rows{u"'"}));
  });
}

TEST_F(WizardFields, ThePiecesMoveAndGo) {
  RunFields({u"Cliente"}, [&] {
    Click(u"btn3ConcExclui");
    AddPiece(u"Nome");
    AddPiece(u"Cep");
    Click(u"btn3ConcSobe");
    EXPECT_EQ(Pieces(), (Rows{u"Cep", u"Nome"}));
    Click(u"btn3ConcDesce");
    EXPECT_EQ(Pieces(), (Rows{u"Nome", u"Cep"}));
    Click(u"btn3ConcExclui");
    EXPECT_EQ(Pieces(), (Rows{u"Nome"}));
    EXPECT_EQ(Selected(u"lst3Concatena"), u"Nome");
    EXPECT_TRUE(window->UnhandledErrors().empty());
  });
}

TEST_F(WizardFields, AMaskBelongsToThePieceThatIsSelected) {
  RunFields({u"Cliente"}, [&] {
    Type(u"txt3ConcMascara", u"##");
    AddPiece(u"Nome");
    AddPiece(u"Cep");
    EXPECT_EQ(TagsOf(u"lst3Concatena"), (Rows{u"", u""})) << "typed before there was a piece";
    MaskPiece(u"#-#");
    Select(u"lst3Concatena", u"Nome");
    EXPECT_EQ(Text(u"txt3ConcMascara"), u"");
    Select(u"lst3Concatena", u"Cep");
    EXPECT_EQ(Text(u"txt3ConcMascara"), u"#-#");
    EXPECT_EQ(TagsOf(u"lst3Concatena"), (Rows{u"", u"#-#"}));
  });
}

// --- The new column

TEST_F(WizardFields, AColumnIsPutTogetherFromItsPieces) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Codigo");
    app.WillEnter(u"' - '");
    Click(u"btn3ConcIncluir");
    AddPiece(u"Nome");
    Check(u"lst3Concatena", u"Codigo");
    Type(u"txt3ConcMascara", u"");
    Create(u"Rotulo");
    EXPECT_EQ(Columns(), (Rows{u"Str(Codigo) & ' - ' & Nome as Rotulo"}));
    EXPECT_EQ(TagsOf(u"lst3CmpSel"), (Rows{u"Rotulo"}));
    EXPECT_TRUE(Pieces().empty());
    EXPECT_EQ(Text(u"txt3ConcNome"), u"");
    EXPECT_EQ(Text(u"txt3ConcMascara"), u"");
    EXPECT_TRUE(IsTabEnabled(Tab::Grid));
    ExpectNoBox();
  });
}

TEST_F(WizardFields, ATextThatIsMarkedOrMaskedIsTreatedLikeAField) {
  RunFields({u"Cliente"}, [&] {
    app.WillEnter(u"'12345'");
    Click(u"btn3ConcIncluir");
    Check(u"lst3Concatena", u"'12345'");
    MaskPiece(u"##-###");
    Create(u"Numero");
    EXPECT_EQ(
        Columns(),
        (Rows{u"Mid(Str('12345'),  1,  2) & '-' & Mid(Str('12345'),  3,  3) & '' as Numero"}));
    ExpectNoBox();
  });
}

TEST_F(WizardFields, TheConnectionOfTheProgramHasNoSayInTheOperator) {
  const auto other = memory::Connection::Create();
  other->SetProperty(u"DBMS Name", u"PostgreSQL");
  State().dbConexao = other;
  database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Nome");
    AddPiece(u"Cep");
    Create(u"Junto");
    EXPECT_EQ(Columns(), (Rows{u"Nome & Cep as Junto"}));
  });
  State().dbConexao = nullptr;
}

TEST_F(WizardFields, TheOperatorIsThatOfTheWizardsConnection) {
  struct Dialect {
    const char16_t *name, *column;
  };
  for (const Dialect& dialect :
       {Dialect{u"ACCESS", u"Nome & Cep as Junto"}, Dialect{u"MS Jet", u"Nome & Cep as Junto"},
        Dialect{u"Microsoft SQL Server", u"Nome & Cep as Junto"},
        Dialect{u"Oracle", u"Nome  Cep as Junto"}}) {
    database->Memory().SetProperty(u"DBMS Name", dialect.name);
    RunFields({u"Cliente"}, [&] {
      AddPiece(u"Nome");
      AddPiece(u"Cep");
      Create(u"Junto");
      EXPECT_EQ(Columns(), (Rows{dialect.column}));
    });
    State().frmMontaSql = nullptr;
  }
}

TEST_F(WizardFields, WithoutTheNameOfTheDatabaseNothingIsLost) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Nome");
    AddPiece(u"Cep");
    MaskPiece(u"##-#");
    database->propertyFault = HostError(errors::InvalidConnection);
    Create(u"Junto");
    ExpectUnhandled(errors::InvalidConnection);
    EXPECT_TRUE(Columns().empty());
    EXPECT_EQ(Pieces(), (Rows{u"Nome", u"Cep"}));
    EXPECT_EQ(TagsOf(u"lst3Concatena"), (Rows{u"", u"##-#"}));
    EXPECT_EQ(Text(u"txt3ConcNome"), u"Junto");
    database->propertyFault.reset();
    Click(u"btn3CriaConcatena");
    EXPECT_EQ(Columns(), (Rows{u"Nome & Mid(Cep,  1,  2) & '-' & Mid(Cep,  3,  1) & '' as Junto"}));
  });
}

TEST_F(WizardFields, AMaskIsAppliedToANumberToo) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Cep");
    Check(u"lst3Concatena", u"Cep");
    MaskPiece(u"#####-###");
    Create(u"CepFmt");
    EXPECT_EQ(Columns(),
              (Rows{u"Mid(Str(Cep),  1,  5) & '-' & Mid(Str(Cep),  6,  3) & '' as CepFmt"}));
  });
}

TEST_F(WizardFields, AllMaskedPiecesGetTheMaskInTheBox) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Cep");
    MaskPiece(u"#-#");
    AddPiece(u"Nome");
    AddPiece(u"Codigo");
    MaskPiece(u"##");
    Create(u"Junto");
    EXPECT_EQ(Columns(),
              (Rows{u"Mid(Cep,  1,  2) & '' & Nome & Mid(Codigo,  1,  2) & '' as Junto"}));
  });
}

TEST_F(WizardFields, AMaskedPieceAndAnEmptyBoxGiveAPieceOfNoLength) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Cep");
    MaskPiece(u"#-#");
    AddPiece(u"Nome");
    Select(u"lst3Concatena", u"Nome");
    Create(u"Junto");
    EXPECT_EQ(Columns(), (Rows{u"Mid(Cep,  1,  0) & '' & Nome as Junto"}));
  });
}

TEST_F(WizardFields, AMovedPieceHasLostItsMaskAndItsMark) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Nome");
    AddPiece(u"Cep");
    Check(u"lst3Concatena", u"Cep");
    MaskPiece(u"#-#");
    Click(u"btn3ConcSobe");
    Create(u"Junto");
    EXPECT_EQ(Columns(), (Rows{u"Cep & Nome as Junto"}));
  });
}

TEST_F(WizardFields, AColumnNeedsPiecesAndANameOfItsOwn) {
  RunFields({u"Cliente"}, [&] {
    Create(u"Nome");
    ExpectAlert(u"Nenhum Campo Concatenado Para Ser Incluso");
    Include(u"Codigo");
    Include(u"Nome");
    AddPiece(u"Cep");
    Create(u"");
    ExpectAlert(u"Informe o Nome Para o Campo Concatenado");
    EXPECT_EQ(window->Focused(), u"txt3ConcNome");
    Select(u"lst3CmpSel", u"Codigo");
    Create(u"Nome");
    ExpectAlert(u"Campo Com Esse Nome Já Incluído");
    EXPECT_EQ(Selected(u"lst3CmpSel"), u"Nome");
    EXPECT_EQ(window->Focused(), u"txt3ConcNome");
    EXPECT_EQ(Parts().Box(u"txt3ConcNome").SelText(), u"Nome");
    EXPECT_EQ(Columns(), (Rows{u"Codigo", u"Nome"}));
    EXPECT_EQ(Pieces(), (Rows{u"Cep"}));
  });
}

TEST_F(WizardFields, AFieldOfAColumnsNameIsRefused) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Cep");
    Create(u"Nome");
    Include(u"Nome");
    ExpectAlert(u"Campo Com Esse Nome Já Incluído");
    EXPECT_EQ(Columns(), (Rows{u"Cep as Nome"}));
  });
}

TEST_F(WizardFields, AMaskThatDoesNotEndInAPlaceIsAnErrorAndNothingIsLost) {
  RunFields({u"Cliente"}, [&] {
    AddPiece(u"Cep");
    MaskPiece(u"##-");
    Create(u"CepFmt");
    ASSERT_EQ(window->UnhandledErrors().size(), 1U);
    EXPECT_EQ(window->UnhandledErrors()[0].Description(), u"A máscara \"##-\" deve terminar em #.");
    ExpectUnhandled(errors::InvalidArgument);
    EXPECT_TRUE(Columns().empty());
    EXPECT_EQ(Pieces(), (Rows{u"Cep"}));
    EXPECT_EQ(Text(u"txt3ConcNome"), u"CepFmt");
    Type(u"txt3ConcMascara", u"##-#");
    Click(u"btn3CriaConcatena");
    EXPECT_EQ(Columns().size(), 1U);
  });
}

}  // namespace
}  // namespace tessaria::test
