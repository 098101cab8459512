// How the tables are joined.
#include "wizard/links_tab.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardLinks : public WizardTest {
 protected:
  WizardLinks() {
    database->Memory().Answer(u"Select unnest(current_schemas(true))",
                              ScriptedDatabase::Columns({u"unnest"}, {{u"public"}}));
    database->relations = {{u"public", u"cidade"}, {u"public", u"cliente"}, {u"public", u"estado"}};
    database->fields = {{u"cidade", {u"codigo", u"descricao", u"uf"}},
                        {u"cliente", {u"codigo", u"nome", u"codcidade", u"Indicado"}},
                        {u"estado", {u"uf", u"nome"}}};
    database->answer = [this](const String& statement) { return KeyIn(statement); };
  }
  /// The tab with these tables, the first of them the main one.
  void RunLinks(const Rows& tables, const std::function<void()>& work) {
    Run([&] {
      Connect();
      Pick(tables);
      Check(u"lst1TabSel", tables.front());
      GoTo(Tab::Links);
      work();
    });
  }
  void ChooseTables(StringView parent, StringView child) {
    Choose(u"cmb2TabPai", parent);
    Choose(u"cmb2TabFilho", child);
  }
  void Link(StringView child, StringView childField, StringView parent, StringView parentField) {
    ChooseTables(parent, child);
    Select(u"lst2CmpPai", parentField);
    Select(u"lst2CmpFilho", childField);
    Click(u"btn2LnkAdiciona");
  }
  Rows Links() { return RowsOf(u"lst2Links"); }

  /// A field of the first table refers to one of the second.
  struct Key {
    String from, field, to, toField;
  };
  std::vector<Key> keys;

 private:
  std::optional<memory::Rows> KeyIn(const String& statement) const {
    const bool isSqlServer = statement.starts_with(u"Select a.name, b.name From sys.foreign_keys");
    if (!isSqlServer && !statement.starts_with(u"Select a.attname, b.attname From pg_constraint"))
      return std::nullopt;
    std::vector<memory::Row> rows;
    for (const Key& key : keys) {
      const String tables =
          isSqlServer ? u"k.parent_object_id = OBJECT_ID(N'" + key.from +
                            u"') And k.referenced_object_id = OBJECT_ID(N'" + key.to + u"')"
                      : u"k.conrelid = E'" + key.from + u"'::regclass And k.confrelid = E'" +
                            key.to + u"'::regclass";
      if (statement.find(tables) != String::npos) rows.push_back({key.field, key.toField});
    }
    return ScriptedDatabase::Columns({u"attname", u"attname"}, rows);
  }
};

TEST_F(WizardLinks, BothBoxesOfferTheSelectedTables) {
  RunLinks({u"cliente", u"cidade"}, [&] {
    EXPECT_EQ(Choices(u"cmb2TabPai"), (Rows{u"cliente", u"cidade"}));
    EXPECT_EQ(Choices(u"cmb2TabFilho"), (Rows{u"cliente", u"cidade"}));
    EXPECT_EQ(Combo(u"cmb2TabPai").Text(), u"");
    ChooseTables(u"cliente", u"cidade");
    EXPECT_EQ(RowsOf(u"lst2CmpPai"), (Rows{u"codigo", u"nome", u"codcidade", u"\"Indicado\""}));
    EXPECT_EQ(RowsOf(u"lst2CmpFilho"), (Rows{u"codigo", u"descricao", u"uf"}));
  });
}

TEST_F(WizardLinks, ALinkNamesTheChildFirst) {
  RunLinks({u"cliente", u"cidade"}, [&] {
    Link(u"cidade", u"codigo", u"cliente", u"codcidade");
    EXPECT_EQ(Links(), (Rows{u"cidade.codigo=cliente.codcidade"}));
    EXPECT_EQ(List(u"lst2Links").Item(1).Tag, u"cidade");
    ExpectNoBox();
  });
}

TEST_F(WizardLinks, BothTablesMustBeGiven) {
  RunLinks({u"cliente", u"cidade"}, [&] {
    Click(u"btn2LnkAdiciona");
    ExpectAlert(u"As Duas Tabelas Devem Ser Informadas");
    Choose(u"cmb2TabPai", u"cliente");
    Click(u"btn2LnkAdiciona");
    ExpectAlert(u"As Duas Tabelas Devem Ser Informadas");
    EXPECT_TRUE(Links().empty());
  });
  State().frmMontaSql = nullptr;
  RunLinks({u"cliente", u"cidade"}, [&] {
    Choose(u"cmb2TabFilho", u"cidade");
    Click(u"btn2LnkAdiciona");
    ExpectAlert(u"As Duas Tabelas Devem Ser Informadas");
    EXPECT_TRUE(Links().empty());
  });
}

