// The customers, one at a time, with navigation among their rows.
#pragma once

#include "apps/demo/customer_orders.h"
#include "apps/demo/documents.h"
#include "apps/demo/record_form.h"

class QLabel;
class QRadioButton;

namespace tessaria::demo {

class CustomerForm final : public RecordForm {
  Q_OBJECT

 public:
  /// The database is open and outlives the form. Raises `Failure` when it has no table of
  /// customers.
  explicit CustomerForm(Database& database, QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void showRow() override;
  QString describeRow() const override;

  void connectFields();
  void showPerson(Person person);
  void fitTelephone();
  void takePassword();
  void showPasswordState();
  void showOrders();

  qt::TsText *document_, *telephone_, *password_, *state_, *city_;
  QLabel *documentLabel_, *birthLabel_, *passwordState_, *ordersLabel_;
  QRadioButton *natural_, *legal_;
  CustomerOrders orders_;
};

}  // namespace tessaria::demo
