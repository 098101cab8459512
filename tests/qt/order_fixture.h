// An order with a grid of items, over a real PostgreSQL.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>
#include <memory>

#include "tessaria/conversion.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/item_grid.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/record_form.h"
#include "tessaria/qt/text.h"
#include "tests/qt/operator.h"
#include "tests/qt/printers.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {

class OrderFixture : public testing::Test {
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
    settleEvents();
    go(client_);
  }
  void TearDown() override { window_.reset(); }

  virtual ItemSettings items() const {
    LookupSettings products{
        .title = u"Produtos",
        .table = u"produtos",
        .columns = {{.field = u"codigo"}, {.field = u"descricao"}, {.field = u"preco"}},
        .returnFields = {u"preco"}};
    FieldPair pair =
        MakePair(products,
                 {.name = u"produto", .mask = u"000", .mayBeBlank = false, .dataField = u"produto"},
                 {.name = u"descricao", .maxLength = 40});
    return {.table = u"itens",
            .links = {{.column = u"pedido", .parent = u"numero"}},
            .number = u"item",
            .columns = {
                {.field = pair.code, .caption = u"Produto", .width = 1000},
                {.field = pair.description, .caption = u"Descrição", .width = 3000},
                {.field = number(u"quantidade"), .caption = u"Quantidade", .isTotalled = true},
                {.field = number(u"preco"), .caption = u"Preço"},
                {.field = {.name = u"total"},
                 .caption = u"Total",
                 .isTotalled = true,
                 .compute = [](const ItemRow& row) {
                   return std::round(row.number("quantidade") * row.number("preco") * 100) / 100;
                 }}}};
  }
  static FieldSettings number(const char16_t* name) {
    return {.name = name,
            .mask = u"$$$$$$$.$$",
            .maxLength = 10,
            .type = DataType::Number,
            .promptInclude = true,
            .dataField = name};
  }

  void go(QWidget* widget) {
    widget->setFocus(Qt::TabFocusReason);
    settleEvents();
  }
  void save() {
    click(*save_);
    settleEvents();
  }
  TsText* cell(const char* column) const { return grid_->field(QString::fromUtf8(column)); }
  /// The operator enters a row from the field that has the focus, which is a product's.
  void enterRow(const char* product, const char* quantity, const char* price) {
    write(product);
    press(*window_, Qt::Key_Tab);
    press(*window_, Qt::Key_Tab);
    write(quantity);
    press(*window_, Qt::Key_Tab);
    write(price);
    press(*window_, Qt::Key_Tab);
    settleEvents();
  }
  void write(const char* text) {
    settleEvents();
    if (*text) type(*window_, QString::fromUtf8(text));
    settleEvents();
  }
  void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    press(*window_, key, modifiers);
    settleEvents();
  }
  /// Acts in the next dialog that opens.
  void inTheNext(const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(1, window_.get(), [this, act] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (!dialog) return inTheNext(act);
      settleEvents();
      act(*dialog);
    });
  }
  /// The name of the column whose field has the focus; the object name of any other widget.
  std::string focus() const {
    QWidget* widget = window_->focusWidget();
    while (widget && widget->objectName() == QLatin1String("txtEdit"))
      widget = widget->parentWidget();
    return widget ? widget->objectName().toStdString() : "";
  }
  QString boxOf(const char* column) const { return editOf(*cell(column))->text(); }
  QTableView& view() const { return *grid_->findChild<QTableView*>(); }
  /// What the view paints in a row: "001|Caneta|2,00|1,50|3,00".
  std::string painted(int row) const {
    QStringList texts;
    for (int c = 0; c < grid_->model()->columnCount(); ++c)
      texts << grid_->model()->index(row, c).data().toString();
    return texts.join(QLatin1Char('|')).toStdString();
  }
  std::string total(const char* column) const {
    const auto* label =
        grid_->findChild<QLabel*>(QStringLiteral("total_") + QString::fromUtf8(column));
    return label ? label->text().toStdString() : "?";
  }
  void asAnotherUser(const char16_t* statement) { other_->Execute(statement); }
  /// The items in the database: "1:001 2.00 1.50, 2:...".
  std::string stored(int order = 1, const char16_t* number = u"item",
                     const char16_t* table = u"itens") {
    const auto rows = other_->Execute(
        u"select coalesce(string_agg(" + String(number) +
        u" || ':' || produto || ' ' || quantidade || ' ' || coalesce(preco, 0), ', ' order by " +
        number + u"), '') from " + table + u" where pedido = " + CStr(Long(order)));
    return toQt(CStr(rows->Fields().Item(0)->Value())).toStdString();
  }

  static constexpr const char16_t* kSchema[] = {
      u"drop schema public cascade",
      u"create schema public",
      u"create table produtos (codigo varchar(3) primary key, descricao varchar(40), preco "
      u"numeric(11,2))",
      u"insert into produtos values ('001', 'Caneta', 1.5), ('002', 'Lápis', 0.8), ('003', "
      u"'Régua', 3)",
      u"create table pedidos (numero integer primary key, cliente varchar(40) not null, versao "
      u"integer not null default 1)",
      u"insert into pedidos values (1, 'Ana'), (2, 'Bia')",
      u"create table itens (pedido integer references pedidos on delete cascade, item integer, "
      u"produto varchar(3) references produtos, quantidade numeric(8,2) check (quantidade > 0), "
      u"preco numeric(11,2), primary key (pedido, item))",
      u"insert into itens values (1, 1, '001', 2, 1.5), (1, 2, '002', 10, 0.8)",
      u"create table itens_gerados (id serial primary key, pedido integer references pedidos on "
      u"delete cascade, "
      u"produto varchar(3), quantidade numeric(8,2), preco numeric(11,2))",
      u"insert into itens_gerados (pedido, produto, quantidade) values (1, '003', 1)"};

  BoxKeeper boxes_;
  host::ConnectionPtr connection_, other_;
  std::unique_ptr<test::CuttingProxy> proxy_;
  std::unique_ptr<QWidget> window_;
  TsText *number_ = nullptr, *client_ = nullptr;
  Adodc* data_ = nullptr;
  ItemGrid* grid_ = nullptr;
  RecordForm* record_ = nullptr;
  QPushButton* save_ = nullptr;

 private:
  void makeWindow() {
    window_ = std::make_unique<QWidget>();
    window_->setWindowTitle(QStringLiteral("Pedidos"));
    window_->setProperty("dbForm", QVariant::fromValue(connection_));
    window_->resize(760, 420);
    auto* layout = new QVBoxLayout(window_.get());
    const auto add = [&](const char16_t* name) {
      auto* field =
          new TsText(FieldSettings{.name = name, .dataSource = u"dcPedido", .dataField = name});
      layout->addWidget(field);
      return field;
    };
    number_ = add(u"numero");
    client_ = add(u"cliente");
    grid_ = new ItemGrid(items());
    grid_->setObjectName(QStringLiteral("itens"));
    layout->addWidget(grid_);
    data_ = new Adodc;
    data_->setObjectName(QStringLiteral("dcPedido"));
    data_->setConnection(connection_);
    data_->setRecordSource(QStringLiteral("select * from pedidos order by numero"));
    layout->addWidget(data_);
    save_ = new QPushButton(QStringLiteral("&Salvar"));
    save_->setObjectName(QStringLiteral("btnSalvar"));
    layout->addWidget(save_);
    record_ = new RecordForm(window_.get(), data_);
    record_->setRecordName(QStringLiteral("o pedido"));
    record_->setVersionColumn(QStringLiteral("versao"));
    record_->addItems(grid_);
    QObject::connect(save_, &QPushButton::clicked, record_, &RecordForm::save);
  }
};

}  // namespace tessaria::qt::tests
