// The change notifications of a field: once for each real change, when its work is complete.
#include <QDialog>
#include <QMetaProperty>
#include <QProperty>
#include <QSignalSpy>
#include <QTimer>
#include <stdexcept>

#include "tessaria/memory/connection.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

using Texts = QStringList;

class Changes : public FieldFixture {
 protected:
  static QVariantList valuesOf(QSignalSpy& spy) {
    QVariantList values;
    for (const auto& arguments : std::exchange(static_cast<QList<QList<QVariant>>&>(spy), {}))
      values << arguments.value(0);
    return values;
  }
  /// Two fields over the rows of a data control.
  Adodc* addRows() {
    auto connection = memory::Connection::CreateOpen();
    connection->ConnectionString(u"DSN=Memoria");
    connection->AddTable(
        u"Cliente", {{.Name = u"Nome", .DefinedSize = 30}, {.Name = u"Cidade", .DefinedSize = 30}},
        {{u"Ana", u"Bauru"}, {u"Bia", u"Bauru"}});
    auto* data = new Adodc;
    data->setObjectName(QStringLiteral("dcCliente"));
    data->setConnection(connection);
    data->setRecordSource(QStringLiteral("Cliente"));
    first_->setDataField(QStringLiteral("Nome"));
    second_->setDataField(QStringLiteral("Cidade"));
    for (TsText* field : {first_, second_}) field->setDataSource(QStringLiteral("dcCliente"));
    window_->layout()->addWidget(data);
    return data;
  }
};

TEST_F(Changes, TheWatchedPropertiesNameTheirSignals) {
  const std::pair<const char*, const char*> watched[] = {
      {"Value", "valueChanged"},
      {"Texto", "textoChanged"},
      {"Enabled", "enabledChanged"},
      {"enabled", "enabledChanged"},
      {"LastValidaStatus", "lastValidaStatusChanged"}};
  const QMetaObject& meta = TsText::staticMetaObject;
  for (const auto& [property, signal] : watched) {
    const QMetaProperty found = meta.property(meta.indexOfProperty(property));
    ASSERT_TRUE(found.hasNotifySignal()) << property;
    EXPECT_EQ(found.notifySignal().name(), QByteArray(signal));
    EXPECT_EQ(found.notifySignal().parameterCount(), 1);
  }
}

TEST_F(Changes, TypingTellsOfTheTextAndLeavingOfTheValue) {
  show();
  QSignalSpy value(first_, &TsText::valueChanged);
  QSignalSpy texto(first_, &TsText::textoChanged);
  first_->setMascara(QStringLiteral("00/00"));
  valuesOf(texto);
  type(*window_, QStringLiteral("12"));
  EXPECT_EQ(valuesOf(texto), (QVariantList{"1_/__", "12/__"}));
  EXPECT_EQ(value.count(), 0);
  type(*window_, QStringLiteral("34"));
  leave();
  EXPECT_EQ(valuesOf(value), (QVariantList{"1234"}));
  enterAgain();
  leave();
  EXPECT_EQ(value.count(), 0) << "nothing has changed";
}

TEST_F(Changes, AnAssignmentTellsOnceAndOnlyOfAnotherValue) {
  show();
  QSignalSpy value(first_, &TsText::valueChanged);
  first_->setValue(QStringLiteral("abc"));
  EXPECT_EQ(valuesOf(value), (QVariantList{"abc"}));
  first_->setValue(QStringLiteral("abc"));
  EXPECT_EQ(value.count(), 0);
  first_->control().Value(u"outro");
  EXPECT_EQ(valuesOf(value), (QVariantList{"outro"})) << "by the interface of the core too";
  first_->setValue(QVariant::fromValue(nullptr));
  EXPECT_EQ(value.count(), 1);
  first_->setValue(QVariant::fromValue(nullptr));
  EXPECT_EQ(value.count(), 1);
}

TEST_F(Changes, ARowTellsWhenAllFieldsShowIt) {
  Adodc* data = addRows();
  show();
  QSignalSpy city(second_, &TsText::valueChanged);
  QStringList seen;
  QObject::connect(first_, &TsText::valueChanged, this->window_.get(), [&](const QVariant& name) {
    seen << name.toString() + QLatin1Char(' ') + second_->value().toString() + QLatin1Char(' ') +
                first_->text();
  });
  EXPECT_TRUE(data->moveNext());
  EXPECT_EQ(seen, Texts({QStringLiteral("Bia Bauru Bia")}));
  EXPECT_EQ(city.count(), 0) << "both rows have the same city";
  EXPECT_TRUE(data->addRow());
  EXPECT_EQ(city.count(), 1);
  EXPECT_TRUE(data->cancelRow());
  EXPECT_EQ(seen.size(), 3);
}

