#include "tests/qt_dialogs/surface_hands.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTreeWidget>
#include <map>

#include "hosts/qt/conversion/units.h"
#include "hosts/qt/widgets/tool_bar.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/qt/variants.h"
#include "tests/qt/operator.h"

namespace tessaria::qt::tests {
namespace {

using contract::SurfaceKey;

constexpr int kMnemonicShown = 150;  // milliseconds that a button is shown pressed
constexpr int kIntoCheckBox = 9;     // pixels from the left edge of the row or the widget

/// A mouse event as the window system sends it.
void send(QWidget* widget, QEvent::Type type, QPoint place, Qt::MouseButtons buttons) {
  QMouseEvent event(type, place, widget->mapToGlobal(place),
                    type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                    Qt::NoModifier);
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(widget, &event);
}

void clickAt(QWidget* widget, QPoint place) {
  const QPointer<QWidget> alive(widget);
  if (!widget->isVisible()) return;
  send(widget, QEvent::MouseButtonPress, place, Qt::LeftButton);
  if (alive) send(widget, QEvent::MouseButtonRelease, place, Qt::NoButton);
  settleEvents();
}

int keyOf(SurfaceKey key) {
  static const std::map<SurfaceKey, int> keys = {{SurfaceKey::Tab, Qt::Key_Tab},
                                                 {SurfaceKey::BackTab, Qt::Key_Backtab},
                                                 {SurfaceKey::Enter, Qt::Key_Return},
                                                 {SurfaceKey::Space, Qt::Key_Space},
                                                 {SurfaceKey::Backspace, Qt::Key_Backspace},
                                                 {SurfaceKey::Left, Qt::Key_Left},
                                                 {SurfaceKey::Right, Qt::Key_Right},
                                                 {SurfaceKey::Up, Qt::Key_Up},
                                                 {SurfaceKey::Down, Qt::Key_Down}};
  return keys.at(key);
}

/// The part of a widget that is clicked, and where.
QWidget* partOf(QWidget* widget) {
  if (auto* field = qobject_cast<TsText*>(widget)) return editOf(*field);
  if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) return area->viewport();
  if (auto* bar = qobject_cast<DialogToolBar*>(widget)) return &bar->button();
  auto* combo = qobject_cast<QComboBox*>(widget);
  return combo && combo->lineEdit() ? combo->lineEdit() : widget;
}

QRect rowOf(QTreeWidget& list, Long row) {
  return list.visualRect(list.model()->index(int(row) - 1, 0));
}

}  // namespace

template <class Widget>
Widget* SurfaceHands::find(StringView name) const {
  return window_->findChild<Widget*>(toQt(name));
}

QHeaderView* SurfaceHands::headerOf(StringView grid) const {
  return find(grid)->findChild<QTableView*>()->horizontalHeader();
}

// --- Keys ---------------------------------------------------------------------------------------

void SurfaceHands::Press(SurfaceKey key) {
  if (key == SurfaceKey::Space) return Type(u" ");
  press(*window_, keyOf(key), key == SurfaceKey::BackTab ? Qt::ShiftModifier : Qt::NoModifier);
  settleEvents();
}

void SurfaceHands::Type(const String& text) {
  type(*window_, toQt(text));
  settleEvents();
}

void SurfaceHands::Mnemonic(char16_t letter) {
  press(*window_, QChar(letter).toUpper().unicode(), Qt::AltModifier);
  QTest::qWait(kMnemonicShown);
}

// --- Mouse --------------------------------------------------------------------------------------

void SurfaceHands::Click(StringView name) {
  QWidget* part = partOf(find(name));
  const bool hasMark = part->inherits("QCheckBox") || part->inherits("QRadioButton");
  const QPoint middle = part->rect().center();
  clickAt(part, hasMark ? QPoint(kIntoCheckBox, middle.y()) : middle);
}

/// The list is dropped down by the mouse, and the row chosen by keys.
void SurfaceHands::Choose(StringView list, Long row) {
  auto* combo = find<QComboBox>(list);
  clickAt(combo, QPoint(combo->width() - kIntoCheckBox, combo->height() / 2));
  const QPointer<QAbstractItemView> view(combo->view());
  if (!view || !view->isVisible()) return;
  QTest::keyClick(view, Qt::Key_Home);
  for (Long i = 0; i < row; ++i) QTest::keyClick(view, Qt::Key_Down);
  QTest::keyClick(view, Qt::Key_Return);
  activate();
}

