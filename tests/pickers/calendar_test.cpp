// The calendar's window.
#include "pickers/calendar.h"

#include <optional>

#include "tessaria/comforts.h"
#include "tessaria/masks.h"
#include "tests/pickers/picker_fixture.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::IsEmpty;

Date Day(Integer year, Integer month, Integer day) { return FromCivil({year, month, day}); }

const char16_t* const dayMask = u"dd/mm/yyyy";

class CalendarTest : public PickerTest {
 protected:
  /// Runs with a text of the box, as the button of a field does.
  Date Run(const String& mask, const String& text, Script script) {
    const String items = mdlObjTxt::MontaItensMascara(mask, u"_");
    return RunStripped(mask, text, Trim(mdlObjTxt::LimpaMascara(text, mask, items)),
                       std::move(script));
  }
  Date RunStripped(const String& mask, const String& text, const String& stripped, Script script) {
    box.Text(text);
    desktop->WillShow(u"frmCalendario", std::move(script));
    return Execute(mask, stripped);
  }
  Date Execute(const String& mask, const String& stripped) {
    frmCalendario form;
    const Variant answer = form.ExecutaCalendario(100.0f, 200.0f, box, stripped, mask,
                                                  mdlObjTxt::MontaItensMascara(mask, u"_"));
    EXPECT_EQ(answer.Type(), Variant::Kind::Date);
    return CDate(answer);
  }
  static Date Selected(memory::Dialog& shown) {
    return shown.Find<host::Calendar>(u"Calendario").Value();
  }
};

struct Start {
  const char16_t* Mask;
  const char16_t* Text;
  Date Expected;
};

const Date today = Day(2017, 12, 25);

const Start starts[] = {
    {u"dd/mm/yyyy", u"", today},
    {u"dd/mm/yyyy", u"__/__/____", today},
    {u"dd/mm/yyyy", u"03/05/2016", Day(2016, 5, 3)},
    {u"dd/mm/yyyy", u"29/02/2016", Day(2016, 2, 29)},
    {u"dd/mm/yyyy", u"31/02/1999", today},
    {u"dd/mm/yyyy", u"12/__/____", today},
    {u"00/00/0000", u"03/05/2016", today},  // a mask whose dates are never valid
    {u"", u"03/05/2016", today},
};

TEST_F(CalendarTest, OpensWithTheDateOfTheBoxOrToday) {
  for (const Start& start : starts) {
    SCOPED_TRACE(ToUtf8(start.Text));
    EXPECT_EQ(Run(start.Mask, start.Text,
                  [&](memory::Dialog& shown) {
                    EXPECT_EQ(Selected(shown), start.Expected);
                    EXPECT_EQ(box.Text(),
                              CStr(start.Expected));  // before the operator sees the window
                    shown.Press(Key::Escape);
                  }),
              start.Expected);
    EXPECT_EQ(box.Text(), CStr(start.Expected));
  }
}

TEST_F(CalendarTest, StaysInsideASmallScreen) {
  desktop->ScreenSize(1000, 1200);
  desktop->DialogSize(700, 900);
  Run(dayMask, u"", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Top(), -150);
    EXPECT_EQ(shown.Left(), 150);
    shown.Press(Key::Escape);
  });
}

