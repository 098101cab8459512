// Assigning a value: conversion, the bound row, the typed text and the box.

#include "tests/control/control_fixture.h"
#include "tests/control/raw_rows.h"

namespace tessaria::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const Variant empty;
const Variant christmas = FromCivil({2017, 12, 25});
const char16_t* const amountMask = u"$$$$$.$$";
const char16_t* const dateMask = u"dd/mm/yyyy";

/// One row of a conversion table: the assigned value and its result.
struct Conversion {
  const char16_t* Mask;
  Variant Assigned;
  Variant Result;
};

// --- Not bound ----------------------------------------------------------------------------------

class UnboundValueTest : public ControlTest {
 protected:
  /// The value of a new field after the assignment.
  FieldPtr Assign(Long TipoDado, const char16_t* mask, const Variant& value) {
    const auto field = AddField(u"txt" + CStr(Variant(++fields_)));
    (*field)->TipoDado(TipoDado);
    (*field)->Mascara(mask);
    (*field)->Value(value);
    return field;
  }
  void ExpectTable(Long TipoDado, const std::vector<Conversion>& table) {
    for (const Conversion& row : table) {
      SCOPED_TRACE(testing::Message() << "TipoDado " << TipoDado << ", mask " << ToUtf8(row.Mask)
                                      << ", " << testing::PrintToString(row.Assigned));
      EXPECT_SAME((*Assign(TipoDado, row.Mask, row.Assigned))->Value(), row.Result);
    }
    EXPECT_THAT(app.Boxes(), IsEmpty());
  }

 private:
  Long fields_ = 0;
};

TEST_F(UnboundValueTest, NumberTypes) {
  for (const Long TipoDado : {2, 4, 5}) {
    ExpectTable(TipoDado, {
                              {u"", null, null},
                              {u"", empty, null},
                              {u"", u"", null},
                              {u"", Long{0}, null},
                              {u"", u"0", 0.0},
                              {amountMask, null, Integer{0}},
                              {amountMask, empty, Integer{0}},
                              {amountMask, u"", Integer{0}},
                              {amountMask, 0.0, Integer{0}},
                              {u"", u"12,5", 12.5},
                              {u"", u"1.234,56", 1234.56},
                              {u"", u"-3", -3.0},
                              {u"", Long{7}, 7.0},
                              {amountMask, u"12", 12.0},
                          });
  }
}

TEST_F(UnboundValueTest, DateType) {
  ExpectTable(7, {
                     {u"", null, null},
                     {u"", empty, null},
                     {u"", u"", null},
                     {u"", u"   ", null},
                     {dateMask, u"__/__/____", null},
                     {dateMask, u"//", null},
                     {u"", u"25/12/2017", christmas},
                     {u"", u"25122017", christmas},
                     {dateMask, u"25/12/2017", christmas},
                     {dateMask, u"25122017", christmas},
                     {dateMask, christmas, christmas},
                 });
}

// The number 0 is blank in the other types; as a date it is the first day of the calendar.
TEST_F(UnboundValueTest, TheNumberZeroIsADate) { ExpectTable(7, {{u"", Long{0}, Date{0}}}); }

TEST_F(UnboundValueTest, EveryOtherTypeIsTextAndKeepsTheAssignedValue) {
  // Long, Currency and Boolean too: only the three number codes and the date convert.
  for (const Long TipoDado : {0, 1, 3, 6, 8, 11, 14, 99, -1})
    ExpectTable(TipoDado, {
                              {u"", null, null},
                              {u"", empty, null},
                              {u"", u"", null},
                              {u"", Long{0}, null},
                              {u"", 0.0, null},
                              {amountMask, u"", null},
                              {u"", u"0", u"0"},
                              {u"", u" ", u" "},
                              {u"", u"abc", u"abc"},
                              {u"", Long{5}, Long{5}},
                              {u"", 2.5, 2.5},
                              {u"", christmas, christmas},
                              {u"00/00", u"12/34", u"12/34"},
                          });
}

struct Shown {
  Long TipoDado;
  const char16_t* Mask;
  Variant Assigned;
  const char16_t* Texto;
  const char16_t* Box;
};

