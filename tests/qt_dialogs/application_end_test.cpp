// What ends with the application: the SQL wizard, which stays loaded after a run that was left.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

#include "tessaria/memory/connection.h"
#include "tessaria/qt/data_layer.h"
#include "tessaria/qt/host.h"
#include "tessaria/thread_state.h"
#include "wizard/frm_monta_sql.h"

namespace tessaria::qt::tests {
namespace {

TEST(ApplicationEnd, UnloadsTheWizardAndItsConnection) {
  auto connection = memory::Connection::Create();
  const std::weak_ptr<host::Connection> alive = connection;
  std::weak_ptr<frmMontaSql> wizard;
  for (int applications = 0; applications < 2; ++applications) {
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    QApplication application(count, arguments);
    install();
    wizard = frmMontaSql::Instance();
    wizard.lock()->Parts().cnWizard = std::exchange(connection, nullptr);
    EXPECT_FALSE(wizard.expired());
  }
  EXPECT_TRUE(wizard.expired());
  EXPECT_TRUE(alive.expired());
  EXPECT_EQ(State().frmMontaSql, nullptr);
}

}  // namespace
}  // namespace tessaria::qt::tests
