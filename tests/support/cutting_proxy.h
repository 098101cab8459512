// A proxy between a program and its database server that cuts the line at a chosen byte.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tessaria::test {

/// Listens on a port of this machine and forwards every connection to a server's socket. A cut
/// closes all connections at once, like a broken network; later connections work until the next
/// cut. Runs on its own thread until it is destroyed.
class CuttingProxy {
 public:
  enum class Side { Client, Server };

  /// `serverSocket` is the path of the server's socket. Throws std::runtime_error when the proxy
  /// cannot listen.
  explicit CuttingProxy(std::string serverSocket);
  CuttingProxy(const CuttingProxy&) = delete;
  CuttingProxy& operator=(const CuttingProxy&) = delete;
  ~CuttingProxy();

  /// On 127.0.0.1.
  int Port() const { return port_; }

  /// Cuts once after `bytes` more bytes from that side, counted over all connections. The bytes
  /// after them are not forwarded. Replaces a pending order.
  void CutAfter(Side side, std::size_t bytes);
  /// Cuts once where one of the texts appears in the bytes of that side. What comes before the text
  /// is forwarded, the text itself is not (when it arrives in pieces, the first piece may be).
  /// The other side's answer is not forwarded either. Replaces a pending order.
  void CutAt(Side side, std::vector<std::string> texts);
  /// Cuts now.
  void CutNow();
  /// From now on takes in everything and forwards nothing, like a network that swallows packets.
  /// New connections are accepted.
  void Swallow();
  /// The same from where that text appears in the bytes of that side.
  void SwallowAt(Side side, std::string text);
  /// Forwards everything again.
  void CancelCut();

  /// Accepts the next connection and forwards nothing of it until `Release`, like a busy network.
  /// The others go on.
  void HoldNext();
  /// Forwards what was held, and all that follows.
  void Release();
  /// Whether a connection is being held.
  bool Holds() const;

  /// The number of cuts so far.
  int Cuts() const;
  /// Waits for that number of cuts; false when the time is over first.
  bool WaitForCuts(int cuts, std::chrono::milliseconds time) const;

 private:
  struct Pipe {
    int client = -1, server = -1;
    bool isHeld = false;
    std::string clientTail, serverTail;  // the last bytes, for texts that arrive in pieces
  };
  struct Order {
    enum class Kind { None, Bytes, Texts, Everything } kind = Kind::None;
    Side side = Side::Client;
    std::size_t bytes = 0;
    std::vector<std::string> texts;
    bool swallows = false;  // instead of cutting
  };

  void Run();
  void Accept();
  bool Pass(Pipe& pipe, Side side);
  std::size_t PassableOf(Pipe& pipe, Side side, const std::string& data, bool& cut);
  void CloseAll();
  static void Close(Pipe& pipe);
  void Wake() const;

  std::string serverSocket_;
  int port_ = 0, listener_ = -1;
  int wake_[2] = {-1, -1};
  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  Order order_;
  int cuts_ = 0;
  bool cutNow_ = false, ends_ = false;
  bool holdNext_ = false, holds_ = false;
  std::list<Pipe> pipes_;  // used by the thread only
  std::thread thread_;
};

}  // namespace tessaria::test