const Shown shownRows[] = {
    {8, u"", u"abc", u"abc", u"abc"},
    {8, u"", null, u"", u""},
    {8, u"00/00", u"12/34", u"1234", u"12/34"},
    {8, u"00/00", u"1234", u"1234", u"12/34"},
    {8, u"00/00", u"1", u"1", u"1_/__"},
    {8, u"00/00", null, u"", u"__/__"},
    {5, u"", u"12,50", u"12,5", u"12,5"},
    {5, u"", 1234.5, u"1234,5", u"1234,5"},  // the text of a number has the comma
    {5, amountMask, 1234.5, u"1234,5", u"1.234,50"},
    {5, amountMask, null, u"0", u"0,00"},
    {7, dateMask, u"25122017", u"25122017", u"25/12/2017"},
    {7, dateMask, null, u"", u"__/__/____"},
    {7, u"", u"25122017", u"25/12/2017", u"25/12/2017"},
};

TEST_F(UnboundValueTest, TheTypedTextFollowsTheValueAndTheBoxFollowsTheMask) {
  for (const Shown& row : shownRows) {
    SCOPED_TRACE(testing::Message()
                 << "mask " << ToUtf8(row.Mask) << ", " << testing::PrintToString(row.Assigned));
    const auto field = Assign(row.TipoDado, row.Mask, row.Assigned);
    EXPECT_EQ((*field)->Texto(), row.Texto);
    EXPECT_EQ(field->txtEdit().Text(), row.Box);
  }
}

TEST_F(UnboundValueTest, NullEmptiesABoxWithoutAMaskThroughTheTypedText) {
  const auto field = Assign(8, u"", u"abc");
  (*field)->Value(null);
  EXPECT_EQ((*field)->Texto(), u"");
  EXPECT_EQ(field->txtEdit().Text(), u"");
}

TEST_F(UnboundValueTest, APasswordFieldHoldsTheTextAndShowsItsCharacters) {
  const auto field = AddField(u"txtSenha");
  (*field)->PasswordChar(u"*");
  (*field)->Value(u"segredo");
  EXPECT_THAT((*field)->Value(), IsValue(u"segredo"));
  EXPECT_EQ((*field)->Texto(), u"segredo");
  EXPECT_EQ(field->txtEdit().Text(), u"*******");
}

TEST_F(UnboundValueTest, AnAssignmentNotifiesTextoThenValue) {
  const auto field = AddField(u"txtCampo");
  (*field)->Value(u"abc");
  EXPECT_THAT(field->ChangedProperties(), ElementsAre(u"Texto", u"Value"));
}

TEST_F(UnboundValueTest, LettersInANumberFieldShowTheConversionBox) {
  const auto field = Assign(5, u"", Long{7});
  (*field)->Value(u"abc");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(StopBox((*field)->hWnd(), u"Error: 13 - " + ErrorDescription(13),
                                  u"Erro ao Atualizar o Campo")));
  EXPECT_THAT((*field)->Value(), IsEmptyVariant());
  EXPECT_EQ((*field)->Texto(), u"");
  EXPECT_EQ(field->txtEdit().Text(), u"");
  EXPECT_THAT(field->ChangedProperties(), Contains(u"Value"));  // the later steps ran
}

TEST_F(UnboundValueTest, AnImpossibleDateShowsTheConversionBox) {
  const auto field = Assign(7, dateMask, u"31/02/2017");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(StopBox((*field)->hWnd(), u"Error: 13 - " + ErrorDescription(13),
                                  u"Erro ao Atualizar o Campo")));
  EXPECT_THAT((*field)->Value(), IsEmptyVariant());
  EXPECT_EQ(field->txtEdit().Text(), u"__/__/____");
}

TEST_F(UnboundValueTest, AnAssignmentDoesNotChangeTheValuesForComparison) {
  const auto field = AddField(u"txtCampo");
  (*field)->LastValue(u"antes");
  (*field)->Value(u"depois");
  (*field)->DisparaEventos(u"BrowseReturn");
  EXPECT_THAT(field->Events(Kind::BrowseReturn).at(0).LastValue, IsValue(u"antes"));
  EXPECT_THAT((*field)->OriginalValue(), IsEmptyVariant());
}

