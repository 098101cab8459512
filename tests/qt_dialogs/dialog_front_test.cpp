// Dialogs that come to the front or are closed by their frame.
#include <QMenu>
#include <QTest>

#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

constexpr host::WidgetDescription kFrontWidgets[] = {
    {u"btn", host::WidgetKind::CommandButton, u"&Um"},
};
constexpr host::DialogDescription kFrontDescription{u"frmTeste", u"Teste", kFrontWidgets};
constexpr host::DialogDescription kOther{u"frmOutra", u"Outra", kFrontWidgets};

class DialogFront : public DialogFixture {
 protected:
  void show(ModalDriver::Script script) {
    driver_.willShow(QStringLiteral("frmTeste"), std::move(script));
    dialog_->ShowModal();
  }

  host::DialogPtr dialog_ = TheDesktop().MakeDialog(kFrontDescription);
};

TEST_F(DialogFront, AreActivatedEachTimeTheyComeToTheFront) {
  int activations = 0;
  dialog_->OnActivate = [&] { ++activations; };
  show([&](QDialog& window) {
    EXPECT_EQ(activations, 1);
    App().ShowMessageBox(dialog_->hWnd(), u"Recado", 0, u"");
    EXPECT_TRUE(QTest::qWaitFor([&] { return activations == 2; }));
    const host::DialogPtr second = TheDesktop().MakeDialog(kOther);
    driver_.willShow(QStringLiteral("frmOutra"), [](QDialog& other) { other.close(); });
    second->ShowModal();
    EXPECT_TRUE(QTest::qWaitFor([&] { return activations == 3; }));
    window.close();
  });
  EXPECT_EQ(activations, 3);
  show([](QDialog& window) { window.close(); });
  EXPECT_EQ(activations, 4);
}

TEST_F(DialogFront, AMenuOverThemDoesNotActivateThemAgain) {
  int activations = 0;
  dialog_->OnActivate = [&] { ++activations; };
  show([&](QDialog& window) {
    QMenu menu(&window);
    menu.addAction(QStringLiteral("Um"));
    menu.popup(window.pos());
    settleEvents();
    menu.close();
    settleEvents();
    EXPECT_EQ(activations, 1);
    window.close();
  });
}

TEST_F(DialogFront, ClosingByTheFrameAsksAHandlerFirst) {
  int requests = 0;
  dialog_->OnCloseRequest = [&] {
    if (++requests == 2) dialog_->Hide();
  };
  show([&](QDialog& window) {
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.close());
  });
  EXPECT_EQ(requests, 2);
  dialog_->OnCloseRequest = [] { throw HostError(errors::TypeMismatch); };
  show([&](QDialog& window) {
    EXPECT_FALSE(window.close());
    EXPECT_EQ(boxes_.boxes().size(), 1u);
    dialog_->Hide();
  });
}

}  // namespace
}  // namespace tessaria::qt::tests
