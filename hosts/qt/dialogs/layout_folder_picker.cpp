// The picker of folders and files.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "hosts/qt/dialogs/file_list.h"
#include "hosts/qt/dialogs/folder_tree.h"
#include "hosts/qt/dialogs/layouts.h"

namespace tessaria::qt {
namespace {

/// Hidden folders show on demand only.
QCheckBox* hiddenSwitch(QDialog& window, FolderTree* folders, FileNames* files) {
  auto* box = new QCheckBox(QStringLiteral("&Mostrar ocultos"), &window);
  QObject::connect(box, &QCheckBox::toggled, &window, [folders, files](bool on) {
    const Hidden hidden = on ? Hidden::Listed : Hidden::Skipped;
    folders->listHidden(hidden);
    files->listHidden(hidden);
  });
  return box;
}

}  // namespace

void layOutFolderPicker(QDialog& window) {
  auto* drives = part<QComboBox>(window, "drvDiretorio");
  auto* folders = part<FolderTree>(window, "dirDiretorio");
  auto* files = part<FileNames>(window, "fileDiretorio");
  auto* lists = new QSplitter(&window);
  lists->setChildrenCollapsible(false);
  lists->addWidget(folders);
  lists->addWidget(files);

  QHBoxLayout* answers = answerRow(window, "btnConfirmar", "btnVoltar");
  QCheckBox* hidden = hiddenSwitch(window, folders, files);
  answers->insertWidget(0, hidden);

  auto* column = new QVBoxLayout(&window);
  column->addWidget(part<QLabel>(window, "lblCaption"));
  column->addWidget(drives);
  column->addWidget(lists, 1);
  column->addLayout(answers);

  QWidget* const order[] = {
      folders, files, hidden, part(window, "btnConfirmar"), part(window, "btnVoltar"), drives};
  for (std::size_t i = 1; i < std::size(order); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
  folders->setFocus();
  window.resize(characters(window, 50), lines(window, 22));
}

}  // namespace tessaria::qt
