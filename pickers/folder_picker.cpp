#include "pickers/folder_picker.h"

#include "services/dialog_placement.h"
#include "services/key_codes.h"
#include "services/message_box.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

using host::WidgetKind;

constexpr StringView kAllFiles = u"*.*";

constexpr host::WidgetDescription kPickerWidgets[] = {
    {u"lblCaption", WidgetKind::Label, u"Selecione o Diretório"},
    {u"drvDiretorio", WidgetKind::DriveList, u"Unidade"},
    {u"btnConfirmar", WidgetKind::CommandButton, u"&Confirmar", u"Confirmar"},
    {u"btnVoltar", WidgetKind::CommandButton, u"&Voltar", u"Voltar"},
    {u"dirDiretorio", WidgetKind::FolderList, u"Diretórios"},
    {u"fileDiretorio", WidgetKind::FileList, u"Arquivos"},
};

String Separator() { return String(1, App().PathSeparator()); }

/// Two leading separators name a share only on a system whose drives have letters, to which shares
/// are mapped.
bool IsShare(const String& folder) {
  return App().PathSeparator() == u'\\' && StartsWith(folder, u"\\\\");
}

void ShowBox(const String& text, Long flags) { mdlMsgBox::ExibeMensagem(0, text, flags); }

}  // namespace

const host::DialogDescription& frmDiretorio::Description() {
  static const host::DialogDescription description{u"frmDiretorio", u"Diretório", kPickerWidgets};
  return description;
}

frmDiretorio::frmDiretorio()
    : dialog_(TheDesktop().MakeDialog(Description())),
      drives_(dialog_->Find<host::DriveList>(u"drvDiretorio")),
      folders_(dialog_->Find<host::FolderList>(u"dirDiretorio")),
      files_(dialog_->Find<host::FileList>(u"fileDiretorio")) {
  const auto confirmOnEnter = [this](Integer& key) {
    if (key == kKeyEnter) Confirm(true);
  };
  drives_.OnKeyPress = folders_.OnKeyPress = files_.OnKeyPress = confirmOnEnter;
  drives_.OnChange = [this] { DriveChanged(); };
  folders_.OnChange = [this] { files_.Path(folders_.Path()); };
  files_.OnDblClick = [this] { Confirm(true); };
  dialog_->Find<host::DialogButton>(u"btnConfirmar").OnClick = [this] { Confirm(true); };
  dialog_->Find<host::DialogButton>(u"btnVoltar").OnClick = [this] { Confirm(false); };
  dialog_->OnResize = [this] { Resize(); };
}

frmDiretorio::~frmDiretorio() = default;

void frmDiretorio::Unload() { dialog_->Hide(); }

Variant frmDiretorio::ExecutaDiretorio(const Variant& nLi, const Variant& nCi, Integer nWidth,
                                       const String& strConteudo, bool blnTmpVerArquivos,
                                       const String& strDirPattern) {
  fileMode_ = blnTmpVerArquivos;
  confirmed_ = false;
  PlaceOnScreen(*dialog_, static_cast<float>(CDbl(nLi)), static_cast<float>(CDbl(nCi)));
  dialog_->Width(nWidth);
  Resize();

  const auto [folder, file] = strConteudo.empty()
                                  ? SplitPath{App().Path(), String()}
                                  : SplitForPicker(strConteudo, fileMode_, App().PathSeparator());
  if (TheDesktop().Dir(folder + Separator() + (file.empty() ? String(kAllFiles) : file)).empty()) {
    ShowBox(u"O Caminho Informado Não é Válido, Verifique Por Favor", mdlMsgBox::flag::Stop);
    return strConteudo;
  }
  const String opened = folder.empty() ? Separator() : folder;  // a file right below the root
  if (IsShare(opened))
    OpenShare(opened);
  else
    OpenFolder(opened);
  files_.Pattern(strDirPattern.empty() ? String(kAllFiles) : strDirPattern);
  files_.Path(opened);
  SelectFile(file);

  dialog_->ShowModal();
  const String chosen =
      fileMode_ ? files_.Path() + Separator() + files_.FileName() : folders_.Path();
  return confirmed_ ? chosen : strConteudo;
}

void frmDiretorio::OpenFolder(const String& folder) {
  drives_.Drive(folder);
  folders_.Path(folder);
}

/// Opens a share through the drive that is mapped to its server, or by its own path when there is
/// none.
void frmDiretorio::OpenShare(const String& share) {
  const Long end = InStr(3, share, Separator());
  const String server = end == 0 ? Mid(share, 3) : Mid(share, 3, end - 2);
  bool isMapped = false;
  for (const String& drive : drives_.List()) {
    if (InStr(drive, server) == 0) continue;
    isMapped = true;
    drives_.Drive(drive);
    DriveChanged();  // shows the drive's folders, also when the share's folder is not found
    for (Long k = 3; k <= Len(share); ++k) {
      const String path = Left(drives_.Drive(), 2) + Mid(share, k) + Separator();
      if (TheDesktop().Dir(path).empty()) continue;
      folders_.Path(path);
      break;
    }
  }
  if (!isMapped) folders_.Path(share);
}

void frmDiretorio::SelectFile(const String& file) {
  const auto list = files_.List();
  for (std::size_t i = 0; i < list.size(); ++i)
    if (EqualNoCase(list[i], file)) {
      files_.Select(static_cast<Long>(i));
      return;
    }
}

void frmDiretorio::DriveChanged() {
  if (TheDesktop().DriveReady(drives_.Drive()))
    folders_.Path(drives_.Drive());
  else
    ShowBox(u"Drive Não Disponível, Verifique Por Favor", 0);
}

void frmDiretorio::Resize() {
  const Long width = dialog_->Width();
  const Long height = dialog_->Height();
  drives_.Width(width - 930);
  dialog_->Find<host::DialogLabel>(u"lblCaption").Width(width - 105);
  dialog_->Find<host::DialogButton>(u"btnConfirmar").Left(width - 480);
  dialog_->Find<host::DialogButton>(u"btnVoltar").Left(width - 840);
  folders_.Height(height - 525);
  files_.Visible(fileMode_);
  if (!fileMode_) {
    folders_.Width(width - 105);
    return;
  }
  folders_.Width(width / 2);
  files_.Width(width - folders_.Width() - 105);
  files_.Left((width - 105) / 2 + 50);
  files_.Height(height - 525);
}

void frmDiretorio::Confirm(bool confirmed) {
  confirmed_ = confirmed;
  dialog_->Hide();
}

}  // namespace tessaria
