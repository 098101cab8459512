// Runs the contract of text boxes on the text box of the memory host.
#include "tessaria/memory/text_box.h"
#include "tests/ports/case_count.h"
#include "tests/ports/memory_keys.h"
#include "tests/ports/text_box_contract.h"
#include "tests/ports/text_box_edit_contract.h"
#include "tests/ports/text_box_typing_contract.h"

namespace tessaria::contract {
namespace {

const bool counted = CountCases("memory");

class MemoryTextBox final : public TextBoxDriver {
 public:
  host::TextBox& Box() override { return box_; }
  void Focus() override { box_.GainFocus(); }
  void Leave() override { box_.LoseFocus(); }
  void Type(const String& text) override { box_.Type(text); }
  void Press(EditKey key, With with) override {
    box_.Press(static_cast<memory::Key>(key), ModifierOf(with));
  }
  void Insert(const String& text) override { box_.Insert(text); }

 private:
  memory::TextBox box_;
};

INSTANTIATE_TEST_SUITE_P(Memory, TextBoxContract,
                         testing::Values(TextBoxHost{
                             "memory", [] { return std::make_unique<MemoryTextBox>(); }}));

}  // namespace
}  // namespace tessaria::contract
