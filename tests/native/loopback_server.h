// A small HTTP server on 127.0.0.1 for tests of clients.

#pragma once

#include <arpa/inet.h>
#include <functional>
#include <mutex>
#include <netinet/in.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <sys/time.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace tessera::testing_support {

// Serves one connection after the other on its own thread, one request each, and never more than 32.
class LoopbackServer {
 public:
  // The bytes to answer a request head with; the empty text keeps the client waiting until it goes away.
  using Answer = std::function<std::string(const std::string& head)>;

  explicit LoopbackServer(Answer answer) : answer_(std::move(answer)) {
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener_, generic, length) != 0 || ::listen(listener_, 8) != 0 ||
        ::getsockname(listener_, generic, &length) != 0) {
      throw std::runtime_error("no loopback socket");
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this] { serve(); });
  }
  ~LoopbackServer() {
    ::shutdown(listener_, SHUT_RDWR);
    thread_.join();
    ::close(listener_);
  }
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  // "http://127.0.0.1:PORT" and `path`.
  std::string url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
  }
  // The request heads so far.
  std::vector<std::string> heads() const {
    const std::lock_guard lock(mutex_);
    return heads_;
  }

 private:
  void serve() {
    constexpr timeval patience = {10, 0};
    for (int i = 0; i < 32; ++i) {
      const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
      if (connection < 0) return;
      for (const int way : {SO_RCVTIMEO, SO_SNDTIMEO})
        ::setsockopt(connection, SOL_SOCKET, way, &patience, sizeof patience);
      serveOne(connection);
      ::close(connection);
    }
  }
  void serveOne(int connection) {
    std::string head;
    char byte = 0;
    while (!head.ends_with("\r\n\r\n") && ::recv(connection, &byte, 1, 0) == 1) head += byte;
    {
      const std::lock_guard lock(mutex_);
      heads_.push_back(head);
    }
    if (!head.ends_with("\r\n\r\n")) return;
    const std::string answer = answer_(head);
    for (std::size_t sent = 0; sent < answer.size();) {
      const ssize_t count = ::send(connection, answer.data() + sent, answer.size() - sent, MSG_NOSIGNAL);
      if (count <= 0) return;
      sent += static_cast<std::size_t>(count);
    }
    if (!answer.empty()) ::shutdown(connection, SHUT_WR);
    while (::recv(connection, &byte, 1, 0) > 0) {  // until the other end is done
    }
  }

  Answer answer_;
  int listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  int port_ = 0;
  mutable std::mutex mutex_;  // guards heads_
  std::vector<std::string> heads_;
  std::thread thread_;
};

}  // namespace tessera::testing_support
