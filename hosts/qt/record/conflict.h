// A row that two users have changed: what each of them did, column by column.
#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <optional>

#include "tessaria/host/data.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt {

/// A column in which the operator's row and the stored one differ.
struct ConflictingColumn {
  enum class Side { Mine, Theirs };

  Long ordinal = 0;
  Variant mine, theirs;
  bool isShown = true;
  /// What stays; nothing as long as the operator has not chosen.
  std::optional<Side> stays;
  // For the operator.
  QString caption;
  QString formerText, mineText, theirsText;
  /// Whether both users have changed it.
  bool isContested = false;
};

/// How the columns are shown.
struct ConflictView {
  QList<TsText*> fields;            ///< a column looks as its first field shows it
  QMap<QString, QString> captions;  ///< of columns without a field, in lower case
  QStringList hidden;               ///< in lower case
  QString versionColumn;            ///< in lower case; the stored one stays
};

/// The differences between the pending edit and the row as it is stored. A column that one user
/// alone has changed stays as that user wants it. Columns that no field shows are shown only when
/// they have a caption or both users have changed them.
QList<ConflictingColumn> conflictOf(host::Recordset& rows, const host::StoredRow& stored,
                                    const ConflictView& view);

/// Makes the pending edit what has been chosen, guarded against further changes of the stored row.
/// All columns are chosen.
void takeChoice(host::Recordset& rows, const host::StoredRowPtr& stored,
                const QList<ConflictingColumn>& columns);

}  // namespace tessaria::qt
