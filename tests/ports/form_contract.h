// Contract of every host's form. See text_box_contract.h for how a host joins in.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/host/form.h"
#include "tessaria/tstext_interface.h"
#include "tests/ports/error_of.h"

namespace tessaria::contract {

/// A form that is not yet shown, with these controls in this order of creation:
///
///   lblCodigo   Label          caption "Código"
///   txtCodigo   tsText
///   tabDados    SSTab          two tabs, 0 in front
///   fraDados    Frame          on the form
///   txtNome     tsText         on fraDados
///   btnGravar   CommandButton
///
/// It has no `dbForm`.
class FormDriver {
 public:
  FormDriver() = default;
  FormDriver(const FormDriver&) = delete;
  FormDriver& operator=(const FormDriver&) = delete;
  virtual ~FormDriver() = default;

  virtual host::Form& Form() = 0;
  virtual void DbForm(const Variant& connection) = 0;
  /// Ties a field to a data control, which need not have rows.
  virtual void Bind(const String& field) = 0;

  virtual void Show() = 0;
  virtual void Hide() = 0;
  virtual void Close() = 0;

  /// Moves the focus to a control as a mouse press on it does; a button is pressed.
  virtual void Click(const String& control) = 0;
  virtual void PressTab(bool backwards) = 0;
  virtual void Type(const String& text) = 0;
  /// Presses the key of a letter. It is released wherever the focus is by then.
  virtual void Hold(char16_t letter) = 0;
  virtual void Release(char16_t letter) = 0;
  /// Puts a text without a key into a field that has the focus.
  virtual void Insert(const String& field, const String& text) = 0;
  /// Triggers the shortcut of an action named acSalvar.
  virtual void RunAction() = 0;
  virtual void HandleAction(std::function<void()> action) = 0;
  virtual void CloseByFrame() = 0;
  /// Gives a field's box the focus by program.
  virtual void TakeFocus(const String& field) = 0;

  /// The application's handlers of a field.
  struct Handlers {
    std::function<void()> Show;
    std::function<void()> Key;  ///< any of the three key events
    std::function<void(bool HouveAlteracao)> BrowseReturn;
    std::function<void()> KeyUp = nullptr;
  };
  virtual void Handle(const String& field, Handlers handlers) = 0;
  virtual void HandleClick(const String& button, std::function<void()> click) = 0;

  /// How many errors left a handler and were shown as unhandled.
  virtual int UnhandledErrors() const = 0;
  /// Texts of the boxes since the last call.
  virtual std::vector<String> TakeBoxes() = 0;
};

struct FormHost {
  const char* name;
  std::function<std::unique_ptr<FormDriver>()> make;
  friend void PrintTo(const FormHost& host, std::ostream* out) { *out << host.name; }
};

class FormContract : public testing::TestWithParam<FormHost> {
 protected:
  void SetUp() override {
    driver_ = GetParam().make();
    ASSERT_NE(driver_, nullptr);
  }

  FormDriver& Driver() { return *driver_; }
  host::Form& Form() { return driver_->Form(); }
  host::WidgetPtr Control(const String& name) { return Form().Controls(name); }
  template <class Port>
  std::shared_ptr<Port> ControlAs(const String& name) {
    return std::dynamic_pointer_cast<Port>(Control(name));
  }
  String ActiveName() {
    const auto active = Form().ActiveControl();
    return active ? active->Name() : u"";
  }
  /// Counts the settlings of a field in `settled_`.
  void CountSettlings(const String& field) {
    Driver().Handle(field, {nullptr, nullptr, [this, field](bool) { settled_.push_back(field); }});
  }

