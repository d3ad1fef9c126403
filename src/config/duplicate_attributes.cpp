#include <algorithm>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "config/info_text.h"

namespace tessera {
namespace {

constexpr std::size_t none = std::u16string_view::npos;

// Names without white space between them share their beginning, so the hash is carried along instead of being
// taken from each name again.
struct Name {
  std::u16string_view text;
  std::uint64_t hash;
};

// A stretch of text without white space.
struct Word {
  static constexpr std::uint64_t emptyHash = 0xCBF29CE484222325;  // FNV-1a

  std::size_t begin;
  std::size_t end;
  std::uint64_t hash = emptyHash;

  void extend(char16_t unit) {
    ++end;
    hash = (hash ^ unit) * 0x100000001B3;
  }
  std::u16string_view in(std::u16string_view text) const { return text.substr(begin, end - begin); }
};

// The names in front of every "=" of a text, reduced to what is asked for: where the last one of each stands.
// Texts are compared only for a name that stands far enough back, since that ends in its removal; so the
// comparisons cost no more than the text is long. Two names of one hash would leave a repetition standing,
// which makes the document unreadable and nothing worse.
class LastNames {
 public:
  explicit LastNames(std::u16string_view text) : text_(text) {
    std::optional<Word> word;
    bool inWord = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] == u'=' && word) lastBegin_[word->hash] = word->begin;
      if (isWideSpace(text[i])) {
        inWord = false;
        continue;
      }
      if (!inWord) word = Word{i, i};
      inWord = true;
      word->extend(text[i]);
    }
  }

  bool standsAtOrAfter(std::size_t position, const Name& name) const {
    const auto found = lastBegin_.find(name.hash);
    return found != lastBegin_.end() && found->second >= position &&
           text_.substr(found->second).starts_with(name.text);
  }

 private:
  std::u16string_view text_;
  std::unordered_map<std::uint64_t, std::size_t> lastBegin_;
};

// The part of the run that is done, with its words at hand. Taking back a part that was done costs what
// adding it did, so the whole repair stays linear.
class DoneText {
 public:
  void append(std::u16string_view text) {
    for (const char16_t unit : text) append(unit);
  }
  // `position` is where a word begins.
  void cutBack(std::size_t position) {
    while (!words_.empty() && words_.back().begin >= position) words_.pop_back();
    text_.resize(position);
    inWord_ = false;
  }
  const std::u16string& text() const { return text_; }
  const Word* lastWord() const { return words_.empty() ? nullptr : &words_.back(); }
  Name nameOf(const Word& word) const { return {word.in(text_), word.hash}; }

 private:
  void append(char16_t unit) {
    if (isWideSpace(unit)) {
      inWord_ = false;
    } else {
      if (!inWord_) words_.push_back({text_.size(), text_.size()});
      inWord_ = true;
      words_.back().extend(unit);
    }
    text_.push_back(unit);
  }

  std::u16string text_;
  std::vector<Word> words_;
  bool inWord_ = false;
};

std::size_t countApostrophes(std::u16string_view text) {
  return static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\''));
}

class Repair {
 public:
  Repair(std::u16string_view run, std::size_t start)
      : run_(run), names_(run), apostrophes_(countApostrophes(run)), start_(start) {
    takeOver(start);
  }

  std::u16string finish() && {
    while (step()) continue;
    takeOver(run_.size());
    return done_.text();
  }

 private:
  // Looks at the next "=". False when the search is over.
  bool step() {
    const std::size_t equals = run_.find(u'=', next_);
    if (equals == none) return false;
    takeOver(equals);
    const Word* word = done_.lastWord();
    if (!word || word->end <= 1) return false;

    const char16_t quote = apostrophes_ > 0 ? u'\'' : u'"';
    const std::size_t opening = run_.find(quote, equals);
    const std::size_t closing = opening == none ? none : run_.find(quote, opening + 1);
    if (closing == none) return false;

    if (comesAgain(done_.nameOf(*word), equals)) {
      drop(word->begin, closing + 1);
    } else {
      takeOver(closing + 1);
      start_ = done_.text().size();
    }
    return true;
  }

  bool comesAgain(const Name& name, std::size_t equals) const {
    return names_.standsAtOrAfter(equals, name) || startsNextWord(name, equals);
  }

  // A word that lost its beginning to an earlier removal is not known by its present name. It can only be the
  // one that starts with this very "=", when white space stands before it.
  bool startsNextWord(const Name& name, std::size_t equals) const {
    if (done_.lastWord()->end == done_.text().size()) return false;
    const std::u16string_view rest = run_.substr(equals);
    if (!rest.starts_with(name.text)) return false;
    std::size_t at = name.text.size();
    while (at < rest.size() && isWideSpace(rest[at])) ++at;
    return at < rest.size() && rest[at] == u'=';
  }

  // Removes the text from a done position up to an undone one. The search goes on at the same distance from
  // the start of the run.
  void drop(std::size_t doneBegin, std::size_t runEnd) {
    const std::u16string_view done = done_.text();
    apostrophes_ -=
        countApostrophes(done.substr(doneBegin)) + countApostrophes(run_.substr(next_, runEnd - next_));
    done_.cutBack(doneBegin);
    next_ = runEnd;
    if (start_ > doneBegin) takeOver(std::min(run_.size(), next_ + (start_ - doneBegin)));
  }

  void takeOver(std::size_t end) {
    end = std::min(end, run_.size());
    done_.append(run_.substr(next_, end - next_));
    next_ = end;
  }

  std::u16string_view run_;
  LastNames names_;
  std::size_t apostrophes_;  // left in the run
  DoneText done_;
  std::size_t next_ = 0;  // first undone unit of the run
  std::size_t start_;     // where the search for the next "=" started, as a position in the done text
};

}  // namespace

std::u16string removeDuplicateAttributes(std::u16string_view run, std::size_t start) {
  const bool mayRepeat = std::count(run.begin(), run.end(), u'=') > 1;
  return mayRepeat ? Repair(run, start).finish() : std::u16string(run);
}

}  // namespace tessera
