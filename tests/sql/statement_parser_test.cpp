// The guard against second statements, compared with the server's own parser: thousands of texts
// made of the signs that begin and end texts, names and comments.
#include <libpq-fe.h>

#include <memory>
#include <random>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/statements/statement_guard.h"
#include "tessaria/text.h"
#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

/// How the server's parser reads a text.
enum class Verdict { One, Several, None };

/// A session whose server parses texts and runs none of them.
class Parser {
 public:
  explicit Parser(const std::string& folder)
      : link_(PQconnectdb(("host=" + folder + " user=postgres dbname=postgres").c_str()),
              &PQfinish) {
    Run("set client_encoding to utf8");
    Run("set lc_messages to 'C'");
    Run("set client_min_messages to error");
    Run("set backslash_quote to on");
  }

  void StandardStrings(bool on) {
    Run(on ? "set standard_conforming_strings to on" : "set standard_conforming_strings to off");
  }

  Verdict Parse(const String& text) {
    const Result result(PQprepare(link_.get(), "", ToUtf8(text).c_str(), 0, nullptr), &PQclear);
    if (PQresultStatus(result.get()) == PGRES_COMMAND_OK) return Verdict::One;
    const char* state = PQresultErrorField(result.get(), PG_DIAG_SQLSTATE);
    const char* message = PQresultErrorField(result.get(), PG_DIAG_MESSAGE_PRIMARY);
    if (state == nullptr || message == nullptr) throw std::runtime_error("the parser is gone");
    if (std::string(message).starts_with("cannot insert multiple commands"))
      return Verdict::Several;
    // Unknown names and types that do not match are detected after parsing.
    const std::string found(state);
    return found.starts_with("42") && found != "42601" ? Verdict::One : Verdict::None;
  }

 private:
  using Result = std::unique_ptr<PGresult, decltype(&PQclear)>;

  void Run(const char* command) {
    const Result result(PQexec(link_.get(), command), &PQclear);
    if (PQresultStatus(result.get()) != PGRES_COMMAND_OK) {
      throw std::runtime_error(PQerrorMessage(link_.get()));
    }
  }

  std::unique_ptr<PGconn, decltype(&PQfinish)> link_;
};

bool GuardAccepts(const String& text, bool backslashes) {
  try {
    RequireSingleStatement(text, Dialect::PostgreSql, backslashes);
    return true;
  } catch (const HostError&) {
    return false;
  }
}

/// Whether the guard refuses a text on purpose although a server may take it: signs that the driver
/// would replace, blanks and signs that not every server reads alike, no statement at all.
bool IsRefusedOnPurpose(const String& text) {
  return text.find_first_of(u"?{}\v\u00A0\u2003") != String::npos ||
         text.find_first_of(u"abcdefgnstuxBEUX0123456789'\"$(") == String::npos;
}

constexpr const char16_t* kOpeners[] = {
    u"'",   u"E'",   u"e'",   u"U&'",  u"u&\"", u"N'",    u"B'",  u"x'",   u"\"",  u"$$",
    u"$a$", u"$a1$", u"/*",   u"/*/*", u"--",   u"nE'",   u"1E'", u"$1E'", u"1e5", u"$é$",
    u"U&",  u"E",    u"1.5e", u"a$b$", u"(",    u"N$a$'", u"*/*", u"+-",   u"@-",  u"::"};
constexpr const char16_t* kInner[] = {
    u"'",   u"''",   u"'''",  u"\\",     u"\\'",      u"\\\\", u";",         u"\n",      u"\r",
    u"a",   u"1",    u" ",    u"--",     u"/*",       u"*/",   u"$",         u"$$",      u"$a$",
    u"$b$", u"\"",   u"\"\"", u"\\x2",   u"\\1",      u"é",    u"E'",        u"e",       u"\t",
    u"\f",  u"--\n", u"'\n'", u"'--'",   u"' '",      u"'-'",  u"\"'",       u"?",       u"{",
    u"\v",  u"/",    u"*",    u"\u00A0", u"' --a\n'", u"'\r'", u"'\n--\n '", u"'/**/\n'"};
