// The folder and file picker, used by keyboard and by mouse.
#include "tests/qt_dialogs/folder_picker_window.h"
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace tessaria::qt::tests {
namespace {

// --- Choosing -----------------------------------------------------------------------------------

TEST_F(FolderPicker, OpensOnTheFolderAndEnterReturnsIt) {
  EXPECT_EQ(pick(Folders, in("Vendas"),
                 [this](QDialog& w) {
                   picture(w, QStringLiteral("pastas"));
                   EXPECT_EQ(w.focusWidget(), &tree(w));
                   EXPECT_EQ(tree(w).path(), in("Vendas"));
                   EXPECT_FALSE(files(w).isVisible());
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas"));
}

TEST_F(FolderPicker, TheTreeCanBeUsedByKeyboardAlone) {
  EXPECT_EQ(pick(Folders, in("Vendas"),
                 [](QDialog& w) {
                   press(w, Qt::Key_Down);
                   press(w, Qt::Key_Down);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/2016"));
  EXPECT_EQ(pick(Folders, in("Vendas/2016"),
                 [](QDialog& w) {
                   press(w, Qt::Key_Left);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas"));
}

TEST_F(FolderPicker, AnEntryCanBeChosenByMouseAlone) {
  EXPECT_EQ(pick(Folders, in("Vendas"),
                 [](QDialog& w) {
                   clickFolder(w, QStringLiteral("2015"));
                   click(at(w, QStringLiteral("btnConfirmar")));
                 }),
            in("Vendas/2015"));
}

TEST_F(FolderPicker, EveryWayToCancelReturnsTheOldText) {
  const ModalDriver::Script ways[] = {
      [](QDialog& w) { press(w, Qt::Key_Escape); },
      [](QDialog& w) { w.close(); },
      [](QDialog& w) { click(at(w, QStringLiteral("btnVoltar"))); },
      [this](QDialog&) { owner_->close(); },
  };
  for (const auto& way : ways)
    EXPECT_EQ(pick(Folders, in("Vendas"),
                   [&](QDialog& w) {
                     press(w, Qt::Key_Down);
                     way(w);
                   }),
              in("Vendas"));
}

TEST_F(FolderPicker, AFileIsSelectedAndAnotherOneChosen) {
  EXPECT_EQ(pick(Files, in("Vendas/carta.DOC"),
                 [](QDialog& w) {
                   picture(w, QStringLiteral("arquivos"));
                   EXPECT_EQ(files(w).selected(), QStringLiteral("carta.DOC"));
                   EXPECT_EQ(names(w),
                             (QStringList{QStringLiteral("aviso.txt"), QStringLiteral("carta.DOC"),
                                          QStringLiteral("semtipo")}));
                   files(w).setFocus();
                   press(w, Qt::Key_Up);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/aviso.txt"));
}

TEST_F(FolderPicker, ADoubleClickOnAFileChoosesIt) {
  EXPECT_EQ(pick(Files, in("Vendas/carta.DOC"),
                 [](QDialog& w) {
                   const QPoint place = files(w).visualItemRect(files(w).item(0)).center();
                   QTest::mouseClick(files(w).viewport(), Qt::LeftButton, {}, place);
                   QTest::mouseDClick(files(w).viewport(), Qt::LeftButton, {}, place);
                 }),
            in("Vendas/aviso.txt"));
}

TEST_F(FolderPicker, TheFilesFollowTheFolderAndThePattern) {
  pick(
      Files, in("Vendas/carta.DOC"),
      [this](QDialog& w) {
        EXPECT_EQ(names(w), QStringList{QStringLiteral("carta.DOC")});
        clickFolder(w, QStringLiteral("2016"));
        EXPECT_EQ(tree(w).path(), in("Vendas/2016"));
        EXPECT_EQ(names(w), QStringList{});
        press(w, Qt::Key_Escape);
      },
      u"*.doc; *.xls");
}

TEST_F(FolderPicker, TwoLeadingSeparatorsCountAsOne) {
  const QString twice = QLatin1Char('/') + in("Vendas");
  EXPECT_EQ(pick(Folders, twice,
                 [this](QDialog& w) {
                   EXPECT_EQ(tree(w).path(), in("Vendas"));
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas"));
  EXPECT_EQ(pick(Files, twice + QStringLiteral("/aviso.txt"),
                 [](QDialog& w) {
                   EXPECT_EQ(files(w).selected(), QStringLiteral("aviso.txt"));
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/aviso.txt"));
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(FolderPicker, ANameWithoutADotIsListedAndChosen) {
  EXPECT_EQ(pick(Files, in("Vendas"),
                 [](QDialog& w) {
                   files(w).setFocus();
                   press(w, Qt::Key_End);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/semtipo"));
}

// --- What cannot be opened ----------------------------------------------------------------------

TEST_F(FolderPicker, AnInvalidPathIsReportedAndNothingOpens) {
  for (const char* path : {"Nada", "Vazia", "leia.txt"})
    EXPECT_EQ(execute(Folders, in(path)), in(path));
  EXPECT_EQ(boxes_.takeTexts().size(), 3);
}

// A path without a dot is a folder.
TEST_F(FolderPicker, AFileWithoutADotCannotBeOpenedAgain) {
  for (const QString& path :
       {in("Vendas/semtipo"), QStringLiteral("//nome"), QStringLiteral("nome")})
    EXPECT_EQ(execute(Files, path), path);
  EXPECT_EQ(boxes_.takeTexts().size(), 3);
}

TEST_F(FolderPicker, ADeletedFolderIsReportedAndTheSelectionGoesBack) {
  pick(Folders, in("Vendas"), [this](QDialog& w) {
    QDir(in("Vendas/2016")).removeRecursively();
    clickFolder(w, QStringLiteral("2016"));
    EXPECT_EQ(boxes_.takeTexts(),
              QStringList{QStringLiteral("A pasta %1 não existe.").arg(in("Vendas/2016"))});
    EXPECT_EQ(tree(w).path(), in("Vendas"));
    EXPECT_EQ(tree(w).currentItem()->text(0), QStringLiteral("Vendas"));
    press(w, Qt::Key_Escape);
  });
}

#ifdef Q_OS_UNIX
/// Switches to another user during its lifetime if the test runs as root.
class Unprivileged {
 public:
  Unprivileged() { active_ = setresuid(kNobody, kNobody, 0) == 0; }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() {
    if (active_) (void)!setresuid(0, 0, 0);
  }

 private:
  static constexpr uid_t kNobody = 65534;
  bool active_ = false;
};

TEST_F(FolderPicker, AnUnreadableFolderSaysWhyAndCannotBeChosen) {
  QFile::setPermissions(root(), QFile::Permissions(0x7755));
  QFile::setPermissions(in("Vendas/2015"), QFile::Permissions());
  const Unprivileged nobody;
  pick(Folders, in("Vendas"), [this](QDialog& w) {
    picture(w, QStringLiteral("pasta_sem_permissao"));
    EXPECT_EQ(below(w),
              (QStringList{QStringLiteral("2015 (sem permissão)"), QStringLiteral("2016")}));
    const auto* denied = tree(w).currentItem()->child(0);
    EXPECT_EQ(denied->toolTip(0),
              QStringLiteral("Sem permissão para ler a pasta %1.").arg(in("Vendas/2015")));
    clickFolder(w, QStringLiteral("2015"));
    EXPECT_EQ(tree(w).path(), in("Vendas"));
    press(w, Qt::Key_Down);
    EXPECT_EQ(tree(w).path(), in("Vendas/2016"));
    press(w, Qt::Key_Escape);
  });
  QFile::setPermissions(in("Vendas/2015"), QFile::Permissions(0x7700));
}

TEST_F(FolderPicker, AFolderBelowAnUnreadableOneIsShown) {
  QFile::setPermissions(root(), QFile::Permissions(0x7755));
  QFile::setPermissions(in("Vendas"), QFile::Permissions(0x7711));
  const Unprivileged nobody;
  pick(Folders, in("Vendas/2016"), [this](QDialog& w) {
    EXPECT_EQ(tree(w).path(), in("Vendas/2016"));
    EXPECT_EQ(tree(w).currentItem()->text(0), QStringLiteral("2016"));
    EXPECT_FALSE(tree(w).currentItem()->isDisabled());
    press(w, Qt::Key_Up);
    settleEvents();
    EXPECT_EQ(boxes_.takeTexts(),
              QStringList{QStringLiteral("Sem permissão para ler a pasta %1.").arg(in("Vendas"))});
    EXPECT_EQ(tree(w).currentItem()->text(0), QStringLiteral("2016"));
    press(w, Qt::Key_Escape);
  });
}
#endif

// --- Hidden folders -----------------------------------------------------------------------------

TEST_F(FolderPicker, HiddenFoldersAndFilesShowOnDemandOnly) {
  pick(Files, in("Vendas/carta.DOC"), [](QDialog& w) {
    EXPECT_EQ(below(w), (QStringList{QStringLiteral("2015"), QStringLiteral("2016")}));
    press(w, Qt::Key_M, Qt::AltModifier);
    QTest::qWait(250);  // a mnemonic shows the box pressed first
    EXPECT_TRUE(hiddenSwitch(w).isChecked());
    EXPECT_TRUE(below(w).contains(QStringLiteral(".rascunhos")));
    EXPECT_TRUE(names(w).contains(QStringLiteral(".oculto.txt")));
    EXPECT_EQ(files(w).selected(), QStringLiteral("carta.DOC"));
    hiddenSwitch(w).setChecked(false);
    EXPECT_FALSE(below(w).contains(QStringLiteral(".rascunhos")));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(FolderPicker, APathThroughAHiddenFolderIsShown) {
  EXPECT_EQ(pick(Folders, in("Vendas/.rascunhos"),
                 [this](QDialog& w) {
                   EXPECT_EQ(tree(w).path(), in("Vendas/.rascunhos"));
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/.rascunhos"));
}

TEST_F(FolderPicker, KeepsTheRequestedWidth) {
  pick(Folders, in("Vendas"), [](QDialog& w) {
    EXPECT_EQ(w.width(), 7500 / 15);
    w.resize(700, 500);
    settleEvents();
    EXPECT_TRUE(w.rect().contains(at(w, QStringLiteral("btnVoltar")).geometry()));
    press(w, Qt::Key_Escape);
  });
}

// --- Patterns -----------------------------------------------------------------------------------

TEST_F(FolderPicker, DirFindsTheFirstFileOfAPattern) {
  const auto dir = [&](const char* pattern) { return toQt(TheDesktop().Dir(fromQt(in(pattern)))); };
  EXPECT_EQ(dir("Vendas/*.*"), QStringLiteral("aviso.txt"));
  EXPECT_EQ(dir("Vendas/s*.*"), QString());
  EXPECT_EQ(dir("Vendas/s*"), QStringLiteral("semtipo"));
  EXPECT_EQ(dir("Vendas/c*.d?c"), QStringLiteral("carta.DOC"));
  EXPECT_EQ(dir("Vendas/"), QStringLiteral("aviso.txt"));
  EXPECT_EQ(dir("Vendas/.oculto.txt"), QStringLiteral(".oculto.txt"));
  EXPECT_EQ(dir("Vendas/2016"), QString());
  EXPECT_EQ(dir("Vazia/*.*"), QString());
  EXPECT_EQ(dir("Nada/*.*"), QString());
  EXPECT_EQ(dir("Vendas/AVISO.TXT"), QStringLiteral("aviso.txt"));
  for (const char* name : {"nota[1].pdf", "a;b.txt", " a.txt", "que?.txt"}) {
    const QByteArray path = QByteArray("Vazia/") + name;
    EXPECT_EQ(dir(path), QString()) << name;
    write(QLatin1String(path));
    EXPECT_EQ(dir(path), QLatin1String(name));
  }
  EXPECT_EQ(dir("Vazia/n*[1].*"), QStringLiteral("nota[1].pdf"));
}

TEST_F(FolderPicker, ThePatternOfAllFilesMatchesNamesWithoutADot) {
  write(QStringLiteral("Vazia/LEIAME"));
  EXPECT_EQ(toQt(TheDesktop().Dir(fromQt(in("Vazia/*.*")))), QStringLiteral("LEIAME"));
  EXPECT_EQ(toQt(TheDesktop().Dir(fromQt(in("Vazia/L*.*")))), QString());
}

TEST_F(FolderPicker, OpensAgainOnTheReturnedPath) {
  for (const char* name : {"nota[1].txt", "a;b.txt", " a.txt"}) {
    write(QLatin1String("Vazia/") + QLatin1String(name));
    const QString path = in("Vazia/") + QLatin1String(name);
    for (int i = 0; i < 2; ++i)
      EXPECT_EQ(pick(Files, path,
                     [&](QDialog& w) {
                       EXPECT_EQ(files(w).selected(), QLatin1String(name));
                       press(w, Qt::Key_Return);
                     }),
                path);
  }
}

}  // namespace
}  // namespace tessaria::qt::tests
