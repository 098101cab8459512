// The private parts of RecordForm.
#pragma once

#include <QMap>
#include <QPointer>
#include <QStringList>

#include "hosts/qt/record/record_texts.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/item_grid.h"
#include "tessaria/qt/record_form.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt {

/// Shared with the calls that run: a function of the program may destroy the form.
struct RecordForm::Parts {
  QPointer<QWidget> form;
  QPointer<Adodc> data;
  QString dataName;

  RecordTexts texts;
  std::function<QString()> describe;
  std::function<QString(const QString&)> words;
  Check check;
  TransactionHook hook;
  QString versionColumn;
  QList<QPointer<TsText>> ignored;
  QList<QPointer<ItemGrid>> items;
  bool overwritesItems = false;     ///< the operator has chosen his own after another user's save
  QMap<QString, QString> captions;  ///< by column in lower case
  QStringList hidden;               ///< in lower case
  bool asksOnClose = false;
  QPointer<QWidget> window;  ///< whose closing is watched

  bool wasChanged = false;  ///< as `changedStateChanged` last told
  bool willLook = false;    ///< a look at the changes is queued
  bool isMarked = false;    ///< by `markChanged`
  bool isStale = false;     ///< the row in the database may differ from the one on the screen
  bool wasSent = false;     ///< whether the last save got as far as the commit of its hook
  bool isUnknown = false;   ///< the last transaction may be stored, and no row of it shows it
  bool isDropped = false;   ///< discarded while the window closes, and not shown again since
  bool isBusy = false;      ///< a check or a save is under way
  bool wasChecked = false;  ///< the row that is about to be left needs no further check

  bool isIgnored(TsText* field) const { return ignored.contains(field); }
  /// The rows; null when there are none yet.
  host::RecordsetPtr rows() const;
  /// The fields that are checked, in the order of the Tab key.
  QList<TsText*> fields() const;
  /// Whether something is to be stored that no column of the row holds.
  bool hasMore() const;
  /// The values of the present row that the items belong to; none without a stored row. Raises the
  /// errors of the row.
  std::vector<Variant> parentsOf(const ItemGrid& grid) const;
};

}  // namespace tessaria::qt
