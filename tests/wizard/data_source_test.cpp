// The data source that a connection string names.
#include "wizard/data_source.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

TEST(DataSource, IsTheValueOfItsKey) {
  const std::pair<const char16_t*, const char16_t*> texts[] = {
      {u"DSN=Vendas", u"Vendas"},
      {u"Provider=X; dsn = Vendas 2 ;UID=a", u"Vendas 2"},
      {u"FILEDSN=Vendas", u""},
      {u"Driver={X};Server=a", u""},
      {u"DSN=", u""},
      {u"DSN", u""},
      {u";;DSN=a;DSN=b", u"a"},
      {u"DSN={Vendas}", u"Vendas"},
      {u"UID=a;PWD={x;DSN=y};DSN=Vendas", u"Vendas"},
      {u"PWD={a}};DSN=y};DSN={a;b}", u"a;b"},
      {u"DSN={a}}b}", u"a}b"},
      {u"PWD={never ends;DSN=y", u""},
      {u"dsn = {Vendas} ;UID=a", u"Vendas"},
      {u"PWD=a{b;DSN=Vendas", u"Vendas"},
      {u"Option=3;;Dsn = Vendas", u"Vendas"},
      {u"", u""}};
  for (const auto& [text, source] : texts) EXPECT_EQ(wizard::DataSourceIn(text), source);
}

}  // namespace
}  // namespace tessaria::test
