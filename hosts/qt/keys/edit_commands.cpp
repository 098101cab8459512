#include "hosts/qt/keys/edit_commands.h"

#include "tessaria/comforts.h"

namespace tessaria::qt {
namespace {

struct Keys {
  QKeySequence::StandardKey standard;
  EditCommand command;
};

constexpr Keys kKeys[] = {
    {QKeySequence::Copy, EditCommand::Copy},           {QKeySequence::Cut, EditCommand::Cut},
    {QKeySequence::Paste, EditCommand::Paste},         {QKeySequence::Undo, EditCommand::Undo},
    {QKeySequence::SelectAll, EditCommand::SelectAll}, {QKeySequence::Redo, EditCommand::Redo},
};

/// Not a standard key on every platform.
bool isControlY(const QKeyEvent& event) {
  return event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier;
}

}  // namespace

EditCommand commandOf(const QKeyEvent& event) {
  if (!comforts().ClipboardKeys) return EditCommand::None;
  if (isControlY(event)) return EditCommand::Redo;
  for (const Keys& keys : kKeys)
    // Not const in Qt, but changes nothing.
    if (const_cast<QKeyEvent&>(event).matches(keys.standard)) return keys.command;
  return EditCommand::None;
}

}  // namespace tessaria::qt
