#include "hosting/connections.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace tessera {
namespace {

struct Listener {
  char name;
  std::function<void()> then;
};

std::string called(const Connections<Listener>& connections) {
  std::string order;
  connections.forEach([&order](Listener& listener) {
    order += listener.name;
    if (listener.then) listener.then();
  });
  return order;
}

TEST(Connections, CallInOrderWhileTheListChanges) {
  Connections<Listener> connections;
  Listener a{'a', {}}, b{'b', {}}, c{'c', {}}, late{'l', {}};
  connections.connect(&a);
  const std::uint32_t second = connections.connect(&b), third = connections.connect(&c);
  a.then = [&] { connections.disconnect(second); };
  EXPECT_EQ(called(connections), "ac");
  a.then = [&] { connections.connect(&late); };
  EXPECT_EQ(called(connections), "ac");
  a.then = nullptr;
  c.then = [&] { connections.disconnect(third); };
  EXPECT_EQ(called(connections), "acl");
  connections.disconnect(4711);
  EXPECT_EQ(called(connections), "al");
}

}  // namespace
}  // namespace tessera
