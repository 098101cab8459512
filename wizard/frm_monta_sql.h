// The SQL wizard: from a data source to a lookup's statement, columns and return fields.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "wizard/fields_tab.h"
#include "wizard/grid_tab.h"
#include "wizard/links_tab.h"
#include "wizard/order_tab.h"
#include "wizard/return_tab.h"
#include "wizard/statement_tab.h"
#include "wizard/tables_tab.h"
#include "wizard/where_tab.h"
#include "wizard/wizard.h"

namespace tessaria {

/// A modal window of design time. One instance per thread (`State().frmMontaSql`), created on first
/// use; whoever runs it keeps a reference until it has returned. `Tag` tells how it was left:
/// "Confirmar", or anything else for a run that changes nothing.
class TESSARIA_HOST_API frmMontaSql {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();
  /// The instance of this thread. Error 91 when no window can open.
  static std::shared_ptr<frmMontaSql> Instance();

  frmMontaSql();
  frmMontaSql(const frmMontaSql&) = delete;
  frmMontaSql& operator=(const frmMontaSql&) = delete;
  ~frmMontaSql();

  /// The tag of a run that counts.
  static constexpr StringView kConfirmed = u"Confirmar";

  String Tag;

  /// To be called before the window is shown with all its tabs. After a run over the columns alone
  /// the tabs are again those of what has been picked.
  void StartFullRun();
  /// To be called before the window is shown for the columns of a definition that exists.
  void StartGridRun();
  /// Shows the window and returns when the operator has left it.
  void Show();
  /// Closes the window, also while it is open, and gives the thread's reference up.
  void Unload();
  /// Enables the tabs by what has been picked and retrieved, and the confirm button by the key.
  void AtualizaAbas();
  /// The SQL expression that shows a field through a mask of "#" and literals, which the stored
  /// value does not have, in the dialect of the wizard's connection. Errors: 5 for a mask that does
  /// not end in "#", 91 before the first attempt to connect.
  String tsFormatSQL(const String& strCampo, const String& strMascara) const;
  /// What the window holds: whoever opens it fills and reads this.
  wizard::Wizard& Parts() { return wizard_; }

 private:
  void Connect();
  void ConnectFieldLists();
  void TabClicked(Long previous);
  void TakeMainTable();
  bool LacksMainTable() const;
  void ShowGridRun();
  void EmptyGrid();
  void Confirm();
  bool HasRetrieved() const;
  void EnableConfirm();
  void Leave(const String& how);

  host::DialogPtr dialog_;
  wizard::Wizard wizard_;
  wizard::TablesTab tablesTab_;
  wizard::LinksTab linksTab_;
  wizard::FieldsTab fieldsTab_;
  wizard::GridTab gridTab_;
  wizard::OrderTab orderTab_;
  wizard::WhereTab whereTab_;
  wizard::ReturnTab returnTab_;
  wizard::StatementTab statementTab_;
  bool isGridRun_ = false;
};

}  // namespace tessaria
