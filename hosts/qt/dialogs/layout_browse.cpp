// The list of a lookup, and the prompt of a search.
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "browse/grid_form.h"
#include "hosts/qt/dialogs/layouts.h"
#include "hosts/qt/widgets/data_grid.h"
#include "hosts/qt/widgets/tool_bar.h"

namespace tessaria::qt {

void layOutGridForm(QWidget& window) {
  auto* title = part<QLabel>(window, "lblTitulo");
  QFont font = window.font();
  font.setBold(true);
  title->setFont(font);
  title->setWordWrap(true);
  auto* bar = part<DialogToolBar>(window, "barBrowse");
  bar->keysOf = &frmBrowse::MenuShortcuts;
  bar->setMinimumWidth(bar->sizeHint().width());
  // The operator can move through the result of a search at once.
  auto* grid = part(window, "grdBrowse");
  QObject::connect(&bar->button(), &QToolButton::clicked, grid, [grid] { grid->setFocus(); });
  QObject::connect(bar->button().menu(), &QMenu::triggered, grid, [grid] { grid->setFocus(); });
  auto* head = new QHBoxLayout;
  head->addWidget(title, 1);
  head->addWidget(bar);

  auto* column = new QVBoxLayout(&window);
  column->addLayout(head);
  column->addWidget(grid, 1);
  column->addLayout(answerRow(window, "btnConfirmar", "btnVoltar"));
  QWidget::setTabOrder(part(window, "btnVoltar"), &bar->button());
  grid->setFocus();
  window.resize(characters(window, 90), lines(window, 26));
}

namespace {

/// Shows what is searched for, which the title bar of a narrow window would cut.
QLabel* captionOf(QWidget& window, QWidget& edit) {
  auto* caption = new QLabel(&window);
  caption->setTextFormat(Qt::PlainText);
  // A field passes its description on to its part with the focus when that is entered.
  QWidget* target = edit.focusProxy() ? edit.focusProxy() : &edit;
  const auto show = [caption, target, &edit](auto& title) {
    caption->setText(title);
    edit.setAccessibleDescription(title);
    target->setAccessibleDescription(title);
  };
  QObject::connect(&window, &QWidget::windowTitleChanged, caption, show);
  return caption;
}

}  // namespace

void layOutSearchPrompt(QWidget& window) {
  auto* ok = part<QPushButton>(window, "btnOk");
  auto* cancel = part<QPushButton>(window, "btnCancelar");
  ok->setDefault(true);
  cancel->setProperty("Cancel", true);
  auto* answers = new QHBoxLayout;
  answers->addWidget(ok);
  answers->addStretch(1);
  answers->addWidget(cancel);

  auto* column = new QVBoxLayout(&window);
  auto* edit = part(window, "editPesquisa");
  column->addStretch(1);
  column->addWidget(captionOf(window, *edit), 0, Qt::AlignHCenter);
  column->addWidget(edit, 0, Qt::AlignHCenter);
  column->addStretch(1);
  column->addLayout(answers);
}

}  // namespace tessaria::qt
