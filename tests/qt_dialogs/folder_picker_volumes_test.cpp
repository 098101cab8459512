// The volumes of the folder picker: which are listed, how one is chosen, and what happens to a
// removed one.
#include "hosts/qt/widgets/volumes.h"

#include "tests/qt_dialogs/folder_picker_window.h"

namespace tessaria::qt::tests {
namespace {

/// Sets what the system has mounted during its lifetime.
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

class FolderPickerVolumes : public FolderPicker {};

TEST_F(FolderPickerVolumes, TheVolumesAreListedAndChoosingOneShowsIt) {
  pick(Folders, in("Vendas"), [](QDialog& w) {
    ASSERT_GE(drives(w).count(), 1);
    EXPECT_EQ(drives(w).itemData(0).toString(), QDir::rootPath());
    drives(w).setFocus();
    emit drives(w).activated(0);
    EXPECT_EQ(tree(w).path(), QDir::rootPath());
    press(w, Qt::Key_Escape);
  });
}

TEST_F(FolderPickerVolumes, AVolumeCanBeChosenByKeyboardAlone) {
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

TEST_F(FolderPickerVolumes, EnterInTheOpenListOfVolumesChoosesOneAndConfirmsNothing) {
  const Mounted disks({{QDir::rootPath()}, {root()}});
  EXPECT_EQ(pick(Folders, in("Vendas"),
                 [](QDialog& w) {
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

TEST_F(FolderPickerVolumes, ARemovedStickIsReportedAndTheListsStay) {
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

TEST_F(FolderPickerVolumes, AReusedWindowListsWhatIsMountedWhenItShows) {
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

TEST_F(FolderPickerVolumes, OnlyEntriesOfTheListAreDrives) {
  EXPECT_TRUE(TheDesktop().DriveReady(fromQt(QDir::rootPath())));
  EXPECT_THROW(TheDesktop().DriveReady(fromQt(in("Vendas"))), HostError);
}

TEST_F(FolderPickerVolumes, AListedDriveIsReadyWhileItIsMountedAndReadable) {
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

TEST_F(FolderPickerVolumes, TheListedVolumesHoldUserFiles) {
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

}  // namespace
}  // namespace tessaria::qt::tests