TEST_F(Changes, ASiblingTellsToo) {
  first_->setTipoControle(TsText::Browse);
  first_->setTxtIrmao(QStringLiteral("txtSegundo"));
  second_->setTipoControle(TsText::Descricao);
  second_->setTxtIrmao(QStringLiteral("txtPrimeiro"));
  const host::ConnectionPtr connection = memory::Connection::CreateOpen();
  window_->setProperty("dbForm", QVariant::fromValue(connection));
  show();
  QSignalSpy own(first_, &TsText::enabledChanged);
  QSignalSpy other(second_, &TsText::enabledChanged);
  first_->setEnabled(false);
  EXPECT_EQ(valuesOf(own), (QVariantList{false}));
  EXPECT_EQ(valuesOf(other), (QVariantList{false}));
  first_->QWidget::setEnabled(true);
  EXPECT_EQ(valuesOf(own), (QVariantList{true}));
}

TEST_F(Changes, ACheckTellsOfItsOutcome) {
  first_->setMascara(QStringLiteral("dd/mm/yyyy"));
  show();
  QSignalSpy valid(first_, &TsText::lastValidaStatusChanged);
  type(*window_, QStringLiteral("31022017"));
  leave();
  EXPECT_EQ(valuesOf(valid), (QVariantList{false}));
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  type(*window_, QStringLiteral("28022017"));
  leave();
  EXPECT_EQ(valuesOf(valid), (QVariantList{true}));
}

TEST_F(Changes, ASlotSeesTheFieldSettledAndMayAssignIt) {
  show();
  QStringList told;
  QObject::connect(first_, &TsText::valueChanged, window_.get(), [&](const QVariant& value) {
    told << value.toString() + QLatin1Char('=') + first_->value().toString();
    if (value == QVariant(QStringLiteral("um"))) first_->setValue(QStringLiteral("dois"));
  });
  type(*window_, QStringLiteral("um"));
  leave();
  EXPECT_EQ(told, Texts({QStringLiteral("um=um"), QStringLiteral("dois=dois")}));
  EXPECT_EQ(first_->text(), QStringLiteral("dois"));
}

TEST_F(Changes, AWindowThatAHandlerOpensTellsWhileItIsOpen) {
  show();
  QVariantList told;
  QObject::connect(first_, &TsText::browseReturn, window_.get(), [&](bool& changed) {
    if (!changed) return;
    QDialog dialog(window_.get());
    auto* inner = new TsText(&dialog);
    inner->setUsaChecaRelacao(false);
    QSignalSpy spy(inner, &TsText::valueChanged);
    QTimer::singleShot(0, &dialog, [&] {
      inner->setValue(5);
      told = valuesOf(spy);
      dialog.accept();
    });
    dialog.exec();
  });
  type(*window_, QStringLiteral("x"));
  leave();
  EXPECT_EQ(told.size(), 1);
}

TEST_F(Changes, ASlotMayDestroyTheField) {
  show();
  QObject::connect(first_, &TsText::valueChanged, window_.get(), [&] { delete first_; });
  QPointer<TsText> field(first_);
  first_->setValue(QStringLiteral("x"));
  EXPECT_TRUE(field.isNull());
}

TEST_F(Changes, ASlotThatThrowsIsReportedAndTheOthersAreTold) {
  show();
  QSignalSpy texto(first_, &TsText::textoChanged);
  QObject::connect(first_, &TsText::valueChanged, window_.get(),
                   [] { throw std::runtime_error("nada feito"); });
  first_->setValue(QStringLiteral("x"));
  EXPECT_EQ(boxes_.takeTexts(), Texts({QStringLiteral("nada feito")}));
  EXPECT_EQ(texto.count(), 1);
  EXPECT_EQ(first_->value(), QVariant(QStringLiteral("x")));
}

TEST_F(Changes, ABindingFollowsByTheMetaObject) {
  show();
  QProperty<QString> title;
  const QMetaObject& meta = TsText::staticMetaObject;
  const QMetaProperty property = meta.property(meta.indexOfProperty("Value"));
  const QMetaMethod signal = property.notifySignal();
  const auto slot =
      QLabel::staticMetaObject.method(QLabel::staticMetaObject.indexOfSlot("clear()"));
  label_->setText(QStringLiteral("antes"));
  ASSERT_TRUE(QObject::connect(first_, signal, label_, slot));
  QObject::connect(first_, &TsText::valueChanged, window_.get(),
                   [&](const QVariant& value) { title = value.toString(); });
  QProperty<int> length;
  length.setBinding([&] { return int(title.value().size()); });
  type(*window_, QStringLiteral("quatro"));
  leave();
  EXPECT_EQ(label_->text(), QString());
  EXPECT_EQ(length.value(), 6);
}

}  // namespace
}  // namespace tessaria::qt::tests
