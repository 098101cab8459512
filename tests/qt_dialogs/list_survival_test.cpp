// The list over a real database, while other users, the server and the form interfere.
#include <QApplication>
#include <QClipboard>
#include <QPushButton>

#include "tests/qt_dialogs/database_list_fixture.h"

namespace tessaria::qt::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class ListSurvival : public DatabaseListFixture {
 protected:
  ListSurvival() {
    boxes_.whileOpen = [] {
      EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << "a box that asks to wait";
      if (QWidget* box = QApplication::activeModalWidget()) {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        picture(*box, QLatin1String("caixa_") + QLatin1String(test->name()));
      }
    };
  }
  ~ListSurvival() override { EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); }

  static void escape(QDialog& window) { press(window, Qt::Key_Escape); }
  static void choose(QDialog& window) { press(window, Qt::Key_Return); }
  /// Checks that there was only one box since the last call.
  Box theBox() {
    const auto all = boxes_.boxes();
    EXPECT_EQ(all.size(), told_ + 1);
    for (std::size_t i = told_; i + 1 < all.size(); ++i)
      ADD_FAILURE() << all[i].title.toStdString() << ": " << all[i].text.toStdString();
    const std::size_t last = all.size();
    const bool came = last > told_;
    told_ = last;
    return came ? all.back() : Box();
  }
  void expectNoBox() { EXPECT_EQ(boxes_.boxes().size(), told_); }
  /// Checks that the connection works and has no open transaction.
  void expectUsableConnection() {
    const auto rows = connection_->Execute(u"select count(*)::int from clientes");
    EXPECT_TRUE(rows->Fields().Item(0)->Value().TryGet<Long>());
    connection_->BeginTrans();
    connection_->RollbackTrans();
  }

 private:
  std::size_t told_ = 0;
};

// --- The form -----------------------------------------------------------------------------------

TEST_F(ListSurvival, TheFormClosedWhileTheListIsOpen) {
  field_->setValue(15);
  look([this](QDialog& w) {
    EXPECT_LT(rowCount(w), kCustomers);
    owner_->close();
    EXPECT_FALSE(w.isVisible());
  });
  EXPECT_EQ(field_->text(), QStringLiteral("15"));
  expectNoBox();
  expectUsableConnection();
}

TEST_F(ListSurvival, TheFormDestroyedWhileTheListIsOpen) {
  look([this](QDialog& w) {
    owner_.reset();
    EXPECT_FALSE(w.isVisible());
  });
  expectNoBox();
  expectUsableConnection();
}

TEST_F(ListSurvival, ClosingBeforeAllRowsAreReadEndsTheReading) {
  look(escape);
  expectUsableConnection();
  look([](QDialog& w) {
    scrollDown(w);
    escape(w);
  });
  expectUsableConnection();
  expectNoBox();
}

// --- Reading ------------------------------------------------------------------------------------

