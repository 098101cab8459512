// Text that reaches the edit without a key: clipboard, menu, drop, middle mouse button.

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <optional>

#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/keys/line_edit.h"
#include "hosts/qt/keys/masked_paste.h"
#include "hosts/qt/keys/paste_refusal.h"
#include "tessaria/comforts.h"

namespace tessaria::qt {
namespace {

void addEntry(QMenu& menu, const QString& text, bool enabled, LineEdit* edit,
              void (*action)(LineEdit&)) {
  QAction* entry = menu.addAction(text);
  entry->setEnabled(enabled);
  QObject::connect(entry, &QAction::triggered, edit, [edit, action] { action(*edit); });
}

/// The context menu of an edit for which Qt's own would bypass the rules. It offers undo only where
/// a history is kept.
QMenu* ownMenu(LineEdit* edit) {
  auto* menu = new QMenu(edit);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const bool selected = edit->hasSelectedText();
  const bool visible = edit->echoMode() == QLineEdit::Normal;
  const bool pastable = !QApplication::clipboard()->text().isEmpty();
  const auto cut = [](LineEdit& e) { e.cut(); };
  const auto copy = [](LineEdit& e) { e.copy(); };
  const auto paste = [](LineEdit& e) { e.paste(); };
  const auto remove = [](LineEdit& e) {
    const QPointer<LineEdit> alive(&e);
    if (e.typeDelete() && alive) alive->reportTextWithoutKey();
  };
  const auto undo = [](LineEdit& e) { e.undo(); };
  const auto redo = [](LineEdit& e) { e.redo(); };
  const auto selectAll = [](LineEdit& e) { e.selectAll(); };
  if (comforts().ClipboardKeys || edit->maskInUse().isEmpty()) {
    addEntry(*menu, QStringLiteral("&Desfazer"), edit->hasUndo(), edit, undo);
    addEntry(*menu, QStringLiteral("&Refazer"), edit->hasRedo(), edit, redo);
    menu->addSeparator();
  }
  addEntry(*menu, QStringLiteral("Recor&tar"), selected && visible, edit, cut);
  addEntry(*menu, QStringLiteral("&Copiar"), selected && visible, edit, copy);
  addEntry(*menu, QStringLiteral("Co&lar"), pastable, edit, paste);
  addEntry(*menu, QStringLiteral("E&xcluir"), selected, edit, remove);
  menu->addSeparator();
  addEntry(*menu, QStringLiteral("&Selecionar tudo"), !edit->text().isEmpty(), edit, selectAll);
  return menu;
}

}  // namespace

bool LineEdit::hasUndo() const {
  return maskInUse().isEmpty() ? isUndoAvailable() : history_.canUndo();
}

bool LineEdit::hasRedo() const {
  return maskInUse().isEmpty() ? isRedoAvailable() : history_.canRedo();
}

void LineEdit::paste() { pasteFrom(QClipboard::Clipboard); }

/// Pastes what fits into a plain text as Qt does.
void LineEdit::pasteFrom(QClipboard::Mode mode) {
  const Step step(this);
  const QString text = QApplication::clipboard()->text(mode);
  if (!maskInUse().isEmpty()) return pasteThroughMask(*this, text);
  if (!hasRoomFor(text) && comforts().PasteWholeOrNothing) return tellRefusedPaste(*this);
  if (mode == QClipboard::Clipboard && hasRoomFor(text)) return QLineEdit::paste();
  insertFitting(text);
}

void LineEdit::cut() {
  const Step step(this);
  if (maskInUse().isEmpty()) return QLineEdit::cut();
  if (!hasSelectedText() || echoMode() != QLineEdit::Normal) return;
  copy();
  if (typeDelete()) reportTextWithoutKey();
}

void LineEdit::contextMenuEvent(QContextMenuEvent* event) {
  if (maskInUse().isEmpty() && !comforts().PasteWholeOrNothing)
    return QLineEdit::contextMenuEvent(event);
  ownMenu(this)->popup(event->globalPos());
  event->accept();
}

namespace {

/// Text that a drop or the middle mouse button inserts at a position of the edit.
struct BroughtText {
  QPoint point;
  QString text;
};

std::optional<BroughtText> textBroughtBy(QEvent* event) {
  if (event->type() == QEvent::Drop) {
    const auto* drop = static_cast<QDropEvent*>(event);
    return BroughtText{drop->position().toPoint(), drop->mimeData()->text()};
  }
  const auto* release = static_cast<QMouseEvent*>(event);
  const QClipboard* clipboard = QApplication::clipboard();
  if (release->button() != Qt::MiddleButton || !clipboard->supportsSelection()) return {};
  return BroughtText{release->position().toPoint(), clipboard->text(QClipboard::Selection)};
}

/// Whether a drop only moves text within the edit.
bool movesWithin(const LineEdit& edit, const QEvent& event) {
  if (event.type() != QEvent::Drop) return false;
  const auto& drop = static_cast<const QDropEvent&>(event);
  return drop.source() == &edit && drop.dropAction() == Qt::MoveAction;
}

}  // namespace

/// Handles a drop or the middle mouse button. Returns false if Qt may handle it: there is no mask,
/// and the text fits.
bool LineEdit::takesTextWithoutKey(QEvent* event) {
  const auto brought = textBroughtBy(event);
  if (!brought) return false;
  const bool masked = !maskInUse().isEmpty();
  const bool fits = limit_ == 0 || text().size() + brought->text.size() <= limit_;
  if (!masked && (fits || movesWithin(*this, *event))) return false;
  // A move would remove the text from its source, which may be this edit.
  if (event->type() == QEvent::Drop) static_cast<QDropEvent*>(event)->setDropAction(Qt::CopyAction);
  event->accept();
  if (!masked && comforts().PasteWholeOrNothing) {
    tellRefusedPaste(*this);
    return true;
  }
  setSelStart(cursorPositionAt(brought->point));
  if (masked)
    pasteThroughMask(*this, brought->text);
  else
    insertFitting(brought->text);
  return true;
}

}  // namespace tessaria::qt