TEST_F(WizardLinks, ATableIsNotLinkedToItself) {
  RunLinks({u"cliente", u"cidade"}, [&] {
    ChooseTables(u"cliente", u"cliente");
    Click(u"btn2LnkAdiciona");
    ExpectAlert(u"Não é Possivel Fazer Link Entre a Mesma Tabela");
    EXPECT_TRUE(Links().empty());
  });
}

TEST_F(WizardLinks, ATableIsNotLinkedToItsAlias) {
  app.WillEnter(u"pagador");
  RunLinks({u"cliente", u"cliente"}, [&] {
    ChooseTables(u"cliente", u"pagador");
    Click(u"btn2LnkAdiciona");
    ExpectAlert(u"Não é Possivel Fazer Link Entre a Mesma Tabela");
  });
}

TEST_F(WizardLinks, AChildHasOneLink) {
  RunLinks({u"cliente", u"cidade", u"estado"}, [&] {
    Link(u"cidade", u"codigo", u"cliente", u"codcidade");
    Link(u"cidade", u"uf", u"estado", u"uf");
    ExpectAlert(u"Link Já Criado");
    EXPECT_EQ(Links(), (Rows{u"cidade.codigo=cliente.codcidade"}));
    Link(u"estado", u"uf", u"cidade", u"uf");
    EXPECT_EQ(Links().size(), 2U);
  });
}

TEST_F(WizardLinks, ALinkIsRemovedAndAnEmptyListIsAnError) {
  RunLinks({u"cliente", u"cidade", u"estado"}, [&] {
    Link(u"cidade", u"codigo", u"cliente", u"codcidade");
    Link(u"estado", u"uf", u"cidade", u"uf");
    Select(u"lst2Links", u"estado.uf=cidade.uf");
    Click(u"btn2LnkRemove");
    EXPECT_EQ(Links(), (Rows{u"cidade.codigo=cliente.codcidade"}));
    Click(u"btn2LnkRemove");
    EXPECT_TRUE(Links().empty());
    ExpectNoBox();
    Click(u"btn2LnkRemove");
    ExpectUnhandled(errors::ObjectNotSet);
  });
}

TEST_F(WizardLinks, ComingBackKeepsTheChoicesAndTheFields) {
  RunLinks({u"cliente", u"cidade"}, [&] {
    ChooseTables(u"cliente", u"cidade");
    GoTo(Tab::Tabelas);
    Pick({u"estado"});
    GoTo(Tab::Links);
    EXPECT_EQ(Combo(u"cmb2TabPai").Text(), u"cliente");
    EXPECT_EQ(Combo(u"cmb2TabFilho").Text(), u"cidade");
    EXPECT_EQ(Choices(u"cmb2TabPai"), (Rows{u"cliente", u"cidade", u"estado"}));
    EXPECT_EQ(List(u"lst2CmpFilho").Count(), 3);
  });
}

TEST_F(WizardLinks, AChosenTableThatWasRemovedIsNoChoice) {
  RunLinks({u"cliente", u"cidade", u"estado"}, [&] {
    ChooseTables(u"cliente", u"cidade");
    GoTo(Tab::Tabelas);
    Select(u"lst1TabSel", u"cidade");
    Click(u"btn1Exc");
    GoTo(Tab::Links);
    EXPECT_EQ(Combo(u"cmb2TabPai").Text(), u"cliente");
    EXPECT_EQ(Combo(u"cmb2TabFilho").ListIndex(), -1);
  });
}

TEST_F(WizardLinks, ForeignKeysAreNotLookedFor) {
  keys = {{u"cliente", u"codcidade", u"cidade", u"codigo"}};
  RunLinks({u"cliente", u"cidade"}, [&] {
    database->Memory().TakeStatements();
    ChooseTables(u"cliente", u"cidade");
    EXPECT_EQ(database->Memory().TakeStatements().size(), 2U);
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"codigo");
  });
}

// --- Names with "_" and aliases accepted

class LinksWithAliases : public WizardLinks {
 protected:
  void RunLinked(const Rows& tables, const std::function<void()>& work) {
    Run([&] { Click(u"chkAceitaApelidos"); });
    RunLinks(tables, work);
  }
};

TEST_F(LinksWithAliases, ATableMayBeLinkedToItsAlias) {
  app.WillEnter(u"pagador");
  RunLinked({u"cliente", u"cliente"}, [&] {
    Link(u"pagador", u"codigo", u"cliente", u"\"Indicado\"");
    EXPECT_EQ(Links(), (Rows{u"pagador.codigo=cliente.\"Indicado\""}));
    ChooseTables(u"cliente", u"cliente");
    Click(u"btn2LnkAdiciona");
    ExpectAlert(u"Não é Possivel Fazer Link Entre a Mesma Tabela");
  });
}

