// tessaria-check-server: tells which guarantees a database server and its driver keep.
#include <exception>
#include <iostream>

#include "apps/check-server/check_server.h"

int main(int count, char** arguments) {
  using namespace tessaria::check;
  try {
    const Options options = ParseOptions({arguments + 1, arguments + count});
    if (!options.help) return CheckServer(options, std::cout, std::cerr);
    std::cout << kUsage;
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "tessaria-check-server: " << error.what() << "\n\n" << kUsage;
    return 2;
  }
}
