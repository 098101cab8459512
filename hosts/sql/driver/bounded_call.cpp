#include "hosts/sql/driver/bounded_call.h"

#include <thread>
#include <utility>

namespace tessaria::sql {

std::future<void> CallApart(std::function<void()> call) {
  std::packaged_task<void()> task(std::move(call));
  std::future<void> end = task.get_future();
  std::thread(std::move(task)).detach();
  return end;
}

bool IsOverWithin(std::chrono::seconds time, std::function<void()> call) noexcept {
  try {
    return CallApart(std::move(call)).wait_for(time) == std::future_status::ready;
  } catch (...) {
    return true;  // there is no thread to be had, and nothing was called
  }
}

}  // namespace tessaria::sql
