// Invalid pairs, texts that are SQL, lost servers: what the operator is told, and that the typed
// text stays.
#include <QInputMethodEvent>
#include <QLabel>

#include "tests/qt/completion_fixture.h"

namespace tessaria::qt::tests {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class CompletionFaults : public CompletionFixture {
 protected:
  QString nameOf(const char16_t* code) {
    const auto rows =
        connection_->Execute(u"select nome from cidades where codigo = '" + String(code) + u"'");
    return rows->Eof() ? QString() : toQt(fromVariant(rows->Fields().Item(0)->Value()));
  }
  static String fromVariant(const Variant& value) {
    const String* text = value.TryGet<String>();
    return text ? *text : String();
  }
  QStringList titles() const {
    QStringList titles;
    for (const Box& box : boxes_.boxes()) titles << box.title;
    return titles;
  }
};

// --- Codes ---------------------------------------------------------------------------------------

TEST_F(CompletionFaults, AnUnknownCodeIsRefusedAndStaysInTheBox) {
  showCity();
  enter(city_.key);
  type(*window_, QStringLiteral("99999"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts(),
            QStringList(QStringLiteral("codigo de cidades Inexistente, Verifique Por Favor")));
  EXPECT_EQ(focusName(), QStringLiteral("codCidade"));
  EXPECT_EQ(city_.key->text(), QStringLiteral("99999"));
  EXPECT_EQ(city_.name->text(), QString());
}

TEST_F(CompletionFaults, AnUnknownCodeWithoutACheckEmptiesTheDescription) {
  showCity();
  city_.key->setUsaChecaRelacao(false);
  type(*window_, QStringLiteral("Uba"));
  enter(city_.key);
  type(*window_, QStringLiteral("99999"));
  enter(city_.name);
  EXPECT_EQ(city_.key->text(), QStringLiteral("99999"));
  EXPECT_TRUE(city_.name->value().isNull());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, ACodeWithoutADescriptionGivesNull) {
  showCity();
  enter(city_.key);
  type(*window_, QStringLiteral("00012"));
  enter(city_.name);
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00012"));
  EXPECT_TRUE(city_.name->value().isNull());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, ADescriptionWithoutACodeCompletesAndTheCodeIsNull) {
  connection_->Execute(u"alter table cidades drop constraint cidades_pkey");
  connection_->Execute(u"alter table cidades alter codigo drop not null");
  connection_->Execute(u"update cidades set codigo = null where nome = 'Ubatuba'");
  showCity();
  type(*window_, QStringLiteral("Uba"));
  expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
  EXPECT_TRUE(city_.key->value().isNull());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

// --- Pairs ---------------------------------------------------------------------------------------

TEST_F(CompletionFaults, AMissingSiblingIsReportedAtTheFirstShowAndTheTextStillCompletes) {
  city_ = addPair(QStringLiteral("Cidade"), QStringLiteral("cidades"));
  city_.name->setTxtIrmao(QStringLiteral("codNada"));
  show();
  EXPECT_EQ(boxes_.takeTexts(),
            QStringList(QStringLiteral("Controle não encontrado: 'codNada', em TxtIrmao de "
                                       "'desCidade'")));
  EXPECT_THAT(titles().last().toStdString(), HasSubstr("tsText.SetarVariaveis"));
  enter(city_.name);
  type(*window_, QStringLiteral("Ub"));
  expectBox(QStringLiteral("Ub"), QStringLiteral("eraba"));
  EXPECT_TRUE(city_.key->value().isNull());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, AMissingControlInAConditionIsReportedWithItsName) {
  city_ = addPair(QStringLiteral("Cidade"), QStringLiteral("cidades"));
  city_.name->setBrwWhere(QStringLiteral("uf = '@cbbUf@'"));
  show();
  enter(city_.name);
  type(*window_, QStringLiteral("U"));
  const QStringList texts = boxes_.takeTexts();
  ASSERT_THAT(texts, Not(IsEmpty()));
  EXPECT_EQ(texts.first(), QStringLiteral("Controle não encontrado: 'cbbUf', em BrwWhere de "
                                          "'desCidade'"));
}

TEST_F(CompletionFaults, AWidgetOfAnotherTypeIsNotASibling) {
  city_ = addPair(QStringLiteral("Cidade"), QStringLiteral("cidades"));
  add(new QLabel(QStringLiteral("Cidade")), QStringLiteral("lblCidade"));
  city_.name->setTxtIrmao(QStringLiteral("lblCidade"));
  show();
  enter(city_.name);
  type(*window_, QStringLiteral("Ub"));
  expectBox(QStringLiteral("Ub"), QStringLiteral("eraba"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, ARemovedSiblingIsReportedAtEachKeyAndTheTextStays) {
  showCity();
  delete city_.key;
  for (const char* typed : {"U", "Ub"}) {
    type(*window_, QString(QLatin1Char(typed[std::strlen(typed) - 1])));
    EXPECT_EQ(box().text(), QLatin1String(typed));
    EXPECT_THAT(boxes_.takeTexts(), SizeIs(1));
    EXPECT_THAT(titles().last().toStdString(), HasSubstr("tsText.txtEdit_KeyUp"));
  }
}

TEST_F(CompletionFaults, TwoDescriptionsThatNameEachOtherDoNotLoop) {
  showCity();
  city_.key->setTipoControle(TsText::Descricao);
  type(*window_, QStringLiteral("Uba"));
  expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00013"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(city_.name->value().toString(), QStringLiteral("Ubatuba"));
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00013"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, TwoKeysThatNameEachOtherDoNotLoop) {
  showCity();
  city_.name->setTipoControle(TsText::Browse);
  enter(city_.key);
  type(*window_, QStringLiteral("00013"));
  enter(city_.name);
  EXPECT_EQ(city_.name->value().toString(), QStringLiteral("Ubatuba"));
  enter(city_.key);
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00013"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

// The first names the description of the second, the second that of the first.
TEST_F(CompletionFaults, PairsThatNameEachOtherCrosswiseDoNotLoop) {
  const Pair first = addPair(QStringLiteral("Cidade"), QStringLiteral("cidades"));
  const Pair second = addPair(QStringLiteral("Destino"), QStringLiteral("cidades"));
  first.key->setTxtIrmao(second.name->objectName());
  first.name->setTxtIrmao(second.key->objectName());
  second.key->setTxtIrmao(first.name->objectName());
  second.name->setTxtIrmao(first.key->objectName());
  city_ = first;
  show();
  enter(first.name);
  type(*window_, QStringLiteral("Uba"));
  expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
  EXPECT_EQ(second.key->value().toString(), QStringLiteral("00013"));
  enter(first.key);
  type(*window_, QStringLiteral("00004"));
  enter(second.key);
  EXPECT_EQ(second.name->value().toString(), QStringLiteral("Uberaba"));
  EXPECT_EQ(first.name->value().toString(), QStringLiteral("Ubatuba"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, ADefinitionWithoutATableIsReportedAtEachKey) {
  showCity();
  city_.name->setBrowseTable(QString());
  type(*window_, QStringLiteral("Ub"));
  EXPECT_EQ(box().text(), QStringLiteral("Ub"));
  const QString told = QStringLiteral(
      "Propriedades da Browse Não Informadas Corretamente. Contate o Administrador de Sistema.");
  EXPECT_EQ(boxes_.takeTexts(), QStringList({told, told}));
  press(*window_, Qt::Key_Home);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, AKeyWithoutATableIsNeverLookedUp) {
  showCity();
  city_.key->setBrowseTable(QString());
  enter(city_.key);
  connection_->takeStatements();
  type(*window_, QStringLiteral("99999"));
  enter(city_.name);
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
  EXPECT_EQ(city_.key->text(), QStringLiteral("99999"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

// --- Texts that are SQL --------------------------------------------------------------------------

struct Hostile {
  const char* typed;
  const char* completed;
  const char* code;
};

TEST_F(CompletionFaults, TypedTextIsNeverExecuted) {
  const Hostile rows[] = {
      {"Santa Bárbara d'", "Oeste", "00007"},
      {"100%", " Rural", "00008"},
      {"A_", "B", "00009"},
      {"X'; drop table cidades;", " --", "00011"},
      {"'", "", ""},
      {"''", "", ""},
      {"'; drop table cidades; --", "", ""},
      {"\" $$ E' /* {?}", "", ""},
  };
  for (const Hostile& row : rows) {
    SCOPED_TRACE(row.typed);
    newWindow();
    showCity();
    type(*window_, QString::fromUtf8(row.typed));
    EXPECT_EQ(box().text(), QString::fromUtf8(row.typed) + QLatin1String(row.completed));
    EXPECT_EQ(box().selectedText(), QLatin1String(row.completed));
    if (*row.code) {
      EXPECT_EQ(city_.key->value().toString(), QLatin1String(row.code));
    }
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
    // When the field is left, the text is checked as a description.
    press(*window_, Qt::Key_Tab);
    settleEvents();
    EXPECT_EQ(box().text(), QString::fromUtf8(row.typed) + QLatin1String(row.completed));
    EXPECT_THAT(boxes_.takeTexts(), SizeIs(*row.code ? 0 : 1));
    EXPECT_EQ(nameOf(u"00001"), QStringLiteral("Santos"));
  }
}

TEST_F(CompletionFaults, ABackslashIsLiteral) {
  showCity();
  type(*window_, QStringLiteral("C:"));
  expectBox(QStringLiteral("C:"), QStringLiteral("\\temp"));
  type(*window_, QStringLiteral("\\"));
  expectBox(QStringLiteral("C:\\"), QStringLiteral("temp"));
  type(*window_, QStringLiteral("\\"));  // no row
  expectBox(QStringLiteral("C:\\\\"), QString());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, BackspaceTakesAWholeCharacter) {
  connection_->Execute(u"update cidades set nome = 'Ube \U0001F600 clube' where nome = 'Uberaba'");
  showCity();
  type(*window_, QStringLiteral("Ube "));
  QInputMethodEvent composed;
  composed.setCommitString(QString::fromUtf8("\xF0\x9F\x98\x80"));
  QApplication::sendEvent(&box(), &composed);
  settleEvents();
  expectBox(QString::fromUtf8("Ube \xF0\x9F\x98\x80"), QStringLiteral(" clube"));
  press(*window_, Qt::Key_Backspace);  // the tail
  expectBox(QStringLiteral("Ube "), QString::fromUtf8("\xF0\x9F\x98\x80 clube"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(CompletionFaults, ACodeThatIsSqlIsNeverExecuted) {
  for (const char* typed : {"'; drop table cidades; --", "00001' or '1'='1", "\\", "%"}) {
    SCOPED_TRACE(typed);
    newWindow();
    showCity();
    enter(city_.key);
    type(*window_, QLatin1String(typed));
    press(*window_, Qt::Key_Tab);
    settleEvents();
    EXPECT_EQ(city_.key->text(), QLatin1String(typed));
    EXPECT_EQ(boxes_.takeTexts(),
              QStringList(QStringLiteral("codigo de cidades Inexistente, Verifique Por Favor")));
    EXPECT_EQ(nameOf(u"00001"), QStringLiteral("Santos"));
  }
}

TEST_F(CompletionFaults, ALetterInANumericKeyIsRefusedAndStays) {
  const Pair terms = addPair(QStringLiteral("Condicao"), QStringLiteral("condicoes"));
  terms.key->setTipoDado(2);
  show();
  enter(terms.key);
  type(*window_, QStringLiteral("1x"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(terms.key->text(), QStringLiteral("1x"));
  EXPECT_EQ(focusName(), QStringLiteral("codCondicao"));
  EXPECT_THAT(boxes_.takeTexts(), SizeIs(1));
  EXPECT_THAT(titles().last().toStdString(), HasSubstr("mdlObjTxt.ChecaRelacao"));
}

// --- The server ----------------------------------------------------------------------------------

TEST_F(CompletionFaults, LosingTheServerBetweenTwoKeysLosesNoText) {
  showCity();
  type(*window_, QStringLiteral("U"));
  expectBox(QStringLiteral("U"), QStringLiteral("beraba"));
  cluster().Stop();
  type(*window_, QStringLiteral("b"));
  EXPECT_EQ(box().text(), QStringLiteral("Ub"));
  EXPECT_THAT(boxes_.takeTexts(), SizeIs(1));
  EXPECT_THAT(titles().last().toStdString(), HasSubstr("mdlObjTxt.CompletaDescr"));
  type(*window_, QStringLiteral("a"));
  EXPECT_EQ(box().text(), QStringLiteral("Uba"));
  EXPECT_THAT(boxes_.takeTexts(), SizeIs(2));  // whether to connect again, and why that failed
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00004"));

  cluster().Start();
  boxes_.willPress(QStringLiteral("Não"));
  type(*window_, QStringLiteral("t"));
  EXPECT_EQ(box().text(), QStringLiteral("Ubat"));
  EXPECT_THAT(boxes_.takeTexts(), SizeIs(2));  // only the operator opens the connection
  boxes_.willPress(QStringLiteral("Sim"));
  type(*window_, QStringLiteral("u"));
  expectBox(QStringLiteral("Ubatu"), QStringLiteral("ba"));
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00013"));
  EXPECT_THAT(boxes_.takeTexts(), SizeIs(1));
}

TEST_F(CompletionFaults, LosingTheServerBeforeTheFieldIsLeftKeepsTextAndFocus) {
  showCity();
  enter(city_.key);
  type(*window_, QStringLiteral("00013"));
  cluster().Stop();
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(city_.key->text(), QStringLiteral("00013"));
  EXPECT_EQ(focusName(), QStringLiteral("codCidade"));
  EXPECT_THAT(boxes_.takeTexts(), SizeIs(testing::Ge(1)));
  cluster().Start();
  connection_->Open();
  // Only after a key-up in the box is its description fetched when it is left.
  press(*window_, Qt::Key_End);
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(focusName(), QStringLiteral("desCidade"));
  EXPECT_EQ(city_.name->value().toString(), QStringLiteral("Ubatuba"));
}

TEST_F(CompletionFaults, AFailedLookupLeavesTheApplicationsTransactionUsable) {
  showCity();
  connection_->BeginTrans();
  connection_->Execute(u"update cidades set nome = 'Mudada' where codigo = '00001'");
  city_.name->setBrowseTable(QStringLiteral("nada"));
  type(*window_, QStringLiteral("Ub"));
  EXPECT_EQ(box().text(), QStringLiteral("Ub"));
  EXPECT_THAT(boxes_.takeTexts(), SizeIs(2));
  city_.name->setBrowseTable(QStringLiteral("cidades"));
  type(*window_, QStringLiteral("a"));
  expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
  EXPECT_EQ(nameOf(u"00001"), QStringLiteral("Mudada"));
  connection_->CommitTrans();
  EXPECT_EQ(nameOf(u"00001"), QStringLiteral("Mudada"));
}

// --- Pairs in a row ------------------------------------------------------------------------------

TEST_F(CompletionFaults, ThreePairsFillBothWaysAndNarrowEachOther) {
  const Pair state = addPair(QStringLiteral("Uf"), QStringLiteral("estados"));
  city_ = addPair(QStringLiteral("Cidade"), QStringLiteral("cidades"),
                  QStringLiteral("uf = '@codUf@'"));
  const Pair terms = addPair(QStringLiteral("Condicao"), QStringLiteral("condicoes"));
  terms.key->setTipoDado(2);
  show();
  enter(state.name);
  type(*window_, QStringLiteral("mi"));
  EXPECT_EQ(state.key->value().toString(), QStringLiteral("MG"));

  enter(city_.name);
  type(*window_, QStringLiteral("u"));
  expectBox(QStringLiteral("U"), QStringLiteral("beraba"));
  type(*window_, QStringLiteral("ba"));  // a city of another state
  EXPECT_EQ(box().text(), QStringLiteral("Uba"));
  box().selectAll();
  type(*window_, QStringLiteral("ube"));
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00004"));

  enter(state.key);
  type(*window_, QStringLiteral("SP"));
  enter(state.name);
  EXPECT_EQ(state.name->value().toString(), QStringLiteral("São Paulo"));
  enter(city_.key);
  type(*window_, QStringLiteral("00013"));
  enter(terms.name);
  EXPECT_EQ(city_.name->value().toString(), QStringLiteral("Ubatuba"));

  type(*window_, QStringLiteral("tr"));
  EXPECT_EQ(terms.key->value().toInt(), 15);
  enter(terms.key);
  type(*window_, QStringLiteral("1"));
  enter(state.key);
  EXPECT_EQ(terms.name->value().toString(), QStringLiteral("À vista"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

}  // namespace
}  // namespace tessaria::qt::tests
