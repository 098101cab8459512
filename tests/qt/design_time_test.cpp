// Forms under design, in a program that is a designer of forms.
#include "tessaria/qt/design_time.h"

#include <QTest>

#include "tessaria/memory/connection.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/text.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

constexpr char kCanvas[] = "canvas";
constexpr char kForm[] = "frmCliente";

/// What is below a canvas is being designed, on the form that is its child.
QWidget* formOnCanvas(QWidget* widget) {
  for (; widget; widget = widget->parentWidget())
    if (widget->objectName() == QLatin1String(kCanvas))
      return widget->findChild<QWidget*>(QLatin1String(kForm));
  return nullptr;
}

/// A designer with one form, whose two fields are bound to a data control.
class DesignTime : public testing::Test {
 protected:
  DesignTime() {
    setDesigner(formOnCanvas);
    Adodc::setConnectionFactory([this](const QString&) {
      ++connections_;
      whileConnecting_();
      return connection_;
    });
    connection_->ConnectionString(u"Memoria");
    connection_->AddTable(u"Cliente", {{u"Codigo", host::type::Integer}}, {{Long{1}}});
    canvas_->setObjectName(QLatin1String(kCanvas));
    form_->setObjectName(QLatin1String(kForm));
    form_->resize(300, 200);
    for (TsText* field : {first_, second_}) {
      field->setDataSource(QStringLiteral("dcCliente"));
      field->setDataField(QStringLiteral("codigo"));
    }
    first_->setObjectName(QStringLiteral("txtPrimeiro"));
    second_->setObjectName(QStringLiteral("txtSegundo"));
    data_->setObjectName(QStringLiteral("dcCliente"));
    data_->setConnectionString(QStringLiteral("DSN=Loja"));
    data_->setRecordSource(QStringLiteral("Cliente"));
  }
  ~DesignTime() override {
    designer_.reset();
    Adodc::setConnectionFactory(nullptr);
    setDesigner(nullptr);
  }

  void open() {
    designer_->show();
    connectionsInShow_ = connections_;
    settleEvents();
  }
  static QString stateOf(TsText& field) { return toQt(field.control().DesignTimeError()); }

  BoxKeeper boxes_;
  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
  int connections_ = 0;
  int connectionsInShow_ = 0;
  std::function<void()> whileConnecting_ = [] {};
  std::unique_ptr<QWidget> designer_ = std::make_unique<QWidget>();
  QWidget* canvas_ = new QWidget(designer_.get());
  QWidget* form_ = new QWidget(canvas_);
  TsText* first_ = new TsText(form_);
  TsText* second_ = new TsText(form_);
  Adodc* data_ = new Adodc(form_);
};

TEST_F(DesignTime, OnlyWhatIsOnAFormUnderDesignIsInDesignMode) {
  const TsText preview;
  EXPECT_TRUE(first_->designMode());
  EXPECT_FALSE(preview.designMode());
}

TEST_F(DesignTime, TheFormOfAFieldIsNotTheDesigner) {
  auto* palette = new QLabel(designer_.get());
  palette->setObjectName(QStringLiteral("lblPaleta"));
  EXPECT_EQ(toQt(first_->control().FormDoControle()->Name()), QStringLiteral("frmCliente"));
  EXPECT_EQ(first_->control().FormDoControle()->Controls().size(), 3u);
}

TEST_F(DesignTime, AFieldThatWasTakenOffItsFormStillBelongsToIt) {
  first_->setParent(canvas_);
  EXPECT_EQ(toQt(first_->control().FormDoControle()->Name()), QLatin1String(kForm));
}

