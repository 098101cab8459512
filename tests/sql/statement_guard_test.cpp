#include "hosts/sql/statements/statement_guard.h"

#include <gtest/gtest.h>

#include "hosts/sql/errors/driver_error.h"
#include "tests/support/printers.h"

namespace tessaria::sql {
namespace {

using Control = StatementFacts::Control;

struct GuardCase {
  StringView text;
  bool accepted;
};

// One statement to PostgreSQL, or not.
constexpr GuardCase kPostgresCases[] = {
    {u"select 1", true},
    {u"select 1;", true},
    {u"select 1 ; ; -- fim", true},
    {u"select 1; /* fim */", true},
    {u"select 1; select 2", false},
    {u"select 1;drop table t", false},
    {u"select 1;\r\ndrop table t;", false},
    {u"", false},
    {u"  -- nada", false},
    {u";", false},
    // quotes
    {u"select ';'", true},
    {u"select 'a'';b'", true},
    {u"select 'a\\'; drop table t --'", false},
    {u"select E'a\\'; b'", true},
    {u"select e'a\\\\'; drop table t", false},
    {u"select E'a'';b'", true},
    {u"select nomeE'\\'; drop table t; --'", false},
    {u"select \"a;b\"", true},
    {u"select \"a\"\";b\"", true},
    {u"select \"a\"; drop table t", false},
    // what never ends
    {u"select 'sem fim; drop table t", false},
    {u"select \"sem fim", false},
    {u"select $$sem fim", false},
    {u"select $a$sem fim$b$", false},
    {u"select 1 /* sem fim", false},
    {u"select 1 /* /* */", false},
    {u"select E'sem fim\\'", false},
    {u"select E'sem fim\\", false},
    // a text that continues on another line is of the kind of its first part
    {u"select E'' \n'\\''; drop table t; --'", false},
    {u"select E'' \n'\\'; drop table t; --'", true},
    {u"select 1 or '' = E'' --\n'\\''; drop table t; --", false},
    {u"select E'a'--b\r--c\n 'd\\'; drop table t; --'", true},
    {u"select 'a'\n'\\'; drop table t; --'", false},
    {u"select E'a' '\\'; drop table t; --'", false},
    {u"select E'a' /**/\n'\\'; drop table t; --'", false},
    {u"select B'0'\n'1'", true},
    {u"select B'0''; drop table t; --'", true},
    {u"select X'0'''; drop table t; --", false},
    {u"select U&'\\0061;'", true},
    // dollar quotes
    {u"select $$a;b$$", true},
    {u"select $x$a;$$;b$x$", true},
    {u"select $x$a$y$; drop table t; --$x$", true},
    {u"select $x$a$x$; drop table t", false},
    {u"select a$b$; drop table t; select a$b$", false},
    {u"select 1$a$ ' $a$; drop table t; --'", false},
    {u"select $1; drop table t", false},
    {u"select $1$a$ ; $a$", true},
    // numbers end where the server ends them
    {u"select 1E'\\'; drop table t; --'", false},
    {u"select 1a", false},
    {u"select 0x1F, 1", false},
    {u"select 1_000", false},
    {u"select 1..2", true},
    {u"select .5, 5., 1.5e3", true},
    {u"select 1e5E'a\\''; drop table t; --'", false},
    {u"select $1e5E'\\'; drop table t; --'", false},
    {u"select 1.5e-3", true},
    // comments
    {u"select 1 -- ; drop table t", true},
    {u"select 1 -- x\n; drop table t", false},
    {u"select 1 /* ; */", true},
    {u"select 1 /* /* */ ; */", true},
    {u"select 1 /* /* */ */ ; drop table t", false},
    {u"select '/*'; drop table t; --*/", false},
    {u"select 1 /*' */ ; drop table t; --'", false},
    {u"select 1 --'\n; drop table t; --'", false},
    // brackets are subscripts, not quotes
    {u"select a['x]'; drop table t; --']", false},
    {u"select a['x;]']", true},
    {u"select a[1]; drop table t", false},
    // what the driver would replace
    {u"select '?', '{fn now()}', \"a?{b\"", true},
    {u"select $$?{}$$ /* ? { */ -- ? {", true},
    {u"select ? ", false},
    {u"select {fn now()}", false},
    {u"select 1 }", false},
    {u"select campo::date", true},
    // blanks and signs that not every server reads in the same way
    {u"select\v1", false},
    {u"select\u00A01", false},
    {u"select\u30001", false},
    {u"select 1\uFEFF", false},
    {u"select 1\x01", false},
    {u"select '\u00A0\v\x01'", true},
    {u"select ção, \u6F22\u5B57", true},
    // comment marks inside of operators
    {u"select 1 +-- '\n 2; drop table t --'", false},
    {u"select 1 @/* ' */ 2; drop table t --'", false},
};

TEST(StatementGuard, RefusesASecondStatementForPostgres) {
  for (const GuardCase& c : kPostgresCases) {
    SCOPED_TRACE(ToUtf8(c.text));
    if (c.accepted) {
      EXPECT_NO_THROW(RequireSingleStatement(c.text, Dialect::PostgreSql));
    } else {
      EXPECT_HOST_ERROR(RequireSingleStatement(c.text, Dialect::PostgreSql),
                        errors::ErrorsInCommand);
    }
  }
}

TEST(StatementGuard, ReadsBackslashesAsTheServerDoes) {
  const auto accepts = [](StringView text, bool backslashes) {
    try {
      RequireSingleStatement(text, Dialect::PostgreSql, backslashes);
      return true;
    } catch (const HostError&) {
      return false;
    }
  };
  EXPECT_TRUE(accepts(u"select 'a\\'", false));
  EXPECT_FALSE(accepts(u"select 'a\\'", true));
  EXPECT_TRUE(accepts(u"select 'a\\'; drop table t; --'", true));
  EXPECT_FALSE(accepts(u"select 'a\\'; drop table t; --'", false));
  EXPECT_TRUE(accepts(u"select N'a\\''; b'", false));
  EXPECT_FALSE(accepts(u"select N'a\\''; b'", true));
}

TEST(StatementGuard, RefusesATextThatTheDriverWouldCut) {
  for (const String& text : {String(u"select 1\0; drop table t", 23), String(u"select '\0'", 10),
                             u"select '" + String(1, char16_t{0xD83D}) + u"'"})
    EXPECT_HOST_ERROR(RequireSingleStatement(text, Dialect::PostgreSql), errors::InvalidArgument);
}

TEST(StatementGuard, ReportsWhereATextBecomesUnreadable) {
  try {
    RequireSingleStatement(u"select 1 where nome = 'sem fim", Dialect::PostgreSql);
    FAIL();
  } catch (const HostError& error) {
    EXPECT_EQ(error.Description(),
              u"O comando SQL não pode ser lido com certeza a partir de \"'sem fim\": falta fechar "
              u"um texto, um nome ou um comentário, ou há sinais que não são aceitos.");
  }
}

// A database that takes statements one after the other without a semicolon, and [names].
constexpr GuardCase kSqlServerCases[] = {
    {u"Select Top 1 nome From t Where codigo = 15", true},
    {u"Select [a;b], 'x;y' From t", true},
    {u"Select [a]];b] From t", true},
    {u"Select [a]; drop table t", false},
    {u"Select nome From t Where nome = 'drop table t'", true},
    {u"Select [drop], \"delete\" From t", true},
    {u"Select t.[set], t.\"use\" From dbo.[begin] t Where t.[commit] = 1", true},
    {u"Update t set a = 1 Where b = (Select 1)", true},
    {u"Insert into t Select * From u", true},
    {u"Select {fn now()}, a From t Where b = ?", true},
    {u"Select 1 /* /* */ ; */", true},
    {u"Select a From t Where codigo = 15.drop table t", false},
    {u"Select a From t Where codigo = 15edrop table t", false},
    {u"Select a From t Where codigo = 0x1F", true},
    {u"Select a From t Where codigo = 1\u00A0drop table t", false},
    {u"Select a From t -- x\r'\n drop table t --'", false},
    {u"Select a From t -- x\r\n Where b = 1", true},
    // further outermost queries
    {u"Select nome From t Where codigo = 15 Select 1", false},
    {u"Select nome From t Where codigo = 15 Select * Into u From t", false},
    {u"Select nome From t Where codigo in (15) Select 1 From (u)", false},
    {u"Select * Into u From t", true},
    {u"Select a From t Union All Select a From u Except Select 1", true},
    {u"Select a From t Where b in (Select b From u)", true},
    {u"With x as (Select 1 a) Select a From x", true},
    {u"With x as (Select 1 a) Select a From x Select 2", false},
    {u"(Select 1) drop table x", false},
    {u"((Select 1)) drop table x", false},
    {u"(Select 1) Select 2", false},
    {u"(Select 1) (Select 2)", false},
    {u"(Select 1) Union Select 2", true},
    {u"(Select 1) Union (Select 2) Order By 1", true},
    {u"Select nome From t Where codigo in (15) (Select 1)", false},
    {u"Select nome From t Where codigo = 15 ((Select 1))", false},
    {u"Select nome From t Where codigo = 'a' (Select 1)", false},
    {u"Select nome From t a (Select 1)", false},
    {u"Select (Select 1), a + (Select 2) From (Select 3 a) t Where a in (Select 4)", true},
    {u"Select a From t Where a = 1 And (Select 1) = 1 Or Exists (Select 1)", true},
    // what changes rows
    {u"Update t set a = 1 drop table x", false},
    {u"Update t set a = 1 set nocount on", false},
    {u"Update t set a = 1 Select 1", false},
    {u"Update t set a = 1 Where b = 2 (Select 1)", false},
    {u"Update t set a = (Select 1), b = 2 From t Inner Join u On t.a = u.a", true},
    {u"Delete From t Where a = 1 Delete From u", false},
    {u"Delete From t Where a in (Select a From u)", true},
    {u"Insert into t (a) Values (1), (2)", true},
    {u"Insert into t (a) Values (1) Select 2", false},
    {u"Insert into t (a) Values (1) exec xp", false},
    {u"Insert into t Default Values exec xp", false},
    {u"Insert into t (a) (Select 1)", true},
    {u"Insert into t (a) (Select 1) (Select 2)", false},
    {u"Insert into t (a) (Select 1) Select 2", false},
    {u"Insert into t Select 1 Union All Select 2", true},
    {u"Insert into t Select 1 Select 2", false},
    {u"Insert into t exec xp", true},
    {u"Insert into t exec xp drop table x", false},
    // a batch of the program's own
    {u"If 1 = 1 Drop Table t", true},
    {u"Declare @a int Select @a = 1", true},
    // a line end that a backslash removes from a text
    {u"Select 'a\\b', 'c\\'", true},
    {u"Select 'a\\\nb'", false},
    {u"Select 'a\\\r\nb'", false},
    {u"Select [a\\\n]", false},
    {u"Select 'a\nb'", true},
    // what only looks like a start
    {u"Select Case When a = 1 Then 2 End From t", true},
    {u"Select a From t Option (Use Hint ('FORCE_LEGACY_CARDINALITY_ESTIMATION'))", true},
    {u"Select a From t Inner Merge Join u On a = b", true},
    {u"Select a From t With (NoLock) Order By a Offset 0 Rows Fetch Next 5 Rows Only", true},
    {u"Select setor, useful, printed, ifo, opened From t", true},
};

TEST(StatementGuard, FindsStatementsWithoutSemicolonWhenTheDialectTakesThem) {
  for (const GuardCase& c : kSqlServerCases) {
    SCOPED_TRACE(ToUtf8(c.text));
    if (c.accepted) {
      EXPECT_NO_THROW(RequireSingleStatement(c.text, Dialect::SqlServer));
    } else {
      EXPECT_HOST_ERROR(RequireSingleStatement(c.text, Dialect::SqlServer),
                        errors::ErrorsInCommand);
    }
  }
}

// What a typed value could append to a lookup.
constexpr StringView kAppended[] = {
    u"drop table t",
    u"exec xp",
    u"use master",
    u"set nocount on",
    u"declare @a int",
    u"dbcc checkdb",
    u"commit",
    u"rollback",
    u"save transaction a",
    u"begin transaction",
    u"if 1 = 1 print 1",
    u"while 1 = 1 print 1",
    u"bulk insert t from 'x'",
    u"reconfigure",
    u"raiserror('x', 16, 1)",
    u"print 'x'",
    u"select 1",
    u"waitfor delay '1:00'",
    u"kill 51",
    u"checkpoint",
    u"disable trigger a on t",
    u"update t set a = 1",
    u"revert",
    u"open c",
    u"return",
    u"goto a",
    u"truncate table t",
};

TEST(StatementGuard, RefusesEveryStatementThatNeedsNoSemicolon) {
  for (const StringView appended : kAppended) {
    const String text = u"Select nome From t Where codigo = 15 " + String(appended);
    EXPECT_HOST_ERROR(RequireSingleStatement(text, Dialect::SqlServer), errors::ErrorsInCommand)
        << ToUtf8(text);
  }
}

// Access runs one statement and reports the rest as an error; its reserved words are different.
TEST(StatementGuard, AccessMayNameColumnsAsItLikes) {
  EXPECT_NO_THROW(RequireSingleStatement(u"Select Print, Use From [a;b]", Dialect::Access));
  EXPECT_HOST_ERROR(RequireSingleStatement(u"Select [a]; drop table t", Dialect::Access),
                    errors::ErrorsInCommand);
  EXPECT_NO_THROW(
      RequireSingleStatement(u"Select a From t Where d = #12/25/2017 '#", Dialect::Access));
  // Access has no comments: "--" would be two signs.
  EXPECT_HOST_ERROR(RequireSingleStatement(u"Select 1 -- 1", Dialect::Access),
                    errors::ErrorsInCommand);
}

TEST(StatementGuard, TakesNoSemicolonInsideWhenTheQuotingIsUnknown) {
  EXPECT_NO_THROW(RequireSingleStatement(u"select 'a';", Dialect::Other));
  EXPECT_HOST_ERROR(RequireSingleStatement(u"select 'a;b'", Dialect::Other),
                    errors::ErrorsInCommand);
}

TEST(StatementGuard, CutsTheTrailingSemicolon) {
  EXPECT_EQ(RequireSingleStatement(u"select ';' ; ;", Dialect::PostgreSql).text, u"select ';' ");
}

struct FactCase {
  StringView text;
  bool plain, small, single, name;
};

constexpr FactCase kFactCases[] = {
    {u"select a from t", true, false, true, false},
    {u"Select codigo From t Where codigo = 15 Limit 1", true, true, true, false},
    {u"select a from t limit 5000", true, false, true, false},
    {u"select a from t limit all", true, false, true, false},
    {u"select a from t limit 1e5", true, false, true, false},
    {u"select a from (select b from t limit 1) x", true, false, false, false},
    {u"values (1), (2)", true, false, false, false},
    {u"with x as (select 1) select * from x", true, false, false, false},
    {u"with x as (delete from t returning a) select * from x", false, false, false, false},
    {u"select a into b from t", false, false, true, false},
    {u"select a from t for update", false, false, true, false},
    {u"select a from t, u", true, false, false, false},
    {u"select a from t join u on t.a = u.a", true, false, false, false},
    {u"select a from t where a in (select a from u, v)", true, false, true, false},
    {u"select a from t order by a, b", true, false, true, false},
    {u"select distinct a from t", true, false, false, false},
    {u"select a from t group by a", true, false, false, false},
    {u"select a from t union select b from u", true, false, false, false},
    {u"update t set a = 1", false, false, false, false},
    {u"show server_version", false, false, false, false},
    {u"clientes", false, false, false, true},
    {u"vendas.\"Clientes Novos\"", false, false, false, true},
};

TEST(StatementGuard, RecognisesWhatAStatementIs) {
  for (const FactCase& c : kFactCases) {
    SCOPED_TRACE(ToUtf8(c.text));
    const StatementFacts facts = RequireSingleStatement(c.text, Dialect::PostgreSql);
    EXPECT_EQ(facts.isPlainQuery, c.plain);
    EXPECT_EQ(facts.isSmallQuery, c.small);
    EXPECT_EQ(facts.isSingleTable, c.single);
    EXPECT_EQ(facts.isName, c.name);
  }
}

struct ControlCase {
  StringView text;
  Control control;
};

constexpr ControlCase kControlCases[] = {
    {u"begin", Control::Begin},
    {u"Start Transaction", Control::Begin},
    {u"begin isolation level serializable", Control::Begin},
    {u"commit work", Control::Commit},
    {u"end", Control::Commit},
    {u"rollback", Control::Rollback},
    {u"abort", Control::Rollback},
    {u"rollback to savepoint a", Control::Savepoint},
    {u"savepoint a", Control::Savepoint},
    {u"release a", Control::Savepoint},
    {u"commit prepared 'x'", Control::None},
    {u"select 1", Control::None},
};

TEST(StatementGuard, RecognisesTransactionControl) {
  for (const ControlCase& c : kControlCases) {
    EXPECT_EQ(RequireSingleStatement(c.text, Dialect::PostgreSql).control, c.control)
        << ToUtf8(c.text);
  }
  EXPECT_EQ(
      RequireSingleStatement(u"begin work isolation level serializable", Dialect::PostgreSql).modes,
      u"ISOLATION LEVEL SERIALIZABLE");
}

struct OrderCase {
  StringView text;
  StringView unordered;  // without blanks at its end
  StringView first;
};

constexpr OrderCase kOrderCases[] = {
    {u"select a, b from t", u"select a, b from t", u""},
    {u"select a, b from t order by a", u"select a, b from t", u"A"},
    {u"select a, b from t Order By 2 asc, a", u"select a, b from t", u"2"},
    {u"select a from t order by a desc", u"select a from t", u""},
    {u"select a from t order by a nulls first", u"select a from t", u""},
    {u"select a from t order by lower(a)", u"select a from t", u""},
    {u"select a from t order by t.a", u"select a from t", u""},
    {u"select a, row_number() over (order by b) from t order by a", u"", u""},
    {u"select 'order by', a from t order by a", u"select 'order by', a from t", u"A"},
    {u"with q as (select 1 as a order by 1) select a from q order by a",
     u"with q as (select 1 as a order by 1) select a from q", u"A"},
    {u"select a from t union select b from u order by a", u"select a from t union select b from u",
     u"A"},
    {u"select a from t order by a limit 5", u"", u""},
    {u"select a from t order by a offset 5", u"", u""},
    {u"select a from t order by a fetch first 5 rows only", u"", u""},
    {u"select distinct on (a) a, b from t order by a, b", u"", u""},
    {u"select a from t order by a for update", u"", u""},
    {u"delete from t", u"", u""},
};

TEST(StatementGuard, KnowsTheRowsWithoutTheirOrder) {
  for (const OrderCase& c : kOrderCases) {
    const StatementFacts facts = RequireSingleStatement(c.text, Dialect::PostgreSql);
    EXPECT_EQ(ToUtf8(RTrim(StringView(facts.text).substr(0, facts.rowsEnd))), ToUtf8(c.unordered))
        << ToUtf8(c.text);
    EXPECT_EQ(ToUtf8(facts.firstOrder), ToUtf8(c.first)) << ToUtf8(c.text);
  }
}

struct EffectCase {
  StringView text;
  bool locks, state;
};

constexpr EffectCase kEffectCases[] = {
    {u"select a from t", false, false},
    {u"select a from t for update", false, false},
    {u"with q as (delete from t returning a) select a from q", false, false},
    {u"values (1)", false, false},
    {u"insert into t values (1)", false, false},
    {u"update t set a = 1", false, false},
    {u"delete from t", false, false},
    {u"alter table t add b int", true, false},
    {u"truncate t", true, false},
    {u"drop table t", true, false},
    {u"lock table t", true, false},
    {u"create rule r as on delete to t do nothing", true, false},
    {u"notify x", false, false},
    {u"analyze t", false, false},
    {u"show search_path", false, false},
    {u"vacuum full t", true, false},
    {u"refresh materialized view m", true, false},
    {u"create temp table x as select 1", true, true},
    {u"select a into temporary x from t", false, true},
    {u"set search_path = x", false, true},
    {u"reset all", false, true},
    {u"select set_config('a.b', 'c', false)", false, true},
    {u"select pg_catalog.SET_CONFIG('a.b', 'c', false)", false, true},
    {u"do $$ begin end $$", true, true},
    {u"call p()", true, true},
    {u"discard temp", false, true},
    {u"select 'set', \"temp\" from t", false, false},
};

TEST(StatementGuard, KnowsWhatAStatementMayLeaveOrLock) {
  for (const EffectCase& c : kEffectCases) {
    const StatementFacts facts = RequireSingleStatement(c.text, Dialect::PostgreSql);
    EXPECT_EQ(facts.mayLockTables, c.locks) << ToUtf8(c.text);
    EXPECT_EQ(facts.leavesState, c.state) << ToUtf8(c.text);
  }
}

TEST(StatementGuard, KnowsTheFamilies) {
  EXPECT_EQ(DialectOf(u"PostgreSQL"), Dialect::PostgreSql);
  EXPECT_EQ(DialectOf(u"Microsoft SQL Server"), Dialect::SqlServer);
  for (const StringView name : {u"ACCESS", u"MS Jet"}) {
    EXPECT_EQ(DialectOf(name), Dialect::Access) << ToUtf8(name);
  }
  EXPECT_EQ(DialectOf(u"SQLite"), Dialect::Other);
}

}  // namespace
}  // namespace tessaria::sql
