#include "wizard/reserved_words.h"

#include "tessaria/text.h"

namespace tessaria::wizard {
namespace {

// Each word between two blanks.

constexpr StringView kPostgreSQL =
    u" all analyse analyze and any array as asc asymmetric authorization binary both case cast "
    u"check collate collation column concurrently constraint create cross current_catalog "
    u"current_date current_role current_schema current_time current_timestamp current_user "
    u"default deferrable desc distinct do else end except false fetch for foreign freeze from "
    u"full grant group having ilike in initially inner intersect into is isnull join lateral "
    u"leading left like limit localtime localtimestamp natural not notnull null offset on only "
    u"or order outer overlaps placing primary references returning right select session_user "
    u"similar some symmetric system_user table tablesample then to trailing true union unique "
    u"user using variadic verbose when where window with ";

constexpr StringView kSqlServer =
    u" add all alter and any as asc authorization backup begin between break browse bulk by "
    u"cascade case check checkpoint close clustered coalesce collate column commit compute "
    u"constraint contains containstable continue convert create cross current current_date "
    u"current_time current_timestamp current_user cursor database dbcc deallocate declare "
    u"default delete deny desc disk distinct distributed double drop dump else end errlvl escape "
    u"except exec execute exists exit external fetch file fillfactor for foreign freetext "
    u"freetexttable from full function goto grant group having holdlock identity identity_insert "
    u"identitycol if in index inner insert intersect into is join key kill left like lineno load "
    u"merge national nocheck nonclustered not null nullif of off offsets on open opendatasource "
    u"openquery openrowset openxml option or order outer over percent pivot plan precision "
    u"primary print proc procedure public raiserror read readtext reconfigure references "
    u"replication restore restrict return revert revoke right rollback rowcount rowguidcol rule "
    u"save schema securityaudit select semantickeyphrasetable semanticsimilaritydetailstable "
    u"semanticsimilaritytable session_user set setuser shutdown some statistics system_user "
    u"table tablesample textsize then to top tran transaction trigger truncate try_convert "
    u"tsequal union unique unpivot update updatetext use user values varying view waitfor when "
    u"where while with within writetext ";

constexpr StringView kAccess =
    u" add all alphanumeric alter and any as asc autoincrement avg between binary bit boolean by "
    u"byte char character column constraint count counter create currency database date datetime "
    u"delete desc disallow distinct distinctrow double drop else end eqv error exists exit false "
    u"field fields float float4 float8 foreign from full function general group guid having if "
    u"ignore imp in index inner insert int integer integer1 integer2 integer4 into is join key "
    u"left level like logical logical1 long longbinary longtext max memo min mod money name no "
    u"not note null number numeric off oleobject on option or order outer owneraccess parameter "
    u"parameters partial percent pivot primary procedure property real references right section "
    u"select set short single smallint some sql stdev stdevp string sum table text time "
    u"timestamp top transform true type union unique update user value values var varbinary "
    u"varchar varp where with xor year yes yesno ";

StringView WordsOf(SqlFamily family) {
  switch (family) {
    case SqlFamily::SqlServer:
      return kSqlServer;
    case SqlFamily::Access:
      return kAccess;
    case SqlFamily::PostgreSQL:
    case SqlFamily::Unknown:
      break;
  }
  return kPostgreSQL;
}

}  // namespace

bool IsReserved(SqlFamily family, const String& word) {
  return WordsOf(family).find(u" " + LCase(word) + u" ") != StringView::npos;
}

}  // namespace tessaria::wizard
