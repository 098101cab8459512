// The window that picks a folder or a file.
#include "tests/pickers/folder_picker_fixture.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::ElementsAre;
using testing::IsEmpty;

// --- Opening ------------------------------------------------------------------------------------

TEST_F(FolderPickerTest, AnEmptyFieldOpensTheProgramsFolder) {
  for (const Mode mode : {Mode::Folders, Mode::Files}) {
    EXPECT_EQ(Run(mode, u"",
                  [](memory::Dialog& shown) {
                    EXPECT_EQ(Drives(shown).Drive(), u"c: [SISTEMA]");
                    EXPECT_EQ(Folders(shown).Path(), u"c:\\Programa");
                    EXPECT_EQ(Files(shown).Path(), u"c:\\Programa");
                    EXPECT_EQ(Files(shown).FileName(), u"");
                    Leave(shown);
                  }),
              u"");
  }
}

TEST_F(FolderPickerTest, OpensThePathOfTheBox) {
  Run(Mode::Folders, u"c:\\Dados", [](memory::Dialog& shown) {
    EXPECT_EQ(Folders(shown).Path(), u"c:\\Dados");
    EXPECT_THAT(Files(shown).List(), ElementsAre(u"Carta.txt", u"foto.png", u"LEIAME"));
    Leave(shown);
  });
  Run(Mode::Files, u"d:\\raiz.txt", [](memory::Dialog& shown) {
    EXPECT_EQ(Drives(shown).Drive(), u"d: [DADOS]");
    EXPECT_EQ(Folders(shown).Path(), u"d:\\");
    EXPECT_EQ(Files(shown).FileName(), u"raiz.txt");
    Leave(shown);
  });
}

TEST_F(FolderPickerTest, TheFileOfTheBoxIsSelectedIgnoringCase) {
  for (const char16_t* path : {u"c:\\Dados\\Carta.txt", u"C:\\DADOS\\cARTA.TXT"}) {
    Run(Mode::Files, path, [](memory::Dialog& shown) {
      EXPECT_EQ(Files(shown).FileName(), u"Carta.txt");
      Leave(shown);
    });
  }
}

TEST_F(FolderPickerTest, APatternThatHidesTheFileSelectsNone) {
  Run(Mode::Files, u"c:\\Dados\\Carta.txt", u"*.png", [](memory::Dialog& shown) {
    EXPECT_EQ(Files(shown).Pattern(), u"*.png");
    EXPECT_THAT(Files(shown).List(), ElementsAre(u"foto.png"));
    EXPECT_EQ(Files(shown).FileName(), u"");
    Leave(shown);
  });
  Run(Mode::Files, u"c:\\Dados", u"", [](memory::Dialog& shown) {
    EXPECT_EQ(Files(shown).Pattern(), u"*.*");
    Leave(shown);
  });
}

TEST_F(FolderPickerTest, OpensAtTheWantedPlaceAndWidth) {
  Run(Mode::Folders, u"", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Top(), 100);
    EXPECT_EQ(shown.Left(), 200);
    EXPECT_EQ(shown.Width(), 6000);
    Leave(shown);
  });
}

TEST_F(FolderPickerTest, StaysInsideASmallScreen) {
  desktop->ScreenSize(1000, 1200);
  desktop->DialogSize(700, 900);
  Run(Mode::Folders, u"", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Top(), -150);
    EXPECT_EQ(shown.Left(), 150);
    shown.CloseWindow();
  });
}

// The position is computed for the initial width of the window.
TEST_F(FolderPickerTest, TheWantedWidthIsAppliedAfterThePlace) {
  desktop->ScreenSize(12000, 9000);
  desktop->DialogSize(3000, 4000);
  frmDiretorio form;
  desktop->WillShow(u"frmDiretorio", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Left(), 8000);
    EXPECT_EQ(shown.Width(), 6000);
    Leave(shown);
  });
  form.ExecutaDiretorio(100.0f, 8000.0f, 6000, u"", false, u"");
}

