#include "tests/attack/server_log.h"

#include <algorithm>
#include <cctype>

#include "tests/support/postgres_cluster.h"

namespace tessaria::attack {
namespace {

constexpr std::string_view kLevel = "LOG:  ";
constexpr std::string_view kMarks[] = {"LOG:  statement: ", "LOG:  execute "};

bool IsWord(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' ||
         (static_cast<unsigned char>(c) & 0x80U) != 0;
}
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Reads one statement from front to back.
class Reader {
 public:
  Reader(std::string_view text, Backslash backslash) : text_(text), backslash_(backslash) {}

  std::string Shape() {
    while (at_ < text_.size()) Next();
    return shape_;
  }

 private:
  char Here(std::size_t ahead = 0) const {
    return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
  }
  bool Starts(std::string_view part) const { return text_.substr(at_).starts_with(part); }

  void Next() {
    const char c = Here();
    if (std::isspace(static_cast<unsigned char>(c)) != 0) return static_cast<void>(++at_);
    if (Starts("--") || Starts("/*")) return Rest("comment");
    if (c == '\'') return String(backslash_ == Backslash::Escapes);
    if ((c == 'e' || c == 'E') && Here(1) == '\'') return ++at_, String(true);
    if (c == '"') return Quoted();
    if (IsDigit(c) || (c == '.' && IsDigit(Here(1)))) return Number();
    if ((c == '-' || c == '+') && SignFits()) return static_cast<void>(++at_);
    if (c == '$' && IsDigit(Here(1))) return ++at_, Number();
    if (c == '$') return Rest("D");
    if (IsWord(c)) return Word();
    ++at_;
    Add(std::string(1, c));
  }

  // A sign before a number belongs to it unless a value comes before the sign.
  bool SignFits() const {
    const char next = Here(1);
    const char before = shape_.empty() ? ' ' : shape_.back();
    return (IsDigit(next) || next == '.') &&
           (before == '=' || before == '(' || before == ',' || before == '<' || before == '>');
  }
  void String(bool escapes) {
    ++at_;
    for (; at_ < text_.size(); ++at_) {
      if (escapes && Here() == '\\') {
        ++at_;
      } else if (Here() == '\'') {
        if (Here(1) != '\'') break;
        ++at_;
      }
    }
    ++at_;
    Add("S");
  }
  // A plain name of a usual length stays as it is, any other becomes Q.
  void Quoted() {
    std::string name;
    for (++at_; at_ < text_.size(); ++at_) {
      if (Here() == '"' && Here(1) != '"') break;
      if (Here() == '"') ++at_;
      name += Here();
    }
    ++at_;
    const bool isPlain = name.size() < 64 && std::all_of(name.begin(), name.end(), IsWord);
    Add(isPlain ? '"' + name + '"' : "Q");
  }
  void Number() {
    while (IsDigit(Here()) || Here() == '.') ++at_;
    if (Here() == 'e' || Here() == 'E') {
      ++at_;
      if (Here() == '-' || Here() == '+') ++at_;
      while (IsDigit(Here())) ++at_;
    }
    Add("N");
  }
  // Numbers at the end of a name count savepoints and cursors, and are left out.
  void Word() {
    std::string word;
    for (; IsWord(Here()); ++at_)
      word += static_cast<char>(std::tolower(static_cast<unsigned char>(Here())));
    const std::string_view savepoint = "_exec_svp_";
    if (word.starts_with(savepoint)) word = savepoint;
    while (IsDigit(word.back())) word.pop_back();
    Add(word);
  }
  void Rest(const char* kind) {
    at_ = text_.size();
    Add(kind);
  }
  void Add(const std::string& token) {
    if (!shape_.empty()) shape_ += ' ';
    shape_ += token;
  }

  std::string_view text_;
  Backslash backslash_;
  std::size_t at_ = 0;
  std::string shape_;
};

}  // namespace

std::string ShapeOf(std::string_view statement, Backslash backslash) {
  return Reader(statement, backslash).Shape();
}

ServerLog::ServerLog(const test::PostgresCluster& cluster) {
  cluster.Run("alter system set log_statement = 'all'");
  cluster.Run("alter system set log_line_prefix = ''");
  cluster.Run("select pg_reload_conf()");
  file_.open(cluster.Folder() + "/log");
  file_.seekg(0, std::ios::end);
}

std::vector<std::string> ServerLog::TakeStatements() {
  std::vector<std::string> statements;
  bool inside = false;
  file_.clear();
  for (std::string line; std::getline(file_, line);) {
    // The server indents the lines that follow a line break of a statement.
    if (line.starts_with('\t') && inside) {
      statements.back() += "\n" + line.substr(1);
      continue;
    }
    inside = false;
    for (const std::string_view mark : kMarks) {
      if (!line.starts_with(mark)) continue;
      const auto colon = line.find(": ", kLevel.size());
      statements.push_back(line.substr(colon + 2));
      inside = true;
    }
  }
  return statements;
}

}  // namespace tessaria::attack
