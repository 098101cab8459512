// The orders of a customer, as a list that is only read.
#pragma once

#include <QString>

#include "tessaria/qt/recordset_model.h"

class QTableView;

namespace tessaria::demo {

class Database;

class CustomerOrders {
 public:
  /// The database and the view outlive the list.
  CustomerOrders(const Database& database, QTableView* view);

  /// Shows the orders of the customer with that code, the newest first, and returns how many there
  /// are. Without an answer of the database the list is empty.
  int show(const QString& customer);

 private:
  void arrange();

  const Database& database_;
  QTableView* view_;
  qt::RecordsetModel model_;
};

}  // namespace tessaria::demo
