// The SQL wizard's window at a real server, behind a proxy that can fall silent.
#pragma once

#include <QLabel>
#include <memory>
#include <string>
#include <utility>

#include "tests/qt_dialogs/wizard_window.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {

/// Leads to one server, whatever the data source is called.
class ToServer final : public test::PassingConnection {
 public:
  explicit ToServer(String text)
      : PassingConnection(test::NewConnectionOfTheDriver()), text_(std::move(text)) {}
  using PassingConnection::ConnectionString;
  void ConnectionString(const String&) override { real_->ConnectionString(text_); }

 private:
  const String text_;
};

class WizardServer : public WizardWindow {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server().EnsureRunning();
    server().Run(
        "drop schema public cascade; create schema public;"
        "create table cidade (codigo int primary key, nome text);"
        "create table cliente (codigo int primary key, cidade int references cidade)");
    proxy_ = std::make_unique<test::CuttingProxy>(server().Socket());
    setDataLayer({[] { return std::vector<String>{u"Vendas"}; },
                  [this] {
                    auto made =
                        std::make_shared<ToServer>(server().ConnectionString(proxy_->Port()));
                    made->ConnectionTimeout(timeout);
                    return made;
                  }});
  }
  static test::PostgresCluster& server() { return test::PostgresCluster::Shared(); }
  QLabel* line() const { return window->findChild<QLabel*>(QStringLiteral("tessariaWait")); }
  void connect() {
    if (parts().Combo(u"cmbSistema").ListIndex() != 0) hands->Choose(u"cmbSistema", 0);
    hands->Click(u"btnConectar");
  }

  void pickFirstTable() {
    hands->ClickRow(u"lst1TabTodas", 1);
    hands->Click(u"btn1Inc");
  }
  void goTo(wizard::Tab tab) { hands->ClickTab(u"tabWizard", static_cast<Long>(tab)); }

  std::unique_ptr<test::CuttingProxy> proxy_;
  Long timeout = 15;  ///< seconds for the login
};

}  // namespace tessaria::qt::tests
