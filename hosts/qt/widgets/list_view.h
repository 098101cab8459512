// The list views of surfaces: rows with columns.
#pragma once

#include <QTimer>
#include <QTreeWidget>
#include <functional>
#include <span>

#include "hosts/qt/widgets/dialog_item.h"

namespace tessaria::qt {

class ListView;

/// A row of the view and of the port in one.
class ViewRow final : public QTreeWidgetItem, public host::ListRow {
 public:
  ViewRow(ListView& view, const String& text);

  Long Index() const override;
  String Text() const override { return textAt(0); }
  void Text(const String& text) override { setTextAt(0, text); }
  bool Checked() const override { return checked_; }
  void Checked(bool checked) override;
  bool Selected() const override { return isSelected(); }
  void Selected(bool selected) override;
  Long SubItemCount() const override { return subItems_; }
  String SubItem(Long position) const override { return textAt(existing(position)); }
  void SubItem(Long position, const String& text) override;
  void AddSubItem(const String& text) override;
  void EnsureVisible() override;

  /// Takes over what Qt's check box shows. Returns whether that is new.
  bool noteCheck();

 private:
  String textAt(int column) const;
  void setTextAt(int column, const String& text);
  int existing(Long position) const;

  ListView& view_;
  int subItems_ = 0;
  bool checked_ = false;
};

/// Reports what the operator has done at the end of each event, when the view has finished with it:
/// a handler may then remove rows. A click keeps the current row selected.
class ListView final : public QTreeWidget {
  Q_OBJECT

 public:
  enum class Boxes { None, InRows };
  ListView(QWidget* parent, Boxes boxes);

  void setHeadings(std::span<const StringView> headings);
  bool hasBoxes() const { return boxes_ == Boxes::InRows; }
  ViewRow* rowAt(int position) const { return static_cast<ViewRow*>(topLevelItem(position)); }
  void select(ViewRow* row);
  void addColumn();
  /// Gives each column the width of its contents, within limits; the last one has the room that is
  /// left, or more for its contents.
  void fitColumns();
  /// The same soon, when all changes of now are made; a column that is wider stays.
  void growColumnsSoon() { growth_.start(); }
  /// A row that is about to go.
  void forget(const ViewRow* row);

  /// During its lifetime, changes are the program's.
  class Assignment {
   public:
    explicit Assignment(ListView& view) : view_(view) { ++view_.assigning_; }
    Assignment(const Assignment&) = delete;
    Assignment& operator=(const Assignment&) = delete;
    ~Assignment() { --view_.assigning_; }

   private:
    ListView& view_;
  };

  /// The operator has done it. None may throw.
  std::function<void(ViewRow& row)> rowClicked;
  std::function<void(ViewRow& row)> rowChecked;
  std::function<void()> rowDoubleClicked;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  ViewRow* selectedRow() const;
  void growColumns();
  int wantedWidth(int column) const;
  void fillWithLastColumn();
  void changed(QTreeWidgetItem* row);
  void reportCheck();
  void reportClick(ViewRow* row);

  const Boxes boxes_;
  QTimer growth_;
  int assigning_ = 0;
  bool inEvent_ = false;
  ViewRow* checked_ = nullptr;  ///< in the present event
  ViewRow* before_ = nullptr;   ///< selected before the mouse was pressed; only compared
  bool pressed_ = false;
};

class ListViewItem final : public DialogItemOf<host::DialogListView> {
 public:
  ListViewItem(ListView& view, const DialogGate& gate);

  Long Count() const override { return view_.topLevelItemCount(); }
  host::ListRow& Item(Long position) override { return *view_.rowAt(existing(position)); }
  host::ListRow& Add(const String& text, Long position) override;
  void Remove(Long position) override;
  void Clear() override;
  host::ListRow* SelectedItem() override;
  host::ListRow* FindItem(const String& text) override;
  host::ListRow* FindTag(const String& tag) override;
  host::ListRow* FirstVisible() override;
  void aboutToShow() override { view_.fitColumns(); }

 private:
  int existing(Long position) const;
  template <class Matches>
  host::ListRow* find(const Matches& matches);

  ListView& view_;
};

}  // namespace tessaria::qt
