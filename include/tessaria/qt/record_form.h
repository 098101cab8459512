// A form as a whole: whether it was changed, saved or undone in one piece, asked about when closed.
#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <exception>
#include <functional>
#include <memory>
#include <optional>

#include "tessaria/export.h"
#include "tessaria/host/data.h"

class QWidget;

namespace tessaria::qt {

class Adodc;
class ItemGrid;
class SaveFailure;
class TsText;
struct ConflictingColumn;

/// Stands beside a form with a data control and fields, and does with its rows what every program
/// needs: it checks all fields before a row is saved or left, writes the row together with the
/// program's own statements, asks before input is lost, and lets the operator choose when another
/// user has changed the row.
///
///   auto* record = new tessaria::qt::RecordForm(form, data);
///   record->setRecordName("o cliente");
///   record->setAsksOnClose(true);
///   connect(saveButton, &QPushButton::clicked, record, &tessaria::qt::RecordForm::save);
///
/// Where there is no row, what is typed into a bound field begins a new one.
///
/// The fields of the form are those on the same form as the data control that are bound to it or
/// to no data control; an item grid's belong to the grid. What a function of the program throws is
/// shown in a box and counts as a refusal; a function may destroy the form.
///
/// All texts that the operator reads are Portuguese.
class TESSARIA_QT_API RecordForm final : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool changed READ isChanged NOTIFY changedStateChanged)
  Q_PROPERTY(bool asksOnClose READ asksOnClose WRITE setAsksOnClose)

 public:
  /// Why a row may not be saved, and the field that the operator is to correct; null for none.
  struct Refusal {
    TsText* field = nullptr;  ///< gets the focus; null for none
    QString text;             ///< what the operator is told
  };
  using Check = std::function<std::optional<Refusal>()>;
  using TransactionHook = std::function<void(host::Connection& connection)>;

  /// Belongs to the form. The data control is on the form, or on a form around it.
  RecordForm(QWidget* form, Adodc* data);
  /// The same with the data control's name; without one of that name nothing is saved, and each
  /// call tells so.
  RecordForm(QWidget* form, const QString& dataName);
  ~RecordForm() override;

  // What the program tells about its rows
  /// What a row is, with its article: "o cliente", "a nota"; "o registro" by default.
  void setRecordName(const QString& nameWithArticle);
  /// What identifies the row that is shown, for the question before it is deleted: "00080, José".
  void setDescription(std::function<QString()> describe);
  /// The program's words for what the database says when it refuses a row, such as the name of a
  /// constraint in it. Empty words leave those of the database.
  void setRefusalWords(std::function<QString(const QString& details)> words);
  /// A check of the whole row, made after those of all fields.
  void setCheck(Check check);
  /// Statements that belong to the row: they run after it is written, in the same transaction. What
  /// it throws undoes the row too, and nothing that was typed is lost. The record set shows the row
  /// as it was written, with the key that the database has generated.
  ///
  /// The transaction is begun and ended here; inside one of the program's own the save is refused.
  /// When the answer to the commit is lost, the next save finds out by the row whether it was
  /// stored, and then the hook does not run again.
  void setTransactionHook(TransactionHook hook);
  /// Makes the items of a grid a part of the row: they are read when a row is shown, checked after
  /// the fields, written in the row's transaction, before the hook, and undone with it. Give the
  /// table a version column, so that another user's change of the items alone is noticed too. The
  /// items of a row that is deleted are the database's to delete (`on delete cascade`).
  void addItems(ItemGrid* items);
  /// A column of whole numbers that each save raises by one, from 1 in a new row. It makes a change
  /// of another user known whatever columns it met, and one of what only the hook writes.
  void setVersionColumn(const QString& column);
  /// Leaves a field out of the checks, and its text out of the changes: a search field.
  void ignore(TsText* field);
  /// How the window for rows changed by others names a column that no field shows; by default it is
  /// the column's name.
  void setColumnCaption(const QString& column, const QString& caption);
  /// Keeps a column out of that window: what the operator has changed there wins, anything else
  /// stays as the other user has stored it.
  void hideColumn(const QString& column);
  /// Whether closing the form's window asks first, with `mayClose()`, and Escape in a dialog too.
  /// What a program does itself, `QDialog::reject()` and `QWidget::hide()`, does not ask. False by
  /// default.
  void setAsksOnClose(bool ask);
  bool asksOnClose() const;

  /// Whether there is input that is not saved: typed in a field, in the row, a new row, or noted by
  /// `markChanged()`.
  bool isChanged() const;
  /// Whether a new row is open.
  bool isNew() const;

 public slots:  // NOLINT
  /// Settles the field with the focus, checks all fields in the order of the Tab key, then the row,
  /// and writes it. The first field that refuses is shown with its message and gets the focus.
  /// False when the row was not saved; the operator has been told why, and everything typed is
  /// still there. True at once when nothing was changed.
  bool save();
  /// Asks, and then drops what was typed and shows the row as it is stored. False when the operator
  /// declines. Without changes there is no question.
  bool undo();
  /// The same without a question.
  bool discard();
  /// Saves what was changed, and starts a new row.
  bool addRow();
  /// Asks, and then deletes the row. A new row is undone.
  bool deleteRow();
  /// Saves what was changed, and shows the first row. False when the save is refused, or there is
  /// no such row; the row stays then.
  bool moveFirst();
  /// The same with the row before.
  bool movePrevious();
  /// The same with the row behind.
  bool moveNext();
  /// The same with the last row.
  bool moveLast();
  /// True when nothing was changed. Otherwise asks whether to save, to discard or to stay, which is
  /// the default, and returns whether the form may close.
  bool mayClose();
  /// Notes a change that no bound field holds: in what the hook writes. Cleared when a row is
  /// saved, undone or shown.
  void markChanged();

 signals:
  /// `isChanged()` has become another; comes from the event loop.
  void changedStateChanged(bool changed);
  /// A row is about to be checked and saved. A handler may set `refused` after it has told why.
  void saving(bool& refused);
  /// The row is stored; it is still the one that is shown.
  void saved();
  /// A row was not stored. The text is one line about why; the operator has read more in a box.
  void notSaved(const QString& reason);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct Parts;

  RecordForm(QWidget* form, Adodc* data, const QString& dataName);
  bool hasData();
  void tell(Long style, const QString& text);
  bool ask(const QString& text);
  bool move(bool (Adodc::*step)());
  // Changes
  void watchFields();
  void beginFirstRow();
  void lookSoon();
  void look();
  void rowShown();
  void loadItems();
  void itemsChanged();
  bool checkItems();
  TransactionHook wholeHook();
  // Closing
  void watchWindow();
  bool dropForClosing();
  void showDroppedSoon();
  // Saving
  void leaveRow(bool& refused);
  bool check();
  bool checkRow();
  bool write();
  std::exception_ptr writeOnce();
  bool resolve(const std::exception_ptr& error);
  void tellFailure(const SaveFailure& failure);
  void tellNotSaved(const QString& reason);
  bool resolveConflict(const SaveFailure& failure);
  bool choose(QList<ConflictingColumn>& columns);
  bool decideOnDeleted();

  std::shared_ptr<Parts> parts_;
};

}  // namespace tessaria::qt
