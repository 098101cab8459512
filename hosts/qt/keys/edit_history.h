// The states of a masked edit before each change of the operator, for undo and redo.
#pragma once

#include <QString>
#include <vector>

#include "tessaria/tstext.h"

namespace tessaria::qt {

/// The state that one undo restores.
struct EditState {
  QString text;
  int selStart = 0;
  int selLength = 0;
  Typing typing;  ///< the typed text behind the box

  bool hasTextOf(const EditState& other) const {
    return text == other.text && typing.Texto == other.typing.Texto;
  }
};

/// The states for undo and redo. A new change discards the states for redo.
class EditHistory {
 public:
  void clear() { before_.clear(), after_.clear(); }
  /// Notes that the operator has changed the edit; `before` is its former state.
  void changed(const EditState& before);
  bool canUndo() const { return !before_.empty(); }
  bool canRedo() const { return !after_.empty(); }
  /// The state to restore, which replaces `now`.
  EditState undo(const EditState& now) { return step(before_, after_, now); }
  EditState redo(const EditState& now) { return step(after_, before_, now); }

 private:
  using States = std::vector<EditState>;
  static EditState step(States& from, States& to, const EditState& now);

  States before_;
  States after_;
};

}  // namespace tessaria::qt
