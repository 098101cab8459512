// The list of a description and of a key, the keys that open it, and the focus afterwards.
#include <QAbstractButton>
#include <QMenu>
#include <QTest>

#include "hosts/qt/widgets/tool_bar.h"
#include "tessaria/memory/connection.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"
#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

/// A key and its description. The key is a column of the current order.
class FieldList : public DialogFixture {
 protected:
  FieldList() {
    // The only form on which a description has a button.
    owner_->setObjectName(QStringLiteral("frmPesquisa"));
    owner_->setProperty("dbForm", QVariant::fromValue<host::ConnectionPtr>(connection_));
    connection_->ConnectionString(u"Memoria");
    connection_->OnStatement = [this](const String& text) { return answer(text); };
    orders_ = connection_->AddTable(
        u"Pedido", {{u"Numero", host::type::Integer}, {u"Cliente", host::type::Integer}},
        {{Long{1}, Long{9}}});
    data_ = new Adodc;
    data_->setObjectName(QStringLiteral("dcPedido"));
    data_->setConnection(connection_);
    data_->setRecordSource(QStringLiteral("Pedido"));
    name_ = new TsText;
    name_->setObjectName(QStringLiteral("txtNome"));
    name_->setUsaChecaRelacao(false);
    owner_->layout()->addWidget(data_);
    owner_->layout()->addWidget(name_);
    define(*field_, TsText::Browse, "codigo", "nome", "txtNome");
    define(*name_, TsText::Descricao, "nome", "codigo", "txtCampo");
    field_->setTipoDado(2);
    field_->setDataSource(QStringLiteral("dcPedido"));
    field_->setDataField(QStringLiteral("Cliente"));
    field_->control().Pesquisa()->Add(1, u"Por nome", u"nome", 8, 1, u"", 2700, 0, false, false, 0,
                                      0, u"");
    data_->refresh();
    for (TsText* field : {field_, name_}) field->refresh();
    statements_.clear();
  }
  ~FieldList() override { State().dbConexao = nullptr; }

  static void define(TsText& field, TsText::TipoControle kind, const char* column,
                     const char* siblings, const char* sibling) {
    field.setTipoControle(kind);
    field.setBrowseTable(QStringLiteral("clientes"));
    field.setBrwCampo(QLatin1String(column));
    field.setBrwCampoIrmao(QLatin1String(siblings));
    field.setTxtIrmao(QLatin1String(sibling));
  }
  /// Columns in the order of the statement.
  std::optional<memory::Rows> answer(const String& text) {
    if (InStr(text, u"Pedido") != 0) return std::nullopt;
    statements_ << toQt(text);
    const memory::Column code{u"codigo", host::type::Integer};
    const memory::Column name{u"nome"};
    const bool namesFirst = InStr(text, u"nome") < InStr(text, u"codigo");
    if (InStr(text, u"'Marta%'") != 0) return memory::Rows{{name, code}, {{u"Marta", Long{2}}}};
    if (InStr(text, u"'Marta'") != 0) return memory::Rows{{code}, {{Long{2}}}};
    if (namesFirst) return memory::Rows{{name, code}, {{u"Maria", Long{1}}, {u"Marta", Long{2}}}};
    return memory::Rows{{code, name}, {{Long{1}, u"Maria"}, {Long{2}, u"Marta"}}};
  }
  void enter(TsText& field) {
    field.setFocus();
    settleEvents();
  }
  void open(ModalDriver::Script script) {
    driver_.willShow(QStringLiteral("frmBrowse"), std::move(script));
  }
  static QAbstractButton& buttonOf(TsText& field) {
    return *field.findChild<QAbstractButton*>(QStringLiteral("btnBrowse"));
  }
  void expectFocusIn(TsText& field) {
    EXPECT_EQ(owner_->focusWidget(), editOf(field));
    EXPECT_TRUE(owner_->isActiveWindow());
  }
  bool anyStatementHas(const char* part) const {
    return statements_.join(QLatin1Char('\n')).contains(QLatin1String(part));
  }

  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
  memory::TablePtr orders_;
  Adodc* data_ = nullptr;
  TsText* name_ = nullptr;
  QStringList statements_;
};

void chooseSecond(QDialog& window) {
  press(window, Qt::Key_Down);
  press(window, Qt::Key_Return);
}

void leaveByEscape(QDialog& window) { press(window, Qt::Key_Escape); }

TEST_F(FieldList, ADescriptionsButtonSearchesForTheTypedTextNotForItsCompletion) {
  enter(*name_);
  type(*owner_, QStringLiteral("Ma"));
  EXPECT_EQ(name_->text(), QStringLiteral("Maria"));
  EXPECT_EQ(name_->selStart(), 2);
  statements_.clear();
  open(leaveByEscape);
  click(buttonOf(*name_));
  EXPECT_TRUE(anyStatementHas("'Ma%'"));
  EXPECT_FALSE(anyStatementHas("'Maria%'"));
}

