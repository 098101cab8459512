// The window of a lookup's grid.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/grid_columns.h"
#include "tessaria/host/dialog.h"
#include "tessaria/pesquisa_definition.h"

namespace tessaria {

/// The list of a lookup: a grid with the rows, a tool bar with the menu of searches, and two
/// buttons. Each lookup creates a new one. It keeps the parts of its statement for further
/// searches.
class TESSARIA_HOST_API frmBrowse {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();
  /// The keys that choose the menu entry at a position from 1; "" when there are none.
  static String MenuShortcuts(Long position);

  /// Error 91 when no window can open.
  frmBrowse();
  frmBrowse(const frmBrowse&) = delete;
  frmBrowse& operator=(const frmBrowse&) = delete;
  ~frmBrowse();

  // The searches, and the parts of a search's statement.
  std::shared_ptr<tessaria::Pesquisa> Pesquisa;
  String strCampos;
  String strTabela;
  String strFrom;
  String strWhere;  ///< without the word Where
  String strOrderBy;
  String strGroupBy;
  ListaColunas cgrColGrid;
  /// True when the operator has chosen the current row.
  bool lGravar = false;
  /// Owner window of messages.
  Long hWndMsgBox = 0;
  /// The rows of the data control. The grid shows them, or no rows after a failed search.
  host::RecordsetPtr dcBrowse;

  /// Runs a statement and shows its rows. Sets `blnOk` to false when the database refuses it, and
  /// tells the operator. A closed connection is also reported, but is not a refusal.
  void ConectGrid(const String& strInstrucao, bool& blnOk);
  /// Sets up the grid's columns by `cgrColGrid`; stops silently at a column that does not exist.
  void DesenhaGrid();
  /// Shows the window and returns when the operator has closed it.
  void ShowModal();

  host::Dialog& Window() { return *dialog_; }
  host::DialogLabel& lblTitulo() { return title_; }
  host::ToolBar& barBrowse() { return bar_; }
  host::DataGrid& grdBrowse() { return grid_; }

 private:
  void Activate();
  void Resize();
  void AtualizaBotoes();
  void Leave(bool confirmed);
  void ConfirmClick();
  void MenuClick(Long position);
  void ReloadAll();
  void Search(Long number);
  void FormKeyDown(Integer KeyCode, Integer Shift);
  void GridKeyDown(Integer KeyCode, Integer Shift);
  void GridKeyPress(Integer KeyAscii);
  void JumpTo(char16_t character);
  void SortBy(Long column);
  void ShowRowsOf(const String& statement);
  bool ShowsRows() const;

  host::DialogPtr dialog_;
  host::DialogLabel& title_;
  host::ToolBar& bar_;
  host::DataGrid& grid_;
  host::DialogButton& confirm_;
  bool activated_ = false;
};

}  // namespace tessaria
