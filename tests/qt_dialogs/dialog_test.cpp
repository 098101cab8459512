// What every dialog does in Qt: lifetime, position, keys, buttons.
#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "hosts/qt/boundary/handles.h"
#include "hosts/qt/widgets/coloured_button.h"
#include "tessaria/qt/form.h"
#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

using host::WidgetKind;
using testing::ElementsAre;

constexpr host::WidgetDescription kDialogWidgets[] = {
    {u"lblTitulo", WidgetKind::Label, u"Título & companhia"},
    {u"btn", WidgetKind::CommandButton, u"&Um", u"O primeiro", 0},
    {u"btn", WidgetKind::CommandButton, u"R&D", {}, 1},
    {u"visor", WidgetKind::Display, u"Visor"},
    {u"campo", WidgetKind::TsText, u"Campo"},
};
constexpr host::DialogDescription kDialogDescription{u"frmTeste", u"Teste", kDialogWidgets};

class DialogWindows : public DialogFixture {
 protected:
  using Log = std::vector<std::string>;

  void show(ModalDriver::Script script) {
    driver_.willShow(QStringLiteral("frmTeste"), std::move(script));
    dialog_->ShowModal();
  }
  host::DialogButton& button(Integer index) {
    return dialog_->Find<host::DialogButton>(u"btn", index);
  }
  static QPushButton& buttonOf(QDialog& window, int index) {
    return at<QPushButton>(window, QStringLiteral("btn"), index);
  }

  host::DialogPtr dialog_ = TheDesktop().MakeDialog(kDialogDescription);
  Log log_;
};

template <class Call>
Long errorOf(Call&& call) {
  try {
    call();
  } catch (const HostError& error) {
    return error.Number();
  }
  return 0;
}

// --- Building -----------------------------------------------------------------------------------

TEST_F(DialogWindows, AreBuiltFromTheirDescription) {
  EXPECT_EQ(dialog_->Caption(), u"Teste");
  EXPECT_EQ(dialog_->Find<host::DialogLabel>(u"LBLTITULO").Caption(), u"Título & companhia");
  EXPECT_EQ(button(1).Caption(), u"R&D");
  EXPECT_EQ(errorOf([&] { dialog_->Find<host::DialogLabel>(u"nada"); }), errors::ControlNotFound);
  EXPECT_EQ(errorOf([&] { dialog_->Find<host::DialogButton>(u"btn"); }), errors::ControlNotFound);
  EXPECT_EQ(errorOf([&] { dialog_->Find<host::DialogLabel>(u"campo"); }), errors::TypeMismatch);
  show([&](QDialog& window) {
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Teste"));
    EXPECT_EQ(buttonOf(window, 0).toolTip(), QStringLiteral("O primeiro"));
    EXPECT_EQ(at(window, QStringLiteral("visor")).accessibleName(), QStringLiteral("Visor"));
    EXPECT_EQ(dialog_->hWnd(), handleOf(window));
    const auto form = makeForm(window);
    EXPECT_EQ(form->Name(), u"frmTeste");
    EXPECT_EQ(form->Controls(u"campo")->TypeName(), u"tsText");
    EXPECT_EQ(form->Controls(u"btn")->TypeName(), u"CommandButton");
    window.close();
  });
}

TEST_F(DialogWindows, RaiseTheirEventsInOrder) {
  dialog_->OnResize = [&] { log_.push_back("resize"); };
  dialog_->OnActivate = [&] { log_.push_back("activate"); };
  dialog_->Width(9000);
  for (int i = 0; i < 2; ++i)
    show([&](QDialog& window) {
      log_.push_back("work");
      window.close();
    });
  show([&](QDialog& window) {
    dialog_->Width(7500);
    dialog_->Width(7500);
    EXPECT_EQ(window.width(), 500);
    dialog_->Hide();
  });
  EXPECT_THAT(log_,
              ElementsAre("resize", "activate", "work", "activate", "work", "activate", "resize"));
}

TEST_F(DialogWindows, OneHiddenByItsActivationReturnsAtOnce) {
  dialog_->OnActivate = [&] { dialog_->Hide(); };
  dialog_->ShowModal();
  EXPECT_TRUE(owner_->isVisible());
}

TEST_F(DialogWindows, OneThatIsOpenCannotBeShownAgain) {
  show([&](QDialog& window) {
    EXPECT_EQ(errorOf([&] { dialog_->ShowModal(); }), 400);
    window.close();
  });
}

// --- Lifetime -----------------------------------------------------------------------------------

