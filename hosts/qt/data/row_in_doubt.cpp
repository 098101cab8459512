#include "hosts/qt/data/row_in_doubt.h"

#include <utility>
#include <vector>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/stored_match.h"

namespace tessaria::qt {
namespace {

constexpr Long kPortion = 1000;  // rows that are read at once

/// The values that were assigned to the new row, by column.
using Given = std::vector<std::pair<Long, Variant>>;

Given givenValues(host::Recordset& rows) {
  Given given;
  for (Long i = 0; i < rows.Fields().Count(); ++i)
    if (Variant value = rows.Fields().Item(i)->Value(); !value.IsNull())
      given.emplace_back(i, std::move(value));
  return given;
}

/// Compares the values as the columns store them.
bool holds(host::Recordset& rows, Long row, const Given& given) {
  for (const auto& [column, value] : given) {
    const host::FieldPtr field = rows.Fields().Item(column);
    const ColumnShape shape{field->Type(), field->DefinedSize(), field->NumericScale()};
    if (!IsStoredFrom(value, rows.ValueAt(row, column), shape)) return false;
  }
  return !given.empty();
}

/// The number of the last row with the values of the new one; 0 for none.
Long rowLikeTheNewOne(host::Recordset& rows) {
  const Given given = givenValues(rows);
  while (rows.FetchMore(kPortion)) continue;
  Long row = rows.RowsRead();
  while (row > 0 && !holds(rows, row, given)) --row;
  return row;
}

[[noreturn]] void tell(const String& text) { throw HostError(errors::WriteInDoubt, text); }

}  // namespace

void writeOrLookFor(host::Recordset& rows) {
  const bool wasInDoubt = rows.IsInDoubt();
  try {
    return rows.Update();
  } catch (const HostError& error) {
    const bool isNew = rows.EditMode() == host::EditMode::Add;
    if (error.Number() != errors::WriteInDoubt || !isNew || !wasInDoubt) throw;
  }
  lookForNewRow(rows);
}

void lookForNewRow(host::Recordset& rows) {
  rows.Requery();
  const Long row = rowLikeTheNewOne(rows);
  if (row == 0)
    tell(
        u"Não se sabia se o registro novo foi gravado quando a conexão caiu. Os dados foram lidos "
        u"outra vez, e nenhum registro tem os mesmos valores. O banco de dados pode ter gravado "
        u"outros no lugar deles: confira. Se o registro não estiver lá, grave-o; se estiver, "
        u"cancele o novo.");
  tell(
      u"Não se sabia se o registro novo foi gravado quando a conexão caiu. Os dados foram lidos "
      u"outra vez: o registro " +
      CStr(row) + u" tem os mesmos valores. Se for ele, cancele o novo; se for outro, grave-o.");
}

void tellGivenUpInDoubt(host::EditMode edit) {
  const String done = edit == host::EditMode::None ? u"excluído" : u"gravado";
  tell(u"O registro pode ter sido " + done +
       u" ou não quando a conexão caiu. Leia os dados outra vez para ver como ficou.");
}

}  // namespace tessaria::qt
