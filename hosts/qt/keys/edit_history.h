// What a masked edit was before each change of the operator, for undo and redo.
#pragma once

#include <QString>
#include <vector>

#include "tessaria/tstext.h"

namespace tessaria::qt {

/// All that an edit takes back at once.
struct EditState {
  QString text;
  int selStart = 0;
  int selLength = 0;
  Typing typing;  ///< what stands behind the box

  bool hasTextOf(const EditState& other) const {
    return text == other.text && typing.Texto == other.typing.Texto;
  }
};

/// States in both directions. A new change ends what could be done again.
class EditHistory {
 public:
  void clear() { before_.clear(), after_.clear(); }
  /// The operator has changed the edit, which was `before`.
  void changed(const EditState& before);
  bool canUndo() const { return !before_.empty(); }
  bool canRedo() const { return !after_.empty(); }
  /// The state to go to from `now`.
  EditState undo(const EditState& now) { return step(before_, after_, now); }
  EditState redo(const EditState& now) { return step(after_, before_, now); }

 private:
  using States = std::vector<EditState>;
  static EditState step(States& from, States& to, const EditState& now);

  States before_;
  States after_;
};

}  // namespace tessaria::qt
