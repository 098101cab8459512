#include "hosts/odbc/connection_text.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace tessaria::odbc {
namespace {

TEST(ConnectionText, SettingsOfThisLayerComeLast) {
  const String settings =
      u"Protocol=7.4-0;UseDeclareFetch=0;LFConversion=0;MaxVarcharSize=10485761;"
      u"MaxLongVarcharSize=0;KeepaliveTime=60;KeepaliveInterval=10;";
  EXPECT_EQ(DriverConnectionText(u"DSN=vendas"), u"DSN=vendas;" + settings);
  EXPECT_EQ(DriverConnectionText(u" Driver={PostgreSQL Unicode};Protocol=7.4-1; "),
            u"Driver={PostgreSQL Unicode};Protocol=7.4-1;" + settings);
  EXPECT_EQ(DriverConnectionText(u"Driver={SQL Server};Server=a"), u"Driver={SQL Server};Server=a");
}

}  // namespace
}  // namespace tessaria::odbc
