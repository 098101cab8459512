#include "hosts/postgres/connection_text.h"

#include <libpq-fe.h>

#include <algorithm>
#include <cctype>
#include <memory>

#include "hosts/sql/errors/driver_error.h"
#include "tessaria/text.h"

namespace tessaria::postgres {
namespace {

struct KeywordRule {
  StringView odbc;
  const char* library;
};

// Keywords of the ODBC driver that the library calls otherwise, or the same.
constexpr KeywordRule kKeywords[] = {
    {u"servername", "host"},   {u"server", "host"},   {u"port", "port"},
    {u"database", "dbname"},   {u"username", "user"}, {u"uid", "user"},
    {u"password", "password"}, {u"pwd", "password"},  {u"sslmode", "sslmode"},
};
constexpr StringView kStatements = u"connsettings";
constexpr StringView kSourceName = u"dsn";

bool IsKeywordOfTheLibrary(const String& word) {
  const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> all(PQconndefaults(),
                                                                         &PQconninfoFree);
  for (const auto* option = all.get(); option != nullptr && option->keyword; ++option) {
    if (word == FromUtf8(option->keyword)) return true;
  }
  return false;
}

bool IsSharedKeyword(const String& word) {
  return word == u"port" || word == u"password" || word == u"sslmode";
}

// The first keyword decides. After one that both have, a semicolon does: between blanks the library
// takes it as part of a value.
bool IsTextOfTheLibrary(const String& text) {
  if (StartsWith(text, u"postgresql://") || StartsWith(text, u"postgres://")) return true;
  const String word = Trim(text.substr(0, text.find(u'=')));
  return IsKeywordOfTheLibrary(word) && !(IsSharedKeyword(word) && text.find(u';') != String::npos);
}

int HexDigit(char c) {
  const auto lower = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (lower >= '0' && lower <= '9') return lower - '0';
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The ODBC driver takes "%20" and "+" in a password and in statements for blanks, except in braces.
std::string Decoded(const std::string& text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isCode = text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
                        HexDigit(text[i + 2]) >= 0;
    if (isCode) {
      decoded += static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]));
      i += 2;
    } else {
      decoded += text[i] == '+' ? ' ' : text[i];
    }
  }
  return decoded;
}

struct Setting {
  String name;  // in lower case
  std::string value;
  bool braced = false;
};

// Moves to the end of "{...}", in which "}}" is a brace, and returns what is between them.
String TakeBraced(StringView text, std::size_t& at) {
  String value;
  for (++at; at < text.size(); ++at) {
    if (text[at] == u'}' && (at + 1 == text.size() || text[at + 1] != u'}')) break;
    if (text[at] == u'}') ++at;
    value += text[at];
  }
  return value;
}

// Moves past "name=value;", or past a name without a value.
Setting TakeSetting(StringView text, std::size_t& at) {
  const auto end = [&](std::size_t found) { return std::min(found, text.size()); };
  Setting setting;
  const std::size_t sign = end(text.find_first_of(u"=;", at));
  setting.name = LCase(Trim(text.substr(at, sign - at)));
  at = sign;
  if (at < text.size() && text[at] == u'=') {
    at = end(text.find_first_not_of(u" \t", at + 1));
    setting.braced = at < text.size() && text[at] == u'{';
    const std::size_t start = at;
    const String inBraces = setting.braced ? TakeBraced(text, at) : String();
    at = end(text.find(u';', at));
    setting.value = ToUtf8(setting.braced ? inBraces : Trim(text.substr(start, at - start)));
  }
  at = end(at + 1);
  return setting;
}

void Take(const Setting& setting, ConnectionOptions& options) {
  if (setting.name == kSourceName) {
    throw sql::DriverError(
        "IM002",
        u"Um nome de fonte de dados (DSN) só vale para o ODBC. Informe Servername e Database.");
  }
  if (setting.name == kStatements) {
    options.statements = setting.braced ? setting.value : Decoded(setting.value);
  }
  for (const KeywordRule& rule : kKeywords) {
    if (rule.odbc != setting.name) continue;
    const bool isCoded = !setting.braced && std::string_view(rule.library) == "password";
    options.pairs.emplace_back(rule.library, isCoded ? Decoded(setting.value) : setting.value);
  }
}

}  // namespace

ConnectionOptions OptionsOf(const String& connectionString) {
  const String text = Trim(connectionString);
  ConnectionOptions options;
  if (IsTextOfTheLibrary(text)) {
    options.pairs.emplace_back("dbname", ToUtf8(text));
    options.isWhole = true;
    return options;
  }
  for (std::size_t at = 0; at < text.size();) Take(TakeSetting(text, at), options);
  return options;
}

}  // namespace tessaria::postgres
