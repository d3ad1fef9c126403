// What is fetched from a server on the loopback, and what is refused.

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

#include "backends/headless/headless_dispatcher.h"
#include "backends/native/http_clients.h"
#include "native/loopback_server.h"
#include "tests/support/temp_folder.h"

namespace tessera {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing_support::LoopbackServer;

constexpr HttpLimits smallLimits{5s, 1000, 3};

std::string response(const std::string& status, const std::string& headers, const std::string& body) {
  return "HTTP/1.1 " + status + "\r\nConnection: close\r\n" + headers + "\r\n" + body;
}

std::string sized(const std::string& body) {
  return "Content-Length: " + std::to_string(body.size()) + "\r\n";
}

struct Row {
  std::string target, answer, expected;
};

// Serves every request whose target is in the table, "no" to all others.
LoopbackServer::Answer routes(std::vector<Row> table) {
  return [table = std::move(table)](const std::string& head) {
    for (const Row& each : table) {
      if (head.starts_with("GET " + each.target + " HTTP/1.1\r\n")) return each.answer;
    }
    return response("500 No", "", "unexpected request");
  };
}

class HttpClientTest : public testing::Test {
 protected:
  // A proxy of this machine must not come between the client and the loopback.
  HttpClientTest() { setenv("no_proxy", "*", 1); }

  // The body as text, or "refused", when the vector must be as it was.
  std::string fetch(const std::string& url, HttpLimits limits = smallLimits) {
    HttpFetcher client(limits);
    std::vector<std::byte> body(3, std::byte{'?'});
    const bool ok = client.get(url, body);
    const std::string text(reinterpret_cast<const char*>(body.data()), body.size());
    EXPECT_TRUE(ok || text == "???");
    return ok ? text : "refused";
  }

  const TempFolder folder_;
  const std::string secret_ = folder_.write("secret", "file content");
};

TEST_F(HttpClientTest, Answers) {
  const std::string full(1000, 'x'), over(1001, 'x');
  const std::string chunk = "3E8\r\n" + full + "\r\n";
  const std::string chunked = "Transfer-Encoding: chunked\r\n";
  const auto redirect = [](const std::string& to) {
    return response("302 Found", "Location: " + to + "\r\n" + sized(""), "");
  };
  const std::vector<Row> rows = {
      {"/ok", response("200 OK", sized("body"), "body"), "body"},
      {"/zeros", response("200 OK", sized("a\0b"s), "a\0b"s), "a\0b"s},
      {"/unsized", response("200 OK", "", "until the end"), "until the end"},
      {"/404", response("404 Not Found", sized("sorry"), "sorry"), "refused"},
      {"/201", response("201 Created", sized("made"), "made"), "refused"},
      {"/206", response("206 Partial", sized("part"), "part"), "refused"},
      {"/moved", redirect("/ok"), "body"},
      {"/to-404", redirect("/404"), "refused"},
      {"/to-file", redirect("file://" + secret_), "refused"},
      {"/circle", redirect("/circle"), "refused"},
      {"/short", response("200 OK", "Content-Length: 10\r\n", "four"), "refused"},
      {"/full", response("200 OK", sized(full), full), full},
      {"/over", response("200 OK", sized(over), over), "refused"},
      {"/stated", response("200 OK", "Content-Length: 99999999999\r\n", "x"), "refused"},
      {"/over-unsized", response("200 OK", "", over), "refused"},
      {"/full-chunked", response("200 OK", chunked, chunk + "0\r\n\r\n"), full},
      {"/over-chunked", response("200 OK", chunked, chunk + "1\r\nx\r\n0\r\n\r\n"), "refused"},
      {"/no-http", "body without a head", "refused"},
  };
  for (const Row& row : rows) {
    const LoopbackServer server(routes(rows));
    EXPECT_EQ(fetch(server.url(row.target)), row.expected) << row.target;
    EXPECT_FALSE(server.heads().empty()) << row.target;
  }
}

// A scheme that libcurl would follow by itself: there must be no second connection, nor a wait for one.
TEST_F(HttpClientTest, RedirectToFtp) {
  const LoopbackServer server([](const std::string& head) {
    const std::size_t host = head.find("Host: ") + 6;
    const std::string address = head.substr(host, head.find("\r\n", host) - host);
    return response("302 Found", "Location: ftp://" + address + "/x\r\n" + sized(""), "");
  });
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(fetch(server.url("/"), {2s, 1000, 3}), "refused");
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1500ms);
  EXPECT_EQ(server.heads().size(), 1u);
}

