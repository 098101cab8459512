// What tests need of the memory host itself: scripts and faults.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/memory/second_statement.h"
#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/connection.h"
#include "tessaria/memory/keys.h"
#include "tessaria/thread_state.h"

namespace tessaria::memory {
namespace {

using testing::ElementsAre;

template <class Call>
Long ErrorOf(Call&& call) {
  try {
    call();
  } catch (const HostError& error) {
    return error.Number();
  }
  return 0;
}

TEST(MemoryApplication, IsTheThreadsApplicationWhileItLives) {
  Application outer;
  {
    const Application inner;
    EXPECT_EQ(&App(), &inner);
  }
  EXPECT_EQ(&App(), &outer);
}

TEST(MemoryApplication, BoxesAreKeptAndAnsweredInOrder) {
  Application application;
  application.WillAnswer(host::answer::Yes);
  EXPECT_EQ(App().ShowMessageBox(7, u"Grava?", host::box::YesNo, u"Alerta!"), host::answer::Yes);
  EXPECT_EQ(App().ShowMessageBox(0, u"Grava?", host::box::YesNo | host::box::Question, u""),
            host::answer::No);
  EXPECT_EQ(App().ShowMessageBox(0, u"Feito", host::box::Stop, u""), host::answer::Ok);
  EXPECT_EQ(application.Boxes().size(), 3u);
  EXPECT_EQ(application.TakeBoxes().front(), (MessageBoxRecord{7, u"Grava?", 4, u"Alerta!"}));
  EXPECT_TRUE(application.Boxes().empty());
}

TEST(MemoryApplication, FilesAreThoseThatWereAdded) {
  Application application;
  application.AddFile(u"C:\\Programa\\Leia.txt");
  application.AddFile(u"C:\\Programa\\TresPontos.ico", Application::FileKind::Picture);
  EXPECT_TRUE(App().FileExists(u"c:\\programa\\LEIA.TXT"));
  EXPECT_FALSE(App().FileExists(u"C:\\Programa\\Outro.txt"));
  EXPECT_NE(App().LoadPicture(u"C:\\Programa\\TresPontos.ico"), nullptr);
  EXPECT_EQ(ErrorOf([] { App().LoadPicture(u"C:\\Programa\\Nada.ico"); }), errors::FileNotFound);
  EXPECT_EQ(ErrorOf([] { App().LoadPicture(u"C:\\Programa\\Leia.txt"); }), 481);
}

TEST(MemoryApplication, EventPumpingRunsWaitingWorkOnce) {
  Application application;
  int runs = 0;
  application.Post([&] {
    ++runs;
    application.Post([&] { runs += 10; });
  });
  App().DoEvents();
  EXPECT_EQ(runs, 1);
  App().DoEvents();
  EXPECT_EQ(runs, 11);
}

TEST(MemoryKeys, AnAccentedLetterNeedsItsDeadKeyFirst) {
  const auto strokes = StrokesOf(u'ã');
  ASSERT_EQ(strokes.size(), 2u);
  EXPECT_EQ(strokes[0].Code, 222);
  EXPECT_EQ(strokes[0].Character, 0);
  EXPECT_EQ(strokes[1].Code, 65);
  EXPECT_EQ(strokes[1].Character, u'ã');
}

TEST(MemoryConnection, AnswersByTextByScriptAndByTable) {
  const auto connection = Connection::CreateOpen();
  const std::vector<Column> columns = {{.Name = u"Nome"}};
  connection->AddTable(u"Cliente", columns, {{u"da tabela"}});
  connection->Answer(u"Select 1", {columns, {{u"fixo"}}});
  connection->OnStatement = [&](const String& text) -> std::optional<Rows> {
    if (text != u"Select 2") return std::nullopt;
    return Rows{columns, {{u"do roteiro"}}};
  };
  const auto first = [&](const String& statement) {
    return CStr(connection->Execute(statement)->Fields().Item(0)->Value());
  };
  EXPECT_EQ(first(u"Select 1"), u"fixo");
  EXPECT_EQ(first(u"Select 2"), u"do roteiro");
  EXPECT_EQ(first(u"select * from CLIENTE"), u"da tabela");
  EXPECT_EQ(ErrorOf([&] { first(u"Select 3"); }), errors::ProviderError);
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select 1", u"Select 2", u"select * from CLIENTE", u"Select 3"));
}

TEST(MemoryConnection, AStatementWithoutRowsReturnsAClosedSet) {
  const auto connection = Connection::CreateOpen();
  connection->Answer(u"Delete From Cliente", {});
  EXPECT_EQ(connection->Execute(u"Delete From Cliente")->State(), host::state::Closed);
}

TEST(MemoryConnection, FaultsComeInOrder) {
  const auto connection = Connection::CreateOpen();
  connection->AddTable(u"Cliente", {{.Name = u"Nome"}});
  connection->FailNext(HostError(errors::ProviderError, u"tempo esgotado"));
  EXPECT_EQ(ErrorOf([&] { connection->Execute(u"Cliente"); }), errors::ProviderError);
  EXPECT_EQ(ErrorOf([&] { connection->Execute(u"Cliente"); }), 0);
}

TEST(MemoryConnection, ADroppedLineIsDetectedByTheNextCallAndRestoredByOpen) {
  const auto connection = Connection::CreateOpen();
  connection->AddTable(u"Cliente", {{.Name = u"Nome"}}, {{u"Ana"}});
  const auto rows =
      connection->OpenRecordset(u"Cliente", host::CursorType::Static, host::LockType::Optimistic);
  rows->Fields().Item(0)->Value(u"Bia");
  connection->Drop();
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::ProviderError);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_EQ(connection->State(), host::state::Closed);
  connection->Open();
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 0);
}

