// The window that picks a folder or a file.
#pragma once

#include "pickers/path_split.h"
#include "tessaria/host/dialog.h"
#include "tessaria/variant.h"

namespace tessaria {

/// The picker of a path field. Created on first use, one per thread; its caller keeps it alive
/// until it returns.
class frmDiretorio {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();

  frmDiretorio();
  frmDiretorio(const frmDiretorio&) = delete;
  frmDiretorio& operator=(const frmDiretorio&) = delete;
  ~frmDiretorio();

  /// Opens with the path `strConteudo`, or with the program's folder, and returns the chosen path.
  /// It returns `strConteudo` when nothing was chosen, or when the path is not valid, which is
  /// reported in a message box. `nLi`, `nCi` and `nWidth` are the wanted top, left and width, in
  /// twips; `strDirPattern` "" lists all files. Errors: 5 as in `SplitForPicker`, 68 and 76 for a
  /// drive or a folder that cannot be read.
  Variant ExecutaDiretorio(const Variant& nLi, const Variant& nCi, Integer nWidth,
                           const String& strConteudo, bool blnTmpVerArquivos,
                           const String& strDirPattern);
  /// Closes the window, also while it is open.
  void Unload();

 private:
  void OpenFolder(const String& folder);
  void OpenShare(const String& share);
  void SelectFile(const String& file);
  void DriveChanged();
  void Resize();
  void Confirm(bool confirmed);

  host::DialogPtr dialog_;
  host::DriveList& drives_;
  host::FolderList& folders_;
  host::FileList& files_;
  bool fileMode_ = false;
  bool confirmed_ = false;
};

}  // namespace tessaria