TEST_F(DesignTime, AClickOnAFieldLeavesTheFocusToTheDesigner) {
  designer_->resize(300, 200);
  canvas_->resize(300, 200);
  first_->setGeometry(10, 10, 150, 28);
  first_->setTipoControle(TsText::Browse);
  // As Designer leaves them.
  first_->setFocusPolicy(Qt::NoFocus);
  editOf(*first_)->setFocusPolicy(Qt::StrongFocus);
  open();
  canvas_->setFocus();
  for (const char* part : {"txtEdit", "btnBrowse"}) {
    auto* widget = first_->findChild<QWidget*>(QLatin1String(part));
    ASSERT_TRUE(widget->isVisible());
    const QPoint place = widget->mapTo(designer_.get(), widget->rect().center());
    QTest::mouseClick(designer_->windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_EQ(designer_->focusWidget(), canvas_) << part;
  }
}

TEST_F(DesignTime, ConnectsOnceTheShowIsOver) {
  open();
  EXPECT_EQ(connectionsInShow_, 0);
  EXPECT_EQ(connections_, 1);
  EXPECT_EQ(first_->posDataField(), QStringLiteral("0"));
  EXPECT_EQ(second_->posDataField(), QStringLiteral("0"));
  EXPECT_EQ(data_->designError(), QString());
}

TEST_F(DesignTime, ADeadServerIsTriedOnceAndShowsNoBox) {
  whileConnecting_ = [] { throw HostError(errors::ProviderError, u"servidor parado"); };
  open();
  EXPECT_EQ(connections_, 1);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(data_->designError(), QStringLiteral("servidor parado"));
  EXPECT_EQ(stateOf(*first_), QStringLiteral("servidor parado"));
  EXPECT_EQ(stateOf(*second_), QStringLiteral("servidor parado"));
}

TEST_F(DesignTime, ASlowServerIsAwaitedByOneFieldAtATime) {
  int inside = 0;
  whileConnecting_ = [&] {
    EXPECT_EQ(++inside, 1);
    settleEvents();
    --inside;
    throw HostError(errors::ProviderError, u"tempo esgotado");
  };
  open();
  EXPECT_EQ(connections_, 1);
  EXPECT_EQ(stateOf(*second_), QStringLiteral("tempo esgotado"));
}

TEST_F(DesignTime, AFormThatIsClosedWhileItsServerIsAwaited) {
  whileConnecting_ = [&] {
    delete second_;
    throw HostError(errors::ProviderError, u"servidor parado");
  };
  open();
  EXPECT_EQ(stateOf(*first_), QStringLiteral("servidor parado"));
}

TEST_F(DesignTime, AnotherConnectionStringIsTriedAgain) {
  whileConnecting_ = [] { throw HostError(errors::ProviderError, u"servidor parado"); };
  open();
  whileConnecting_ = [] {};
  data_->setConnectionString(QStringLiteral("DSN=Outra"));
  EXPECT_EQ(data_->designError(), QString());
  data_->open();
  EXPECT_EQ(connections_, 2);
}

TEST_F(DesignTime, SettingsOfALaterVersionAreKeptWithoutABox) {
  const QStringList later{"tessaria 99", "Nova=Coisa:1"};
  first_->setSettings(later);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(first_->settings(), later);
  EXPECT_TRUE(first_->designError().contains(QLatin1String("99")));
  first_->setSettings({"tessaria 1", "Mascara=String:00"});
  EXPECT_EQ(first_->mascara(), QStringLiteral("00"));
  EXPECT_EQ(first_->designError(), QString());
}

TEST_F(DesignTime, TheCaptionOfAFieldIsLeftAlone) {
  auto* label = new QLabel(QStringLiteral("Código"), form_);
  label->setObjectName(QStringLiteral("lblCodigo"));
  first_->setLabelAssociado(QStringLiteral("lblCodigo"));
  open();
  EXPECT_EQ(label->buddy(), nullptr);
}

TEST_F(DesignTime, LoadedSettingsAreDrawnAtOnce) {
  open();
  auto* button = first_->findChild<QWidget*>(QStringLiteral("btnBrowse"));
  ASSERT_TRUE(button->isHidden());
  first_->setSettings({"tessaria 1", "TipoControle=Long:2"});
  EXPECT_FALSE(button->isHidden());
  first_->setSettings({"tessaria 1", "TipoControle=Long:0"});
  EXPECT_TRUE(button->isHidden());
}

TEST_F(DesignTime, ADisabledFieldStaysEnabledForTheDesigner) {
  first_->setSettings({"tessaria 1", "Enabled=Boolean:False"});
  open();
  EXPECT_TRUE(first_->QWidget::isEnabled());
  EXPECT_FALSE(first_->isFieldEnabled());
}

}  // namespace
}  // namespace tessaria::qt::tests