TEST(MemoryConnection, ClosingItClosesItsRecordSets) {
  const auto connection = Connection::CreateOpen();
  connection->AddTable(u"Cliente", {{.Name = u"Nome"}});
  const auto rows = connection->Execute(u"Cliente");
  connection->Close();
  EXPECT_EQ(rows->State(), host::state::Closed);
}

TEST(MemoryTable, AFieldRefusesOnDemand) {
  const auto connection = Connection::CreateOpen();
  const auto table = connection->AddTable(u"Cliente", {{.Name = u"Nome"}}, {{u"Ana"}});
  const auto rows =
      connection->OpenRecordset(u"Cliente", host::CursorType::Static, host::LockType::Optimistic);
  const auto field = rows->Fields().Item(0);
  table->RefuseField(u"NOME", HostError(kRefusedValue));
  EXPECT_EQ(ErrorOf([&] { field->Value(u"Bia"); }), kRefusedValue);
  EXPECT_EQ(CStr(field->Value()), u"Ana");
  table->AcceptField(u"nome");
  EXPECT_EQ(ErrorOf([&] { field->Value(u"Bia"); }), 0);
  table->RefuseNextWrite(HostError(errors::ProviderError));
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::ProviderError);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), 0);
}

TEST(MemoryTable, ATextLongerThanItsColumnIsRefused) {
  const Column column{.Name = u"Nome", .DefinedSize = 3};
  EXPECT_EQ(CStr(ValueOfType(column, u"abc")), u"abc");
  EXPECT_EQ(ErrorOf([&] { ValueOfType(column, u"abcd"); }), kRefusedValue);
}

TEST(MemoryTable, NullIsRefusedWhereItIsNotAllowed) {
  const Column column{.Name = u"Nome", .Nullable = false};
  EXPECT_EQ(ErrorOf([&] { ValueOfType(column, Variant::Null()); }), kRefusedValue);
  EXPECT_EQ(CStr(ValueOfType(column, Variant())), u"");
}

TEST(MemoryConnection, SecondStatementsAreRecognised) {
  const std::pair<const char16_t*, bool> cases[] = {
      {u"Select 1", false},
      {u"Select 1;", false},
      {u"Select 1; \n", false},
      {u"Select ';' From x", false},
      {u"Select \";\" From x", false},
      {u"Select 1; Delete", true},
      {u"Select ''; Drop", true},
      {u"Select 'it''s;'", false},
      {u"Select E'\\';'", false},
      {u"Select 1 -- ;\n", false},
      {u"Select 1; -- fim", false},
      {u"Select $$;$$ From x", false},
  };
  for (const auto& [text, second] : cases) {
    EXPECT_EQ(HoldsSecondStatement(text, {SqlFamily::PostgreSQL}), second)
        << testing::PrintToString(String(text));
  }
}

}  // namespace
}  // namespace tessaria::memory
