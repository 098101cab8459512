#include "hosts/sql/driver/bounded_call.h"

#include <future>
#include <thread>
#include <utility>

namespace tessaria::sql {

bool IsOverWithin(std::chrono::seconds time, std::function<void()> call) noexcept {
  try {
    std::packaged_task<void()> task(std::move(call));
    const std::future<void> end = task.get_future();
    std::thread(std::move(task)).detach();
    return end.wait_for(time) == std::future_status::ready;
  } catch (...) {
    return true;  // there is no thread to be had, and nothing was called
  }
}

}  // namespace tessaria::sql
