// Any text as a field's stored settings. What can be loaded survives another round.
#include <cstdlib>

#include "tessaria/error.h"
#include "tessaria/text_property_bag.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaria;
  TextPropertyBag bag;
  try {
    bag.Load(u"tessaria 1\n" + fuzz::Input(data, size).Rest());
  } catch (const HostError&) {
    return 0;
  }
  const String saved = bag.Save();
  TextPropertyBag again;
  again.Load(saved);
  if (again.Save() != saved) std::abort();
  return 0;
}
