// Any text as a number, as a date, and with any format pattern.
#include <tuple>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/format.h"
#include "tests/fuzz/input.h"

namespace tessaria::fuzz {
namespace {

// A text that is not such a value raises a run-time error, and nothing else.
template <class Conversion>
void Try(Conversion&& conversion) {
  try {
    std::ignore = conversion();
  } catch (const HostError&) {
  }
}

}  // namespace
}  // namespace tessaria::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaria;
  fuzz::Input input(data, size);
  const String pattern = input.Latin(24);
  const Variant text(input.Rest());
  fuzz::Try([&] { return CDbl(text); });
  fuzz::Try([&] { return CLng(text); });
  fuzz::Try([&] { return CDec(text); });
  fuzz::Try([&] { return CCur(text); });
  fuzz::Try([&] { return CBool(text); });
  fuzz::Try([&] { return CStr(CDate(text)); });
  fuzz::Try([&] { return Val(CStr(text)); });
  fuzz::Try([&] { return SqlText(text); });
  fuzz::Try([&] { return Format(text, pattern); });
  fuzz::Try([&] { return Format(CDbl(text), pattern); });
  fuzz::Try([&] { return Format(CDate(text), pattern); });
  return 0;
}
