#include "tessaria/qt/item_grid.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "hosts/qt/boundary/handles.h"
#include "hosts/qt/conversion/units.h"
#include "hosts/qt/items/form_fields.h"
#include "hosts/qt/items/item_grid.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/masks.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/settle.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext.h"

namespace tessaria::qt {
namespace {

constexpr int kLeastRows = 4;
constexpr int kComputedIndent = 4;
constexpr char16_t kEnterKey = 13;

/// Keys that a box would use itself.
bool isOfGrid(const QKeyEvent& key) {
  return key.modifiers() == Qt::ControlModifier &&
         (key.key() == Qt::Key_Delete || key.key() == Qt::Key_Up || key.key() == Qt::Key_Down);
}

void pressTab(QWidget& window) {
  QWidget* const box = window.focusWidget();
  if (!box) return;
  QCoreApplication::postEvent(box, new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, {}));
  QCoreApplication::postEvent(box, new QKeyEvent(QEvent::KeyRelease, Qt::Key_Tab, {}));
}

void require(bool holds, const char* what) {
  if (!holds) throw HostError(errors::InvalidArgument, fromQt(QString::fromUtf8(what)));
}

}  // namespace

ItemGrid::ItemGrid(QWidget* parent) : QWidget(parent), parts_(std::make_unique<Parts>(this)) {
  Parts& p = *parts_;
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addWidget(p.view);
  column->addWidget(p.totals);
  p.view->setFocusPolicy(Qt::NoFocus);
  p.view->setTabKeyNavigation(false);
  p.view->setSelectionMode(QAbstractItemView::NoSelection);
  p.view->setEditTriggers(QAbstractItemView::NoEditTriggers);
  p.view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  p.view->setContextMenuPolicy(Qt::CustomContextMenu);
  p.view->setModel(&p.model);
  p.line->left = [this](bool next) { return step(next); };
}

ItemGrid::ItemGrid(const ItemSettings& settings, QWidget* parent) : ItemGrid(parent) {
  setSettings(settings);
}

ItemGrid::~ItemGrid() = default;

void ItemGrid::setSettings(const ItemSettings& settings) {
  require(parts_->line->count() == 0, "A grade já tem as suas colunas.");
  require(!settings.columns.empty(), "A grade não tem colunas.");
  QStringList names;
  for (const ItemColumn& column : settings.columns) {
    const QString name = toQt(column.field.name);
    require(!name.isEmpty(), "Uma coluna da grade não tem nome.");
    require(!names.contains(name, Qt::CaseInsensitive), "Duas colunas da grade têm o mesmo nome.");
    names << name;
  }
  parts_->model.setSettings(settings);
  makeFields();
}

void ItemGrid::makeFields() {
  Parts& p = *parts_;
  QWidget* last = this;
  for (int c = 0; c < p.model.columnCount(); ++c) {
    const ItemColumn& column = p.model.column(c);
    if (column.compute) {
      auto* label = new QLabel(p.line);
      label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      label->setIndent(kComputedIndent);
      label->setObjectName(toQt(column.field.name));
      label->setBackgroundRole(QPalette::Base);
      label->setAutoFillBackground(true);
      p.line->addLabel(label);
      continue;
    }
    auto* field = new TsText(settingsOf(c), p.line);
    p.line->addField(field);
    connectField(*field);
    setTabOrder(last, field);
    last = field;
  }
  p.shown.assign(std::size_t(p.model.columnCount()), Variant::Null());
  const int first = p.line->nextColumn(0, 1);
  if (first >= 0) setFocusProxy(p.line->field(first));
  p.model.textOf = [this](int c, const Variant& value) {
    const TsText* const field = parts_->line->field(c);
    try {
      return field ? toQt(field->control().TextOf(value)) : QString();
    } catch (const HostError&) {
      return toQt(CStr(value));
    }
  };
  p.model.alignmentOf = [this](int c) {
    const TsText* const field = parts_->line->field(c);
    const bool isNumber = !field || mdlObjTxt::IsNumericMask(field->control().Mascara());
    return isNumber ? Qt::AlignRight : Qt::AlignLeft;
  };
  p.totals->make(p.model);
  makeColumns();
  connectView();
  showRow();
}

/// A field stands for no row of a record set: its value goes to the grid. Messages name it by the
/// caption of its column, which is a label that nobody sees.
FieldSettings ItemGrid::settingsOf(int column) {
  FieldSettings settings = parts_->model.column(column).field;
  settings.dataSource.clear();
  settings.dataField.clear();
  if (!settings.label.empty()) return settings;
  auto* label = new QLabel(parts_->model.caption(column) + u':', parts_->line);
  label->setObjectName(QStringLiteral("%1_%2").arg(objectName(), toQt(settings.name)));
  label->hide();
  settings.label = fromQt(label->objectName());
  return settings;
}

