#include "hosts/postgres/connection_text.h"

#include <gtest/gtest.h>

#include "hosts/sql/errors/driver_error.h"
#include "tests/support/printers.h"

namespace tessaria::postgres {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

struct TextCase {
  StringView text;
  Pairs pairs;
};

std::vector<TextCase> OdbcTexts() {
  return {
      {u"", {}},
      {u"Driver={PostgreSQL Unicode};Servername=/tmp/a;Port=5432;Database=postgres;Uid=eu;",
       {{"host", "/tmp/a"}, {"port", "5432"}, {"dbname", "postgres"}, {"user", "eu"}}},
      {u" server = 10.0.0.1 ; USERNAME=eu;PWD=segredo;SSLmode=require",
       {{"host", "10.0.0.1"}, {"user", "eu"}, {"password", "segredo"}, {"sslmode", "require"}}},
      {u"Database=vendas;Protocol=7.4-2;UseDeclareFetch=1;BoolsAsChar=1", {{"dbname", "vendas"}}},
      {u"Port=5433;Database=vendas", {{"port", "5433"}, {"dbname", "vendas"}}},
      // A blank is no separator here.
      {u"Database=minha base;Uid=josé", {{"dbname", "minha base"}, {"user", "josé"}}},
      {u"Database={a;b};Pwd={1;}}2+%41};Uid={eu}",
       {{"dbname", "a;b"}, {"password", "1;}2+%41"}, {"user", "eu"}}},
      {u"Pwd=a+b%2Bc%20d%", {{"password", "a b+c d%"}}},
      {u"Database=host=mal;Uid=", {{"dbname", "host=mal"}, {"user", ""}}},
      {u"Pwd={aberta", {{"password", "aberta"}}},
      {u"sem sinal", {}},
      {u";;Database=a;;", {{"dbname", "a"}}},
  };
}

TEST(ConnectionText, OfTheOdbcDriverIsTranslated) {
  for (const TextCase& c : OdbcTexts()) {
    SCOPED_TRACE(ToUtf8(c.text));
    const ConnectionOptions options = OptionsOf(String(c.text));
    EXPECT_EQ(options.pairs, c.pairs);
    EXPECT_FALSE(options.isWhole);
    EXPECT_EQ(options.statements, "");
  }
}

TEST(ConnectionText, OfTheLibraryIsPassedOnWhole) {
  for (const StringView text :
       {u"host=/tmp dbname=vendas", u"user=eu password='a;b'", u"dbname=x",
        u"port=5433 dbname=vendas", u"postgresql://eu@servidor:5433/vendas?sslmode=require",
        u"postgres://servidor/vendas", u"service=vendas", u"password=abc"}) {
    SCOPED_TRACE(ToUtf8(text));
    const ConnectionOptions options = OptionsOf(String(text));
    EXPECT_EQ(options.pairs, (Pairs{{"dbname", ToUtf8(text)}}));
    EXPECT_TRUE(options.isWhole);
  }
}

TEST(ConnectionText, StatementsForTheStartAreKept) {
  EXPECT_EQ(OptionsOf(u"ConnSettings=set+a%3D'b%20c'").statements, "set a='b c'");
  EXPECT_EQ(OptionsOf(u"ConnSettings={set a='1+1'};Uid=eu").statements, "set a='1+1'");
}

TEST(ConnectionText, ADataSourceNameIsRefused) {
  try {
    OptionsOf(u"DSN=vendas;Uid=eu");
    FAIL() << "taken";
  } catch (const sql::DriverError& error) {
    EXPECT_EQ(error.SqlState(), "IM002");
    EXPECT_TRUE(error.Description().starts_with(u"Um nome de fonte de dados (DSN)"));
  }
}

}  // namespace
}  // namespace tessaria::postgres
