// A form in the hands of a test that asks more than a transcript shows.

#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "tools/tessera/commands.h"
#include "tools/tessera/transcript.h"

namespace tessera {

class Session {
 public:
  // A form of tests/console/forms, which is the working folder.
  explicit Session(const std::string& form) : Session(openForm(form)) {}

  // Obeys commands that "; " separates; their replies, without those that are nothing but "ok".
  std::string run(std::string_view commands) {
    out_.str("");
    obey(commands);
    host_.forgetWindows();
    return out_.str();
  }
  // For what answers with one value: that value.
  std::string value(std::string_view command) {
    const std::string reply = run(command);
    const std::size_t start = reply.rfind("= ");
    return start == std::string::npos ? reply : reply.substr(start + 2, reply.size() - start - 3);
  }
  // As run(), also in the middle of another command.
  void obey(std::string_view commands) {
    constexpr std::string_view separator = "; ";
    while (!commands.empty()) {
      const std::size_t end = std::min(commands.find(separator), commands.size());
      execute(commands.substr(0, end));
      commands.remove_prefix(std::min(end + separator.size(), commands.size()));
    }
  }
  std::shared_ptr<MemoryDataSet> data(std::size_t index = 0) const { return data_[index].rows; }
  FormHost& host() { return host_; }
  // Runs inside an event whose handler is told to do "act"; another word of this session is "refresh".
  std::function<void()> act;

 private:
  explicit Session(Loaded<OpenedForm> opened)
      : data_(opened->components.dataSets), host_(std::move(*opened), &handlers_) {}

  void execute(std::string_view command) {
    if (command == "act" && act) return std::function(act)();  // which may replace itself
    if (command == "refresh") return host_.control().Refresh();
    const Reply reply = runCommandLine(context_, command);
    EXPECT_TRUE(!reply.isError || !host_.window()) << command << ": " << reply.last;
    for (const std::string& line : reply.lines) transcript_.line(line);
    if (reply.last != "ok") transcript_.line(reply.last);
  }

  std::ostringstream out_;
  Transcript transcript_{out_, false};
  EventHandlers handlers_{transcript_, [this](const std::string& command) { obey(command); }};
  std::vector<OpenedDataSet> data_;
  FormHost host_;
  CommandContext context_{host_, handlers_};
};

}  // namespace tessera