TEST_F(DialogWindows, OneDestroyedInsideItsLoopHidesAtOnceAndRaisesNoMoreEvents) {
  button(0).OnClick = [&] {
    dialog_.reset();
    log_.push_back("destroyed");
  };
  button(1).OnClick = [&] { log_.push_back("click"); };
  QPointer<QDialog> kept;
  driver_.willShow(QStringLiteral("frmTeste"), [&](QDialog& window) {
    kept = &window;
    click(buttonOf(window, 0));
    EXPECT_FALSE(window.isVisible());
    buttonOf(window, 1).click();
    EXPECT_TRUE(kept);
  });
  dialog_->ShowModal();
  EXPECT_FALSE(kept);
  EXPECT_THAT(log_, ElementsAre("destroyed"));
}

TEST_F(DialogWindows, ClosingTheFormUnderOneClosesIt) {
  show([&](QDialog& window) {
    owner_->close();
    EXPECT_FALSE(window.isVisible());
  });
}

TEST_F(DialogWindows, DestroyingTheFormUnderOneClosesIt) {
  QPointer<QDialog> kept;
  show([&](QDialog& window) {
    kept = &window;
    owner_.reset();
    ASSERT_TRUE(kept);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(kept);
}

TEST_F(DialogWindows, OneOverAnotherClosesWithIt) {
  const auto second = TheDesktop().MakeDialog(kDialogDescription);
  button(0).OnClick = [&] {
    second->ShowModal();
    log_.push_back("back");
  };
  show([&](QDialog& first) {
    driver_.willShow(QStringLiteral("frmTeste"), [&](QDialog& front) {
      EXPECT_NE(&front, &first);
      dialog_->Hide();
      EXPECT_FALSE(front.isVisible());
    });
    click(buttonOf(first, 0));
  });
  EXPECT_THAT(log_, ElementsAre("back"));
}

TEST_F(DialogWindows, AnErrorOfAHandlerIsShownAndTheWindowStaysOpen) {
  button(0).OnClick = [] { throw HostError(errors::TypeMismatch); };
  show([&](QDialog& window) {
    click(buttonOf(window, 0));
    EXPECT_TRUE(window.isVisible());
    window.close();
  });
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_EQ(boxes_.boxes()[0].text, toQt(ErrorDescription(errors::TypeMismatch)));
  EXPECT_EQ(boxes_.boxes()[0].owner, QStringLiteral("frmTeste"));
}

TEST_F(DialogWindows, TheFocusReturnsToTheFieldWithoutANewEnter) {
  field_->setValue(QStringLiteral("abc"));
  editOf(*field_)->setCursorPosition(1);
  int returns = 0;
  QObject::connect(field_, &TsText::browseReturn, [&] { ++returns; });
  QPointer<QWidget> focus = owner_->focusWidget();
  show([](QDialog& window) { window.close(); });
  settleEvents();
  EXPECT_EQ(owner_->focusWidget(), focus);
  EXPECT_EQ(QApplication::activeWindow(), owner_.get());
  EXPECT_EQ(field_->selStart(), 1);
  EXPECT_EQ(field_->selLength(), 0);
  EXPECT_EQ(returns, 0);
}

TEST_F(DialogWindows, ABoxOfTheFormUnderADialogIsShownOverTheDialog) {
  show([this](QDialog& window) {
    boxes_.whileOpen = [] {
      EXPECT_EQ(QApplication::activeModalWidget()->parentWidget()->objectName(),
                QStringLiteral("frmTeste"));
    };
    State().application->ShowMessageBox(field_->hWnd(), u"Cuidado", 48, u"Alerta!");
    boxes_.whileOpen = nullptr;
    settleEvents();
    EXPECT_EQ(QApplication::activeWindow(), &window);
    window.close();
  });
  EXPECT_EQ(boxes_.takeTexts(), QStringList{QStringLiteral("Cuidado")});
}

TEST_F(DialogWindows, ABoxOverADialogClosesWithItsForm) {
  for (const bool isDestroyed : {false, true}) {
    show([&](QDialog& window) {
      boxes_.whileOpen = [&] { isDestroyed ? owner_.reset() : owner_->hide(); };
      EXPECT_EQ(State().application->ShowMessageBox(field_->hWnd(), u"Sim?", 4, u"Alerta!"), 7);
      boxes_.whileOpen = nullptr;
      EXPECT_FALSE(window.isVisible());
    });
    if (!isDestroyed) showActive(*owner_);
  }
}

TEST_F(DialogWindows, ABoxOfAWindowOwnedByADialogStaysThere) {
  show([](QDialog& window) {
    QWidget palette(&window, Qt::Tool);
    palette.setObjectName(QStringLiteral("frmPaleta"));
    palette.show();
    State().application->ShowMessageBox(handleOf(palette), u"Cuidado", 48, u"Alerta!");
    window.close();
  });
  EXPECT_EQ(boxes_.boxes().back().owner, QStringLiteral("frmPaleta"));
}

// --- Position -----------------------------------------------------------------------------------

TEST_F(DialogWindows, KeepTheNumbersOfTheirPosition) {
  dialog_->Left(1007);
  dialog_->Top(2003);
  EXPECT_EQ(dialog_->Left(), 1007);
  EXPECT_EQ(dialog_->Top(), 2003);
  show([&](QDialog& window) {
    EXPECT_EQ(window.pos(), QPoint(67, 134));
    window.close();
  });
}

TEST_F(DialogWindows, StayOnTheScreenWhateverTheirPosition) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  for (const Long place : {-9000, 90000}) {
    dialog_->Left(place);
    dialog_->Top(place);
    show([&](QDialog& window) {
      EXPECT_TRUE(screen.contains(window.frameGeometry()));
      window.close();
    });
  }
}

TEST_F(DialogWindows, OneWithoutAPositionOpensOverTheMiddleOfItsForm) {
  owner_->setGeometry(200, 300, 300, 200);
  settleEvents();
  show([&](QDialog& window) {
    const QPoint apart = window.geometry().center() - owner_->geometry().center();
    EXPECT_LE(apart.manhattanLength(), 4);
    window.close();
  });
}

TEST_F(DialogWindows, TheScreenIsMeasuredInTwips) {
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  EXPECT_EQ(TheDesktop().ScreenWidth(), screen.width() * 15);
  EXPECT_EQ(TheDesktop().ScreenHeight(), screen.height() * 15);
}

// --- Keys ---------------------------------------------------------------------------------------

TEST_F(DialogWindows, KeysReachTheWindowBeforeTheWidget) {
  dialog_->OnKeyDown = [&](Integer& code, Integer& shift) {
    log_.push_back("window down " + std::to_string(code) + " " + std::to_string(shift));
  };
  dialog_->OnKeyPress = [&](Integer& code) {
    log_.push_back("window press " + std::to_string(code));
  };
  button(0).OnKeyDown = [&](Integer& code, Integer&) {
    log_.push_back("button down " + std::to_string(code));
  };
  button(0).OnKeyPress = [&](Integer& code) {
    log_.push_back("button press " + std::to_string(code));
  };
  show([&](QDialog& window) {
    buttonOf(window, 0).setFocus();
    strike(window, QStringLiteral("a"));
    press(window, Qt::Key_1, Qt::ControlModifier);
    window.close();
  });
  EXPECT_THAT(log_, ElementsAre("window down 65 0", "button down 65", "window press 97",
                                "button press 97", "window down 17 2", "button down 17",
                                "window down 49 2", "button down 49"));
}

TEST_F(DialogWindows, AKeyThatTheWindowHandlesGoesNoFurther) {
  button(0).OnClick = [&] { log_.push_back("click"); };
  button(0).OnKeyPress = [&](Integer&) { log_.push_back("press"); };
  show([&](QDialog& window) {
    buttonOf(window, 0).setFocus();
    press(window, Qt::Key_Return);
    dialog_->OnKeyPress = [](Integer& code) { code = 0; };
    press(window, Qt::Key_Return);
    window.close();
  });
  EXPECT_THAT(log_, ElementsAre("press", "click"));
}

TEST_F(DialogWindows, AFieldsKeysReachTheWindowFirstAndAreReportedOnce) {
  auto& field = dialog_->Find<host::DialogField>(u"campo");
  field.OnKeyDown = [&](Integer&, Integer&) { log_.push_back("field down"); };
  field.OnKeyPress = [&](Integer&) { log_.push_back("field press"); };
  field.OnChange = [&] { log_.push_back("change"); };
  dialog_->OnKeyPress = [&](Integer& code) {
    log_.push_back("window press");
    if (code == u'x') code = 0;
  };
  show([&](QDialog& window) {
    field.SetFocus();
    settleEvents();
    strike(window, QStringLiteral("ax"));
    EXPECT_EQ(at<TsText>(window, QStringLiteral("campo")).text(), QStringLiteral("a"));
    window.close();
  });
  EXPECT_THAT(log_,
              ElementsAre("window press", "field down", "field press", "change", "window press"));
}

TEST_F(DialogWindows, AKeyEndsWhenAHandlerHidesTheWindow) {
  dialog_->OnKeyPress = [&](Integer&) { dialog_->Hide(); };
  button(0).OnKeyPress = [&](Integer&) { log_.push_back("press"); };
  button(0).OnClick = [&] { log_.push_back("click"); };
  show([&](QDialog& window) {
    buttonOf(window, 0).setFocus();
    press(window, Qt::Key_Return);
  });
  EXPECT_THAT(log_, testing::IsEmpty());
}

// --- Buttons ------------------------------------------------------------------------------------

/// Where a widget draws in red.
QRect redOf(QWidget& button) {
  const QImage image = button.grab().toImage();
  QRect box;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QColor c = image.pixelColor(x, y);
      if (c.red() > 150 && c.green() < 100 && c.blue() < 100) box |= QRect(x, y, 1, 1);
    }
  return box;
}