  std::vector<String> settled_;
  std::unique_ptr<FormDriver> driver_;
};

// --- Controls by name -------------------------------------------------------------------------

TEST_P(FormContract, ControlsAreFoundWithoutRegardToCase) {
  EXPECT_EQ(Control(u"TXTCODIGO")->Name(), u"txtCodigo");
  EXPECT_EQ(Control(u"txtcodigo")->Name(), u"txtCodigo");
}

TEST_P(FormContract, TheErrorNamesAnUnknownControl) {
  try {
    Form().Controls(u"txtNada");
    FAIL();
  } catch (const HostError& error) {
    EXPECT_EQ(error.Description(), u"Controle não encontrado: 'txtNada'");
  }
}

TEST_P(FormContract, ACaptionHasNoMnemonicSign) {
  Control(u"lblCodigo")->Let(u"Caption", u"Có&digo && nome");
  EXPECT_EQ(ControlAs<host::Label>(u"lblCodigo")->Caption(), u"Código & nome");
  EXPECT_EQ(*Control(u"lblCodigo")->Get(u"Caption").TryGet<String>(), u"Código & nome");
}

TEST_P(FormContract, AnUnknownControlIsError730) {
  EXPECT_EQ(ErrorOf([&] { Form().Controls(u"txtNada"); }), errors::ControlNotFound);
  EXPECT_EQ(ErrorOf([&] { Form().Controls(u""); }), errors::ControlNotFound);
}

TEST_P(FormContract, ControlsAreListedInOrderOfCreation) {
  std::vector<String> names;
  for (const auto& control : Form().Controls()) names.push_back(control->Name());
  EXPECT_THAT(names, testing::ElementsAre(u"lblCodigo", u"txtCodigo", u"tabDados", u"fraDados",
                                          u"txtNome", u"btnGravar"));
}

TEST_P(FormContract, TypeNamesAreThoseOfTheControls) {
  const std::pair<const char16_t*, const char16_t*> types[] = {
      {u"lblCodigo", u"Label"}, {u"txtCodigo", u"tsText"}, {u"tabDados", u"SSTab"},
      {u"fraDados", u"Frame"},  {u"txtNome", u"tsText"},   {u"btnGravar", u"CommandButton"},
  };
  for (const auto& [name, type] : types) EXPECT_EQ(Control(name)->TypeName(), type);
  EXPECT_EQ(Form().TypeName(), u"Form");
}

TEST_P(FormContract, ContainersLeadToTheForm) {
  const auto frame = Control(u"txtNome")->Container();
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->Name(), u"fraDados");
  const auto form = frame->Container();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(form->TypeName(), u"Form");
  EXPECT_EQ(form->Container(), nullptr);
  EXPECT_EQ(Control(u"lblCodigo")->Container()->TypeName(), u"Form");
}

// --- Properties by name -----------------------------------------------------------------------

TEST_P(FormContract, AFormWithoutDbFormRaises438) {
  EXPECT_EQ(ErrorOf([&] { Form().Get(u"dbForm"); }), errors::NoSuchMember);
}

TEST_P(FormContract, AnEmptyDbFormIsEmpty) {
  Driver().DbForm(Variant());
  EXPECT_TRUE(Form().Get(u"dbForm").IsEmpty());
}

TEST_P(FormContract, DbFormYieldsItsObjectWithoutRegardToCase) {
  const auto object = std::make_shared<host::Picture>();
  Driver().DbForm(object);
  EXPECT_EQ(Form().Get(u"DBFORM").As<Object>(), object);
}

TEST_P(FormContract, AnUnknownPropertyIsError438) {
  EXPECT_EQ(ErrorOf([&] { Control(u"txtCodigo")->Get(u"Nada"); }), errors::NoSuchMember);
  EXPECT_EQ(ErrorOf([&] { Control(u"lblCodigo")->Get(u"Nada"); }), errors::NoSuchMember);
  EXPECT_EQ(ErrorOf([&] { Control(u"lblCodigo")->Let(u"Nada", 1); }), errors::NoSuchMember);
}

TEST_P(FormContract, AFieldsValueIsReachedByName) {
  Driver().Show();
  Control(u"txtCodigo")->Let(u"value", u"abc");
  EXPECT_EQ(*Control(u"txtCodigo")->Get(u"Value").TryGet<String>(), u"abc");
  EXPECT_EQ(*ControlAs<host::TsTextWidget>(u"txtCodigo")->Control().Value().TryGet<String>(),
            u"abc");
}

// --- Plain controls ---------------------------------------------------------------------------

TEST_P(FormContract, ALabelKeepsItsLooks) {
  const auto label = ControlAs<host::Label>(u"lblCodigo");
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->Caption(), u"Código");
  label->ForeColor(0xFF0000);
  label->FontBold(true);
  EXPECT_EQ(label->ForeColor(), 0xFF0000u);
  EXPECT_TRUE(label->FontBold());
  label->ForeColor(0x80000008);
  EXPECT_EQ(label->ForeColor(), 0x80000008u);
}

TEST_P(FormContract, ATabStripCountsFrom0) {
  const auto strip = ControlAs<host::TabStrip>(u"tabDados");
  ASSERT_NE(strip, nullptr);
  EXPECT_EQ(strip->Tab(), 0);
  EXPECT_TRUE(strip->TabVisible(1));
  strip->Tab(1);
  EXPECT_EQ(strip->Tab(), 1);
}

TEST_P(FormContract, ANumberThatIsNoTabIsError380) {
  const auto strip = ControlAs<host::TabStrip>(u"tabDados");
  ASSERT_NE(strip, nullptr);
  EXPECT_EQ(ErrorOf([&] { strip->TabVisible(2); }), errors::InvalidPropertyValue);
  EXPECT_EQ(ErrorOf([&] { strip->TabVisible(-1); }), errors::InvalidPropertyValue);
}

// --- Showing and closing ----------------------------------------------------------------------