// --- Paths that are not valid -------------------------------------------------------------------

TEST_F(FolderPickerTest, AnInvalidPathIsReported) {
  const struct {
    Mode How;
    const char16_t* Path;
  } rows[] = {
      {Mode::Folders, u"c:\\Nada"},
      {Mode::Folders, u"c:\\Vazia"},             // a folder without files is also invalid
      {Mode::Folders, u"c:\\Dados\\Carta.txt"},  // a file is not a folder
      {Mode::Folders, u"carta.txt"},
      {Mode::Folders, u"e:\\"},
      {Mode::Folders, u"c:\\Dados\\*.txt"},
      {Mode::Files, u"c:\\Dados\\Falta.txt"},
      {Mode::Files, u"c:\\Nada\\Carta.txt"},
      {Mode::Files, u"c:\\Dados\\LEIAME"},  // a name without a dot is read as a folder
      {Mode::Files, u"LEIAME"},
      {Mode::Files, u"\\nota.txt"},  // without a drive
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(ToUtf8(row.Path));
    EXPECT_EQ(RunUnseen(row.How, row.Path), row.Path);
    EXPECT_THAT(app.TakeBoxes(),
                ElementsAre(Box{0, u"O Caminho Informado Não é Válido, Verifique Por Favor", 16,
                                u"Alerta!"}));
  }
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

TEST_F(FolderPickerTest, InFileModeANameWithAWildcardIsValidAndSelectsNothing) {
  EXPECT_EQ(Run(Mode::Files, u"c:\\Dados\\*.txt",
                [](memory::Dialog& shown) {
                  EXPECT_EQ(Files(shown).FileName(), u"");
                  EXPECT_EQ(Files(shown).Path(), u"c:\\Dados");
                  Leave(shown);
                }),
            u"c:\\Dados\\*.txt");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(FolderPickerTest, FilesWithoutADotMakeAFolderValid) {
  desktop->Files().AddFile(u"c:\\Um\\LEIAME");
  EXPECT_EQ(Run(Mode::Folders, u"c:\\Um", Confirm), u"c:\\Um");
}

TEST_F(FolderPickerTest, AFolderWithADotIsCutThereInFileMode) {
  desktop->Files().AddFile(u"c:\\Contas.2017\\jan.csv");
  EXPECT_EQ(RunUnseen(Mode::Files, u"c:\\Contas.2017"), u"c:\\Contas.2017");
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
  EXPECT_EQ(Run(Mode::Folders, u"c:\\Contas.2017", Confirm), u"c:\\Contas.2017");
}

TEST_F(FolderPickerTest, ANameWithADotButNoSeparatorIsAnInvalidArgument) {
  EXPECT_HOST_ERROR(RunUnseen(Mode::Files, u"carta.txt"), errors::InvalidArgument);
  EXPECT_THAT(desktop->Shown(), IsEmpty());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- The answer ---------------------------------------------------------------------------------

TEST_F(FolderPickerTest, ConfirmingReturnsTheFolderOrTheFile) {
  EXPECT_EQ(Run(Mode::Folders, u"c:\\Dados",
                [](memory::Dialog& shown) {
                  shown.OpenFolder(u"dirDiretorio", u"c:\\Dados\\Contas");
                  Confirm(shown);
                }),
            u"c:\\Dados\\Contas");
  EXPECT_EQ(Run(Mode::Files, u"c:\\Dados\\Carta.txt",
                [](memory::Dialog& shown) {
                  shown.SelectFile(u"fileDiretorio", u"foto.png");
                  Confirm(shown);
                }),
            u"c:\\Dados\\foto.png");
}

TEST_F(FolderPickerTest, WithoutASelectedFileTheResultEndsWithTheSeparator) {
  EXPECT_EQ(Run(Mode::Files, u"c:\\Dados", Confirm), u"c:\\Dados\\");
}

TEST_F(FolderPickerTest, AFileOfARootHasTwoLeadingSeparators) {
  EXPECT_EQ(Run(Mode::Files, u"d:\\raiz.txt", Confirm), u"d:\\\\raiz.txt");
}

TEST_F(FolderPickerTest, EnterInAnyListAndADoubleClickOnAFileConfirm) {
  for (const StringView list : {u"drvDiretorio", u"dirDiretorio", u"fileDiretorio"}) {
    EXPECT_EQ(Run(Mode::Files, u"c:\\Dados\\Carta.txt",
                  [&](memory::Dialog& shown) {
                    shown.FocusOn(list);
                    shown.Type(u"a ");
                    EXPECT_TRUE(shown.IsShown());
                    shown.Press(Key::Enter);
                  }),
              u"c:\\Dados\\Carta.txt");
  }
  EXPECT_EQ(Run(Mode::Files, u"c:\\Dados",
                [](memory::Dialog& shown) {
                  shown.SelectFile(u"fileDiretorio", u"LEIAME");
                  shown.DoubleClick(u"fileDiretorio");
                }),
            u"c:\\Dados\\LEIAME");
}

TEST_F(FolderPickerTest, LeavingReturnsTheOldText) {
  const auto moved = [](const Script& leave) {
    return [leave](memory::Dialog& shown) {
      shown.OpenFolder(u"dirDiretorio", u"c:\\Programa");
      leave(shown);
    };
  };
  EXPECT_EQ(Run(Mode::Folders, u"c:\\DADOS", moved(Leave)), u"c:\\DADOS");
  EXPECT_EQ(
      Run(Mode::Folders, u"c:\\DADOS", moved([](memory::Dialog& shown) { shown.CloseWindow(); })),
      u"c:\\DADOS");
}

TEST_F(FolderPickerTest, AConfirmedRunDoesNotConfirmTheNext) {
  frmDiretorio form;
  const auto run = [&](Script script) {
    desktop->WillShow(u"frmDiretorio", std::move(script));
    return CStr(form.ExecutaDiretorio(0.0f, 0.0f, 6000, u"c:\\DADOS", false, u""));
  };
  EXPECT_EQ(run(Confirm), u"c:\\Dados");
  EXPECT_EQ(run([](memory::Dialog& shown) { shown.CloseWindow(); }), u"c:\\DADOS");
}

// --- The lists ----------------------------------------------------------------------------------

TEST_F(FolderPickerTest, TheListsFollowEachOther) {
  Run(Mode::Files, u"c:\\Dados\\Carta.txt", [](memory::Dialog& shown) {
    shown.OpenFolder(u"dirDiretorio", u"c:\\Dados\\Contas");
    EXPECT_EQ(Files(shown).Path(), u"c:\\Dados\\Contas");
    EXPECT_EQ(Files(shown).FileName(), u"");
    shown.ChooseDrive(u"drvDiretorio", u"d: [DADOS]");
    EXPECT_EQ(Folders(shown).Path(), u"d:\\");
    EXPECT_EQ(Files(shown).Path(), u"d:\\");
    Leave(shown);
  });
}

TEST_F(FolderPickerTest, ADriveThatIsNotReadyIsReportedAndTheListsStay) {
  EXPECT_EQ(Run(Mode::Folders, u"c:\\Dados",
                [this](memory::Dialog& shown) {
                  shown.ChooseDrive(u"drvDiretorio", u"e: [DISCO]");
                  EXPECT_THAT(app.TakeBoxes(),
                              ElementsAre(Box{0, u"Drive Não Disponível, Verifique Por Favor", 0,
                                              u"Alerta!"}));
                  EXPECT_EQ(Folders(shown).Path(), u"c:\\Dados");
                  EXPECT_EQ(Files(shown).Path(), u"c:\\Dados");
                  Confirm(shown);
                }),
            u"c:\\Dados");
}

TEST_F(FolderPickerTest, ADriveThatVanishedIsTheHostsErrorAndTheListsStay) {
  Run(Mode::Files, u"c:\\Dados\\Carta.txt", [this](memory::Dialog& shown) {
    desktop->Files().RemoveDrive(u"d: [DADOS]");
    shown.ChooseDrive(u"drvDiretorio", u"d: [DADOS]");
    ASSERT_EQ(shown.UnhandledErrors().size(), 1u);
    EXPECT_EQ(shown.UnhandledErrors().front().Number(), errors::DeviceUnavailable);
    EXPECT_EQ(Folders(shown).Path(), u"c:\\Dados");
    EXPECT_EQ(Files(shown).Path(), u"c:\\Dados");
    Leave(shown);
  });
}

TEST_F(FolderPickerTest, AFolderThatVanishedIsTheHostsError) {
  Run(Mode::Folders, u"c:\\Dados", [](memory::Dialog& shown) {
    shown.OpenFolder(u"dirDiretorio", u"c:\\Dados\\Sumiu");
    ASSERT_EQ(shown.UnhandledErrors().size(), 1u);
    EXPECT_EQ(shown.UnhandledErrors().front().Number(), errors::PathNotFound);
    EXPECT_EQ(Folders(shown).Path(), u"c:\\Dados");
    Leave(shown);
  });
}

// --- Layout -------------------------------------------------------------------------------------

template <class Widget>
Long LeftOf(memory::Dialog& shown, StringView name) {
  return shown.Find<Widget>(name).Left();
}

TEST_F(FolderPickerTest, TheLayoutFollowsTheWindowInFolderMode) {
  desktop->DialogSize(3000, 4000);
  Run(Mode::Folders, u"", [](memory::Dialog& shown) {
    for (const Long width : {6000, 7000}) {
      shown.Resize(width, width - 1000);
      EXPECT_EQ(Drives(shown).Width(), width - 930);
      EXPECT_EQ(shown.Find<host::DialogLabel>(u"lblCaption").Width(), width - 105);
      EXPECT_EQ(LeftOf<host::DialogButton>(shown, u"btnConfirmar"), width - 480);
      EXPECT_EQ(LeftOf<host::DialogButton>(shown, u"btnVoltar"), width - 840);
      EXPECT_EQ(Folders(shown).Height(), width - 1525);
      EXPECT_EQ(Folders(shown).Width(), width - 105);
      EXPECT_FALSE(Files(shown).Visible());
    }
    Leave(shown);
  });
}

TEST_F(FolderPickerTest, TheLayoutHasTwoListsInFileMode) {
  desktop->DialogSize(3000, 4000);
  Run(Mode::Files, u"", [](memory::Dialog& shown) {
    EXPECT_EQ(Folders(shown).Width(), 3000);  // for the wanted width, before any resize
    EXPECT_TRUE(Files(shown).Visible());
    EXPECT_EQ(Files(shown).Width(), 2895);
    EXPECT_EQ(Files(shown).Left(), 2997);
    EXPECT_EQ(Files(shown).Height(), 3475);
    EXPECT_EQ(Folders(shown).Height(), 3475);
    shown.Resize(8105, 5000);
    EXPECT_EQ(Drives(shown).Width(), 7175);
    EXPECT_EQ(Folders(shown).Width(), 4052);
    EXPECT_EQ(Files(shown).Width(), 3948);
    EXPECT_EQ(Files(shown).Left(), 4050);
    EXPECT_EQ(Files(shown).Height(), 4475);
    Leave(shown);
  });
}

TEST_F(FolderPickerTest, OneWindowServesBothModes) {
  frmDiretorio form;
  for (const bool files : {true, false, true}) {
    desktop->WillShow(u"frmDiretorio", [&](memory::Dialog& shown) {
      EXPECT_EQ(Files(shown).Visible(), files);
      EXPECT_EQ(Folders(shown).Width(), files ? 3000 : 5895);
      Leave(shown);
    });
    form.ExecutaDiretorio(0.0f, 0.0f, 6000, u"", files, u"");
  }
}

}  // namespace
}  // namespace tessaria::test