TEST_F(DialogWindows, AMnemonicIsDrawnByThePlatformUnlessTheButtonHasAColour) {
  button(0).OnClick = [&] { log_.push_back("um"); };
  button(1).OnClick = [&] { log_.push_back("rd"); };
  EXPECT_EQ(button(1).TextColour(), host::colour::WindowText);
  show([&](QDialog& window) {
    constexpr int kPressed = 250;  // milliseconds: a mnemonic shows the button pressed first
    press(window, Qt::Key_U, Qt::AltModifier);
    QTest::qWait(kPressed);
    press(window, Qt::Key_D, Qt::AltModifier);
    QTest::qWait(kPressed);
    button(1).TextColour(255);
    press(window, Qt::Key_D, Qt::AltModifier);
    QTest::qWait(kPressed);
    EXPECT_EQ(button(1).Caption(), u"R&D");
    EXPECT_EQ(button(1).TextColour(), 255u);
    window.close();
  });
  EXPECT_THAT(log_, ElementsAre("um", "rd"));
}

TEST_F(DialogWindows, AButtonHasTheSystemsFaceUntilItGetsAColour) {
  const auto faceOf = [](QPushButton& button) { return button.palette().color(QPalette::Button); };
  EXPECT_EQ(button(1).BackColor(), host::colour::ButtonFace);
  show([&](QDialog& window) {
    QPushButton& face = buttonOf(window, 1);
    button(1).BackColor(0x00C0FFFF);
    EXPECT_EQ(button(1).BackColor(), 0x00C0FFFFu);
    EXPECT_EQ(faceOf(face), QColor(0xFF, 0xFF, 0xC0));
    button(1).BackColor(host::colour::ButtonFace);
    EXPECT_EQ(faceOf(face), QGuiApplication::palette().color(QPalette::Button));
    window.close();
  });
}

