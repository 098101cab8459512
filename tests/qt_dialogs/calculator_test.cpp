// The calculator's window, used by keyboard and by mouse.
#include "pickers/calculator.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

constexpr int kEquals = 6;

class CalculatorWindow : public DialogFixture {
 protected:
  QString run(ModalDriver::Script script, const String& text = u"") {
    box_.Text(text);
    driver_.willShow(QStringLiteral("frmCalculadora"), std::move(script));
    frmCalculadora form;
    return toQt(CStr(form.ExecutaCalculadora(600.0f, 600.0f, box_, text, u"", u"")));
  }
  static QString display(QDialog& window) {
    return at<QLineEdit>(window, QStringLiteral("txtVisor")).text();
  }
  static QPushButton& digit(QDialog& window, int number) {
    return at<QPushButton>(window, QStringLiteral("btnNumero"), number);
  }
  static QPushButton& key(QDialog& window, int number) {
    return at<QPushButton>(window, QStringLiteral("btnOperador"), number);
  }
};

TEST_F(CalculatorWindow, CanBeUsedByKeyboard) {
  EXPECT_EQ(run([](QDialog& w) { strike(w, QStringLiteral("2+3=")); }), QStringLiteral("5"));
  EXPECT_EQ(run([](QDialog& w) { strike(w, QStringLiteral("50x20%=")); }), QStringLiteral("10"));
  EXPECT_EQ(run([](QDialog& w) { strike(w, QStringLiteral("1,5*2=")); }), QStringLiteral("3"));
}

TEST_F(CalculatorWindow, CanBeUsedByNumericKeypad) {
  const auto keypad = Qt::KeypadModifier;
  EXPECT_EQ(run([&](QDialog& w) {
              strike(w, QStringLiteral("12,5/5-1*4"), keypad);
              QTest::keyClick(w.focusWidget(), Qt::Key_Enter, keypad);
            }),
            QStringLiteral("6"));
}

TEST_F(CalculatorWindow, EnterAfterADigitIsEquals) {
  EXPECT_EQ(run([](QDialog& w) {
              strike(w, QStringLiteral("7-9"));
              EXPECT_EQ(w.focusWidget(), &key(w, kEquals));
              press(w, Qt::Key_Return);
            }),
            QStringLiteral("-2"));
}

TEST_F(CalculatorWindow, TheFirstFocusIsOnEquals) {
  EXPECT_EQ(run(
                [](QDialog& w) {
                  EXPECT_EQ(w.focusWidget(), &key(w, kEquals));
                  strike(w, QStringLiteral("+3="));
                },
                u"12"),
            QStringLiteral("15"));
}