TEST_F(ListSurvival, EndReadsToTheLastRowAndChoosesIt) {
  look([](QDialog& w) {
    press(w, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(rowCount(w), kCustomers);
    EXPECT_EQ(currentRow(w), kCustomers - 1);
    choose(w);
  });
  EXPECT_EQ(field_->text(), QString::number(kCustomers));
  EXPECT_EQ(description_->text(), QStringLiteral("Nome %1").arg(kCustomers));
}

TEST_F(ListSurvival, OpensOnARowBeyondTheFirstPage) {
  field_->setValue(15'000);
  look([](QDialog& w) {
    EXPECT_EQ(currentRow(w), 14'999);
    EXPECT_TRUE(view(w).viewport()->rect().intersects(view(w).visualRect(view(w).currentIndex())));
    press(w, Qt::Key_Down);
    choose(w);
  });
  EXPECT_EQ(field_->text(), QStringLiteral("15001"));
}

TEST_F(ListSurvival, SortsAllRowsIncludingThoseNotYetRead) {
  server().Run("update clientes set nome = '  aaa' where codigo = 19999");
  look([](QDialog& w) {
    EXPECT_LT(rowCount(w), kCustomers);
    QHeaderView& header = *view(w).horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      QPoint(header.sectionViewportPosition(1) + 10, header.height() / 2));
    EXPECT_EQ(cell(w, 0, 0), QStringLiteral("19999"));
    choose(w);
  });
  EXPECT_EQ(field_->text(), QStringLiteral("19999"));
}

TEST_F(ListSurvival, ALetterJumpsToARowNotYetRead) {
  server().Run("update clientes set nome = 'Zulmira' where codigo = 18000");
  field_->setBrwCampo(QStringLiteral("nome"));
  field_->setBrwCampoIrmao(QString());
  field_->setTxtIrmao(QString());
  field_->setTipoDado(8);
  look([](QDialog& w) {
    EXPECT_LT(rowCount(w), kCustomers);
    strike(w, QStringLiteral("z"));
    EXPECT_EQ(cell(w, currentRow(w), 0), QStringLiteral("Zulmira"));
    choose(w);
  });
  EXPECT_EQ(field_->text(), QStringLiteral("Zulmira"));
}

// --- Readings that fail -------------------------------------------------------------------------

/// The statement fails at a row after the first page; each way to get there reports it.
class LateFailure : public ListSurvival {
 protected:
  void SetUp() override {
    ListSurvival::SetUp();
    if (IsSkipped()) return;
    field_->setBrwCampoOutros(QStringLiteral("100 / (codigo - 15000) as quota"));
  }
  void expectTheError() { EXPECT_THAT(theBox().text.toStdString(), HasSubstr("division by zero")); }
  void expectTold(QDialog& window) {
    expectTheError();
    EXPECT_FALSE(warning(window).isHidden());
    EXPECT_THAT(warning(window).text().toStdString(), HasSubstr("Lista incompleta"));
    EXPECT_LT(rowCount(window), 15'000);
    EXPECT_GT(rowCount(window), 0);
    picture(window, QStringLiteral("lista_incompleta"));
  }
};

TEST_F(LateFailure, IsReportedByEachWayToTheEndAndLeavesTheRowsBeforeIt) {
  const ModalDriver::Script ways[] = {
      [](QDialog& w) { press(w, Qt::Key_End); },
      [](QDialog& w) { press(w, Qt::Key_PageDown, Qt::ControlModifier); },
  };
  for (const auto& way : ways) {
    look([&](QDialog& w) {
      way(w);
      settleEvents();
      expectTheError();
      EXPECT_LT(currentRow(w), 15'000);
      EXPECT_GT(rowCount(w), 0);
      EXPECT_TRUE(warning(w).isHidden()) << "no row that was shown is missing";
      escape(w);
    });
  }
  expectUsableConnection();
}

TEST_F(LateFailure, IsReportedWhenItsRowIsScrolledTo) {
  look([&](QDialog& w) {
    for (int i = 0; i < 20 && boxes_.boxes().empty(); ++i) scrollDown(w);
    expectTold(w);
    scrollDown(w);
    expectNoBox();  // reported only once; the warning stays
    EXPECT_FALSE(warning(w).isHidden());
    escape(w);
  });
  expectUsableConnection();
}

TEST_F(LateFailure, IsReportedWhenALetterJumpsPastIt) {
  server().Run("create index on clientes (nome); analyze clientes");
  field_->setBrwCampo(QStringLiteral("nome"));
  field_->setBrwCampoIrmao(QString());
  field_->setTxtIrmao(QString());
  field_->setTipoDado(8);
  QString shown;
  look([&](QDialog& w) {
    press(w, Qt::Key_Down);
    strike(w, QStringLiteral("z"));
    settleEvents();
    expectTold(w);
    // The record set may have moved for the jump: the row shown is the one chosen.
    shown = cell(w, currentRow(w), 0);
    choose(w);
  });
  EXPECT_FALSE(shown.isEmpty());
  EXPECT_EQ(field_->text(), shown);
}

TEST_F(LateFailure, DoesNotPreventTheChoiceOfAReadRow) {
  field_->setUsaChecaRelacao(false);
  look([&](QDialog& w) {
    press(w, Qt::Key_End);
    settleEvents();
    expectTheError();
    press(w, Qt::Key_Home);
    press(w, Qt::Key_Down);
    choose(w);
  });
  EXPECT_EQ(field_->text(), QStringLiteral("2"));
}

TEST_F(LateFailure, BeforeTheRowOfTheValuePreventsTheListFromOpening) {
  field_->setValue(18'000);
  openList();
  const Box box = theBox();
  EXPECT_THAT(box.text.toStdString(), HasSubstr("division by zero"));
  EXPECT_THAT(box.title.toStdString(), HasSubstr("mdlObjTxt.VerBrowse"));
  EXPECT_THAT(driver_.shown(), IsEmpty());
}

// --- The server ---------------------------------------------------------------------------------

class ServerStopped : public ListSurvival {
 protected:
  void TearDown() override {
    server().EnsureRunning();
    ListSurvival::TearDown();
  }
  void stop() { server().Stop(); }
  void startAgain() {
    server().EnsureRunning();
    connection_->Close();  // nothing may have been asked of it since the server stopped
    connection_->Open();
  }
};

TEST_F(ServerStopped, ScrollingReportsThatTheListIsIncomplete) {
  look([this](QDialog& w) {
    stop();
    for (int i = 0; i < 20 && boxes_.boxes().empty(); ++i) scrollDown(w);
    EXPECT_FALSE(theBox().text.isEmpty());
    EXPECT_FALSE(warning(w).isHidden());
    EXPECT_LT(rowCount(w), kCustomers);
    EXPECT_EQ(cell(w, 0, 1), QStringLiteral("Nome 1"));
    escape(w);
  });
  startAgain();
  look([](QDialog& w) {
    press(w, Qt::Key_End);
    EXPECT_EQ(rowCount(w), kCustomers);
    EXPECT_TRUE(warning(w).isHidden());
    escape(w);
  });
  expectNoBox();
}

TEST_F(ServerStopped, ASearchReportsItAndWorksAgainLater) {
  addSearch(u"Nome", u"nome", 8, 1);
  look([this](QDialog& w) {
    stop();
    boxes_.willPress(QStringLiteral("Não"));
    search(w, Qt::Key_F2, QStringLiteral("Nome 77"));
    const Box box = theBox();
    EXPECT_EQ(box.title, QStringLiteral("Deseja Copiar para Área de Transferencia ?"));
    EXPECT_THAT(box.text.toStdString(), HasSubstr("clientes.nome ilike 'Nome 77%'"));
    EXPECT_TRUE(w.isVisible());
    startAgain();
    search(w, Qt::Key_F2, QStringLiteral("Nome 1234"));
    EXPECT_EQ(rowCount(w), 11);
    choose(w);
  });
  EXPECT_EQ(field_->text(), QStringLiteral("1234"));
  expectNoBox();
}

TEST_F(ServerStopped, ReloadingAllRowsReportsIt) {
  addSearch(u"Nome", u"nome", 8, 1);
  look([this](QDialog& w) {
    stop();
    press(w, Qt::Key_3, Qt::ControlModifier);
    EXPECT_FALSE(theBox().text.isEmpty());
    EXPECT_TRUE(w.isVisible());
    startAgain();
    press(w, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(cell(w, 0, 1), QStringLiteral("Nome 1"));
    EXPECT_TRUE(warning(w).isHidden());
    press(w, Qt::Key_End);
    EXPECT_EQ(rowCount(w), kCustomers);
    escape(w);
  });
  expectNoBox();
}

TEST_F(ServerStopped, ARowCanBeChosenAndItsMissingDescriptionIsReported) {
  look([this](QDialog& w) {
    press(w, Qt::Key_Down);
    stop();
    choose(w);
  });
  EXPECT_EQ(field_->text(), QStringLiteral("2"));
  EXPECT_THAT(theBox().title.toStdString(), HasSubstr("mdlObjTxt.AchaDescr"));
  startAgain();
  look([](QDialog& w) {
    EXPECT_EQ(currentRow(w), 1);
    choose(w);
  });
  EXPECT_EQ(description_->text(), QStringLiteral("Nome 2"));
}

TEST_F(ServerStopped, OpeningReportsItAndDoesNotChangeTheField) {
  type(*owner_, QStringLiteral("15"));
  stop();
  boxes_.willPress(QStringLiteral("Não"));
  openList();
  const Box box = boxes_.boxes().front();
  EXPECT_EQ(box.title, QStringLiteral("Copiar Para Área de Transferência ?"));
  EXPECT_THAT(box.text.toStdString(), HasSubstr("clientes"));
  EXPECT_EQ(field_->text(), QStringLiteral("15"));
  EXPECT_THAT(driver_.shown(), IsEmpty());
}

TEST_F(ServerStopped, AClosedConnectionIsShownAndReported) {
  connection_->Close();
  openList();
  ASSERT_EQ(boxes_.boxes().size(), 2u);
  EXPECT_EQ(boxes_.boxes()[0].text, QStringLiteral("Conexão ao banco foi encerrada. verifique"));
  EXPECT_EQ(boxes_.boxes()[1].title, QStringLiteral("Erro: 91 - Função: mdlObjTxt.VerBrowse"));
  EXPECT_THAT(driver_.shown(), IsEmpty());
}

TEST_F(ServerStopped, AConnectionClosedUnderTheListIsReportedByASearch) {
  addSearch(u"Nome", u"nome", 8, 1);
  look([this](QDialog& w) {
    connection_->Close();
    search(w, Qt::Key_F2, QStringLiteral("x"));
    escape(w);
  });
  // The condition cannot be written without the dialect, and nothing is sent.
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_EQ(boxes_.boxes()[0].title,
            QStringLiteral("Erro: 3709 - Função: mdlObjTxt.tsMostraFormPesquisa"));
}

// --- Other users --------------------------------------------------------------------------------

TEST_F(ListSurvival, AnEmptyTableShowsItsMessageAndNoList) {
  server().Run("delete from clientes");
  openList();
  const Box box = theBox();
  EXPECT_EQ(box.text, QStringLiteral("Não Existem Dados na Tabela Pesquisada, Favor Cadastrar"));
  EXPECT_EQ(box.title, QStringLiteral("Alerta!"));
  EXPECT_EQ(box.owner, QStringLiteral("frmDono"));
  field_->setMsgBrowse(QStringLiteral("Nenhum cliente."));
  openList();
  EXPECT_EQ(theBox().text, QStringLiteral("Nenhum cliente."));
  EXPECT_THAT(driver_.shown(), IsEmpty());
  expectUsableConnection();
}

TEST_F(ListSurvival, TheTableEmptiedUnderTheListKeepsItUntilItIsReadAgain) {
  addSearch(u"Nome", u"nome", 8, 1);
  look([this](QDialog& w) {
    server().Run("delete from clientes");
    press(w, Qt::Key_End);
    EXPECT_EQ(rowCount(w), kCustomers);
    press(w, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(rowCount(w), 0);
    EXPECT_FALSE(at(w, QStringLiteral("btnConfirmar")).isEnabled());
    picture(w, QStringLiteral("lista_vazia"));
    search(w, Qt::Key_F2, QStringLiteral("a"));
    choose(w);
    EXPECT_TRUE(w.isVisible());
    press(w, Qt::Key_End);
    press(w, Qt::Key_PageDown, Qt::ControlModifier);
    strike(w, QStringLiteral("a"));
    escape(w);
  });
  expectNoBox();
}

TEST_F(ListSurvival, ARowThatAnotherUserDeletedIsRefusedWhenItsFieldIsLeft) {
  field_->setUsaChecaRelacao(true);
  look([](QDialog& w) {
    press(w, Qt::Key_Down);
    server().Run("delete from clientes where codigo = 2");
    choose(w);
  });
  EXPECT_EQ(field_->text(), QStringLiteral("2"));
  EXPECT_EQ(description_->text(), QString());
  other_->setFocus();
  settleEvents();
  EXPECT_EQ(theBox().text, QStringLiteral("codigo de clientes Inexistente, Verifique Por Favor"));
  EXPECT_EQ(field_->text(), QStringLiteral("2"));
  EXPECT_TRUE(field_->isAncestorOf(owner_->focusWidget()));
}

// --- Refusals -----------------------------------------------------------------------------------

TEST_F(ListSurvival, ARefusedStatementGoesToTheClipboardOnRequest) {
  field_->setBrwCampoOutros(QStringLiteral("fantasia"));
  QApplication::clipboard()->setText(QStringLiteral("antes"));
  boxes_.willPress(QStringLiteral("Não"));
  openList();
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("antes"));
  const Box box = theBox();
  EXPECT_EQ(box.title, QStringLiteral("Copiar Para Área de Transferência ?"));
  EXPECT_THAT(box.buttons, ElementsAre(QStringLiteral("Sim"), QStringLiteral("Não")));
  EXPECT_THAT(box.text.toStdString(), HasSubstr("fantasia"));

  boxes_.willPress(QStringLiteral("Sim"));
  openList();
  const QString copied = QApplication::clipboard()->text();
  EXPECT_TRUE(copied.startsWith(QStringLiteral("SELECT"))) << copied.toStdString();
  EXPECT_TRUE(theBox().text.endsWith(copied));
  EXPECT_THAT(driver_.shown(), IsEmpty());
  expectUsableConnection();
}

TEST_F(ListSurvival, ATextThatIsNotANumberCannotBeSearchedFor) {
  addSearch(u"Código", u"codigo", 2, 0);
  look([this](QDialog& w) {
    driver_.willShow(QStringLiteral("frmTsPesquisa"), [](QDialog& prompt) {
      strike(prompt, QStringLiteral("abc"));
      press(prompt, Qt::Key_Return);
      EXPECT_TRUE(prompt.isVisible());
      EXPECT_FALSE(at(prompt, QStringLiteral("btnOk")).isEnabled());
      escape(prompt);
    });
    press(w, Qt::Key_F2);
    EXPECT_GT(rowCount(w), 0);
    escape(w);
  });
}

TEST_F(ListSurvival, ASecondStatementInATypedTextDoesNothing) {
  addSearch(u"Nome", u"nome", 8, 0);
  look([this](QDialog& w) {
    search(w, Qt::Key_F2, QStringLiteral("x'; delete from clientes; --"));
    EXPECT_EQ(rowCount(w), 0);
    press(w, Qt::Key_3, Qt::ControlModifier);
    EXPECT_EQ(cell(w, 0, 1), QStringLiteral("Nome 1"));
    escape(w);
  });
  expectNoBox();
}

}  // namespace
}  // namespace tessaria::qt::tests
