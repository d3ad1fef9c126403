// The console's output.

#pragma once

#include <ostream>
#include <string_view>

namespace tessera {

// Lines, indented while a handler runs commands inside an event. A strict transcript ends with its first
// error line.
class Transcript {
 public:
  Transcript(std::ostream& out, bool isStrict) : out_(out), isStrict_(isStrict) {}

  void line(std::string_view text) {
    if (ended_) return;
    for (int i = 0; i < depth_; ++i) out_ << "  ";
    out_ << text << '\n';
  }
  void errorLine(std::string_view text) {
    line(text);
    ended_ = isStrict_;
  }
  bool ended() const { return ended_; }
  void flush() { out_.flush(); }

  int depth() const { return depth_; }
  class Indent {
   public:
    explicit Indent(Transcript& transcript) : transcript_(transcript) { ++transcript_.depth_; }
    ~Indent() { --transcript_.depth_; }
    Indent(const Indent&) = delete;
    Indent& operator=(const Indent&) = delete;

   private:
    Transcript& transcript_;
  };

 private:
  std::ostream& out_;
  bool isStrict_;
  bool ended_ = false;
  int depth_ = 0;  // in steps of two blanks
};

}  // namespace tessera
