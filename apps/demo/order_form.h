// The orders: who buys what, where it goes and how it is paid.
#pragma once

#include "apps/demo/record_form.h"

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
  QString describeRow() const override;

  void customerChosen();
  void linesChanged();
  void writeHead(const QString& number);
  void readAgain(const QString& number);

  OrderLines* lines_;
  qt::TsText *date_, *customer_, *customerName_, *state_, *city_, *paymentTerm_, *delivery_;
  QString proposedFor_;   ///< the customer whose state, city and term were proposed
  Long versionRead_ = 0;  ///< of the row on the screen
};

}  // namespace tessaria::demo
