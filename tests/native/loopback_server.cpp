#include "native/loopback_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <stdexcept>
#include <string_view>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>
#include <utility>

namespace tessera::testing_support {
namespace {

constexpr int maxRequests = 32;
constexpr timeval patience = {10, 0};

bool sendAll(int connection, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::send(connection, text.data(), text.size(), MSG_NOSIGNAL);
    if (count <= 0) return false;
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

std::string readHead(int connection) {
  std::string head;
  char byte = 0;
  while (head.size() < 65'536 && !head.ends_with("\r\n\r\n")) {
    if (::recv(connection, &byte, 1, 0) != 1) break;
    head += byte;
  }
  return head;
}

void waitForTheOtherEnd(int connection) {
  char bytes[256];
  while (::recv(connection, bytes, sizeof bytes, 0) > 0) {
  }
}

}  // namespace

LoopbackServer::LoopbackServer(Answer answer)
    : answer_(std::move(answer)), listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
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

LoopbackServer::~LoopbackServer() {
  ::shutdown(listener_, SHUT_RDWR);
  thread_.join();
  ::close(listener_);
}

std::string LoopbackServer::url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(port_) + path;
}

std::vector<std::string> LoopbackServer::heads() const {
  const std::lock_guard lock(mutex_);
  return heads_;
}

void LoopbackServer::serve() {
  for (int i = 0; i < maxRequests; ++i) {
    const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection < 0) return;
    ::setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    ::setsockopt(connection, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    serveOne(connection);
    ::close(connection);
  }
}

void LoopbackServer::serveOne(int connection) {
  const std::string head = readHead(connection);
  {
    const std::lock_guard lock(mutex_);
    heads_.push_back(head);
  }
  if (!head.ends_with("\r\n\r\n")) return;
  const std::string answer = answer_(head);
  if (answer.empty()) return waitForTheOtherEnd(connection);
  if (!sendAll(connection, answer)) return;
  ::shutdown(connection, SHUT_WR);
  waitForTheOtherEnd(connection);
}

}  // namespace tessera::testing_support
