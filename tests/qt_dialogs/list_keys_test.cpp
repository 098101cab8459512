// The list by the keyboard alone: hidden columns, orders, the search button.
#include "tests/qt_dialogs/lookup_fixture.h"

namespace tessaria::qt::tests {
namespace {

class ListKeys : public LookupFixture {
 protected:
  static QString orderOf(QDialog& window) {
    const QHeaderView& header = *view(window).horizontalHeader();
    if (!header.isSortIndicatorShown()) return {};
    return view(window)
        .model()
        ->headerData(header.sortIndicatorSection(), Qt::Horizontal)
        .toString();
  }
  static bool shows(QDialog& window, int row, int column) {
    const QTableView& table = view(window);
    return table.viewport()->rect().contains(
        table.visualRect(table.model()->index(row, column)).center());
  }
};

TEST_F(ListKeys, ArrowsAlsoMoveIfTheFirstColumnsAreHidden) {
  columns_.Item(1)->Visible(false);
  columns_.Item(2)->Width(0);
  EXPECT_EQ(look([](QDialog& w) {
              press(w, Qt::Key_Down);
              press(w, Qt::Key_Down);
              press(w, Qt::Key_Up);
              EXPECT_EQ(currentRow(w), 1);
              press(w, Qt::Key_Return);
            }),
            QStringLiteral("15"));
}

TEST_F(ListKeys, TheRowOfTheValueIsAlsoVisibleIfTheFirstColumnIsHidden) {
  for (Long i = 100; i < 400; ++i)
    rows_.Cells.push_back({i, u"Nome", u"Bauru", Variant::Null(), 1.0});
  columns_.Item(1)->Visible(false);
  look(
      [](QDialog& w) {
        EXPECT_TRUE(shows(w, currentRow(w), 1));
        press(w, Qt::Key_Home);
        EXPECT_TRUE(shows(w, 0, 1));
        press(w, Qt::Key_End);
        EXPECT_EQ(currentRow(w), 303);
        EXPECT_TRUE(shows(w, 303, 1));
        press(w, Qt::Key_Escape);
      },
      Long{390});
}

TEST_F(ListKeys, AfterAReloadTheArrowsMoveInRowsWithAHiddenColumn) {
  addSearch(0, u"Nome");
  columns_.Item(1)->Visible(false);
  EXPECT_EQ(look([](QDialog& w) {
              press(w, Qt::Key_F4);  // all rows
              EXPECT_TRUE(view(w).isColumnHidden(0));
              press(w, Qt::Key_Down);
              press(w, Qt::Key_Return);
            }),
            QStringLiteral("15"));
}

TEST_F(ListKeys, ControlWithTheArrowsOrdersByTheNextColumn) {
  columns_.Item(2)->Visible(false);
  look([](QDialog& w) {
    EXPECT_EQ(orderOf(w), QString());
    press(w, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(orderOf(w), QStringLiteral("Código"));
    EXPECT_EQ(cell(w, 1, 0), QStringLiteral("0007"));
    press(w, Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(orderOf(w), QStringLiteral("Cidade"));
    press(w, Qt::Key_Left, Qt::ControlModifier);
    press(w, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(orderOf(w), QStringLiteral("Código"));
    press(w, Qt::Key_Escape);
  });
  look([](QDialog& w) {
    press(w, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(orderOf(w), QStringLiteral("Limite"));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(ListKeys, EnterOnTheSearchButtonSearchesAndReturnsTheFocusToTheList) {
  addSearch(0, u"Nome");
  look([this](QDialog& w) {
    searchButton(w).setFocus(Qt::TabFocusReason);
    driver_.willShow(QStringLiteral("frmTsPesquisa"),
                     [](QDialog& prompt) { press(prompt, Qt::Key_Escape); });
    press(w, Qt::Key_Return);
    EXPECT_EQ(w.focusWidget(), &view(w));
    EXPECT_TRUE(w.isVisible());
    press(w, Qt::Key_Escape);
  });
}

TEST_F(ListKeys, AfterARefusedSearchNoKeyConfirmsAndEscapeReturnsTheOldValue) {
  addSearch(0, u"Nome");
  EXPECT_EQ(look(
                [this](QDialog& w) {
                  driver_.willShow(QStringLiteral("frmTsPesquisa"), [](QDialog& prompt) {
                    strike(prompt, QStringLiteral("x"));
                    press(prompt, Qt::Key_Return);
                  });
                  connection_->FailNext(HostError(errors::ProviderError, u"recusado"));
                  press(w, Qt::Key_F2);
                  EXPECT_EQ(view(w).model()->rowCount(), 0);
                  EXPECT_FALSE(at(w, QStringLiteral("btnConfirmar")).isEnabled());
                  EXPECT_EQ(w.focusWidget(), &view(w));
                  press(w, Qt::Key_Return);
                  press(w, Qt::Key_C, Qt::AltModifier);
                  QTest::qWait(250);  // a mnemonic shows the button pressed first
                  EXPECT_TRUE(w.isVisible());
                  press(w, Qt::Key_Escape);
                },
                Long{15}),
            QStringLiteral("15"));
}

TEST_F(ListKeys, AfterARefusedSearchTheRowsCanBeReloadedByKeyboardAlone) {
  addSearch(0, u"Nome");
  EXPECT_EQ(look([this](QDialog& w) {
              driver_.willShow(QStringLiteral("frmTsPesquisa"), [](QDialog& prompt) {
                strike(prompt, QStringLiteral("x"));
                press(prompt, Qt::Key_Return);
              });
              connection_->FailNext(HostError(errors::ProviderError, u"recusado"));
              press(w, Qt::Key_F2);
              press(w, Qt::Key_F4);  // all rows
              press(w, Qt::Key_Down);
              press(w, Qt::Key_Return);
            }),
            QStringLiteral("15"));
}

TEST_F(ListKeys, TheMouseOnTheSearchButtonLeavesTheFocusInTheList) {
  addSearch(0, u"Nome");
  look([this](QDialog& w) {
    driver_.willShow(QStringLiteral("frmTsPesquisa"),
                     [](QDialog& prompt) { press(prompt, Qt::Key_Escape); });
    click(searchButton(w));
    EXPECT_EQ(w.focusWidget(), &view(w));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(ListKeys, AltWithPSearches) {
  addSearch(0, u"Nome");
  bool prompted = false;
  look([&](QDialog& w) {
    driver_.willShow(QStringLiteral("frmTsPesquisa"), [&](QDialog& prompt) {
      prompted = true;
      press(prompt, Qt::Key_Escape);
    });
    press(w, Qt::Key_P, Qt::AltModifier);
    QTest::qWait(250);  // a mnemonic shows the button pressed first
    EXPECT_TRUE(prompted);
    EXPECT_EQ(searchButton(w).accessibleName(), QStringLiteral("Pesquisar"));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(ListKeys, TheMnemonicsOfTheAnswersDoNotJump) {
  const auto answered = [this](Qt::Key key) {
    return look([&](QDialog& w) {
      press(w, Qt::Key_Down);
      press(w, key, Qt::AltModifier);
      QTest::qWait(250);  // a mnemonic shows the button pressed first
    });
  };
  EXPECT_EQ(answered(Qt::Key_C), QStringLiteral("15"));
  EXPECT_EQ(answered(Qt::Key_V), QString());
}

TEST_F(ListKeys, TheSearchButtonShowsInTheNarrowestWindow) {
  addSearch(0, u"Nome");
  look([](QDialog& w) {
    w.resize(10, 10);
    settleEvents();
    EXPECT_TRUE(searchButton(w).isVisible());
    EXPECT_GE(searchButton(w).width(), searchButton(w).sizeHint().width());
    press(w, Qt::Key_Escape);
  });
}

TEST_F(ListKeys, ControlWithAClickKeepsTheCurrentRowSelected) {
  look([](QDialog& w) {
    QTableView& table = view(w);
    const QPoint place = table.visualRect(table.model()->index(0, 0)).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier, place);
    EXPECT_TRUE(table.selectionModel()->isRowSelected(currentRow(w)));
    press(w, Qt::Key_Escape);
  });
}

}  // namespace
}  // namespace tessaria::qt::tests
