// Runs the contract of surfaces on the memory host: in a frame, and in a dialog. The box of a
// surface's widget passes the contract of text boxes too.
#include <map>

#include "tessaria/memory/application.h"
#include "tests/ports/dialog_contract.h"
#include "tests/ports/memory_keys.h"
#include "tests/ports/text_box_edit_contract.h"
#include "tests/ports/text_box_typing_contract.h"
#include "tests/support/printers.h"
#include "tests/support/test_desktop.h"

namespace tessaria::contract {
namespace {

class MemoryOperator final : public Operator {
 public:
  explicit MemoryOperator(std::function<memory::SurfaceBody&()> surface)
      : surface_(std::move(surface)) {}

  void Press(SurfaceKey key) override {
    if (key == SurfaceKey::Space) return surface_().Type(u" ");
    if (key == SurfaceKey::BackTab)
      return surface_().Press(memory::Key::Tab, memory::modifier::Shift);
    surface_().Press(KeyOf(key));
  }
  void Type(const String& text) override { surface_().Type(text); }
  void Mnemonic(char16_t letter) override { surface_().Mnemonic(letter); }
  void Click(StringView name) override { surface_().Click(name); }
  void Choose(StringView list, Long row) override { surface_().Choose(list, row); }
  void ClickTab(StringView strip, Long page) override { surface_().ClickTab(strip, page); }
  void ClickRow(StringView list, Long row) override { surface_().ClickRow(list, row); }
  void DoubleClickRow(StringView list, Long row) override { surface_().DoubleClickRow(list, row); }
  void CheckRow(StringView list, Long row) override { surface_().CheckRow(list, row); }
  void ClickHeader(StringView grid, Long column) override { surface_().ClickHeader(grid, column); }
  void ResizeColumn(StringView grid, Long column, Long twips) override {
    surface_().ResizeColumn(grid, column, twips);
  }
  void ClickMenu(StringView bar, Long position) override { surface_().ClickMenu(bar, position); }
  void PickDay(StringView calendar, Date day) override { surface_().PickDay(calendar, day); }
  void CloseByFrame() override { dynamic_cast<memory::Dialog&>(surface_()).CloseWindow(); }
  String Focused() override { return surface_().Focused(); }
  String CellText(StringView grid, Long column) override {
    return dynamic_cast<host::Surface&>(surface_()).Find<memory::DataGrid>(grid).CellText(column);
  }

 private:
  static memory::Key KeyOf(SurfaceKey key) {
    static const std::map<SurfaceKey, memory::Key> keys = {
        {SurfaceKey::Tab, memory::Key::Tab},
        {SurfaceKey::Enter, memory::Key::Enter},
        {SurfaceKey::Left, memory::Key::Left},
        {SurfaceKey::Right, memory::Key::Right},
        {SurfaceKey::Up, memory::Key::Up},
        {SurfaceKey::Down, memory::Key::Down},
        {SurfaceKey::Backspace, memory::Key::Backspace}};
    return keys.at(key);
  }

  std::function<memory::SurfaceBody&()> surface_;
};

/// What both drivers share. The surface is kept alive as its frame would, so that a script may look
/// at it after its last handle is gone.
class MemoryDriver : public SurfaceDriver {
 public:
  Operator& Hands() override { return hands_; }
  bool IsShown() override { return body_->IsShown(); }
  void MakeDefault(StringView button) override {
    Surface().Find<memory::DialogButton>(button).Default = true;
  }
  std::vector<String> TakeBoxes() override {
    std::vector<String> texts;
    for (const auto& box : app_.TakeBoxes()) texts.push_back(box.Text);
    return texts;
  }

 protected:
  void Keep(std::shared_ptr<memory::SurfaceBody> body) { body_ = std::move(body); }

  memory::Application app_;
  test::TestDesktop desktop_;

 private:
  std::shared_ptr<memory::SurfaceBody> body_;
  MemoryOperator hands_{[this]() -> memory::SurfaceBody& { return *body_; }};
};

class MemorySurface final : public MemoryDriver {
 public:
  explicit MemorySurface(const host::DialogDescription& description)
      : surface_(desktop_->MakeSurface(description)) {
    Keep(surface_->shared_from_this());
  }

  host::Surface& Surface() override { return *surface_; }
  host::Dialog* Dialog() override { return nullptr; }
  void Work(const std::function<void()>& script) override {
    surface_->Show();
    script();
    if (surface_) surface_->Hide();
  }
  void Destroy() override { surface_ = nullptr; }

 private:
  std::shared_ptr<memory::Surface> surface_;
};

class MemoryDialog final : public MemoryDriver {
 public:
  explicit MemoryDialog(const host::DialogDescription& description)
      : dialog_(desktop_->MakeDialog(description)) {
    Keep(dynamic_cast<memory::Dialog&>(*dialog_).shared_from_this());
  }

  host::Surface& Surface() override { return *dialog_; }
  host::Dialog* Dialog() override { return dialog_.get(); }
  void Work(const std::function<void()>& script) override {
    desktop_->WillShow(kContractDialog.Name, [&](memory::Dialog& shown) {
      script();
      shown.Hide();
    });
    dialog_->ShowModal();
  }
  void Destroy() override { dialog_ = nullptr; }

 private:
  host::DialogPtr dialog_;
};

/// The text box of a widget, between two other widgets.
class SurfaceTextBox final : public TextBoxDriver {
 public:
  SurfaceTextBox() {
    surface_->Show();
    Leave();
  }

  host::TextBox& Box() override { return surface_->Find<host::DialogTextBox>(u"txtNome").Box(); }
  void Focus() override { surface_->FocusOn(u"txtNome"); }
  void Leave() override { surface_->FocusOn(u"btnSair"); }
  void Type(const String& text) override { surface_->Type(text); }
  void Press(EditKey key, With with) override {
    surface_->Press(static_cast<memory::Key>(key), ModifierOf(with));
  }
  void Insert(const String& text) override { dynamic_cast<memory::TextBox&>(Box()).Insert(text); }

 private:
  memory::Application app_;
  test::TestDesktop desktop_;
  std::shared_ptr<memory::Surface> surface_ = desktop_->MakeSurface(kContractDialog);
};

const SurfaceHost kSurface{"memory", [](const host::DialogDescription& description) {
                             return std::make_unique<MemorySurface>(description);
                           }};
const SurfaceHost kDialog{"memory dialog", [](const host::DialogDescription& description) {
                            return std::make_unique<MemoryDialog>(description);
                          }};

INSTANTIATE_TEST_SUITE_P(Memory, SurfaceContract, testing::Values(kSurface, kDialog));
INSTANTIATE_TEST_SUITE_P(Memory, SurfaceKindContract, testing::Values(kSurface, kDialog));
INSTANTIATE_TEST_SUITE_P(Memory, SurfaceListContract, testing::Values(kSurface, kDialog));
INSTANTIATE_TEST_SUITE_P(Memory, DialogContract, testing::Values(kDialog));
INSTANTIATE_TEST_SUITE_P(MemorySurface, TextBoxContract,
                         testing::Values(TextBoxHost{
                             "memory surface", [] { return std::make_unique<SurfaceTextBox>(); }}));

}  // namespace
}  // namespace tessaria::contract
