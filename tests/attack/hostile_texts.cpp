#include "tests/attack/hostile_texts.h"

#include <algorithm>

namespace tessaria::attack {
namespace {

using namespace std::string_view_literals;

constexpr std::size_t kMostParts = 4;
constexpr std::size_t kLongText = 20'000;

// With their length, because some hold a NUL.
constexpr StringView kFragments[] = {
    // Quotes and characters that look like them.
    u"'"sv, u"''"sv, u"'''"sv, u"\""sv, u"\"\""sv, u"`"sv, u"´"sv, u"’"sv, u"＇"sv, u"ʼ"sv,
    // Comments and ends of statements.
    u"--"sv, u"--\n"sv, u"/*"sv, u"*/"sv, u"/*/**/"sv, u"#"sv, u";"sv, u";;"sv, u"\n"sv, u"\r"sv,
    u"\r\n"sv, u"\t"sv, u" "sv, u"  "sv, u"\v"sv, u"\f"sv,
    // Dollar quotes, escapes, parameters of drivers.
    u"$$"sv, u"$a$"sv, u"$1"sv, u"$"sv, u"\\"sv, u"\\'"sv, u"\\\\'"sv, u"\\047"sv, u"\\x27"sv,
    u"E''"sv, u"E'\\''"sv, u"U&'\\0027'"sv, u"U&\"\\0022\""sv, u"B'1'"sv, u"X'27'"sv, u"N''"sv,
    u"%27"sv, u"&#39;"sv, u"?"sv, u"??"sv, u"{"sv, u"}"sv, u"{fn now()}"sv, u"{d '2001-01-01'}"sv,
    u":x"sv, u"::text"sv,
    // Controls, the NUL among them.
    u"\0"sv, u"a\0b"sv, u"\x01"sv, u"\b"sv, u"\x1a"sv, u"\x1b"sv, u"\x7f"sv, u"\x85"sv, u"\xa0"sv,
    u"\xad"sv,
    // Every plane, direction marks, joiners, code points that are not characters.
    u"é"sv, u"ÇÃO"sv, u"ß"sv, u"İ"sv, u"ǅ"sv, u"e\x0301"sv, u"中"sv, u"\xFEFF"sv, u"\xFFFE"sv,
    u"\xFFFF"sv, u"\xFFFD"sv, u"\xE000"sv, u"\U0001F600"sv, u"\U00020000"sv, u"\U00030000"sv,
    u"\U00040000"sv, u"\U00050000"sv, u"\U00060000"sv, u"\U00070000"sv, u"\U00080000"sv,
    u"\U00090000"sv, u"\U000A0000"sv, u"\U000B0000"sv, u"\U000C0000"sv, u"\U000D0000"sv,
    u"\U000E0001"sv, u"\U000F0000"sv, u"\U00100000"sv, u"\U0010FFFF"sv, u"\x200B"sv, u"\x200D"sv,
    u"\x200E"sv, u"\x200F"sv, u"\x202A"sv, u"\x202E"sv, u"\x2066"sv, u"\x2069"sv, u"\x2028"sv,
    u"\xD800"sv, u"\xDC00"sv, u"\xDC00\xD800"sv, u"a\xDBFF"sv, u"\xDFFFz"sv,
    // Numbers in many spellings.
    u"0"sv, u"1"sv, u"-1"sv, u"+1"sv, u"--1"sv, u"- 1"sv, u"1-"sv, u"(1)"sv, u"12,5"sv, u"12.5"sv,
    u"1.234,56"sv, u"1,234.56"sv, u"1e5"sv, u"1E+400"sv, u"1d3"sv, u".5"sv, u",5"sv, u"5."sv,
    u"R$ 1,00"sv, u"&H1F"sv, u"&O17"sv, u"0x1F"sv, u"1_000"sv, u"NaN"sv, u"Infinity"sv,
    u"-infinity"sv, u"9007199254740993"sv, u"99999999999999999999"sv, u"-32769"sv, u"2147483648"sv,
    u"0,000000001"sv, u"１２"sv, u"٣"sv, u"1 2"sv, u"1\t"sv,
    // Dates and booleans.
    u"25/12/2017"sv, u"31/02/2017"sv, u"25122017"sv, u"2017-12-25"sv, u"1/1/1"sv, u"31/12/9999"sv,
    u"24:00"sv, u"23:59:59,9999"sv, u"today"sv, u"epoch"sv, u"01/01/0001 BC"sv, u"true"sv, u"t"sv,
    u"Verdadeiro"sv, u"null"sv, u"NULL"sv, u"default"sv,
    // SQL.
    u" or "sv, u" or 1=1"sv, u" or true"sv, u" and 1=0"sv, u"0 or true"sv, u" union select 'x'"sv,
    u" is null"sv, u" in (1)"sv, u" limit 0"sv, u" returning 1"sv, u"drop table alvo"sv,
    u"delete from alvo"sv, u"update alvo set x = 0"sv, u"select 1"sv, u"commit"sv, u"rollback"sv,
    u" as integer)"sv, u"cast("sv, u"pg_sleep(1)"sv, u"current_user"sv, u"codigo"sv, u"alvo"sv,
    // Formats, patterns, parameters of the library, the characters of masks.
    u"%"sv, u"%s"sv, u"%n"sv, u"%d%n"sv, u"%99999999d"sv, u"_"sv, u"*"sv, u"[a]"sv, u"^"sv, u"|"sv,
    u"~"sv, u"@"sv, u"@@"sv, u"@pai@"sv, u"@nada@"sv, u"joao@x"sv, u"@pai"sv, u"&Nome"sv,
    u"<b>x</b>"sv, u"__/__/____"sv, u"0#dmyAaC$XN"sv, u"$$$.$$"sv, u"N00A"sv, u"(00) 0"sv, u"abc"sv,
    u"Ana"sv, u"7"sv, u"O'Brien"sv, u"C:\\x\\y"sv, u"/etc/passwd"sv, u"..\\..\\"sv};

// Complete attacks, each of which has harmed some program.
constexpr StringView kAttacks[] = {u"'; drop table alvo; --"sv,
                                   u"1; drop table alvo"sv,
                                   u"1; drop table alvo; --"sv,
                                   u"x'; delete from alvo where ''='"sv,
                                   u"' or ''='"sv,
                                   u"' or 1=1 --"sv,
                                   u"0 or true"sv,
                                   u"1 or pg_sleep(1) is null"sv,
                                   u"1 or '' = E'' --\n'\\''; drop table alvo; --"sv,
                                   u"1 or '' = E'' -- \r\n '\\''; drop table alvo; --"sv,
                                   u"1 or '' = U&'' --\n'\\0027'; drop table alvo; --"sv,
                                   u"1 or '' = '' --\n'''; drop table alvo; --"sv,
                                   u"1 /* /* */ ; drop table alvo; -- */"sv,
                                   u"1 $$ ; drop table alvo; $$"sv,
                                   u"1 or $a$'$a$ = '; drop table alvo; --'"sv,
                                   u"\\'; drop table alvo; --"sv,
                                   u"\\\\'; drop table alvo; --"sv,
                                   u"1 as integer); drop table alvo; --"sv,
                                   u"1) or (1=1"sv,
                                   u"1 union select usename from pg_user"sv,
                                   u"0); copy alvo to program 'true'; --"sv,
                                   u"'||(select 'x')||'"sv,
                                   u"1'::text||'"sv,
                                   u"\0'; drop table alvo; --"sv,
                                   u"'\0; drop table alvo; --"sv,
                                   u"%' or '%'='"sv,
                                   u"@pai@'; drop table alvo; --"sv,
                                   u"1 -- "sv,
                                   u"1 /*"sv,
                                   u"-- "sv,
                                   u"1 or exists(select 1 from alvo)"sv};

String Repeated(StringView part) {
  String text;
  while (text.size() < kLongText) text += part;
  return text;
}

}  // namespace

std::vector<String> HostileTexts(std::size_t count, Random& random) {
  std::vector<String> texts;
  for (const StringView text : kAttacks) texts.emplace_back(text);
  for (const StringView text : kFragments) texts.emplace_back(text);
  for (const StringView part : {u"a"sv, u"'"sv, u"9"sv, u"\\"sv, u"中"sv, u"\U0001F600"sv, u"("sv})
    texts.push_back(Repeated(part));
  while (texts.size() < count) {
    String text;
    for (std::size_t n = 2 + random.Below(kMostParts - 1); n > 0; --n)
      text += random.Chance(15) ? random.OneOf(kAttacks) : random.OneOf(kFragments);
    if (std::ranges::find(texts, text) == texts.end()) texts.push_back(text);
  }
  return texts;
}

}  // namespace tessaria::attack
