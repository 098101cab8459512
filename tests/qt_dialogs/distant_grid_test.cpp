// The grid over rows that stay at the server: those that are missing while it paints, those that
// are read ahead, and those that the server does not give.
#include <QElapsedTimer>
#include <QLabel>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimer>

#include "tests/qt_dialogs/dialog_fixture.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {
namespace {

using host::WidgetKind;

constexpr int kRowsThere = 60'000;
// Rows of one page, which are read together, and the first that are always held.
constexpr int kPage = 2048;

constexpr host::WidgetDescription kDistantWidgets[] = {
    {u"grade", WidgetKind::DataGrid, u"Registros"},
};
constexpr host::DialogDescription kDistantDescription{u"frmLista", u"Lista", kDistantWidgets};

class DistantGrid : public DialogFixture {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server().EnsureRunning();
    server().Run(
        "drop schema public cascade; create schema public;"
        "create table clientes (codigo int primary key, nome varchar(40));"
        "insert into clientes select n, 'Nome ' || n from generate_series(1, 60000) n;"
        // One row takes its time.
        "create view lentos as select codigo, nome || case when codigo = 50000 then"
        " pg_sleep(1.3)::text else '' end as nome from clientes");
    connection_->ConnectionString(server().ConnectionString());
    connection_->Open();
  }
  static test::PostgresCluster& server() { return test::PostgresCluster::Shared(); }

  // The rows with their end known, and the grid over them.
  void show(const String& source, const ModalDriver::Script& script) {
    rows_ = connection_->OpenRecordset(source, host::CursorType::Static, host::LockType::ReadOnly);
    EXPECT_EQ(rows_->RecordCount(), kRowsThere);
    grid_.DataSource(rows_);
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
  // The operator drags the scroll bar so that this row, from 1, is the first shown.
  static void dragTo(QDialog& window, int row) {
    view(window).verticalScrollBar()->setValue(row - 1);
    settleEvents();
  }
  static int rowsInView(QDialog& window) {
    return view(window).viewport()->height() / view(window).rowHeight(0);
  }
  static QString name(QDialog& window, int row) {
    return view(window).model()->index(row - 1, 1).data().toString();
  }
  static QString nameOf(int row) { return QStringLiteral("Nome %1").arg(row); }
  static bool comes(const std::function<bool()>& state) { return QTest::qWaitFor(state, 5000); }

  host::ConnectionPtr connection_ = test::NewConnectionOfTheDriver();
  host::DialogPtr dialog_ = TheDesktop().MakeDialog(kDistantDescription);
  host::DataGrid& grid_ = dialog_->Find<host::DataGrid>(u"grade");
  host::RecordsetPtr rows_;
};

TEST_F(DistantGrid, RowsThatAreScrolledToAreThereWhenTheyArePainted) {
  show(u"select * from clientes order by codigo", [&](QDialog& w) {
    EXPECT_EQ(view(w).model()->rowCount(), kRowsThere);
    EXPECT_FALSE(rows_->Holds(40'000));
    dragTo(w, 40'000);
    EXPECT_EQ(name(w, 40'000), nameOf(40'000));
    EXPECT_EQ(name(w, 40'000 + rowsInView(w)), nameOf(40'000 + rowsInView(w)));
    EXPECT_FALSE(rows_->Holds(30'000));
    press(w, Qt::Key_PageDown);
    press(w, Qt::Key_End);
    EXPECT_EQ(name(w, kRowsThere), nameOf(kRowsThere));
    EXPECT_EQ(view(w).currentIndex().row(), kRowsThere - 1);
  });
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DistantGrid, RowsThatAreMissingWhilePaintingAreBlankAndThenFilled) {
  show(u"select * from clientes order by codigo", [&](QDialog& w) {
    const int page = 15 * kPage;  // the last row of a page
    dragTo(w, page - rowsInView(w));
    ASSERT_FALSE(rows_->Holds(page + 10));
    w.resize(600, 1000);
    w.grab();
    EXPECT_EQ(name(w, page + 10), QString());
    EXPECT_TRUE(comes([&] { return name(w, page + 10) == nameOf(page + 10); }));
    EXPECT_EQ(name(w, page), nameOf(page));
  });
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DistantGrid, RowsAroundTheShownOnesAreReadAheadAfterARest) {
  show(u"select * from clientes order by codigo", [&](QDialog& w) {
    const int page = 15 * kPage;
    QElapsedTimer rest;
    rest.start();
    dragTo(w, page - 2 * rowsInView(w));
    const bool isHeldAtOnce = rows_->Holds(page + 1);
    EXPECT_TRUE(!isHeldAtOnce || rest.elapsed() >= 300);
    EXPECT_TRUE(comes([&] { return rows_->Holds(page + 1); }));
    EXPECT_GE(rest.elapsed(), 290);
  });
}

TEST_F(DistantGrid, RowsWaitWhileTheServerIsAskedForSomethingElse) {
  show(u"select * from clientes order by codigo", [&](QDialog& w) {
    QTimer::singleShot(300, &w, [&] {
      view(w).verticalScrollBar()->setValue(39'999);
      view(w).viewport()->repaint();
      EXPECT_EQ(name(w, 40'000), QString());
    });
    connection_->Execute(u"select pg_sleep(0.8)");
    EXPECT_TRUE(comes([&] { return name(w, 40'000) == nameOf(40'000); }));
  });
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

// --- Failures

TEST_F(DistantGrid, RowsThatTheServerDoesNotGiveAreToldOnceAndAskedForAgainWithTheNextMovement) {
  show(u"select * from lentos", [&](QDialog& w) {
    connection_->CommandTimeout(1);
    dragTo(w, 50'000);
    EXPECT_EQ(boxes_.takeTexts().size(), 1);
    EXPECT_TRUE(warning(w).isVisible());
    EXPECT_EQ(warning(w).text(),
              QStringLiteral("Lista incompleta: alguns registros não puderam ser lidos."));
    picture(w, QStringLiteral("lista_com_lacunas"));
    EXPECT_EQ(view(w).currentIndex().row(), 0);
    EXPECT_EQ(name(w, 50'000), QString());
    EXPECT_EQ(name(w, 1), nameOf(1));
    EXPECT_EQ(name(w, kPage), nameOf(kPage));
    dragTo(w, 50'001);
    EXPECT_EQ(boxes_.takeTexts(), QStringList()) << "told already";
    connection_->CommandTimeout(30);
    EXPECT_EQ(name(w, 50'000), QString()) << "not before the next movement";
    dragTo(w, 50'000);
    EXPECT_EQ(name(w, 50'000), nameOf(50'000));
    EXPECT_FALSE(warning(w).isVisible());
  });
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DistantGrid, ListWhoseReadingWasEndedByTheServerSaysThatRowsAreMissing) {
  show(u"select * from clientes order by codigo", [&](QDialog& w) {
    server().Run(
        "select pg_terminate_backend(pid) from pg_stat_activity where state like "
        "'idle in transaction%'");
    dragTo(w, 40'000);
    dragTo(w, 45'000);
    EXPECT_EQ(boxes_.takeTexts().size(), 1);
    EXPECT_EQ(warning(w).text(),
              QStringLiteral("Lista incompleta: alguns registros não puderam ser lidos."));
    dragTo(w, 1);
    EXPECT_EQ(name(w, 1), nameOf(1));
    EXPECT_TRUE(warning(w).isVisible()) << "rows that are there tell nothing about the others";
  });
}

}  // namespace
}  // namespace tessaria::qt::tests
