// A cancelled dialog: the field shows its value again, and its row does not change.

#include "tessaria/comforts.h"
#include "tessaria/text.h"
#include "tests/control/button_fixture.h"
#include "tests/control/raw_rows.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::IsEmpty;
using testing::SizeIs;

/// One field with a dialog on one row.
class CancelledDialog : public ButtonTest {
 protected:
  CancelledDialog() {
    connection->OnStatement = [this](const String& statement) -> std::optional<memory::Rows> {
      if (InStr(statement, u"clientes") == 0) return std::nullopt;
      return InStr(statement, u"Order by 1") != 0 ? list : description;
    };
  }
  void ShowRow(TipoControle kind, Long type, const Variant& stored, const String& mask = {},
               Long maxLength = 0) {
    data = AddData({{u"campo", type}}, {{stored}});
    Bind(field, u"campo");
    Show(kind);
    Control().Mascara(mask);
    Control().MaxLength(maxLength);
    Control().Refresh();
    ShowList(type, stored);
    Enter();
  }
  /// The list holds the field's own value.
  void ShowList(Long type, const Variant& stored) {
    list = {{{u"codigo", type}}, {{stored.IsNull() ? Variant(u"5") : stored}}};
  }
  void Enter() {
    form->Focus(u"chkAtivo");
    form->Focus(u"txtCampo");
    field->ForgetEvents();
    app.TakeBoxes();
  }
  Variant Stored() { return data->RecordSet()->Fields().Item(0)->Value(); }
  bool IsEdited() { return data->RecordSet()->EditMode() != host::EditMode::None; }
  void ExpectNothingHappened() {
    EXPECT_FALSE(IsEdited());
    EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    for (const auto& event : Returns()) EXPECT_FALSE(event.HouveAlteracao);
  }

  std::shared_ptr<memory::DataControl> data;
};

// --- The list -----------------------------------------------------------------------------------

/// The ways to cancel the list.
struct WayOut {
  const char* Name;
  void (*Leave)(memory::Dialog&);
};
const WayOut waysOut[] = {
    {"Voltar", [](memory::Dialog& shown) { shown.Click(u"btnVoltar"); }},
    {"Escape", [](memory::Dialog& shown) { shown.Press(Key::Escape); }},
    {"Frame", [](memory::Dialog& shown) { shown.CloseWindow(); }},
};

struct Held {
  Long Type;
  Variant Value;
  const char16_t* Mask;
  Long MaxLength;
};

class CancelledList : public CancelledDialog, public testing::WithParamInterface<Held> {};

INSTANTIATE_TEST_SUITE_P(
    Values, CancelledList,
    testing::Values(Held{host::type::Numeric, DecimalFromText(u"12345.67"), u"$$$$$.$$", 7},
                    Held{host::type::Numeric, DecimalFromText(u"1.239"), u"$$$.$$", 6},
                    Held{host::type::Numeric, DecimalFromText(u"9007199254740993"), u"", 4},
                    Held{host::type::Integer, null, u"$$$$$", 5},
                    Held{host::type::Integer, null, u"", 0},
                    Held{host::type::VarWChar, u" Ana Maria ", u"", 5},
                    Held{host::type::VarWChar, u" ", u"", 0},
                    Held{host::type::VarWChar, u"12/34 (5)", u"##-##", 5},
                    Held{host::type::VarWChar, u"ab\\c", u"XX-XX", 5},
                    Held{host::type::DBTimeStamp, FromCivil({2017, 12, 25, 10, 30, 59}),
                         u"dd/mm/yyyy", 10}));

TEST_P(CancelledList, KeepsTheRowAndShowsTheValueAgain) {
  const Held& held = GetParam();
  ShowRow(TipoControle::Browse, held.Type, held.Value, held.Mask, held.MaxLength);
  form->Focus(u"chkAtivo");
  const Variant value = Control().Value();
  const String shown = Box().Text();
  for (const WayOut& way : waysOut) {
    for (const bool typed : {false, true}) {
      SCOPED_TRACE(testing::Message() << way.Name << (typed ? ", typed" : ""));
      Enter();
      if (typed) form->Type(u"1");
      Click(u"frmBrowse", way.Leave);
      EXPECT_THAT(Control().Value(), IsValue(value));
      EXPECT_EQ(Box().Text(), shown);
      form->Focus(u"chkAtivo");
      EXPECT_EQ(Box().Text(), shown);
      EXPECT_THAT(Stored(), IsValue(held.Value));
      ExpectNothingHappened();
    }
  }
}

TEST_F(CancelledDialog, AnUnboundFieldKeepsItsNull) {
  Show(TipoControle::Browse);
  Control().TipoDado(5);
  Control().Mascara(u"$$$.$$");
  Control().Value(null);
  const Variant before = Control().Value();
  Click(u"frmBrowse", Close);
  EXPECT_THAT(Control().Value(), IsValue(before));
}

