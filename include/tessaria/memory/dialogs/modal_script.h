// Who works the modal windows of a test, and what went wrong in that.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria::memory {

class Dialog;

/// A queue of scripts, one for each modal show, in the order in which the windows open. Windows
/// may open while a script works another one. Whatever a script did not foresee is a fault: it is
/// told, and the program goes on as if the window had been closed.
class TESSARIA_MEMORY_API ModalScript {
 public:
  using Script = std::function<void(Dialog&)>;
  using FaultHandler = std::function<void(const String& message)>;

  explicit ModalScript(FaultHandler onFault) : onFault_(std::move(onFault)) {}
  ModalScript(const ModalScript&) = delete;
  ModalScript& operator=(const ModalScript&) = delete;

  void WillShow(StringView name, Script script) {
    waiting_.push_back({String(name), std::move(script)});
  }
  /// Works the windows that no script waits for, which are faults without it.
  Script Unforeseen;
  /// Works a window that has just opened; when this returns it is hidden, and the window below it
  /// is told that it is in front again.
  void Work(Dialog& dialog);
  bool IsInFront(const Dialog& dialog) const { return !open_.empty() && open_.back() == &dialog; }
  void Fault(const String& message) const { onFault_(message); }
  /// Tells the scripts that no window came for.
  void Finish();

  /// The names of the windows that were shown, in order.
  const std::vector<String>& Shown() const { return shown_; }

 private:
  class InFront;
  struct Entry {
    String Name;
    Script Work;
  };

  void WorkInFront(Dialog& dialog, const String& name);
  void Run(Script script, Dialog& dialog) const;

  FaultHandler onFault_;
  std::deque<Entry> waiting_;
  std::vector<Dialog*> open_;
  std::vector<String> shown_;
};

}  // namespace tessaria::memory