TEST_P(FormContract, AFormIsVisibleFromItsShowToItsClose) {
  EXPECT_FALSE(Form().Visible());
  Driver().Show();
  EXPECT_TRUE(Form().Visible());
  Driver().Close();
  EXPECT_FALSE(Form().Visible());
}

TEST_P(FormContract, TheFirstShowGoesToEveryFieldOnce) {
  int codeEvents = 0;
  int nameEvents = 0;
  Driver().Handle(u"txtCodigo", {[&] { ++codeEvents; }, nullptr, nullptr});
  Driver().Handle(u"txtNome", {[&] { ++nameEvents; }, nullptr, nullptr});
  Driver().Show();
  EXPECT_EQ(codeEvents, 1);
  EXPECT_EQ(nameEvents, 1);
  Driver().Hide();
  Driver().Show();
  EXPECT_EQ(codeEvents, 1);
  EXPECT_EQ(nameEvents, 1);
}

TEST_P(FormContract, UnboundFieldsShowBeforeBoundOnes) {
  std::vector<String> order;
  Driver().Bind(u"txtCodigo");
  Driver().Handle(u"txtCodigo", {[&] { order.push_back(u"txtCodigo"); }, nullptr, nullptr});
  Driver().Handle(u"txtNome", {[&] { order.push_back(u"txtNome"); }, nullptr, nullptr});
  Driver().Show();
  EXPECT_THAT(order, testing::ElementsAre(u"txtNome", u"txtCodigo"));
}

TEST_P(FormContract, BoundKeysShowFirstAndBoundDescriptionsLast) {
  // Kinds: 0 a plain field, 1 a key, 3 a description.
  const struct {
    Long codeKind;
    Long nameKind;
    bool nameFirst;
  } cases[] = {{3, 1, true}, {0, 1, true}, {3, 0, true}, {1, 3, false}, {1, 1, false}};
  for (const auto& row : cases) {
    driver_ = nullptr;  // a host is destroyed before the next one is made
    driver_ = GetParam().make();
    std::vector<String> order;
    Control(u"txtCodigo")->Let(u"TipoControle", row.codeKind);
    Control(u"txtNome")->Let(u"TipoControle", row.nameKind);
    for (const char16_t* name : {u"txtCodigo", u"txtNome"}) {
      Driver().Bind(name);
      Driver().Handle(name, {[&order, name] { order.push_back(name); }, nullptr, nullptr});
    }
    Driver().Show();
    const String first = row.nameFirst ? u"txtNome" : u"txtCodigo";
    ASSERT_EQ(order.size(), 2u);
    EXPECT_EQ(order.front(), first) << row.codeKind << " and " << row.nameKind;
  }
}

TEST_P(FormContract, AWidgetOfAClosedFormRaises91) {
  Driver().Show();
  const auto label = ControlAs<host::Label>(u"lblCodigo");
  const auto field = ControlAs<host::TsTextWidget>(u"txtCodigo");
  Driver().Close();
  EXPECT_EQ(ErrorOf([&] { label->Caption(); }), errors::ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { label->ForeColor(0); }), errors::ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { label->Name(); }), errors::ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { label->Container(); }), errors::ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { field->Get(u"Value"); }), errors::ObjectNotSet);
  EXPECT_EQ(ErrorOf([&] { field->Control(); }), errors::ObjectNotSet);
}

// --- The focus --------------------------------------------------------------------------------

TEST_P(FormContract, NothingIsActiveBeforeTheShow) { EXPECT_EQ(Form().ActiveControl(), nullptr); }

TEST_P(FormContract, TheActiveControlHasTheFocus) {
  Driver().Show();
  Driver().Click(u"txtNome");
  EXPECT_EQ(ActiveName(), u"txtNome");
  Driver().Click(u"txtCodigo");
  EXPECT_EQ(ActiveName(), u"txtCodigo");
}

TEST_P(FormContract, TheActiveControlIsTheNewOneWhileTheOldOneIsLeft) {
  Driver().Show();
  Driver().Click(u"txtCodigo");
  String active;
  Driver().Handle(u"txtCodigo", {nullptr, nullptr, [&](bool) { active = ActiveName(); }});
  Driver().Click(u"txtNome");
  EXPECT_EQ(active, u"txtNome");
}

TEST_P(FormContract, APressedButtonIsTheActiveControlWhileTheFieldIsLeft) {
  Driver().Show();
  Driver().Click(u"txtCodigo");
  String type;
  bool clicked = false;
  Driver().Handle(u"txtCodigo", {nullptr, nullptr, [&](bool) {
                                   type = Form().ActiveControl()->TypeName();
                                   EXPECT_FALSE(clicked);
                                 }});
  Driver().HandleClick(u"btnGravar", [&] { clicked = true; });
  Driver().Click(u"btnGravar");
  EXPECT_EQ(type, u"CommandButton");
  EXPECT_TRUE(clicked);
}