constexpr const char16_t* kClosers[] = {u"'",   u"\"",   u"$$",   u"$a$", u"*/", u"\n", u"*/*/",
                                        u"$é$", u"$a1$", u"'\n'", u")",   u"",   u"'a'"};
constexpr const char16_t* kTails[] = {u"",
                                      u"",
                                      u";",
                                      u" ; ",
                                      u"; select 2",
                                      u";select 2",
                                      u"--",
                                      u"--\n;",
                                      u"/*",
                                      u"'",
                                      u";--",
                                      u"; /**/",
                                      u"\n'x'",
                                      u"'x'",
                                      u" x;",
                                      u";;",
                                      u"; drop table t --'"};

class Texts {
 public:
  String Next() {
    String text = u"select ";
    for (int pieces = Up(3); pieces >= 0; --pieces) {
      text += One(kOpeners);
      for (int inner = Up(5); inner > 0; --inner) text += One(kInner);
      text += One(kClosers);
      if (pieces > 0) text += One({u" ", u", ", u"\n", u"", u" || ", u"--x\n", u"/**/", u"\n--\n"});
    }
    return text + One(kTails) + (Up(3) == 0 ? u"; select 2" : u"");
  }

 private:
  int Up(int limit) { return std::uniform_int_distribution<>(0, limit)(random_); }
  template <std::size_t N>
  String One(const char16_t* const (&choices)[N]) {
    return choices[Up(static_cast<int>(N) - 1)];
  }

  std::mt19937 random_{20161};
};

class StatementParserTest : public DatabaseTest {
 protected:
  struct Counts {
    int one = 0, several = 0, none = 0;
  };

  static void Compare(Parser& parser, const String& text, bool backslashes, Counts& counts) {
    const Verdict verdict = parser.Parse(text);
    const bool accepted = GuardAccepts(text, backslashes);
    if (verdict == Verdict::Several) {
      ++counts.several;
      EXPECT_FALSE(accepted) << "a second statement passes: " << ToUtf8(text);
    } else if (verdict == Verdict::One) {
      ++counts.one;
      EXPECT_TRUE(accepted || IsRefusedOnPurpose(text)) << "refused: " << ToUtf8(text);
    } else {
      ++counts.none;
    }
  }
};

TEST_F(StatementParserTest, WhatTheGuardAcceptsIsOneStatementToTheServer) {
  constexpr int kTexts = 20000;
  Parser parser(Cluster().Folder());
  for (const bool backslashes : {false, true}) {
    SCOPED_TRACE(backslashes ? "backslashes escape" : "backslashes are plain");
    parser.StandardStrings(!backslashes);
    Counts counts;
    Texts texts;
    for (int i = 0; i < kTexts; ++i) {
      Compare(parser, texts.Next(), backslashes, counts);
    }
    // Enough of each, so that agreement means something.
    EXPECT_GT(counts.one, kTexts / 50);
    EXPECT_GT(counts.several, kTexts / 100) << counts.one << " are one statement";
    RecordProperty(backslashes ? "one_escaping" : "one_plain", counts.one);
    RecordProperty(backslashes ? "several_escaping" : "several_plain", counts.several);
  }
}