TEST_F(FieldList, ADescriptionsPageDownAlsoSearchesForTheTypedText) {
  enter(*name_);
  type(*owner_, QStringLiteral("Ma"));
  statements_.clear();
  open(leaveByEscape);
  press(*owner_, Qt::Key_PageDown);
  EXPECT_TRUE(anyStatementHas("'Ma%'"));
}

TEST_F(FieldList, AChosenDescriptionWritesItsKeyIntoTheFieldAndTheRow) {
  enter(*name_);
  type(*owner_, QStringLiteral("Ma"));
  QStringList searches;
  open([&](QDialog& w) {
    for (const QAction* entry :
         at(w, QStringLiteral("barBrowse")).findChild<MenuButton*>()->menu()->actions())
      searches << entry->text().remove(QLatin1Char('&')).section(QLatin1Char('\t'), 0, 0);
    chooseSecond(w);
  });
  press(*owner_, Qt::Key_PageDown);
  settleEvents();
  EXPECT_EQ(name_->value().toString(), QStringLiteral("Marta"));
  EXPECT_EQ(field_->value().toInt(), 2) << statements_.join(QLatin1Char('\n')).toStdString();
  EXPECT_TRUE(searches.contains(QStringLiteral("Por nome"))) << "the sibling's searches";
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  expectFocusIn(*name_);
  EXPECT_TRUE(data_->saveRow());
  EXPECT_EQ(CLng(orders_->Rows()[0].Cells[1]), 2);
}

TEST_F(FieldList, TheFocusIsInTheFieldAfterItsList) {
  for (const bool byMouse : {false, true}) {
    for (const bool confirmed : {false, true}) {
      SCOPED_TRACE(testing::Message() << "mouse " << byMouse << ", confirmed " << confirmed);
      enter(*field_);
      open(confirmed ? chooseSecond : leaveByEscape);
      byMouse ? click(buttonOf(*field_)) : press(*owner_, Qt::Key_PageDown);
      settleEvents();
      expectFocusIn(*field_);
    }
  }
  EXPECT_EQ(field_->value().toInt(), 2);
}

TEST_F(FieldList, AHeldPageDownOpensOneList) {
  enter(*field_);
  open(leaveByEscape);
  const auto send = [&](QEvent::Type kind, bool repeated) {
    QKeyEvent event(kind, Qt::Key_PageDown, Qt::NoModifier, QString(), repeated);
    QCoreApplication::sendEvent(owner_->focusWidget(), &event);
  };
  send(QEvent::KeyPress, false);
  for (int i = 0; i < 5; ++i) {
    send(QEvent::KeyRelease, true);
    send(QEvent::KeyPress, true);
  }
  send(QEvent::KeyRelease, false);
  settleEvents();
  EXPECT_EQ(driver_.shown().size(), 1);
}

TEST_F(FieldList, F9AssignsTheCalculatorsAnswerWithoutSettlingTheField) {
  auto* amount = new TsText;
  amount->setObjectName(QStringLiteral("txtValor"));
  amount->setUsaChecaRelacao(false);
  amount->setTipoControle(TsText::Calculadora);
  amount->setTipoDado(5);
  amount->setMascara(QStringLiteral("$$$$$$$.$$"));
  amount->setMaxLength(12);
  owner_->layout()->addWidget(amount);
  amount->show();
  enter(*amount);
  amount->setValue(2.0);
  int settled = 0;
  QObject::connect(amount, &TsText::browseReturn, [&] { ++settled; });
  driver_.willShow(QStringLiteral("frmCalculadora"),
                   [](QDialog& w) { strike(w, QStringLiteral("+5=")); });
  press(*owner_, Qt::Key_F9);
  settleEvents();
  EXPECT_EQ(amount->value().toDouble(), 7.0);
  EXPECT_EQ(settled, 0);
  expectFocusIn(*amount);
}

TEST_F(FieldList, AnXOpensTheCalculatorAndStillReachesTheBox) {
  auto* amount = new TsText;
  amount->setObjectName(QStringLiteral("txtValor"));
  amount->setUsaChecaRelacao(false);
  amount->setTipoControle(TsText::Calculadora);
  amount->setTipoDado(5);
  amount->setMascara(QStringLiteral("$$$$$$$.$$"));
  amount->setMaxLength(12);
  owner_->layout()->addWidget(amount);
  amount->show();
  enter(*amount);
  amount->setValue(2.0);
  driver_.willShow(QStringLiteral("frmCalculadora"),
                   [](QDialog& w) { strike(w, QStringLiteral("+5=")); });
  type(*owner_, QStringLiteral("x"));
  settleEvents();
  EXPECT_TRUE(amount->text().contains(QLatin1Char('x'))) << amount->text().toStdString();
  EXPECT_EQ(amount->value().toDouble(), 7.0);
}

}  // namespace
}  // namespace tessaria::qt::tests