TEST_F(HttpClientTest, Addresses) {
  const LoopbackServer server(routes({{"/ok", response("200 OK", sized("body"), "body"), ""}}));
  const std::string address = server.url("/ok");
  const std::string refused[] = {
      "",
      address.substr(7),
      "file://" + secret_,
      secret_,
      "ftp://127.0.0.1/x",
      " " + address,
      address + "\0.png"s,
      "http://127.0.0.1:1/nobody-listens",
  };
  for (const std::string& url : refused) EXPECT_EQ(fetch(url), "refused") << url;
  EXPECT_TRUE(server.heads().empty());
  EXPECT_EQ(fetch("HTTP" + address.substr(4)), "body");
}

// One client for all calls: what an answer leaves behind must not show in the next request.
TEST_F(HttpClientTest, RequestHead) {
  folder_.write(".netrc", "machine 127.0.0.1 login me password secret\n");
  setenv("HOME", folder_.file("").c_str(), 1);
  const LoopbackServer server(
      routes({{"/a", response("200 OK", "Set-Cookie: id=1; Path=/\r\n" + sized("a"), "a"), ""},
              {"/b", response("302 Found", "Set-Cookie: id=2\r\nLocation: /a\r\n" + sized(""), ""), ""},
              {"/%EC%84%9C%20%7F", response("200 OK", sized("a"), "a"), ""}}));
  HttpFetcher client(smallLimits);
  std::vector<std::byte> body;
  for (const char* target : {"/a", "/b", "/a", "/\uc11c \x7f"})
    EXPECT_TRUE(client.get(server.url(target), body)) << target;
  const std::vector<std::string> heads = server.heads();
  ASSERT_EQ(heads.size(), 5u);
  for (const std::string& head : heads) {
    for (const char* wanted : {"\r\nAccept: */*\r\n", "\r\nUser-Agent: ImageDownload\r\n"})
      EXPECT_NE(head.find(wanted), std::string::npos) << head;
    for (const char* secret : {"Cookie:", "Authorization:"})
      EXPECT_EQ(head.find(secret), std::string::npos) << head;
  }
}

TEST_F(HttpClientTest, TimeLimit) {
  const LoopbackServer::Answer silent = [](const std::string&) { return ""s; };
  const LoopbackServer::Answer circle = [](const std::string&) {
    std::this_thread::sleep_for(200ms);
    return response("302 Found", "Location: /\r\n" + sized(""), "");
  };
  for (const auto& answer : {silent, circle}) {
    const LoopbackServer server(answer);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(fetch(server.url("/"), {1s, 1000, 1000}), "refused");
    const auto spent = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(spent >= 900ms && spent < 4s);
  }
}

// The answer waits for who runs what is posted; a client that goes breaks off what is under way.
TEST_F(HttpClientTest, AnswersOnAnotherThread) {
  const LoopbackServer server([](const std::string& head) {
    return head.starts_with("GET /ok") ? response("200 OK", sized("body"), "body") : ""s;
  });
  HeadlessDispatcher dispatcher;
  std::string got;
  const auto start = std::chrono::steady_clock::now();
  {
    ThreadedHttpClient client(dispatcher);
    client.get(server.url("/ok"), [&got](const std::vector<std::byte>& body) {
      got.assign(reinterpret_cast<const char*>(body.data()), body.size());
    });
    client.get(server.url("/never"), [&got](const std::vector<std::byte>&) { got += " and more"; });
    while (got.empty() && std::chrono::steady_clock::now() - start < 10s) dispatcher.run();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
  dispatcher.run();
  EXPECT_EQ(got, "body");
}

}  // namespace
}  // namespace tessera