// Texts that were, or could be, read as one statement by a scanner that knows less than the server.
constexpr const char16_t* kKnown[] = {
    u"select 1 or '' = E'' --\n'\\''; drop table alvo; --",
    u"select E'a' \n '\\'; drop table t; --'",
    u"select E'a' --x\r--y\n\t'\\'; drop table t; --'",
    u"select 'a' \n '\\'; drop table t; --'",
    u"select E'a' /**/\n '\\'; drop table t; --'",
    u"select E'a'  '\\'; drop table t; --'",
    u"select U&'a'\n'\\'; drop table t; --'",
    u"select B'0'\n'1''; drop table t; --'",
    u"select B'0''1'; drop table t",
    u"select X'0'' ; drop table t; --'",
    u"select N'\\'; drop table t; --'",
    u"select n'a'\n'\\'; drop table t; --'",
    u"select $$a$$; drop table t",
    u"select $a$ $b$ $a$; drop table t",
    u"select a$a$ ; drop table t; --$a$",
    u"select /* /* */ ' */ ; drop table t; --'",
    u"select 1 +--'\n 2; drop table t; --'",
    u"select 1 +/*'*/ 2; drop table t; --'",
    u"select U&\"a\"\"; drop table t; --\"",
    u"select 'a\\'; drop table t; --'",
    u"select E'\\\\'; drop table t; --'",
    u"select E'\\'\\'; drop table t; --'",
    u"select '\u00B4'; select 2",
    u"select 1;;",
    u"select 'a''\n''b'; select 2",
};

TEST_F(StatementParserTest, AgreesWithTheServerOnKnownTricks) {
  Parser parser(Cluster().Folder());
  for (const bool backslashes : {false, true}) {
    parser.StandardStrings(!backslashes);
    Counts counts;
    for (const char16_t* text : kKnown) Compare(parser, text, backslashes, counts);
  }
}

// The guard does not know which of two servers it talks to, so it accepts neither reading.
TEST_F(StatementParserTest, RefusesWhatServersReadInSeveralWays) {
  for (const char16_t* text :
       {u"select 1a", u"select 0x10", u"select 1_000", u"select 1E'a'", u"select $1a",
        u"select 1\v", u"select\u00A01", u"select 1\u2003", u"select 1\x7F", u"select 'a",
        u"select \"a", u"select $$a", u"select /* a", u"select E'a\\'", u"select E'a\\"})
    EXPECT_FALSE(GuardAccepts(text, false)) << ToUtf8(text);
}

// --- What the setting means to a session --------------------------------------------------------

// One text, or two statements where backslashes escape.
constexpr const char16_t* kHidden = u"select 'a\\''; drop table t; --'";

TEST_F(StatementParserTest, FollowsAProgramThatChangesTheReadingOfBackslashes) {
  EXPECT_SAME(connection_->Properties(u"Backslash Escapes"), false);
  EXPECT_SAME(Scalar(u"select 'a\\'"), u"a\\");
  for (const char16_t* change :
       {u"set standard_conforming_strings to off",
        u"select set_config('standard_conforming_strings', 'off', false)",
        u"do $$ begin perform set_config('standard_conforming_strings', 'off', false); end $$"}) {
    Run(change);
    EXPECT_SAME(connection_->Properties(u"Backslash Escapes"), true) << ToUtf8(change);
    EXPECT_HOST_ERROR(Read(kHidden), errors::ErrorsInCommand) << ToUtf8(change);
    EXPECT_SAME(Scalar(u"select 'a\\'; drop table t; --'"), u"a'; drop table t; --");
    Run(u"set standard_conforming_strings to on");
    EXPECT_SAME(connection_->Properties(u"Backslash Escapes"), false);
    EXPECT_SAME(Scalar(kHidden), u"a\\'; drop table t; --");
  }
}

TEST_F(StatementParserTest, AnUndoneTransactionRestoresTheReadingOfBackslashes) {
  connection_->BeginTrans();
  Run(u"set standard_conforming_strings to off");
  EXPECT_SAME(connection_->Properties(u"Backslash Escapes"), true);
  connection_->RollbackTrans();
  EXPECT_SAME(connection_->Properties(u"Backslash Escapes"), false);
}

TEST_F(StatementParserTest, AServerThatReadsBackslashesAsEscapesIsSwitchedToTheStandard) {
  Cluster().Run("alter database postgres set standard_conforming_strings to off");
  const auto connection = NewConnection();
  Cluster().Run("alter database postgres reset standard_conforming_strings");
  EXPECT_SAME(connection->Properties(u"Backslash Escapes"), false);
  EXPECT_SAME(Get(connection->Execute(u"select 'a\\'"), 0), u"a\\");
}

}  // namespace
}  // namespace tessaria::sql::test
