// A form of customers with a RecordForm beside it, over a real PostgreSQL through a proxy that can
// cut the line.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "tessaria/conversion.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/record_form.h"
#include "tessaria/qt/text.h"
#include "tests/qt/operator.h"
#include "tests/qt/printers.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {

class RecordFixture : public testing::Test {
 protected:
  using Side = test::CuttingProxy::Side;

  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    test::PostgresCluster& cluster = test::PostgresCluster::Shared();
    cluster.EnsureRunning();
    other_ = test::NewConnectionOfTheDriver();
    other_->ConnectionString(cluster.ConnectionString());
    other_->Open();
    for (const char16_t* statement : kSchema) other_->Execute(statement);
    proxy_ = std::make_unique<test::CuttingProxy>(cluster.Socket());
    connection_ = test::NewConnectionOfTheDriver();
    connection_->ConnectionString(cluster.ConnectionString(proxy_->Port()));
    connection_->Open();
    makeWindow();
    showActive(*window_);
    go(name_);
  }
  void TearDown() override { window_.reset(); }

  /// The window of the form.
  virtual QWidget* newWindow() { return new QWidget; }

  /// The operator types into a field in place of what it holds.
  void enter(TsText* field, const QString& text) {
    go(field);
    editOf(*field)->selectAll();
    type(*window_, text);
  }
  void go(QWidget* widget) {
    widget->setFocus(Qt::TabFocusReason);
    settleEvents();
  }
  void save() { click(*save_); }
  QString textOf(TsText* field) { return editOf(*field)->text(); }
  TsText* focusedField() const {
    QWidget* focus = window_->focusWidget();
    return focus ? qobject_cast<TsText*>(focus->parentWidget()) : nullptr;
  }

  /// What another user does, and sees; Null is "".
  void asAnotherUser(const char16_t* statement) { other_->Execute(statement); }
  std::string stored(const char16_t* expression, const char16_t* table = u"clientes") {
    const auto rows =
        other_->Execute(u"select coalesce((" + String(expression) + u")::text, '') from " + table);
    return rows->Eof() ? "?" : toQt(CStr(rows->Fields().Item(0)->Value())).toStdString();
  }
  std::string names() { return stored(u"string_agg(nome, ' ' order by codigo)"); }
  std::string items() {
    return stored(u"string_agg(cliente || texto, ' ' order by cliente, texto)", u"itens");
  }
  /// Each save adds an item to the customer.
  void addAnItemAtEachSave() {
    record_->setTransactionHook([this](host::Connection& connection) {
      ++hooks_;
      connection.Execute(u"insert into itens values (" +
                         CStr(data_->recordSet()->Fields().Item(u"codigo")->Value()) + u", 'a')");
    });
  }

  /// Acts in the next dialog that opens over the present windows.
  void inTheNext(const std::function<void(QDialog&)>& act) {
    waitFor(QApplication::activeModalWidget(), act);
  }

  static constexpr const char16_t* kSchema[] = {
      u"drop schema public cascade", u"create schema public",
      u"create table clientes (codigo integer primary key, nome varchar(40) not null, "
      u"telefone varchar(11), valor numeric(10,2) not null default 0, nascimento date, "
      u"versao integer not null default 1)",
      u"insert into clientes values (1, 'Ana', '11987654321', 10.5, '1980-02-29'), "
      u"(2, 'Bia', null, 1234.5, null), (3, 'Caio', null, 0, null)",
      u"create table itens (cliente integer references clientes on delete cascade, "
      u"texto varchar(20))"};

  BoxKeeper boxes_;
  host::ConnectionPtr connection_, other_;
  std::unique_ptr<test::CuttingProxy> proxy_;
  std::unique_ptr<QWidget> window_;
  QTabWidget* pages_ = nullptr;
  TsText *code_ = nullptr, *name_ = nullptr, *phone_ = nullptr, *value_ = nullptr,
         *birth_ = nullptr, *search_ = nullptr;
  Adodc* data_ = nullptr;
  RecordForm* record_ = nullptr;
  QPushButton *save_ = nullptr, *undo_ = nullptr;
  int hooks_ = 0;  ///< how often the hook ran

 private:
  void waitFor(const QPointer<QWidget>& present, const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(1, window_.get(), [this, present, act] {
      auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!window || window == present) return waitFor(present, act);
      act(*window);
    });
  }
  void makeWindow() {
    window_.reset(newWindow());
    window_->setObjectName(QStringLiteral("frmCliente"));
    window_->setWindowTitle(QStringLiteral("Clientes"));
    window_->setProperty("dbForm", QVariant::fromValue(connection_));
    auto* layout = new QVBoxLayout(window_.get());
    pages_ = new QTabWidget;
    layout->addWidget(pages_);
    QWidget* first = addPage(QStringLiteral("Nome"));
    code_ = addField(first, QStringLiteral("Código:"), QStringLiteral("codigo"));
    name_ = addField(first, QStringLiteral("&Nome:"), QStringLiteral("nome"));
    name_->setPodeSerBranco(false);
    name_->setMaxLength(40);
    QWidget* second = addPage(QStringLiteral("Outros"));
    phone_ = addField(second, QStringLiteral("Telefone:"), QStringLiteral("telefone"));
    phone_->setMascara(QStringLiteral("(##) #####-####"));
    value_ = addField(second, QStringLiteral("Valor:"), QStringLiteral("valor"));
    value_->setMascara(QStringLiteral("$$$$$$$.$$"));
    value_->setMaxLength(12);
    birth_ = addField(second, QStringLiteral("Nascimento:"), QStringLiteral("nascimento"));
    birth_->setMascara(QStringLiteral("dd/mm/yyyy"));
    birth_->setPromptInclude(true);
    search_ = addField(first, QStringLiteral("Procurar:"), QString());
    data_ = new Adodc;
    data_->setObjectName(QStringLiteral("dcCliente"));
    data_->setConnection(connection_);
    data_->setRecordSource(QStringLiteral("select * from clientes order by codigo"));
    layout->addWidget(data_);
    save_ = new QPushButton(QStringLiteral("&Salvar"));
    layout->addWidget(save_);
    undo_ = new QPushButton(QStringLiteral("&Desfazer"));
    layout->addWidget(undo_);
    record_ = new RecordForm(window_.get(), QStringLiteral("DCCLIENTE"));
    record_->setRecordName(QStringLiteral("o cliente"));
    record_->ignore(search_);
    QObject::connect(save_, &QPushButton::clicked, record_, &RecordForm::save);
    QObject::connect(undo_, &QPushButton::clicked, record_, &RecordForm::undo);
  }
  QWidget* addPage(const QString& title) {
    auto* page = new QWidget;
    new QVBoxLayout(page);
    pages_->addTab(page, title);
    return page;
  }
  static TsText* addField(QWidget* page, const QString& caption, const QString& column) {
    auto* label = new QLabel(caption);
    auto* field = new TsText;
    label->setObjectName(QStringLiteral("lbl_") + column);
    field->setObjectName(column.isEmpty() ? QStringLiteral("procurar") : column);
    label->setBuddy(field);
    field->setUsaChecaRelacao(false);
    field->setDesignMode(true);  // a caption is assigned at design time only
    field->setLabelAssociado(label->objectName());
    field->setDesignMode(false);
    if (!column.isEmpty()) {
      field->setDataSource(QStringLiteral("dcCliente"));
      field->setDataField(column);
    }
    page->layout()->addWidget(label);
    page->layout()->addWidget(field);
    return field;
  }
};

}  // namespace tessaria::qt::tests
