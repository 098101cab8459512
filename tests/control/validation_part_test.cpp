// The rules of leaving, tested alone: focus, caption and column are plain state.

#include "control/validation.h"

#include "tests/control/part_fakes.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Verdict = Validation::Verdict;

struct FakeLeaving final : LeavingForm {
  bool OwnButtonIsActive() const override {
    if (askingFails) throw HostError(errors::ObjectNotSet);
    return ownButton;
  }
  host::WidgetPtr ActiveControl() const override { return active; }
  std::optional<String> Caption() const override { return caption; }
  host::FieldPtr Column() const override { return nullptr; }
  String Condition(const Browse& definition) const override { return definition.BrwWhere(); }

  bool askingFails = true, ownButton = false;
  host::WidgetPtr active;
  std::optional<String> caption;
};

class ValidationPartTest : public PartTest {
 protected:
  ValidationPartTest() {
    members.LastValidaStatus = true;
    members.PodeSerBranco = true;
    txtEdit.OnGotFocus = [this] { ++timesFocused; };
  }
  void PressButton(const String& name) {
    leaving.active = std::make_shared<FakeWidget>(name, u"CommandButton");
  }

  FakeLeaving leaving;
  Definitions lookup{members};
  Validation rules{site, box, members, members, members, lookup, leaving};
  int timesFocused = 0;
};

TEST_F(ValidationPartTest, AnyTextPassesWithoutRules) {
  txtEdit.Text(u"Ana");
  EXPECT_EQ(rules.Check(), Verdict::Passed);
  EXPECT_TRUE(members.LastValidaStatus);
}

TEST_F(ValidationPartTest, TheFieldsOwnButtonEscapesAndClearsTheStatus) {
  leaving.askingFails = false;
  leaving.ownButton = true;
  EXPECT_EQ(rules.Check(), Verdict::Escaped);
  EXPECT_FALSE(members.LastValidaStatus);
}

TEST_F(ValidationPartTest, TheCancellingControlEscapesWithoutRegardToCase) {
  members.PodeSerBranco = false;
  members.ObjetoCancelar = u"BTNSAIR";
  PressButton(u"btnSair");
  EXPECT_EQ(rules.Check(), Verdict::Escaped);
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(ValidationPartTest, ARequiredBlankIsRefusedOnTheWayToACommandButton) {
  members.PodeSerBranco = false;
  leaving.caption = u"Nome:";
  PressButton(u"btnGravar");
  EXPECT_EQ(rules.Check(), Verdict::Refused);
  EXPECT_THAT(Told(), ElementsAre(u"Nome: Não Pode Ser Branco, Verifique Por Favor"));
  EXPECT_FALSE(members.LastValidaStatus);
}

TEST_F(ValidationPartTest, ARequiredBlankAllowsTheFocusOnAnythingElse) {
  members.PodeSerBranco = false;
  leaving.active = std::make_shared<FakeWidget>(u"chkAtivo", u"CheckBox");
  EXPECT_EQ(rules.Check(), Verdict::Passed);
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(ValidationPartTest, ZerosAreABlankUnderANumericMaskOnly) {
  members.PodeSerBranco = false;
  txtEdit.Text(u"0,00");
  EXPECT_FALSE(rules.IsForbiddenBlank());
  Mask(u"$0,00", u"_");
  EXPECT_TRUE(rules.IsForbiddenBlank());
}

TEST_F(ValidationPartTest, AnAllowedBlankIsNeverForbidden) {
  EXPECT_FALSE(rules.IsForbiddenBlank());
}

TEST_F(ValidationPartTest, AnInvalidDateIsRefusedWithTheCaptionInFront) {
  Mask(u"dd/mm/yyyy", u"_/");
  leaving.caption = u"Data:";
  txtEdit.Text(u"31/02/2001");
  EXPECT_EQ(rules.Check(), Verdict::Refused);
  EXPECT_THAT(Told(), ElementsAre(u"Data: Invalido(a), Corrija Por Favor"));
  EXPECT_EQ(txtEdit.SelText(), u"31/02/2001");
}

TEST_F(ValidationPartTest, AnEmptyCaptionStillLeavesItsBlank) {
  Mask(u"dd/mm/yyyy", u"_/");
  leaving.caption = u"";
  txtEdit.Text(u"31/02/2001");
  rules.Check();
  EXPECT_THAT(Told(), ElementsAre(u" Invalido(a), Corrija Por Favor"));
}

TEST_F(ValidationPartTest, AnUntouchedStoredTextIsNotAnInvalidDate) {
  Mask(u"dd/mm/yyyy", u"_/");
  box.Display(u"infinity", FieldBox::What::StoredText);
  EXPECT_EQ(rules.Check(), Verdict::Passed);
  EXPECT_THAT(Told(), IsEmpty());
}

TEST_F(ValidationPartTest, AnotherFieldThatHasFailedKeepsTheFocus) {
  const auto other = std::make_shared<FakeControlWidget>();
  leaving.active = other;
  Mask(u"dd/mm/yyyy", u"_/");
  txtEdit.Text(u"31/02/2001");
  other->control.isValid = false;
  rules.Check();
  EXPECT_EQ(timesFocused, 0);
  other->control.isValid = true;
  rules.Check();
  EXPECT_EQ(timesFocused, 1);
}

TEST_F(ValidationPartTest, AnUnknownKeyIsRefused) {
  members.UsaChecaRelacao = true;
  lookup.BrowseTable(u"clientes");
  lookup.BrwCampo(u"codigo");
  txtEdit.Text(u"9");
  Database().OnStatement = [](const String&) { return memory::Rows{{{u"codigo"}}, {}}; };
  EXPECT_EQ(rules.Check(), Verdict::Refused);
  EXPECT_EQ(Told().size(), 1u);
  EXPECT_FALSE(members.LastValidaStatus);
}

TEST_F(ValidationPartTest, AKnownKeyIsShownAsStoredInTheTable) {
  members.UsaChecaRelacao = true;
  lookup.BrowseTable(u"clientes");
  lookup.BrwCampo(u"codigo");
  txtEdit.Text(u"ana");
  box.Shown().Remember(u"ana", u"ana", FieldBox::What::Value);
  Database().OnStatement = [](const String&) { return memory::Rows{{{u"codigo"}}, {{u"Ana"}}}; };
  EXPECT_EQ(rules.Check(), Verdict::Passed);
  EXPECT_EQ(txtEdit.Text(), u"Ana");
  EXPECT_FALSE(box.IsTouched());
}

TEST_F(ValidationPartTest, TheRelationCheckAloneShowsNoMessageAndKeepsTheStatus) {
  lookup.BrowseTable(u"clientes");
  lookup.BrwCampo(u"codigo");
  txtEdit.Text(u"9");
  Database().OnStatement = [](const String&) { return memory::Rows{{{u"codigo"}}, {}}; };
  EXPECT_FALSE(rules.RelationHolds());
  EXPECT_THAT(Told(), IsEmpty());
  EXPECT_TRUE(members.LastValidaStatus);
}

}  // namespace
}  // namespace tessaria::test