TEST_F(DialogWindows, AColouredCaptionMovesDownByAPixelWithThePressedButton) {
  button(1).TextColour(255);
  show([&](QDialog& window) {
    QPushButton& face = buttonOf(window, 1);
    const QRect up = redOf(face);
    ASSERT_FALSE(up.isEmpty());
    face.setDown(true);
    EXPECT_EQ(redOf(face).topLeft() - up.topLeft(), QPoint(1, 1));
    face.setDown(false);
    window.close();
  });
}

TEST_F(DialogWindows, AColouredCaptionIsDrawnLiterally) {
  const auto widthOf = [&](const char* caption) {
    ColouredButton button(QLatin1String(caption), owner_.get());
    button.resize(120, 40);
    button.setTextColour(255);
    return redOf(button).width();
  };
  EXPECT_GT(widthOf("H&H"), widthOf("HH"));
  EXPECT_GT(widthOf("H&&H"), widthOf("H&H"));
  EXPECT_LE(widthOf(""), 0);
}

TEST_F(DialogWindows, ADisabledButtonShowsNoColour) {
  ColouredButton button(QStringLiteral("HH"), owner_.get());
  button.resize(120, 40);
  button.setTextColour(255);
  EXPECT_FALSE(redOf(button).isEmpty());
  button.setEnabled(false);
  EXPECT_TRUE(redOf(button).isEmpty());
  button.setEnabled(true);
  EXPECT_FALSE(redOf(button).isEmpty());
}

TEST_F(DialogWindows, DisabledAndHiddenWidgetsCannotBeReached) {
  button(0).OnClick = [&] { log_.push_back("click"); };
  show([&](QDialog& window) {
    button(0).Enabled(false);
    click(buttonOf(window, 0));
    button(0).Enabled(true);
    button(0).Visible(false);
    EXPECT_FALSE(buttonOf(window, 0).isVisible());
    button(0).Visible(true);
    button(0).TabStop(false);
    EXPECT_FALSE(button(0).TabStop());
    click(buttonOf(window, 0));
    window.close();
  });
  EXPECT_THAT(log_, ElementsAre("click"));
}

TEST_F(DialogWindows, ADisplayAcceptsNoKeys) {
  auto& display = dialog_->Find<host::DialogDisplay>(u"visor");
  display.Text(u"12,5");
  show([&](QDialog& window) {
    display.SetFocus();
    EXPECT_NE(window.focusWidget(), &at(window, QStringLiteral("visor")));
    EXPECT_EQ(display.Text(), u"12,5");
    window.close();
  });
}

// --- Desktop ------------------------------------------------------------------------------------

TEST_F(DialogWindows, TheDesktopProvidesTodayAndTheClipboard) {
  EXPECT_EQ(toQt(CStr(Variant(TheDesktop().Today()))),
            QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")));
  TheDesktop().ClipboardText(u"Select *");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Select *"));
}

}  // namespace
}  // namespace tessaria::qt::tests
