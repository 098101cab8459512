// Fields that edit a QSqlTableModel: beside it through a widget mapper, and in the cells of a view.
#include <gtest/gtest.h>

#include <QDataWidgetMapper>
#include <QItemEditorFactory>
#include <QPushButton>
#include <QSqlError>
#include <QSqlTableModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include "tests/qtsql/qt_database.h"

namespace tessaria::qt::tests {
namespace {

class TableModel : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (!database_.open(GetParam())) GTEST_SKIP() << database_.missing();
    for (const char* statement :
         {"drop schema public cascade", "create schema public",
          "create table clientes (codigo integer primary key, nome varchar(40), nascimento date)",
          "insert into clientes values (1, 'Ana', '1980-02-29'), (2, 'Bia', null)"})
      database_.ask(statement);
    model_ = std::make_unique<QSqlTableModel>(nullptr, database_.get());
    model_->setTable(QStringLiteral("clientes"));
    model_->setEditStrategy(QSqlTableModel::OnFieldChange);
    model_->setSort(0, Qt::AscendingOrder);
    ASSERT_TRUE(model_->select()) << model_->lastError().text().toStdString();
    new QVBoxLayout(&window_);
  }
  template <class Widget>
  Widget* add(Widget* widget) {
    window_.layout()->addWidget(widget);
    return widget;
  }

  BoxKeeper boxes_;
  QtDatabase database_;
  std::unique_ptr<QSqlTableModel> model_;
  QWidget window_;
};

TEST_P(TableModel, AMapperStoresWhatIsTypedWhenAFieldIsLeft) {
  auto* name = add(new TsText({.name = u"nome", .maxLength = 40}));
  auto* birth = add(new TsText({.name = u"nascimento",
                                .kind = TipoControle::Calendario,
                                .mask = u"dd/mm/yyyy",
                                .type = DataType::Date}));
  auto* other = add(new QPushButton(QStringLiteral("&Fechar")));
  QDataWidgetMapper mapper;
  mapper.setModel(model_.get());
  mapper.addMapping(name, 1);
  mapper.addMapping(birth, 2);
  mapper.toFirst();
  showActive(window_);
  settleEvents();
  EXPECT_EQ(name->text(), QStringLiteral("Ana"));
  EXPECT_EQ(birth->text(), QStringLiteral("29/02/1980"));
  name->setFocus(Qt::TabFocusReason);
  settleEvents();
  editOf(*name)->selectAll();
  type(window_, QStringLiteral("Conceição"));
  press(window_, Qt::Key_Tab);
  settleEvents();
  editOf(*birth)->selectAll();
  type(window_, QStringLiteral("25122017"));
  other->setFocus(Qt::TabFocusReason);
  settleEvents();
  EXPECT_EQ(database_.ask("select nome || ' ' || nascimento from clientes where codigo = 1"),
            "Conceição 2017-12-25");
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_P(TableModel, ADelegateStoresTheSettledTextOfACell) {
  auto* view = add(new QTableView);
  view->setModel(model_.get());
  QItemEditorFactory factory;
  factory.registerEditor(QMetaType::QString, new QStandardItemEditorCreator<TsText>);
  auto* delegate = new QStyledItemDelegate(view);
  delegate->setItemEditorFactory(&factory);
  view->setItemDelegate(delegate);
  window_.resize(500, 400);
  showActive(window_);
  view->setFocus();
  view->setCurrentIndex(model_->index(1, 1));
  settleEvents();
  press(window_, Qt::Key_F2);
  settleEvents();
  type(window_, QStringLiteral("Zoé"));
  press(window_, Qt::Key_Return);
  settleEvents();
  EXPECT_EQ(database_.ask("select nome from clientes where codigo = 2"), "Zoé");
  view->setItemDelegate(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Qt, TableModel, testing::Values("QPSQL", "QODBC"));

}  // namespace
}  // namespace tessaria::qt::tests
