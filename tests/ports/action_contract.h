// Contract of every host's form for keys and actions: which box gets a key-up, and what is settled
// first.
#pragma once

#include "tests/ports/form_contract.h"

namespace tessaria::contract {

// --- Keys and the box that they belong to -----------------------------------------------------

const char16_t kCompletionIsNotSetUp[] =
    u"Propriedades da Browse Não Informadas Corretamente. Contate o Administrador de Sistema.";

/// A description without a table reports at every key-up of its box that it cannot search.
class KeyContract : public FormContract {
 protected:
  void ShowDescription() {
    Driver().Show();
    Control(u"txtCodigo")->Let(u"TipoControle", 3);
    Driver().Handle(u"txtCodigo", {nullptr, nullptr, nullptr, [this] { ++ups_; }});
  }
  int ups_ = 0;
};

TEST_P(KeyContract, AKeyPressedAndReleasedInABoxIsAKeyUpOfIt) {
  ShowDescription();
  Driver().Click(u"txtCodigo");
  Driver().Type(u"a");
  EXPECT_THAT(Driver().TakeBoxes(), testing::ElementsAre(kCompletionIsNotSetUp));
  EXPECT_EQ(ups_, 1);
}

TEST_P(KeyContract, TheTabThatBringsTheFocusIsNoKeyUpOfTheBox) {
  ShowDescription();
  Driver().Click(u"txtNome");
  while (ActiveName() != u"txtCodigo") Driver().PressTab(true);
  EXPECT_THAT(Driver().TakeBoxes(), testing::IsEmpty());
  EXPECT_EQ(ups_, 1) << "the public event fires for every release";
}

TEST_P(KeyContract, AKeyThatWentDownElsewhereIsNoKeyUpOfTheBox) {
  ShowDescription();
  Driver().Click(u"txtNome");
  Driver().Hold(u'a');
  Driver().TakeFocus(u"txtCodigo");
  Driver().Release(u'a');
  EXPECT_THAT(Driver().TakeBoxes(), testing::IsEmpty());
  EXPECT_EQ(ups_, 1);
  EXPECT_EQ(*Control(u"txtNome")->Get(u"Text").TryGet<String>(), u"a");
}

TEST_P(KeyContract, AKeyHeldOverALeaveIsForgotten) {
  ShowDescription();
  Driver().Click(u"txtCodigo");
  Driver().Hold(u'a');
  Driver().TakeFocus(u"txtNome");
  Driver().TakeFocus(u"txtCodigo");
  Driver().Release(u'a');
  EXPECT_THAT(Driver().TakeBoxes(), testing::IsEmpty());
  EXPECT_EQ(ups_, 1);
}

TEST_P(KeyContract, TextWithoutAKeyIsFollowedByOneKeyUp) {
  ShowDescription();
  Driver().Click(u"txtCodigo");
  Driver().Insert(u"txtCodigo", u"abc");
  EXPECT_EQ(*Control(u"txtCodigo")->Get(u"Text").TryGet<String>(), u"abc");
  EXPECT_THAT(Driver().TakeBoxes(), testing::ElementsAre(kCompletionIsNotSetUp));
  EXPECT_EQ(ups_, 1);
}

// --- Paths ------------------------------------------------------------------------------------

TEST_P(FormContract, APathWithoutASeparatorIsAnErrorOfTheEventAndStays) {
  Driver().Show();
  Control(u"txtCodigo")->Let(u"TipoControle", 4);
  Driver().Click(u"txtCodigo");
  const int before = Driver().UnhandledErrors();
  Driver().Type(u"a");
  EXPECT_EQ(*Control(u"txtCodigo")->Get(u"Text").TryGet<String>(), u"a");
  EXPECT_EQ(Driver().UnhandledErrors(), before + 1);
  Control(u"txtCodigo")->Let(u"Value", u"b");
  EXPECT_EQ(*Control(u"txtCodigo")->Get(u"Value").TryGet<String>(), u"b");
  EXPECT_EQ(*Control(u"txtCodigo")->Get(u"Text").TryGet<String>(), u"b");
  EXPECT_GT(Driver().UnhandledErrors(), before + 1);
}

// --- Actions, which take no focus -------------------------------------------------------------

class ActionContract : public FormContract {
 protected:
  /// Shows the form with the focus in a field of the mask.
  void ShowField(const String& mask = u"") {
    Driver().Show();
    Control(u"txtCodigo")->Let(u"UsaChecaRelacao", false);
    Control(u"txtCodigo")->Let(u"Mascara", mask);
    Driver().TakeFocus(u"txtCodigo");
    Driver().HandleAction([this] {
      ++runs_;
      seen_ = *ValueOf(u"txtCodigo").TryGet<String>();
    });
  }
  Variant ValueOf(const String& field) {
    const Variant value = Control(field)->Get(u"Value");
    return value.TryGet<String>() ? value : Variant(u"");
  }
  int runs_ = 0;
  String seen_;  ///< the value of the field when the action ran
};

TEST_P(ActionContract, TheFieldIsSettledBeforeAnAction) {
  ShowField();
  String active;
  Driver().Handle(u"txtCodigo", {nullptr, nullptr, [&](bool) {
                                   active =
                                       ActiveName() + u" " + Form().ActiveControl()->TypeName();
                                 }});
  Driver().Type(u"abc");
  Driver().RunAction();
  EXPECT_EQ(runs_, 1);
  EXPECT_EQ(seen_, u"abc");
  EXPECT_EQ(active, u"acSalvar CommandButton");
  EXPECT_EQ(ActiveName(), u"txtCodigo");
}

TEST_P(ActionContract, ARefusedTextHoldsTheActionBack) {
  ShowField(u"dd/mm/yyyy");
  Driver().Type(u"31022017");
  Driver().RunAction();
  EXPECT_EQ(runs_, 0);
  EXPECT_EQ(Driver().TakeBoxes().size(), 1u);
  EXPECT_EQ(ActiveName(), u"txtCodigo");
}

TEST_P(ActionContract, ARequiredBlankHoldsTheActionBack) {
  ShowField();
  Control(u"txtCodigo")->Let(u"PodeSerBranco", false);
  Driver().RunAction();
  EXPECT_EQ(runs_, 0);
  EXPECT_THAT(Driver().TakeBoxes(),
              testing::ElementsAre(u"Não Pode Ser Branco, Verifique Por Favor"));
}

TEST_P(ActionContract, AFieldThatIsUnchangedSinceItWasEnteredIsNotDisturbed) {
  ShowField();
  CountSettlings(u"txtCodigo");
  Driver().RunAction();
  EXPECT_EQ(runs_, 1);
  EXPECT_THAT(settled_, testing::IsEmpty());
}

TEST_P(ActionContract, AValueThatAProgramHasAssignedIsSettledBeforeAnAction) {
  ShowField();
  CountSettlings(u"txtCodigo");
  Control(u"txtCodigo")->Let(u"Value", u"abc");
  Driver().RunAction();
  EXPECT_EQ(seen_, u"abc");
  EXPECT_THAT(settled_, testing::ElementsAre(u"txtCodigo"));
}

/// An amount that its box shows rounded.
class RoundedAmountContract : public ActionContract {
 protected:
  void SetUp() override {
    ActionContract::SetUp();
    ShowField(u"$$$.$$");
    Driver().Click(u"txtNome");
    Control(u"txtCodigo")->Let(u"TipoDado", 5);
    Control(u"txtCodigo")->Let(u"Value", 1.239);
    while (ActiveName() != u"txtCodigo") Driver().PressTab(true);
    EXPECT_EQ(Amount(), 1.239);
    CountSettlings(u"txtCodigo");
  }
  double Amount() { return *Control(u"txtCodigo")->Get(u"Value").TryGet<double>(); }
};

TEST_P(RoundedAmountContract, ThatIsTypedAgainAsItIsShownIsSettledBeforeAnAction) {
  double seen = 0;
  Driver().HandleAction([&] { seen = Amount(); });
  Driver().Type(u"1,24");
  Driver().RunAction();
  EXPECT_EQ(seen, 1.24);
  EXPECT_THAT(settled_, testing::ElementsAre(u"txtCodigo"));
}

TEST_P(RoundedAmountContract, ThatIsTypedAgainAsItIsShownIsSettledByTheFrame) {
  Driver().Type(u"1,24");
  Driver().CloseByFrame();
  EXPECT_FALSE(Form().Visible());
  EXPECT_THAT(settled_, testing::ElementsAre(u"txtCodigo"));
}

TEST_P(RoundedAmountContract, ThatNobodyTypesIsNotDisturbed) {
  Driver().RunAction();
  EXPECT_EQ(runs_, 1);
  EXPECT_EQ(Amount(), 1.239);
  EXPECT_THAT(settled_, testing::IsEmpty());
}

TEST_P(ActionContract, TheActionThatCancelsRunsWithoutSettling) {
  ShowField(u"dd/mm/yyyy");
  Control(u"txtCodigo")->Let(u"ObjetoCancelar", u"ACSALVAR");
  CountSettlings(u"txtCodigo");
  Driver().Type(u"31022017");
  Driver().RunAction();
  EXPECT_EQ(runs_, 1);
  EXPECT_THAT(Driver().TakeBoxes(), testing::IsEmpty());
  EXPECT_THAT(settled_, testing::IsEmpty());
}

TEST_P(ActionContract, ARefusedTextKeepsTheFormOpen) {
  ShowField(u"dd/mm/yyyy");
  Driver().Type(u"31022017");
  Driver().CloseByFrame();
  EXPECT_TRUE(Form().Visible());
  EXPECT_EQ(Driver().TakeBoxes().size(), 1u);
}

TEST_P(ActionContract, ClosingByTheFrameSettlesTheField) {
  ShowField();
  CountSettlings(u"txtCodigo");
  Driver().Type(u"abc");
  Driver().CloseByFrame();
  EXPECT_FALSE(Form().Visible());
  EXPECT_THAT(settled_, testing::ElementsAre(u"txtCodigo"));
}

TEST_P(ActionContract, ARequiredBlankDoesNotKeepTheFormOpen) {
  ShowField();
  Control(u"txtCodigo")->Let(u"PodeSerBranco", false);
  Driver().CloseByFrame();
  EXPECT_FALSE(Form().Visible());
}

}  // namespace tessaria::contract
