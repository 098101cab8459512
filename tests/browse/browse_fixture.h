// Shared by the tests of the lookup grid: a program, a desktop and a database in memory.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/connection.h"
#include "tessaria/memory/form.h"
#include "tessaria/thread_state.h"
#include "tests/support/printers.h"
#include "tests/support/test_desktop.h"

namespace tessaria::test {

/// The library's error box.
inline memory::MessageBoxRecord ErrorBox(const HostError& error, const String& procedure) {
  return {0, error.Description(), host::box::Stop,
          u"Erro: " + CStr(Variant(error.Number())) + u" - Função: mdlObjTxt." + procedure};
}

/// The names of the databases that SQL is written for, and an unknown one.
inline constexpr StringView kAccess = u"ACCESS";
inline constexpr StringView kSqlServer = u"Microsoft SQL Server";
inline constexpr StringView kPostgres = u"PostgreSQL";
inline constexpr StringView kUnknown = u"SQLite";

class BrowseTest : public testing::Test {
 protected:
  BrowseTest() {
    State().dbConexao = connection;
    State().vntValorIrmao = Variant::Null();
    connection->OnStatement = [this](const String&) { return rows; };
  }
  ~BrowseTest() override {
    State().dbConexao = nullptr;
    State().vntValorIrmao = Variant::Null();
  }
  BrowseTest(const BrowseTest&) = delete;
  BrowseTest& operator=(const BrowseTest&) = delete;

  void Dbms(StringView name) { connection->SetProperty(u"DBMS Name", String(name)); }
  /// The only statement since the last check; "" and a test failure when there is not exactly one.
  String OnlyStatement() {
    const auto statements = connection->TakeStatements();
    EXPECT_EQ(statements.size(), 1u);
    return statements.size() == 1 ? statements.front() : String();
  }

  /// The answer to every statement.
  memory::Rows rows{{{u"codigo", host::type::Integer}, {u"nome"}, {u"cidade"}},
                    {{Long{1}, u"Ana", u"Assis"},
                     {Long{15}, u"Bruno", u"Bauru"},
                     {Long{7}, u"beatriz", u"Assis"},
                     {Long{20}, u"D'Avila", u"Tupã"}}};
  /// The same with a text as the first column.
  static memory::Rows NamesFirst() {
    return {{{u"nome"}, {u"codigo", host::type::Integer}},
            {{u"Ana", Long{1}},
             {u"Bruno", Long{15}},
             {u"beatriz", Long{7}},
             {u"D'Avila", Long{20}},
             {u"9 de Julho", Long{9}}}};
  }

  memory::Application app;
  TestDesktop desktop;
  std::shared_ptr<memory::Connection> connection = memory::Connection::CreateOpen();
};

}  // namespace tessaria::test
