// The orders: customer, items, delivery and payment.
#pragma once

#include <map>

#include "apps/demo/record_form.h"
#include "tessaria/host/data.h"

namespace tessaria::demo {

class OrderLines;

/// The head of an order is bound to its row; the head and the lines are written in one
/// transaction.
class OrderForm final : public RecordForm {
  Q_OBJECT

 public:
  /// As `RecordForm`.
  explicit OrderForm(Database& database, QWidget* parent = nullptr);

 private:
  void showRow() override;
  void proposeRow() override;
  bool checkRow() override;
  void writeRow() override;
  bool isInDoubt() const override { return !sent_.empty(); }
  QString describeRow() const override;

  void customerChosen();
  void linesChanged();
  void writeAll(const QString& number);
  void writeHead(const QString& number);
  host::RecordsetPtr openHead(const QString& number) const;
  bool findOut(const QString& number);
  void readAgain(const QString& number);

  OrderLines* lines_;
  qt::TsText *date_, *customer_, *customerName_, *state_, *city_, *paymentTerm_, *delivery_;
  QString proposedFor_;   ///< the customer whose state, city and term were proposed
  Long versionRead_ = 0;  ///< of the row on the screen; 0 for one that is not stored
  /// The columns of the head whose transaction is in doubt; empty for none.
  std::map<String, Variant> sent_;
};

}  // namespace tessaria::demo
