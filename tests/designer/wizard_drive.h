// The SQL wizard inside Designer, over a server with the demo's tables and all cities of Brazil.
#pragma once

#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include "tests/designer/data_source.h"
#include "tests/designer/hands.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::tests {

/// The wizard's tabs, in order.
enum class Step { Tabelas, Links, Campos, Grid, Ordem, Where, Retorno, SqlPronta };

/// A box of the page, by its name, and what is in it.
struct PageText {
  const char* box;
  QString text;
};

/// One of the open forms, whose fields get a lookup. The data source "loja" leads to the server,
/// and "distante" does by way of a proxy.
class WizardDrive : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    static const bool isFilled = fillServer();
    ASSERT_TRUE(isFilled);
  }
  explicit WizardDrive(const char* file) : form_(*openForm(QLatin1String(file))) {
    select(form_, *form_.mainContainer());
  }
  ~WizardDrive() override {
    if (pageDialog()) pageDialog()->reject();
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
  }

  static test::CuttingProxy& proxy() {
    static test::CuttingProxy proxy(test::PostgresCluster::Shared().Socket());
    return proxy;
  }
  qt::TsText& field(const char* name) { return *fieldOf(form_, QLatin1String(name)); }
  static Step frontStep() {
    return static_cast<Step>(inFront<QTabWidget>("tabWizard").currentIndex());
  }
  static int countOf(const char* list) { return inFront<QTreeWidget>(list).topLevelItemCount(); }
  static QStringList rowsOf(const char* list) {
    const auto& view = inFront<QTreeWidget>(list);
    QStringList rows;
    for (int i = 0; i < view.topLevelItemCount(); ++i) rows << view.topLevelItem(i)->text(0);
    return rows;
  }
  static void expectFilled(const QList<PageText>& page) {
    for (const PageText& row : page) EXPECT_EQ(textOf(row.box), row.text) << row.box;
  }
  /// Whether the server has answered with that many columns.
  static bool isRetrieved(int columns) {
    return waitFor([=] { return inFront<QComboBox>("cmb4Coluna").count() == columns; });
  }
  static std::string statement() {
    return inFront<QPlainTextEdit>("txt8Sql").toPlainText().simplified().toStdString();
  }
  static void expectClosed() {
    EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
  }
  /// Saves the form, and what a program prints in which an operator uses its lookup.
  std::string runSaved(const char* form) {
    save(form_);
    return outputOf(QStringLiteral(TESSARIA_LOADED_LOOKUP),
                    {QLatin1String(form), form_.fileName()});
  }

  BoxWatch boxes_;
  QDesignerFormWindowInterface& form_;

 private:
  static bool fillServer() {
    auto& cluster = test::PostgresCluster::Shared();
    for (const char* file : {TESSARIA_DEMO_DATA "/load.sql", TESSARIA_MUNICIPIOS})
      cluster.RunFile(file);
    const QString sources = qEnvironmentVariable("ODBCINI");
    nameSource(sources);
    addSource(sources, QStringLiteral("distante"), cluster.ConnectionString(proxy().Port()));
    return true;
  }
};

}  // namespace tessaria::tests