TEST_F(UnboundValueTest, AValueMayBeAssignedFromItsOwnMember) {
  const auto field = AddField(u"txtCampo");
  (*field)->LastValue(u"antes");
  field->OnBrowseReturn = [&](bool&, Variant& last) { (*field)->Value(last); };
  (*field)->DisparaEventos(u"BrowseReturn");
  EXPECT_THAT((*field)->Value(), IsValue(u"antes"));
}

// --- Bound --------------------------------------------------------------------------------------

class BoundValueTest : public ControlTest {
 protected:
  BoundValueTest() : field(AddField(u"txtCampo")) {
    const auto data = form->Add<memory::DataControl>(u"dtcDados");
    data->ConnectionString(u"DSN=teste");
    data->RecordSource(u"crua");
    data->RecordSet(rows);
    Bind(field, u"campo");
    (*field)->Refresh();
    rows->Written.clear();
  }

  tsText& Control() { return **field; }
  /// What reaches the field for an assignment.
  void ExpectTable(Long type, bool acceptsNull, const std::vector<Conversion>& table) {
    rows->Field.Type = type;
    rows->Field.Attributes = acceptsNull ? host::attribute::IsNullable : 0;
    for (const Conversion& row : table) {
      SCOPED_TRACE(testing::Message() << "type " << type << ", mask " << ToUtf8(row.Mask) << ", "
                                      << testing::PrintToString(row.Assigned));
      Control().Mascara(row.Mask);
      rows->Written.clear();
      Control().Value(row.Assigned);
      ASSERT_EQ(rows->Written.size(), 1u);
      EXPECT_SAME(rows->Written[0], row.Result);
      EXPECT_SAME(Control().Value(), row.Result);
    }
    EXPECT_THAT(app.Boxes(), IsEmpty());
  }
  memory::MessageBoxRecord Refusal(const String& description) {
    return StopBox(Control().hWnd(), description, u"Erro ao Atualizar o Campo 'txtCampo'");
  }

  std::shared_ptr<RawRows> rows = std::make_shared<RawRows>();
  FieldPtr field;
};

TEST_F(BoundValueTest, TextFields) {
  for (const Long type : {129, 130, 200, 202}) {
    for (const bool acceptsNull : {true, false}) {
      const Variant blank = acceptsNull ? null : empty;
      ExpectTable(type, acceptsNull,
                  {
                      {u"", null, blank},
                      {u"", empty, blank},
                      {u"", u"", blank},
                      {u"", Long{0}, blank},
                      {u"", u"0", u"0"},
                      {u"", u" ", u" "},
                      {u"", u"São João", u"São João"},
                      {u"", Long{5}, u"5"},
                      {u"", 12.5, u"12,5"},  // the text of a number has the comma
                      {u"", christmas, u"25/12/2017"},
                      {u"00/00", u"12/34", u"12/34"},
                  });
    }
  }
}

TEST_F(BoundValueTest, NumberFields) {
  for (const Long type : {2, 3, 4, 5, 6, 14, 16, 131}) {
    for (const bool acceptsNull : {true, false}) {
      const Variant blank = acceptsNull ? null : Variant(Integer{0});
      ExpectTable(type, acceptsNull,
                  {
                      {u"", null, blank},
                      {u"", empty, blank},
                      {u"", u"", blank},
                      {u"", Long{0}, blank},
                      {u"", u"0", 0.0},
                      {amountMask, null, Integer{0}},
                      {amountMask, empty, Integer{0}},
                      {amountMask, u"", Integer{0}},
                      {amountMask, 0.0, Integer{0}},
                      {u"", u"12,5", 12.5},
                      {u"", u"1.234,56", 1234.56},
                      {amountMask, u"1.234,56", 1234.56},
                      {u"", Long{7}, 7.0},
                  });
    }
  }
}