void ItemGrid::makeColumns() {
  Parts& p = *parts_;
  QHeaderView& header = *p.view->horizontalHeader();
  header.setHighlightSections(false);
  header.setStretchLastSection(true);
  for (int c = 0; c < p.model.columnCount(); ++c) {
    const ItemColumn& column = p.model.column(c);
    header.resizeSection(c, pixelsX(Long(column.width), *this));
    if (column.field.kind != TipoControle::Descricao) continue;
    header.setStretchLastSection(false);
    header.setSectionResizeMode(c, QHeaderView::Stretch);
  }
  QHeaderView& rows = *p.view->verticalHeader();
  rows.setSectionResizeMode(QHeaderView::Fixed);
  rows.setDefaultSectionSize(p.line->rowHeight());
  rows.setHighlightSections(false);
  rows.setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  p.view->setMinimumHeight(header.sizeHint().height() + kLeastRows * p.line->rowHeight() +
                           2 * p.view->frameWidth());
}

void ItemGrid::connectView() {
  Parts& p = *parts_;
  const auto soon = [this] { placeSoon(); };
  connect(p.view->horizontalHeader(), &QHeaderView::sectionResized, this, soon);
  connect(p.view->horizontalHeader(), &QHeaderView::geometriesChanged, this, soon);
  for (QScrollBar* bar : {p.view->verticalScrollBar(), p.view->horizontalScrollBar()})
    connect(bar, &QScrollBar::valueChanged, this, [this] { place(); });
  p.view->viewport()->installEventFilter(this);
  // A box may open on the way, which must not be inside the event of the mouse.
  connect(
      p.view, &QTableView::pressed, this,
      [this](const QModelIndex& at) { goToColumn(at.row(), at.column()); }, Qt::QueuedConnection);
  connect(
      p.view->verticalHeader(), &QHeaderView::sectionPressed, this, [this](int row) { goTo(row); },
      Qt::QueuedConnection);
  connect(p.view, &QTableView::customContextMenuRequested, this, &ItemGrid::showMenu);
}

void ItemGrid::connectField(TsText& field) {
  connect(&field, &TsText::valueChanged, this, [this] { takeRow(); });
  connect(&field, &TsText::changed, this, &ItemGrid::requireFields);
  connect(&field, &TsText::keyPress, this, [this](qint16& key) {
    if (key != kEnterKey) return;
    key = 0;
    pressTab(*window());
  });
  // The first show of a form empties its fields.
  connect(&field, &TsText::shown, this, [this] { parts_->wasShown = true; });
  connect(
      &field, &TsText::shown, this, [this] { showRow(); }, Qt::QueuedConnection);
  field.focusProxy()->installEventFilter(this);
}

// --- The line over the current row

void ItemGrid::place() {
  Parts& p = *parts_;
  p.willPlace = false;
  if (p.line->count() == 0) return;
  p.line->place(*p.view, p.current);
  p.line->raise();
  p.totals->place(*p.view);
}

void ItemGrid::placeSoon() {
  if (!std::exchange(parts_->willPlace, true))
    QMetaObject::invokeMethod(this, &ItemGrid::place, Qt::QueuedConnection);
}

/// Keys first: a code brings its description along.
void ItemGrid::showRow() {
  Parts& p = *parts_;
  if (p.line->count() == 0) return;
  const QScopedValueRollback showing(p.isShowing, true);
  const QPointer<ItemGrid> self(this);
  for (const bool keys : {true, false})
    for (int c = 0; c < p.line->count(); ++c) {
      showCell(c, keys);
      if (!self) return;
    }
  for (int c = 0; c < p.line->count(); ++c)
    if (const TsText* field = p.line->field(c)) p.shown[std::size_t(c)] = field->control().Value();
  nameRow();
  requireFields();
  showTotals();
  placeSoon();
  if (p.line->focusedColumn() >= 0) enterAgain(this);
}

/// Of a row that is none as long as nothing stands in it, no field is required.
void ItemGrid::requireFields() {
  const Parts& p = *parts_;
  const bool isStored = p.current < rowCount() && p.model.isStored(p.current);
  const bool mayBeBlank = !isStored && p.isLineBlank();
  for (int c = 0; c < p.line->count(); ++c) {
    TsText* const field = p.line->field(c);
    if (field && !p.model.column(c).field.mayBeBlank) field->control().PodeSerBranco(mayBeBlank);
  }
}

