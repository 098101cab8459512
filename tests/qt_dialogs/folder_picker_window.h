// The folder and file picker over temporary folders, and access to its parts.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "hosts/qt/widgets/file_list.h"
#include "hosts/qt/widgets/folder_tree.h"
#include "pickers/folder_picker.h"
#include "tests/qt_dialogs/dialog_fixture.h"

namespace tessaria::qt::tests {

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
  /// The entries below the selected folder.
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
    // The column may be wider than its visible part.
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

}  // namespace tessaria::qt::tests
