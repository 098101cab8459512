// Shared by the tests of the lookups: a program without a screen and a scripted connection.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessaria/memory/application.h"
#include "tessaria/thread_state.h"
#include "tests/lookup/recording_connection.h"
#include "tests/support/printers.h"

namespace tessaria::test {

/// Moves a record set past its last row, or before its first row.
inline void PastTheEnd(host::Recordset& rows) {
  rows.MoveLast();
  rows.MoveNext();
}
inline void AheadOfTheStart(host::Recordset& rows) {
  rows.MoveFirst();
  rows.MovePrevious();
}

class LookupTest : public testing::Test {
 protected:
  LookupTest() {
    connection->Dbms(u"ACCESS");
    State().dbConexao = connection;
  }
  ~LookupTest() override { State().dbConexao = nullptr; }
  LookupTest(const LookupTest&) = delete;
  LookupTest& operator=(const LookupTest&) = delete;

  /// Expects exactly one box since the last check: the library's error box of that procedure.
  void ExpectErrorBox(const String& procedure, const HostError& error) {
    const String title =
        u"Erro: " + CStr(Variant(error.Number())) + u" - Função: mdlObjTxt." + procedure;
    const memory::MessageBoxRecord box{0, error.Description(), host::box::Stop, title};
    EXPECT_THAT(app.TakeBoxes(), testing::ElementsAre(box));
    EXPECT_EQ(Err().Number, 0);
  }

  memory::Application app;
  std::shared_ptr<RecordingConnection> connection = std::make_shared<RecordingConnection>();
};

}  // namespace tessaria::test
