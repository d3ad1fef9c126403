#include "backends/native/http_clients.h"

#include <utility>

namespace tessera {
namespace {

void post(Dispatcher& dispatcher, std::vector<std::byte> body, HttpClient::Answer answer) {
  dispatcher.post(
      [body = std::move(body), answer = std::move(answer)]() mutable { answer(std::move(body)); });
}

}  // namespace

void WaitingHttpClient::get(const std::string& url, Answer answer) {
  std::vector<std::byte> body;
  fetcher_.get(url, body);
  post(dispatcher_, std::move(body), std::move(answer));
}

ThreadedHttpClient::~ThreadedHttpClient() {
  {
    const std::scoped_lock lock(mutex_);
    ending_ = true;
  }
  fetcher_.stop();
  changed_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void ThreadedHttpClient::get(const std::string& url, Answer answer) {
  const std::scoped_lock lock(mutex_);
  requests_.push_back({url, std::move(answer)});
  if (!thread_.joinable()) thread_ = std::thread([this] { serve(); });
  changed_.notify_one();
}

void ThreadedHttpClient::serve() {
  for (;;) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ending_ || !requests_.empty(); });
    if (ending_) return;
    Request request = std::move(requests_.front());
    requests_.pop_front();
    lock.unlock();
    std::vector<std::byte> body;
    fetcher_.get(request.url, body);
    lock.lock();
    if (!ending_) post(dispatcher_, std::move(body), std::move(request.answer));
  }
}

}  // namespace tessera
