#include "hosts/sql/session/worker.h"

#include <utility>

namespace tessaria::sql {

Worker::~Worker() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void Worker::Start(const std::function<void()>& call) {
  if (!thread_.joinable()) thread_ = std::thread([this] { Loop(); });
  {
    const std::lock_guard lock(mutex_);
    call_ = &call;
    failure_ = nullptr;
  }
  changed_.notify_all();
}

bool Worker::IsOverWithin(std::chrono::milliseconds time) {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, time, [this] { return call_ == nullptr; });
}

void Worker::Finish() {
  if (const auto failure = std::exchange(failure_, nullptr)) std::rethrow_exception(failure);
}

void Worker::Loop() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return call_ != nullptr || ends_; });
    if (ends_) return;
    lock.unlock();
    try {
      (*call_)();
    } catch (...) {
      failure_ = std::current_exception();
    }
    lock.lock();
    call_ = nullptr;
    changed_.notify_all();
  }
}

}  // namespace tessaria::sql
