// The data control: the rows of a form, and four buttons to move among them.
#pragma once

#include <QWidget>
#include <functional>

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/surface.h"

class QKeySequence;
class QLabel;
class QShortcut;
class QToolButton;

namespace tessaria::qt {

/// Holds the rows of `RecordSource`, opened for update on one table where that is possible.
///
/// Everything that moves settles the field that holds the focus first and writes the pending
/// edit; when either is refused the rows stay where they are and the operator reads why. After a
/// move the controls whose `DataSource` names this one are loaded anew.
///
/// The buttons are reached by mouse; Alt+Home, Alt+PgUp, Alt+PgDown and Alt+End do the same from
/// anywhere in the window, unless `NavigationKeys` is false: a program whose menu has one of these
/// keys takes them away here. Without rows there is nothing to press.
class TESSARIA_QT_API Adodc final : public QWidget, public FormControl, public ErrorListener {
  Q_OBJECT
  Q_PROPERTY(QString ConnectionString READ connectionString WRITE setConnectionString)
  Q_PROPERTY(QString RecordSource READ recordSource WRITE setRecordSource)
  Q_PROPERTY(QString Caption READ caption WRITE setCaption)
  Q_PROPERTY(bool NavigationKeys READ navigationKeys WRITE setNavigationKeys)
  Q_PROPERTY(bool refreshesForm READ refreshesForm WRITE setRefreshesForm)

 public:
  /// Makes the connection for a connection string; it is opened here when it is not open yet.
  using ConnectionFactory = std::function<host::ConnectionPtr(const QString& connectionString)>;

  explicit Adodc(QWidget* parent = nullptr);
  ~Adodc() override;

  /// The given connection's text, or the one assigned.
  QString connectionString() const;
  void setConnectionString(const QString& text);
  /// A statement or the name of a table; takes effect at the next `refresh()`.
  QString recordSource() const { return recordSource_; }
  void setRecordSource(const QString& source);
  /// Text between the buttons; empty shows the number of the row.
  QString caption() const { return caption_; }
  void setCaption(const QString& text);
  /// Whether the keys of the window move; true at first.
  bool navigationKeys() const;
  void setNavigationKeys(bool move);
  /// Whether a move loads the form's controls anew.
  bool refreshesForm() const { return refreshesForm_; }
  void setRefreshesForm(bool refreshes) { refreshesForm_ = refreshes; }

  /// A connection of the program, used in place of one of its own.
  void setConnection(host::ConnectionPtr connection);
  host::ConnectionPtr connection() const { return connection_; }
  /// For all data controls that have no connection given.
  static void setConnectionFactory(ConnectionFactory factory);

  /// The rows; nothing before the first `refresh()`.
  host::RecordsetPtr recordSet() const { return recordSet_; }
  /// Opens the rows anew; raises what goes wrong.
  void open();
  /// Whether a row stands open for input that is not written yet. A deleted row does not.
  bool isEditPending() const;

  void unhandled(int number, const QString& description) override;

 public slots:  // NOLINT
  /// Writes the pending edit, opens the rows anew and loads the form. False, with a box, when
  /// that fails; the rows then stay as they are. A new row that may be stored already, under a key
  /// that the database gives, is not written again: the rows are read anew around it, the box says
  /// whether one of them has its values, and `saveRow()` or `cancelRow()` decides.
  bool refresh();
  bool moveFirst();
  bool movePrevious();
  bool moveNext();
  bool moveLast();
  /// To the first row that matches, as `Recordset::Find` reads it. False when there is none, and
  /// with a box when it cannot be looked for; the rows then stay where they are.
  bool findRow(const QString& criteria);
  /// Starts a new row.
  bool addRow();
  /// Writes the pending edit.
  bool saveRow();
  /// Drops the pending edit and loads the row as it was. Of a row in doubt, which may be stored all
  /// the same, a box says so.
  bool cancelRow();
  /// Deletes the row and goes to the next one, or the last. A new row is dropped, and the one
  /// before it shows again.
  bool deleteRow();
  /// Loads the controls whose `DataSource` names this one: unbound controls first, then keys,
  /// the rest, descriptions.
  void refreshForm();

 signals:
  /// The pending edit is about to be written, because the row is left or saved. A handler may
  /// write it itself, or set `refused` to keep the row where it is; one that throws keeps it too.
  void leavingRow(bool& refused);
  void moved();
  void rowAdded();
  void rowSaved();
  void rowCancelled();
  void rowDeleted();
  /// The rows refused; the box follows.
  void error(int number, const QString& description);

 private:
  // FormControl
  QWidget& widget() override { return *this; }
  String typeName() const override;
  host::WidgetPtr makePort() override;
  std::optional<Variant> ownProperty(const String&) const override { return {}; }
  bool letOwnProperty(const String&, const Variant&) override { return false; }
  /// Opens the rows when both texts are there.
  void formShown() override;
  bool settlesByItself() const override { return true; }

  using Work = std::function<void(host::Recordset&)>;
  bool run(const Work& work, void (Adodc::*done)());
  void ensureConnection();
  bool settleField();
  bool mayLeaveRow();
  void tell(void (Adodc::*signal)());
  void loadRow();
  void showPosition();
  void enableButtons();
  void moveByKey(bool (Adodc::*move)());
  QToolButton* addButton(int icon, const QString& name, const QKeySequence& keys,
                         bool (Adodc::*move)());

  host::ConnectionPtr connection_;
  host::RecordsetPtr recordSet_;
  QString connectionString_;
  QString recordSource_;
  QString caption_;
  QLabel* label_;
  QList<QToolButton*> buttons_;
  QList<QShortcut*> shortcuts_;
  bool refreshesForm_ = true;
};

}  // namespace tessaria::qt
