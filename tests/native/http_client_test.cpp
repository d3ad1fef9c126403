// What is fetched from a server on the loopback, and what is refused.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

#include "backends/headless/headless_dispatcher.h"
#include "backends/native/http_clients.h"
#include "native/loopback_server.h"

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

// Serves every request whose target is in the table, "no" to all others.
struct Route {
  std::string target;
  std::string answer;
};

LoopbackServer::Answer routes(std::vector<Route> table) {
  return [table = std::move(table)](const std::string& head) {
    for (const Route& each : table) {
      if (head.starts_with("GET " + each.target + " HTTP/1.1\r\n")) return each.answer;
    }
    return response("500 No", "", "unexpected request");
  };
}

class HttpClientTest : public testing::Test {
 protected:
  void SetUp() override {
    // A proxy of this machine must not come between the client and the loopback.
    setenv("no_proxy", "*", 1);
    folder_ = std::filesystem::temp_directory_path() / ("tessera-http-" + std::to_string(getpid()));
    std::filesystem::create_directory(folder_);
  }
  void TearDown() override { std::filesystem::remove_all(folder_); }

  // The body as text, or "refused", when the vector must be as it was.
  std::string fetch(const std::string& url, HttpLimits limits = smallLimits) {
    HttpFetcher client(limits);
    std::vector<std::byte> body(3, std::byte{'?'});
    const bool ok = client.get(url, body);
    const std::string text(reinterpret_cast<const char*>(body.data()), body.size());
    if (ok) return text;
    EXPECT_EQ(text, "???");
    return "refused";
  }

  std::filesystem::path folder_;
};

TEST_F(HttpClientTest, Answers) {
  const std::string secret = (folder_ / "secret").string();
  std::ofstream(secret) << "file content";
  const std::string full(1000, 'x');
  const std::string over(1001, 'x');
  const std::string chunk = "3E8\r\n" + full + "\r\n";
  const std::string chunked = "Transfer-Encoding: chunked\r\n";
  const auto redirect = [](const std::string& to) {
    return response("302 Found", "Location: " + to + "\r\n" + sized(""), "");
  };
  struct Row {
    std::string target;
    std::string answer;
    std::string expected;
  };
  const std::vector<Row> rows = {
      {"/ok", response("200 OK", sized("body"), "body"), "body"},
      {"/zeros", response("200 OK", sized("a\0b"s), "a\0b"s), "a\0b"s},
      {"/nothing", response("200 OK", sized(""), ""), ""},
      {"/unsized", response("200 OK", "", "until the end"), "until the end"},
      {"/404", response("404 Not Found", sized("sorry"), "sorry"), "refused"},
      {"/500", response("500 Broken", sized("sorry"), "sorry"), "refused"},
      {"/201", response("201 Created", sized("made"), "made"), "refused"},
      {"/204", response("204 No Content", "", ""), "refused"},
      {"/206", response("206 Partial", sized("part"), "part"), "refused"},
      {"/300", response("300 Choices", sized("choose"), "choose"), "refused"},
      {"/moved", redirect("/ok"), "body"},
      {"/twice", redirect("/moved"), "body"},
      {"/to-404", redirect("/404"), "refused"},
      {"/to-file", redirect("file://" + secret), "refused"},
      {"/to-data", redirect("data:text/plain,x"), "refused"},
      {"/circle", redirect("/circle"), "refused"},
      {"/short", response("200 OK", "Content-Length: 10\r\n", "four"), "refused"},
      {"/full", response("200 OK", sized(full), full), full},
      {"/over", response("200 OK", sized(over), over), "refused"},
      {"/stated", response("200 OK", "Content-Length: 99999999999\r\n", "x"), "refused"},
      {"/full-unsized", response("200 OK", "", full), full},
      {"/over-unsized", response("200 OK", "", over), "refused"},
      {"/full-chunked", response("200 OK", chunked, chunk + "0\r\n\r\n"), full},
      {"/over-chunked", response("200 OK", chunked, chunk + "1\r\nx\r\n0\r\n\r\n"), "refused"},
      {"/no-http", "body without a head", "refused"},
  };
  std::vector<Route> table;
  for (const Row& row : rows) table.push_back({row.target, row.answer});
  for (const Row& row : rows) {
    const LoopbackServer server(routes(table));
    EXPECT_EQ(fetch(server.url(row.target)), row.expected) << row.target;
    EXPECT_FALSE(server.heads().empty()) << row.target;
  }
}

