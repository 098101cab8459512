// A thread that waits for a server while the program's own thread stays alive.
#pragma once

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

namespace tessaria::sql {

/// Runs one call at a time on a thread of its own, which starts with the first.
class Worker {
 public:
  Worker() = default;
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;
  ~Worker();

  void Start(const std::function<void()>& call);
  /// Whether the call is over, which is awaited for so long at the most.
  bool IsOverWithin(std::chrono::milliseconds time);
  /// After the end: raises what the call raised.
  void Finish();

 private:
  void Loop();

  std::mutex mutex_;
  std::condition_variable changed_;
  const std::function<void()>* call_ = nullptr;  // under way; null when there is none
  std::exception_ptr failure_;
  bool ends_ = false;
  std::thread thread_;
};

}  // namespace tessaria::sql
