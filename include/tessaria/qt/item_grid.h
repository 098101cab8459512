// The items of a record: a table whose cells are edited by fields, with any number of rows.
#pragma once

#include <QAnyStringView>
#include <QHash>
#include <QString>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/qt/item_settings.h"

class QAbstractItemModel;

namespace tessaria::qt {

class TsText;

/// A table of items with a line of fields over its current row: every cell of that row is a field
/// with its mask, its list, its checks, and its pair. There is always one blank row at the end; an
/// item comes into being when something is entered there, and a row that is left as blank as it was
/// is none.
///
///   auto* items = new tessaria::qt::ItemGrid(settings, form);
///   record->addItems(items);  // reads, checks and saves them with the row
///
/// Keys: Tab, Shift+Tab and Enter go from field to field and from row to row, and from the blank
/// row to what follows the grid; Up and Down go to the rows above and below, Ctrl+Up and Ctrl+Down
/// to the first and to the blank one; Ctrl+Delete removes the row after a question. A row is left
/// only when its fields and the program's check accept it.
///
/// The fields are on the same form as the grid, so siblings and `@name@` find each other and the
/// fields around the grid. They belong to the grid and show the current row only.
class TESSARIA_QT_API ItemGrid final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)

 public:
  /// Why an item may not stay as it is, and the column that the operator is to correct.
  struct Refusal {
    QString column;  ///< whose field gets the focus; empty for the first
    QString text;    ///< what the operator is told
  };
  using Check = std::function<std::optional<Refusal>(const ItemRow& row)>;

  explicit ItemGrid(QWidget* parent = nullptr);
  /// As `setSettings`.
  explicit ItemGrid(const ItemSettings& settings, QWidget* parent = nullptr);
  ~ItemGrid() override;

  /// Gives the grid its columns; once. Error 5 for a column without a name, two of one name, no
  /// column, or a second call.
  void setSettings(const ItemSettings& settings);

  /// The field of a column, which shows the current row; null for a computed or unknown column.
  TsText* field(QAnyStringView column) const;
  /// The rows and the blank one as a model for views and tests, which shows texts and takes none.
  QAbstractItemModel* model() const;

  /// Items, without the blank row.
  int rowCount() const;
  /// Whether there are no items.
  bool isEmpty() const { return rowCount() == 0; }
  /// From 0; `rowCount()` for the blank row.
  int currentRow() const;
  /// Leaves the current row and shows another one, with the focus in that column or, without a
  /// name, in the present one. False when the current row is refused, and the operator has been
  /// told, or there is no such row.
  bool goTo(int row, QAnyStringView column = {});

  /// The value in a row, from 0. Errors: 5 for an unknown column, 9 outside the rows.
  QVariant value(int row, QAnyStringView column) const;
  /// Assigns it, as the operator would; in the blank row that makes an item. A pair's description
  /// is looked up only in the current row. Errors as above, and 5 for a computed column.
  void setValue(int row, QAnyStringView column, const QVariant& value);
  /// Adds an item behind the others, by the names of the columns. Errors as above.
  void appendRow(const QHash<QString, QVariant>& values);
  /// Removes an item without a question. Error 9 outside the rows.
  void removeRow(int row);

  /// Sum of a column over all items. Error 5 for an unknown column.
  double total(QAnyStringView column) const;

  /// Checks an item when it is left or saved, after its fields.
  void setRowCheck(Check check);
  /// Settles the field with the focus and checks the current item. When something is refused the
  /// operator has been told, and the focus is there.
  bool check();

  // Storage. `RecordForm::addItems` does all of this by itself.
  /// Reads the items that belong to the values of the links, in their order. With no values the
  /// grid is emptied. Drops what was entered. Raises the errors of the database; the grid is empty
  /// then, and cannot be written before it was read.
  void load(const host::ConnectionPtr& connection, const std::vector<Variant>& parents);
  /// Writes what differs from the rows that were read, inside the transaction of the caller: the
  /// grid counts as changed until `accept()`. Error -2147217864 when somebody else has changed the
  /// items meanwhile, unless `overwrites`; writing the same once more does nothing.
  void write(const host::ConnectionPtr& connection, const std::vector<Variant>& parents,
             bool overwrites = false);
  /// What was written is stored.
  void accept();
  /// Whether something was entered, changed or removed since `load` or `accept`, the field with the
  /// focus included.
  bool isChanged() const;
  /// The columns of the row's record set that `load` and `write` take the values of.
  QStringList parentColumns() const;

 public slots:  // NOLINT
  /// Asks, and removes the current item.
  void removeCurrentRow();

 signals:
  /// The value of an item has changed, or an item was added or removed.
  void changed();
  /// Another row is shown in the fields.
  void currentRowChanged(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  struct Parts;

  void makeFields();
  FieldSettings settingsOf(int column);
  void makeColumns();
  void connectView();
  void connectField(TsText& field);
  // The line over the current row
  void place();
  void placeSoon();
  void showRow();
  void showRowAt(int row);
  void showCell(int column, bool keys);
  void nameRow();
  void requireFields();
  void showTotals();
  void takeRow();
  // From row to row
  bool goToColumn(int row, int column);
  bool focusColumn(int column);
  bool step(bool next);
  bool leaveRow();
  bool checkFields();
  bool checkRow(int row);
  void pressGridKey(int key);
  void tell(const QString& text);
  void showMenu(const QPoint& at);
  void requireRow(int row) const;

  std::unique_ptr<Parts> parts_;
};

}  // namespace tessaria::qt
