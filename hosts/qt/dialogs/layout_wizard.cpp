// Layout of the SQL wizard: eight pages, and what stands below all of them.
#include <QBoxLayout>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <initializer_list>

#include "hosts/qt/dialogs/layouts.h"
#include "hosts/qt/widgets/tab_strip.h"

namespace tessaria::qt {
namespace {

using Names = std::initializer_list<const char*>;

constexpr int kSignWidth = 7;  // characters of a button with a sign

/// A text above a widget, whose name it shows.
QVBoxLayout* below(QLabel* title, QWidget* widget) {
  title->setBuddy(widget);
  auto* column = new QVBoxLayout;
  column->addWidget(title);
  column->addWidget(widget, 1);
  return column;
}

QVBoxLayout* below(QWidget& window, const char* label, const char* widget) {
  return below(part<QLabel>(window, label), part(window, widget));
}

/// For a widget without a label in the description: its accessible name.
QVBoxLayout* titled(QWidget& window, const char* name) {
  QWidget* widget = part(window, name);
  auto* title = new QLabel(widget->accessibleName(), widget->parentWidget());
  title->setTextFormat(Qt::PlainText);
  return below(title, widget);
}

/// A table to choose, above the list of its fields.
QVBoxLayout* fieldsOfTable(QWidget& window, const char* combo, const char* list) {
  QVBoxLayout* column = titled(window, combo);
  column->setStretch(1, 0);
  column->addWidget(part(window, list), 1);
  return column;
}

/// A button with a sign is narrower than one with words.
QWidget* signButton(QWidget& window, const char* name) {
  QWidget* button = part(window, name);
  button->setFixedWidth(characters(window, kSignWidth));
  return button;
}

/// Those buttons below each other, in the middle of the height.
QVBoxLayout* signs(QWidget& window, Names names) {
  auto* column = new QVBoxLayout;
  column->addStretch(1);
  for (const char* name : names) column->addWidget(signButton(window, name));
  column->addStretch(1);
  return column;
}

QHBoxLayout* sideBySide(std::initializer_list<QLayout*> parts) {
  auto* row = new QHBoxLayout;
  for (QLayout* each : parts) row->addLayout(each);
  return row;
}

/// Of lists and the buttons between them, the lists take the room in equal shares.
void shareRoom(QHBoxLayout& row, std::initializer_list<int> places) {
  for (const int place : places) row.setStretch(place, 1);
}

QWidget* pageOf(QWidget& window, int page) {
  return part<TabStrip>(window, "tabWizard")->widget(page);
}

void layOutTables(QWidget& window) {
  auto* source = new QGridLayout(part(window, "frameConectar"));
  source->addWidget(part(window, "lblSistema"), 0, 0);
  source->addWidget(part(window, "cmbSistema"), 0, 1);
  source->addWidget(part(window, "btnConectar"), 0, 2);
  source->addWidget(part(window, "chkAceitaApelidos"), 1, 1, 1, 2);
  source->setColumnStretch(1, 1);
  part<QLabel>(window, "lblSistema")->setBuddy(part(window, "cmbSistema"));

  auto* lists = sideBySide({below(window, "lblTabTodas", "lst1TabTodas"),
                            signs(window, {"btn1Inc", "btn1IncTodos", "btn1Exc", "btn1ExcTodos"}),
                            below(window, "lblTabSel", "lst1TabSel")});
  shareRoom(*lists, {0, 2});
  part(window, "frameTabelas")->setLayout(lists);

  auto* column = new QVBoxLayout(pageOf(window, 0));
  column->addWidget(part(window, "frameConectar"));
  column->addWidget(part(window, "frameTabelas"), 1);
}

QVBoxLayout* linkSide(QWidget& window, const char* label, const char* combo, const char* list) {
  QVBoxLayout* column = below(window, label, combo);
  column->setStretch(1, 0);
  column->addWidget(part(window, list), 1);
  return column;
}

void layOutLinks(QWidget& window) {
  auto* sides = sideBySide({linkSide(window, "lbl2LnkPai", "cmb2TabPai", "lst2CmpPai"),
                            linkSide(window, "lbl2LnkFilho", "cmb2TabFilho", "lst2CmpFilho")});
  shareRoom(*sides, {0, 1});
  part(window, "frame2Link")->setLayout(sides);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(part(window, "btn2LnkAdiciona"));
  buttons->addWidget(part(window, "btn2LnkRemove"));
  buttons->addStretch(1);

  auto* column = new QVBoxLayout(pageOf(window, 1));
  column->addWidget(part(window, "frame2Link"), 3);
  column->addLayout(buttons);
  column->addLayout(titled(window, "lst2Links"), 2);
}

void layOutPieces(QWidget& window) {
  auto* grid = new QGridLayout(part(window, "frame3Concatena"));
  grid->addLayout(below(window, "lbl3ConcNome", "txt3ConcNome"), 0, 0);
  grid->addLayout(below(window, "lbl3ConcMascara", "txt3ConcMascara"), 0, 1);
  grid->addWidget(part(window, "lst3Concatena"), 1, 0, 1, 2);
  grid->addLayout(
      signs(window, {"btn3ConcIncluir", "btn3ConcExclui", "btn3ConcSobe", "btn3ConcDesce"}), 1, 2);
  grid->setRowStretch(1, 1);
}

/// The fields of a table above, their concatenation below, and what was made of both at the right.
void layOutFields(QWidget& window) {
  layOutPieces(window);
  auto* grid = new QGridLayout(pageOf(window, 2));
  grid->addLayout(fieldsOfTable(window, "cmb3Tab", "lst3Cmp"), 0, 0);
  grid->addLayout(signs(window, {"btn3Inclui", "btn3Concatena"}), 0, 1);
  grid->addWidget(part(window, "frame3Concatena"), 1, 0);
  grid->addLayout(signs(window, {"btn3CriaConcatena"}), 1, 1);
  grid->addLayout(titled(window, "lst3CmpSel"), 0, 2, 2, 1);
  grid->addLayout(signs(window, {"btn3CmpSelExclui", "btn3CmpSelSobe", "btn3CmpSelDesce"}), 0, 3, 2,
                  1);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(0, 1);
  grid->setRowStretch(1, 1);
}

void layOutColumn(QWidget& window) {
  auto* grid = new QGridLayout(part(window, "frame4Grid"));
  struct Cell {
    const char* label;
    const char* box;
    int row, column, span;
  };
  for (const Cell& cell : {Cell{"lbl4Coluna", "cmb4Coluna", 0, 0, 1},
                           Cell{"lbl4GrdCaption", "txt4GrdCaption", 0, 2, 2},
                           Cell{"lbl4GrdMascara", "txt4GrdMascara", 1, 0, 1},
                           Cell{"lbl4GrdWidth", "txt4GrdWidth", 1, 2, 1}}) {
    part<QLabel>(window, cell.label)->setBuddy(part(window, cell.box));
    grid->addWidget(part(window, cell.label), cell.row, cell.column);
    grid->addWidget(part(window, cell.box), cell.row, cell.column + 1, 1, cell.span);
    grid->setColumnStretch(cell.column + 1, 1);
  }
  grid->addWidget(part(window, "chk4GrdVisible"), 1, 4);
}

void layOutGrid(QWidget& window) {
  layOutColumn(window);
  auto* head = new QHBoxLayout;
  part<QLabel>(window, "lbl4Caption")->setBuddy(part(window, "txt4Caption"));
  head->addWidget(part(window, "lbl4Caption"));
  head->addWidget(part(window, "txt4Caption"), 1);
  head->addWidget(part(window, "btn4Retrieve"));

  auto* column = new QVBoxLayout(pageOf(window, 3));
  column->addLayout(head);
  column->addWidget(part(window, "grdWizard"), 1);
  column->addWidget(part(window, "frame4Grid"));
}

void layOutOrder(QWidget& window) {
  auto* lists =
      sideBySide({titled(window, "lst5CmpTodos"),
                  signs(window, {"btn5Inc", "btn5IncTodos", "Btn5Exc", "btn5ExcTodos"}),
                  titled(window, "lst5CmpSel"), signs(window, {"btn5CmpSobe", "btn5CmpDesce"})});
  shareRoom(*lists, {0, 2});
  pageOf(window, 4)->setLayout(lists);
}

void layOutSearch(QWidget& window) {
  auto* choices = sideBySide({titled(window, "cmb6TipoBusca"), titled(window, "cmb6Objeto"),
                              titled(window, "cmb6TipoDado")});
  shareRoom(*choices, {0, 1, 2});
  auto* frame = new QGridLayout(part(window, "frame6Cmp"));
  frame->addWidget(part(window, "lst6CmpSel"), 0, 0);
  frame->addLayout(signs(window, {"btn6CmpExc", "btn6CmpSobe", "btn6CmpDesce"}), 0, 1);
  frame->addLayout(choices, 1, 0);
  frame->setRowStretch(0, 1);

  auto* row = new QHBoxLayout(pageOf(window, 5));
  row->addLayout(fieldsOfTable(window, "cmb6Tab", "lst6Cmp"), 1);
  row->addLayout(signs(window, {"btn6CmpInc"}));
  row->addWidget(part(window, "frame6Cmp"), 2);
}

/// A box below its label, and before the box the button that fills it.
void addFilled(QGridLayout& grid, QWidget& window, const char* label, const char* button,
               const char* box) {
  const int row = grid.rowCount();
  part<QLabel>(window, label)->setBuddy(part(window, box));
  grid.addWidget(part(window, label), row, 1);
  grid.addWidget(signButton(window, button), row + 1, 0);
  grid.addWidget(part(window, box), row + 1, 1);
}

void layOutReturn(QWidget& window) {
  auto* fields = new QHBoxLayout(part(window, "frame7CamposRetorno"));
  fields->addWidget(signButton(window, "btn7CmpRetInc"));
  fields->addWidget(part(window, "lst7CmpRet"), 1);
  fields->addLayout(signs(window, {"btn7CmpRetExc", "btn7CmpRetSobe", "btn7CmpRetDesce"}));

  auto* right = new QGridLayout;
  addFilled(*right, window, "lbl7CampoChave", "btn7CmpChaveInc", "txt7CampoChave");
  addFilled(*right, window, "lbl7CampoIrmao", "btn7CmpIrmaoInc", "txt7CampoIrmao");
  right->addWidget(part(window, "frame7CamposRetorno"), right->rowCount(), 0, 1, 2);
  right->setRowStretch(right->rowCount() - 1, 1);

  auto* row = new QHBoxLayout(pageOf(window, 6));
  row->addLayout(below(window, "lbl7Cmp", "lst7Cmp"), 1);
  row->addLayout(right, 1);
}

void layOutStatement(QWidget& window) {
  auto* text = part<QPlainTextEdit>(window, "txt8Sql");
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSizeF(window.font().pointSizeF());
  text->setFont(font);
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  auto* column = new QVBoxLayout(pageOf(window, 7));
  column->addWidget(text, 1);
  column->addWidget(part(window, "lstSel"));
}

}  // namespace

// Enter presses no button: it is too easily struck in one of the boxes on the way.
void layOutWizard(QWidget& window) {
  for (const auto layOutPage : {layOutTables, layOutLinks, layOutFields, layOutGrid, layOutOrder,
                                layOutSearch, layOutReturn, layOutStatement})
    layOutPage(window);
  auto* column = new QVBoxLayout(&window);
  column->addWidget(part(window, "tabWizard"), 1);
  for (const char* line : {"lblCampoOutros", "lblEstado"}) {
    auto* label = part<QLabel>(window, line);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Ignored, label->sizePolicy().verticalPolicy());
    column->addWidget(label);
  }
  part(window, "lblEstado")->setMinimumHeight(lines(window, 1));
  column->addLayout(answerRow(window, "btnConfirma", "btnVoltar"));
  part<QPushButton>(window, "btnConfirma")->setDefault(false);
  window.resize(characters(window, 110), lines(window, 34));
}

}  // namespace tessaria::qt
