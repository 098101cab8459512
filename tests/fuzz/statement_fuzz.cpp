// Any text as a statement: it is refused, or its scan ends and keeps to the text.
#include <cstdlib>

#include "hosts/odbc/statement_guard.h"
#include "tessaria/error.h"
#include "tests/fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaria;
  fuzz::Input input(data, size);
  const auto dialect = static_cast<odbc::Dialect>(input.Byte() % 4);
  const String text = input.Rest();
  try {
    if (odbc::RequireSingleStatement(text, dialect).text.size() > text.size()) std::abort();
  } catch (const HostError&) {
  }
  return 0;
}
