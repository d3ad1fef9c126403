#include "backends/native/http_fetcher.h"

#include <curl/curl.h>
#include <string_view>
#include <utility>

namespace tessera {
namespace {

// The body as it comes in; libcurl stops the transfer when a write takes fewer bytes than it was given.
struct Receiver {
  std::vector<std::byte> body;
  std::size_t limit;

  static std::size_t onBytes(char* data, std::size_t, std::size_t count, void* receiver) noexcept {
    return static_cast<Receiver*>(receiver)->take(data, count);
  }

  std::size_t take(const char* data, std::size_t count) {
    if (count > limit - body.size()) return 0;
    const auto* bytes = reinterpret_cast<const std::byte*>(data);
    body.insert(body.end(), bytes, bytes + count);
    return count;
  }
};

// libcurl would guess a scheme that is missing from the host's name, and reads up to a zero character.
bool isWebAddress(const std::string& url) {
  if (url.find('\0') != std::string::npos) return false;
  for (const std::string_view scheme : {"http://", "https://"}) {
    if (curl_strnequal(url.c_str(), scheme.data(), scheme.size())) return true;
  }
  return false;
}

// People write blanks and letters of all scripts into addresses; on the wire their bytes are escaped.
std::string escaped(const std::string& url) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string result;
  for (const char c : url) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte < 0x7F) {
      result += c;
    } else {
      result += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  return result;
}

// libcurl asks several times a second.
int isStopped(void* stopped, curl_off_t, curl_off_t, curl_off_t, curl_off_t) noexcept {
  return *static_cast<const std::atomic<bool>*>(stopped) ? 1 : 0;
}

struct Header {
  curl_slist* list;
  explicit Header(const char* line) : list(curl_slist_append(nullptr, line)) {}
  ~Header() { curl_slist_free_all(list); }
  Header(const Header&) = delete;
  Header& operator=(const Header&) = delete;
};

}  // namespace

struct HttpFetcher::Session {
  CURL* handle;
  Header accept{"Accept: */*"};

  Session() {
    static const bool initialized = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    handle = initialized ? curl_easy_init() : nullptr;
  }
  ~Session() { curl_easy_cleanup(handle); }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // All options that were understood; an unknown one must not be passed over in silence.
  bool prepare(const std::string& url, const HttpLimits& limits, Receiver& receiver,
               const std::atomic<bool>& stopped);
};

bool HttpFetcher::Session::prepare(const std::string& url, const HttpLimits& limits, Receiver& receiver,
                                   const std::atomic<bool>& stopped) {
  curl_easy_reset(handle);
  bool ok = accept.list != nullptr;
  const auto set = [&](CURLoption option, auto value) {
    ok = ok && curl_easy_setopt(handle, option, value) == CURLE_OK;
  };
  set(CURLOPT_URL, escaped(url).c_str());
  set(CURLOPT_USERAGENT, "ImageDownload");
  set(CURLOPT_PROTOCOLS_STR, "http,https");
  set(CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
  set(CURLOPT_HTTPHEADER, accept.list);
  set(CURLOPT_FOLLOWLOCATION, 1L);
  set(CURLOPT_MAXREDIRS, static_cast<long>(limits.redirects));
  set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
  set(CURLOPT_FAILONERROR, 1L);
  set(CURLOPT_NOSIGNAL, 1L);
  set(CURLOPT_TIMEOUT_MS, static_cast<long>(limits.time.count()));
  set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits.bytes));
  set(CURLOPT_WRITEFUNCTION, &Receiver::onBytes);
  set(CURLOPT_WRITEDATA, static_cast<void*>(&receiver));
  set(CURLOPT_NOPROGRESS, 0L);
  set(CURLOPT_XFERINFOFUNCTION, &isStopped);
  set(CURLOPT_XFERINFODATA, const_cast<void*>(static_cast<const void*>(&stopped)));
  return ok;
}

HttpFetcher::HttpFetcher(HttpLimits limits) : limits_(limits), session_(std::make_unique<Session>()) {}

HttpFetcher::~HttpFetcher() = default;

bool HttpFetcher::get(const std::string& url, std::vector<std::byte>& body) {
  if (stopped_ || !session_->handle || !isWebAddress(url)) return false;
  Receiver receiver{{}, limits_.bytes};
  if (!session_->prepare(url, limits_, receiver, stopped_)) return false;
  if (curl_easy_perform(session_->handle) != CURLE_OK) return false;
  long status = 0;
  curl_easy_getinfo(session_->handle, CURLINFO_RESPONSE_CODE, &status);
  if (status != 200) return false;
  body = std::move(receiver.body);
  return true;
}

}  // namespace tessera
