// The picker of folders and files, worked by keyboard and by mouse.
#include "pickers/folder_picker.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "hosts/qt/dialogs/file_list.h"
#include "hosts/qt/dialogs/folder_tree.h"
#include "hosts/qt/dialogs/volumes.h"
#include "tests/qt_dialogs/dialog_fixture.h"
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace tessaria::qt::tests {
namespace {

using testing::ElementsAre;

/// What the system has mounted, for as long as it lives.
class Mounted {
 public:
  explicit Mounted(const QList<Volume>& volumes)
      : volumes_(volumes), former_(exchangeVolumeSource([this] { return volumes_; })) {}
  Mounted(const Mounted&) = delete;
  Mounted& operator=(const Mounted&) = delete;
  ~Mounted() { exchangeVolumeSource(std::move(former_)); }
  void become(const QList<Volume>& volumes) { volumes_ = volumes; }

 private:
  QList<Volume> volumes_;
  VolumeSource former_;
};

class FolderPicker : public DialogFixture {
 protected:
  FolderPicker() {
    for (const char* folder : {"Vendas/2015", "Vendas/2016", "Vendas/.rascunhos", "Vazia"})
      QDir(root()).mkpath(QLatin1String(folder));
    for (const char* file : {"leia.txt", "Vendas/aviso.txt", "Vendas/carta.DOC",
                             "Vendas/.oculto.txt", "Vendas/semtipo", "Vendas/2015/notas.txt",
                             "Vendas/2016/notas.txt", "Vendas/.rascunhos/r.txt"})
      write(QLatin1String(file));
  }

  QString root() const { return folder_.path(); }
  QString in(const char* path) const { return root() + QLatin1Char('/') + QLatin1String(path); }
  void write(const QString& file) const {
    QFile f(root() + QLatin1Char('/') + file);
    f.open(QIODevice::WriteOnly);
  }

  enum Mode { Folders, Files };
  QString pick(Mode mode, const QString& content, ModalDriver::Script script,
               const String& pattern = u"") {
    driver_.willShow(QStringLiteral("frmDiretorio"), std::move(script));
    return execute(mode, content, pattern);
  }
  static QString execute(Mode mode, const QString& content, const String& pattern = u"") {
    frmDiretorio form;
    return toQt(
        CStr(form.ExecutaDiretorio(900.0f, 900.0f, 7500, fromQt(content), mode == Files, pattern)));
  }

  static FolderTree& tree(QDialog& window) {
    return at<FolderTree>(window, QStringLiteral("dirDiretorio"));
  }
  static FileNames& files(QDialog& window) {
    return at<FileNames>(window, QStringLiteral("fileDiretorio"));
  }
  static QStringList names(QDialog& window) {
    QStringList all;
    for (int i = 0; i < files(window).count(); ++i) all << files(window).item(i)->text();
    return all;
  }
  /// What stands below the selected folder.
  static QStringList below(QDialog& window) {
    QStringList all;
    const auto* folder = tree(window).currentItem();
    for (int i = 0; i < folder->childCount(); ++i) all << folder->child(i)->text(0);
    return all;
  }
  static void clickFolder(QDialog& window, const QString& name) {
    auto& view = tree(window);
    const auto items = view.findItems(name, Qt::MatchStartsWith | Qt::MatchRecursive);
    ASSERT_FALSE(items.isEmpty());
    view.scrollToItem(items.first());
    // The column may be wider than what shows of it.
    const QRect row = view.visualItemRect(items.first()) & view.viewport()->rect();
    ASSERT_FALSE(row.isEmpty());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, row.center());
    settleEvents();
  }
  static QComboBox& drives(QDialog& window) {
    return at<QComboBox>(window, QStringLiteral("drvDiretorio"));
  }
  static QCheckBox& hiddenSwitch(QDialog& window) { return *window.findChild<QCheckBox*>(); }

  QTemporaryDir folder_;
};

// --- Choosing -----------------------------------------------------------------------------------

TEST_F(FolderPicker, OpensOnTheFolderAndEnterGivesIt) {
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

TEST_F(FolderPicker, TheKeyboardAloneWalksTheTree) {
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

TEST_F(FolderPicker, TheMouseAloneChooses) {
  EXPECT_EQ(pick(Folders, in("Vendas"),
                 [](QDialog& w) {
                   clickFolder(w, QStringLiteral("2015"));
                   click(at(w, QStringLiteral("btnConfirmar")));
                 }),
            in("Vendas/2015"));
}

TEST_F(FolderPicker, EveryWayOutWithoutAChoiceGivesTheOldText) {
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
                 [this](QDialog& w) {
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

// --- What cannot be opened ----------------------------------------------------------------------

TEST_F(FolderPicker, APathThatIsNoneIsToldAndNothingOpens) {
  for (const char* path : {"Nada", "Vazia", "leia.txt"})
    EXPECT_EQ(execute(Folders, in(path)), in(path));
  EXPECT_EQ(boxes_.takeTexts().size(), 3);
}

TEST_F(FolderPicker, AFolderThatVanishedIsToldAndTheSelectionGoesBack) {
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
/// Another user for as long as it lives, when the test runs as root.
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

TEST_F(FolderPicker, AFolderThatCannotBeReadSaysWhyAndCannotBeChosen) {
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

TEST_F(FolderPicker, AFolderBelowOneThatCannotBeListedIsShown) {
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

// --- Volumes ------------------------------------------------------------------------------------

TEST_F(FolderPicker, TheVolumesAreListedAndChoosingOneLeadsToIt) {
  pick(Folders, in("Vendas"), [](QDialog& w) {
    ASSERT_GE(drives(w).count(), 1);
    EXPECT_EQ(drives(w).itemData(0).toString(), QDir::rootPath());
    drives(w).setFocus();
    emit drives(w).activated(0);
    EXPECT_EQ(tree(w).path(), QDir::rootPath());
    press(w, Qt::Key_Escape);
  });
}

TEST_F(FolderPicker, TheKeyboardAloneChoosesAVolume) {
  const Mounted disks({{QDir::rootPath()}, {root()}});
  EXPECT_EQ(pick(Folders, in("Vendas"),
                 [this](QDialog& w) {
                   drives(w).setFocus();
                   EXPECT_EQ(drives(w).currentText(), root());
                   press(w, Qt::Key_Up);
                   EXPECT_EQ(tree(w).path(), QDir::rootPath());
                   press(w, Qt::Key_Down);
                   EXPECT_EQ(tree(w).path(), root());
                   press(w, Qt::Key_Return);
                 }),
            root());
}

TEST_F(FolderPicker, EnterInTheOpenListOfVolumesChoosesOneAndConfirmsNothing) {
  const Mounted disks({{QDir::rootPath()}, {root()}});
  EXPECT_EQ(pick(Folders, in("Vendas"),
                 [this](QDialog& w) {
                   drives(w).setFocus();
                   drives(w).showPopup();
                   QTest::qWait(50);
                   auto* popup = QApplication::activePopupWidget();
                   ASSERT_TRUE(popup);
                   press(*popup, Qt::Key_Up);
                   press(*popup, Qt::Key_Return);
                   settleEvents();
                   EXPECT_FALSE(QApplication::activePopupWidget());
                   EXPECT_TRUE(w.isVisible());
                   EXPECT_EQ(tree(w).path(), QDir::rootPath());
                   press(w, Qt::Key_Escape);
                 }),
            in("Vendas"));
}

TEST_F(FolderPicker, AStickThatWasPulledOutIsToldAndTheListsStay) {
  Mounted disks({{QDir::rootPath()}, {root()}, {in("Vazia"), QStringLiteral("PENDRIVE")}});
  pick(Folders, in("Vendas"), [&](QDialog& w) {
    EXPECT_EQ(drives(w).itemText(2), in("Vazia") + QStringLiteral(" [PENDRIVE]"));
    disks.become({{QDir::rootPath()}, {root()}});
    drives(w).setFocus();
    press(w, Qt::Key_Down);
    EXPECT_EQ(boxes_.takeTexts(),
              QStringList{QStringLiteral("Drive Não Disponível, Verifique Por Favor")});
    EXPECT_EQ(tree(w).path(), in("Vendas"));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(FolderPicker, OneThatIsKeptListsWhatIsMountedWhenItShows) {
  Mounted disks({{QDir::rootPath()}});
  frmDiretorio form;
  const auto listed = [&](const QList<Volume>& mounted) {
    QStringList roots;
    disks.become(mounted);
    driver_.willShow(QStringLiteral("frmDiretorio"), [&](QDialog& w) {
      for (int i = 0; i < drives(w).count(); ++i) roots << drives(w).itemText(i);
      EXPECT_EQ(drives(w).currentText(), volumeOf(in("Vendas"), mounted));
      press(w, Qt::Key_Escape);
    });
    form.ExecutaDiretorio(900.0f, 900.0f, 7500, fromQt(in("Vendas")), false, u"");
    return roots;
  };
  EXPECT_EQ(listed({{QDir::rootPath()}}), QStringList({QDir::rootPath()}));
  EXPECT_EQ(listed({{QDir::rootPath()}, {root()}}), QStringList({QDir::rootPath(), root()}));
  EXPECT_EQ(listed({{QDir::rootPath()}}), QStringList({QDir::rootPath()}));
}

TEST_F(FolderPicker, OnlyEntriesOfTheListAreDrives) {
  EXPECT_TRUE(TheDesktop().DriveReady(fromQt(QDir::rootPath())));
  EXPECT_THROW(TheDesktop().DriveReady(fromQt(in("Vendas"))), HostError);
}

TEST_F(FolderPicker, AListedDriveIsReadyForAsLongAsItIsMountedAndCanBeRead) {
  const String stick = fromQt(in("Vendas"));
  Mounted disks({{QDir::rootPath()}});
  EXPECT_THROW(TheDesktop().DriveReady(stick), HostError);
  disks.become({{QDir::rootPath()}, {in("Vendas")}});
  EXPECT_TRUE(TheDesktop().DriveReady(stick));
  disks.become({{QDir::rootPath()}, {in("Vendas"), {}, {}, false}});
  EXPECT_FALSE(TheDesktop().DriveReady(stick));
  disks.become({{QDir::rootPath()}});
  EXPECT_FALSE(TheDesktop().DriveReady(stick));
}

TEST_F(FolderPicker, TheVolumesListedHoldFilesOfPeople) {
  QList<Volume> mounted{{in("Vendas"), {}, "ext4"}, {in("leia.txt"), {}, "ext4"}};
  for (const char* type :
       {"autofs", "devtmpfs", "efivarfs", "proc", "ramfs", "squashfs", "sysfs", "tmpfs"})
    mounted << Volume{in("Vazia"), {}, type};
  mounted << Volume{QStringLiteral("/boot"), {}, "ext4"} << Volume{root(), {}, "nfs4"}
          << Volume{QDir::rootPath(), {}, "tmpfs"};
  const Mounted disks(mounted);
  QStringList roots;
  for (const Volume& volume : listVolumes()) roots << volume.root;
  EXPECT_EQ(roots, QStringList({QDir::rootPath(), in("Vendas"), root()}));
}

// --- The keyboard -------------------------------------------------------------------------------

TEST_F(FolderPicker, ComingToTheFilesByTabSelectsOne) {
  const auto comeByTab = [](QDialog& w) {
    EXPECT_EQ(files(w).selected(), QString());
    press(w, Qt::Key_Tab);
    EXPECT_EQ(w.focusWidget(), &files(w));
    EXPECT_EQ(files(w).selected(), QStringLiteral("aviso.txt"));
  };
  EXPECT_EQ(pick(Files, in("Vendas"),
                 [&](QDialog& w) {
                   comeByTab(w);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/aviso.txt"));
  EXPECT_EQ(pick(Files, in("Vendas"),
                 [&](QDialog& w) {
                   comeByTab(w);
                   press(w, Qt::Key_Down);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/carta.DOC"));
  EXPECT_EQ(pick(Files, in("Vendas/carta.DOC"),
                 [](QDialog& w) {
                   press(w, Qt::Key_Tab);
                   press(w, Qt::Key_Return);
                 }),
            in("Vendas/carta.DOC"));
}

TEST_F(FolderPicker, TabGoesFromTopToBottomAndTheFirstFocusIsOnTheFolders) {
  pick(Files, in("Vendas"), [](QDialog& w) {
    const QList<QWidget*> order{&tree(w),
                                &files(w),
                                &hiddenSwitch(w),
                                &at(w, QStringLiteral("btnConfirmar")),
                                &at(w, QStringLiteral("btnVoltar")),
                                &drives(w)};
    for (QWidget* widget : order) {
      EXPECT_EQ(w.focusWidget(), widget) << widget->objectName().toStdString();
      press(w, Qt::Key_Tab);
    }
    EXPECT_EQ(w.focusWidget(), &tree(w));
    press(w, Qt::Key_Escape);
  });
}

TEST_F(FolderPicker, TheNamesOfTheListsLeadToThem) {
  pick(Files, in("Vendas"), [](QDialog& w) {
    const struct {
      int key;
      QWidget* list;
      const char* name;
    } kLists[] = {{Qt::Key_U, &drives(w), "Unidade"},
                  {Qt::Key_A, &files(w), "Arquivos"},
                  {Qt::Key_D, &tree(w), "Diretórios"}};
    for (const auto& row : kLists) {
      press(w, row.key, Qt::AltModifier);
      EXPECT_EQ(w.focusWidget(), row.list) << row.name;
      EXPECT_EQ(row.list->accessibleName(), QString::fromUtf8(row.name));
    }
    press(w, Qt::Key_Escape);
  });
}

TEST_F(FolderPicker, WithNoFilesToShowTheirNameIsHiddenToo) {
  const auto title = [](QDialog& w) {
    for (auto* label : w.findChildren<QLabel*>())
      if (label->buddy() == &files(w)) return label;
    return static_cast<QLabel*>(nullptr);
  };
  frmDiretorio form;
  for (const bool showsFiles : {false, true, false}) {
    driver_.willShow(QStringLiteral("frmDiretorio"), [&](QDialog& w) {
      ASSERT_TRUE(title(w));
      EXPECT_EQ(title(w)->isVisible(), showsFiles);
      EXPECT_EQ(files(w).isVisible(), showsFiles);
      press(w, Qt::Key_Escape);
    });
    form.ExecutaDiretorio(900.0f, 900.0f, 7500, fromQt(in("Vendas")), showsFiles, u"");
  }
}

TEST_F(FolderPicker, TheButtonsHaveTheirKeys) {
  const auto leaves = [&](const ModalDriver::Script& way) {
    return pick(Folders, in("Vendas"), [&](QDialog& w) {
      press(w, Qt::Key_Down);
      way(w);
      QTest::qWait(250);  // a mnemonic shows the button pressed first
    });
  };
  EXPECT_EQ(leaves([](QDialog& w) { press(w, Qt::Key_C, Qt::AltModifier); }), in("Vendas/2015"));
  EXPECT_EQ(leaves([](QDialog& w) { press(w, Qt::Key_V, Qt::AltModifier); }), in("Vendas"));
  EXPECT_EQ(leaves([](QDialog& w) {
              hiddenSwitch(w).setFocus();
              press(w, Qt::Key_Return);
            }),
            in("Vendas/2015"));
}

TEST_F(FolderPicker, KeepsTheWidthThatWasAskedFor) {
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

TEST_F(FolderPicker, OpensAgainOnWhateverItGave) {
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
