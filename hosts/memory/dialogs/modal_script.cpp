#include "tessaria/memory/dialogs/modal_script.h"

#include <utility>

namespace tessaria::memory {

void ModalScript::Opened(Dialog& dialog, const String& name) {
  shown_.push_back(name);
  open_.push_back(&dialog);
}

ModalScript::Script ModalScript::Take(const String& name) {
  if (waiting_.empty()) {
    if (!Unforeseen) Fault(u"No script for the window " + name);
    return Unforeseen;
  }
  if (waiting_.front().Name != name) {
    Fault(u"The window " + name + u" opened instead of " + waiting_.front().Name);
    return nullptr;
  }
  const Script script = std::move(waiting_.front().Work);
  waiting_.pop_front();
  return script;
}

void ModalScript::Finish() {
  for (const auto& entry : std::exchange(waiting_, {}))
    Fault(u"The window " + entry.Name + u" never opened");
}

}  // namespace tessaria::memory
