// A table of many rows, of which a record set holds only those around the current one.
#pragma once

#include <string>

#include "tests/sql/database_test.h"

namespace tessaria::sql::test {

constexpr Long kRows = 60000;

class WindowTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (codigo int primary key, nome text, valor numeric, dia date)");
    Run(u"insert into t select n, 'nome ' || n, n / 100.0, date '2000-01-01' + n"
        u" from generate_series(1, 60000) n");
  }

  static host::RecordsetPtr Ends(const host::RecordsetPtr& rows) {
    EXPECT_EQ(rows->RecordCount(), kRows);
    return rows;
  }

  // The transactions that other sessions of the cluster have open.
  Long OpenReadings() {
    return CLng(Scalar(
        u"select count(*)::int from pg_stat_activity where state like 'idle in transaction%'"));
  }

  static void ExpectRow(const host::RecordsetPtr& rows, Long number) {
    EXPECT_EQ(rows->AbsolutePosition(), number);
    EXPECT_SAME(Get(rows, u"codigo"), number);
    EXPECT_SAME(Get(rows, u"nome"), u"nome " + FromUtf8(std::to_string(number)));
  }
};

}  // namespace tessaria::sql::test