/// As it stands on the screen, settled or not.
bool ItemGrid::Parts::isLineBlank() const {
  for (int c = 0; c < line->count(); ++c) {
    const ItemColumn& column = model.column(c);
    if (column.compute || column.field.dataField.empty()) continue;
    const Variant initial = column.initial.IsEmpty() ? Variant::Null() : column.initial;
    if (line->field(c)->text() != model.textOf(c, initial)) return false;
  }
  return true;
}

void ItemGrid::showCell(int column, bool keys) {
  Parts& p = *parts_;
  const FieldSettings& settings = p.model.column(column).field;
  TsText* const field = p.line->field(column);
  if (!field || (settings.kind == TipoControle::Browse) != keys) return;
  // A description that is not stored comes with its code.
  const bool isFetched = settings.kind == TipoControle::Descricao && settings.dataField.empty() &&
                         p.model.find(toQt(settings.sibling)) >= 0;
  if (isFetched) return;
  const Variant value = p.model.value(p.current, column);
  guarded(this, [&] {
    field->control().ShowValue(value.IsEmpty() ? Variant::Null() : value);
    if (keys && p.wasShown) field->control().ShowSibling(false);
  });
}

void ItemGrid::nameRow() {
  Parts& p = *parts_;
  const QString row =
      p.model.headerData(p.current, Qt::Vertical, Qt::AccessibleTextRole).toString();
  for (int c = 0; c < p.line->count(); ++c) {
    const QString caption = p.model.headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
    const QString name = QStringLiteral("%1: %2").arg(row, caption);
    if (TsText* field = p.line->field(c)) {
      field->setAccessibleName(name);
      field->focusProxy()->setAccessibleName(name);
    } else {
      p.line->label(c)->setAccessibleName(name);
    }
  }
}

void ItemGrid::showTotals() {
  Parts& p = *parts_;
  for (int c = 0; c < p.line->count(); ++c)
    if (QLabel* label = p.line->label(c)) label->setText(p.model.text(p.current, c));
  p.totals->show(p.model);
}

/// What the fields hold goes into the row.
void ItemGrid::takeRow() {
  Parts& p = *parts_;
  if (p.isShowing) return;
  bool isChanged = false;
  for (int c = 0; c < p.line->count(); ++c) {
    const TsText* const field = p.line->field(c);
    Variant& shown = p.shown[std::size_t(c)];
    if (!field) continue;
    const Variant value = field->control().Value();
    if (isStoredAlike(value, shown)) continue;
    shown = value;
    p.model.setValue(p.current, c, value);
    isChanged = true;
  }
  if (!isChanged) return;
  nameRow();
  showTotals();
  placeSoon();
  guarded(this, [this] { emit changed(); });
}

// --- From row to row

bool ItemGrid::goTo(int row, QAnyStringView column) {
  return goToColumn(row, column.isEmpty() ? -1 : parts_->model.find(column));
}

bool ItemGrid::goToColumn(int row, int column) {
  Parts& p = *parts_;
  if (row < 0 || row > rowCount()) return false;
  if (row == p.current) return focusColumn(column);
  const int present = p.line->focusedColumn();
  const QPersistentModelIndex target(p.model.index(row, 0));
  const QPointer<ItemGrid> self(this);
  if (!leaveRow() || !self || !target.isValid()) return false;
  showRowAt(target.row());
  if (!self) return false;
  return focusColumn(column >= 0 ? column : present);
}

void ItemGrid::showRowAt(int row) {
  Parts& p = *parts_;
  p.current = row;
  p.view->scrollTo(p.model.index(row, std::max(0, p.line->focusedColumn())));
  showRow();
  place();
  guarded(this, [&] { emit currentRowChanged(row); });
}

bool ItemGrid::focusColumn(int column) {
  const Parts& p = *parts_;
  int target = p.line->nextColumn(std::max(column, 0), 1);
  if (target < 0) target = p.line->nextColumn(p.line->count() - 1, -1);
  if (target < 0) return false;
  if (p.line->focusedColumn() != target) p.line->field(target)->setFocus(Qt::OtherFocusReason);
  return true;
}

