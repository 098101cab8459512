// Threads of this program that may outlive what has started them.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <iterator>
#include <thread>

namespace tessaria::sql::test {

inline int Threads() {
  namespace fs = std::filesystem;
  return static_cast<int>(
      std::distance(fs::directory_iterator("/proc/self/task"), fs::directory_iterator()));
}

/// Waits some seconds for something that happens on another thread.
inline bool Comes(const std::function<bool()>& state) {
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::seconds(8);
  while (!state() && Clock::now() < end) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  return state();
}

}  // namespace tessaria::sql::test
