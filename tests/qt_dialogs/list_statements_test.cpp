// Every statement that a lookup sends, on a real server: none is refused, and each finds its rows.
#include "lookup/description_lookup.h"
#include "lookup/relation_check.h"
#include "tests/qt_dialogs/database_list_fixture.h"

namespace tessaria::qt::tests {
namespace {

class ListStatements : public DatabaseListFixture {
 protected:
  int count(const std::string& condition) {
    const auto rows =
        connection_->Execute(u"select count(*)::int from clientes where " + FromUtf8(condition));
    return static_cast<int>(CLng(rows->Fields().Item(0)->Value()));
  }
  /// The number of rows in the list when it is read to its end; -1 if no list opened.
  int rowsOfList() {
    int rows = -1;
    look([&](QDialog& w) {
      press(w, Qt::Key_End);
      rows = rowCount(w);
      press(w, Qt::Key_Escape);
    });
    return rows;
  }
};

// --- Opening ------------------------------------------------------------------------------------

TEST_F(ListStatements, OfEachShapeOfADefinitionOpenTheList) {
  server().Run("create table cidades as select distinct cidade as nome, 'SP' as uf from clientes");
  struct Shape {
    const char* campo;
    const char* siblingField;
    const char* outros;
    const char* groupBy;
    const char* leftJoin;
    const char* where;
    const char* reference;
  };
  const Shape shapes[] = {
      {"codigo", "", "", "", "", "", "true"},
      {"codigo", "nome", "", "", "", "", "true"},
      {"codigo", "nome", "cidade, limite, desde", "", "", "codigo > 100", "codigo > 100"},
      {"cidade", "", "count(*) as quantos", "Group By cidade", "", "", "codigo <= 50"},
      {"cidade", "", "max(limite)", "Group By cidade", "", "codigo <= 7", "codigo <= 7"},
      {"codigo", "clientes.nome", "cidades.uf", "",
       "clientes Left Join cidades on clientes.cidade = cidades.nome", "codigo < 10",
       "codigo < 10"},
      {"upper(nome) as n", "", "codigo", "", "", "ativo = 1", "true"},
      {"clientes.nome", "codigo", "", "", "", "nome ilike 'nome 1%'", "nome like 'Nome 1%'"},
  };
  field_->setTipoDado(8);
  for (const Shape& shape : shapes) {
    field_->setTxtIrmao(QString());
    field_->setBrwCampo(QLatin1String(shape.campo));
    field_->setBrwCampoIrmao(QLatin1String(shape.siblingField));
    field_->setBrwCampoOutros(QLatin1String(shape.outros));
    field_->setBrwGroupBy(QLatin1String(shape.groupBy));
    field_->setBrwLeftJoin(QLatin1String(shape.leftJoin));
    field_->setBrwWhere(QLatin1String(shape.where));
    EXPECT_EQ(rowsOfList(), count(shape.reference)) << shape.campo << " / " << shape.outros;
  }
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ListStatements, OfADescriptionAreNarrowedByWhatWasTyped) {
  server().Run("update clientes set nome = 'D''Avila ' || codigo where codigo <= 3");
  description_->setTipoControle(TsText::Descricao);
  description_->setBrowseTable(QStringLiteral("clientes"));
  description_->setBrwCampo(QStringLiteral("nome"));
  description_->setBrwCampoIrmao(QStringLiteral("codigo"));
  description_->setTxtIrmao(QStringLiteral("txtCampo"));
  description_->setBrwWhere(QStringLiteral("ativo = 1"));
  description_->setMaxLength(60);
  description_->refresh();
  description_->setFocus();
  settleEvents();
  type(*owner_, QStringLiteral("d'av"));
  settleEvents();
  EXPECT_EQ(description_->text(), QStringLiteral("D'Avila 1"));
  EXPECT_EQ(field_->text(), QStringLiteral("1"));
  driver_.willShow(QStringLiteral("frmBrowse"), [](QDialog& w) {
    EXPECT_EQ(rowCount(w), 3);
    press(w, Qt::Key_Down);
    press(w, Qt::Key_Return);
  });
  press(*owner_, Qt::Key_PageDown);
  settleEvents();
  EXPECT_EQ(description_->text(), QStringLiteral("D'Avila 2"));
  EXPECT_EQ(field_->text(), QStringLiteral("2"));
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ListStatements, OfADescriptionFindWhatHoldsABackslash) {
  server().Run(
      "update clientes set nome = 'AC\\DC ' || codigo where codigo <= 3;"
      "update clientes set nome = 'C:\\' where codigo = 4");
  description_->setTipoControle(TsText::Descricao);
  description_->setBrowseTable(QStringLiteral("clientes"));
  description_->setBrwCampo(QStringLiteral("nome"));
  description_->setBrwCampoIrmao(QStringLiteral("codigo"));
  description_->setTxtIrmao(QStringLiteral("txtCampo"));
  description_->setMaxLength(60);
  const struct {
    const char* typed;
    const char* chosen;
    int rows;
  } cases[] = {{"ac\\d", "AC\\DC 1", 3}, {"C:\\", "C:\\", 1}};
  for (const auto& c : cases) {
    field_->setFocus();
    settleEvents();
    description_->setFocus();
    settleEvents();
    type(*owner_, QLatin1String(c.typed));
    settleEvents();
    EXPECT_EQ(description_->text(), QLatin1String(c.chosen));
    driver_.willShow(QStringLiteral("frmBrowse"), [&](QDialog& w) {
      EXPECT_EQ(rowCount(w), c.rows);
      press(w, Qt::Key_Return);
    });
    press(*owner_, Qt::Key_PageDown);
    settleEvents();
    EXPECT_EQ(description_->text(), QLatin1String(c.chosen));
  }
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ListStatements, OfADescriptionWithAliasesFindTheirRows) {
  description_->setTipoControle(TsText::Descricao);
  description_->setBrowseTable(QStringLiteral("clientes c"));
  description_->setBrwCampo(QStringLiteral("upper(c.nome) as n"));
  description_->setBrwCampoIrmao(QStringLiteral("c.codigo as chave"));
  description_->setTxtIrmao(QStringLiteral("txtCampo"));
  description_->setMaxLength(60);
  description_->refresh();
  addSearch(u"Nome", u"upper(c.nome) as n", 8, 1);
  description_->setFocus();
  settleEvents();
  type(*owner_, QStringLiteral("nome 1999"));
  settleEvents();
  const int found = count("nome like 'Nome 1999%'");
  driver_.willShow(QStringLiteral("frmBrowse"), [&](QDialog& w) {
    EXPECT_EQ(rowCount(w), found);
    search(w, Qt::Key_F2, QStringLiteral("nome 1998"));
    EXPECT_EQ(rowCount(w), count("nome like 'Nome 1998%'"));
    press(w, Qt::Key_Return);
  });
  press(*owner_, Qt::Key_PageDown);
  settleEvents();
  EXPECT_EQ(description_->text(), QStringLiteral("NOME 1998"));
  EXPECT_EQ(field_->text(), QStringLiteral("1998"));
  // The key narrows the next completion, which finds only its own row.
  press(*owner_, Qt::Key_Backspace);
  settleEvents();
  EXPECT_EQ(description_->text(), QStringLiteral("NOME 1998"));
  EXPECT_TRUE(boxes_.boxes().empty());
}

// --- Searches -----------------------------------------------------------------------------------

struct SearchCase {
  const char16_t* campo;
  Long tipo;
  Long like;
  const char16_t* mask;
  const char* typed;
  const char* reference;
};

constexpr const char16_t* kDate = u"dd/mm/yyyy";
constexpr const char16_t* kMoney = u"$$$$$$$.$$";

const SearchCase kSearches[] = {
    {u"nome", 8, 0, u"", "Nome 77", "nome = 'Nome 77'"},
    {u"nome", 8, 1, u"", "nome 77", "nome ilike 'nome 77%'"},
    {u"nome", 8, 2, u"", "77", "nome like '%77'"},
    {u"nome", 8, 3, u"", "E 77", "nome ilike '%e 77%'"},
    {u"nome", 8, 4, u"", "Nome 9", "left(nome, 6) > 'Nome 9'"},
    {u"nome", 8, 5, u"", "Nome 9", "left(nome, 6) >= 'Nome 9'"},
    {u"nome", 8, 6, u"", "Nome 2", "left(nome, 6) < 'Nome 2'"},
    {u"nome", 8, 7, u"", "Nome 2", "left(nome, 6) <= 'Nome 2'"},
    {u"nome", 8, 4, u"", "M'z", "nome > 'M'"},
    {u"upper(nome)", 8, 1, u"", "NOME 77", "nome ilike 'nome 77%'"},
    {u"clientes.cidade", 8, 0, u"", "Cidade 7", "cidade = 'Cidade 7'"},
    {u"codigo", 2, 0, u"", "77", "codigo = 77"},
    {u"codigo", 2, 1, u"", "77", "codigo = 77"},
    {u"codigo", 2, 2, u"", "77", "codigo = 77"},
    {u"codigo", 2, 3, u"", "77", "codigo = 77"},
    {u"codigo", 2, 4, u"", "19000", "codigo > 19000"},
    {u"codigo", 2, 5, u"", "19000", "codigo >= 19000"},
    {u"codigo", 2, 6, u"", "19000", "codigo < 19000"},
    {u"codigo", 2, 7, u"", "19000", "codigo <= 19000"},
    {u"limite", 2, 0, kMoney, "1234,50", "limite = 1234.50"},
    {u"limite", 2, 4, kMoney, "1234,50", "limite > 1234.50"},
    {u"desde", 7, 0, kDate, "31122016", "desde = '2016-12-31'"},
    {u"desde", 7, 1, kDate, "31122016", "desde = '2016-12-31'"},
    {u"desde", 7, 2, kDate, "31122016", "desde = '2016-12-31'"},
    {u"desde", 7, 3, kDate, "31122016", "desde = '2016-12-31'"},
    {u"desde", 7, 4, kDate, "31122016", "desde > '2016-12-31'"},
    {u"desde", 7, 5, kDate, "31122016", "desde >= '2016-12-31'"},
    {u"desde", 7, 6, kDate, "31122016", "desde < '2016-12-31'"},
    {u"desde", 7, 7, kDate, "31122016", "desde <= '2016-12-31'"},
};

TEST_F(ListStatements, OfEachKindAndComparisonOfASearchFindTheirRows) {
  for (const SearchCase& c : kSearches) {
    searches().Clear();
    addSearch(u"Busca", c.campo, c.tipo, c.like, c.mask);
    look([&](QDialog& w) {
      search(w, Qt::Key_F2, QLatin1String(c.typed));
      press(w, Qt::Key_End);
      EXPECT_EQ(rowCount(w), count(c.reference)) << c.reference << ", like " << c.like;
      press(w, Qt::Key_3, Qt::ControlModifier);
      press(w, Qt::Key_End);
      EXPECT_EQ(rowCount(w), kCustomers);
      press(w, Qt::Key_Escape);
    });
  }
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ListStatements, OfACombinedSearchJoinTheConditions) {
  addSearch(u"Cidade", u"cidade", 8, 0, u"", 1);
  addSearch(u"Desde", u"desde", 7, 5, kDate, 1);
  field_->setBrwWhere(QStringLiteral("ativo = 1"));
  look([&](QDialog& w) {
    driver_.willShow(QStringLiteral("frmTsPesquisa"), [](QDialog& prompt) {
      strike(prompt, QStringLiteral("Cidade 7"));
      press(prompt, Qt::Key_Return);
    });
    search(w, Qt::Key_F2, QStringLiteral("01012016"));
    press(w, Qt::Key_End);
    EXPECT_EQ(rowCount(w), count("cidade = 'Cidade 7' and desde >= '2016-01-01'"));
    press(w, Qt::Key_Escape);
  });
  EXPECT_TRUE(boxes_.boxes().empty());
}

// --- Single rows --------------------------------------------------------------------------------

TEST_F(ListStatements, OfTheDescriptionLookupFindTheirRow) {
  State().dbConexao = connection_;
  struct Lookup {
    const char16_t* campo;
    const char16_t* outros;
    const char16_t* groupBy;
    Variant code;
    const char16_t* where;
  };
  const Lookup lookups[] = {
      {u"codigo", u"", u"", Long{15}, u""},
      {u"codigo", u"", u"", u"15", u"ativo = 1"},
      {u"codigo", u"cidade, limite", u"", 15.0, u"ativo = 1"},
      {u"codigo", u"max(cidade)", u"Group By nome", Long{15}, u""},
      {u"codigo as c", u"", u"", Long{15}, u"nome ilike 'n%'"},
  };
  for (const Lookup& lookup : lookups) {
    Browse definition;
    definition.BrowseTable(u"clientes");
    definition.BrwCampo(lookup.campo);
    definition.BrwCampoIrmao(u"nome");
    definition.BrwCampoOutros(lookup.outros);
    definition.BrwGroupBy(lookup.groupBy);
    const Variant found =
        mdlObjTxt::AchaDescr(definition, lookup.code, u"txtCampo", lookup.where, 0);
    EXPECT_EQ(CStr(found), u"Nome 15");
  }
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ListStatements, OfTheRelationCheckFindTheirRow) {
  State().dbConexao = connection_;
  const auto exists = [](const String& campo, const String& value, TipoControle tipo,
                         String where) {
    return mdlObjTxt::ChecaRelacao(u"clientes", campo, value, tipo, nullptr, false, true, false,
                                   where, u"", nullptr, 0, false);
  };
  EXPECT_TRUE(exists(u"codigo", u"15", TipoControle::Browse, u""));
  EXPECT_TRUE(exists(u"codigo as c", u"15", TipoControle::Browse, u"ativo = 1"));
  EXPECT_FALSE(exists(u"codigo", u"99999", TipoControle::Browse, u""));
  EXPECT_TRUE(exists(u"nome", u"NOME 15", TipoControle::Browse, u"ativo = 1"));
  EXPECT_TRUE(exists(u"nome", u" nome 15 ", TipoControle::Descricao, u""));
  EXPECT_FALSE(exists(u"nome", u"D'Avila", TipoControle::Descricao, u""));
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ListStatements, ThatFailAreReportedAndLeaveTheTransactionUsable) {
  State().dbConexao = connection_;
  connection_->BeginTrans();
  connection_->Execute(u"update clientes set cidade = 'Nova' where codigo = 1");
  const auto number =
      connection_->Execute(u"select codigo from clientes where codigo = 15")->Fields().Item(0);
  const auto isTold = [&](const char* part) {
    const QStringList told = boxes_.takeTexts();
    EXPECT_EQ(told.size(), 1);
    EXPECT_TRUE(told.join(QString()).contains(QLatin1String(part)))
        << told.join(QString()).toStdString();
    EXPECT_EQ(count("cidade = 'Nova'"), 1);
  };
  const auto check = [&](const String& campo) {
    String where;
    return mdlObjTxt::ChecaRelacao(u"clientes", campo, u"15", TipoControle::Browse, number.get(),
                                   true, true, true, where, u"", nullptr, 0, false);
  };
  EXPECT_FALSE(check(u"nome"));  // its letters are not an integer
  isTold("integer");
  EXPECT_FALSE(check(u"cast(codigo as integer) as chave"));  // cut at the first " as "
  isTold("syntax error");
  Browse definition;
  definition.BrowseTable(u"clientes");
  definition.BrwCampo(u"codigo");
  definition.BrwCampoIrmao(u"nada");
  EXPECT_TRUE(mdlObjTxt::AchaDescr(definition, Long{15}, u"txtCampo", u"", 0).IsEmpty());
  isTold("nada");
  connection_->CommitTrans();
  EXPECT_EQ(count("cidade = 'Nova'"), 1);
}

TEST_F(ListStatements, OfTheCompletionFindTheFirstThatBeginsSo) {
  State().dbConexao = connection_;
  for (const String& where : {String(), String(u"ativo = 1")}) {
    for (const Variant& sibling : {Variant(String()), Variant(u"codigo")}) {
      box_.Text(u"nome 1999");
      mdlObjTxt::CompletaDescr(box_, u"clientes", u"nome", Integer{0}, false, sibling, nullptr,
                               where);
      EXPECT_EQ(toQt(box_.Text()).left(9), QStringLiteral("Nome 1999"));
      EXPECT_EQ(box_.SelStart(), 9);
    }
  }
  EXPECT_TRUE(boxes_.boxes().empty());
}

}  // namespace
}  // namespace tessaria::qt::tests
