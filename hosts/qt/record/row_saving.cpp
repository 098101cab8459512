#include "hosts/qt/record/row_saving.h"

#include "hosts/qt/data/pending_edit.h"
#include "hosts/qt/data/row_in_doubt.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

host::RowRecovery& recoveryOf(host::Recordset& rows) {
  if (auto* recovery = rows.Recovery()) return *recovery;
  throw HostError(errors::NotUpdatable);
}

bool hasColumn(host::Recordset& rows, const String& column) {
  for (Long i = 0; i < rows.Fields().Count(); ++i)
    if (EqualNoCase(rows.Fields().Item(i)->Name(), column)) return true;
  return false;
}

Long ordinalOf(host::Recordset& rows, const String& column) {
  const String name = rows.Fields().Item(column)->Name();
  Long ordinal = 0;
  while (rows.Fields().Item(ordinal)->Name() != name) ++ordinal;
  return ordinal;
}

void raiseVersion(host::Recordset& rows, const String& column) {
  if (!hasColumn(rows, column))
    throw HostError(errors::InvalidPropertyValue,
                    u"A origem dos registros não tem a coluna de versão \"" + column + u"\".");
  const Variant former = recoveryOf(rows).Former(ordinalOf(rows, column));
  rows.Fields().Item(column)->Value(former.IsNull() ? Long{1} : CLng(former) + 1);
}

void undo(const RowSaving& saving, bool mayBeStored) {
  try {
    saving.connection->RollbackTrans();
  } catch (const HostError&) {
    // A server that is gone has undone it, and so has one that refused the commit.
  }
  recoveryOf(*saving.rows).TakeBack(mayBeStored);
}

/// Inside the transaction only its commit leaves anything in doubt.
void saveInTransaction(RowSaving& saving) {
  recoveryOf(*saving.rows);
  saving.connection->BeginTrans();
  try {
    saving.rows->Update();
    saving.hook(*saving.connection);
    saving.wasSent = true;
    saving.connection->CommitTrans();
  } catch (const HostError& error) {
    undo(saving, saving.wasSent && error.Number() == errors::WriteInDoubt);
    throw;
  } catch (...) {
    undo(saving, false);
    throw;
  }
}

/// Afterwards the row is not in doubt.
void findOut(host::Recordset& rows) {
  try {
    recoveryOf(rows).FindOut();
  } catch (const HostError& error) {
    const bool isNew = rows.EditMode() == host::EditMode::Add;
    if (error.Number() != errors::WriteInDoubt || !isNew) throw;
    lookForNewRow(rows);
  }
}

}  // namespace

void saveRow(RowSaving& saving) {
  host::Recordset& rows = *saving.rows;
  if (rows.IsInDoubt() && rows.Recovery()) findOut(rows);
  if (!hasEdit(rows) && !saving.isMarked) return;
  if (!saving.versionColumn.empty()) raiseVersion(rows, saving.versionColumn);
  saving.hook ? saveInTransaction(saving) : rows.Update();
}

}  // namespace tessaria::qt
