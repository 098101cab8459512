// The folder picker on network shares, and on a system whose separator is "/".
#include <utility>

#include "tests/pickers/folder_picker_fixture.h"

namespace tessaria::test {
namespace {

using testing::IsEmpty;

// --- Shares -------------------------------------------------------------------------------------

class Shares : public FolderPickerTest {
 protected:
  Shares() {
    desktop->Files().AddFile(u"\\\\servidor\\dados\\contas\\jan.csv");
    desktop->Files().AddFile(u"\\\\servidor\\dados\\leia.txt");
  }
  /// A drive with the contents of the share.
  void Map(const String& drive) {
    desktop->Files().AddDrive(drive + u": [\\\\servidor\\dados]");
    desktop->Files().AddFile(drive + u":\\contas\\jan.csv");
    desktop->Files().AddFile(drive + u":\\leia.txt");
  }
};

TEST_F(Shares, AShareIsReachedThroughTheDriveThatIsMappedToIt) {
  Map(u"z");
  EXPECT_EQ(Run(Mode::Folders, u"\\\\servidor\\dados\\contas",
                [](memory::Dialog& shown) {
                  EXPECT_EQ(Drives(shown).Drive(), u"z: [\\\\servidor\\dados]");
                  EXPECT_EQ(Folders(shown).Path(), u"z:\\contas");
                  EXPECT_EQ(Files(shown).Path(), u"\\\\servidor\\dados\\contas");
                  Confirm(shown);
                }),
            u"z:\\contas");
}

TEST_F(Shares, AFileOfAShareIsReturnedWithItsNetworkPath) {
  Map(u"z");
  EXPECT_EQ(Run(Mode::Files, u"\\\\servidor\\dados\\contas\\jan.csv", Confirm),
            u"\\\\servidor\\dados\\contas\\jan.csv");
}

TEST_F(Shares, TheFolderOfTheShareItselfIsTheDrivesRoot) {
  Map(u"z");
  for (const char16_t* share : {u"\\\\servidor\\dados", u"\\\\servidor\\dados\\"}) {
    Run(Mode::Folders, share, [](memory::Dialog& shown) {
      EXPECT_EQ(Folders(shown).Path(), u"z:\\");
      Leave(shown);
    });
  }
}

TEST_F(Shares, TheLastDriveOfTheServerStaysSelected) {
  Map(u"y");
  Map(u"z");
  Run(Mode::Folders, u"\\\\servidor\\dados\\contas", [](memory::Dialog& shown) {
    EXPECT_EQ(Drives(shown).Drive(), u"z: [\\\\servidor\\dados]");
    EXPECT_EQ(Folders(shown).Path(), u"z:\\contas");
    Leave(shown);
  });
}

TEST_F(Shares, ADriveWithoutThePathShowsItsOwnFolders) {
  desktop->Files().AddDrive(u"z: [\\\\servidor\\outra]");
  EXPECT_EQ(Run(Mode::Folders, u"\\\\servidor\\dados\\contas",
                [](memory::Dialog& shown) {
                  EXPECT_EQ(Drives(shown).Drive(), u"z: [\\\\servidor\\outra]");
                  EXPECT_EQ(Folders(shown).Path(), u"z:\\");
                  Leave(shown);
                }),
            u"\\\\servidor\\dados\\contas");
}

TEST_F(Shares, AMappedDriveThatIsNotReadyIsReported) {
  desktop->Files().AddDrive(u"z: [\\\\servidor\\dados]", memory::FileSystem::DriveState::NotReady);
  Run(Mode::Folders, u"\\\\servidor\\dados\\contas", [](memory::Dialog& shown) {
    EXPECT_EQ(Drives(shown).Drive(), u"z: [\\\\servidor\\dados]");
    Leave(shown);
  });
  ASSERT_EQ(app.Boxes().size(), 1u);
  EXPECT_EQ(app.Boxes().front().Text, u"Drive Não Disponível, Verifique Por Favor");
}

TEST_F(Shares, WithoutADriveOfItsServerAShareIsOpenedByItsOwnPath) {
  desktop->Files().AddDrive(u"z: [\\\\servidor2\\dados]");
  EXPECT_EQ(Run(Mode::Folders, u"\\\\servidor\\dados\\contas",
                [](memory::Dialog& shown) {
                  EXPECT_EQ(Drives(shown).Drive(), u"c: [SISTEMA]");
                  EXPECT_EQ(Folders(shown).Path(), u"\\\\servidor\\dados\\contas");
                  Confirm(shown);
                }),
            u"\\\\servidor\\dados\\contas");
}

TEST_F(Shares, AServerWithoutAShareIsFoundByItsName) {
  desktop->Files().AddFile(u"\\\\servidor\\leia.txt");
  const auto opened = [&] {
    String folder;
    EXPECT_EQ(Run(Mode::Folders, u"\\\\servidor",
                  [&](memory::Dialog& shown) {
                    folder = Folders(shown).Path();
                    Leave(shown);
                  }),
              u"\\\\servidor");
    return folder;
  };
  EXPECT_EQ(opened(), u"\\\\servidor");
  Map(u"z");
  EXPECT_EQ(opened(), u"z:\\");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(Shares, AMissingShareIsReported) {
  EXPECT_EQ(RunUnseen(Mode::Folders, u"\\\\servidor\\nada"), u"\\\\servidor\\nada");
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
}

// --- The other separator ------------------------------------------------------------------------

/// A path whose last "/" is written as the file system in memory writes it.
String Stored(String path) {
  const auto at = path.rfind(u'/');
  return at == String::npos ? path : path.replace(at, 1, u"\\");
}

/// A program and a desktop of a system whose separator is "/", on top of those in memory, which
/// they replace during their lifetime.
class SlashSystem final : public host::Application, public host::Desktop {
 public:
  SlashSystem()
      : app_(*std::exchange(State().application, this)),
        desktop_(*std::exchange(State().desktop, this)) {}
  ~SlashSystem() override {
    State().application = &app_;
    State().desktop = &desktop_;
  }

  String Path() const override { return u"/home/ana"; }
  char16_t PathSeparator() const override { return u'/'; }
  bool FileExists(const String& path) const override { return app_.FileExists(path); }
  std::shared_ptr<host::Picture> LoadPicture(const String& path) override {
    return app_.LoadPicture(path);
  }
  void Beep() override { app_.Beep(); }
  void DoEvents() override { app_.DoEvents(); }
  Long ShowMessageBox(Long owner, const String& text, Long style, const String& title) override {
    return app_.ShowMessageBox(owner, text, style, title);
  }
  String ShowInputBox(const String& prompt, const String& title, const String& offered) override {
    return app_.ShowInputBox(prompt, title, offered);
  }
  std::vector<String> DataSourceNames() const override { return app_.DataSourceNames(); }
  std::shared_ptr<host::Connection> NewConnection() override { return app_.NewConnection(); }

  Long ScreenWidth() const override { return desktop_.ScreenWidth(); }
  Long ScreenHeight() const override { return desktop_.ScreenHeight(); }
  Date Today() const override { return desktop_.Today(); }
  host::DialogPtr MakeDialog(const host::DialogDescription& description) override {
    return desktop_.MakeDialog(description);
  }
  void Busy(bool busy) override { desktop_.Busy(busy); }
  void ClipboardText(const String& text) override { desktop_.ClipboardText(text); }
  String Dir(const String& pattern) const override { return desktop_.Dir(Stored(pattern)); }
  bool DriveReady(const String& drive) const override { return desktop_.DriveReady(drive); }

 private:
  host::Application& app_;
  host::Desktop& desktop_;
};

class SlashPaths : public FolderPickerTest {
 protected:
  SlashPaths() {
    desktop->Files().AddDrive(u"/home");
    desktop->Files().AddFile(Stored(u"/home/ana/carta.txt"));
    desktop->Files().AddFile(Stored(u"/home/ana/docs/nota.txt"));
  }
  SlashSystem system;
};

TEST_F(SlashPaths, AnEmptyFieldOpensTheProgramsFolder) {
  EXPECT_EQ(Run(Mode::Folders, u"", Confirm), u"/home/ana");
}

TEST_F(SlashPaths, APathIsSplitAndPutTogetherWithTheSystemsSeparator) {
  EXPECT_EQ(Run(Mode::Files, u"/home/ana/carta.txt",
                [](memory::Dialog& shown) {
                  EXPECT_EQ(Files(shown).Path(), u"/home/ana");
                  EXPECT_EQ(Files(shown).FileName(), u"carta.txt");
                  shown.OpenFolder(u"dirDiretorio", u"/home/ana/docs");
                  shown.SelectFile(u"fileDiretorio", u"nota.txt");
                  Confirm(shown);
                }),
            u"/home/ana/docs/nota.txt");
}

// There are no shares on such a system: two leading separators are like one.
TEST_F(SlashPaths, APathWithTwoLeadingSeparatorsOpensItselfWhateverIsMounted) {
  desktop->Files().AddDrive(u"//srv/home/mnt");  // an entry that contains the name "home"
  desktop->Files().AddFile(Stored(u"//home/ana/carta.txt"));
  EXPECT_EQ(Run(Mode::Folders, u"//home/ana",
                [](memory::Dialog& shown) {
                  EXPECT_EQ(Folders(shown).Path(), u"//home/ana");
                  Confirm(shown);
                }),
            u"//home/ana");
}

TEST_F(SlashPaths, AFileRightBelowTheRootOpensTheRoot) {
  auto& files = desktop->Files();
  files.AddDrive(u"/");
  files.AddFile(u"/\\nota.txt");  // as the root's list and a search after its name find it
  files.AddFile(u"\\nota.txt");   // as a search with one separator finds it
  for (const char16_t* path : {u"/nota.txt", u"//nota.txt"}) {
    EXPECT_EQ(Run(Mode::Files, path,
                  [](memory::Dialog& shown) {
                    EXPECT_EQ(Drives(shown).Drive(), u"/");
                    EXPECT_EQ(Folders(shown).Path(), u"/");
                    EXPECT_EQ(Files(shown).Path(), u"/");
                    EXPECT_EQ(Files(shown).FileName(), u"nota.txt");
                    Confirm(shown);
                  }),
              u"//nota.txt");  // the root and a separator, as for any root
  }
}

TEST_F(SlashPaths, TheOtherSeparatorIsNotASeparator) {
  EXPECT_HOST_ERROR(RunUnseen(Mode::Files, u"c:\\Dados\\Carta.txt"), errors::InvalidArgument);
  EXPECT_EQ(RunUnseen(Mode::Folders, u"\\\\servidor\\dados"), u"\\\\servidor\\dados");
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