/// Whether the Tab key has found a row; otherwise it leaves the grid.
bool ItemGrid::step(bool next) {
  Parts& p = *parts_;
  const QPointer<ItemGrid> self(this);
  if (p.current == (next ? rowCount() : 0)) return false;
  const int items = rowCount();
  if (!leaveRow() || !self) return true;
  const bool isGone = rowCount() < items;  // what follows has moved up
  if (isGone && next && p.current == rowCount()) return false;
  showRowAt(next ? p.current + (isGone ? 0 : 1) : p.current - 1);
  if (self) focusColumn(next ? 0 : p.line->nextColumn(p.line->count() - 1, -1));
  return true;
}

/// Settles and checks the row; one that was left blank disappears.
bool ItemGrid::leaveRow() {
  Parts& p = *parts_;
  const QPointer<ItemGrid> self(this);
  if (!settleForSaving(*this) || !self) return false;
  takeRow();
  if (!self) return false;
  if (p.current >= rowCount() || !p.model.isChanged(p.current)) return true;
  if (p.model.isBlank(p.current) && !p.model.isStored(p.current)) {
    p.model.remove(p.current);
    showRow();
    guarded(this, [this] { emit changed(); });
    return self;
  }
  return checkFields() && self && checkRow(p.current);
}

// --- Checks

void ItemGrid::setRowCheck(Check check) { parts_->check = std::move(check); }

bool ItemGrid::checkFields() {
  const QPointer<ItemGrid> self(this);
  for (int c = 0; self && c < parts_->line->count(); ++c) {
    TsText* const field = parts_->line->field(c);
    if (field && field->isFieldEnabled() && !checkForSaving(*field)) return false;
  }
  return self;
}

bool ItemGrid::checkRow(int row) {
  Parts& p = *parts_;
  std::optional<Refusal> refusal;
  const QPointer<ItemGrid> self(this);
  if (p.check && !guarded(this, [&] { refusal = p.check(ItemRow(p.model, row)); })) return false;
  if (!self || !refusal) return self && !refusal;
  if (row != p.current) showRowAt(row);
  if (!self) return false;
  focusColumn(p.model.find(refusal->column));
  tell(refusal->text);
  return false;
}

bool ItemGrid::check() {
  const QPointer<ItemGrid> self(this);
  if (!leaveRow() || !self) return false;
  for (int row = 0; row < rowCount(); ++row)
    if (parts_->model.isChanged(row) && (!checkRow(row) || !self)) return false;
  return true;
}

void ItemGrid::tell(const QString& text) {
  QWidget* const over = window();
  State().application->ShowMessageBox(handleOf(*over), fromQt(text), host::box::Exclamation,
                                      fromQt(over->windowTitle()));
}

// --- What the program reads and writes

TsText* ItemGrid::field(QAnyStringView column) const {
  const int c = parts_->model.find(column);
  return c < 0 ? nullptr : parts_->line->field(c);
}

QAbstractItemModel* ItemGrid::model() const { return &parts_->model; }
int ItemGrid::rowCount() const { return parts_->model.items(); }
int ItemGrid::currentRow() const { return parts_->current; }

void ItemGrid::requireRow(int row) const {
  if (row < 0 || row >= rowCount()) throw HostError(errors::SubscriptOutOfRange);
}

QVariant ItemGrid::value(int row, QAnyStringView column) const {
  const int c = parts_->model.require(column);
  requireRow(row);
  return toQVariant(parts_->model.value(row, c));
}

void ItemGrid::setValue(int row, QAnyStringView column, const QVariant& value) {
  Parts& p = *parts_;
  const int c = p.model.require(column);
  require(!p.model.column(c).compute, "O valor desta coluna é calculado.");
  if (row == p.current && p.line->field(c)) {
    p.line->field(c)->setValue(value);
    if (p.model.column(c).field.kind == TipoControle::Browse) p.line->field(c)->atualizaIrmao();
    return takeRow();
  }
  if (row != rowCount()) requireRow(row);
  p.model.setValue(row, c, toVariant(value));
  showTotals();
  guarded(this, [this] { emit changed(); });
}

void ItemGrid::appendRow(const QHash<QString, QVariant>& values) {
  Parts& p = *parts_;
  std::vector<Variant> row = p.model.blank();
  for (auto it = values.begin(); it != values.end(); ++it)
    row[std::size_t(p.model.require(it.key()))] = toVariant(it.value());
  const bool wasBlank = p.current == rowCount();
  p.model.append(std::move(row));
  // What is being entered in the blank row goes on there.
  if (wasBlank) ++p.current;
  showTotals();
  nameRow();
  placeSoon();
  guarded(this, [this] { emit changed(); });
}

void ItemGrid::removeRow(int row) {
  Parts& p = *parts_;
  requireRow(row);
  p.model.remove(row);
  if (row < p.current) --p.current;
  showRow();
  guarded(this, [this] { emit changed(); });
}

