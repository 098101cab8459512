// What the property page gives to the SQL wizard, and what it takes back.
#pragma once

#include "propertypage/page.h"
#include "wizard/frm_monta_sql.h"

namespace tessaria::propertypage {

/// The buttons "SQL Wizard" and "Grid". A run that is not confirmed changes nothing, and leaves the
/// wizard as it is for the next one.
class WizardHandOver {
 public:
  /// Lives as long as the page.
  explicit WizardHandOver(Page& page);
  WizardHandOver(const WizardHandOver&) = delete;
  WizardHandOver& operator=(const WizardHandOver&) = delete;

 private:
  void SqlClicked();
  void GridClicked();
  void OfferObjects(wizard::Wizard& its) const;
  void ChooseDataSource(wizard::Wizard& its) const;
  String DataSourceOfTheForm() const;
  void ShowColumns(wizard::Wizard& its);
  void ShowSettings(wizard::Wizard& its);
  void TakeStatement(wizard::Wizard& its);
  void TakeNames(wizard::Wizard& its);
  void TakeOtherFields(wizard::Wizard& its, bool joined);
  void TakeLists(wizard::Wizard& its);
  void End(frmMontaSql& form);

  Page& page_;
};

}  // namespace tessaria::propertypage
