// The window in which the operator chooses between two users' changes of a row.
#pragma once

#include <QButtonGroup>
#include <QDialog>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QRadioButton>

#include "hosts/qt/record/conflict.h"

namespace tessaria::qt {

/// One line for each column that is shown: its caption, the former value, and the two values as
/// options. It is operated by keyboard alone; each option is named after its column, its side and
/// its value.
class ConflictWindow final : public QDialog {
  Q_OBJECT

 public:
  ConflictWindow(QWidget* parent, const QString& introduction, QList<ConflictingColumn> columns);

  /// All of them are chosen once the window was accepted.
  const QList<ConflictingColumn>& columns() const { return columns_; }

  /// Tells which column is not chosen yet, and stays open.
  void accept() override;

 protected:
  /// A click on a value chooses it.
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  QWidget* makeTable();
  void addLine(QGridLayout& table, qsizetype column);
  QWidget* makeCaption(const ConflictingColumn& column) const;
  QWidget* makeOption(qsizetype column, ConflictingColumn::Side side, const QString& text);
  QWidget* makeButtons();
  void takeSides();

  QList<ConflictingColumn> columns_;
  QHash<qsizetype, QButtonGroup*> groups_;      ///< the two options of each line
  QHash<QObject*, QRadioButton*> valueLabels_;  ///< and the option that each stands beside
};

}  // namespace tessaria::qt
