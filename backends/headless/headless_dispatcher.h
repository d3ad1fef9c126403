// Posted work that waits until the host lets it run.

#pragma once

#include <deque>
#include <mutex>
#include <utility>

#include "platform/dispatcher.h"

namespace tessera {

class HeadlessDispatcher final : public Dispatcher {
 public:
  void post(std::function<void()> work) override {
    const std::scoped_lock lock(mutex_);
    posted_.push_back(std::move(work));
  }

  // For the grid's thread: until nothing is left, with what the work itself posts. Work may call it again.
  void run() {
    while (const auto work = next()) work();
  }

 private:
  std::function<void()> next() {
    const std::scoped_lock lock(mutex_);
    if (posted_.empty()) return nullptr;
    auto work = std::move(posted_.front());
    posted_.pop_front();
    return work;
  }

  std::mutex mutex_;
  std::deque<std::function<void()>> posted_;
};

}  // namespace tessera
