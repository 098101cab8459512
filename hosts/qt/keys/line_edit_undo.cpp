// Undo in masked edits, and inserting several characters as one change.

#include "hosts/qt/keys/line_edit.h"
#include "tessaria/comforts.h"

namespace tessaria::qt {

/// Without a mask, Qt keeps the history.
bool LineEdit::keepsHistory() const { return comforts().ClipboardKeys && !maskInUse().isEmpty(); }

EditState LineEdit::state() const {
  return {text(), selStart(), selLength(), events_ ? events_->typing() : Typing{}};
}

void LineEdit::restore(const EditState& state) {
  const Work work(this, By::Handlers);
  if (events_) events_->restoreTyping(state.typing);
  if (state.text != text()) setText(state.text);
  edited_ = false;
  setSelStart(state.selStart);
  setSelLength(state.selLength);
}

bool LineEdit::attempt(const std::function<bool()>& body) {
  const QPointer<LineEdit> self(this);
  const EditState before = state();
  const Work work(this, By::Handlers);
  const bool done = body();
  if (self && !done) restore(before);
  return self && done;
}

void LineEdit::stepThroughHistory(EditState (EditHistory::*step)(const EditState&)) {
  const QPointer<LineEdit> self(this);
  {
    const Step present(this);
    stepsInHistory_ = true;
    restore((history_.*step)(state()));
  }
  if (self) reportTextWithoutKey();
}

void LineEdit::undo() {
  if (maskInUse().isEmpty()) return QLineEdit::undo();
  if (history_.canUndo()) stepThroughHistory(&EditHistory::undo);
}

void LineEdit::redo() {
  if (maskInUse().isEmpty()) return QLineEdit::redo();
  if (history_.canRedo()) stepThroughHistory(&EditHistory::redo);
}

void LineEdit::run(EditCommand command) {
  const QPointer<LineEdit> self(this);
  byKey_ = true;
  switch (command) {
    case EditCommand::Copy:
      copy();
      break;
    case EditCommand::Cut:
      cut();
      break;
    case EditCommand::Paste:
      paste();
      break;
    case EditCommand::SelectAll:
      selectAll();
      break;
    case EditCommand::Undo:
      undo();
      break;
    case EditCommand::Redo:
      redo();
      break;
    case EditCommand::None:
      break;
  }
  if (self) byKey_ = false;
}

}  // namespace tessaria::qt
