// The data control: the rows of a form, and four buttons to move among them.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>

#include "tessaria/error.h"
#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/surface.h"

class QKeySequence;
class QLabel;
class QShortcut;
class QToolButton;

namespace tessaria {
struct DataControlSettings;
}

namespace tessaria::qt {

/// Holds the rows of `RecordSource`, opened for update on one table where that is possible.
///
/// Every move first settles the field that has the focus and writes the pending edit; when either
/// is refused, the rows stay where they are and the operator is told why. After a move the controls
/// whose `DataSource` names this one are loaded again.
///
/// The buttons are used by mouse; Alt+Home, Alt+PgUp, Alt+PgDown and Alt+End do the same from
/// anywhere in the window, unless `NavigationKeys` is false: a program whose menu has one of these
/// keys disables them here. Without rows the buttons are disabled.
class TESSARIA_QT_API Adodc final : public QWidget, public FormControl, public ErrorListener {
  Q_OBJECT
  Q_PROPERTY(QString ConnectionString READ connectionString WRITE setConnectionString)
  Q_PROPERTY(QString RecordSource READ recordSource WRITE setRecordSource)
  Q_PROPERTY(QString Caption READ caption WRITE setCaption)
  Q_PROPERTY(bool NavigationKeys READ navigationKeys WRITE setNavigationKeys)
  Q_PROPERTY(bool refreshesForm READ refreshesForm WRITE setRefreshesForm)

 public:
  /// Creates the connection for a connection string; the data control opens it when it is not open
  /// yet. One that was lost is opened again only when the operator agrees.
  using ConnectionFactory = std::function<host::ConnectionPtr(const QString& connectionString)>;

  explicit Adodc(QWidget* parent = nullptr);
  /// A data control with these settings. The settings' name becomes the object name.
  explicit Adodc(const DataControlSettings& settings, QWidget* parent = nullptr);
  ~Adodc() override;

  /// The text of the given connection, or the assigned one.
  QString connectionString() const;
  void setConnectionString(const QString& text);
  /// A statement or the name of a table; takes effect at the next `refresh()`.
  QString recordSource() const { return recordSource_; }
  void setRecordSource(const QString& source);
  /// Text between the buttons; when empty, the number of the row is shown.
  QString caption() const { return caption_; }
  void setCaption(const QString& text);
  /// Whether the keys of the window move among the rows; true by default.
  bool navigationKeys() const;
  void setNavigationKeys(bool move);
  /// Whether a move loads the form's controls again.
  bool refreshesForm() const { return refreshesForm_; }
  void setRefreshesForm(bool refreshes) { refreshesForm_ = refreshes; }

  /// Sets a connection of the program, which is used instead of one of its own. A data control that
  /// is given neither a connection nor the text of one uses that of its form, `dbForm`.
  void setConnection(host::ConnectionPtr connection);
  host::ConnectionPtr connection() const { return connection_; }
  /// Sets the factory for all data controls that are given no connection.
  static void setConnectionFactory(ConnectionFactory factory);

  /// The rows; null before the first `refresh()`.
  host::RecordsetPtr recordSet() const { return recordSet_; }
  /// Reopens the rows; raises any error in the caller. While the form is designed a failure is
  /// kept, and raised again without another try until the connection or the source changes.
  void open();
  /// Why the rows could not be opened while the form was designed; empty when they could, or when
  /// no field has asked for them.
  QString designError() const;
  /// Whether a row is open for input that is not written yet. A deleted row is not.
  bool isEditPending() const;
  /// Notes that something which belongs to the row, but is in none of its columns, is not saved
  /// yet: `leavingRow` is then emitted for a row without a pending edit too. Until a row is shown.
  void markRowChanged() { rowMarked_ = true; }

  void unhandled(int number, const QString& description) override;

 public slots:  // NOLINT
  /// Writes the pending edit, reopens the rows and loads the form. Returns false and shows a box
  /// when that fails; the rows then stay as they are. A new row that may already be stored, under a
  /// key that the database generates, is not written again: the rows are read again around it, the
  /// box says whether one of them has its values, and `saveRow()` or `cancelRow()` decides.
  bool refresh();
  /// Moves to the first row. Returns false, here and below, when the pending edit or the field in
  /// focus is refused, or when the row cannot be read; the operator has then been told, and the
  /// rows stay where they are.
  bool moveFirst();
  /// Moves to the row before; stays on the first.
  bool movePrevious();
  /// Moves to the next row; stays on the last.
  bool moveNext();
  /// Moves to the last row.
  bool moveLast();
  /// Moves to the first row that matches, by the criteria of `Recordset::Find`. Returns false when
  /// there is none, or, after a message box, when the search fails; the rows then stay where they
  /// are.
  bool findRow(const QString& criteria);
  /// Starts a new row.
  bool addRow();
  /// Starts a new row for what the operator has typed where there is none: the controls keep what
  /// they show, and no signal is emitted. Returns false when there are rows, an edit is pending, or
  /// no column can be written.
  bool beginFirstRow();
  /// Writes the pending edit.
  bool saveRow();
  /// Discards the pending edit and loads the row as it was. For a row in doubt a box says that it
  /// may be stored nevertheless.
  bool cancelRow();
  /// Deletes the row and goes to the next one, or the last. A new row is discarded, and the row
  /// before it is shown again.
  bool deleteRow();
  /// Reads the row again as it is in the database now, and loads the form. A row that was deleted
  /// there leaves the record set, as by `deleteRow()`. Discards the pending edit. Returns false
  /// when that fails.
  bool readRowAgain();
  /// Loads the controls whose `DataSource` names this one: unbound controls first, then keys,
  /// the rest, descriptions.
  void refreshForm();

 signals:
  /// The pending edit is about to be written, because the row is left or saved; without one, a row
  /// that `markRowChanged()` has marked is about to be left. A handler may write it itself, or set
  /// `refused` to keep the row where it is; one that throws keeps it too.
  void leavingRow(bool& refused);
  /// Another row is the current one, after a move or a search.
  void moved();
  /// A new row was started; it is not written yet.
  void rowAdded();
  /// The pending edit was written by `saveRow()`.
  void rowSaved();
  /// The pending edit was discarded.
  void rowCancelled();
  /// The row was deleted, or a new row discarded.
  void rowDeleted();
  /// The record set raised an error; a message box follows.
  void error(int number, const QString& description);

 private:
  // FormControl
  QWidget& widget() override { return *this; }
  String typeName() const override;
  host::WidgetPtr makePort() override;
  std::optional<Variant> ownProperty(const String&) const override { return {}; }
  bool letOwnProperty(const String&, const Variant&) override { return false; }
  /// Opens the rows when there is a source and a connection.
  void formShown() override;
  bool settlesByItself() const override { return true; }

  using Work = std::function<void(host::Recordset&)>;
  bool run(const Work& work, void (Adodc::*done)());
  void ensureConnection();
  void openRows();
  bool settleField();
  bool mayLeaveRow();
  void tell(void (Adodc::*signal)());
  void loadRow();
  void showPosition();
  void enableButtons();
  void moveByKey(bool (Adodc::*move)());
  QToolButton* addButton(int shape, const QString& name, const QKeySequence& keys,
                         bool (Adodc::*move)());

  host::ConnectionPtr connection_;
  host::RecordsetPtr recordSet_;
  QString connectionString_;
  QString recordSource_;
  QString caption_;
  std::optional<HostError> designFailure_;
  QLabel* label_;
  QList<QToolButton*> buttons_;
  QList<QShortcut*> shortcuts_;
  bool refreshesForm_ = true;
  bool rowMarked_ = false;
};

}  // namespace tessaria::qt