TEST_F(BoundValueTest, DateFields) {
  for (const Long type : {7, 133, 135}) {
    for (const bool acceptsNull : {true, false}) {
      const Variant blank = acceptsNull ? null : empty;
      ExpectTable(type, acceptsNull,
                  {
                      {u"", null, blank},
                      {u"", empty, blank},
                      {u"", u"", blank},
                      {dateMask, u"__/__/____", blank},
                      {u"", u"25/12/2017", christmas},
                      {dateMask, u"25/12/2017", christmas},
                      {dateMask, u"25122017", christmas},
                      {dateMask, u"_25/12/2017_", christmas},  // only the fill is removed
                      {u"mm/yyyy", u"12/2017", FromCivil({2017, 12, 1})},
                      {u"", christmas, christmas},
                  });
    }
  }
}

// They include codes of numbers and texts: only the three families above convert.
TEST_F(BoundValueTest, FieldsOfAnyOtherTypeGetTheAssignedValueUnchanged) {
  for (const Long type : {8, 11, 12, 17, 18, 19, 20, 21, 64, 72, 128, 134, 139, 201, 203, 205})
    ExpectTable(type, true,
                {
                    {u"", null, null},
                    {u"", u"", u""},
                    {u"", Long{0}, Long{0}},
                    {u"", u"abc", u"abc"},
                    {u"", true, true},
                    {amountMask, 12.5, 12.5},
                });
}

TEST_F(BoundValueTest, EmptyStaysEmptyInAFieldOfAnyOtherType) {
  rows->Field.Type = host::type::Boolean;
  Control().Value(empty);
  ASSERT_EQ(rows->Written.size(), 1u);
  EXPECT_THAT(rows->Written[0], IsEmptyVariant());
}

// Bit 0x20 means that the field accepts Null; 0x40, that it may read as Null, does not count.
TEST_F(BoundValueTest, OnlyTheBitForAcceptingNullCounts) {
  rows->Field.Attributes = host::attribute::MayBeNull | host::attribute::Updatable;
  Control().Value(u"");
  EXPECT_THAT(rows->Written.back(), IsEmptyVariant());
  rows->Field.Attributes |= host::attribute::IsNullable;
  Control().Value(u"");
  EXPECT_THAT(rows->Written.back(), IsNullVariant());
}

