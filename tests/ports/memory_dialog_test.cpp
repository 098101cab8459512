// The dialogs of the memory host and the scripts that work them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/connection.h"
#include "tessaria/thread_state.h"
#include "tests/support/printers.h"
#include "tests/support/test_desktop.h"

namespace tessaria::memory {
namespace {

using host::WidgetKind;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr host::WidgetDescription kWidgets[] = {
    {u"lblTitulo", WidgetKind::Label, u"Título"},
    {u"barra", WidgetKind::ToolBar},
    {u"grade", WidgetKind::DataGrid},
    {u"campo", WidgetKind::TsText},
    {u"btn", WidgetKind::CommandButton, u"&Um", {}, 0},
    {u"btn", WidgetKind::CommandButton, u"&Dois", {}, 1},
    {u"visor", WidgetKind::Display},
    {u"dia", WidgetKind::Calendar},
    {u"drive", WidgetKind::DriveList},
    {u"pasta", WidgetKind::FolderList},
    {u"arquivo", WidgetKind::FileList},
};
constexpr host::DialogDescription kDescription{u"frmTeste", u"Teste", kWidgets};

class MemoryDialog : public testing::Test {
 protected:
  using Log = std::vector<std::string>;

  /// Shows the dialog and runs the script on it.
  void Show(ModalScript::Script script) {
    desktop.WillShow(u"frmTeste", std::move(script));
    dialog->ShowModal();
  }
  static void Close(Dialog& shown) { shown.CloseWindow(); }
  std::shared_ptr<Connection> ConnectionWithRows() {
    auto connection = Connection::CreateOpen();
    connection->AddTable(u"cidades", {{u"codigo", host::type::Integer}, {u"nome"}},
                         {{Long{1}, u"Assis"}, {Long{2}, u"Bauru"}, {Long{3}, u"Campinas"}});
    return connection;
  }

