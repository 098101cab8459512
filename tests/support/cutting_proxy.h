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

/// Listens on a port of this machine and passes every connection on to a server's socket. A cut
/// closes all connections at once, as a broken network does; connections that are made later
/// pass until the next cut. Works on a thread of its own until it is destroyed.
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

  /// Cuts once after so many more bytes from that side, counted over all connections. The bytes
  /// behind them do not get through. Takes the place of an order that still waits.
  void CutAfter(Side side, std::size_t bytes);
  /// Cuts once where one of the texts appears in the bytes of that side: what comes before it gets
  /// through, the text itself does not (of a text that arrives in pieces, the first piece may).
  /// The other side's answer does not get through either. Takes the place of an order that waits.
  void CutAt(Side side, std::vector<std::string> texts);
  /// Cuts now.
  void CutNow();
  /// Lets everything through again.
  void CancelCut();

  /// Cuts so far.
  int Cuts() const;
  /// Whether there have been so many cuts before the time is over.
  bool WaitForCuts(int cuts, std::chrono::milliseconds time) const;

 private:
  struct Pipe {
    int client = -1, server = -1;
    std::string clientTail, serverTail;  // last bytes, for texts that arrive in pieces
  };
  struct Order {
    enum class Kind { None, Bytes, Texts } kind = Kind::None;
    Side side = Side::Client;
    std::size_t bytes = 0;
    std::vector<std::string> texts;
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
  std::list<Pipe> pipes_;  // of the thread
  std::thread thread_;
};

}  // namespace tessaria::test