// A short year leaves six characters, which are read as a date and not digit by digit.
TEST_F(CalendarTest, WithoutSlashesAShortYearOrAMonthAloneIsNotADate) {
  struct Row {
    const char16_t* mask;
    const char16_t* text;
    const char16_t* stripped;
  };
  for (const Row& row :
       {Row{u"dd/mm/yy", u"05/03/18", u"050318"}, Row{u"mm/yyyy", u"12/2017", u"122017"}}) {
    box.Text(row.text);
    EXPECT_HOST_ERROR(Execute(row.mask, row.stripped), errors::TypeMismatch);
  }
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

TEST_F(CalendarTest, EightCharactersAreReadAsDigitsWhateverTheyAre) {
  box.Text(u"31/12/17");
  EXPECT_HOST_ERROR(Execute(u"dd/mm/yy", u"31/12/17"), errors::TypeMismatch);
  EXPECT_EQ(box.Text(), u"31/12/2017");  // the date test has expanded the year
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

TEST_F(CalendarTest, ATextOfAnotherLengthIsReadAsADate) {
  EXPECT_EQ(RunStripped(dayMask, u"03/05/2016", u"03/05/2016",
                        [](memory::Dialog& shown) { shown.CloseWindow(); }),
            Day(2016, 5, 3));
  box.Text(u"03/05/2016");
  EXPECT_HOST_ERROR(Execute(dayMask, u"ontem"), errors::TypeMismatch);
}

TEST_F(CalendarTest, AClickOnADayClosesAndReturnsIt) {
  EXPECT_EQ(Run(dayMask, u"",
                [](memory::Dialog& shown) {
                  shown.PickDay(u"Calendario", Day(2017, 12, 31));
                  EXPECT_FALSE(shown.IsShown());
                }),
            Day(2017, 12, 31));
  EXPECT_EQ(box.Text(), u"25/12/2017");  // the caller shows the answer
}

TEST_F(CalendarTest, ArrowsMoveTheSelectionAndEnterAndEscapeReturnIt) {
  for (const Key key : {Key::Enter, Key::Escape}) {
    EXPECT_EQ(Run(dayMask, u"",
                  [&](memory::Dialog& shown) {
                    shown.Press(Key::Down);
                    shown.Press(Key::Left);
                    shown.Type(u"a 5");
                    EXPECT_TRUE(shown.IsShown());
                    shown.Press(key);
                    EXPECT_FALSE(shown.IsShown());
                  }),
              Day(2017, 12, 31));
  }
}

TEST_F(CalendarTest, ThereIsNoCancel) {
  EXPECT_EQ(Run(dayMask, u"03/05/2016", [](memory::Dialog& shown) { shown.CloseWindow(); }),
            Day(2016, 5, 3));
}

// --- The comfort --------------------------------------------------------------------------------

class CancellingCalendar : public CalendarTest {
 protected:
  CancellingCalendar() { setComforts({.CalendarCancels = true}); }
  ~CancellingCalendar() override { setComforts({}); }

  /// The chosen day, or nothing. The box contains a date, with the caret after the day.
  std::optional<Date> Choose(Script script) {
    box.Text(u"03/05/2016");
    box.SelStart(2);
    box.SelLength(3);
    desktop->WillShow(u"frmCalendario", std::move(script));
    frmCalendario form;
    bool chosen = false;
    const Variant day =
        form.ExecutaCalendario(0.0f, 0.0f, box, u"03052016", dayMask,
                               mdlObjTxt::MontaItensMascara(dayMask, u"_"), &chosen);
    return chosen ? std::optional(CDate(day)) : std::nullopt;
  }
};

TEST_F(CancellingCalendar, EscapeAndTheFrameChooseNothing) {
  const Script ways[] = {[](memory::Dialog& shown) { shown.Press(Key::Escape); },
                         [](memory::Dialog& shown) { shown.CloseWindow(); }};
  for (const auto& leave : ways) {
    EXPECT_EQ(Choose([&](memory::Dialog& shown) {
                EXPECT_EQ(Selected(shown), Day(2016, 5, 3));
                shown.Press(Key::Right);
                leave(shown);
              }),
              std::nullopt);
    EXPECT_EQ(box.Text(), u"03/05/2016");
    EXPECT_EQ(box.SelStart(), 2);
    EXPECT_EQ(box.SelLength(), 3);
  }
}

TEST_F(CancellingCalendar, AClickAndEnterChoose) {
  EXPECT_EQ(Choose([](memory::Dialog& shown) { shown.PickDay(u"Calendario", Day(2016, 5, 9)); }),
            Day(2016, 5, 9));
  EXPECT_EQ(Choose([](memory::Dialog& shown) { shown.Press(Key::Enter); }), Day(2016, 5, 3));
}

TEST_F(CancellingCalendar, TheNextRunBeginsWithoutAChoice) {
  frmCalendario form;
  bool chosen = false;
  for (const Key key : {Key::Enter, Key::Escape}) {
    desktop->WillShow(u"frmCalendario", [&](memory::Dialog& shown) {
      key == Key::Enter ? shown.Press(key) : shown.CloseWindow();
    });
    form.ExecutaCalendario(0.0f, 0.0f, box, u"", dayMask, u"", &chosen);
    EXPECT_EQ(chosen, key == Key::Enter);
  }
}

TEST_F(CancellingCalendar, TheBoxKeepsItsTextWhateverTheDateTestWrites) {
  int changes = 0;
  for (const StringView text : {u"", u"__/__/____", u"31/02/1999", u"abc"}) {
    box.Text(String(text));
    box.OnChange = [&] { ++changes; };
    desktop->WillShow(u"frmCalendario", [&](memory::Dialog& shown) {
      EXPECT_EQ(Selected(shown), today);
      EXPECT_EQ(box.Text(), text);
      shown.Press(Key::Escape);
    });
    frmCalendario form;
    form.ExecutaCalendario(0.0f, 0.0f, box, u"", dayMask, u"");
    EXPECT_EQ(box.Text(), text);
    box.OnChange = nullptr;
  }
  EXPECT_EQ(changes, 0);
}

TEST_F(CancellingCalendar, TheBoxKeepsItsTextWhenTheCalendarCannotOpen) {
  box.Text(u"31/12/17");
  box.SelStart(2);
  box.SelLength(3);
  EXPECT_HOST_ERROR(Execute(u"dd/mm/yy", u"311217"), errors::TypeMismatch);
  EXPECT_EQ(box.Text(), u"31/12/17");
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(box.SelLength(), 3);
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

TEST_F(CalendarTest, WithoutTheComfortClosingDoesNotChooseTheInitialDay) {
  for (const bool escape : {true, false}) {
    frmCalendario form;
    bool chosen = false;
    desktop->WillShow(u"frmCalendario", [&](memory::Dialog& shown) {
      escape ? shown.Press(Key::Escape) : shown.CloseWindow();
    });
    form.ExecutaCalendario(0.0f, 0.0f, box, u"", dayMask, u"", &chosen);
    EXPECT_FALSE(chosen);
  }
}

TEST_F(CalendarTest, OpensAtTheWantedPlace) {
  Run(dayMask, u"", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Top(), 100);
    EXPECT_EQ(shown.Left(), 200);
    shown.CloseWindow();
  });
}

}  // namespace
}  // namespace tessaria::test