TEST_F(BoundValueTest, TheTypeOfTheBoundFieldCountsAndNotTipoDado) {
  Control().TipoDado(5);
  Control().Value(u"abc");
  EXPECT_THAT(rows->Written.back(), IsValue(u"abc"));
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(BoundValueTest, TheValueIsReadBackWhileTheBoxShowsWhatWasAssigned) {
  rows->Field.Makes = [](const Variant& v) { return Variant(CStr(v) + u" #"); };
  Control().Value(u"abc");
  EXPECT_THAT(Control().Value(), IsValue(u"abc #"));
  EXPECT_EQ(Control().Texto(), u"abc #");
  EXPECT_EQ(field->txtEdit().Text(), u"abc");
}

TEST_F(BoundValueTest, AValueReadBackAsNullIsReplacedByTheAssignedOne) {
  rows->Field.Makes = [](const Variant&) { return Variant::Null(); };
  Control().Value(u"abc");
  EXPECT_THAT(Control().Value(), IsValue(u"abc"));
  EXPECT_EQ(Control().Texto(), u"");
  EXPECT_EQ(field->txtEdit().Text(), u"abc");
}

TEST_F(BoundValueTest, AtTheEndsOfTheRowsNothingIsWrittenAndTheValueStays) {
  for (const bool atEof : {true, false}) {
    SCOPED_TRACE(atEof);
    rows->Field.AtEof = atEof;
    rows->Field.AtBof = !atEof;
    Control().Mascara(u"00/00");
    Control().Value(u"1234");
    EXPECT_THAT(rows->Written, IsEmpty());
    EXPECT_THAT(Control().Value(), IsValue(u"1234"));
    EXPECT_EQ(Control().Texto(), u"");
    EXPECT_EQ(field->txtEdit().Text(), u"12/34");
    Control().Value(null);
    EXPECT_THAT(Control().Value(), IsNullVariant());
    EXPECT_EQ(field->txtEdit().Text(), u"__/__");
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(BoundValueTest, ARefusedValueKeepsTheFormerOneWhileTheBoxShowsTheRefusedOne) {
  Control().Value(u"antigo");
  rows->Field.Refusal = HostError(memory::kRefusedValue, u"O campo é pequeno demais.");
  Control().Value(u"novo");
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(Refusal(u"O campo é pequeno demais.")));
  EXPECT_THAT(Control().Value(), IsValue(u"antigo"));
  EXPECT_EQ(Control().Texto(), u"antigo");
  EXPECT_EQ(field->txtEdit().Text(), u"novo");
}

TEST_F(BoundValueTest, ATextThatIsNotANumberKeepsTheFormerValueAndEmptiesTheBox) {
  rows->Field.Type = host::type::Integer;
  Control().Value(Long{7});
  Control().Value(u"abc");
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(Refusal(ErrorDescription(13))));
  EXPECT_THAT(Control().Value(), IsValue(7.0));
  EXPECT_EQ(Control().Texto(), u"7");
  EXPECT_EQ(field->txtEdit().Text(), u"");  // what was converted is Empty
  EXPECT_EQ(rows->Written.size(), 1u);
}

// The conversion of a date removes only the fill character. With "/" as the fill this also removes
// the literals, and the eight digits are still read.
TEST_F(BoundValueTest, ADateOfTypedDigitsIsRead) {
  rows->Field.Type = host::type::Date;
  Control().Mascara(dateMask);
  Control().PromptChar(u"/");
  Control().Value(u"25/12/2017");
  EXPECT_THAT(rows->Written.back(), IsValue(christmas));
}

TEST_F(BoundValueTest, AFieldThatCannotBeReadBackRaisesItsErrorToTheCaller) {
  rows->Field.ReadFault = HostError(3021);
  EXPECT_HOST_ERROR(Control().Value(u"x"), 3021);
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(Refusal(ErrorDescription(3021))));
}

TEST_F(BoundValueTest, AnAssignmentFromAProgramDoesNotChangeOriginalValue) {
  rows->Field.Value = u"da linha";
  Control().Refresh();
  Control().Value(u"do programa");
  EXPECT_THAT(Control().OriginalValue(), IsValue(u"da linha"));
}

// --- Every digit -------------------------------------------------------------------------------

struct ManyDigits {
  const char16_t* Typed;
  const char16_t* Exact;  ///< nullptr for a number that is refused
};

const ManyDigits manyDigits[] = {
    {u"9007199254740993", u"9007199254740993"},
    {u"-12.345.678.901.234.567.890,12", u"-12345678901234567890.12"},
    {u"0,1234567890123456789", u"0.1234567890123456789"},
    {u"79228162514264337593543950337", nullptr},
    {u"1,23456789012345678901234567890123", nullptr},
};

TEST_F(BoundValueTest, ANumberOfMoreThanFifteenDigitsStaysExactOrIsRefused) {
  rows->Field.Type = host::type::Numeric;
  for (const ManyDigits& row : manyDigits) {
    SCOPED_TRACE(ToUtf8(row.Typed));
    rows->Written.clear();
    Control().Value(row.Typed);
    if (row.Exact) {
      EXPECT_THAT(rows->Written, ElementsAre(IsValue(DecimalFromText(row.Exact))));
      EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    } else {
      EXPECT_THAT(rows->Written, IsEmpty());
      EXPECT_THAT(app.TakeBoxes(),
                  ElementsAre(Refusal(u"O número tem mais dígitos do que o campo pode guardar.")));
    }
  }
}

TEST_F(BoundValueTest, ANumberOfFifteenDigitsOrFewerIsADouble) {
  rows->Field.Type = host::type::Numeric;
  for (const auto& [typed, number] :
       {std::pair{u"123456789012345", 123456789012345.0}, std::pair{u"1,50", 1.5},
        std::pair{u"1000000000000000000000", 1e21}, std::pair{u"&HFF", 255.0}}) {
    Control().Value(typed);
    EXPECT_THAT(rows->Written.back(), IsValue(number));
  }
  Control().Value(0.3F);
  EXPECT_THAT(rows->Written.back(), IsValue(0.3));
}

