// In the designer the first show opens the rows and caches the field's ordinal.

#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class OrdinalTest : public DesignTest {
 protected:
  OrdinalTest() : field(AddField(u"txtCodigo")) {
    data = AddData({{u"nome"}, {u"codigo"}}, {{u"Ana", u"7"}});
    Bind(field, u"CODIGO");
  }
  tsText& Control() { return **field; }

  FieldPtr field;
  std::shared_ptr<memory::DataControl> data;
};

TEST_F(OrdinalTest, TheFirstShowOpensTheRowsAndCachesTheOrdinal) {
  ASSERT_EQ(data->RecordSet(), nullptr);
  Control().UserControl_Show();
  EXPECT_EQ(data->Refreshes(), 1);
  EXPECT_EQ(Control().PosDataField(), u"1");
  EXPECT_THAT(field->ChangedProperties(), Contains(u"PosDataField"));
  EXPECT_THAT(app.Boxes(), IsEmpty());
  // Nothing is bound or loaded.
  EXPECT_THAT(Control().Value(), IsEmptyVariant());
}

TEST_F(OrdinalTest, ClosedRowsAreOpenedAndOpenOnesStayOpen) {
  data->Refresh();
  data->RecordSet()->Close();
  Control().UserControl_Show();
  EXPECT_EQ(data->Refreshes(), 2);
  const auto second = AddField(u"txtOutro");
  Bind(second, u"nome");
  (*second)->UserControl_Show();
  EXPECT_EQ(data->Refreshes(), 2);
  EXPECT_EQ((*second)->PosDataField(), u"0");
}

TEST_F(OrdinalTest, ATextThatIsNotAnOrdinalCountsAsDifferent) {
  for (const char16_t* cached : {u"", u"abc", u"99", u"0", u"-1"}) {
    SCOPED_TRACE(ToUtf8(cached));
    const auto fresh = AddField(String(u"txt") + cached);
    Bind(fresh, u"codigo");
    (*fresh)->PosDataField(cached);
    (*fresh)->UserControl_Show();
    EXPECT_EQ((*fresh)->PosDataField(), u"1");
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(OrdinalTest, AMissingFieldKeepsTheCache) {
  Control().DataField(u"não_há");
  Control().PosDataField(u"5");
  Control().UserControl_Show();
  EXPECT_EQ(Control().PosDataField(), u"5");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(OrdinalTest, DoesNothingWithoutNamesDataControlOrConfiguration) {
  data->RecordSource(u"");
  Control().UserControl_Show();
  for (const auto& [source, column] : {std::pair{u"dtcDados", u""},
                                       {u"", u"codigo"},
                                       {u"dtcNada", u"codigo"},
                                       {u"DTCDADOS", u"codigo"}}) {
    const auto fresh = AddField(String(u"txt") + source + column);
    (*fresh)->DataSource(source);
    (*fresh)->DataField(column);
    (*fresh)->UserControl_Show();
    EXPECT_EQ((*fresh)->PosDataField(), u"");
  }
  EXPECT_EQ(data->Refreshes(), 0);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(OrdinalTest, AControlWithoutRowsIsReportedUnderTheNameOfTheSearch) {
  form->Add<memory::Label>(u"lblNome");
  Control().DataSource(u"lblNome");
  Control().UserControl_Show();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(438), u"AchaObjetos")));
  EXPECT_TRUE(Control().Carregou());  // the show itself continued
}

// The designer also opens forms without a database: the property page reports the error.
TEST_F(OrdinalTest, ThePropertyPageReportsRowsThatCannotBeOpened) {
  const HostError refused(errors::ProviderError, u"servidor parado");
  connection->FailNext(refused);
  connection->FailNext(refused);
  Control().UserControl_Show();
  EXPECT_THAT(app.Boxes(), IsEmpty());
  EXPECT_EQ(Control().DesignTimeError(), u"servidor parado");
  EXPECT_TRUE(Control().Carregou());
}

TEST_F(OrdinalTest, AFailureOfTheRowsIsRepairedByOpeningThemAgain) {
  connection->FailNext(HostError(errors::ProviderError, u"servidor parado"));
  Control().UserControl_Show();
  EXPECT_THAT(app.Boxes(), IsEmpty());
  EXPECT_EQ(Control().PosDataField(), u"1");
}

}  // namespace
}  // namespace tessaria::test
