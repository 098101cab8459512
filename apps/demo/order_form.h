// The orders: customer, items, delivery and payment.
#pragma once

#include "apps/demo/record_form.h"

namespace tessaria::qt {
class ItemGrid;
}

namespace tessaria::demo {

/// The head of an order is bound to its row; the head and the items are written in one
/// transaction.
class OrderForm final : public RecordForm {
  Q_OBJECT

 public:
  /// As `RecordForm`.
  explicit OrderForm(Database& database, QWidget* parent = nullptr);

 private:
  void showRow() override;
  void proposeRow() override;
  std::optional<Refusal> checkRow() override;
  QString describeRow() const override;

  void customerChosen();

  qt::ItemGrid* items_;
  qt::TsText *date_, *customer_, *customerName_, *state_, *city_, *paymentTerm_, *delivery_;
  QString proposedFor_;  ///< the customer whose state, city and term were proposed
};

}  // namespace tessaria::demo
