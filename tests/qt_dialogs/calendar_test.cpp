// The calendar's window, used by keyboard and by mouse.
#include "pickers/calendar.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCalendarWidget>
#include <QTest>
#include <QToolButton>

#include "tessaria/masks.h"
#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {
namespace {

const String kMask = u"dd/mm/yyyy";

class CalendarWindow : public DialogFixture {
 protected:
  QString run(ModalDriver::Script script, const String& text = u"15/03/2021") {
    box_.Text(text);
    driver_.willShow(QStringLiteral("frmCalendario"), std::move(script));
    frmCalendario form;
    String stripped;
    for (char16_t c : text)
      if (c != u'/') stripped += c;
    return toQt(CStr(form.ExecutaCalendario(600.0f, 600.0f, box_, stripped, kMask,
                                            mdlObjTxt::MontaItensMascara(kMask, u"_"))));
  }
  static QCalendarWidget& calendar(QDialog& window) {
    return at<QCalendarWidget>(window, QStringLiteral("Calendario"));
  }
  static QAbstractItemView& days(QDialog& window) {
    return *calendar(window).findChild<QAbstractItemView*>();
  }
  static void typeYear(QDialog& window, const QString& year) {
    click(at(window, QStringLiteral("qt_calendar_yearbutton")));
    EXPECT_EQ(window.focusWidget(), &at(window, QStringLiteral("qt_calendar_yearedit")));
    strike(window, year);
  }
  /// Presses the mouse on a day of the month that is shown.
  static void clickDay(QDialog& window, int day) {
    auto& view = days(window);
    const auto& model = *view.model();
    for (int row = 2; row < model.rowCount(); ++row)
      for (int column = 0; column < model.columnCount(); ++column) {
        const QModelIndex index = model.index(row, column);
        if (index.data().toInt() != day) continue;
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(index).center());
        return;
      }
  }
};

TEST_F(CalendarWindow, EnterReturnsTheSelectedDay) {
  EXPECT_EQ(run([](QDialog& w) { press(w, Qt::Key_Return); }), QStringLiteral("15/03/2021"));
}

TEST_F(CalendarWindow, EscapeAndTheCloseButtonAlsoReturnIt) {
  EXPECT_EQ(run([](QDialog& w) {
              press(w, Qt::Key_Right);
              press(w, Qt::Key_Escape);
            }),
            QStringLiteral("16/03/2021"));
  EXPECT_EQ(run([](QDialog& w) { w.close(); }), QStringLiteral("15/03/2021"));
}

TEST_F(CalendarWindow, TheArrowsMoveTheDayAndCloseNothing) {
  const struct {
    int key;
    const char16_t* day;
  } kMoves[] = {{Qt::Key_Left, u"14/03/2021"},   {Qt::Key_Right, u"16/03/2021"},
                {Qt::Key_Up, u"08/03/2021"},     {Qt::Key_Down, u"22/03/2021"},
                {Qt::Key_PageUp, u"15/02/2021"}, {Qt::Key_PageDown, u"15/04/2021"}};
  for (const auto& move : kMoves)
    EXPECT_EQ(run([&](QDialog& w) {
                press(w, move.key);
                EXPECT_TRUE(w.isVisible());
                press(w, Qt::Key_Return);
              }),
              toQt(move.day));
}

TEST_F(CalendarWindow, AClickOnADayCloses) {
  EXPECT_EQ(run([](QDialog& w) { clickDay(w, 20); }), QStringLiteral("20/03/2021"));
}

TEST_F(CalendarWindow, ChangingThePageMovesTheSelection) {
  EXPECT_EQ(run(
                [](QDialog& w) {
                  auto* next = w.findChild<QToolButton*>(QStringLiteral("qt_calendar_nextmonth"));
                  click(*next);
                  EXPECT_TRUE(w.isVisible());
                  press(w, Qt::Key_Return);
                },
                u"31/01/2021"),
            QStringLiteral("28/02/2021"));
}

TEST_F(CalendarWindow, ATypedYearIsAcceptedByEnter) {
  EXPECT_EQ(run([](QDialog& w) {
              typeYear(w, QStringLiteral("2019"));
              press(w, Qt::Key_Return);
              settleEvents();
              EXPECT_TRUE(w.isVisible());
              EXPECT_EQ(w.focusWidget(), &days(w));
              press(w, Qt::Key_Right);
              press(w, Qt::Key_Return);
            }),
            QStringLiteral("16/03/2019"));
}

TEST_F(CalendarWindow, EscapeDiscardsATypedYear) {
  EXPECT_EQ(run([](QDialog& w) {
              typeYear(w, QStringLiteral("2019"));
              press(w, Qt::Key_Escape);
              settleEvents();
              EXPECT_TRUE(w.isVisible());
              EXPECT_EQ(w.focusWidget(), &days(w));
              press(w, Qt::Key_Return);
            }),
            QStringLiteral("15/03/2021"));
}

TEST_F(CalendarWindow, AClickOnADayAcceptsTheTypedYearFirst) {
  EXPECT_EQ(run([](QDialog& w) {
              typeYear(w, QStringLiteral("2019"));
              clickDay(w, 20);
              if (w.isVisible()) clickDay(w, 20);  // the first press only ends the typing
            }),
            QStringLiteral("20/03/2019"));
}

TEST_F(CalendarWindow, ItsPartsHaveNames) {
  run([](QDialog& w) {
    const struct {
      const char* part;
      const char* name;
      const char* shows;
    } kParts[] = {{"qt_calendar_prevmonth", "Mês anterior", ""},
                  {"qt_calendar_nextmonth", "Próximo mês", ""},
                  {"qt_calendar_monthbutton", "Mês", "abril"},
                  {"qt_calendar_yearbutton", "Ano", "2021"},
                  {"qt_calendar_yearedit", "Ano", ""}};
    press(w, Qt::Key_PageDown);
    EXPECT_EQ(days(w).accessibleName(), QStringLiteral("Calendário"));
    for (const auto& row : kParts) {
      auto* part = QAccessible::queryAccessibleInterface(&at(w, QLatin1String(row.part)));
      EXPECT_EQ(part->text(QAccessible::Name), QString::fromUtf8(row.name));
      EXPECT_EQ(part->text(QAccessible::Description), QLatin1String(row.shows)) << row.name;
    }
    press(w, Qt::Key_Escape);
  });
}

TEST_F(CalendarWindow, IsInPortugueseAndItsWeekBeginsOnSunday) {
  run([](QDialog& w) {
    EXPECT_EQ(calendar(w).firstDayOfWeek(), Qt::Sunday);
    const auto& model = *days(w).model();
    const QString sunday = model.index(0, 0).data().toString();
    EXPECT_TRUE(sunday.startsWith(QLatin1String("dom"), Qt::CaseInsensitive))
        << sunday.toStdString();
    const auto* month = w.findChild<QToolButton*>(QStringLiteral("qt_calendar_monthbutton"));
    EXPECT_EQ(month->text(), QStringLiteral("março"));
    picture(w, QStringLiteral("calendario"));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(CalendarWindow, AnEmptyFieldOpensOnToday) {
  EXPECT_EQ(run([](QDialog& w) { press(w, Qt::Key_Return); }, u""),
            QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")));
}

TEST_F(CalendarWindow, DigitsOpenNoBoxOverTheMonth) {
  EXPECT_EQ(run([](QDialog& w) {
              strike(w, QStringLiteral("2"));
              EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
              press(w, Qt::Key_Return);
            }),
            QStringLiteral("15/03/2021"));
}

}  // namespace
}  // namespace tessaria::qt::tests
