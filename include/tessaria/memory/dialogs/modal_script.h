// The scripts that operate the modal windows of a test, and their faults.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria::memory {

class Dialog;

/// A queue of scripts, one for each modal show, in the order in which the windows open. Windows may
/// open while a script operates another one. Whatever a script did not expect is a fault: it is
/// reported, and the program continues as if the window had been closed.
class TESSARIA_MEMORY_API ModalScript {
 public:
  using Script = std::function<void(Dialog&)>;
  using FaultHandler = std::function<void(const String& message)>;

  explicit ModalScript(FaultHandler onFault) : onFault_(std::move(onFault)) {}
  ModalScript(const ModalScript&) = delete;
  ModalScript& operator=(const ModalScript&) = delete;

  /// Queues the script for the next window, which must have this name.
  void WillShow(StringView name, Script script) {
    waiting_.push_back({String(name), std::move(script)});
  }
  /// Operates the windows that no queued script expects, which are faults without it.
  Script Unforeseen;
  /// A window comes in front of those that are open.
  void Opened(Dialog& dialog, const String& name);
  /// The window in front is gone.
  void Closed() { open_.pop_back(); }
  /// nullptr for none.
  Dialog* InFront() const { return open_.empty() ? nullptr : open_.back(); }
  /// Takes the script for a window of that name, which has opened. Empty when there is none, which
  /// is reported as a fault.
  Script Take(const String& name);
  /// Reports what no script expected.
  void Fault(const String& message) const { onFault_(message); }
  /// Reports the scripts for which no window opened.
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
