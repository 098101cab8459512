#include "tests/support/cutting_proxy.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace tessaria::test {
namespace {

bool SendAll(int socket, const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t sent = send(socket, data, size, MSG_NOSIGNAL);
    if (sent <= 0) return false;
    data += sent;
    size -= static_cast<std::size_t>(sent);
  }
  return true;
}

int ConnectTo(const std::string& path) {
  const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
  if (connect(server, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0) return server;
  close(server);
  return -1;
}

int ListenOnAnyPort(int& port) {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const any = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener, any, size) != 0 || listen(listener, 16) != 0 ||
      getsockname(listener, any, &size) != 0) {
    close(listener);
    throw std::runtime_error("the proxy cannot listen");
  }
  port = ntohs(address.sin_port);
  return listener;
}

}  // namespace

CuttingProxy::CuttingProxy(std::string serverSocket)
    : serverSocket_(std::move(serverSocket)), listener_(ListenOnAnyPort(port_)) {
  if (pipe2(wake_, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  thread_ = std::thread([this] { Run(); });
}

CuttingProxy::~CuttingProxy() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  Wake();
  thread_.join();
  CloseAll();
  for (const int handle : {listener_, wake_[0], wake_[1]}) close(handle);
}

void CuttingProxy::CutAfter(Side side, std::size_t bytes) {
  const std::lock_guard lock(mutex_);
  order_ = {Order::Kind::Bytes, side, bytes, {}, false};
}

void CuttingProxy::CutAt(Side side, std::vector<std::string> texts) {
  const std::lock_guard lock(mutex_);
  order_ = {Order::Kind::Texts, side, 0, std::move(texts), false};
}

void CuttingProxy::CutNow() {
  const int before = Cuts();
  {
    const std::lock_guard lock(mutex_);
    cutNow_ = true;
  }
  Wake();
  WaitForCuts(before + 1, std::chrono::seconds(5));
}

void CuttingProxy::Swallow() {
  const std::lock_guard lock(mutex_);
  order_ = {Order::Kind::Everything, {}, 0, {}, true};
}

void CuttingProxy::SwallowAt(Side side, std::string text) {
  const std::lock_guard lock(mutex_);
  order_ = {Order::Kind::Texts, side, 0, {std::move(text)}, true};
}

void CuttingProxy::CancelCut() {
  const std::lock_guard lock(mutex_);
  order_ = {};
}

void CuttingProxy::HoldNext() {
  const std::lock_guard lock(mutex_);
  holdNext_ = true;
}

void CuttingProxy::Release() {
  {
    const std::lock_guard lock(mutex_);
    holds_ = false;
  }
  Wake();
}

bool CuttingProxy::Holds() const {
  const std::lock_guard lock(mutex_);
  return holds_;
}

int CuttingProxy::Cuts() const {
  const std::lock_guard lock(mutex_);
  return cuts_;
}

bool CuttingProxy::WaitForCuts(int cuts, std::chrono::milliseconds time) const {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, time, [&] { return cuts_ >= cuts; });
}

void CuttingProxy::Wake() const {
  const char byte = 0;
  static_cast<void>(!write(wake_[1], &byte, 1));
}

void CuttingProxy::Close(Pipe& pipe) {
  close(pipe.client);
  close(pipe.server);
}

void CuttingProxy::CloseAll() {
  for (Pipe& pipe : pipes_) Close(pipe);
  pipes_.clear();
}

void CuttingProxy::Accept() {
  Pipe pipe;
  pipe.client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
  if (pipe.client < 0) return;
  pipe.server = ConnectTo(serverSocket_);
  if (pipe.server < 0) {
    close(pipe.client);
    return;
  }
  const std::lock_guard lock(mutex_);
  pipe.isHeld = std::exchange(holdNext_, false);
  holds_ = holds_ || pipe.isHeld;
  pipes_.push_back(std::move(pipe));
}

// The number of bytes to forward, and whether the line is cut after them.
std::size_t CuttingProxy::PassableOf(Pipe& pipe, Side side, const std::string& data, bool& cut) {
  const std::lock_guard lock(mutex_);
  std::string& tail = side == Side::Client ? pipe.clientTail : pipe.serverTail;
  const std::string seen = std::exchange(tail, std::string()) + data;
  if (order_.kind == Order::Kind::Everything) return 0;
  if (order_.kind == Order::Kind::None || order_.side != side) return data.size();
  std::size_t passes = data.size();
  if (order_.kind == Order::Kind::Bytes) {
    cut = order_.bytes <= data.size();
    passes = std::min(order_.bytes, data.size());
    order_.bytes -= passes;
    return passes;
  }
  std::size_t longest = 1;
  for (const std::string& text : order_.texts) {
    longest = std::max(longest, text.size());
    const std::size_t at = seen.find(text);
    if (at == std::string::npos) continue;
    const std::size_t old = seen.size() - data.size();
    passes = std::min(passes, at > old ? at - old : 0);
    cut = true;
  }
  if (cut && order_.swallows) {
    order_.kind = Order::Kind::Everything;
    cut = false;
  }
  tail = seen.substr(seen.size() - std::min(seen.size(), longest - 1));
  return passes;
}

// False when the connection has ended.
bool CuttingProxy::Pass(Pipe& pipe, Side side) {
  const bool fromClient = side == Side::Client;
  std::array<char, 65536> buffer;
  const ssize_t size =
      recv(fromClient ? pipe.client : pipe.server, buffer.data(), buffer.size(), MSG_DONTWAIT);
  if (size <= 0) return size < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
  bool cut = false;
  const std::string data(buffer.data(), static_cast<std::size_t>(size));
  const std::size_t passes = PassableOf(pipe, side, data, cut);
  const bool sent = SendAll(fromClient ? pipe.server : pipe.client, data.data(), passes);
  if (cut) {
    const std::lock_guard lock(mutex_);
    order_ = {};
    cutNow_ = true;
  }
  return sent;
}

void CuttingProxy::Run() {
  for (;;) {
    std::vector<pollfd> handles = {{wake_[0], POLLIN, 0}, {listener_, POLLIN, 0}};
    for (Pipe& pipe : pipes_) {
      pipe.isHeld = pipe.isHeld && Holds();
      handles.push_back({pipe.isHeld ? -1 : pipe.client, POLLIN, 0});
      handles.push_back({pipe.isHeld ? -1 : pipe.server, POLLIN, 0});
    }
    poll(handles.data(), handles.size(), -1);
    if (handles[0].revents != 0) {
      char byte = 0;
      static_cast<void>(!read(wake_[0], &byte, 1));
    }
    std::size_t handle = 2;
    for (auto pipe = pipes_.begin(); pipe != pipes_.end(); handle += 2) {
      const bool open = (handles[handle].revents == 0 || Pass(*pipe, Side::Client)) &&
                        (handles[handle + 1].revents == 0 || Pass(*pipe, Side::Server));
      if (!open) Close(*pipe);
      pipe = open ? std::next(pipe) : pipes_.erase(pipe);
    }
    if (handles[1].revents != 0) Accept();
    const std::lock_guard lock(mutex_);
    if (ends_) return;
    if (!std::exchange(cutNow_, false)) continue;
    CloseAll();
    ++cuts_;
    changed_.notify_all();
  }
}

}  // namespace tessaria::test
