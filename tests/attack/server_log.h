// The shapes of the statements that reached the server, read from its own log.
#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace tessaria::test {
class PostgresCluster;
}

namespace tessaria::attack {

/// How the server reads a backslash between apostrophes.
enum class Backslash { Plain, Escapes };

/// The shape of a statement: words in lower case, S for a string, N for a number with its sign, D
/// for a dollar quote, "comment" for a comment, which no expected shape has. Independent of the
/// library's own scanner, in order to check it.
std::string ShapeOf(std::string_view statement, Backslash backslash);

/// The statements that the cluster's server received since the last call, of every session that
/// did not switch its log off.
class ServerLog {
 public:
  explicit ServerLog(const test::PostgresCluster& cluster);
  std::vector<std::string> TakeStatements();

 private:
  std::ifstream file_;
};

}  // namespace tessaria::attack
