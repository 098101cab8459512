// Runs the contracts of forms on the form of the memory host.
#include "tessaria/memory/form.h"

#include "tessaria/memory/application.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tests/ports/action_contract.h"

namespace tessaria::contract {
namespace {

class MemoryForm final : public FormDriver {
 public:
  MemoryForm() {
    form_->Add<memory::Label>(u"lblCodigo", u"Código");
    Field(u"txtCodigo");
    form_->Add<memory::TabStrip>(u"tabDados", Integer{2});
    const auto frame = form_->Add<memory::Generic>(u"fraDados", u"Frame");
    Field(u"txtNome").Settings().Container = frame->AsWidget();
    button_ = form_->Add<memory::Button>(u"btnGravar");
  }

  host::Form& Form() override { return *form_; }
  void DbForm(const Variant& connection) override { form_->DbForm(connection); }
  void Bind(const String& field) override {
    (*fields_[field])->DataSource(u"dcDados");
    (*fields_[field])->DataField(u"Codigo");
  }
  void Show() override { form_->Show(); }
  void Hide() override { form_->Hide(); }
  void Close() override { form_->Close(); }
  void Click(const String& control) override { form_->Click(control); }
  void PressTab(bool backwards) override {
    form_->Press(memory::Key::Tab, backwards ? memory::modifier::Shift : memory::modifier::None);
  }
  void Type(const String& text) override { form_->Type(text); }
  void Hold(char16_t letter) override { form_->Hold(memory::StrokesOf(letter).back()); }
  void Release(char16_t letter) override { form_->Release(memory::StrokesOf(letter).back()); }
  void Insert(const String& field, const String& text) override {
    form_->RunEvent([&] { fields_[field]->txtEdit().Insert(text); });
  }
  void RunAction() override { form_->RunAction(u"acSalvar", action_); }
  void HandleAction(std::function<void()> action) override { action_ = std::move(action); }
  void CloseByFrame() override { form_->CloseByFrame(); }
  void TakeFocus(const String& field) override { fields_[field]->txtEdit().SetFocus(); }
  void Handle(const String& field, Handlers handlers) override {
    auto& control = *fields_[field];
    control.OnShow = handlers.Show;
    control.OnKeyDown = [key = handlers.Key](Integer&, Integer&) {
      if (key) key();
    };
    control.OnKeyUp = [key = handlers.Key, up = handlers.KeyUp](Integer&, Integer&) {
      if (key) key();
      if (up) up();
    };
    control.OnKeyPress = [key = handlers.Key](Integer&) {
      if (key) key();
    };
    control.OnBrowseReturn = [settled = handlers.BrowseReturn](bool& changed, Variant&) {
      if (settled) settled(changed);
    };
  }
  void HandleClick(const String&, std::function<void()> click) override {
    button_->OnClick = std::move(click);
  }
  int UnhandledErrors() const override { return static_cast<int>(form_->UnhandledErrors().size()); }
  std::vector<String> TakeBoxes() override {
    std::vector<String> texts;
    for (const auto& box : application_.TakeBoxes()) texts.push_back(box.Text);
    return texts;
  }

 private:
  memory::TsText& Field(const String& name) {
    return *(fields_[name] = form_->Add<memory::TsText>(name));
  }

  memory::Application application_;
  std::shared_ptr<memory::Form> form_ = memory::Form::Create(u"frmDados");
  std::map<String, std::shared_ptr<memory::TsText>> fields_;
  std::shared_ptr<memory::Button> button_;
  std::function<void()> action_;
};

const FormHost kMemory{"memory", [] { return std::make_unique<MemoryForm>(); }};

INSTANTIATE_TEST_SUITE_P(Memory, FormContract, testing::Values(kMemory));
INSTANTIATE_TEST_SUITE_P(Memory, KeyContract, testing::Values(kMemory));
INSTANTIATE_TEST_SUITE_P(Memory, ActionContract, testing::Values(kMemory));
INSTANTIATE_TEST_SUITE_P(Memory, RoundedAmountContract, testing::Values(kMemory));

}  // namespace
}  // namespace tessaria::contract