TEST_F(UnboundValueTest, ANumberOfMoreThanFifteenDigitsStaysExact) {
  EXPECT_SAME((*Assign(5, u"", u"9007199254740993"))->Value(),
              DecimalFromText(u"9007199254740993"));
}

// --- The later steps ----------------------------------------------------------------------------

class LaterStepsTest : public ControlTest {
 protected:
  LaterStepsTest() : field(AddField(u"txtCodigo")) {
    (*field)->BrowseTable(u"clientes");
    (*field)->BrwCampo(u"codigo");
    (*field)->BrwCampoIrmao(u"nome");
  }
  void TypedAKey() {
    Integer code = 65, shift = 0;
    field->txtEdit().OnKeyUp(code, shift);
  }

  FieldPtr field;
};

TEST_F(LaterStepsTest, AnErrorIsShownAndTheAssignmentIsNotNotified) {
  (*field)->BrwWhere(u"cidade = @txtNada@");
  TypedAKey();
  (*field)->Value(u"5");
  EXPECT_THAT(
      app.TakeBoxes(),
      ElementsAre(StopBox((*field)->hWnd(),
                          MissingControl(u"txtNada", u"BrwWhere", field->Name()).Description(),
                          u"Erro ao Atualizar o Campo")));
  EXPECT_THAT(field->ChangedProperties(), Not(Contains(u"Value")));
  EXPECT_THAT((*field)->Value(), IsValue(u"5"));
  EXPECT_EQ(field->txtEdit().Text(), u"5");
}

TEST_F(LaterStepsTest, AnAssignmentFromAProgramFetchesNoDescription) {
  (*field)->Value(u"5");
  EXPECT_THAT(connection->Statements(), IsEmpty());
}

// --- A real table -------------------------------------------------------------------------------

class TableValueTest : public ControlTest {
 protected:
  TableValueTest() {
    data = AddData({{u"codigo", host::type::Integer, 4, false}, {u"nome", host::type::VarWChar, 5}},
                   {{Long{7}, u"Ana"}});
    code = AddField(u"txtCodigo");
    Bind(code, u"codigo");
    name = AddField(u"txtNome");
    Bind(name, u"nome");
    form->Show();
  }

  std::shared_ptr<memory::DataControl> data;
  FieldPtr code, name;
};

TEST_F(TableValueTest, TheColumnConvertsTheAssignedNumber) {
  (*code)->Value(u"12");
  EXPECT_THAT((*code)->Value(), IsValue(Long{12}));
  EXPECT_THAT(data->RecordSet()->Fields().Item(u"codigo")->Value(), IsValue(Long{12}));
}

TEST_F(TableValueTest, ATextTooLongForItsFieldIsRefused) {
  (*name)->Value(u"Guilhermina");
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].Title, u"Erro ao Atualizar o Campo 'txtNome'");
  EXPECT_EQ(boxes[0].Style, host::box::Stop);
  EXPECT_THAT((*name)->Value(), IsValue(u"Ana"));
  EXPECT_EQ(name->txtEdit().Text(), u"Guilhermina");
}

TEST_F(TableValueTest, AFieldThatRefusesNullReceivesZero) {
  (*code)->Value(u"");
  EXPECT_THAT((*code)->Value(), IsValue(Long{0}));
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// The value in memory then differs from that of the row.
TEST_F(ControlTest, ATextThatItsColumnStoresAsNullStaysInMemory) {
  const auto data = AddData({{u"ativo", host::type::Boolean}}, {{true}});
  const auto field = AddField(u"txtAtivo");
  Bind(field, u"ativo");
  form->Show();
  (*field)->Value(u" ");
  EXPECT_THAT(data->RecordSet()->Fields().Item(u"ativo")->Value(), IsNullVariant());
  EXPECT_THAT((*field)->Value(), IsValue(u" "));
  EXPECT_EQ((*field)->Texto(), u"");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