TEST_F(CancelledDialog, ABoxOfPasswordCharactersGetsItsFormerTextBack) {
  Show(TipoControle::Browse);
  Control().PasswordChar(u"*");
  Control().Value(u"700");
  Enter();
  form->Type(u"15");
  Click(u"frmBrowse", Close);
  EXPECT_EQ(Control().Texto(), u"700");
  form->Focus(u"chkAtivo");
  EXPECT_THAT(Control().Value(), IsValue(u"700"));
}

TEST_F(CancelledDialog, TheListFillsTheDescriptionAndDoesNotChangeItsRow) {
  data = AddData({{u"codigo"}, {u"nome"}}, {{u"15", u"Outro nome"}});
  const auto name = AddField(u"txtNome");
  (*name)->UsaChecaRelacao(false);
  Bind(field, u"codigo");
  Bind(name, u"nome");
  Control().TxtIrmao(u"txtNome");
  Control().BrwCampoIrmao(u"nome");
  Show(TipoControle::Browse);
  Enter();
  Click(u"frmBrowse", Close);
  EXPECT_THAT((*name)->Value(), IsValue(u"Bruno"));
  EXPECT_EQ(name->txtEdit().Text(), u"Bruno");
  EXPECT_THAT(data->RecordSet()->Fields().Item(1)->Value(), IsValue(u"Outro nome"));
  ExpectNothingHappened();
}

/// One field on a row that refuses writes.
class CancelledListAfterARefusal : public CancelledDialog {
 protected:
  void RefuseTyped(const Variant& stored) {
    rows->Field.Type = host::type::Numeric;
    rows->Field.Value = stored;
    const auto control = form->Add<memory::DataControl>(u"dtcDados");
    control->ConnectionString(u"DSN=teste");
    control->RecordSource(u"crua");
    control->RecordSet(rows);
    Bind(field, u"campo");
    Show(TipoControle::Browse);
    Control().Mascara(u"$$$.$");
    ShowList(host::type::Numeric, stored);
    Enter();
    rows->Field.Refusal = HostError(errors::ProviderError, u"recusado");
    form->Type(u"8");
    form->Focus(u"chkAtivo");
    EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
    rows->Field.Refusal.reset();
    form->Focus(u"txtCampo");
  }
  void LeaveList() {
    Click(u"frmBrowse", Close);
    EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    EXPECT_EQ(Box().Tag, u"");
    form->Focus(u"chkAtivo");
  }
  std::shared_ptr<RawRows> rows = std::make_shared<RawRows>();
};

TEST_F(CancelledListAfterARefusal, ShowsTheRowsValueWhichCountsAsUntouched) {
  RefuseTyped(DecimalFromText(u"1.25"));
  LeaveList();
  EXPECT_EQ(Box().Text(), u"1,3");
  EXPECT_THAT(rows->Written, IsEmpty());
}

TEST_F(CancelledListAfterARefusal, ShowsTheRefusedValueIfTheRowHoldsNone) {
  RefuseTyped(null);
  LeaveList();
  EXPECT_THAT(rows->Written, SizeIs(1));
}

TEST_F(CancelledListAfterARefusal, ReadsNoRowOfAFieldThatIsNoLongerBound) {
  RefuseTyped(DecimalFromText(u"1.25"));
  Control().DataField(u"outro");
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  LeaveList();
  EXPECT_EQ(Box().Text(), u"1,3");
  EXPECT_THAT(rows->Written, IsEmpty());
}

TEST_F(CancelledListAfterARefusal, ReadsNoRowAtTheEndOfTheRows) {
  RefuseTyped(DecimalFromText(u"1.25"));
  rows->Field.AtEof = true;
  rows->Field.ReadFault = HostError(errors::NoCurrentRecord);
  LeaveList();
  EXPECT_EQ(Box().Text(), u"1,3");
  EXPECT_THAT(rows->Written, IsEmpty());
}

TEST_F(CancelledListAfterARefusal, AtTheEndOfTheRowsTheRefusedValueStaysIfTheRowHeldNone) {
  RefuseTyped(null);
  rows->Field.AtEof = true;
  rows->Field.ReadFault = HostError(errors::NoCurrentRecord);
  LeaveList();
  EXPECT_EQ(Box().Text(), u"8,0");
  EXPECT_EQ(CDbl(Control().Value()), 8);
}

