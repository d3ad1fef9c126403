// HTTP by libcurl.

#pragma once

#include <chrono>
#include <cstddef>
#include <memory>

#include "platform/picture_loader.h"

namespace tessera {

struct HttpLimits {
  std::chrono::milliseconds time{30'000};     // from the call to the last byte, redirects included
  std::size_t bytes = std::size_t{64} << 20;  // of the body
  int redirects = 10;                         // followed before giving up
};

// No cookies, no .netrc, certificates are verified; redirects may not leave http and https. The proxy
// variables of the environment count. Connections are kept for the next call. One thread at a time.
class CurlHttpClient final : public HttpClient {
 public:
  explicit CurlHttpClient(HttpLimits limits = {});
  ~CurlHttpClient() override;

  // `body` is written only on success.
  bool get(const std::string& url, std::vector<std::byte>& body) override;

 private:
  struct Session;

  HttpLimits limits_;
  std::unique_ptr<Session> session_;
};

}  // namespace tessera
