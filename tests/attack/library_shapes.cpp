#include "tests/attack/library_shapes.h"

#include <algorithm>
#include <regex>
#include <string_view>

namespace tessaria::attack {
namespace {

// Patterns repeat only short pieces: the matching of the standard library recurses once for each
// repetition, so long texts are compared without it.
bool IsCatalogueQuery(std::string_view shape) {
  return (shape.starts_with("select n . ") || shape.starts_with("select ta . ")) &&
         shape.find(" pg_catalog . ") != shape.npos;
}

// A statement on the row of a form, which passes values only as parameters.
bool IsRowStatement(std::string_view shape) {
  return (shape.starts_with("select \"id\" , ") ||
          shape.starts_with("update \"public\" . \"ficha\" set ")) &&
         shape.find_first_of(";S") == shape.npos;
}

// The query inside a cursor that reads dates as texts.
std::string Unwrapped(const std::string& shape) {
  static const std::regex opening(
      "^close tessaria_rows ; declare tessaria_rows no scroll cursor for select [castex(), ]+ from "
      "\\( ");
  static const std::regex closing(" \\) as tessaria_rows \\( [c, ]+ \\)$");
  std::smatch begin;
  std::smatch end;
  if (!std::regex_search(shape, begin, opening) || !std::regex_search(shape, end, closing))
    return shape;
  return {begin.suffix().first, end.prefix().second};
}

// A query without what its cursor adds: the first portion, and the reading of dates as texts.
std::string WithoutCursor(const std::string& shape) {
  static const std::regex portion(" ; fetch N from tessaria_rows$");
  static const std::regex cursor(
      "^(begin ; )?(set transaction isolation level repeatable read ; )?"
      "declare tessaria_rows no scroll cursor for ");
  return Unwrapped(std::regex_replace(std::regex_replace(shape, portion, ""), cursor, ""));
}

}  // namespace

bool IsShapeOfTheLibrary(const std::string& sent) {
  const std::string shape = WithoutCursor(sent);
  const std::string column = "(codigo|nome)";
  const std::string condition =
      "(uf < > S|codigo < > N|nome not like S|(\"[^ \"]*\"|Q) is not null|\\( clientes \\. codigo "
      "= N \\)|"
      "\\( clientes \\. nome ilike S \\)|\\( clientes \\. nascimento > = S : : date \\)|" +
      column + " (ilike S|= [SN]|is not null))( and |(?= order| limit|$))";
  const std::string key =
      "(cast \\( " + column + " as integer \\) = N|cast \\( lower \\( " + column +
      " \\) as varchar \\) = cast \\( lower \\( S \\) as varchar \\)|cast \\( " + column +
      " as varchar \\) = cast \\( [SN] as varchar \\)|" + column + " = null)";
  const std::string from = " from clientes where ";
  static const std::regex expected[] = {
      std::regex(
          "(begin|commit|rollback|savepoint \\w+|release( savepoint)? \\w+|rollback to \\w+) ?;?"),
      std::regex("(fetch N from|close) tessaria_rows ;?"),
      std::regex("show standard_conforming_strings"),
      std::regex("(begin ; )?(declare tessaria_rows no scroll cursor for )?select \\* from ficha "
                 "where id = N"),
      std::regex("(begin ; )?(declare tessaria_rows no scroll cursor for )?select (codigo , "
                 "nome|nome , codigo)" +
                 from + "(" + condition + ")+ order by (codigo|nome|nascimento|N)"),
      std::regex("select (codigo|nome|codigo , nome|nome , codigo)" + from + "(" + condition +
                 ")+ limit N"),
      std::regex("select " + column + from + key + "( and (" + condition + ")+)? limit N")};
  return IsCatalogueQuery(shape) || IsRowStatement(shape) ||
         std::ranges::any_of(
             expected, [&](const std::regex& pattern) { return std::regex_match(shape, pattern); });
}

}  // namespace tessaria::attack
