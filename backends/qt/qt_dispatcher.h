// Posted work in Qt's event loop.

#pragma once

#include <QObject>
#include <utility>

#include "platform/dispatcher.h"

namespace tessera {

// Belongs to the thread that made it.
class QtDispatcher final : public Dispatcher {
 public:
  void post(std::function<void()> work) override {
    QMetaObject::invokeMethod(&receiver_, std::move(work), Qt::QueuedConnection);
  }

 private:
  QObject receiver_;  // takes what has not run along when it goes
};

}  // namespace tessera