double ItemGrid::total(QAnyStringView column) const {
  return parts_->model.total(parts_->model.require(column));
}

void ItemGrid::removeCurrentRow() {
  Parts& p = *parts_;
  if (p.current >= rowCount()) return showRow();  // drops what was begun
  const QPointer<ItemGrid> self(this);
  QWidget* const over = window();
  const Long style = host::box::YesNo + host::box::Question + host::box::DefaultNo;
  const QString question = QStringLiteral("Remover o item %1?").arg(p.current + 1);
  const Long answer = State().application->ShowMessageBox(handleOf(*over), fromQt(question), style,
                                                          fromQt(over->windowTitle()));
  if (self && answer == host::answer::Yes && p.current < rowCount()) removeRow(p.current);
}

void ItemGrid::showMenu(const QPoint& at) {
  const int row = parts_->view->rowAt(at.y());
  if (row < 0 || !goTo(row)) return;
  QMenu menu(this);
  QAction* const remove = menu.addAction(QStringLiteral("&Remover item"));
  remove->setShortcut(Qt::CTRL | Qt::Key_Delete);
  remove->setEnabled(row < rowCount());
  if (menu.exec(parts_->view->viewport()->mapToGlobal(at)) == remove) removeCurrentRow();
}

// --- Storage

QStringList ItemGrid::parentColumns() const {
  QStringList columns;
  for (const ItemLink& link : parts_->model.settings().links) columns << toQt(link.parent);
  return columns;
}

void ItemGrid::load(const host::ConnectionPtr& connection, const std::vector<Variant>& parents) {
  Parts& p = *parts_;
  p.written.clear();
  p.isReadable = false;
  std::vector<StoredItem> items;
  std::exception_ptr failure;
  try {
    if (!parents.empty()) items = readItems(p.model.settings(), connection, parents);
    p.isReadable = true;
  } catch (...) {
    failure = std::current_exception();
  }
  p.model.load(std::move(items));
  const QPointer<ItemGrid> self(this);
  showRowAt(0);
  if (self) guarded(this, [this] { emit changed(); });
  if (failure) std::rethrow_exception(failure);
}

void ItemGrid::write(const host::ConnectionPtr& connection, const std::vector<Variant>& parents,
                     bool overwrites) {
  Parts& p = *parts_;
  if (!p.isReadable)
    throw HostError(errors::ProviderError,
                    fromQt(QStringLiteral("Os itens não puderam ser lidos e não serão gravados.")));
  p.written = writeItems(p.model.settings(), connection, parents, p.model.loaded(),
                         p.model.toStore(), overwrites);
}

void ItemGrid::accept() {
  Parts& p = *parts_;
  if (int(p.written.size()) != rowCount()) return;
  p.model.accept(std::exchange(p.written, {}));
}

bool ItemGrid::isChanged() const {
  const Parts& p = *parts_;
  if (p.model.isChanged()) return true;
  if (p.isShowing) return false;
  for (int c = 0; c < p.line->count(); ++c)
    if (const TsText* field = p.line->field(c); field && field->control().IsTouched()) return true;
  return false;
}

// --- Events

void ItemGrid::keyPressEvent(QKeyEvent* event) {
  if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_Up) {
    goTo(parts_->current - 1);
  } else if (event->modifiers() == Qt::NoModifier && event->key() == Qt::Key_Down) {
    goTo(parts_->current + 1);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void ItemGrid::pressGridKey(int key) {
  if (key == Qt::Key_Delete) return removeCurrentRow();
  goTo(key == Qt::Key_Up ? 0 : rowCount());
}

void ItemGrid::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeSoon();
}

/// The fields of the line take no wheel: the rows under them scroll.
void ItemGrid::wheelEvent(QWheelEvent* event) {
  QCoreApplication::sendEvent(parts_->view->viewport(), event);
}

bool ItemGrid::eventFilter(QObject* object, QEvent* event) {
  Parts& p = *parts_;
  if (object == p.view->viewport()) {
    if (event->type() == QEvent::Resize) placeSoon();
    return QWidget::eventFilter(object, event);
  }
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::KeyPress)
    p.view->scrollTo(p.model.index(p.current, std::max(0, p.line->focusedColumn())));
  if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
    return QWidget::eventFilter(object, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (!isOfGrid(key)) return QWidget::eventFilter(object, event);
  event->accept();
  if (event->type() == QEvent::KeyPress) pressGridKey(key.key());
  return true;
}

}  // namespace tessaria::qt
