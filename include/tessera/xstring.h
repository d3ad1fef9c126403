// The wide string of the system: UTF-16 code units in a shared, copy-on-write block.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace tessera {

// Copies share one block until one of them is written to. All strings that never held text share one static
// block that is never counted or freed. Reference counts are atomic, so copies may live on different threads;
// one XString object may not be used by two threads at once. Running out of memory leaves the target empty.
class XString {
 public:
  XString() noexcept;
  XString(const XString& other);
  XString(XString&& other) noexcept;
  XString(std::u16string_view text);
  // A null pointer counts as the empty text.
  XString(const char16_t* text);
  ~XString();

  // Shares the block of `other`; copies the characters when one of the two blocks is locked.
  XString& operator=(const XString& other);
  XString& operator=(XString&& other) noexcept;

  // Narrow text in code page 0 (UTF-8); bytes that are no UTF-8 become U+FFFD.
  static XString fromNarrow(std::string_view text);

  std::int32_t length() const { return block()->length; }
  bool empty() const { return length() == 0; }
  // Never null; a zero unit follows the last character.
  const char16_t* chars() const { return chars_; }
  std::u16string_view view() const { return {chars_, static_cast<std::size_t>(length())}; }
  operator std::u16string_view() const { return view(); }

  // 0 for an index below 0, at or past the end.
  char16_t charAt(std::int32_t index) const;

  // Reuses the block when this object is its only owner and `text` fits; otherwise takes a block of exactly
  // the needed size. `text` may lie inside this string.
  void assign(std::u16string_view text);
  // The same for narrow text in code page 0, without a detour over a wide copy.
  void assignNarrow(std::string_view text);
  // In place under the same condition; otherwise a new block of exactly the joined size, with no growth.
  void append(std::u16string_view text);
  XString& operator+=(std::u16string_view text);
  // Gives the block back; assign() of the empty text keeps it.
  void clear();

  // Counts and starts are clamped into the string; all of these give copies.
  XString mid(std::int32_t start, std::int32_t count) const;
  XString left(std::int32_t count) const;
  XString right(std::int32_t count) const;

  // Index of the first match at or after `start`, or -1. The empty text matches at `start` itself.
  std::int32_t find(char16_t character, std::int32_t start = 0) const;
  std::int32_t find(std::u16string_view text, std::int32_t start = 0) const;

  // Takes `count` units out at `index`; the result is the new length.
  std::int32_t remove(std::int32_t index, std::int32_t count);

  // A private block that keeps the text and has room for `capacity` units, whose characters may then be
  // written; null when there is no memory. The block is locked, copies of this object get their own, until
  // releaseBuffer() sets the final length (-1: up to the first zero unit) or another change ends the writing.
  char16_t* reserve(std::int32_t capacity);
  void releaseBuffer(std::int32_t length = -1);

  // Replaces the text by printf-style output of the UTF-8 `pattern`, the "%*.*f" family included. Arguments
  // are numbers and narrow (UTF-8) or wide texts; a number of the other kind than its conversion is
  // converted, a missing argument prints nothing. The decimal point is a point in every locale.
  template <class... Args>
  void format(const char* pattern, const Args&... arguments) {
    formatList(pattern, {formatArgument(arguments)...});
  }

  // The text in code page 0, kept by this object until the next call or its destruction.
  const char* toAnsi() const;
  // The text as UTF-8; unpaired surrogates become U+FFFD.
  std::string toUtf8() const;

  // How many objects share the block; negative for the static empty block and while locked. For tests and
  // assertions.
  std::int32_t refs() const;

  // Found only by way of an XString, so that they take no part in comparisons of plain views.
  friend bool operator==(const XString& a, const XString& b) { return a.view() == b.view(); }
  friend bool operator==(const XString& a, std::u16string_view b) { return a.view() == b; }
  friend bool operator==(const XString& a, const char16_t* b) {
    return a.view() == (b ? std::u16string_view(b) : std::u16string_view());
  }

 private:
  struct Block {
    std::int32_t refs;  // negative: locked, must be copied and never counted
    std::int32_t length;
    std::int32_t alloc;
  };
  struct EmptyBlock;
  using FormatArgument = std::variant<int, unsigned, long long, unsigned long long, double, std::string_view,
                                      std::u16string_view>;

  static EmptyBlock emptyBlock_;

  static char16_t* emptyChars() noexcept;
  static char16_t* allocate(std::size_t capacity, std::size_t length) noexcept;
  template <class T>
  static FormatArgument formatArgument(const T& argument);

  Block* block() const;
  bool isStatic() const noexcept { return chars_ == emptyChars(); }
  bool isLocked() const noexcept;
  bool mayWrite(std::size_t capacity) const noexcept;
  void unlock() noexcept;
  void release() noexcept;
  void adopt(char16_t* chars) noexcept;
  void setLength(std::size_t length) noexcept;
  void formatList(const char* pattern, std::initializer_list<FormatArgument> arguments);

  char16_t* chars_;
  mutable char* ansiCache_ = nullptr;
};

inline XString::Block* XString::block() const {
  return reinterpret_cast<Block*>(reinterpret_cast<char*>(chars_) - sizeof(Block));
}

template <class T>
XString::FormatArgument XString::formatArgument(const T& argument) {
  if constexpr (std::is_floating_point_v<T>) {
    return static_cast<double>(argument);
  } else if constexpr (std::is_enum_v<T>) {
    return formatArgument(static_cast<std::underlying_type_t<T>>(argument));
  } else if constexpr (std::is_integral_v<T> && std::is_unsigned_v<T>) {
    if constexpr (sizeof(T) > sizeof(unsigned)) return static_cast<unsigned long long>(argument);
    return static_cast<unsigned>(argument);
  } else if constexpr (std::is_integral_v<T>) {
    if constexpr (sizeof(T) > sizeof(int)) return static_cast<long long>(argument);
    return static_cast<int>(argument);
  } else if constexpr (std::is_convertible_v<const T&, std::u16string_view>) {
    return static_cast<std::u16string_view>(argument);
  } else {
    return static_cast<std::string_view>(argument);
  }
}

}  // namespace tessera

template <>
struct std::hash<tessera::XString> {
  std::size_t operator()(const tessera::XString& text) const noexcept {
    return std::hash<std::u16string_view>{}(text.view());
  }
};