/// The offscreen platform leaves no window active after a popup.
void SurfaceHands::activate() {
  settleEvents();
  if (window_ && window_->isVisible()) window_->activateWindow();
  settleEvents();
}

void SurfaceHands::ClickTab(StringView strip, Long page) {
  QTabBar* bar = find<QTabWidget>(strip)->tabBar();
  clickAt(bar, bar->tabRect(int(page)).center());
}

void SurfaceHands::ClickRow(StringView list, Long row) {
  auto* view = find<QTreeWidget>(list);
  clickAt(view->viewport(), rowOf(*view, row).center());
}

void SurfaceHands::DoubleClickRow(StringView list, Long row) {
  ClickRow(list, row);
  auto* view = find<QTreeWidget>(list);
  const QPoint place = rowOf(*view, row).center();
  send(view->viewport(), QEvent::MouseButtonDblClick, place, Qt::LeftButton);
  send(view->viewport(), QEvent::MouseButtonRelease, place, Qt::NoButton);
  settleEvents();
}

void SurfaceHands::CheckRow(StringView list, Long row) {
  auto* view = find<QTreeWidget>(list);
  const QRect place = rowOf(*view, row);
  clickAt(view->viewport(), QPoint(place.left() + kIntoCheckBox, place.center().y()));
}

// A hidden column has no place to aim at.
void SurfaceHands::ClickHeader(StringView grid, Long column) {
  QHeaderView* header = headerOf(grid);
  if (header->isSectionHidden(int(column))) return;
  const int middle =
      header->sectionViewportPosition(int(column)) + header->sectionSize(int(column)) / 2;
  clickAt(header->viewport(), QPoint(middle, header->height() / 2));
}

void SurfaceHands::ResizeColumn(StringView grid, Long column, Long twips) {
  QHeaderView* header = headerOf(grid);
  if (header->isSectionHidden(int(column))) return;
  QWidget* face = header->viewport();
  const int left = header->sectionViewportPosition(int(column));
  const QPoint edge(left + header->sectionSize(int(column)) - 1, header->height() / 2);
  const QPoint end(left + pixelsX(twips, *face) - 1, edge.y());
  send(face, QEvent::MouseMove, edge, Qt::NoButton);
  send(face, QEvent::MouseButtonPress, edge, Qt::LeftButton);
  send(face, QEvent::MouseMove, (edge + end) / 2, Qt::LeftButton);
  send(face, QEvent::MouseMove, end, Qt::LeftButton);
  send(face, QEvent::MouseButtonRelease, end, Qt::NoButton);
  settleEvents();
}

void SurfaceHands::ClickMenu(StringView bar, Long position) {
  MenuButton* button = &find<DialogToolBar>(bar)->button();
  if (!button->isEnabled()) return;
  QMenu* menu = button->menu();
  menu->popup(button->mapToGlobal(button->rect().bottomLeft()));
  settleEvents();
  const QRect entry = menu->actionGeometry(menu->actions().at(int(position) - 1));
  send(menu, QEvent::MouseMove, entry.center(), Qt::NoButton);
  clickAt(menu, entry.center());
  activate();
}

/// A day of the month that is shown.
void SurfaceHands::PickDay(StringView calendar, Date day) {
  auto* view = find(calendar)->findChild<QAbstractItemView*>();
  const QDate wanted = toQVariant(Variant(day)).toDate();
  int shown = 0;  // of that month
  for (int cell = view->model()->columnCount(); shown < wanted.day(); ++cell) {
    const QModelIndex index = view->model()->index(cell / view->model()->columnCount(),
                                                   cell % view->model()->columnCount());
    if (!index.isValid()) return;
    if (index.data().toInt() == shown + 1) ++shown;
    if (shown == wanted.day()) clickAt(view->viewport(), view->visualRect(index).center());
  }
}

void SurfaceHands::CloseByFrame() {
  closeByFrame(*window_);
  settleEvents();
}

// --- What the operator sees ---------------------------------------------------------------------

/// Parts of a widget have names of their own.
String SurfaceHands::Focused() {
  for (QWidget* w = window_->focusWidget(); w && w != window_; w = w->parentWidget())
    for (const auto& widget : contract::kContractWidgets)
      if (w->objectName() == toQt(widget.Name)) return String(widget.Name);
  return {};
}

String SurfaceHands::CellText(StringView grid, Long column) {
  const auto* view = find(grid)->findChild<QTableView*>();
  return fromQt(view->currentIndex().siblingAtColumn(int(column)).data().toString());
}

}  // namespace tessaria::qt::tests
