// The two ways to wait for an answer of the network.

#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

#include "backends/native/http_fetcher.h"
#include "platform/dispatcher.h"
#include "platform/picture_loader.h"

namespace tessera {

// Waits inside of the call and posts the answer, so that whoever runs what is posted has it at once.
class WaitingHttpClient final : public HttpClient {
 public:
  // The dispatcher is borrowed.
  explicit WaitingHttpClient(Dispatcher& dispatcher) : dispatcher_(dispatcher) {}
  void get(const std::string& url, Answer answer) override;

 private:
  Dispatcher& dispatcher_;
  HttpFetcher fetcher_;
};

// Waits on a thread of its own, for one address after the other. What is under way when the client goes is
// broken off.
class ThreadedHttpClient final : public HttpClient {
 public:
  // The dispatcher is borrowed.
  explicit ThreadedHttpClient(Dispatcher& dispatcher) : dispatcher_(dispatcher) {}
  ~ThreadedHttpClient() override;
  ThreadedHttpClient(const ThreadedHttpClient&) = delete;
  ThreadedHttpClient& operator=(const ThreadedHttpClient&) = delete;
  void get(const std::string& url, Answer answer) override;

 private:
  struct Request {
    std::string url;
    Answer answer;
  };
  void serve();

  Dispatcher& dispatcher_;
  HttpFetcher fetcher_;  // of the thread, but for its stop
  std::mutex mutex_;     // for all below
  std::condition_variable changed_;
  std::deque<Request> requests_;
  bool ending_ = false;
  std::thread thread_;  // runs from the first request on
};

}  // namespace tessera
