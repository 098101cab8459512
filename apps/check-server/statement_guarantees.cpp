// Statements and transactions.
#include <tessaria/error.h>

#include "apps/check-server/guarantee.h"

namespace tessaria::check {
namespace {

bool Fails(host::Connection& connection, const String& statement) {
  try {
    connection.Execute(statement);
    return false;
  } catch (const HostError&) {
    return true;
  }
}

String CountOf(host::Connection& connection, const String& table) {
  return Subject::Scalar(connection, u"select count(*) from " + table);
}

Finding OneStatement(Subject& subject) {
  subject.Create(u"pieces", u"k int primary key");
  const String insert = u"insert into " + subject.Table(u"pieces") + u" values (1)";
  if (!Fails(subject.One(), insert + u"; " + insert)) return NotKept("two statements ran");
  return KeptIf(CountOf(subject.Other(), subject.Table(u"pieces")) == u"0",
                "the first of two statements ran");
}

Finding FailedStatement(Subject& subject) {
  subject.Create(u"failed", u"k int primary key");
  const String table = subject.Table(u"failed");
  const String insert = u"insert into " + table + u" values ";
  host::Connection& one = subject.One();
  one.BeginTrans();
  one.Execute(insert + u"(1)");
  if (!Fails(one, insert + u"(1)")) return NotKept("a key was stored twice");
  if (!Fails(one, u"selec")) return NotKept("a syntax error raised no error");
  one.Execute(insert + u"(2)");
  one.CommitTrans();
  return KeptIf(CountOf(subject.Other(), table) == u"2", "rows of the transaction are missing");
}

// Creates a table and stores a row in it, in a transaction that stays open. Returns its name.
String InsertInTransaction(Subject& subject, const char16_t* name) {
  subject.Create(name, u"k int primary key");
  subject.One().BeginTrans();
  subject.One().Execute(u"insert into " + subject.Table(name) + u" values (1)");
  return subject.Table(name);
}

Finding Rollback(Subject& subject) {
  const String table = InsertInTransaction(subject, u"undone");
  subject.One().RollbackTrans();
  return KeptIf(CountOf(subject.One(), table) == u"0", "a row that was undone is there");
}

Finding Visibility(Subject& subject) {
  const String table = InsertInTransaction(subject, u"seen");
  if (CountOf(subject.Other(), table) != u"0") return NotKept("seen before the commit");
  subject.One().CommitTrans();
  return KeptIf(CountOf(subject.Other(), table) == u"1", "not seen after the commit");
}

}  // namespace

std::vector<Guarantee> StatementGuarantees() {
  return {{"one statement a call", OneStatement},
          {"a failed statement leaves its transaction", FailedStatement},
          {"a rollback undoes", Rollback},
          {"a commit is seen by another session, and nothing before it", Visibility}};
}

}  // namespace tessaria::check
