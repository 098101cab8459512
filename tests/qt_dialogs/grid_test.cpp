// The grid over long tables.
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "tests/qt_dialogs/dialog_fixture.h"
#include "tests/qt_dialogs/long_rows.h"

namespace tessaria::qt::tests {
namespace {

using host::WidgetKind;

constexpr Long kMillion = 1'000'000;

constexpr host::WidgetDescription kGridWidgets[] = {
    {u"grade", WidgetKind::DataGrid, u"Registros"},
    {u"btnFim", WidgetKind::CommandButton, u"&Fim"},
};
constexpr host::DialogDescription kGridDescription{u"frmLista", u"Lista", kGridWidgets};

class LongGrid : public DialogFixture {
 protected:
  LongGrid() { grid_.DataSource(rows_); }

  void show(ModalDriver::Script script) {
    driver_.willShow(QStringLiteral("frmLista"), [&](QDialog& window) {
      window.resize(600, 400);
      settleEvents();
      script(window);
      window.close();
    });
    dialog_->ShowModal();
  }
  static QTableView& view(QDialog& window) { return *window.findChild<QTableView*>(); }
  static QLabel& warning(QDialog& window) {
    return *at(window, QStringLiteral("grade")).findChild<QLabel*>();
  }

  host::DialogPtr dialog_ = TheDesktop().MakeDialog(kGridDescription);
  host::DataGrid& grid_ = dialog_->Find<host::DataGrid>(u"grade");
  std::shared_ptr<LongRows> rows_ = std::make_shared<LongRows>(kMillion);
};

TEST_F(LongGrid, OpensWithoutReadingAllRows) {
  show([&](QDialog& window) {
    EXPECT_LT(rows_->RowsRead(), 10'000);
    EXPECT_EQ(view(window).model()->index(0, 1).data().toString(), QStringLiteral("Nome 1"));
  });
}

TEST_F(LongGrid, ReadsMoreRowsAsTheOperatorScrolls) {
  show([&](QDialog& window) {
    const Long before = rows_->RowsRead();
    QScrollBar& bar = *view(window).verticalScrollBar();
    bar.setValue(bar.maximum());
    settleEvents();
    EXPECT_GT(rows_->RowsRead(), before);
    EXPECT_EQ(view(window).model()->rowCount(), rows_->RowsRead());
    EXPECT_EQ(rows_->AbsolutePosition(), 1);
  });
}

TEST_F(LongGrid, DraggingToTheEndReachesItInAFewSteps) {
  show([&](QDialog& window) {
    QScrollBar& bar = *view(window).verticalScrollBar();
    for (int i = 0; i < 30 && !rows_->Complete(); ++i) {
      bar.setValue(bar.maximum());
      settleEvents();
    }
    EXPECT_EQ(view(window).model()->rowCount(), kMillion);
  });
}

TEST_F(LongGrid, PageDownHeldDownGoesThroughTheRows) {
  show([&](QDialog& window) {
    for (int i = 0; i < 300; ++i) press(window, Qt::Key_PageDown);
    const Long row = view(window).currentIndex().row() + 1;
    EXPECT_GT(row, 3000);
    EXPECT_EQ(rows_->AbsolutePosition(), row);
    EXPECT_LT(rows_->RowsRead(), kMillion);
  });
}

TEST_F(LongGrid, EndGoesToTheLastRowOfAllAndNotOfThoseRead) {
  show([&](QDialog& window) {
    press(window, Qt::Key_End);
    EXPECT_EQ(view(window).currentIndex().row(), kMillion - 1);
    EXPECT_EQ(rows_->AbsolutePosition(), kMillion);
    press(window, Qt::Key_Up);
    EXPECT_EQ(rows_->AbsolutePosition(), kMillion - 1);
    press(window, Qt::Key_Home);
    EXPECT_EQ(view(window).currentIndex().row(), 0);
  });
}

TEST_F(LongGrid, FollowsTheRowsWhenTheyAreMovedFromOutside) {
  show([&](QDialog& window) {
    rows_->AbsolutePosition(50'000);
    grid_.ShowCurrentRow();
    EXPECT_EQ(view(window).currentIndex().row(), 49'999);
    EXPECT_TRUE(view(window).viewport()->rect().intersects(
        view(window).visualRect(view(window).currentIndex())));
  });
}

// --- Failures -----------------------------------------------------------------------------------

TEST_F(LongGrid, AFailedReadIsReportedOnceAndTheListShowsThatItIsIncomplete) {
  rows_->failsAt = 1501;
  show([&](QDialog& window) {
    EXPECT_FALSE(warning(window).isVisible());
    QScrollBar& bar = *view(window).verticalScrollBar();
    for (int i = 0; i < 5; ++i) {
      bar.setValue(bar.maximum());
      settleEvents();
    }
    EXPECT_EQ(view(window).model()->rowCount(), 1500);
    EXPECT_TRUE(warning(window).isVisible());
    EXPECT_EQ(warning(window).text(),
              QStringLiteral("Lista incompleta: a leitura parou depois de 1.500 registros."));
    picture(window, QStringLiteral("lista_incompleta"));
  });
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_EQ(boxes_.boxes()[0].text, QStringLiteral("A conexão com o servidor caiu."));
}

TEST_F(LongGrid, EndInAListThatCannotBeReadIsAnError) {
  rows_->failsAt = 1501;
  show([&](QDialog& window) {
    press(window, Qt::Key_End);
    EXPECT_EQ(rows_->AbsolutePosition(), 1);
    EXPECT_EQ(view(window).currentIndex().row(), 0);
  });
  EXPECT_EQ(boxes_.boxes().size(), 1u);
}

TEST_F(LongGrid, NewRowsRemoveTheWarning) {
  rows_->failsAt = 1501;
  show([&](QDialog& window) {
    view(window).verticalScrollBar()->setValue(view(window).verticalScrollBar()->maximum());
    settleEvents();
    EXPECT_TRUE(warning(window).isVisible());
    grid_.DataSource(std::make_shared<LongRows>(kMillion));
    EXPECT_FALSE(warning(window).isVisible());
  });
}

// --- Columns ------------------------------------------------------------------------------------

TEST_F(LongGrid, ColumnsAreThoseOfTheFields) {
  ASSERT_EQ(grid_.ColumnCount(), 2);
  EXPECT_EQ(grid_.Column(1).Caption(), u"nome");
  EXPECT_EQ(grid_.Column(1).DataField(), u"nome");
  EXPECT_GT(grid_.Column(0).Width(), 0);
  EXPECT_THROW(grid_.Column(2), HostError);
  grid_.Column(0).Width(1507.5f);
  EXPECT_EQ(grid_.Column(0).Width(), 1507.5f);
  grid_.DataSource(nullptr);
  EXPECT_EQ(grid_.ColumnCount(), 0);
}

TEST_F(LongGrid, AColumnResizedByTheOperatorReturnsItsNewWidth) {
  show([&](QDialog& window) {
    view(window).setColumnWidth(0, 200);
    EXPECT_EQ(grid_.Column(0).Width(), 3000.0f);
  });
}

TEST_F(LongGrid, AColumnWithoutWidthIsHiddenAndAPatternThatDoesNotFitIsIgnored) {
  grid_.Column(0).Width(0);
  grid_.Column(1).Format(u"dd/mm/yyyy");
  show([&](QDialog& window) {
    EXPECT_TRUE(view(window).isColumnHidden(0));
    EXPECT_EQ(view(window).model()->index(0, 1).data().toString(), QStringLiteral("Nome 1"));
  });
}

TEST_F(LongGrid, AnEmptySetShowsNothing) {
  grid_.DataSource(std::make_shared<LongRows>(0));
  show([&](QDialog& window) {
    press(window, Qt::Key_Down);
    press(window, Qt::Key_End);
    EXPECT_FALSE(view(window).currentIndex().isValid());
  });
  EXPECT_TRUE(boxes_.boxes().empty());
}

}  // namespace
}  // namespace tessaria::qt::tests