  std::vector<std::string> faults;
  Application app;
  Desktop desktop{[this](const String& message) { faults.push_back(ToUtf8(message)); }};
  host::DialogPtr dialog = TheDesktop().MakeDialog(kDescription);
  Log log;
};

TEST_F(MemoryDialog, IsBuiltFromItsDescriptionAndStartsHidden) {
  EXPECT_EQ(dialog->Caption(), u"Teste");
  EXPECT_EQ(dialog->Find<host::DialogLabel>(u"LBLTITULO").Caption(), u"Título");
  EXPECT_EQ(dialog->Find<host::DialogButton>(u"btn", 1).Caption(), u"&Dois");
  EXPECT_NE(dialog->hWnd(), TheDesktop().MakeDialog(kDescription)->hWnd());
  EXPECT_THAT(desktop.Shown(), IsEmpty());
}

TEST_F(MemoryDialog, RefusesUnknownNamesAndOtherKinds) {
  const auto errorOf = [&](auto&& call) -> Long {
    try {
      call();
    } catch (const HostError& error) {
      return error.Number();
    }
    return 0;
  };
  EXPECT_EQ(errorOf([&] { dialog->Find<host::DialogLabel>(u"nada"); }), errors::ControlNotFound);
  EXPECT_EQ(errorOf([&] { dialog->Find<host::DialogButton>(u"btn"); }), errors::ControlNotFound);
  EXPECT_EQ(errorOf([&] { dialog->Find<host::DialogLabel>(u"grade"); }), errors::TypeMismatch);
}

TEST_F(MemoryDialog, ReturnsWhenItIsHiddenAndRaisesItsEventsInOrder) {
  dialog->OnResize = [&] { log.push_back("resize"); };
  dialog->OnActivate = [&] { log.push_back("activate"); };
  dialog->Width(5000);
  for (int shows = 0; shows < 2; ++shows) {
    Show([&](Dialog& shown) {
      EXPECT_TRUE(shown.IsShown());
      log.push_back("work");
      shown.Hide();
    });
  }
  EXPECT_THAT(log, ElementsAre("resize", "activate", "work", "activate", "work"));
  EXPECT_THAT(desktop.Shown(), ElementsAre(u"frmTeste", u"frmTeste"));
  EXPECT_THAT(faults, IsEmpty());
}

TEST_F(MemoryDialog, IsActivatedEachTimeThatItComesToTheFront) {
  int activations = 0;
  dialog->OnActivate = [&] { ++activations; };
  Show([&](Dialog& shown) {
    EXPECT_EQ(activations, 1);
    const host::DialogPtr second = TheDesktop().MakeDialog(kDescription);
    desktop.WillShow(u"frmTeste", [](Dialog& other) { other.CloseWindow(); });
    second->ShowModal();
    EXPECT_EQ(activations, 2);
    shown.Reactivate();
    EXPECT_EQ(activations, 3);
    shown.CloseWindow();
  });
  EXPECT_EQ(activations, 3);
  EXPECT_THAT(faults, IsEmpty());
}

TEST_F(MemoryDialog, OneThatIsHiddenUnderAnotherIsNotActivated) {
  int activations = 0;
  dialog->OnActivate = [&] { ++activations; };
  Show([&](Dialog& shown) {
    const host::DialogPtr second = TheDesktop().MakeDialog(kDescription);
    desktop.WillShow(u"frmTeste", [&](Dialog& other) {
      shown.Hide();
      other.CloseWindow();
    });
    second->ShowModal();
  });
  EXPECT_EQ(activations, 1);
}

TEST_F(MemoryDialog, TheFrameAsksAHandlerFirst) {
  int requests = 0;
  dialog->OnCloseRequest = [&] {
    if (++requests == 2) dialog->Hide();
  };
  Show([](Dialog& shown) {
    shown.CloseWindow();
    EXPECT_TRUE(shown.IsShown());
    shown.CloseWindow();
    EXPECT_FALSE(shown.IsShown());
  });
  EXPECT_EQ(requests, 2);
}

TEST_F(MemoryDialog, AChangeOfSizeWhileItShowsIsAResize) {
  int resizes = 0;
  dialog->OnResize = [&] { ++resizes; };
  Show([&](Dialog& shown) {
    shown.Width(7000);
    shown.Resize(7000, 5000);
    shown.Resize(7000, 5000);
    EXPECT_EQ(resizes, 3);
    EXPECT_EQ(shown.Height(), 5000);
    shown.CloseWindow();
  });
}

TEST_F(MemoryDialog, TheFirstWidgetThatTakesItHasTheFocus) {
  Show([](Dialog& shown) {
    EXPECT_EQ(shown.Focused(), u"grade");
    shown.Press(Key::Tab);
    EXPECT_EQ(shown.Focused(), u"campo");
    shown.FocusOn(u"lblTitulo");
    EXPECT_EQ(shown.Focused(), u"campo");
    shown.CloseWindow();
  });
}

TEST_F(MemoryDialog, KeysReachTheWindowBeforeTheWidget) {
  auto& grid = dialog->Find<host::DataGrid>(u"grade");
  dialog->OnKeyDown = [&](Integer& code, Integer& shift) {
    log.push_back("window down " + std::to_string(code) + " " + std::to_string(shift));
  };
  dialog->OnKeyPress = [&](Integer& code) {
    log.push_back("window press " + std::to_string(code));
  };
  grid.OnKeyDown = [&](Integer& code, Integer&) {
    log.push_back("grid down " + std::to_string(code));
  };
  grid.OnKeyPress = [&](Integer& code) { log.push_back("grid press " + std::to_string(code)); };
  Show([&](Dialog& shown) {
    shown.Type(u"a");
    shown.Press(Key::PageUp, modifier::Control);
    shown.CloseWindow();
  });
  EXPECT_THAT(log, ElementsAre("window down 65 0", "grid down 65", "window press 97",
                               "grid press 97", "window down 33 2", "grid down 33"));
}

TEST_F(MemoryDialog, AKeyThatTheWindowTakesGoesNoFurther) {
  auto& button = dialog->Find<host::DialogButton>(u"btn", 0);
  button.OnClick = [&] { log.push_back("click"); };
  button.OnKeyPress = [&](Integer&) { log.push_back("press"); };
  Show([&](Dialog& shown) {
    shown.FocusOn(u"btn", 0);
    shown.Press(Key::Enter);
    dialog->OnKeyPress = [](Integer& code) { code = 0; };
    shown.Press(Key::Enter);
    shown.CloseWindow();
  });
  EXPECT_THAT(log, ElementsAre("press", "click"));
}

TEST_F(MemoryDialog, AFieldIsAWholeControlOfTheWindowsForm) {
  const auto connection = Connection::CreateOpen();
  dialog->dbForm(connection);
  auto& field = dialog->Find<host::DialogField>(u"campo");
  field.Control().Let(u"TipoControle", Long{1});
  field.OnChange = [&] { log.push_back("change"); };
  dialog->OnKeyPress = [&](Integer& code) {
    log.push_back("window press");
    if (code == u'x') code = 0;
  };
  Show([&](Dialog& shown) {
    EXPECT_EQ(State().dbConexao, connection);  // found at the first show
    EXPECT_EQ(shown.TheForm().Name(), u"frmTeste");
    EXPECT_EQ(shown.TheForm().Controls(u"btn")->TypeName(), u"CommandButton");
    shown.FocusOn(u"campo");
    shown.Type(u"ax");
    EXPECT_EQ(shown.Field(u"campo").txtEdit().Text(), u"a");
    shown.CloseWindow();
  });
  EXPECT_THAT(log, ElementsAre("window press", "change", "window press"));
  EXPECT_THAT(app.Boxes(), IsEmpty());
  State().dbConexao = nullptr;
}

TEST_F(MemoryDialog, DisabledAndHiddenWidgetsCannotBeReached) {
  auto& button = dialog->Find<host::DialogButton>(u"btn", 0);
  button.OnClick = [&] { log.push_back("click"); };
  Show([&](Dialog& shown) {
    button.Enabled(false);
    shown.Click(u"btn", 0);
    button.Enabled(true);
    button.Visible(false);
    shown.Click(u"btn", 0);
    button.Visible(true);
    shown.Click(u"btn", 0);
    EXPECT_EQ(shown.Focused(), u"btn");
    shown.CloseWindow();
  });
  EXPECT_THAT(log, ElementsAre("click"));
}

TEST_F(MemoryDialog, AGridShowsTheFieldsOfItsRowsAndMovesThem) {
  const auto rows = ConnectionWithRows()->Execute(u"Select * From cidades");
  auto& grid = dialog->Find<DataGrid>(u"grade");
  grid.DataSource(rows);
  EXPECT_THAT(grid.Captions(), ElementsAre(u"codigo", u"nome"));
  grid.Column(0).Format(u"000");
  EXPECT_EQ(grid.CellText(0), u"001");
  grid.OnHeadClick = [&](Long column) { log.push_back("head " + std::to_string(column)); };
  grid.OnDblClick = [&] { log.push_back("double"); };
  Show([&](Dialog& shown) {
    shown.Press(Key::Up);
    EXPECT_EQ(rows->AbsolutePosition(), 1);
    shown.Press(Key::Down);
    EXPECT_EQ(rows->AbsolutePosition(), 2);
    shown.SelectRow(u"grade", 3);
    shown.Press(Key::Down);
    EXPECT_EQ(grid.CellText(1), u"Campinas");
    shown.ClickHeader(u"grade", 1);
    shown.DoubleClick(u"grade");
    shown.CloseWindow();
  });
  EXPECT_THAT(log, ElementsAre("head 1", "double"));
  grid.DataSource(nullptr);
  EXPECT_EQ(grid.ColumnCount(), 0);
  EXPECT_THROW(grid.Column(0), HostError);
}

TEST_F(MemoryDialog, AToolBarHasAButtonWithAMenu) {
  auto& bar = dialog->Find<ToolBar>(u"barra");
  bar.AddMenu({u"Nome", u"1"});
  bar.AddMenu({u"-", u""});
  bar.Menu(1, {u"Nome + Cidade", u"1"});
  EXPECT_THAT(bar.MenuTexts(), ElementsAre(u"Nome + Cidade", u"-"));
  EXPECT_EQ(bar.Menu(1).Tag, u"1");
  EXPECT_THROW(bar.Menu(3), HostError);
  bar.OnButtonClick = [&] { log.push_back("button"); };
  bar.OnMenuClick = [&](Long position) { log.push_back("menu " + std::to_string(position)); };
  Show([&](Dialog& shown) {
    shown.Click(u"barra");
    shown.ClickMenu(u"barra", 2);
    bar.ButtonEnabled(false);
    shown.Click(u"barra");
    shown.ClickMenu(u"barra", 2);
    shown.CloseWindow();
  });
  EXPECT_THAT(log, ElementsAre("button", "menu 2"));
}

TEST_F(MemoryDialog, ACalendarIsClickedAndMovedByTheArrows) {
  auto& calendar = dialog->Find<host::Calendar>(u"dia");
  calendar.Value(Date{100});
  calendar.OnClick = [&] { log.push_back("click"); };
  Show([&](Dialog& shown) {
    shown.FocusOn(u"dia");
    shown.Press(Key::Right);
    EXPECT_EQ(calendar.Value(), Date{101});
    shown.Press(Key::Up);
    EXPECT_EQ(calendar.Value(), Date{94});
    shown.PickDay(u"dia", Date{50});
    EXPECT_EQ(calendar.Value(), Date{50});
    shown.CloseWindow();
  });
  EXPECT_THAT(log, ElementsAre("click"));
}

// --- Scripts ------------------------------------------------------------------------------------

TEST_F(MemoryDialog, AWindowThatTheScriptLeavesOpenIsAFaultAndDoesNotHang) {
  Show([](Dialog&) {});
  EXPECT_THAT(faults, ElementsAre(HasSubstr("open")));
}

TEST_F(MemoryDialog, AWindowWithNoScriptIsAFault) {
  dialog->ShowModal();
  EXPECT_THAT(faults, ElementsAre("No script for the window frmTeste"));
}

TEST_F(MemoryDialog, AnUnexpectedWindowIsAFault) {
  {
    Desktop inner{[this](const String& message) { faults.push_back(ToUtf8(message)); }};
    inner.WillShow(u"frmOutro", Close);
    TheDesktop().MakeDialog(kDescription)->ShowModal();
  }
  EXPECT_THAT(faults, ElementsAre("The window frmTeste opened instead of frmOutro",
                                  "The window frmOutro never opened"));
  EXPECT_EQ(&TheDesktop(), &desktop);
}

TEST_F(MemoryDialog, WindowsNestAndOnlyTheFrontOneIsWorked) {
  auto& button = dialog->Find<host::DialogButton>(u"btn", 0);
  const auto second = TheDesktop().MakeDialog(kDescription);
  button.OnClick = [&] {
    second->ShowModal();
    log.push_back("back");
  };
  Show([&](Dialog& first) {
    desktop.WillShow(u"frmTeste", [&](Dialog& front) {
      first.Click(u"btn", 0);
      front.CloseWindow();
    });
    first.Click(u"btn", 0);
    EXPECT_TRUE(first.IsShown());
    first.CloseWindow();
    first.Click(u"btn", 0);
  });
  EXPECT_THAT(log, ElementsAre("back"));
  EXPECT_THAT(faults, ElementsAre(HasSubstr("not in front"), HasSubstr("not in front")));
}

TEST_F(MemoryDialog, AnErrorOfAHandlerIsShownAndTheWindowGoesOn) {
  dialog->Find<host::DialogButton>(u"btn", 0).OnClick = [] { throw HostError(13); };
  Show([](Dialog& shown) {
    shown.Click(u"btn", 0);
    EXPECT_EQ(shown.UnhandledErrors().size(), 1u);
    shown.CloseWindow();
  });
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(MessageBoxRecord{0, ErrorDescription(13), host::box::Stop, u"frmTeste"}));
}

TEST_F(MemoryDialog, OneThatIsDestroyedInsideItsLoopHidesAtOnceAndRaisesNothingMore) {
  dialog->Find<host::DialogButton>(u"btn", 0).OnClick = [&] {
    dialog.reset();
    log.push_back("destroyed");
  };
  dialog->OnResize = [&] { log.push_back("resize"); };
  desktop.WillShow(u"frmTeste", [&](Dialog& shown) {
    shown.Click(u"btn", 0);
    EXPECT_FALSE(shown.IsShown());
    shown.Width(1);
    EXPECT_EQ(shown.Find<host::DialogLabel>(u"lblTitulo").Caption(), u"Título");
  });
  dialog->ShowModal();
  EXPECT_EQ(dialog, nullptr);
  EXPECT_THAT(log, ElementsAre("resize", "destroyed"));
  EXPECT_THAT(faults, IsEmpty());
}

// --- Files --------------------------------------------------------------------------------------

class MemoryFiles : public MemoryDialog {
 protected:
  MemoryFiles() {
    auto& files = desktop.Files();
    files.AddDrive(u"c: [SISTEMA]");
    files.AddDrive(u"d:", FileSystem::DriveState::NotReady);
    files.AddDrive(u"z: [\\\\servidor\\dados]");
    files.AddFile(u"C:\\Vendas\\2016\\Notas.txt");
    files.AddFile(u"C:\\Vendas\\carta.DOC");
    files.AddFile(u"C:\\Vendas\\aviso.txt");
    files.AddFolder(u"C:\\Vazia");
    dialog = TheDesktop().MakeDialog(kDescription);
  }
};

TEST_F(MemoryFiles, DirFindsTheFirstFileOfAPattern) {
  EXPECT_EQ(desktop.Dir(u"c:\\vendas\\*.*"), u"aviso.txt");
  EXPECT_EQ(desktop.Dir(u"c:\\vendas\\c*.d?c"), u"carta.DOC");
  EXPECT_EQ(desktop.Dir(u"c:\\vendas\\"), u"aviso.txt");
  EXPECT_EQ(desktop.Dir(u"c:\\vazia\\*.*"), u"");
  EXPECT_EQ(desktop.Dir(u"c:\\nada\\*.*"), u"");
  EXPECT_EQ(desktop.Dir(u"d:\\*.*"), u"");
}

TEST_F(MemoryFiles, ThePatternOfAllFilesMatchesNamesWithoutADot) {
  desktop.Files().AddFile(u"C:\\Vazia\\LEIAME");
  EXPECT_EQ(desktop.Dir(u"c:\\vazia\\*.*"), u"LEIAME");
  EXPECT_EQ(desktop.Dir(u"c:\\vazia\\L*.*"), u"");
}

TEST_F(MemoryFiles, DirTakesANameAsItIsWritten) {
  for (const char16_t* name : {u"nota[1].pdf", u"a;b.txt", u" a.txt"}) {
    const String path = String(u"c:\\nomes\\") + name;
    EXPECT_EQ(desktop.Dir(path), u"");
    desktop.Files().AddFile(path);
    EXPECT_EQ(desktop.Dir(path), name);
  }
}

TEST_F(MemoryFiles, DrivesAreKnownByTheirLetter) {
  auto& drives = dialog->Find<host::DriveList>(u"drive");
  EXPECT_EQ(drives.Drive(), u"c: [SISTEMA]");
  drives.Drive(u"Z:\\x");
  EXPECT_EQ(drives.Drive(), u"z: [\\\\servidor\\dados]");
  EXPECT_TRUE(desktop.DriveReady(u"C:"));
  EXPECT_FALSE(desktop.DriveReady(u"d:"));
  EXPECT_THROW(desktop.DriveReady(u"q:"), HostError);
  EXPECT_THROW(drives.Drive(u"q:\\"), HostError);
}

TEST_F(MemoryFiles, FoldersReportTheirChangeAlsoWhenAssigned) {
  auto& folders = dialog->Find<FolderList>(u"pasta");
  folders.OnChange = [&] { log.push_back(ToUtf8(folders.Path())); };
  folders.Path(u"c: [SISTEMA]");
  EXPECT_THAT(folders.Folders(), ElementsAre(u"Vazia", u"Vendas"));
  Show([](Dialog& shown) {
    shown.OpenFolder(u"pasta", u"c:\\vendas\\");
    shown.CloseWindow();
  });
  EXPECT_THAT(log, ElementsAre("c:\\", "C:\\Vendas"));
  EXPECT_THROW(folders.Path(u"c:\\nada"), HostError);
  EXPECT_THROW(folders.Path(u"d:"), HostError);
}

TEST_F(MemoryFiles, FilesAreThoseOfThePattern) {
  auto& files = dialog->Find<host::FileList>(u"arquivo");
  EXPECT_THAT(files.List(), IsEmpty());
  files.Path(u"c:\\vendas");
  EXPECT_THAT(files.List(), ElementsAre(u"aviso.txt", u"carta.DOC"));
  files.Pattern(u"*.doc; *.xls");
  EXPECT_THAT(files.List(), ElementsAre(u"carta.DOC"));
  EXPECT_EQ(files.FileName(), u"");
  EXPECT_THROW(files.Select(1), HostError);
  files.OnDblClick = [&] { log.push_back("double"); };
  dialog->Find<host::DriveList>(u"drive").OnChange = [&] { log.push_back("drive"); };
  Show([](Dialog& shown) {
    shown.SelectFile(u"arquivo", u"Carta.doc");
    shown.DoubleClick(u"arquivo");
    shown.ChooseDrive(u"drive", u"d:");
    shown.CloseWindow();
  });
  EXPECT_EQ(files.FileName(), u"carta.DOC");
  EXPECT_THAT(log, ElementsAre("double", "drive"));
}

}  // namespace
}  // namespace tessaria::memory
