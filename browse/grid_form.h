// The window of a lookup's grid.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/grid_columns.h"
#include "tessaria/host/dialog.h"
#include "tessaria/pesquisa_definition.h"

namespace tessaria {

/// The list of a lookup: a grid over the rows, a tool bar with the menu of searches, two buttons.
/// A new one for each lookup. It keeps the pieces of its statement so that it can search again.
class TESSARIA_HOST_API frmBrowse {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();
  /// The keys that choose an entry of the menu, by position from 1; "" for none.
  static String MenuShortcuts(Long position);

  /// Error 91 when no window can open.
  frmBrowse();
  frmBrowse(const frmBrowse&) = delete;
  frmBrowse& operator=(const frmBrowse&) = delete;
  ~frmBrowse();

  // The searches, and the pieces of a search's statement.
  std::shared_ptr<tessaria::Pesquisa> Pesquisa;
  String strCampos;
  String strTabela;
  String strFrom;
  String strWhere;  ///< without the word Where
  String strOrderBy;
  String strGroupBy;
  ListaColunas cgrColGrid;
  /// The operator chose the current row.
  bool lGravar = false;
  /// Owner window of messages.
  Long hWndMsgBox = 0;
  /// The rows of the data control. The grid shows them, or none: those of a search that failed.
  host::RecordsetPtr dcBrowse;

  /// Runs a statement and shows its rows. False in `blnOk` when the database refuses it, which
  /// the operator is told. A closed connection is told too, and is no refusal.
  void ConectGrid(const String& strInstrucao, bool& blnOk);
  /// Gives the grid's columns what `cgrColGrid` says; stops quietly at a column that is not there.
  void DesenhaGrid();
  /// Shows the window and returns when the operator has left it.
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
