// A thread that waits for a server while the program's own thread stays alive.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

namespace tessaria::sql {

/// Runs one call at a time on a thread of its own, which starts with the first.
class Worker {
 public:
  Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker();

  /// What the call owns is let go of before it counts as over.
  void Start(std::function<void()> call);
  /// Whether the call is over, which is awaited for so long at the most.
  bool IsOverWithin(std::chrono::milliseconds time);
  /// After the end: raises what the call raised.
  void Finish();
  /// Leaves the call under way to itself: it owns all that it uses, and neither the worker nor the
  /// end of the program waits for it.
  void Leave();

 private:
  struct Desk;

  static void Loop(const std::shared_ptr<Desk>& desk);

  std::shared_ptr<Desk> desk_;  // shared with the thread, which may be left
  std::thread thread_;
};

}  // namespace tessaria::sql