TEST_F(LinksWithAliases, TheFieldsOfAForeignKeyComeSelected) {
  keys = {{u"cliente", u"codcidade", u"cidade", u"codigo"}};
  RunLinked({u"cliente", u"cidade"}, [&] {
    ChooseTables(u"cliente", u"cidade");
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"codcidade");
    EXPECT_EQ(Selected(u"lst2CmpFilho"), u"codigo");
    EXPECT_TRUE(Links().empty()) << "nothing is added without a click";
    Click(u"btn2LnkAdiciona");
    EXPECT_EQ(Links(), (Rows{u"cidade.codigo=cliente.codcidade"}));
  });
}

TEST_F(LinksWithAliases, SqlServerTellsOfItsForeignKeysToo) {
  database->Memory().SetProperty(u"DBMS Name", u"Microsoft SQL Server");
  database->defaultSchema = u"public";
  database->relations.push_back({u"public", u"d'agua"});
  database->fields[u"[d'agua]"] = {u"cidade"};
  keys = {{u"[d''agua]", u"cidade", u"cidade", u"codigo"}};
  RunLinked({u"cidade", u"[d'agua]"}, [&] {
    ChooseTables(u"cidade", u"[d'agua]");
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"codigo");
    EXPECT_EQ(Selected(u"lst2CmpFilho"), u"cidade");
    ExpectNoBox();
  });
}

TEST_F(LinksWithAliases, AForeignKeyIsFoundFromItsOtherEnd) {
  keys = {{u"cidade", u"uf", u"estado", u"uf"}};
  RunLinked({u"estado", u"cidade"}, [&] {
    ChooseTables(u"estado", u"cidade");
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"uf");
    EXPECT_EQ(Selected(u"lst2CmpFilho"), u"uf");
  });
}

TEST_F(LinksWithAliases, ATableThatRefersToItselfLeadsToItsAlias) {
  keys = {{u"cliente", u"Indicado", u"cliente", u"codigo"}};
  app.WillEnter(u"quem");
  RunLinked({u"cliente", u"cliente"}, [&] {
    ChooseTables(u"cliente", u"quem");
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"\"Indicado\"");
    EXPECT_EQ(Selected(u"lst2CmpFilho"), u"codigo");
  });
}

TEST_F(LinksWithAliases, WithoutAForeignKeyTheFirstFieldsAreSelected) {
  RunLinked({u"cliente", u"estado"}, [&] {
    ChooseTables(u"cliente", u"estado");
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"codigo");
    EXPECT_EQ(Selected(u"lst2CmpFilho"), u"uf");
    ExpectNoBox();
  });
}

TEST_F(LinksWithAliases, ForeignKeysThatCannotBeReadAreAnErrorAndTheLinkIsMadeByHand) {
  database->answer = nullptr;
  RunLinked({u"cliente", u"cidade"}, [&] {
    ChooseTables(u"cliente", u"cidade");
    ExpectUnhandled(errors::ProviderError);
    EXPECT_EQ(window->UnhandledErrors().size(), 1U);
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(),
              u"Não foi possível ler as chaves estrangeiras.");
    EXPECT_FALSE(desktop->IsBusy());
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"codigo") << "the fields are there";
    EXPECT_EQ(Selected(u"lst2CmpFilho"), u"codigo");
    Select(u"lst2CmpPai", u"codcidade");
    Click(u"btn2LnkAdiciona");
    EXPECT_EQ(Links(), (Rows{u"cidade.codigo=cliente.codcidade"}));
  });
}

TEST_F(LinksWithAliases, AccessTellsOfNoForeignKeys) {
  database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
  RunLinked({u"cliente", u"cidade"}, [&] {
    database->Memory().TakeStatements();
    ChooseTables(u"cliente", u"cidade");
    EXPECT_EQ(database->Memory().TakeStatements().size(), 2U);
    ExpectNoBox();
  });
}

TEST_F(LinksWithAliases, NamesWithApostrophesAndBackslashesAreQuotedInTheQuestion) {
  database->relations.push_back({u"public", u"d'a\\b"});
  database->fields[u"\"d'a\\b\""] = {u"codigo"};
  RunLinked({u"cliente", u"\"d'a\\b\""}, [&] {
    ChooseTables(u"cliente", u"\"d'a\\b\"");
    ExpectNoBox();
    EXPECT_NE(database->Memory().Statements().back().find(u"E'\"d''a\\\\b\"'::regclass"),
              String::npos);
  });
}

}  // namespace
}  // namespace tessaria::test
