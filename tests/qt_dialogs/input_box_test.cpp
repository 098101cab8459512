// Input boxes, and the data layer that a program gives to the library.
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "tessaria/memory/connection.h"
#include "tessaria/qt/data_layer.h"
#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

using testing::ElementsAre;

class InputBoxes : public DialogFixture {
 protected:
  String ask(ModalDriver::Script script, const String& prompt = u"Nome da consulta") {
    driver_.willShow(QStringLiteral("InputBox"), std::move(script));
    return App().ShowInputBox(prompt, u"Consulta", u"clientes");
  }
};

TEST_F(InputBoxes, ShowThePromptAndReturnTheText) {
  const String answer = ask([&](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Consulta"));
    EXPECT_EQ(box.parentWidget(), owner_.get());
    auto* line = box.findChild<QLineEdit*>();
    EXPECT_EQ(line->text(), QStringLiteral("clientes"));
    EXPECT_EQ(line->selectedText(), line->text());
    EXPECT_EQ(line->accessibleName(), QStringLiteral("Nome da consulta"));
    type(box, QStringLiteral("cidades"));
    picture(box, QStringLiteral("caixa_de_entrada"));
    press(box, Qt::Key_Return);
  });
  EXPECT_EQ(answer, u"cidades");
}

TEST_F(InputBoxes, HaveButtonsInPortuguese) {
  QStringList texts;
  ask([&](QDialog& box) {
    for (const auto* button : box.findChildren<QPushButton*>())
      texts << QString(button->text()).remove(QLatin1Char('&'));
    press(box, Qt::Key_Escape);
  });
  EXPECT_THAT(texts, ElementsAre(QStringLiteral("OK"), QStringLiteral("Cancelar")));
}

TEST_F(InputBoxes, ReturnNothingWhenTheyAreCancelledOrClosed) {
  EXPECT_EQ(ask([](QDialog& box) { press(box, Qt::Key_Escape); }), u"");
  EXPECT_EQ(ask([](QDialog& box) { closeByFrame(box); }), u"");
  EXPECT_EQ(ask([this](QDialog&) { owner_->close(); }), u"");
}

TEST_F(InputBoxes, OneClosesWithTheWindowThatIsDestroyedUnderIt) {
  EXPECT_EQ(ask([this](QDialog&) { owner_.reset(); }), u"");
}

TEST_F(InputBoxes, ShowThePromptLiterally) {
  ask(
      [](QDialog& box) {
        const auto* label = box.findChild<QLabel*>();
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(label->text(), QStringLiteral("<b>R&&D</b>\nNome"));
        press(box, Qt::Key_Escape);
      },
      u"<b>R&D</b>\r\nNome");
}

TEST_F(InputBoxes, WithoutATitleTheyHaveTheProgramsName) {
  driver_.willShow(QStringLiteral("InputBox"), [](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), QGuiApplication::applicationDisplayName());
    press(box, Qt::Key_Escape);
  });
  App().ShowInputBox(u"Nome", u"", u"");
}

TEST_F(InputBoxes, TheFocusReturnsToTheWindow) {
  ask([](QDialog& box) { press(box, Qt::Key_Return); });
  settleEvents();
  EXPECT_EQ(QApplication::activeWindow(), owner_.get());
}

// --- Data layer ---------------------------------------------------------------------------------

/// Leaves the program without a data layer, as it was.
class DataLayers : public testing::Test {
 protected:
  DataLayers() { install(); }
  ~DataLayers() override { setDataLayer({}); }
};

TEST_F(DataLayers, AProgramWithoutOneKnowsNoDataSourcesAndMakesNoConnections) {
  EXPECT_THAT(App().DataSourceNames(), testing::IsEmpty());
  EXPECT_EQ(App().NewConnection(), nullptr);
}

TEST_F(DataLayers, TheProgramsFunctionsAreAsked) {
  setDataLayer({[] {
                  return std::vector<String>{u"vendas", u"Estoque", u"compras"};
                },
                [] { return memory::Connection::CreateOpen(); }});
  EXPECT_THAT(App().DataSourceNames(), ElementsAre(u"compras", u"Estoque", u"vendas"));
  EXPECT_NE(App().NewConnection(), nullptr);
  EXPECT_NE(App().NewConnection(), App().NewConnection());
}

TEST_F(DataLayers, ItsErrorsComeToTheCaller) {
  setDataLayer({[]() -> std::vector<String> { throw HostError(errors::ProviderError); }, {}});
  EXPECT_THROW(App().DataSourceNames(), HostError);
  EXPECT_EQ(App().NewConnection(), nullptr);
}

}  // namespace
}  // namespace tessaria::qt::tests
