// The list of a lookup, used by keyboard and by mouse.
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "tests/qt_dialogs/lookup_fixture.h"

namespace tessaria::qt::tests {
namespace {

using testing::ElementsAre;

class BrowseWindow : public LookupFixture {
 protected:
  QStringList menuTexts(QDialog& window) {
    QStringList texts;
    for (const QAction* action : searchButton(window).menu()->actions())
      texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
  }
  QStringList statements() {
    QStringList all;
    for (const String& statement : connection_->TakeStatements()) all << toQt(statement);
    return all;
  }
};

// --- Choosing -----------------------------------------------------------------------------------

TEST_F(BrowseWindow, ShowsWhatTheDefinitionSays) {
  addSearch(0, u"Nome");
  look([](QDialog& w) {
    picture(w, QStringLiteral("lista"));
    EXPECT_EQ(at<QLabel>(w, QStringLiteral("lblTitulo")).text(), QStringLiteral("Clientes"));
    const auto& model = *view(w).model();
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Nome do cliente"));
    EXPECT_EQ(cell(w, 0, 0), QStringLiteral("0001"));
    EXPECT_EQ(cell(w, 0, 3), QStringLiteral("15/03/2016"));
    EXPECT_EQ(cell(w, 2, 3), QString());
    EXPECT_EQ(cell(w, 1, 4), QStringLiteral("98.765,00"));
    EXPECT_EQ(view(w).columnWidth(1), 3600 / 15);
    EXPECT_EQ(view(w).accessibleName(), QStringLiteral("Registros"));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, OpensWideEnoughForItsColumnsButNotWiderThanTheScreen) {
  look([](QDialog& w) {
    EXPECT_FALSE(view(w).horizontalScrollBar()->isVisible());
    press(w, Qt::Key_Escape);
  });
  columns_.Item(2)->Width(30000);
  look([](QDialog& w) {
    EXPECT_TRUE(view(w).horizontalScrollBar()->isVisible());
    EXPECT_LE(w.frameGeometry().width(), w.screen()->availableGeometry().width());
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, HiddenColumnsAreNotShown) {
  columns_.Item(2)->Visible(false);
  look([](QDialog& w) {
    EXPECT_TRUE(view(w).isColumnHidden(1));
    EXPECT_FALSE(view(w).isColumnHidden(2));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, ARowCanBeChosenByKeyboardAlone) {
  EXPECT_EQ(look([](QDialog& w) {
              EXPECT_EQ(w.focusWidget(), &view(w));
              press(w, Qt::Key_Down);
              EXPECT_EQ(currentRow(w), 1);
              press(w, Qt::Key_Return);
            }),
            QStringLiteral("15"));
}

TEST_F(BrowseWindow, AnEntryCanBeChosenByMouseAlone) {
  EXPECT_EQ(look([](QDialog& w) { clickCell(w, 2, true); }), QStringLiteral("7"));
  EXPECT_EQ(look([](QDialog& w) {
              clickCell(w, 3);
              click(at(w, QStringLiteral("btnConfirmar")));
            }),
            QStringLiteral("20"));
}

TEST_F(BrowseWindow, OpensOnTheRowOfTheValue) {
  EXPECT_EQ(look(
                [](QDialog& w) {
                  EXPECT_EQ(currentRow(w), 2);
                  press(w, Qt::Key_Return);
                },
                Long{7}),
            QStringLiteral("7"));
}

TEST_F(BrowseWindow, EveryWayToCancelReturnsTheOldValue) {
  const ModalDriver::Script ways[] = {
      [](QDialog& w) { press(w, Qt::Key_Escape); },
      [](QDialog& w) { w.close(); },
      [](QDialog& w) { click(at(w, QStringLiteral("btnVoltar"))); },
      [](QDialog& w) {
        at(w, QStringLiteral("btnConfirmar")).setFocus();
        press(w, Qt::Key_Escape);
      },
      [this](QDialog&) { owner_->close(); },
  };
  for (const auto& way : ways)
    EXPECT_EQ(look(
                  [&](QDialog& w) {
                    press(w, Qt::Key_Down);
                    way(w);
                  },
                  Long{15}),
              QStringLiteral("15"));
}

TEST_F(BrowseWindow, HomeEndAndControlWithThePageKeysGoToTheEnds) {
  look([](QDialog& w) {
    press(w, Qt::Key_End);
    EXPECT_EQ(currentRow(w), 3);
    press(w, Qt::Key_Home);
    EXPECT_EQ(currentRow(w), 0);
    press(w, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(currentRow(w), 3);
    press(w, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(currentRow(w), 0);
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, ALetterJumpsAndTheListShowsTheRow) {
  std::swap(rows_.Columns[0], rows_.Columns[1]);
  for (auto& row : rows_.Cells) std::swap(row[0], row[1]);
  look([](QDialog& w) {
    strike(w, QStringLiteral("c"));
    EXPECT_EQ(currentRow(w), 2);
    strike(w, QStringLiteral("a"));
    EXPECT_EQ(currentRow(w), 0);
    strike(w, QStringLiteral("q"));
    EXPECT_EQ(currentRow(w), 0);
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, AClickOnAHeaderSortsAndTheHeaderShowsIt) {
  look([](QDialog& w) {
    const auto& header = *view(w).horizontalHeader();
    EXPECT_FALSE(header.isSortIndicatorShown());
    clickHeader(w, 0);
    EXPECT_TRUE(header.isSortIndicatorShown());
    EXPECT_EQ(header.sortIndicatorSection(), 0);
    EXPECT_EQ(cell(w, 1, 0), QStringLiteral("0007"));
    EXPECT_EQ(currentRow(w), 0);
    clickHeader(w, 0);
    EXPECT_EQ(cell(w, 1, 0), QStringLiteral("0007"));
    picture(w, QStringLiteral("lista_ordenada"));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, TabCyclesThroughItsWidgets) {
  addSearch(0, u"Nome");
  look([](QDialog& w) {
    QWidget* const round[] = {&at(w, QStringLiteral("btnConfirmar")),
                              &at(w, QStringLiteral("btnVoltar")), &searchButton(w), &view(w)};
    for (QWidget* next : round) {
      QTest::keyClick(w.focusWidget(), Qt::Key_Tab);
      EXPECT_EQ(w.focusWidget(), next);
    }
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, GrowsWithItsWindowAndKeepsItsButtonsVisible) {
  look([](QDialog& w) {
    const QSize before = view(w).size();
    w.resize(w.size() + QSize(100, 80));
    settleEvents();
    EXPECT_EQ(view(w).size(), before + QSize(100, 80));
    w.resize(10, 10);
    settleEvents();
    EXPECT_TRUE(w.rect().contains(at(w, QStringLiteral("btnVoltar")).geometry()));
    press(w, Qt::Key_Escape);
  });
}

// --- Searches -----------------------------------------------------------------------------------

TEST_F(BrowseWindow, TheMenuShowsItsKeys) {
  addSearch(0, u"Nome & sobrenome");
  addSearch(0, u"Cidade");
  look([this](QDialog& w) {
    EXPECT_EQ(menuTexts(w), (QStringList{QStringLiteral("Nome && sobrenome\tF2, Ctrl+1"),
                                         QStringLiteral("Cidade\tF3, Ctrl+2"), QStringLiteral("-"),
                                         QStringLiteral("Traz Todos os Registros\tF6, Ctrl+4")}));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, WithoutASearchTheButtonIsDisabled) {
  look([](QDialog& w) {
    EXPECT_FALSE(searchButton(w).isEnabled());
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, TheMenuOpensAndChoosesByTheKeyboard) {
  addSearch(0, u"Nome");
  look([this](QDialog& w) {
    statements();
    QTimer::singleShot(50, &w, [] {
      QWidget* menu = QApplication::activePopupWidget();
      ASSERT_NE(menu, nullptr);
      picture(*menu, QStringLiteral("lista_menu"));
      QTest::keyClick(menu, Qt::Key_Up);
      QTest::keyClick(menu, Qt::Key_Return);
    });
    searchButton(w).setFocus();
    press(w, Qt::Key_Down);
    settleEvents();
    EXPECT_EQ(statements(), QStringList{QStringLiteral(
                                "Select codigo, nome, cidade, desde, limite From clientes Where "
                                "ativo = 1 Order By 1")});
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, ASearchPromptsNarrowsTheListAndReturnsToIt) {
  addSearch(0, u"Nome");
  const auto all = rows_;
  look([&](QDialog& w) {
    statements();
    rows_.Cells = {all.Cells[2]};
    driver_.willShow(QStringLiteral("frmTsPesquisa"), [](QDialog& prompt) {
      EXPECT_EQ(prompt.windowTitle(), QStringLiteral("Pesquisa Nome"));
      strike(prompt, QStringLiteral("Casa"));
      picture(prompt, QStringLiteral("pesquisa"));
      press(prompt, Qt::Key_Return);
    });
    press(w, Qt::Key_F2);
    EXPECT_EQ(statements(), QStringList{QStringLiteral(
                                "Select codigo, nome, cidade, desde, limite From clientes Where "
                                "(clientes.nome ilike 'Casa%') And ativo = 1 Order by nome")});
    EXPECT_EQ(view(w).model()->rowCount(), 1);
    EXPECT_EQ(cell(w, 0, 0), QStringLiteral("0007"));
    EXPECT_EQ(view(w).columnWidth(1), 3600 / 15);
    picture(w, QStringLiteral("lista_filtrada"));
    press(w, Qt::Key_Return);
  });
}

TEST_F(BrowseWindow, ControlWithADigitSearchesFromAnyWidget) {
  addSearch(0, u"Nome");
  look([&](QDialog& w) {
    at(w, QStringLiteral("btnVoltar")).setFocus();
    driver_.willShow(QStringLiteral("frmTsPesquisa"),
                     [](QDialog& prompt) { press(prompt, Qt::Key_Escape); });
    press(w, Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(view(w).model()->rowCount(), 4);
    press(w, Qt::Key_Escape);
  });
}

TEST_F(BrowseWindow, AfterASearchThatFindsNothingNothingCanBeConfirmed) {
  addSearch(0, u"Nome");
  EXPECT_EQ(look(
                [&](QDialog& w) {
                  rows_.Cells.clear();
                  driver_.willShow(QStringLiteral("frmTsPesquisa"), [](QDialog& prompt) {
                    strike(prompt, QStringLiteral("zzz"));
                    click(at(prompt, QStringLiteral("btnOk")));
                  });
                  click(searchButton(w));
                  EXPECT_FALSE(at(w, QStringLiteral("btnConfirmar")).isEnabled());
                  press(w, Qt::Key_Return);
                  EXPECT_TRUE(w.isVisible());
                  press(w, Qt::Key_Escape);
                },
                Long{7}),
            QStringLiteral("7"));
}

TEST_F(BrowseWindow, ARefusedSearchIsReportedOverTheList) {
  addSearch(0, u"Nome");
  look([&](QDialog& w) {
    driver_.willShow(QStringLiteral("frmTsPesquisa"), [this](QDialog& prompt) {
      strike(prompt, QStringLiteral("x"));
      connection_->FailNext(HostError(errors::ProviderError, u"coluna não existe"));
      press(prompt, Qt::Key_Return);
    });
    boxes_.willPress(QStringLiteral("Não"));
    press(w, Qt::Key_F2);
    press(w, Qt::Key_Escape);
  });
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_TRUE(boxes_.boxes()[0].text.startsWith(QStringLiteral("coluna não existe")));
}

TEST_F(BrowseWindow, ClosingTheFormUnderAPromptClosesListAndPrompt) {
  addSearch(0, u"Nome");
  EXPECT_EQ(look(
                [&](QDialog& w) {
                  driver_.willShow(QStringLiteral("frmTsPesquisa"),
                                   [this](QDialog&) { owner_->close(); });
                  press(w, Qt::Key_F2);
                  EXPECT_FALSE(w.isVisible());
                },
                Long{7}),
            QStringLiteral("7"));
}

TEST_F(BrowseWindow, ALostConnectionIsReportedByTheNextReload) {
  addSearch(0, u"Nome");
  look([&](QDialog& w) {
    connection_->Drop();
    press(w, Qt::Key_3, Qt::ControlModifier);
    EXPECT_TRUE(w.isVisible());
    press(w, Qt::Key_Escape);
  });
  EXPECT_EQ(boxes_.boxes().size(), 1u);
}

}  // namespace
}  // namespace tessaria::qt::tests
