#include "apps/demo/main_window.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QStackedWidget>
#include <QStatusBar>

#include "apps/demo/customer_form.h"
#include "apps/demo/database.h"
#include "apps/demo/failure.h"
#include "apps/demo/form_loader.h"
#include "apps/demo/messages.h"
#include "apps/demo/order_form.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::demo {
namespace {

QAction* actionOf(const QWidget& window, const char* name) {
  auto* action = window.findChild<QAction*>(QString::fromLatin1(name));
  if (!action) qFatal("the window has no action %s", name);
  return action;
}

}  // namespace

MainWindow::MainWindow(Database& database) : database_(database) {
  loadForm(QStringLiteral("main_window.ui"), *this);
  setWindowIcon(QIcon(QStringLiteral(":/demo/images/mesa.png")));
  setProperty("asksBeforeClosing", true);
  stack_ = widgetOf<QStackedWidget>(*this, "formularios");
  new QActionGroup(this);
  addForm("acaoClientes", new CustomerForm(database_, stack_));
  addForm("acaoPedidos", new OrderForm(database_, stack_));
  showTitle();
  connectRefusals();
  connectActions();
}

void MainWindow::addForm(const char* action, RecordForm* form) {
  const int index = stack_->addWidget(form);
  pages_ << Page{form, nullptr};
  QAction* shows = actionOf(*this, action);
  findChild<QActionGroup*>()->addAction(shows);
  shows->setChecked(index == 0);
  connect(shows, &QAction::triggered, this, [this, index] { showForm(index); });
  connect(form, &RecordForm::notice, this, [this](const QString& text) { showNotice(text); });
  connect(form, &RecordForm::notSaved, this,
          [this](const QString& text) { showNotice(text, Until::NextNotice); });
  connect(form, &RecordForm::typed, this, [this] { clearNotice(Until::Typing); });
}

RecordForm* MainWindow::current() const { return pages_.at(stack_->currentIndex()).form; }

void MainWindow::showForm(int index) {
  if (index == stack_->currentIndex()) return;
  pages_[stack_->currentIndex()].focus = focusWidget();
  stack_->setCurrentIndex(index);
  showTitle();
  clearNotice(Until::Typing);
  if (QWidget* before = pages_[index].focus)
    before->setFocus(Qt::OtherFocusReason);
  else
    current()->focusFirstField();
}

void MainWindow::showTitle() {
  setWindowTitle(current()->windowTitle() + QStringLiteral(" – Mesa de pedidos"));
}

void MainWindow::connectActions() {
  const auto on = [&](const char* name, auto slot) {
    connect(actionOf(*this, name), &QAction::triggered, this, slot);
  };
  const auto onForm = [&](const char* name, auto slot) {
    on(name, [this, slot] { (current()->*slot)(); });
  };
  // Without a connection a field cannot be checked, and the operator could never reconnect.
  actionOf(*this, "acaoReconectar")->setProperty("settlesField", false);
  on("acaoReconectar", [this] { reconnect(); });
  on("acaoSair", [this] { close(); });
  onForm("acaoNovo", &RecordForm::addRecord);
  onForm("acaoSalvar", &RecordForm::save);
  onForm("acaoExcluir", &RecordForm::deleteRecord);
  onForm("acaoPrimeiro", &RecordForm::moveFirst);
  onForm("acaoAnterior", &RecordForm::movePrevious);
  onForm("acaoProximo", &RecordForm::moveNext);
  onForm("acaoUltimo", &RecordForm::moveLast);
  onForm("acaoLocalizar", &RecordForm::startSearch);
  onForm("acaoAtualizar", &RecordForm::reload);
}

/// The text of a refusal stays in the status bar until a valid field is left.
void MainWindow::connectRefusals() {
  connect(&qt::install(), &qt::Host::boxShown, this,
          [this](const QString& text, const QString&, int style) {
            if ((style & host::box::YesNo) != 0) return;
            showNotice(text, Until::FieldIsRight);
          });
  for (qt::TsText* field : findChildren<qt::TsText*>())
    connect(field, &qt::TsText::browseReturn, this, [this, field] {
      if (field->lastValidaStatus()) clearNotice(Until::FieldIsRight);
    });
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
void MainWindow::showNotice(const QString& text, Until until) {
  statusBar()->showMessage(text.simplified());
  noticeStands_ = until;
}

void MainWindow::clearNotice(Until until) {
  if (noticeStands_ == until) showNotice({});
}

void MainWindow::closeEvent(QCloseEvent* event) {
  for (int i = 0; i < pages_.size(); ++i) {
    if (!pages_.at(i).form->isChanged()) continue;
    showForm(i);
    if (!pages_.at(i).form->mayClose()) return event->ignore();
  }
  event->accept();
}

}  // namespace tessaria::demo
