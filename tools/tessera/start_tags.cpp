#include "tools/tessera/start_tags.h"

#include <algorithm>

namespace tessera {

namespace {

struct Skipped {
  std::string_view begin;
  std::string_view end;
};

// What starts like a tag and is none; in the order in which they are tried.
constexpr Skipped skipped[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!", ">"}, {"</", ">"}};

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view nameEnds = " \t\r\n=/>";

class TagScanner {
 public:
  explicit TagScanner(std::string_view text) : text_(text) {}

  std::vector<StartTag> run() {
    std::vector<StartTag> tags;
    while (moveTo(text_.find('<', at_))) {
      if (!skip()) tags.push_back(readTag());
    }
    return tags;
  }

 private:
  // False at the end of the text.
  bool moveTo(std::size_t place) {
    place = std::min(place, text_.size());
    line_ += static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(at_),
                                         text_.begin() + static_cast<std::ptrdiff_t>(place), '\n'));
    at_ = place;
    return at_ < text_.size();
  }

  void moveBehind(std::string_view end) {
    const std::size_t found = text_.find(end, at_);
    moveTo(found == std::string_view::npos ? found : found + end.size());
  }

  bool skip() {
    for (const Skipped& kind : skipped) {
      if (!text_.substr(at_).starts_with(kind.begin)) continue;
      moveBehind(kind.end);
      return true;
    }
    return false;
  }

  std::string_view readName() {
    const std::size_t begin = at_;
    moveTo(text_.find_first_of(nameEnds, at_));
    return text_.substr(begin, at_ - begin);
  }

  StartTag readTag() {
    StartTag tag;
    tag.line = line_;
    moveTo(at_ + 1);
    tag.name = readName();
    while (moveTo(text_.find_first_not_of(blanks, at_)) && text_[at_] != '>' && text_[at_] != '/') {
      tag.attributes.push_back(readName());
      if (!moveTo(text_.find_first_of("\"'", at_))) break;
      const std::string_view quote = text_.substr(at_, 1);
      moveTo(at_ + 1);
      moveBehind(quote);
    }
    return tag;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  int line_ = 1;
};

}  // namespace

std::vector<StartTag> readStartTags(std::string_view text) { return TagScanner(text).run(); }

}  // namespace tessera
