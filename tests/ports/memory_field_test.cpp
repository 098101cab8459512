// Whole fields on a form of the memory host: key order, first show, design time, closing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/property_bag.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"

namespace tessaria::memory {
namespace {

using Kind = ControlEvent::Kind;
using testing::ElementsAre;

class MemoryField : public testing::Test {
 protected:
  std::shared_ptr<TsText> Field(const String& name) { return form_->Add<TsText>(name); }

  std::shared_ptr<Connection> Customers() {
    auto connection = Connection::CreateOpen();
    connection->AddTable(u"Cliente", {{.Name = u"Nome", .DefinedSize = 30}},
                         {{u"Ana"}, {u"Bruno"}});
    return connection;
  }

  Application application_;
  std::shared_ptr<Form> form_ = Form::Create(u"frmCliente");
};

TEST_F(MemoryField, AKeyComesToTheSurfaceAndThenToTheBox) {
  const auto field = Field(u"txtNome");
  std::vector<std::string> order;
  field->OnKeyDown = [&](Integer&, Integer&) { order.push_back("down"); };
  field->OnKeyPress = [&](Integer&) { order.push_back("press"); };
  field->OnChange = [&] { order.push_back("change"); };
  field->OnKeyUp = [&](Integer&, Integer&) { order.push_back("up"); };
  form_->Show();
  form_->Type(u"a");
  EXPECT_THAT(order, ElementsAre("down", "press", "change", "up"));
  EXPECT_EQ(field->txtEdit().Text(), u"a");
}

TEST_F(MemoryField, AKeyThatTheSurfaceSwallowsDoesNotReachTheBox) {
  const auto field = Field(u"txtNome");
  field->OnKeyPress = [](Integer& code) { code = 0; };
  form_->Show();
  form_->Type(u"a");
  EXPECT_EQ(field->txtEdit().Text(), u"");
}

TEST_F(MemoryField, LeavingAFieldTurnsItsTextIntoItsValue) {
  const auto field = Field(u"txtNome");
  Field(u"txtOutro");
  form_->Show();
  form_->Type(u"Ana");
  form_->Press(Key::Tab);
  EXPECT_EQ(CStr((*field)->Value()), u"Ana");
  const auto settled = field->Events(Kind::BrowseReturn);
  ASSERT_EQ(settled.size(), 1u);
  EXPECT_TRUE(settled[0].HouveAlteracao);
}

TEST_F(MemoryField, ADataControlLoadsBeforeTheFields) {
  const auto field = Field(u"txtNome");
  (*field)->DataSource(u"dcCliente");
  (*field)->DataField(u"NOME");
  const auto data = form_->Add<DataControl>(u"dcCliente");
  data->Connect(Customers(), u"Cliente");
  form_->Show();
  EXPECT_EQ(field->txtEdit().Text(), u"Ana");
  data->RecordSet()->MoveNext();
  (*field)->Refresh();
  EXPECT_EQ(field->txtEdit().Text(), u"Bruno");
  EXPECT_TRUE(application_.Boxes().empty());
}

TEST_F(MemoryField, AFieldInTheDesignerShowsWithoutItsEvent) {
  const auto form = Form::Create(u"frmDesenho", Form::Mode::Design);
  const auto field = form->Add<TsText>(u"txtNome");
  (*field)->DataSource(u"dcCliente");
  (*field)->DataField(u"Nome");
  const auto data = form->Add<DataControl>(u"dcCliente");
  data->Connect(Customers(), u"Cliente");
  data->Refresh();
  form->Show();
  EXPECT_TRUE(field->Events(Kind::Show).empty());
  EXPECT_EQ((*field)->hWnd(), 0);
  EXPECT_EQ(data->Refreshes(), 1) << "a form in the designer loads no rows by itself";
  EXPECT_EQ((*field)->PosDataField(), u"0");
}

TEST_F(MemoryField, PressingTheFieldsOwnButtonIsNoExit) {
  const auto field = Field(u"txtCodigo");
  (*field)->TipoControle(TipoControle::Browse);
  form_->DbForm(Customers());
  form_->Show();
  form_->Type(u"1");
  field->ForgetEvents();
  String active;
  application_.OnMessageBox = [&](const MessageBoxRecord&) {
    active = form_->ActiveControl()->Name();
  };
  EXPECT_TRUE(field->txtEdit().HasFocus());
  field->ClickButton();
  EXPECT_EQ(form_->ActiveControl()->Name(), u"txtCodigo");
  EXPECT_LE(field->Events(Kind::BrowseReturn).size(), 1u);
  EXPECT_EQ((*field)->Text(), u"1");
}

TEST_F(MemoryField, AFormClosedWhileABoxIsOpenEndsAfterTheEvent) {
  const auto field = Field(u"txtData");
  (*field)->Mascara(u"dd/mm/yyyy");
  Field(u"txtOutro");
  form_->Show();
  form_->Type(u"99999999");
  application_.OnMessageBox = [&](const MessageBoxRecord&) {
    form_->Close();
    EXPECT_NO_THROW((*field)->Text()) << "the control exists while its event runs";
    EXPECT_THROW(field->Control(), HostError);
  };
  form_->Press(Key::Tab);
  EXPECT_EQ(application_.Boxes().size(), 1u) << "nothing is shown for a form that is gone";
  EXPECT_FALSE(form_->Visible());
  EXPECT_THROW((*field)->Text(), HostError);
}

TEST_F(MemoryField, TheFormMayBeDestroyedWhileItsHandlerRuns) {
  const auto field = Field(u"txtNome");
  form_->Show();
  Form* const form = form_.get();
  field->OnKeyDown = [this](Integer&, Integer&) { form_.reset(); };
  form->Type(u"a");
  EXPECT_EQ(form_, nullptr);
}

TEST_F(MemoryField, AControlMayBeRemovedWhileItsHandlerRuns) {
  const auto field = Field(u"txtNome");
  form_->Show();
  field->OnKeyDown = [&](Integer&, Integer&) { form_->Remove(u"txtNome"); };
  form_->Type(u"a");
  EXPECT_EQ(form_->ActiveControl(), nullptr);
  EXPECT_THROW(form_->Controls(u"txtNome"), HostError);
}

TEST_F(MemoryField, EnterPressesTheDefaultButtonOnceTheFieldIsSettled) {
  const auto field = Field(u"txtNome");
  const auto button = form_->Add<Button>(u"btnGravar");
  button->Default = true;
  String value;
  button->OnClick = [&] { value = CStr((*field)->Value()); };
  form_->Show();
  form_->Type(u"Ana");
  form_->Press(Key::Enter);
  EXPECT_EQ(value, u"Ana");
}

TEST_F(MemoryField, EscapePressesTheCancelButton) {
  Field(u"txtNome");
  const auto button = form_->Add<Button>(u"btnSair");
  button->Cancel = true;
  button->OnClick = [&] { form_->Close(); };
  form_->Show();
  form_->Press(Key::Escape);
  EXPECT_TRUE(form_->IsClosed());
}

TEST_F(MemoryField, ADisabledFieldIsSkipped) {
  Field(u"txtA");
  const auto second = Field(u"txtB");
  Field(u"txtC");
  form_->Show();
  (*second)->Enabled(false);
  form_->Press(Key::Tab);
  EXPECT_EQ(form_->ActiveControl()->Name(), u"txtC");
  form_->Press(Key::Tab, modifier::Shift);
  EXPECT_EQ(form_->ActiveControl()->Name(), u"txtA");
}

TEST_F(MemoryField, AnErrorOfTheApplicationsHandlerIsShownAndTheKeyIsReleased) {
  const auto field = Field(u"txtNome");
  field->OnKeyDown = [](Integer&, Integer&) { throw HostError(errors::DivisionByZero); };
  form_->Show();
  form_->Type(u"a");
  ASSERT_EQ(form_->UnhandledErrors().size(), 1u);
  EXPECT_EQ(form_->UnhandledErrors()[0].Number(), errors::DivisionByZero);
  EXPECT_EQ(application_.Boxes().back().Text, ErrorDescription(errors::DivisionByZero));
  EXPECT_EQ(field->Events(Kind::KeyUp).size(), 1u);
}

TEST_F(MemoryField, AStoredFieldIsReadBackFromItsBag) {
  const auto field = Field(u"txtNome");
  (*field)->Mascara(u"0000");
  PropertyBag bag;
  (*field)->UserControl_WriteProperties(bag);
  EXPECT_TRUE(bag.Holds(u"mascara"));
  EXPECT_EQ(bag.Writes().front(), u"TipoControle");
  const auto copy = form_->Add<TsText>(u"txtCopia", bag);
  EXPECT_EQ((*copy)->Mascara(), u"0000");
  EXPECT_EQ(bag.Reads().front(), u"TipoControle");
}

TEST_F(MemoryField, ABagFailsOnDemand) {
  PropertyBag bag;
  bag.FailWrite(u"Mascara", HostError(errors::TypeMismatch));
  bag.FailRead(u"mascara", HostError(errors::TypeMismatch));
  EXPECT_THROW(bag.WriteProperty(u"MASCARA", u"0", Variant()), HostError);
  EXPECT_THROW(bag.ReadProperty(u"Mascara", Variant()), HostError);
  EXPECT_THAT(bag.Writes(), ElementsAre(u"MASCARA"));
}

}  // namespace
}  // namespace tessaria::memory
