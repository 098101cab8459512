#include "apps/demo/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QStackedWidget>
#include <QStatusBar>

#include "apps/demo/customer_form.h"
#include "apps/demo/database.h"
#include "apps/demo/failure.h"
#include "apps/demo/form_loader.h"
#include "apps/demo/messages.h"
#include "hosts/qt/host.h"
#include "tessaria/host/application.h"

namespace tessaria::demo {
namespace {

/// A refusal is soon corrected, and its text then wrong.
constexpr int kRefusalTime = 8000;  // milliseconds

}  // namespace

MainWindow::MainWindow(Database& database) : database_(database) {
  const auto host = &qt::install();
  loadForm(QStringLiteral("main_window.ui"), *this);
  setWindowIcon(QIcon(QStringLiteral(":/demo/images/mesa.png")));
  auto* forms = widgetOf<QStackedWidget>(*this, "formularios");
  customers_ = new CustomerForm(database_, forms);
  forms->addWidget(customers_);

  connect(customers_, &CustomerForm::notice, this,
          [this](const QString& text) { showNotice(text); });
  connect(host, &qt::Host::boxShown, this, [this](const QString& text, const QString&, int style) {
    if ((style & host::box::YesNo) == 0) showNotice(text, kRefusalTime);
  });
  connectActions();
}

void MainWindow::connectActions() {
  const auto on = [&](const char* name, auto* receiver, auto slot) {
    auto* action = findChild<QAction*>(QString::fromLatin1(name));
    if (!action) qFatal("the window has no action %s", name);
    connect(action, &QAction::triggered, receiver, slot);
  };
  on("acaoReconectar", this, &MainWindow::reconnect);
  on("acaoSair", this, &MainWindow::close);
  on("acaoNovo", customers_, &CustomerForm::addCustomer);
  on("acaoSalvar", customers_, &CustomerForm::save);
  on("acaoExcluir", customers_, &CustomerForm::deleteCustomer);
  on("acaoPrimeiro", customers_, &CustomerForm::moveFirst);
  on("acaoAnterior", customers_, &CustomerForm::movePrevious);
  on("acaoProximo", customers_, &CustomerForm::moveNext);
  on("acaoUltimo", customers_, &CustomerForm::moveLast);
  on("acaoLocalizar", customers_, &CustomerForm::startSearch);
  on("acaoAtualizar", customers_, &CustomerForm::reload);
}

void MainWindow::reconnect() {
  try {
    database_.reconnect();
    showNotice(QStringLiteral("Ligado ao banco de dados."));
  } catch (const Failure& failure) {
    warn(failure.text());
  }
}

/// The status bar holds one line.
void MainWindow::showNotice(const QString& text, int milliseconds) {
  statusBar()->showMessage(text.simplified(), milliseconds);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  const bool leaves =
      !customers_->hasUnsavedInput() ||
      ask(QStringLiteral("O cliente não foi salvo. Sair e perder o que foi digitado?"));
  event->setAccepted(leaves);
}

}  // namespace tessaria::demo
