#include "apps/demo/play/lock_session.h"

#include "tessaria/odbc/connection.h"
#include "tessaria/qt/text.h"

namespace tessaria::demo {
namespace {

// Behind the two seconds after which the wait is told.
constexpr int kTold = 2300;
constexpr int kGivenUp = 2500;

host::ConnectionPtr lockCustomer(const QString& connectionString) {
  auto other = odbc::CreateConnection();
  other->ConnectionString(qt::fromQt(connectionString));
  other->Open();
  other->BeginTrans();
  other->Execute(u"select codigo from clientes where codigo = '00008' for update");
  return other;
}

}  // namespace

void playLockSession(Player& p, const QString& connectionString) {
  p.stage(QStringLiteral("Outro programa segura o cliente"));
  p.click(QStringLiteral("senha"));
  p.press(QStringLiteral("Shift+Tab"));
  p.expectFocus(QStringLiteral("limite"));
  p.type(QStringLiteral("888,8"));
  p.press(QStringLiteral("Tab"));
  const auto other = lockCustomer(connectionString);
  p.whileWaiting(kTold, [&p] { p.picture(QStringLiteral("aguardando")); });
  p.whileWaiting(kGivenUp, [&p] { p.key(QStringLiteral("Escape")); });
  p.expectBox(QStringLiteral("O cliente não foi salvo: a operação foi cancelada.\n\n"
                             "O que foi digitado continua na tela."),
              QStringLiteral("espera-cancelada"));
  p.press(QStringLiteral("Alt+S"));
  p.expectText(QStringLiteral("limite"), QStringLiteral("888,80"));
  p.picture(QStringLiteral("edicao-mantida"));
  other->RollbackTrans();
  p.press(QStringLiteral("Alt+S"));
  p.expectText(QStringLiteral("limite"), QStringLiteral("888,80"));
}

}  // namespace tessaria::demo
