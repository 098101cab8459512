#include "tessaria/memory/dialogs/modal_script.h"

#include <utility>

#include "tessaria/memory/dialogs/dialog.h"

namespace tessaria::memory {

/// A window in front, however its script ends.
class ModalScript::InFront {
 public:
  InFront(ModalScript& script, Dialog& dialog) : script_(script), dialog_(dialog) {
    script_.open_.push_back(&dialog_);
  }
  InFront(const InFront&) = delete;
  InFront& operator=(const InFront&) = delete;
  ~InFront() {
    dialog_.Hide();
    script_.open_.pop_back();
  }

 private:
  ModalScript& script_;
  Dialog& dialog_;
};

void ModalScript::Work(Dialog& dialog) {
  const String name(dialog.Name());
  shown_.push_back(name);
  WorkInFront(dialog, name);
  if (!open_.empty() && open_.back()->IsShown()) open_.back()->Reactivate();
}

void ModalScript::WorkInFront(Dialog& dialog, const String& name) {
  const InFront inFront(*this, dialog);
  if (waiting_.empty() && Unforeseen) {
    Run(Unforeseen, dialog);
  } else if (waiting_.empty()) {
    Fault(u"No script for the window " + name);
  } else if (waiting_.front().Name != name) {
    Fault(u"The window " + name + u" opened instead of " + waiting_.front().Name);
  } else {
    const Script work = std::move(waiting_.front().Work);
    waiting_.pop_front();
    Run(work, dialog);
  }
}

/// The script is a copy, since the queue may change while it runs.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void ModalScript::Run(const Script script, Dialog& dialog) const {
  script(dialog);
  if (dialog.IsShown()) Fault(u"The script left the window " + String(dialog.Name()) + u" open");
}

void ModalScript::Finish() {
  for (const auto& entry : std::exchange(waiting_, {}))
    Fault(u"The window " + entry.Name + u" never opened");
}

}  // namespace tessaria::memory
