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
  /// A window comes in front of those that are open.
  void Opened(Dialog& dialog, const String& name);
  /// The window in front is gone.
  void Closed() { open_.pop_back(); }
  /// nullptr for none.
  Dialog* InFront() const { return open_.empty() ? nullptr : open_.back(); }
  /// Takes the script that works a window of that name, which has opened. Nothing when there is
  /// none: a fault, which is told.
  Script Take(const String& name);
  void Fault(const String& message) const { onFault_(message); }
  /// Tells the scripts that no window came for.
  void Finish();

  /// The names of the windows that were shown, in order.
  const std::vector<String>& Shown() const { return shown_; }

 private:
  struct Entry {
    String Name;
    Script Work;
  };

  FaultHandler onFault_;
  std::deque<Entry> waiting_;
  std::vector<Dialog*> open_;
  std::vector<String> shown_;
};

}  // namespace tessaria::memory