// A scheme that libcurl would follow by itself: there must be no second connection, nor a wait for one.
TEST_F(HttpClientTest, RedirectToFtp) {
  const auto toFtp = [](const std::string& head) {
    const std::size_t host = head.find("Host: ") + 6;
    const std::string address = head.substr(host, head.find("\r\n", host) - host);
    return response("302 Found", "Location: ftp://" + address + "/x\r\n" + sized(""), "");
  };
  const LoopbackServer server(toFtp);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(fetch(server.url("/"), {2s, 1000, 3}), "refused");
  EXPECT_LT(std::chrono::steady_clock::now() - start, 1500ms);
  EXPECT_EQ(server.heads().size(), 1u);
}

TEST_F(HttpClientTest, Addresses) {
  const LoopbackServer server(routes({{"/ok", response("200 OK", sized("body"), "body")}}));
  const std::string address = server.url("/ok");
  const std::string secret = (folder_ / "secret").string();
  std::ofstream(secret) << "file content";
  const std::vector<std::string> refused = {
      "",
      "http://",
      address.substr(7),
      "//" + address.substr(7),
      "file://" + secret,
      secret,
      "ftp://127.0.0.1/x",
      "data:text/plain,x",
      " " + address,
      address + "\0.png"s,
      "httpx://127.0.0.1/",
      "http://127.0.0.1:1/nobody-listens",
  };
  for (const std::string& url : refused) EXPECT_EQ(fetch(url), "refused") << url;
  EXPECT_TRUE(server.heads().empty());
  EXPECT_EQ(fetch("HTTP" + address.substr(4)), "body");
}

// One client for all calls: what an answer leaves behind must not show in the next request.
TEST_F(HttpClientTest, RequestHead) {
  std::ofstream(folder_ / ".netrc") << "machine 127.0.0.1 login me password secret\n";
  setenv("HOME", folder_.c_str(), 1);
  const LoopbackServer server(
      routes({{"/a", response("200 OK", "Set-Cookie: id=1; Path=/\r\n" + sized("a"), "a")},
              {"/b", response("302 Found", "Set-Cookie: id=2\r\nLocation: /a\r\n" + sized(""), "")},
              {"/%EC%84%9C%20%7F", response("200 OK", sized("a"), "a")}}));
  HttpFetcher client(smallLimits);
  std::vector<std::byte> body;
  for (const char* target : {"/a", "/b", "/a", "/\uc11c \x7f"})
    EXPECT_TRUE(client.get(server.url(target), body)) << target;
  const std::vector<std::string> heads = server.heads();
  ASSERT_EQ(heads.size(), 5u);
  for (const std::string& head : heads) {
    EXPECT_NE(head.find("\r\nAccept: */*\r\n"), std::string::npos) << head;
    EXPECT_NE(head.find("\r\nUser-Agent: ImageDownload\r\n"), std::string::npos) << head;
    EXPECT_EQ(head.find("Cookie:"), std::string::npos) << head;
    EXPECT_EQ(head.find("Authorization:"), std::string::npos) << head;
  }
}

TEST_F(HttpClientTest, TimeLimit) {
  const auto silent = [](const std::string&) { return ""s; };
  const auto circle = [](const std::string&) {
    std::this_thread::sleep_for(200ms);
    return response("302 Found", "Location: /\r\n" + sized(""), "");
  };
  for (const LoopbackServer::Answer& answer :
       {LoopbackServer::Answer(silent), LoopbackServer::Answer(circle)}) {
    const LoopbackServer server(answer);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(fetch(server.url("/"), {1s, 1000, 1000}), "refused");
    const auto spent = std::chrono::steady_clock::now() - start;
    EXPECT_GE(spent, 900ms);
    EXPECT_LT(spent, 4s);
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