TEST_F(CancelledDialog, ACancelledListShowsTheStoredValueInPlaceOfOneThatAnUnboundFieldRefused) {
  Show(TipoControle::Browse);
  Control().TipoDado(5);
  Enter();
  form->Type(u"abc");
  form->Focus(u"chkAtivo");
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(Control().Value(), IsEmptyVariant());
  Enter();
  Click(u"frmBrowse", Close);
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_THAT(Control().Value(), IsEmptyVariant());
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

// --- Calendar, calculator, folder ---------------------------------------------------------------

TEST_F(CancelledDialog, TheCalendarKeepsTheTimeOfDay) {
  const Date moment = FromCivil({2017, 12, 25, 10, 30, 59});
  ShowRow(TipoControle::Calendario, host::type::DBTimeStamp, moment, u"dd/mm/yyyy", 10);
  for (const Key key : {Key::Escape, Key::Enter}) {
    Click(u"frmCalendario", [key](memory::Dialog& shown) { shown.Press(key); });
    EXPECT_THAT(Control().Value(), IsValue(moment));
    EXPECT_EQ(Box().Text(), u"25/12/2017");
    ExpectNothingHappened();
  }
}

// A short year leaves six characters, which are not a date; the check of the date has completed the
// year by then, so a second click would find eight characters.
TEST_F(CancelledDialog, WithTheComfortACalendarThatCannotOpenDoesNotTouchTheField) {
  setComforts({.CalendarCancels = true});
  const Date moment = FromCivil({2017, 12, 25, 10, 30, 59});
  ShowRow(TipoControle::Calendario, host::type::DBTimeStamp, moment, u"dd/mm/yy", 10);
  const String shown = Box().Text();
  for (int click = 0; click < 2; ++click) {
    field->btnBrowse().OnClick();
    EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
    EXPECT_EQ(Box().Text(), shown);
  }
  EXPECT_THAT(desktop->Shown(), IsEmpty());
  Box().Tag.clear();  // the error has silenced the exit
  form->Focus(u"chkAtivo");
  EXPECT_THAT(Control().Value(), IsValue(moment));
  ExpectNothingHappened();
  setComforts({});
}

TEST_F(CancelledDialog, TheCalendarReturnsANewlyTypedDay) {
  ShowRow(TipoControle::Calendario, host::type::DBTimeStamp, FromCivil({2017, 12, 25, 10, 30, 59}),
          u"dd/mm/yyyy", 10);
  form->Type(u"25122017");
  Click(u"frmCalendario", [](memory::Dialog& shown) { shown.Press(Key::Escape); });
  EXPECT_THAT(Control().Value(), IsValue(FromCivil({2017, 12, 25})));
}

TEST_F(CancelledDialog, TheCalculatorKeepsTheNumberOfTheField) {
  for (const char16_t* number : {u"12345.67", u"1.239", u"-0.004", u"9007199254740993"}) {
    SCOPED_TRACE(ToUtf8(number));
    const Variant stored(DecimalFromText(number));
    if (!data) ShowRow(TipoControle::Calculadora, host::type::Numeric, stored, u"$$$$.$$", 7);
    data->RecordSet()->Fields().Item(0)->Value(stored);
    data->RecordSet()->Update();
    Control().Refresh();
    form->Focus(u"chkAtivo");
    const String shown = Box().Text();
    for (const bool byKey : {false, true}) {
      Enter();
      if (byKey) {
        desktop->WillShow(u"frmCalculadora", Calculate(u""));
        form->Press(Key::F9);
      } else {
        Click(u"frmCalculadora", Calculate(u""));
      }
      EXPECT_THAT(Control().Value(), IsValue(stored));
      form->Focus(u"chkAtivo");
      EXPECT_EQ(Box().Text(), shown);
      ExpectNothingHappened();
    }
  }
}

TEST_F(CancelledDialog, TheCalculatorReturnsATypedNumber) {
  ShowRow(TipoControle::Calculadora, host::type::Numeric, DecimalFromText(u"1.239"), u"$$$$.$$", 7);
  form->Type(u"1,24");
  Click(u"frmCalculadora", Calculate(u""));
  EXPECT_EQ(CDbl(Stored()), 1.24);
}

// Escape keeps what the display shows, and a calculator opened without a number shows 0.
TEST_F(CancelledDialog, TheCalculatorReturnsZeroForABlank) {
  ShowRow(TipoControle::Calculadora, host::type::Numeric, null);
  ASSERT_EQ(Box().Text(), u"");
  Click(u"frmCalculadora", Calculate(u""));
  EXPECT_EQ(CStr(Stored()), u"0");
}

TEST_F(CancelledDialog, TheFolderPickerKeepsThePathOfTheField) {
  ShowRow(TipoControle::Diretorio, host::type::VarWChar, u"c:\\Dados", u"", 4);
  ASSERT_EQ(Box().Text(), u"c:\\Dados");
  Click(u"frmDiretorio", [](memory::Dialog& shown) { shown.Click(u"btnVoltar"); });
  EXPECT_THAT(Control().Value(), IsValue(u"c:\\Dados"));
  ExpectNothingHappened();
}

}  // namespace
}  // namespace tessaria::test
