// A file system for the folder picker, and its window operated by a script.
#pragma once

#include "pickers/folder_picker.h"
#include "tests/pickers/picker_fixture.h"

namespace tessaria::test {

class FolderPickerTest : public PickerTest {
 protected:
  enum class Mode { Folders, Files };

  FolderPickerTest() {
    auto& files = desktop->Files();
    files.AddDrive(u"c: [SISTEMA]");
    files.AddDrive(u"d: [DADOS]");
    files.AddDrive(u"e: [DISCO]", memory::FileSystem::DriveState::NotReady);
    files.AddFile(u"c:\\Programa\\Notas.txt");
    files.AddFile(u"c:\\Dados\\Carta.txt");
    files.AddFile(u"c:\\Dados\\LEIAME");
    files.AddFile(u"c:\\Dados\\foto.png");
    files.AddFile(u"c:\\Dados\\Contas\\jan.csv");
    files.AddFolder(u"c:\\Vazia");
    files.AddFile(u"d:\\raiz.txt");
  }

  /// Opens with a path and returns the result.
  String Run(Mode mode, const String& path, const String& pattern, Script script) {
    desktop->WillShow(u"frmDiretorio", std::move(script));
    return RunUnseen(mode, path, pattern);
  }
  String Run(Mode mode, const String& path, Script script) {
    return Run(mode, path, u"", std::move(script));
  }
  /// A run that shows no window.
  String RunUnseen(Mode mode, const String& path, const String& pattern = u"") {
    frmDiretorio form;
    return CStr(form.ExecutaDiretorio(100.0f, 200.0f, 6000, path, mode == Mode::Files, pattern));
  }
  static void Confirm(memory::Dialog& shown) { shown.Click(u"btnConfirmar"); }
  static void Leave(memory::Dialog& shown) { shown.Click(u"btnVoltar"); }

  static memory::DriveList& Drives(memory::Dialog& shown) {
    return shown.Find<memory::DriveList>(u"drvDiretorio");
  }
  static memory::FolderList& Folders(memory::Dialog& shown) {
    return shown.Find<memory::FolderList>(u"dirDiretorio");
  }
  static memory::FileList& Files(memory::Dialog& shown) {
    return shown.Find<memory::FileList>(u"fileDiretorio");
  }
};

}  // namespace tessaria::test
