#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include <tessera/xstring.h>

#include "shared/atomic_count.h"
#include "shared/utf.h"

namespace tessera {
namespace {

constexpr std::size_t maxLength = std::numeric_limits<std::int32_t>::max();

std::u16string_view viewOfPointer(const char16_t* text) {
  return text ? std::u16string_view(text) : std::u16string_view();
}

void copyUnits(char16_t* to, const char16_t* from, std::size_t count) {
  if (count > 0) std::memmove(to, from, count * sizeof(char16_t));
}

}  // namespace

struct XString::EmptyBlock {
  Block header;
  char16_t terminator;
};

constinit XString::EmptyBlock XString::emptyBlock_ = {{-1, 0, 0}, u'\0'};

char16_t* XString::emptyChars() noexcept { return &emptyBlock_.terminator; }

// Null when there is no memory or `capacity` is past what a length can count.
char16_t* XString::allocate(std::size_t capacity, std::size_t length) noexcept {
  static_assert(sizeof(Block) % alignof(char16_t) == 0);
  static_assert(offsetof(EmptyBlock, terminator) == sizeof(Block));
  if (capacity > maxLength) return nullptr;
  void* memory = ::operator new(sizeof(Block) + (capacity + 1) * sizeof(char16_t), std::nothrow);
  if (!memory) return nullptr;
  const auto* block =
      ::new (memory) Block{1, static_cast<std::int32_t>(length), static_cast<std::int32_t>(capacity)};
  char16_t* chars = reinterpret_cast<char16_t*>(static_cast<char*>(memory) + sizeof(*block));
  chars[length] = u'\0';
  return chars;
}

bool XString::isLocked() const noexcept { return !isStatic() && refs() < 0; }

// Whether this object alone holds the block and `capacity` units fit. No other thread can raise a count of 1:
// it would have to copy this very object.
bool XString::mayWrite(std::size_t capacity) const noexcept {
  return !isStatic() && refs() <= 1 && capacity <= static_cast<std::size_t>(block()->alloc);
}

// Before a change to a block that only this object holds.
void XString::unlock() noexcept {
  if (refs() != 1) atomic_count::store(block()->refs, 1);
}

void XString::release() noexcept {
  if (isStatic()) return;
  if (atomic_count::lower(block()->refs) > 1) return;
  ::operator delete(block());
}

void XString::adopt(char16_t* chars) noexcept {
  release();
  chars_ = chars ? chars : emptyChars();
}

void XString::setLength(std::size_t length) noexcept {
  unlock();
  block()->length = static_cast<std::int32_t>(length);
  chars_[length] = u'\0';
}

XString::XString() noexcept : chars_(emptyChars()) {}

XString::XString(const XString& other) : chars_(emptyChars()) { *this = other; }

XString::XString(XString&& other) noexcept : chars_(std::exchange(other.chars_, emptyChars())) {}

XString::XString(std::u16string_view text) : chars_(emptyChars()) { assign(text); }

XString::XString(const char16_t* text) : XString(viewOfPointer(text)) {}

XString::~XString() {
  release();
  delete[] ansiCache_;
}

XString& XString::operator=(const XString& other) {
  if (this == &other || chars_ == other.chars_) return *this;
  if (isLocked() || other.isLocked()) {
    assign(other.view());
    return *this;
  }
  if (!other.isStatic()) atomic_count::raise(other.block()->refs);
  adopt(other.chars_);
  return *this;
}

XString& XString::operator=(XString&& other) noexcept {
  if (this != &other) adopt(std::exchange(other.chars_, emptyChars()));
  return *this;
}

XString XString::fromNarrow(std::string_view text) {
  XString result;
  result.assignNarrow(text);
  return result;
}

char16_t XString::charAt(std::int32_t index) const {
  return index >= 0 && index < length() ? chars_[index] : u'\0';
}

void XString::assign(std::u16string_view text) {
  if (mayWrite(text.size())) {
    copyUnits(chars_, text.data(), text.size());
    setLength(text.size());
    return;
  }
  if (text.empty()) return clear();
  char16_t* chars = allocate(text.size(), text.size());
  if (chars) copyUnits(chars, text.data(), text.size());
  adopt(chars);
}

void XString::assignNarrow(std::string_view text) {
  const std::size_t length = mayWrite(text.size()) ? text.size() : utf16Length(text);
  if (!mayWrite(length)) adopt(length > 0 ? allocate(length, 0) : nullptr);
  if (isStatic()) return;
  setLength(static_cast<std::size_t>(writeUtf16(text, chars_) - chars_));
}

void XString::append(std::u16string_view text) {
  if (text.empty()) return;
  const auto old = static_cast<std::size_t>(length());
  const std::size_t joined = old + text.size();
  if (mayWrite(joined)) {
    copyUnits(chars_ + old, text.data(), text.size());
    setLength(joined);
    return;
  }
  char16_t* chars = allocate(joined, joined);
  if (chars) {
    copyUnits(chars, chars_, old);
    copyUnits(chars + old, text.data(), text.size());
  }
  adopt(chars);
}

XString& XString::operator+=(std::u16string_view text) {
  append(text);
  return *this;
}

void XString::clear() { adopt(nullptr); }

XString XString::mid(std::int32_t start, std::int32_t count) const {
  start = std::clamp(start, 0, length());
  count = std::clamp(count, 0, length() - start);
  if (count == length()) return *this;
  return view().substr(static_cast<std::size_t>(start), static_cast<std::size_t>(count));
}

XString XString::left(std::int32_t count) const { return mid(0, count); }

XString XString::right(std::int32_t count) const {
  count = std::clamp(count, 0, length());
  return mid(length() - count, count);
}

std::int32_t XString::find(char16_t character, std::int32_t start) const {
  const std::size_t at = view().find(character, static_cast<std::size_t>(std::max(start, 0)));
  return at == std::u16string_view::npos ? -1 : static_cast<std::int32_t>(at);
}

std::int32_t XString::find(std::u16string_view text, std::int32_t start) const {
  const std::size_t at = view().find(text, static_cast<std::size_t>(std::max(start, 0)));
  return at == std::u16string_view::npos ? -1 : static_cast<std::int32_t>(at);
}

std::int32_t XString::remove(std::int32_t index, std::int32_t count) {
  index = std::max(index, 0);
  const std::int32_t old = length();
  if (count < 1 || index >= old) return old;
  count = std::min(count, old - index);
  const auto before = static_cast<std::size_t>(index);
  const auto after = static_cast<std::size_t>(old - index - count);
  const char16_t* tail = chars_ + index + count;
  if (mayWrite(before + after)) {
    copyUnits(chars_ + before, tail, after);
    setLength(before + after);
    return length();
  }
  char16_t* chars = before + after > 0 ? allocate(before + after, before + after) : nullptr;
  if (chars) {
    copyUnits(chars, chars_, before);
    copyUnits(chars + before, tail, after);
  }
  adopt(chars);
  return length();
}

char16_t* XString::reserve(std::int32_t capacity) {
  const auto old = static_cast<std::size_t>(length());
  const std::size_t room = std::max(old, static_cast<std::size_t>(std::max(capacity, 1)));
  if (!mayWrite(room)) {
    char16_t* chars = allocate(room, old);
    if (chars) copyUnits(chars, chars_, old);
    adopt(chars);
    if (!chars) return nullptr;
  }
  atomic_count::store(block()->refs, -1);
  return chars_;
}

void XString::releaseBuffer(std::int32_t length) {
  if (isStatic()) return;
  if (!mayWrite(0)) {
    reserve(0);
    if (isStatic()) return;
  }
  const auto alloc = static_cast<std::size_t>(block()->alloc);
  const std::size_t measured =
      length < 0 ? static_cast<std::size_t>(std::find(chars_, chars_ + alloc, u'\0') - chars_)
                 : std::min(static_cast<std::size_t>(length), alloc);
  setLength(measured);
}

const char* XString::toAnsi() const {
  const std::size_t bytes = utf8Length(view());
  delete[] ansiCache_;
  ansiCache_ = new (std::nothrow) char[bytes + 1];
  if (!ansiCache_) return "";
  *writeUtf8(view(), ansiCache_) = '\0';
  return ansiCache_;
}

std::string XString::toUtf8() const { return utf8FromUtf16(view()); }

std::int32_t XString::refs() const { return atomic_count::load(block()->refs); }

}  // namespace tessera
