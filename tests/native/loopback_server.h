// A small HTTP server on 127.0.0.1 for tests of clients.

#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tessera::testing_support {

// Serves one connection after the other on its own thread, one request each, and never more than 32.
class LoopbackServer {
 public:
  // The bytes to answer a request head with; the empty text keeps the client waiting until it goes away.
  using Answer = std::function<std::string(const std::string& head)>;

  explicit LoopbackServer(Answer answer);
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  // "http://127.0.0.1:PORT" and `path`.
  std::string url(const std::string& path) const;
  // The request heads so far.
  std::vector<std::string> heads() const;

 private:
  void serve();
  void serveOne(int connection);

  Answer answer_;
  int listener_ = -1;
  int port_ = 0;
  mutable std::mutex mutex_;  // guards heads_
  std::vector<std::string> heads_;
  std::thread thread_;
};

}  // namespace tessera::testing_support
