#include "console/text_diff.h"

#include <algorithm>

namespace tessera {

namespace {

constexpr std::size_t context = 3;

// How long the longest common subsequence of the tails is that start at (i, j).
class CommonTails {
 public:
  CommonTails(const std::vector<std::string>& a, const std::vector<std::string>& b)
      : width_(b.size() + 1), lengths_((a.size() + 1) * width_) {
    for (std::size_t i = a.size(); i-- > 0;) {
      for (std::size_t j = b.size(); j-- > 0;) {
        lengths_[i * width_ + j] = a[i] == b[j] ? at(i + 1, j + 1) + 1 : std::max(at(i + 1, j), at(i, j + 1));
      }
    }
  }
  std::size_t at(std::size_t i, std::size_t j) const { return lengths_[i * width_ + j]; }

 private:
  std::size_t width_;
  std::vector<std::size_t> lengths_;
};

std::vector<std::string> markedLines(const std::vector<std::string>& a, const std::vector<std::string>& b) {
  const CommonTails tails(a, b);
  std::vector<std::string> lines;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < a.size() || j < b.size()) {
    if (i < a.size() && j < b.size() && a[i] == b[j]) {
      lines.push_back(" " + a[i++]);
      ++j;
    } else if (i < a.size() && (j == b.size() || tails.at(i + 1, j) >= tails.at(i, j + 1))) {
      lines.push_back("-" + a[i++]);
    } else {
      lines.push_back("+" + b[j++]);
    }
  }
  return lines;
}

}  // namespace

std::vector<std::string> splitLines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

std::string unifiedDiff(const std::vector<std::string>& expected, const std::vector<std::string>& actual) {
  const std::vector<std::string> lines = markedLines(expected, actual);
  std::vector<bool> shown(lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].front() == ' ') continue;
    const std::size_t end = std::min(i + context + 1, lines.size());
    for (std::size_t near = i - std::min(i, context); near < end; ++near) shown[near] = true;
  }
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!shown[i]) continue;
    if (i > 0 && !shown[i - 1]) text += "@@\n";
    text += lines[i] + "\n";
  }
  return text;
}

}  // namespace tessera
