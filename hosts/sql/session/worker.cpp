#include "hosts/sql/session/worker.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

namespace tessaria::sql {

/// Where calls are handed over.
struct Worker::Desk {
  std::mutex mutex;
  std::condition_variable changed;
  std::function<void()> call;  // until the thread takes it
  bool isBusy = false;
  std::exception_ptr failure;
  bool ends = false;

  void End() {
    {
      const std::lock_guard lock(mutex);
      ends = true;
    }
    changed.notify_all();
  }
};

Worker::Worker() : desk_(std::make_shared<Desk>()) {}

Worker::~Worker() {
  if (!thread_.joinable()) return;
  desk_->End();
  thread_.join();
}

void Worker::Start(std::function<void()> call) {
  if (!thread_.joinable()) thread_ = std::thread([desk = desk_] { Loop(desk); });
  {
    const std::lock_guard lock(desk_->mutex);
    desk_->call = std::move(call);
    desk_->isBusy = true;
    desk_->failure = nullptr;
  }
  desk_->changed.notify_all();
}

bool Worker::IsOverWithin(std::chrono::milliseconds time) {
  std::unique_lock lock(desk_->mutex);
  return desk_->changed.wait_for(lock, time, [this] { return !desk_->isBusy; });
}

void Worker::Finish() {
  if (const auto failure = std::exchange(desk_->failure, nullptr)) std::rethrow_exception(failure);
}

void Worker::Leave() {
  auto left = std::exchange(desk_, std::make_shared<Desk>());
  thread_.detach();
  left->End();
}

void Worker::Loop(const std::shared_ptr<Desk>& desk) {
  std::unique_lock lock(desk->mutex);
  for (;;) {
    desk->changed.wait(lock, [&] { return desk->call || desk->ends; });
    if (!desk->call) return;
    auto call = std::exchange(desk->call, nullptr);
    lock.unlock();
    std::exception_ptr failure;
    try {
      call();
    } catch (...) {
      failure = std::current_exception();
    }
    call = nullptr;
    lock.lock();
    desk->failure = std::move(failure);
    desk->isBusy = false;
    desk->changed.notify_all();
  }
}

}  // namespace tessaria::sql
