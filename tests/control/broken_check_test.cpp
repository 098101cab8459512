// A check that is ended by an error: what it has done to the box does not touch the field.

#include "tests/control/untouched_fixture.h"

namespace tessaria::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// A field whose relation check reads the city, which is not a number at first.
class BrokenCheck : public UntouchedTest {
 protected:
  BrokenCheck() : city(AddField(u"txtCidade")) {
    connection->OnStatement = [this](const String& statement) -> std::optional<memory::Rows> {
      if (InStr(statement, u"clientes") == 0) return std::nullopt;
      return memory::Rows{{{u"codigo"}}, {{Box().Text()}}};
    };
    (*city)->UsaChecaRelacao(false);
  }
  void ShowRow(const memory::Column& column, const Variant& stored, const String& mask) {
    AddRow(column, stored);
    Control().TipoControle(TipoControle::Browse);
    Control().UsaChecaRelacao(true);
    Control().BrowseTable(u"clientes");
    Control().BrwCampo(u"codigo");
    Control().BrwWhere(u"cidade = @txtCidade@");
    Control().Mascara(mask);
    form->Show();
    (*city)->Value(u"12a");
  }
  void ExpectNothingWritten(const Variant& stored) {
    app.TakeBoxes();
    (*city)->Value(u"12");
    TabThrough();
    app.TakeBoxes();
    EXPECT_FALSE(IsEdited());
    EXPECT_THAT(Stored(), IsValue(stored));
  }

  FieldPtr city;
};

TEST_F(BrokenCheck, TheZerosThatItFilledInAreNotWrittenAtTheNextExit) {
  ShowRow({u"campo", host::type::VarWChar, 10}, u"7", u"00000");
  TabThrough();
  EXPECT_THAT(app.Boxes(), SizeIs(1));
  EXPECT_EQ(Box().Text(), u"00007");
  ExpectNothingWritten(u"7");
}

TEST_F(BrokenCheck, TheYearThatItCompletedIsNotWrittenAtTheNextExit) {
  const Date stored = FromCivil({2017, 12, 25});
  ShowRow({u"campo", host::type::Date}, stored, u"dd/mm/yy");
  TabThrough();
  EXPECT_THAT(app.Boxes(), SizeIs(1));
  EXPECT_EQ(Box().Text(), u"25/12/2020");
  ExpectNothingWritten(stored);
}

TEST_F(BrokenCheck, AProgramThatAsksWhetherTheFieldIsValidDoesNotTouchIt) {
  const Date stored = FromCivil({2017, 12, 25});
  ShowRow({u"campo", host::type::Date}, stored, u"dd/mm/yy");
  EXPECT_THROW(Control().Valida(), HostError);
  EXPECT_EQ(Box().Text(), u"25/12/2020");
  ExpectNothingWritten(stored);
}

TEST_F(BrokenCheck, TextTypedBeforeIsStillWritten) {
  ShowRow({u"campo", host::type::VarWChar, 10}, u"7", u"00000");
  Enter();
  form->Type(u"8");
  Leave();
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_FALSE(IsEdited());
  (*city)->Value(u"12");
  TabThrough();
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  EXPECT_THAT(Stored(), IsValue(u"00008"));
}

// A short year leaves six characters, which are not a date for the calendar.
TEST_F(BrokenCheck, ACalendarThatCannotOpenDoesNotTouchTheField) {
  const Date stored = FromCivil({2017, 12, 25});
  ShowRow({u"campo", host::type::Date}, stored, u"dd/mm/yy");
  Control().UsaChecaRelacao(false);
  Control().TipoControle(TipoControle::Calendario);
  Enter();
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.Boxes(), SizeIs(1));
  Box().Tag.clear();  // the error has silenced the exit
  Leave();
  ExpectNothingWritten(stored);
}

}  // namespace
}  // namespace tessaria::test