TEST_P(FormContract, LeavingAFieldSettlesItOnce) {
  Driver().Show();
  Driver().Click(u"txtCodigo");
  CountSettlings(u"txtCodigo");
  CountSettlings(u"txtNome");
  Driver().Type(u"abc");
  Driver().Click(u"txtNome");
  EXPECT_THAT(settled_, testing::ElementsAre(u"txtCodigo"));
  EXPECT_EQ(*Control(u"txtCodigo")->Get(u"Value").TryGet<String>(), u"abc");
}

TEST_P(FormContract, AFieldThatTakesTheFocusBackKeepsBothEventsFromTheOther) {
  Driver().Show();
  Driver().Click(u"txtCodigo");
  bool first = true;
  Driver().Handle(u"txtCodigo", {nullptr, nullptr, [&](bool) {
                                   settled_.push_back(u"txtCodigo");
                                   if (std::exchange(first, false)) {
                                     Driver().TakeFocus(u"txtCodigo");
                                   }
                                 }});
  CountSettlings(u"txtNome");
  Driver().Click(u"txtNome");
  EXPECT_EQ(ActiveName(), u"txtCodigo");
  EXPECT_THAT(settled_, testing::ElementsAre(u"txtCodigo"));
  // The field is entered again, so it is left again.
  Driver().Click(u"txtNome");
  EXPECT_EQ(ActiveName(), u"txtNome");
  EXPECT_THAT(settled_, testing::ElementsAre(u"txtCodigo", u"txtCodigo"));
}

TEST_P(FormContract, AButtonIsNotPressedWhenTheFieldTakesTheFocusBack) {
  Driver().Show();
  Driver().Click(u"txtCodigo");
  bool clicked = false;
  Driver().Handle(u"txtCodigo",
                  {nullptr, nullptr, [&](bool) { Driver().TakeFocus(u"txtCodigo"); }});
  Driver().HandleClick(u"btnGravar", [&] { clicked = true; });
  Driver().Click(u"btnGravar");
  EXPECT_FALSE(clicked);
  EXPECT_EQ(ActiveName(), u"txtCodigo");
}

TEST_P(FormContract, OnlyTheReleaseOfATabReachesTheFieldThatGetsTheFocus) {
  Driver().Show();
  int keys = 0;
  Driver().Handle(u"txtCodigo", {nullptr, [&] { ++keys; }, nullptr});
  Driver().Click(u"txtNome");
  while (ActiveName() != u"txtCodigo") Driver().PressTab(true);
  EXPECT_EQ(keys, 1);
  Driver().PressTab(false);
  EXPECT_NE(ActiveName(), u"txtCodigo");
  EXPECT_EQ(keys, 1);
}

TEST_P(FormContract, KeysReachTheFieldInFocusAlone) {
  Driver().Show();
  int codeEvents = 0;
  int nameEvents = 0;
  Driver().Handle(u"txtCodigo", {nullptr, [&] { ++codeEvents; }, nullptr});
  Driver().Handle(u"txtNome", {nullptr, [&] { ++nameEvents; }, nullptr});
  Driver().Click(u"txtNome");
  Driver().Type(u"a");
  EXPECT_EQ(codeEvents, 0);
  EXPECT_EQ(nameEvents, 3);
}

// --- Handlers that fail or close the form -----------------------------------------------------

TEST_P(FormContract, AnErrorThatLeavesAHandlerIsShownAndTheFormGoesOn) {
  Driver().Show();
  Driver().Click(u"txtNome");
  Driver().HandleClick(u"btnGravar", [] { throw HostError(errors::InvalidArgument); });
  Driver().Click(u"btnGravar");
  EXPECT_EQ(Driver().UnhandledErrors(), 1);
  Driver().Click(u"txtNome");
  EXPECT_EQ(ActiveName(), u"txtNome");
}

TEST_P(FormContract, AFormMayBeClosedWhileAFieldIsLeft) {
  Driver().Show();
  Driver().Click(u"txtCodigo");
  Driver().Handle(u"txtCodigo", {nullptr, nullptr, [&](bool) { Driver().Close(); }});
  Driver().Click(u"txtNome");
  EXPECT_FALSE(Form().Visible());
}

TEST_P(FormContract, AFormMayBeClosedByAKey) {
  Driver().Show();
  Driver().Click(u"txtCodigo");
  Driver().Handle(u"txtCodigo", {nullptr, [&] { Driver().Close(); }, nullptr});
  Driver().Type(u"abc");
  EXPECT_FALSE(Form().Visible());
}

TEST_P(FormContract, AFormMayBeClosedByItsButton) {
  Driver().Show();
  Driver().HandleClick(u"btnGravar", [&] { Driver().Close(); });
  Driver().Click(u"btnGravar");
  EXPECT_FALSE(Form().Visible());
}

}  // namespace tessaria::contract
