// tessaria-check: tells what will not work in the fields of form files.
#include <exception>
#include <iostream>

#include "apps/check/check_forms.h"

int main(int count, char** arguments) {
  using namespace tessaria::formcheck;
  try {
    const Options options = ParseOptions({arguments + 1, arguments + count});
    if (options.version) {
      std::cout << "tessaria-check " << TESSARIA_VERSION << "\n";
    } else if (options.help) {
      std::cout << kUsage;
    } else {
      return CheckForms(options, std::cout, std::cerr);
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "tessaria-check: " << error.what() << "\n\n" << kUsage;
    return 2;
  }
}