TEST_F(CalculatorWindow, TabGoesRowByRow) {
  run([](QDialog& w) {
    const QList<QWidget*> order{&key(w, kEquals),
                                &key(w, 0),
                                &key(w, 1),
                                &key(w, 7),
                                &key(w, 5),
                                &digit(w, 7),
                                &digit(w, 8),
                                &digit(w, 9),
                                &key(w, 4),
                                &digit(w, 4),
                                &digit(w, 5),
                                &digit(w, 6),
                                &key(w, 3),
                                &digit(w, 1),
                                &digit(w, 2),
                                &digit(w, 3),
                                &key(w, 2),
                                &digit(w, 0),
                                &at(w, QStringLiteral("btnDecimal"))};
    for (QWidget* button : order) {
      EXPECT_EQ(w.focusWidget(), button) << button->accessibleName().toStdString();
      press(w, Qt::Key_Tab);
    }
    EXPECT_EQ(w.focusWidget(), &key(w, kEquals));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(CalculatorWindow, ItsSignsHaveNames) {
  const char* const kNames[] = {"Limpar",      "Limpar entrada", "Mais",  "Menos",
                                "Multiplicar", "Dividir",        "Igual", "Porcento"};
  run([&](QDialog& w) {
    const auto nameOf = [](QWidget& widget) {
      return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
    };
    for (int i = 0; i < 8; ++i) EXPECT_EQ(nameOf(key(w, i)), QString::fromUtf8(kNames[i]));
    for (int i = 0; i < 10; ++i) EXPECT_EQ(nameOf(digit(w, i)), QString::number(i));
    EXPECT_EQ(nameOf(at(w, QStringLiteral("btnDecimal"))), QStringLiteral("Vírgula"));
    EXPECT_EQ(nameOf(at(w, QStringLiteral("txtVisor"))), QStringLiteral("Visor"));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(CalculatorWindow, ScreenReadersFindTheTextOfTheDisplay) {
  run([](QDialog& w) {
    auto* display = QAccessible::queryAccessibleInterface(&at(w, QStringLiteral("txtVisor")));
    strike(w, QStringLiteral("4*25"));
    EXPECT_EQ(display->text(QAccessible::Value), QStringLiteral("25"));
    EXPECT_TRUE(display->state().readOnly);
    press(w, Qt::Key_Escape);
  });
}

TEST_F(CalculatorWindow, CanBeUsedByMouse) {
  EXPECT_EQ(run([](QDialog& w) {
              click(digit(w, 8));
              click(at(w, QStringLiteral("btnDecimal")));
              click(digit(w, 5));
              EXPECT_EQ(display(w), QStringLiteral("8,5"));
              click(key(w, 2));
              click(digit(w, 1));
              click(key(w, kEquals));
            }),
            QStringLiteral("9,5"));
}

TEST_F(CalculatorWindow, EscapeAndTheCloseButtonKeepWhatTheDisplayShows) {
  EXPECT_EQ(run([](QDialog& w) {
              strike(w, QStringLiteral("42"));
              press(w, Qt::Key_Escape);
            }),
            QStringLiteral("42"));
  EXPECT_EQ(run([](QDialog& w) { w.close(); }, u"1234,5"), QStringLiteral("1234,5"));
}

TEST_F(CalculatorWindow, BackspaceClearsAndTheDigitButtonsHaveTheirOwnKeys) {
  run([](QDialog& w) {
    strike(w, QStringLiteral("42"));
    press(w, Qt::Key_Backspace);
    EXPECT_EQ(display(w), QStringLiteral("0"));
    EXPECT_EQ(w.focusWidget(), &digit(w, 0));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(CalculatorWindow, ADivisionByZeroIsReportedAndTheWindowStaysOpen) {
  EXPECT_EQ(run([](QDialog& w) { strike(w, QStringLiteral("5/0+1=")); }), QStringLiteral("6"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList{QStringLiteral("Erro, Divisão por zero impossível")});
}

TEST_F(CalculatorWindow, ADisplayThatIsTooLargeIsAnErrorOfTheWindow) {
  run([this](QDialog& w) {
    boxes_.takeTexts();
    for (int i = 0; i < 25; ++i) strike(w, QStringLiteral("9999999999999999x"));
    EXPECT_TRUE(w.isVisible());
    press(w, Qt::Key_Escape);
  });
  EXPECT_THAT(boxes_.takeTexts(), testing::Contains(toQt(ErrorDescription(errors::Overflow))));
}

TEST_F(CalculatorWindow, DigitsAreBlueOperatorsRedAndTheDisplayIsOnTheRight) {
  run([](QDialog& w) {
    picture(w, QStringLiteral("calculadora"));
    const auto hasColour = [](QWidget& button, auto&& matches) {
      const QImage image = button.grab().toImage();
      for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
          if (matches(image.pixelColor(x, y))) return true;
      return false;
    };
    const auto blue = [](const QColor& c) { return c.blue() > c.red() + 80 && c.red() < 120; };
    const auto red = [](const QColor& c) { return c.red() > c.blue() + 80 && c.blue() < 120; };
    for (int i = 0; i < 10; ++i) EXPECT_TRUE(hasColour(digit(w, i), blue)) << i;
    for (int i = 0; i < 8; ++i) EXPECT_TRUE(hasColour(key(w, i), red)) << i;
    EXPECT_TRUE(at<QLineEdit>(w, QStringLiteral("txtVisor")).alignment() & Qt::AlignRight);
    press(w, Qt::Key_Escape);
  });
}

TEST_F(CalculatorWindow, TheKeysLieAsOnACalculator) {
  run([](QDialog& w) {
    const auto place = [&](int number) { return digit(w, number).geometry().center(); };
    for (int row : {1, 4, 7}) {
      EXPECT_LT(place(row).x(), place(row + 1).x());
      EXPECT_LT(place(row + 1).x(), place(row + 2).x());
      EXPECT_EQ(place(row).y(), place(row + 2).y());
    }
    EXPECT_LT(place(7).y(), place(4).y());
    EXPECT_LT(place(4).y(), place(1).y());
    EXPECT_LT(place(1).y(), place(0).y());
    press(w, Qt::Key_Escape);
  });
}

TEST_F(CalculatorWindow, IsDarkInADarkTheme) {
  const QPalette before = QApplication::palette();
  QPalette dark(QColor(40, 40, 40));
  dark.setColor(QPalette::Base, QColor(25, 25, 25));
  QApplication::setPalette(dark);
  run([](QDialog& w) {
    picture(w, QStringLiteral("calculadora_escura"));
    press(w, Qt::Key_Escape);
  });
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace tessaria::qt::tests
