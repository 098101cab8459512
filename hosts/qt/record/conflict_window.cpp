#include "hosts/qt/record/conflict_window.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "hosts/qt/boundary/handles.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

using Side = ConflictingColumn::Side;

constexpr int kTableColumns = 4;
constexpr int kWidthInCharacters = 110;
constexpr double kMostOfTheScreen = 0.8;

QLabel* makeText(const QString& text) {
  auto* label = new QLabel(text);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

QLabel* makeBold(const QString& text) {
  QLabel* label = makeText(text);
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

/// Wants to show all of its table; scrolls when the window is smaller.
class TableArea final : public QScrollArea {
 public:
  TableArea(QWidget* table, int width) : width_(width) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(table);
  }
  QSize sizeHint() const override { return {width_, widget()->heightForWidth(width_)}; }

 private:
  int width_;
};

QString accessibleNameOf(const ConflictingColumn& column, const QString& what,
                         const QString& value) {
  return QStringLiteral("%1, %2: %3").arg(column.caption, what, value);
}

}  // namespace

ConflictWindow::ConflictWindow(QWidget* parent, const QString& introduction,
                               QList<ConflictingColumn> columns)
    : QDialog(parent), columns_(std::move(columns)) {
  setObjectName(QStringLiteral("frmConflito"));
  setAccessibleDescription(introduction);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(makeText(introduction));
  const auto isShown = [](const ConflictingColumn& column) { return column.isShown; };
  if (std::any_of(columns_.begin(), columns_.end(), isShown)) layout->addWidget(makeTable(), 1);
  layout->addWidget(makeButtons());
  // Where nothing has to be chosen, Enter does not write over what the other user has stored.
  auto* usual = findChild<QPushButton*>(groups_.isEmpty() ? QStringLiteral("btnVoltar")
                                                          : QStringLiteral("btnGravar"));
  usual->setDefault(true);
  if (groups_.isEmpty()) usual->setFocus();
  const QSize most = screen()->availableSize() * kMostOfTheScreen;
  const int width = std::min(sizeHint().width(), most.width());
  resize(width, std::min(layout->totalHeightForWidth(width), most.height()));
  setSizeGripEnabled(true);
}

QWidget* ConflictWindow::makeTable() {
  auto* content = new QWidget;
  auto* table = new QGridLayout(content);
  table->setHorizontalSpacing(2 * fontMetrics().averageCharWidth());
  const char* const titles[kTableColumns] = {"Campo", "Valor anterior", "O meu",
                                             "O do outro usuário"};
  for (int i = 0; i < kTableColumns; ++i) {
    table->addWidget(makeBold(QString::fromUtf8(titles[i])), 0, i);
    table->setColumnStretch(i, 1);
  }
  for (qsizetype i = 0; i < columns_.size(); ++i)
    if (columns_[i].isShown) addLine(*table, i);
  table->setRowStretch(table->rowCount(), 1);
  return new TableArea(content, fontMetrics().averageCharWidth() * kWidthInCharacters);
}

void ConflictWindow::addLine(QGridLayout& table, qsizetype column) {
  const ConflictingColumn& line = columns_[column];
  auto* group = new QButtonGroup(this);
  groups_.insert(column, group);
  QLabel* former = makeText(line.formerText);
  former->setAccessibleName(
      accessibleNameOf(line, QStringLiteral("valor anterior"), line.formerText));
  const int row = table.rowCount();
  table.addWidget(makeCaption(line), row, 0, Qt::AlignTop);
  table.addWidget(former, row, 1, Qt::AlignTop);
  table.addWidget(makeOption(column, Side::Mine, line.mineText), row, 2, Qt::AlignTop);
  table.addWidget(makeOption(column, Side::Theirs, line.theirsText), row, 3, Qt::AlignTop);
  if (!line.stays) return;
  // Tab stops at the chosen one only, from where the arrow keys reach the other.
  const int chosen = *line.stays == Side::Mine ? 0 : 1;
  group->button(chosen)->setChecked(true);
  group->button(1 - chosen)->setFocusPolicy(Qt::ClickFocus);
}

/// What both users have changed is marked by words, for eyes that see no colours too.
QWidget* ConflictWindow::makeCaption(const ConflictingColumn& column) const {
  if (!column.isContested) return makeText(column.caption);
  auto* cell = new QWidget;
  auto* lines = new QVBoxLayout(cell);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->setSpacing(0);
  lines->addWidget(makeBold(column.caption));
  lines->addWidget(makeText(QStringLiteral("alterado pelos dois: escolha")));
  return cell;
}

QWidget* ConflictWindow::makeOption(qsizetype column, Side side, const QString& text) {
  const ConflictingColumn& line = columns_[column];
  const bool isMine = side == Side::Mine;
  auto* cell = new QWidget;
  auto* row = new QHBoxLayout(cell);
  row->setContentsMargins(0, 0, 0, 0);
  auto* option = new QRadioButton;
  option->setObjectName(
      (isMine ? QStringLiteral("meu_%1") : QStringLiteral("outro_%1")).arg(column));
  option->setAccessibleName(accessibleNameOf(
      line, isMine ? QStringLiteral("o meu") : QStringLiteral("o do outro usuário"), text));
  groups_.value(column)->addButton(option, isMine ? 0 : 1);
  QLabel* value = makeText(text);
  value->installEventFilter(this);
  valueLabels_.insert(value, option);
  row->addWidget(option, 0, Qt::AlignTop);
  row->addWidget(value, 1, Qt::AlignTop);
  return cell;
}

QWidget* ConflictWindow::makeButtons() {
  auto* buttons = new QDialogButtonBox;
  QPushButton* save = buttons->addButton(QStringLiteral("&Gravar"), QDialogButtonBox::AcceptRole);
  save->setObjectName(QStringLiteral("btnGravar"));
  QPushButton* back = buttons->addButton(QStringLiteral("&Voltar"), QDialogButtonBox::RejectRole);
  back->setObjectName(QStringLiteral("btnVoltar"));
  connect(buttons, &QDialogButtonBox::accepted, this, &ConflictWindow::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &ConflictWindow::reject);
  return buttons;
}

bool ConflictWindow::eventFilter(QObject* object, QEvent* event) {
  QRadioButton* option = valueLabels_.value(object);
  if (option && event->type() == QEvent::MouseButtonRelease) {
    option->setFocus(Qt::MouseFocusReason);
    option->click();
    return true;
  }
  return QDialog::eventFilter(object, event);
}

void ConflictWindow::takeSides() {
  for (auto group = groups_.cbegin(); group != groups_.cend(); ++group) {
    const int chosen = group.value()->checkedId();
    if (chosen >= 0) columns_[group.key()].stays = chosen == 0 ? Side::Mine : Side::Theirs;
  }
}

void ConflictWindow::accept() {
  takeSides();
  const auto open = std::find_if(columns_.begin(), columns_.end(),
                                 [](const ConflictingColumn& column) { return !column.stays; });
  if (open == columns_.end()) return QDialog::accept();
  const QString text = QStringLiteral("Escolha o que fica em \"%1\".").arg(open->caption);
  State().application->ShowMessageBox(handleOf(*this), fromQt(text), host::box::Exclamation,
                                      fromQt(windowTitle()));
  groups_.value(open - columns_.begin())->buttons().first()->setFocus(Qt::OtherFocusReason);
}

}  // namespace tessaria::qt
