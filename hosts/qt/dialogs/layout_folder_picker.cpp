// Layout of the folder and file picker.
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include "hosts/qt/dialogs/layouts.h"
#include "hosts/qt/widgets/file_list.h"
#include "hosts/qt/widgets/folder_tree.h"

namespace tessaria::qt {
namespace {

/// Hidden folders show on demand only.
QCheckBox* hiddenSwitch(QWidget& window, FolderTree* folders, FileNames* files) {
  auto* box = new QCheckBox(QStringLiteral("&Mostrar ocultos"), &window);
  QObject::connect(box, &QCheckBox::toggled, &window, [folders, files](bool on) {
    const Hidden hidden = on ? Hidden::Listed : Hidden::Skipped;
    folders->listHidden(hidden);
    files->listHidden(hidden);
  });
  return box;
}

/// The name of a list, whose mnemonic moves the focus to the list.
QLabel* titleOf(QWidget* list) {
  auto* title = new QLabel(QLatin1Char('&') + list->accessibleName(), list->parentWidget());
  title->setBuddy(list);
  return title;
}

/// A list below its name. The pane shows when the list does.
class Pane final : public QWidget {
 public:
  explicit Pane(QWidget* list) : QWidget(list->parentWidget()), list_(list) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addWidget(titleOf(list));
    column->addWidget(list);
    list->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override {
    const bool changes =
        event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
    if (object == list_ && changes) setVisible(!list_->isHidden());
    return false;
  }

 private:
  QWidget* list_;
};

}  // namespace

void layOutFolderPicker(QWidget& window) {
  auto* drives = part<QComboBox>(window, "drvDiretorio");
  auto* folders = part<FolderTree>(window, "dirDiretorio");
  auto* files = part<FileNames>(window, "fileDiretorio");
  auto* lists = new QSplitter(&window);
  lists->setChildrenCollapsible(false);
  lists->addWidget(new Pane(folders));
  lists->addWidget(new Pane(files));
  auto* drive = new QHBoxLayout;
  drive->addWidget(titleOf(drives));
  drive->addWidget(drives, 1);

  QHBoxLayout* answers = answerRow(window, "btnConfirmar", "btnVoltar");
  QCheckBox* hidden = hiddenSwitch(window, folders, files);
  answers->insertWidget(0, hidden);

  auto* column = new QVBoxLayout(&window);
  column->addWidget(part<QLabel>(window, "lblCaption"));
  column->addLayout(drive);
  column->addWidget(lists, 1);
  column->addLayout(answers);

  QWidget* const order[] = {
      drives, folders, files, hidden, part(window, "btnConfirmar"), part(window, "btnVoltar")};
  for (std::size_t i = 1; i < std::size(order); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
  folders->setFocus();
  window.resize(characters(window, 50), lines(window, 22));
}

}  // namespace tessaria::qt
