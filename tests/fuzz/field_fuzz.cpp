// An operator who presses any keys in a field with any mask, and then leaves it.
#include <memory>

#include "tessaria/memory/application.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tests/fuzz/input.h"

namespace tessaria::fuzz {
namespace {

using memory::Key;

constexpr std::size_t kLongestMask = 24;
constexpr std::size_t kLongestText = 48;  // longer than any MaxLength here
constexpr Key kKeys[] = {Key::Backspace, Key::Tab,  Key::Enter,  Key::Escape,
                         Key::End,       Key::Home, Key::Left,   Key::Up,
                         Key::Right,     Key::Down, Key::Insert, Key::Delete};

void SetUp(tsText& field, Input& input) {
  const std::uint8_t flags = input.Byte();
  field.PromptInclude((flags & 1) != 0);
  field.ValorNegativo((flags & 2) != 0);
  field.PodeSerBranco((flags & 4) != 0);
  field.TipoDado(input.Byte() % 10);
  field.TipoStrZero(input.Byte() % 4);
  field.MaxLength(input.Byte() % 32);
  if ((flags & 16) != 0) field.PasswordChar(u"*");
  if ((flags & 8) != 0) field.PromptChar(input.Latin(1));
  field.Mascara(input.Latin(kLongestMask));
  if ((flags & 32) != 0) field.Text(input.Latin(kLongestText));
}

void Strike(memory::Form& form, std::uint8_t byte) {
  const std::size_t place = byte & 0x1F;
  if (byte >= 0x20 || place >= std::size(kKeys))
    form.Type(String(1, static_cast<char16_t>(byte)));
  else
    form.Press(kKeys[place]);
}

}  // namespace
}  // namespace tessaria::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaria;
  fuzz::Input input(data, size);
  memory::Application application;
  const auto form = memory::Form::Create(u"frmCadastro");
  const auto field = form->Add<memory::TsText>(u"txtCampo");
  form->Add<memory::TsText>(u"txtOutro");
  form->Show();
  form->RunEvent([&] { fuzz::SetUp(**field, input); });
  while (!input.IsEmpty()) fuzz::Strike(*form, input.Byte());
  form->Focus(u"txtOutro");
  return 0;
}
