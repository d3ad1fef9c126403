// HTTP by libcurl, as a call that waits.

#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace tessera {

struct HttpLimits {
  std::chrono::milliseconds time{30'000};     // from the call to the last byte, redirects included
  std::size_t bytes = std::size_t{64} << 20;  // of the body
  int redirects = 10;                         // followed before giving up
};

// No cookies, no .netrc, certificates are verified; redirects may not leave http and https. The proxy
// variables of the environment count. Connections are kept for the next call. One thread at a time.
class HttpFetcher {
 public:
  explicit HttpFetcher(HttpLimits limits = {});
  ~HttpFetcher();
  HttpFetcher(const HttpFetcher&) = delete;
  HttpFetcher& operator=(const HttpFetcher&) = delete;

  // `body` is written only on success.
  bool get(const std::string& url, std::vector<std::byte>& body);
  // Ends the call that is under way and all later ones. Any thread may call it.
  void stop() { stopped_ = true; }

 private:
  struct Session;

  HttpLimits limits_;
  std::unique_ptr<Session> session_;
  std::atomic<bool> stopped_ = false;
};

}  // namespace tessera
